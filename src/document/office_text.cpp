#include "document/office_text.h"

#include "platform/utf8.h"
#include "platform/wide_character.h"

#include <array>
#include <charconv>

namespace
{

bool isAllowed(wchar_t character)
{
    const auto unit = codeOf(character);
    return (unit >= 0x20 && unit != 0x7F && (unit < 0x80 || unit > 0x9F) && unit != 0xFFFE && unit != 0xFFFF)
        || unit == '\n';
}

} // namespace

std::wstring cleanText(std::wstring_view text)
{
    std::wstring clean;
    clean.reserve(text.size());
    for (std::size_t i = 0; i < text.size(); ++i) {
        const wchar_t character = text[i];
        if (isAllowed(character))
            clean += character;
        else if (character == L'\t' || character == L'\v' || character == L'\f')
            clean += L' ';
        else if (character == L'\r' && (i + 1 == text.size() || text[i + 1] != L'\n'))
            clean += L'\n';
    }
    return clean;
}

std::string officeText(std::wstring_view text)
{
    return toUtf8(cleanText(text));
}

std::string markupText(std::wstring_view text)
{
    const std::string plain = officeText(text);
    std::string escaped;
    escaped.reserve(plain.size());
    for (const char character : plain)
        switch (character) {
        case '&':
            escaped += "&amp;";
            break;
        case '<':
            escaped += "&lt;";
            break;
        case '>':
            escaped += "&gt;";
            break;
        case '"':
            escaped += "&quot;";
            break;
        default:
            escaped += character;
        }
    return escaped;
}

std::wstring plainText(const Runs& runs)
{
    if (runs.size() == 1)
        return runs.front().text;
    std::wstring text;
    for (const Run& run : runs)
        text += run.text;
    return text;
}

std::size_t utf16Length(wchar_t character)
{
    // Of two bytes, where the system has them, it is a unit itself.
    const std::uint32_t code = codeOf(character);
    return code > 0xFFFF ? 2 : 1;
}

std::size_t utf16Length(std::wstring_view text)
{
    std::size_t length = 0;
    for (const wchar_t character : text)
        length += utf16Length(character);
    return length;
}

std::string digitsOf(double value)
{
    std::array<char, 400> digits{};
    char* const end =
        std::to_chars(digits.data(), digits.data() + digits.size(), value, std::chars_format::fixed).ptr;
    return {digits.data(), end};
}
