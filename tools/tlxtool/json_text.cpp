#include "tlxtool/json_text.h"

#include "tlxtool/tool_error.h"

#include <algorithm>
#include <cstddef>
#include <string>
#include <vector>

namespace
{

// Line and column, in bytes, of a place in the text; both count from 1.
std::string placeOf(std::span<const std::uint8_t> text, std::size_t offset)
{
    const auto before = text.first(std::min(offset, text.size()));
    const auto lines = std::count(before.begin(), before.end(), '\n');
    const auto lastBreak = std::find(before.rbegin(), before.rend(), '\n');
    return "строка " + std::to_string(lines + 1) + ", столбец "
        + std::to_string(std::distance(before.rbegin(), lastBreak) + 1);
}

// Follows the parser and knows the names of every object that is open. The parser itself would keep the last
// of two members and lose the first without a word.
class MemberNames
{
public:
    bool operator()(int, Json::parse_event_t event, const Json& parsed)
    {
        if (event == Json::parse_event_t::object_start)
            open_.emplace_back();
        else if (event == Json::parse_event_t::object_end)
            open_.pop_back();
        else if (event == Json::parse_event_t::key)
            add(parsed.get_ref<const std::string&>());
        return true;
    }

private:
    void add(const std::string& name)
    {
        std::vector<std::string>& names = open_.back();
        if (std::find(names.begin(), names.end(), name) != names.end())
            throw ToolError("поле \"" + name + "\" стоит в одном объекте дважды; оставьте одно");
        names.push_back(name);
    }

    std::vector<std::vector<std::string>> open_;
};

} // namespace

Json parseJson(std::span<const std::uint8_t> text)
{
    MemberNames names;
    const auto follow = [&names](int depth, Json::parse_event_t event, const Json& parsed) {
        return names(depth, event, parsed);
    };
    try {
        return Json::parse(text.begin(), text.end(), follow);
    } catch (const Json::parse_error& failure) {
        throw ToolError("это не JSON в UTF-8: " + placeOf(text, failure.byte - 1) + "; исправьте файл");
    } catch (const Json::exception&) {
        throw ToolError("в JSON есть число вне пределов одинарной точности; исправьте файл");
    }
}
