#include "document/office_reader.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <minizip/unzip.h>

namespace
{

struct Source {
    const std::string* bytes;
    std::size_t position = 0;
};

Source& sourceOf(void* stream)
{
    return *static_cast<Source*>(stream);
}

} // namespace

std::map<std::string, std::string> partsOf(const std::string& archive)
{
    Source source{&archive};
    zlib_filefunc64_def functions{};
    functions.opaque = &source;
    functions.zopen64_file = [](void* opaque, const void*, int) { return opaque; };
    functions.zread_file = [](void*, void* stream, void* bytes, uLong size) {
        Source& from = sourceOf(stream);
        const std::size_t count = std::min<std::size_t>(size, from.bytes->size() - from.position);
        std::copy_n(from.bytes->data() + from.position, count, static_cast<char*>(bytes));
        from.position += count;
        return static_cast<uLong>(count);
    };
    functions.ztell64_file = [](void*, void* stream) -> ZPOS64_T { return sourceOf(stream).position; };
    functions.zseek64_file = [](void*, void* stream, ZPOS64_T offset, int origin) -> long {
        Source& from = sourceOf(stream);
        const std::size_t base = origin == ZLIB_FILEFUNC_SEEK_SET ? 0
            : origin == ZLIB_FILEFUNC_SEEK_CUR                    ? from.position
                                                                  : from.bytes->size();
        from.position = base + static_cast<std::size_t>(offset);
        return from.position <= from.bytes->size() ? 0 : -1;
    };
    functions.zclose_file = [](void*, void*) { return 0; };
    functions.zerror_file = [](void*, void*) { return 0; };

    std::map<std::string, std::string> parts;
    void* const file = unzOpen2_64("", &functions);
    if (!file) {
        ADD_FAILURE() << "no archive";
        return parts;
    }
    for (int next = unzGoToFirstFile(file); next == UNZ_OK; next = unzGoToNextFile(file)) {
        std::array<char, 256> name{};
        unzGetCurrentFileInfo64(file, nullptr, name.data(), name.size(), nullptr, 0, nullptr, 0);
        EXPECT_EQ(unzOpenCurrentFile(file), UNZ_OK);
        std::string& content = parts[name.data()];
        std::array<char, 4096> piece{};
        for (int count = 0; (count = unzReadCurrentFile(file, piece.data(), piece.size())) > 0;)
            content.append(piece.data(), static_cast<std::size_t>(count));
        EXPECT_EQ(unzCloseCurrentFile(file), UNZ_OK) << name.data(); // compares the check sum
    }
    unzClose(file);
    return parts;
}
