#pragma once

#include "db/walk_order.h"
#include "persistence/grammar/project.h"
#include "persistence/write_archive.h"

#include <cstdint>
#include <map>
#include <string>
#include <string_view>
#include <vector>

// The content of a project as a file holds it, register by register, so that those whose names have no
// consistent order can be compared as sets.
struct ProjectRows {
    struct Register {
        std::vector<std::vector<std::uint8_t>> rows; // in walk order
        bool consistent = true; // whether the names have one order
    };
    std::map<std::string, Register, std::less<>> registers;
    std::vector<std::uint8_t> rest; // all fields that belong to no register

    bool consistent() const
    {
        for (const auto& [name, each] : registers)
            if (!each.consistent)
                return false;
        return true;
    }
};

class RowsArchive : public WriteArchive
{
public:
    explicit RowsArchive(ProjectRows& content)
        : content_(content)
    {
    }

    // Registers alone come here: the maps inside a row are described to the archive that writes the row.
    template <class Map>
    void map(std::string_view name, const EntryNames& names, Map& values)
    {
        ProjectRows::Register& rows = content_.registers[std::string(name)];
        WalkOrder order;
        for (auto& [key, value] : values) {
            WriteArchive row;
            entryFields(row, names, key, value);
            rows.rows.push_back(row.takeBytes());
            rows.consistent = order.admitsNext<Map>(key);
        }
    }
    void subsidenceNames(std::string_view name, SubsidenceNames& values)
    {
        map(name, {"name", "names"}, values);
    }

private:
    ProjectRows& content_;
};

inline ProjectRows rowsOf(IDBProject& project)
{
    ProjectRows content;
    RowsArchive archive(content);
    projectFields(archive, project);
    content.rest = archive.takeBytes();
    return content;
}
