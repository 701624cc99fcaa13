#include "core/base/reference.h"
#include "persistence/igk_preset_library.h"

#include <gtest/gtest.h>

#include <string>

namespace
{

const IgkPreset full{false, 1, {{7, true, false}, {3, false, true}, {5, true, true}}};

class IgkPresetLibrary : public testing::Test
{
protected:
    IgkPresetLibrary()
    {
        library->addPreset(L"Полная", full);
        library->addPreset(L"Краткая", {false, 2, {}});
        library->addPreset(L"архив", {false, 0, {{1, false, false}}});
    }

    // Names of the active presets, one after the other.
    std::wstring active() const
    {
        std::wstring names;
        for (const auto& [name, preset] : library->getPresets())
            if (preset.active)
                names += name + L' ';
        return names;
    }

    Reference<DBIgkPreset> library = makeReference<DBIgkPreset>();
};

} // namespace

TEST_F(IgkPresetLibrary, ActivatingOneEndsTheOthersAndEndingOneEndsNoOther)
{
    EXPECT_FALSE(library->hasActive());
    EXPECT_EQ(library->getActiveName(), L"");
    library->setActive(L"архив", true);
    library->setActive(L"Полная", true);
    EXPECT_EQ(active(), L"Полная ");
    library->setActive(L"Краткая", false);
    EXPECT_EQ(active(), L"Полная ");
    for (const bool flag : {true, false}) {
        library->setActive(L"полная", flag); // unknown, since the case of letters counts
        EXPECT_EQ(active(), L"Полная ");
    }
    library->setActive(L"Полная", false);
    EXPECT_FALSE(library->hasActive());
}

TEST_F(IgkPresetLibrary, SeveralCanBeActiveUntilOneIsChosen)
{
    // As a file may bring them. Capital letters stand before the small ones.
    library->addPreset(L"Яма", {true, 0, {}});
    library->addPreset(L"базовая", {true, 0, {}});
    EXPECT_EQ(active(), L"Яма базовая ");
    EXPECT_EQ(library->getActiveName(), L"Яма");
    library->setActive(L"Яма", false);
    EXPECT_EQ(library->getActiveName(), L"базовая");
    library->setActive(L"Яма", true);
    EXPECT_EQ(active(), L"Яма ");
    library->clearActive();
    EXPECT_FALSE(library->hasActive());
}

TEST_F(IgkPresetLibrary, ANameThatIsThereKeepsItsPreset)
{
    library->addPreset(L"Полная", {true, 5, {}});
    EXPECT_EQ(library->getPresets().at(L"Полная"), full);
    library->renamePreset(L"Краткая", L"Полная");
    EXPECT_EQ(library->getPresets().at(L"Полная"), full);
    EXPECT_FALSE(library->hasPreset(L"Краткая")); // the renamed one is lost
    EXPECT_EQ(library->getPresets().size(), 2U);
}

TEST_F(IgkPresetLibrary, RenamingChangesTheNameAlone)
{
    library->setActive(L"Полная", true);
    IgkPreset wanted = full;
    wanted.active = true;
    library->renamePreset(L"Полная", L"Новая");
    EXPECT_EQ(library->getPresets().at(L"Новая"), wanted);
    EXPECT_FALSE(library->hasPreset(L"Полная"));
    EXPECT_EQ(library->getActiveName(), L"Новая");

    library->renamePreset(L"Новая", L"Новая");
    EXPECT_EQ(library->getPresets().at(L"Новая"), wanted);
    library->renamePreset(L"неизвестная", L"Другая");
    EXPECT_FALSE(library->hasPreset(L"Другая"));
    EXPECT_EQ(library->getPresets().size(), 3U);
}

TEST_F(IgkPresetLibrary, TakesItsOwnNamesAndPresetsAsArguments)
{
    // Long enough to live outside the text object, so that a name freed too soon is seen.
    const std::wstring name(100, L'Ж');
    library->addPreset(name, full);
    const auto own = [&]() -> const std::wstring& { return library->getPresets().find(name)->first; };
    library->renamePreset(own(), own());
    EXPECT_EQ(library->getPresets().at(name), full);
    library->addPreset(L"Вторая", library->getPresets().at(name));
    library->setPresets(library->getPresets());
    EXPECT_EQ(library->getPresets().at(L"Вторая"), full);
    library->removePreset(own());
    EXPECT_FALSE(library->hasPreset(name));
    EXPECT_EQ(library->getPresets().size(), 4U);

    library->setPresets({{L"одна", full}});
    EXPECT_EQ(library->getPresets().size(), 1U);
    library->removePreset(L"Полная");
    EXPECT_TRUE(library->hasPreset(L"одна"));
}

TEST_F(IgkPresetLibrary, OnlyAKnownPresetOfModeOneIsOne)
{
    EXPECT_TRUE(library->isMode1(L"Полная"));
    EXPECT_FALSE(library->isMode1(L"Краткая"));
    EXPECT_FALSE(library->isMode1(L"архив"));
    EXPECT_FALSE(library->isMode1(L"неизвестная"));
}
