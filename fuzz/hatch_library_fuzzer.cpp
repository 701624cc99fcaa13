#include "core/base/reference.h"
#include "oracle.h"
#include "persistence/file_head.h"
#include "persistence/hatch_factory.h"
#include "persistence/write_archive.h"

static Reference<DBHatch> openHatches(const Bytes& bytes)
{
    return Reference<DBHatch>::adopt(openLibrary<DBFromHatchFilev100Factory>(
        bytes, checkHatchHead, L"Critical Error reading the hatch file "));
}

// The head that was read, then the patterns.
static Bytes encodeHatches(const Bytes& read, const IDBHatch::Patterns& hatches)
{
    WriteArchive archive;
    archive.map("hatches", {"number", "pattern"}, hatches);
    const Bytes content = archive.takeBytes();
    Bytes bytes(read.begin(), read.begin() + format::hatchHead.contentOffset);
    bytes.insert(bytes.end(), content.begin(), content.end());
    return bytes;
}

// Any bytes, as a library of hatches. What opens, written by the description of the file, opens to the same.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const Bytes bytes(data, data + size);
    const auto library = openHatches(bytes);
    if (!library)
        return 0;
    const Bytes written = encodeHatches(bytes, library->getHatches());
    require(written.size() <= bytes.size(), "nothing that was not in the file");
    const auto again = openHatches(written);
    require(again && again->getHatches() == library->getHatches(), "the same hatches");
    return 0;
}
