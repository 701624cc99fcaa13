#include "platform/utf8.h"

#include "platform/wide_character.h"

#include <cstddef>
#include <cstdint>

namespace
{

constexpr bool isLeading(std::uint32_t code)
{
    return code - 0xD800U < 0x400U;
}
constexpr bool isTrailing(std::uint32_t code)
{
    return code - 0xDC00U < 0x400U;
}

void appendUtf8(std::uint32_t code, std::string& bytes)
{
    const auto add = [&bytes](std::uint32_t byte) {
        bytes.push_back(static_cast<char>(static_cast<unsigned char>(byte)));
    };
    if (code < 0x80U) {
        add(code);
        return;
    }
    if (code < 0x800U) {
        add(0xC0U | code >> 6U);
    } else {
        if (code < 0x10000U) {
            add(0xE0U | code >> 12U);
        } else {
            add(0xF0U | code >> 18U);
            add(0x80U | (code >> 12U & 0x3FU));
        }
        add(0x80U | (code >> 6U & 0x3FU));
    }
    add(0x80U | (code & 0x3FU));
}

void appendWide(std::uint32_t code, std::wstring& text)
{
    if (sizeof(wchar_t) == 2 && code >= 0x10000U) {
        text.push_back(static_cast<wchar_t>(0xD7C0U + (code >> 10U)));
        text.push_back(static_cast<wchar_t>(0xDC00U | (code & 0x3FFU)));
    } else {
        text.push_back(static_cast<wchar_t>(code));
    }
}

// One row a length of the sequence: its first byte under the mask, and the smallest code that needs it.
struct SequenceForm {
    std::uint32_t mask;
    std::uint32_t lead;
    std::size_t following;
    std::uint32_t smallest;
};
constexpr SequenceForm sequenceForms[] = {
    {0x80, 0x00, 0, 0x0},
    {0xE0, 0xC0, 1, 0x80},
    {0xF0, 0xE0, 2, 0x800},
    {0xF8, 0xF0, 3, 0x10000},
};

constexpr std::uint32_t noCharacter = 0xFFFFFFFFU;

std::uint32_t takeCharacter(std::string_view& bytes)
{
    const auto byteAt = [&bytes](
                            std::size_t i) { return std::uint32_t{static_cast<unsigned char>(bytes[i])}; };
    for (const SequenceForm& form : sequenceForms) {
        if ((byteAt(0) & form.mask) != form.lead)
            continue;
        if (bytes.size() <= form.following)
            return noCharacter;
        std::uint32_t code = byteAt(0) & ~form.mask;
        for (std::size_t i = 1; i <= form.following; ++i) {
            if ((byteAt(i) & 0xC0U) != 0x80U)
                return noCharacter;
            code = code << 6U | (byteAt(i) & 0x3FU);
        }
        bytes.remove_prefix(form.following + 1);
        const bool valid =
            code >= form.smallest && code <= 0x10FFFFU && !isLeading(code) && !isTrailing(code);
        return valid ? code : noCharacter;
    }
    return noCharacter;
}

} // namespace

std::string toUtf8(std::wstring_view text)
{
    constexpr std::uint32_t replacement = 0xFFFDU;
    std::string bytes;
    bytes.reserve(text.size());
    for (std::size_t i = 0; i < text.size(); ++i) {
        auto code = codeOf(text[i]);
        const std::uint32_t next = i + 1 < text.size() ? codeOf(text[i + 1]) : 0U;
        if (isLeading(code) && isTrailing(next)) {
            code = 0x10000U + ((code - 0xD800U) << 10U) + (next - 0xDC00U);
            ++i;
        }
        const bool valid = code <= 0x10FFFFU && !isLeading(code) && !isTrailing(code);
        appendUtf8(valid ? code : replacement, bytes);
    }
    return bytes;
}

std::optional<std::wstring> fromUtf8(std::string_view bytes)
{
    std::wstring text;
    text.reserve(bytes.size());
    while (!bytes.empty()) {
        const std::uint32_t code = takeCharacter(bytes);
        if (code == noCharacter)
            return std::nullopt;
        appendWide(code, text);
    }
    return text;
}
