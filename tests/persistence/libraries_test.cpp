#include "persistence/file_head.h"
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

TEST(LibraryFile, HeadIsComparedByteByByte)
{
    struct Format {
        const char* file;
        std::size_t compared; // bytes of the signature
        std::size_t version; // where it stands
        std::size_t content;
        int (*check)(const Bytes&, std::size_t&);
    };
    const auto presetHead = [](const Bytes& bytes, std::size_t& position) {
        return checkIgkPresetHead(bytes, position) ? 1 : 0;
    };
    for (const Format& format :
        {Format{"hatch.dat", 7, 8, 12, checkHatchHead}, Format{"igkPreset.dat", 11, 12, 16, presetHead}}) {
        Bytes head;
        ASSERT_TRUE(readFile(dataFile(format.file), head));
        head.resize(format.content);
        std::size_t position = 5;
        EXPECT_EQ(format.check(head, position), 1) << format.file;
        EXPECT_EQ(position, format.content);
        for (std::size_t at = 0; at < head.size(); ++at) {
            Bytes other = head;
            other[at] ^= 1U;
            position = 5;
            const bool filler = at >= format.compared && at < format.version;
            EXPECT_EQ(format.check(other, position), filler ? 1 : 0) << format.file << ", byte " << at;
            EXPECT_EQ(position, filler ? format.content : 5) << format.file << ", byte " << at;
        }
        head.pop_back();
        EXPECT_THROW(format.check(head, position), std::out_of_range) << format.file;
    }
}

template <class Factory>
static std::wstring refusalOf(const std::wstring& path, const Bytes& bytes)
{
    try {
        makeReference<Factory>(path, bytes);
    } catch (const std::wstring& refusal) {
        return refusal;
    }
    return {};
}

// Reads by throwing what it is told.
template <class Object>
class Throwing : public FromFileFactory<Object>
{
public:
    Throwing()
        : FromFileFactory<Object>(L"п", someBytes())
    {
    }
    int references() const { return counted_->referenceCount(); }
    std::wstring failure(int kind)
    {
        kind_ = kind;
        try {
            this->createDB()->release();
        } catch (const MException& told) {
            return told.message() + L"|" + std::to_wstring(told.code());
        } catch (const std::exception& told) {
            const std::string text = told.what();
            return std::wstring(text.begin(), text.end());
        }
        return L"none";
    }

private:
    void readDB(const Bytes&, Object& object) override
    {
        object.addRef();
        counted_ = Reference<Object>::adopt(&object);
        if (kind_ == 0)
            throw MException(L"своё", 7);
        if (kind_ == 1)
            throw std::length_error("standard");
        if (kind_ == 2)
            throw std::wstring(L"a text");
        throw 5;
    }

    static const Bytes& someBytes()
    {
        static const Bytes bytes{1};
        return bytes;
    }

    Reference<Object> counted_;
    int kind_ = 0;
};

template <class Object>
static void expectFailures()
{
    const auto factory = makeReference<Throwing<Object>>();
    const std::wstring wanted[] = {L"своё|7",
        L"standard",
        L"Unknown error during creation of database|0",
        L"Unknown error during creation of database|0"};
    for (int kind = 0; kind < 4; ++kind) {
        EXPECT_EQ(factory->failure(kind), wanted[kind]);
        EXPECT_EQ(factory->references(), 1) << "the factory has let go of its own";
    }
}

TEST(LibraryFile, FactoriesPassFailuresOnInTheirWords)
{
    expectFailures<DBProject>();
    expectFailures<DBHatch>();
    expectFailures<DBIgkPreset>();
    const Bytes some{1, 2};
    EXPECT_EQ(refusalOf<DBFromHatchFilev100Factory>(L"", some), L"Bad params");
    EXPECT_EQ(refusalOf<DBFromHatchFilev100Factory>(L"п", {}), L"Bad params");
    EXPECT_EQ(refusalOf<DBFromHatchFilev100Factory>(L"п", some), L"");
    EXPECT_EQ(refusalOf<DBFromIgkPresetFilev100Factory>(L"", some), L"Bad params");
    EXPECT_EQ(refusalOf<DBFromIgkPresetFilev100Factory>(L"п", {}), L"Bad params");
    EXPECT_EQ(refusalOf<DBFromIgkPresetFilev100Factory>(L"п", some), L"");
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
