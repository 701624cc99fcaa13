#include "db/records/orderings.h"
#include "platform/utf8.h"

#include <gtest/gtest.h>

#include <functional>
#include <stdexcept>
#include <string>

namespace
{

// "<" the first comes before the second, ">" behind it, "=" neither, otherwise the text of the failure.
struct Comparison {
    std::wstring a;
    std::wstring b;
    std::string relation;
};

std::string failureOr(const std::function<std::string()>& relation)
{
    try {
        return relation();
    } catch (const std::invalid_argument& failure) {
        return failure.what();
    } catch (const std::out_of_range& failure) {
        return failure.what();
    }
}

template <class Less>
std::string relationOf(Less less, const std::wstring& a, const std::wstring& b)
{
    return failureOr([&] {
        const bool before = less(a, b);
        const bool behind = less(b, a);
        return std::string(before && behind ? "<>" : before ? "<" : behind ? ">" : "=");
    });
}

template <class Less>
void expectRelations(Less less, const std::vector<Comparison>& rows)
{
    for (const Comparison& row : rows)
        EXPECT_EQ(relationOf(less, row.a, row.b), row.relation) << toUtf8(row.a) << " ? " << toUtf8(row.b);
}

const std::string noInt = "invalid stoi argument";
const std::string bigInt = "stoi argument out of range";
const std::string noFloat = "invalid stof argument";
const std::string bigFloat = "stof argument out of range";

} // namespace

TEST(Orderings, NamesWithoutLettersCompareAsIntegers)
{
    expectRelations(nameOrder,
        {
            {L"9", L"10", "<"},
            {L"01", L"1", "="},
            {L"1-1", L"1/4", "="},
            {L"1.5", L"1", "="},
            {L"0", L"5", "<"},
            {L"-3", L"0", "<"},
            {L" 7", L"8", "<"},
            {L"10", L"1A", "<"},
            {L"1A", L"9", "<"},
            {L"Скв-2", L"Скв-10", ">"},
            {L"№5", L"Скв", ">"},
            {L"", L"Скв", "<"},
            {L"", L"1", noInt},
            {L"1", L"", noInt},
            {L"-", L"1", noInt},
            {L"№5", L"1", noInt},
            {L"12345678901", L"1", bigInt},
            {L"é", L"1", noInt},
        });
}

TEST(Orderings, ANameThatReadsAsZeroComparesAsTextInNumericTexts)
{
    expectRelations(numericTextOrder,
        {
            {L"9", L"10", "<"},
            {L"0", L"00", "<"},
            {L"0", L"5", "<"},
            {L"0", L"-5", ">"},
            {L"0", L"+5", ">"},
            {L"+5", L"2", ">"},
            {L"ИГЭ-10", L"ИГЭ-9", "<"},
            {L"2", L"ИГЭ", "<"},
            {L"", L"2", noInt},
            {L"", L"ИГЭ", "<"},
        });
}

TEST(Orderings, RowsCompareByPointThenByDepth)
{
    struct Rows {
        PointDepthKey a;
        PointDepthKey b;
        std::string relation;
    };
    const std::vector<Rows> rows = {
        {{L"9", L"5"}, {L"10", L"1"}, "<"},
        {{L"A-1", L"3"}, {L"A-1", L"12"}, "<"},
        {{L"7", L"2.50"}, {L"07", L"2.5"}, "="},
        {{L"7", L"2.4"}, {L"07", L"2.5"}, "<"},
        {{L"7", L"2,9"}, {L"7", L"2"}, "="},
        {{L"0", L"1"}, {L"5", L"9"}, "="},
        {{L"5", L"1"}, {L"0", L"9"}, "="},
        {{L"0", L"1"}, {L"0", L"9"}, "="},
        {{L"0", L"1"}, {L"Скв", L"9"}, "<"},
        {{L"Скв", L"nan"}, {L"Скв", L"9"}, "="},
        // The depths are read first, even where the names decide.
        {{L"A", L""}, {L"B", L"1"}, noFloat},
        {{L"A", L"1"}, {L"B", L"1e99"}, bigFloat},
        {{L"", L"м"}, {L"1", L"1"}, noFloat},
        {{L"", L"1"}, {L"1", L"1"}, noInt},
    };
    for (const Rows& row : rows) {
        const std::string relation = failureOr([&] {
            const bool before = pointDepthOrder(row.a, row.b);
            const bool behind = pointDepthOrder(row.b, row.a);
            return std::string(before && behind ? "<>" : before ? "<" : behind ? ">" : "=");
        });
        EXPECT_EQ(relation, row.relation) << toUtf8(row.a.pointName) << '/' << toUtf8(row.a.depth) << " ? "
                                          << toUtf8(row.b.pointName) << '/' << toUtf8(row.b.depth);
    }
}

TEST(Orderings, SectionsCompareByTheNumberInTheirName)
{
    expectRelations(sectionNameOrder,
        {
            {L"Разрез 2-2'", L"Разрез 10-10'", "<"},
            {L"Разрез 2-2'", L"Профиль 2-2'", ">"},
            {L"Разрез А-А'", L"Разрез 1-1'", "<"},
            {L"Разрез 2-2' ", L"Разрез 3-3'", "<"},
            {L"Разрез 1'-1'", L"Разрез 0-0'", "<"},
            {L"Разрез", L"Разрез 1-1'", noInt},
            {L"Разрез 1-1", L"Разрез 1-1'", noInt},
            {L"Разрез 1-1\u2019", L"Разрез 1-1'", noInt},
            {L"1-1'", L"Разрез 1-1'", noInt},
        });
    EXPECT_EQ(sectionNumber(L"Разрез 1'-1'"), -1);
    EXPECT_EQ(sectionNumber(L"Разрез А-А'"), 0);
    EXPECT_EQ(sectionNumber(L"Разрез 12-12' "), 12);
    EXPECT_THROW(sectionNumber(L"Разрез 12-12'  "), std::invalid_argument);
}

TEST(Orderings, LinksCompareByTheNumberBehindTheColon)
{
    expectRelations(colonNumberOrder,
        {
            {L"a:2", L"a:10", "<"},
            {L"b:2", L"a:2", ">"},
            {L"a:x", L"a:1", "<"},
            {L"3", L"a:4", "<"},
            {L"a:2:9", L"a:3", "<"},
            {L"a:", L"a:1", noInt},
            {L"", L"a:1", noInt},
        });
}
