#pragma once

#include "db/records/orderings.h"
#include "section/records/gl_object.h"

#include <cstdint>
#include <list>
#include <map>
#include <memory>
#include <string>
#include <vector>

// What the section editor's store needs to know of the records and objects that its module brings.

// A drawing object of the section editor.
class GLEdObjectDB : public GLObjectDB
{
public:
    using GLObjectDB::GLObjectDB;
};

// A borehole on the section; the store tells it from other objects by its class and reads its name.
class GLEdBoreholeDB : public GLEdObjectDB
{
public:
    using GLEdObjectDB::GLEdObjectDB;

    virtual const std::wstring& boreholeName() const { return getName(); }
};

// A record of one of the four working lists, known to the module alone.
class SectionEditorRecord
{
public:
    virtual ~SectionEditorRecord() = default;
};

using SectionEditorList = std::list<std::unique_ptr<SectionEditorRecord>>;
// A section's name to its objects; an entry holds one reference on each object.
using SectionObjectMap = std::map<std::wstring, std::vector<GLEdObjectDB*>, SectionNameOrder>;

struct BoreholeEntry {
    std::wstring name; // without blanks and apostrophes
    std::uint32_t position = 0; // among the boreholes of the section, from 1

    bool operator==(const BoreholeEntry&) const = default;
};

using BoreholeQuery = std::map<std::wstring, std::vector<BoreholeEntry>>;
