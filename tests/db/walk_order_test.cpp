#include "db/exact_key.h"
#include "db/records/lithology.h"
#include "db/records/point_register.h"
#include "db/records/subsidence.h"
#include "db/walk_order.h"

#include <gtest/gtest.h>

#include <random>
#include <stdexcept>
#include <string>
#include <tuple>

namespace
{

// Names and depths of every kind that the orderings tell apart, sane ones more often.
const std::wstring names[] = {L"1",
    L"2",
    L"3",
    L"9",
    L"10",
    L"11",
    L"01",
    L"1-1",
    L"0",
    L"00",
    L"-4",
    L"Скв-1",
    L"Скв-2",
    L"1A",
    L"A",
    L"№5",
    L"",
    L" 7",
    L"12",
    L"13",
    L"100",
    L"200",
    L"B",
    L"Скв3",
    L"99999999999"};
const std::wstring depths[] = {
    L"0.5", L"1", L"1,5", L"2", L"2.0", L"10", L"12.25", L"30", L"", L"nan", L"inf", L"м"};

// What happened to each row, and the walk at the end: two ways of filling are the same when these are.
template <class Map>
struct Filled {
    Map map;
    std::string outcomes;

    template <class Insert>
    void add(Insert insert)
    {
        try {
            outcomes += insert() ? '+' : '-';
        } catch (const std::logic_error&) {
            outcomes += '!';
        }
    }
};

template <class Map, class MakeKey>
void expectSameAsPlainInsert(MakeKey makeKey)
{
    using Key = typename Map::key_type;
    std::mt19937 random(7);
    for (int round = 0; round < 3000; ++round) {
        Filled<Map> plain;
        Filled<Map> byRow;
        RowByRow rows(byRow.map);
        const unsigned kinds = 2 + static_cast<unsigned>(random() % 23);
        const unsigned depthKinds = 2 + static_cast<unsigned>(random() % 11);
        for (int i = 0; i < 14; ++i) {
            const Key key = makeKey(names[random() % kinds], depths[random() % depthKinds]);
            // As the project's own operations add it. The reader comes with a pair whose key can be moved,
            // for which the library has another insert with another walk.
            using Row = typename Map::value_type;
            plain.add([&] { return plain.map.insert(Row(key, {})).second; });
            byRow.add([&] { return rows.insert(std::pair(key, typename Map::mapped_type())); });
        }
        ASSERT_EQ(plain.outcomes, byRow.outcomes) << "round " << round;
        ASSERT_EQ(plain.map.size(), byRow.map.size());
        auto other = byRow.map.begin();
        for (const auto& entry : plain.map)
            ASSERT_TRUE(sameText(entry.first, (other++)->first)) << "round " << round;
    }
}

} // namespace

TEST(WalkOrder, FillingRowByRowGivesTheMapOfPlainInserts)
{
    expectSameAsPlainInsert<LithologyRegister>([](const std::wstring& name, const std::wstring& depth) {
        return PointDepthKey{name, depth};
    });
    expectSameAsPlainInsert<PointRegister>([](const std::wstring& name, const std::wstring&) {
        return PointKey{name, 1};
    });
    expectSameAsPlainInsert<SubsidenceNames>(
        [](const std::wstring& name, const std::wstring&) { return name; });
    expectSameAsPlainInsert<NumberedLinks>(
        [](const std::wstring& name, const std::wstring& depth) { return name + L":" + depth; });
}

TEST(ExactKey, ErasesOneRowByItsTextEvenWhereTheOrderingTakesItForOthers)
{
    LithologyRegister layers;
    for (const wchar_t* name : {L"1", L"2", L"3", L"4", L"5", L"6"})
        layers.insert({{name, L"1"}, {}});
    // The point 0 is equivalent to all of them, and none of them is it.
    EXPECT_FALSE(eraseExact(layers, {L"0", L"1"}));
    EXPECT_FALSE(eraseExact(layers, {L"03", L"1"}));
    EXPECT_EQ(layers.size(), 6U);
    EXPECT_TRUE(eraseExact(layers, {L"3", L"1"}));
    EXPECT_EQ(layers.size(), 5U);
    EXPECT_EQ(findExact(layers, {L"3", L"1"}), layers.end());
}

TEST(ExactKey, FindsARowThatTheMixedOrderHides)
{
    // 9 before 10 as numbers, 10 before 1A before 9 as text: there is no consistent order.
    PointRegister points;
    for (const wchar_t* name : {L"9", L"10", L"1A", L"100", L"2B", L"3"})
        points.insert({{name, 1}, {}});
    for (const auto& [key, rows] : PointRegister(points))
        EXPECT_NE(findExact(points, key), points.end());
    const std::size_t before = points.size();
    for (const wchar_t* name : {L"9", L"10", L"1A"})
        eraseExact(points, {name, 1});
    EXPECT_EQ(points.size(), before - 3);
}
