#include "document/zip_archive.h"

#include "core/base/mexception.h"

#include <algorithm>
#include <minizip/zip.h>
#include <zlib.h>

// The library's file functions over the archive's own bytes.
struct ZipMemory {
    static ZipArchive& archive(void* stream) { return *static_cast<ZipArchive*>(stream); }
    static void* open(void* opaque, const void*, int) { return opaque; }
    static uLong write(void*, void* stream, const void* bytes, uLong size)
    {
        ZipArchive& zip = archive(stream);
        if (zip.position_ + size > zip.bytes_.size())
            zip.bytes_.resize(zip.position_ + size);
        std::copy_n(static_cast<const char*>(bytes),
            size,
            zip.bytes_.begin() + static_cast<std::ptrdiff_t>(zip.position_));
        zip.position_ += size;
        return size;
    }
    static uLong read(void*, void* stream, void* bytes, uLong size)
    {
        ZipArchive& zip = archive(stream);
        const std::size_t count = std::min<std::size_t>(size, zip.bytes_.size() - zip.position_);
        std::copy_n(zip.bytes_.begin() + static_cast<std::ptrdiff_t>(zip.position_),
            count,
            static_cast<char*>(bytes));
        zip.position_ += count;
        return static_cast<uLong>(count);
    }
    static ZPOS64_T tell(void*, void* stream) { return archive(stream).position_; }
    static long seek(void*, void* stream, ZPOS64_T offset, int origin)
    {
        ZipArchive& zip = archive(stream);
        const ZPOS64_T from = origin == ZLIB_FILEFUNC_SEEK_CUR ? zip.position_
            : origin == ZLIB_FILEFUNC_SEEK_END                 ? zip.bytes_.size()
                                                               : 0;
        if (from + offset > zip.bytes_.size())
            return -1;
        zip.position_ = static_cast<std::size_t>(from + offset);
        return 0;
    }
    static int close(void*, void*) { return 0; }
    static int error(void*, void*) { return 0; }
};

namespace
{

void demand(int result)
{
    if (result != ZIP_OK)
        throw MException(L"Не удалось собрать файл: не хватает памяти.");
}

} // namespace

ZipArchive::ZipArchive()
{
    zlib_filefunc64_def functions{};
    functions.zopen64_file = ZipMemory::open;
    functions.zread_file = ZipMemory::read;
    functions.zwrite_file = ZipMemory::write;
    functions.ztell64_file = ZipMemory::tell;
    functions.zseek64_file = ZipMemory::seek;
    functions.zclose_file = ZipMemory::close;
    functions.zerror_file = ZipMemory::error;
    functions.opaque = this;
    file_ = zipOpen2_64("", APPEND_STATUS_CREATE, nullptr, &functions);
    if (!file_)
        demand(ZIP_INTERNALERROR);
}

ZipArchive::~ZipArchive()
{
    if (file_)
        zipClose(file_, nullptr);
}

void ZipArchive::add(const std::string& name, std::string_view content, bool isCompressed)
{
    begin(name, isCompressed);
    write(content);
    end();
}

void ZipArchive::begin(const std::string& name, bool isCompressed)
{
    zip_fileinfo info{};
    info.tmz_date.tm_mday = 1;
    info.tmz_date.tm_year = 1980;
    // Names are plain ASCII. A level higher than this one takes twice the time for a few hundredths.
    constexpr int level = 4;
    demand(zipOpenNewFileInZip(file_,
        name.c_str(),
        &info,
        nullptr,
        0,
        nullptr,
        0,
        nullptr,
        isCompressed ? Z_DEFLATED : 0,
        isCompressed ? level : 0));
}

void ZipArchive::write(std::string_view content)
{
    // The library counts in 32 bits.
    constexpr std::size_t piece = 1U << 30;
    while (!content.empty()) {
        const std::string_view part = content.substr(0, piece);
        demand(zipWriteInFileInZip(file_, part.data(), static_cast<unsigned>(part.size())));
        content.remove_prefix(part.size());
    }
}

void ZipArchive::end()
{
    demand(zipCloseFileInZip(file_));
}

std::string ZipArchive::bytes()
{
    void* const file = file_;
    file_ = nullptr;
    demand(zipClose(file, nullptr));
    return std::move(bytes_);
}
