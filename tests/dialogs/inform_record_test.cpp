#include "core/base/reference.h"
#include "core/counted.h"
#include "dialogs/records/inform_record.h"

#include <gtest/gtest.h>

#include <array>
#include <string>
#include <vector>

namespace
{

using Plain = Counted<PropertyGridItem>;
using Profile = Counted<ProfilePropertyGridItem>;
using Inform = Counted<InformRecord>;
using Items = std::vector<PropertyGridItem*>;

const std::array<std::wstring, 2> texts{L"Глубина", L"1,5"};

class Informs : public testing::Test
{
protected:
    Reference<Plain> plain(const Items& children = {})
    {
        return makeReference<Plain>(alive, texts, 1, Uuid(), Uuid(), children);
    }
    Reference<Profile> profile(const Items& children = {})
    {
        return makeReference<Profile>(
            alive, Uuid(), 2, std::vector<std::wstring>{L"да", L"нет"}, texts, 1, Uuid(), Uuid(), children);
    }
    Reference<Inform> inform(const Items& items = {})
    {
        return makeReference<Inform>(alive,
            3,
            Uuid{{1, 0, 0, 0}},
            Uuid{{3, 0, 0, 0}},
            InformRecord::Frame{1, 2, 3, 4, 5, 6, 7, 8, 9},
            items,
            std::vector<InformLink>(),
            L"ПК 1+20",
            Uuid{{2, 0, 0, 0}});
    }

    int alive = 0;
};

} // namespace

TEST_F(Informs, EachEntryIsOneMoreReference)
{
    const auto item = profile();
    {
        const auto parent = plain({item.get(), plain().get()});
        const auto record = inform({item.get(), parent.get()});
        const auto above = inform();
        above->setChildren({record.get()});
        EXPECT_EQ(item->referenceCount(), 3);
        EXPECT_EQ(parent->referenceCount(), 2);
        EXPECT_EQ(record->referenceCount(), 2);
        EXPECT_EQ(alive, 5);
    }
    EXPECT_EQ(item->referenceCount(), 1);
    EXPECT_EQ(alive, 1);
}

TEST_F(Informs, ReplacedChildrenThatStayLiveThroughIt)
{
    const auto record = inform();
    record->setChildren({inform().get(), inform().get()});
    ASSERT_EQ(alive, 3);
    // Held by the record alone, and its own list is the argument.
    record->setChildren(record->children());
    EXPECT_EQ(alive, 3);
    record->setChildren({record->children()[1], inform().get()});
    EXPECT_EQ(alive, 3);
    EXPECT_EQ(record->children()[0]->referenceCount(), 1);
    record->setChildren({});
    EXPECT_EQ(alive, 1);

    const auto item = plain();
    item->setChildren({profile().get()});
    item->setChildren(item->children());
    EXPECT_EQ(alive, 3);
    EXPECT_EQ(item->children()[0]->referenceCount(), 1);
}

TEST_F(Informs, TheThreeBoxesKeepTheirPlaces)
{
    const auto record = inform();
    EXPECT_EQ(record->boxA().words[0], 1U);
    EXPECT_EQ(record->boxB().words[0], 2U);
    EXPECT_EQ(record->boxC().words[0], 3U);
    EXPECT_FALSE(record->flag());
}

TEST_F(Informs, OnlyProfileItemsHaveLabels)
{
    const auto bare = plain();
    const auto full = profile();
    for (PropertyGridItem* item : Items{bare.get(), full.get()})
        item->setLabels({L"новый"});
    EXPECT_TRUE(bare->getLabels().empty());
    EXPECT_EQ(&bare->getLabels(), &plain()->getLabels());
    EXPECT_EQ(full->getLabels(), std::vector<std::wstring>{L"новый"});
}
