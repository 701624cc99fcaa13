#include "persistence/hatch_factory.h"

#include "persistence/format.h"
#include "persistence/read_archive.h"

void DBFromHatchFilev100Factory::readDB(const std::vector<std::uint8_t>& bytes, DBHatch& library)
{
    try {
        ReadReport report;
        ReadArchive archive(bytes, format::hatchHead.contentOffset, report);
        std::map<std::uint32_t, std::vector<std::uint8_t>> hatches;
        archive.map("hatches", {"number", "pattern"}, hatches);
        for (const auto& [number, pattern] : hatches)
            library.addHatch(number, pattern);
    } catch (const MException&) {
        throw;
    } catch (...) {
        throw MException(L"Critical Error reading the hatch file ");
    }
}
