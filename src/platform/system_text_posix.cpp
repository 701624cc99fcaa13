#include "platform/system_text.h"
#include "platform/utf8.h"

#include <cstddef>
#include <cwchar>

namespace
{

std::wstring fromLocaleEncoding(std::string_view bytes)
{
    std::wstring text;
    std::mbstate_t state{};
    while (!bytes.empty()) {
        wchar_t character = 0;
        const std::size_t used = std::mbrtowc(&character, bytes.data(), bytes.size(), &state);
        // The two largest values are its failures: an invalid sequence, or one that is cut.
        if (used >= static_cast<std::size_t>(-2)) {
            text.push_back(L'\uFFFD');
            bytes.remove_prefix(1);
            state = std::mbstate_t{};
        } else {
            text.push_back(character);
            bytes.remove_prefix(used == 0 ? 1 : used);
        }
    }
    return text;
}

} // namespace

std::wstring fromSystemText(std::string_view bytes)
{
    if (auto text = fromUtf8(bytes))
        return *std::move(text);
    return fromLocaleEncoding(bytes);
}
