#pragma once

#include "section/records/section_editor_records.h"

#include <string>
#include <vector>

// The working store of the section editor. It is never saved: it starts empty with every project and the
// module fills it. Operations on the two object maps throw as sectionNameOrder does.
class IDBSectionEditor
{
public:
    virtual SectionEditorList& getListA() = 0;
    virtual SectionEditorList& getListB() = 0;
    virtual SectionEditorList& getListC() = 0;
    virtual SectionEditorList& getListD() = 0;

    virtual SectionObjectMap& getObjectsA() = 0;
    // Replaces the entry of the section; the store takes one reference more on each object.
    virtual void addObjectsA(const std::wstring& section, const std::vector<GLEdObjectDB*>& objects) = 0;
    // Replaces the whole map, likewise; given its own map it does nothing.
    virtual void setObjectsA(const SectionObjectMap& objects) = 0;
    // Gives every reference back.
    virtual void clearObjectsA() = 0;

    virtual SectionObjectMap& getObjectsB() = 0;
    virtual void addObjectsB(const std::wstring& section, const std::vector<GLEdObjectDB*>& objects) = 0;
    virtual void setObjectsB(const SectionObjectMap& objects) = 0;
    virtual void clearObjectsB() = 0;

    // The boreholes of a section in their order, under the section's name; an empty map where it has none.
    virtual BoreholeQuery queryBoreholesA(const std::wstring& section) = 0;
    virtual BoreholeQuery queryBoreholesB(const std::wstring& section) = 0;

    virtual ~IDBSectionEditor() = default;
};
