#include "tlxtool/json_text.h"

#include "tlxtool/tool_error.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cstddef>
#include <utility>
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

// Takes what the parser finds and builds the value from it. The library's own builder would keep the last of
// two members of one name and lose the first without a word.
class Builder
{
public:
    explicit Builder(Json& root)
        : root_(root)
    {
    }

    // Where the parser stopped; 0 while it has not.
    std::size_t faultOffset() const { return faultOffset_; }

    // The parser calls these by name.
    // NOLINTBEGIN(readability-identifier-naming)
    bool null() { return add(Json()); }
    bool boolean(bool value) { return add(value); }
    bool number_integer(std::int64_t value) { return add(value); }
    bool number_unsigned(std::uint64_t value) { return add(value); }
    bool number_float(float value, const std::string&) { return add(value); }
    bool string(std::string& value) { return add(std::move(value)); }
    bool binary(Json::binary_t&) { return false; }
    bool start_object(std::size_t) { return open(Json::object()); }
    bool start_array(std::size_t) { return open(Json::array()); }
    bool end_object() { return close(); }
    bool end_array() { return close(); }
    bool key(std::string& name)
    {
        const auto& members = open_.back()->get_ref<const Json::object_t&>();
        const auto sameName = [&name](const auto& member) { return member.first == name; };
        if (std::any_of(members.begin(), members.end(), sameName))
            throw ToolError("поле \"" + name + "\" стоит в одном объекте дважды; оставьте одно");
        key_ = std::move(name);
        return true;
    }
    bool parse_error(std::size_t offset, const std::string&, const Json::exception&)
    {
        faultOffset_ = std::max<std::size_t>(offset, 1);
        return false;
    }
    // NOLINTEND(readability-identifier-naming)

private:
    Json& place(Json&& value)
    {
        if (open_.empty())
            return root_ = std::move(value);
        if (open_.back()->is_array())
            return open_.back()->get_ref<Json::array_t&>().emplace_back(std::move(value));
        return open_.back()
            ->get_ref<Json::object_t&>()
            .emplace_back(std::move(key_), std::move(value))
            .second;
    }
    bool add(Json&& value)
    {
        place(std::move(value));
        return true;
    }
    // The value stays where it is until it is closed: nothing is added to those around it meanwhile.
    bool open(Json&& value)
    {
        open_.push_back(&place(std::move(value)));
        return true;
    }
    bool close()
    {
        open_.pop_back();
        return true;
    }

    Json& root_;
    std::vector<Json*> open_;
    std::string key_;
    std::size_t faultOffset_ = 0;
};

class Writer
{
public:
    Writer(bool compact, const std::function<void(std::string_view)>& sink)
        : compact_(compact)
        , sink_(sink)
    {
    }

    // As deep as the value is; projects are nested only so far.
    void write(const Json& value)
    {
        if (value.is_object())
            list('{', '}', value.get_ref<const Json::object_t&>(), [this](const auto& member) {
                string(member.first);
                text_ += compact_ ? ":" : ": ";
                write(member.second);
            });
        else if (value.is_array())
            list('[', ']', value.get_ref<const Json::array_t&>(), [this](const Json& element) {
                write(element);
            });
        else if (value.is_string())
            string(value.get_ref<const std::string&>());
        else if (value.is_number_float())
            single(value.get<float>());
        else
            text_ += value.dump();
    }

    void flush()
    {
        sink_(text_);
        text_.clear();
    }

private:
    template <class List, class Each>
    void list(char open, char close, const List& values, Each&& each)
    {
        constexpr std::size_t pieceSize = 1U << 16U;
        text_ += open;
        ++level_;
        bool first = true;
        for (const auto& value : values) {
            if (!std::exchange(first, false))
                text_ += ',';
            newLine();
            each(value);
            if (text_.size() > pieceSize)
                flush();
        }
        --level_;
        if (!first)
            newLine();
        text_ += close;
    }

    void newLine()
    {
        if (!compact_)
            text_.append("\n").append(2 * level_, ' ');
    }

    void string(const std::string& value)
    {
        text_ += '"';
        for (const char character : value) {
            const auto code = static_cast<unsigned char>(character);
            if (character == '"' || character == '\\')
                text_.append({'\\', character});
            else if (character == '\n')
                text_ += "\\n";
            else if (code < ' ')
                text_.append("\\u00").append({"01"[code >> 4U], "0123456789abcdef"[code & 15U]});
            else
                text_ += character;
        }
        text_ += '"';
    }

    // A point tells a single from an integer, which knows no negative zero.
    void single(float value)
    {
        std::array<char, 64> digits{};
        const auto end = std::to_chars(digits.data(), digits.data() + digits.size(), value);
        const std::string_view number(digits.data(), static_cast<std::size_t>(end.ptr - digits.data()));
        text_.append(number).append(number.find_first_of(".e") == std::string_view::npos ? ".0" : "");
    }

    bool compact_;
    const std::function<void(std::string_view)>& sink_;
    std::string text_;
    std::size_t level_ = 0;
};

} // namespace

Json parseJson(std::span<const std::uint8_t> text)
{
    Json root;
    Builder builder(root);
    if (!Json::sax_parse(text.begin(), text.end(), &builder))
        throw ToolError("это не JSON в UTF-8 или число вне пределов: "
            + placeOf(text, builder.faultOffset() - 1) + "; исправьте файл");
    return root;
}

void writeJson(const Json& value, bool compact, const std::function<void(std::string_view)>& sink)
{
    Writer writer(compact, sink);
    writer.write(value);
    writer.flush();
}

std::string jsonText(const Json& value, bool compact)
{
    std::string text;
    writeJson(value, compact, [&text](std::string_view piece) { text += piece; });
    return text;
}
