#include "persistence/file_bytes.h"

#include "core/base/mexception.h"
#include "platform/files.h"

bool readFileBytes(const std::wstring& path, std::vector<std::uint8_t>& bytes)
{
    // One message for a missing, an empty and an unreadable file: the finer ones were never seen by anybody.
    if (!readFile(path, bytes) || bytes.size() < 2) {
        bytes.clear();
        throw MException(L"Can't open file " + path);
    }
    return true;
}
