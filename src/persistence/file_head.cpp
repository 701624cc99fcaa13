#include "persistence/file_head.h"

#include "persistence/format.h"
#include "persistence/read_archive.h"

#include <algorithm>
#include <stdexcept>

static bool checkHead(const format::Head& head, const std::vector<std::uint8_t>& bytes, std::size_t& position)
{
    if (bytes.size() < head.contentOffset)
        throw std::out_of_range("invalid vector<T> subscript");
    const auto sameByte = [](char expected, std::uint8_t found) {
        return static_cast<std::uint8_t>(expected) == found;
    };
    if (!std::equal(head.signature.begin(), head.signature.end(), bytes.begin(), sameByte))
        return false;
    ReadReport report;
    ReadArchive archive(bytes, head.versionOffset, report);
    std::uint32_t version = 0;
    archive.word("version", version);
    if (version != head.version)
        return false;
    position = head.contentOffset;
    return true;
}

bool checkProjectHead(const std::vector<std::uint8_t>& bytes, std::size_t& position)
{
    return checkHead(format::projectHead, bytes, position);
}

int checkHatchHead(const std::vector<std::uint8_t>& bytes, std::size_t& position)
{
    return checkHead(format::hatchHead, bytes, position) ? static_cast<int>(format::hatchHead.version) - 99
                                                         : 0;
}

bool checkIgkPresetHead(const std::vector<std::uint8_t>& bytes, std::size_t& position)
{
    return checkHead(format::igkPresetHead, bytes, position);
}
