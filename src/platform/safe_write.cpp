#include "platform/safe_write.h"

FileResult replaceFile(const std::wstring& path, std::span<const std::uint8_t> bytes)
{
    return replaceFileWithParts(path, FileParts(&bytes, 1));
}

FileResult replaceFileWithParts(const std::wstring& path, FileParts parts)
{
    FileReplacement file(path);
    file.add(parts);
    return file.finish(parts);
}
