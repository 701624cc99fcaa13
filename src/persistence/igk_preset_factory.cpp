#include "persistence/igk_preset_factory.h"

#include "persistence/format.h"
#include "persistence/grammar/libraries.h"
#include "persistence/read_archive.h"

void DBFromIgkPresetFilev100Factory::readDB(const std::vector<std::uint8_t>& bytes, DBIgkPreset& library)
{
    try {
        ReadReport report;
        ReadArchive archive(bytes, format::igkPresetHead.contentOffset, report);
        std::map<std::wstring, IgkPreset> presets;
        archive.map("presets", {"name", {}}, presets);
        for (const auto& [name, preset] : presets)
            library.addPreset(name, preset);
    } catch (const MException&) {
        throw;
    } catch (...) {
        throw MException(L"Critical Error reading the igk preset file ");
    }
}
