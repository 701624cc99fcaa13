#include "tlxtool/json_build_archive.h"

#include "persistence/read_failure.h"
#include "platform/utf8.h"
#include "tlxtool/base64.h"
#include "tlxtool/json_words.h"
#include "tlxtool/messages.h"
#include "tlxtool/tool_error.h"

#include <algorithm>

// By place, which the object itself does not offer.
static const Json::object_t::Container& membersOf(const Json& object)
{
    return object.get_ref<const Json::object_t&>();
}

void JsonBuildArchive::fail(const std::string& what) const
{
    std::string path;
    for (const Level& level : levels_) {
        // A level that has not been asked for anything yet is itself the place.
        if (level.taken == 0)
            break;
        if (level.value->is_array())
            path.append("[").append(std::to_string(level.next - 1)).append("]");
        else
            path.append(path.empty() ? "" : ".").append(membersOf(*level.value)[level.next - 1].first);
    }
    throw ToolError((path.empty() ? "начало файла" : path) + ": " + what);
}

std::size_t JsonBuildArchive::find(std::string_view name) const
{
    const Level& level = levels_.back();
    const Json::object_t::Container& members = membersOf(*level.value);
    // As a rule members come in the order of the fields.
    if (level.next < members.size() && members[level.next].first == name)
        return level.next;
    const auto found = std::find_if(
        members.begin(), members.end(), [&](const auto& member) { return member.first == name; });
    return static_cast<std::size_t>(found - members.begin());
}

const Json& JsonBuildArchive::take(std::string_view name)
{
    Level& level = levels_.back();
    if (level.value->is_array()) {
        ++level.taken;
        return (*level.value)[level.next++];
    }
    const std::size_t at = find(name);
    if (at == level.value->size()) {
        level.taken = 0;
        fail("нет поля \"" + std::string(name) + "\"; добавьте его");
    }
    level.used[at] = true;
    ++level.taken;
    level.next = at + 1;
    return membersOf(*level.value)[at].second;
}

void JsonBuildArchive::optional(std::string_view name)
{
    if (find(name) != levels_.back().value->size())
        take(name);
}

void JsonBuildArchive::expectObject(const Json& value) const
{
    if (!value.is_object())
        fail("здесь нужен объект {...}");
}

void JsonBuildArchive::expectArray(const Json& value) const
{
    if (!value.is_array())
        fail("здесь нужен массив [...]");
}

void JsonBuildArchive::expectAllTaken()
{
    Level& level = levels_.back();
    const auto unknown = std::find(level.used.begin(), level.used.end(), false);
    if (unknown == level.used.end())
        return;
    level.next = static_cast<std::size_t>(unknown - level.used.begin()) + 1;
    level.taken = 1;
    fail("такого поля в проекте нет; уберите его");
}

void JsonBuildArchive::expectCount(std::size_t wanted, std::size_t found) const
{
    if (wanted != found)
        fail("нужно ровно " + std::to_string(wanted) + " значений, здесь " + std::to_string(found));
}

std::int64_t JsonBuildArchive::integer(const Json& value, std::int64_t smallest, std::int64_t largest) const
{
    const bool tooLarge = value.is_number_unsigned()
        && std::cmp_greater(value.get<std::uint64_t>(), std::numeric_limits<std::int64_t>::max());
    const std::int64_t number = value.is_number_integer() && !tooLarge ? value.get<std::int64_t>() : 0;
    if (!value.is_number_integer() || tooLarge || number < smallest || number > largest)
        fail("здесь нужно целое число от " + std::to_string(smallest) + " до " + std::to_string(largest));
    return number;
}

const std::string& JsonBuildArchive::string(const Json& value) const
{
    if (!value.is_string())
        fail("здесь нужен текст в кавычках");
    return value.get_ref<const std::string&>();
}

void JsonBuildArchive::flag(std::string_view name, bool& value)
{
    const Json& given = take(name);
    if (!given.is_boolean())
        fail("здесь нужно true или false");
    value = given.get<bool>();
}

void JsonBuildArchive::word(std::string_view name, float& value)
{
    const auto number = singleFromJson(take(name));
    if (!number)
        fail("здесь нужно число или слово вида \"0x7fc00000\"");
    value = *number;
}

void JsonBuildArchive::text(std::string_view name, std::wstring& value)
{
    auto wide = fromUtf8(string(take(name)));
    if (!wide)
        fail("в тексте недопустимые знаки");
    value = std::move(*wide);
}

