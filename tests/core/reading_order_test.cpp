#include "core/base/reading_order.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <vector>

TEST(ReadingOrder, NumbersInsideNamesCountByTheirValue)
{
    const std::vector<std::wstring> expected = {L"",
        L"1",
        L"01",
        L"2",
        L"9",
        L"10",
        L"99999999999999999999998",
        L"99999999999999999999999",
        L"С-1",
        L"Скв-2",
        L"скв-2а",
        L"Скв-2б",
        L"скв-10",
        L"Скв-11",
        L"Ш-1",
        L"шурф 3"};
    std::vector<std::wstring> sorted(expected.rbegin(), expected.rend());
    std::sort(sorted.begin(), sorted.end(), [](const auto& a, const auto& b) { return standsBefore(a, b); });
    std::vector<std::wstring> wanted = expected;
    std::swap(wanted[1], wanted[2]); // "01" by its characters
    EXPECT_EQ(sorted, wanted);
    for (const std::wstring& name : expected)
        EXPECT_FALSE(standsBefore(name, name));
}
