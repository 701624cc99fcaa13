#include "platform/uuid.h"

#include <cstring>
#include <new>
#include <rpc.h>
#include <windows.h>

namespace
{

constexpr std::size_t textLength = 36;
static_assert(sizeof(UUID) == sizeof(Uuid));

} // namespace

std::string uuidToText(const Uuid& uuid)
{
    UUID structure;
    std::memcpy(&structure, uuid.words.data(), sizeof structure);
    RPC_CSTR printed = nullptr;
    if (UuidToStringA(&structure, &printed) != RPC_S_OK)
        throw std::bad_alloc();
    std::string text(reinterpret_cast<const char*>(printed));
    RpcStringFreeA(&printed);
    return text;
}

Uuid uuidFromText(std::string_view text)
{
    // The call takes an empty text for the zero identifier and may stop at a zero character.
    if (text.size() != textLength)
        return {};
    std::array<wchar_t, textLength + 1> wide{};
    for (std::size_t i = 0; i < textLength; ++i)
        wide[i] = static_cast<unsigned char>(text[i]);
    UUID structure;
    if (UuidFromStringW(reinterpret_cast<RPC_WSTR>(wide.data()), &structure) != RPC_S_OK)
        return {};
    Uuid uuid;
    std::memcpy(uuid.words.data(), &structure, sizeof structure);
    return uuid;
}
