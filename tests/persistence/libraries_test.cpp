#include "persistence/hatch_factory.h"
#include "persistence/igk_preset_factory.h"
#include "persistence/project_file.h"
#include "platform/files.h"
#include "platform/safe_write.h"
#include "platform/utf8.h"
#include "support/temporary_folder.h"

#include <gtest/gtest.h>

namespace
{

using Bytes = std::vector<std::uint8_t>;

std::wstring dataFile(const std::string& name)
{
    return *fromUtf8(TELLURIX_TEST_DATA "/" + name);
}

template <class Factory>
std::wstring failureOfCut(const std::wstring& path, std::size_t size)
{
    Bytes bytes;
    EXPECT_TRUE(readFile(path, bytes));
    bytes.resize(size);
    try {
        makeReference<Factory>(path, bytes)->createDB()->release();
    } catch (const MException& failure) {
        return failure.message() + std::to_wstring(failure.code());
    }
    return L"none";
}

} // namespace

TEST(HatchFile, FirstOfTwoEqualNumbersWinsAndEmptyPatternsStay)
{
    const auto library = readHatchFile(dataFile("hatch.dat"));
    ASSERT_TRUE(library);
    const auto& hatches = library->getHatches();
    ASSERT_EQ(hatches.size(), 3U);
    EXPECT_EQ(hatches.at(1), (Bytes{1, 2}));
    EXPECT_TRUE(hatches.at(7).empty());
    EXPECT_EQ(hatches.at(42).size(), 64U);
}

TEST(IgkPresetFile, ComesAsItStands)
{
    const auto library = readIgkPresetFile(dataFile("igkPreset.dat"));
    ASSERT_TRUE(library);
    ASSERT_EQ(library->getPresets().size(), 2U);
    const IgkPreset& standard = library->getPresets().at(L"Стандартная");
    EXPECT_TRUE(standard.active);
    EXPECT_TRUE(library->isMode1(L"Стандартная"));
    ASSERT_EQ(standard.items.size(), 2U);
    EXPECT_EQ(standard.items[1].id, 4U);
    EXPECT_FALSE(standard.items[1].flagA);
    EXPECT_TRUE(standard.items[1].flagB);
    EXPECT_TRUE(library->getPresets().at(L"Короткая").active);
    EXPECT_EQ(library->getActiveName(), L"Короткая");
}

TEST(LibraryFile, CutOnesFailWithTheirMessage)
{
    for (std::size_t size = 12; size < 118; ++size)
        ASSERT_EQ(failureOfCut<DBFromHatchFilev100Factory>(dataFile("hatch.dat"), size),
            L"Critical Error reading the hatch file 0")
            << size;
    for (std::size_t size = 16; size < 77; ++size)
        ASSERT_EQ(failureOfCut<DBFromIgkPresetFilev100Factory>(dataFile("igkPreset.dat"), size),
            L"Critical Error reading the igk preset file 0")
            << size;
}

TEST(LibraryFile, AWrongSuffixOrHeadIsNoLibraryAndNoMessage)
{
    Bytes bytes;
    ASSERT_TRUE(readFile(dataFile("hatch.dat"), bytes));
    const TemporaryFolder folder;
    const std::wstring other = folder.file(L"hatch.bin");
    const std::wstring newer = folder.file(L"hatch.dat");
    ASSERT_TRUE(replaceFile(other, bytes));
    bytes[8] = 101;
    ASSERT_TRUE(replaceFile(newer, bytes));
    EXPECT_FALSE(readHatchFile(other));
    EXPECT_FALSE(readHatchFile(newer));
    EXPECT_FALSE(readIgkPresetFile(dataFile("hatch.dat")));
}