void JsonBuildArchive::guid(std::string_view name, Uuid& value)
{
    std::string given = string(take(name));
    value = uuidFromText(given);
    for (char& character : given)
        if (character >= 'A' && character <= 'F')
            character = static_cast<char>(character - 'A' + 'a');
    if (uuidToText(value) != given)
        fail("здесь нужен идентификатор вида \"00000000-0000-0000-0000-000000000000\"");
}

void JsonBuildArchive::blob(std::string_view name, std::vector<std::uint8_t>& value)
{
    auto bytes = fromBase64(string(take(name)));
    if (!bytes)
        fail("здесь нужны байты в кодировке base64");
    value = std::move(*bytes);
}

// Everything read so far is held until the whole list is there, since any element can fail.
template <class Record, class Make>
void JsonBuildArchive::references(std::string_view name, std::vector<Record*>& values, Make&& make)
{
    inArray(take(name), [&](std::size_t count) {
        std::vector<Reference<Record>> made;
        made.reserve(count);
        for (std::size_t i = 0; i < count; ++i)
            inObject(take({}), [&] { made.push_back(make()); });
        values.reserve(values.size() + count);
        for (auto& one : made)
            values.push_back(one.detach());
    });
}

Reference<GLObjectDB> JsonBuildArchive::object()
{
    const std::string& className = string(take("class"));
    Reference<GLObjectDB> made;
    const bool known = anyDrawingClass([&](auto row) {
        if (row.name != className)
            return false;
        made = readObject(*this, row);
        return true;
    });
    if (!known)
        fail("класса чертежа \"" + className + "\" нет");
    return made;
}

void JsonBuildArchive::objects(std::string_view name, GLObjectList& values)
{
    references(name, values, [this] { return object(); });
}

void JsonBuildArchive::planes(std::string_view name, GLObjectList& values)
{
    references(name, values, [this] { return Reference<GLObjectDB>(readPlane(*this)); });
}

void JsonBuildArchive::informs(std::string_view name, InformList& values)
{
    references(name, values, [this] { return readInform(*this); });
}

void JsonBuildArchive::items(std::string_view name, std::vector<PropertyGridItem*>& values)
{
    references(name, values, [this] { return Reference<PropertyGridItem>(readItem(*this)); });
}

void JsonBuildArchive::stem(std::string_view name, IDBProject& project)
{
    std::wstring stem;
    text(name, stem);
    project.setFileStem(stem);
}

void JsonBuildArchive::doubledTitle(
    std::string_view nameA, std::wstring& a, std::string_view nameB, std::wstring& b)
{
    text(nameA, a);
    text(nameB, b);
}

void JsonBuildArchive::subsidence(std::string_view name, SubsidenceMap& values)
{
    values.clear();
    inArray(take(name), [&](std::size_t count) {
        for (std::size_t i = 0; i < count; ++i)
            inObject(take({}), [&] {
                std::wstring pointName;
                text("pointName", pointName);
                const auto [row, inserted] = values.try_emplace(pointName);
                if (!inserted)
                    failRefused(pointName, {});
                subsidenceCells(row->second);
            });
    });
}

void JsonBuildArchive::subsidenceCells(std::vector<SubsidenceCell>& cells)
{
    inArray(take("cells"), [&](std::size_t count) {
        for (std::size_t i = 0; i < count; ++i) {
            SubsidenceCell cell;
            inObject(take({}), [&] {
                fields(*this, cell);
                text("title", cell.title);
            });
            const auto sameCode = [&](const SubsidenceCell& other) { return other.code == cell.code; };
            if (std::any_of(cells.begin(), cells.end(), sameCode))
                fail("ячейка с кодом " + std::to_string(cell.code) + " у точки уже есть; уберите одну");
            cells.push_back(std::move(cell));
        }
    });
}

NestingLevel JsonBuildArchive::enter()
{
    if (depth() >= format::nestingLimit)
        fail(
            "вложено глубже " + std::to_string(format::nestingLimit) + " уровней; разберите вложенные блоки");
    return WalkArchive::enter();
}

void JsonBuildArchive::failRefused(const std::wstring& key, std::string_view reason) const
{
    const std::string row = "строка \"" + toUtf8(key) + "\" отвергнута: ";
    if (reason.empty())
        fail(row + "она читается с тем же номером, что и другая; переименуйте её");
    fail(row + describeReadFailure(reason) + "; исправьте её");
}
