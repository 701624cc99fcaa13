#include "core/base/reference.h"
#include "oracle.h"
#include "persistence/file_head.h"
#include "persistence/grammar/libraries.h"
#include "persistence/igk_preset_factory.h"
#include "persistence/write_archive.h"

#include <algorithm>

namespace
{

Reference<DBIgkPreset> openPresets(const Bytes& bytes)
{
    return Reference<DBIgkPreset>::adopt(openLibrary<DBFromIgkPresetFilev100Factory>(
        bytes, checkIgkPresetHead, L"Critical Error reading the igk preset file "));
}

// The head that was read, then the presets.
Bytes encodePresets(const Bytes& read, IDBIgkPreset::Presets presets)
{
    WriteArchive archive;
    archive.map("presets", {"name", {}}, presets);
    const Bytes content = archive.takeBytes();
    Bytes bytes(read.begin(), read.begin() + format::igkPresetHead.contentOffset);
    bytes.insert(bytes.end(), content.begin(), content.end());
    return bytes;
}

std::ptrdiff_t activeCount(DBIgkPreset& library)
{
    return std::ranges::count_if(library.getPresets(), [](const auto& entry) { return entry.second.active; });
}

// The operations keep their promises on whatever a file has brought.
void requireOperationsHold(DBIgkPreset& library)
{
    require(library.hasActive() == (activeCount(library) != 0), "hasActive");
    const std::wstring active = library.getActiveName();
    require(library.hasActive() ? library.hasPreset(active) : active.empty(), "getActiveName");
    while (!library.getPresets().empty()) {
        const std::size_t before = library.getPresets().size();
        const std::wstring last = library.getPresets().rbegin()->first;
        library.setActive(last, true);
        require(activeCount(library) == 1 && library.getActiveName() == last, "setActive");
        // Its name is handed over as it stands in the library.
        library.renamePreset(library.getPresets().rbegin()->first, library.getPresets().begin()->first);
        require(library.hasPreset(last) == (before == 1), "renamePreset takes the old name away");
        require(library.getPresets().size() == (before == 1 ? 1 : before - 1),
            "renamePreset keeps what is there");
        if (before == 1)
            library.removePreset(library.getPresets().begin()->first);
    }
}

} // namespace

// Any bytes, as a library of presets. What opens, written by the description of the file, opens to the same.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const Bytes bytes(data, data + size);
    const auto library = openPresets(bytes);
    if (!library)
        return 0;
    const Bytes written = encodePresets(bytes, library->getPresets());
    require(written.size() <= bytes.size(), "nothing that was not in the file");
    const auto again = openPresets(written);
    require(again && again->getPresets() == library->getPresets(), "the same presets");
    requireOperationsHold(*library);
    return 0;
}
