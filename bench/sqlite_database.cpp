#include "sqlite_database.h"

#include "platform/utf8.h"

#include <algorithm>

// Nearly all texts are numbers: the general conversion is for the others.

void Statement::bind(int index, const std::wstring& value)
{
    std::string& buffer = buffers_[static_cast<std::size_t>(index)];
    buffer.resize(value.size());
    wchar_t all = 0;
    for (std::size_t i = 0; i < value.size(); ++i) {
        all |= value[i];
        buffer[i] = static_cast<char>(value[i]);
    }
    if (all > 0x7F)
        buffer = toUtf8(value);
    sqlite3_bind_text(statement_, index, buffer.data(), static_cast<int>(buffer.size()), SQLITE_STATIC);
}

void Statement::take(int& index, std::wstring& value)
{
    const auto* first = reinterpret_cast<const char*>(sqlite3_column_text(statement_, index));
    const auto length = static_cast<std::size_t>(sqlite3_column_bytes(statement_, index++));
    const auto isAscii = [](char c) { return static_cast<unsigned char>(c) < 0x80; };
    if (!std::all_of(first, first + length, isAscii)) {
        value = fromUtf8({first, length}).value();
        return;
    }
    value = std::wstring(length, L'\0');
    for (std::size_t i = 0; i < length; ++i)
        value[i] = static_cast<wchar_t>(first[i]);
}
