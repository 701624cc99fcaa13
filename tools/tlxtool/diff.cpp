#include "tlxtool/diff.h"

#include "persistence/grammar/project.h"
#include "tlxtool/json_dump_archive.h"
#include "tlxtool/json_text.h"
#include "tlxtool/text_table.h"

#include <algorithm>
#include <optional>
#include <unordered_map>
#include <utility>
#include <vector>

namespace
{

struct Dump {
    explicit Dump(IDBProject& source)
    {
        JsonDumpArchive archive(project);
        projectFields(archive, source);
        keys = archive.registerKeys();
    }
    Dump(const Dump&) = delete;
    Dump& operator=(const Dump&) = delete;

    Json project;
    JsonDumpArchive::RegisterKeys keys;
};

// Long texts and patterns are cut: the line is to say what changed, not to hold it.
std::string shown(const Json& value)
{
    constexpr std::size_t widest = 60;
    return cutToWidth(jsonText(value, true), widest);
}

// The fields that differ, each with its path below the row and both values. Goes as deep as the project does,
// which its reader limits.
void describeChanges(const Json& a, const Json& b, const std::string& path, std::vector<std::string>& changes)
{
    const auto below = [&path](const std::string& name) { return path.empty() ? name : path + "." + name; };
    if (a == b)
        return;
    if (a.is_object() && b.is_object() && a.size() == b.size()) {
        for (auto member = a.begin(), other = b.begin(); member != a.end(); ++member, ++other) {
            if (member.key() != other.key())
                break;
            describeChanges(*member, *other, below(member.key()), changes);
        }
    } else if (a.is_array() && b.is_array()) {
        const std::size_t common = std::min(a.size(), b.size());
        for (std::size_t i = 0; i < common; ++i)
            describeChanges(a[i], b[i], path + "[" + std::to_string(i) + "]", changes);
        if (a.size() != b.size())
            changes.push_back(
                path + ": было строк " + std::to_string(a.size()) + ", стало " + std::to_string(b.size()));
    } else {
        changes.push_back(path + ": " + shown(a) + " -> " + shown(b));
    }
}

// The keys of a register, or the identifiers of drawing objects and records; nothing for plain lists.
std::optional<std::vector<std::string>> keysOf(const Dump& dump, const std::string& name, const Json& rows)
{
    const auto registered = dump.keys.find(name);
    if (registered != dump.keys.end())
        return registered->second;
    std::vector<std::string> identifiers;
    for (const Json& row : rows) {
        if (!row.is_object() || !row.contains("id") || !row.at("id").is_string())
            return std::nullopt;
        identifiers.push_back(row.at("id").get<std::string>());
    }
    return identifiers;
}

// Rows of one register in both projects. A key may stand there twice, where an ordering has gone astray: such
// rows are matched in turn.
class RegisterDiff
{
public:
    void compare(const Json& a,
        const std::vector<std::string>& keysA,
        const Json& b,
        const std::vector<std::string>& keysB)
    {
        std::unordered_map<std::string, std::vector<std::size_t>> rowsB;
        for (std::size_t i = keysB.size(); i > 0; --i)
            rowsB[keysB[i - 1]].push_back(i - 1);
        std::vector<bool> found(keysB.size());
        for (std::size_t i = 0; i < keysA.size(); ++i) {
            const auto match = rowsB.find(keysA[i]);
            if (match == rowsB.end() || match->second.empty()) {
                removed_.push_back(keysA[i]);
                continue;
            }
            const std::size_t other = match->second.back();
            match->second.pop_back();
            found[other] = true;
            compareRows(keysA[i], a[i], b[other]);
        }
        for (std::size_t i = 0; i < keysB.size(); ++i)
            if (!found[i])
                added_.push_back(keysB[i]);
    }

    std::string text(const std::string& name) const
    {
        if (added_.empty() && removed_.empty() && changed_.empty())
            return {};
        std::string text = name + ": добавлено " + std::to_string(added_.size()) + ", удалено "
            + std::to_string(removed_.size()) + ", изменено " + std::to_string(changed_.size()) + "\n";
        for (const std::string& key : removed_)
            text += "  - " + key + "\n";
        for (const std::string& key : added_)
            text += "  + " + key + "\n";
        for (const auto& [key, changes] : changed_) {
            text += "  ~ " + key + "\n";
            for (const std::string& change : changes)
                text += "      " + change + "\n";
        }
        return text;
    }

private:
    void compareRows(const std::string& key, const Json& a, const Json& b)
    {
        std::vector<std::string> changes;
        describeChanges(a, b, {}, changes);
        if (!changes.empty())
            changed_.emplace_back(key, std::move(changes));
    }

    std::vector<std::string> added_;
    std::vector<std::string> removed_;
    std::vector<std::pair<std::string, std::vector<std::string>>> changed_;
};

} // namespace

std::string diffProjects(IDBProject& a, IDBProject& b)
{
    const Dump dumpA(a);
    const Dump dumpB(b);
    std::string text;
    std::vector<std::string> fieldChanges;
    for (auto member = dumpA.project.begin(); member != dumpA.project.end(); ++member) {
        const std::string& name = member.key();
        const Json& rowsA = *member;
        const Json& rowsB = dumpB.project.at(name);
        const auto keysA = rowsA.is_array() ? keysOf(dumpA, name, rowsA) : std::nullopt;
        const auto keysB = rowsB.is_array() ? keysOf(dumpB, name, rowsB) : std::nullopt;
        if (!keysA || !keysB) {
            describeChanges(rowsA, rowsB, name, fieldChanges);
            continue;
        }
        RegisterDiff diff;
        diff.compare(rowsA, *keysA, rowsB, *keysB);
        text += diff.text(name);
    }
    std::string fieldText;
    for (const std::string& change : fieldChanges)
        fieldText += change + "\n";
    return fieldText + text;
}
