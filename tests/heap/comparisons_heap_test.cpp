#include "counted_heap.h"
#include "db/db_project.h"

#include <gtest/gtest.h>

// A look-up among many rows compares some twenty times; none of it may touch the heap.
TEST(Comparisons, LookUpsDoNotAllocate)
{
    LithologyRegister layers;
    PointRegister points;
    SubsidenceNames names;
    SectionLineMap lines;
    NumberedLinks links;
    for (int i = 1; i <= 300; ++i) {
        const std::wstring number = std::to_wstring(i);
        const std::wstring name = L"Скважина длинного имени " + number;
        layers.insert({{number, L"12.345678901234567890123"}, {}});
        points.insert({{name, 1}, {}});
        names.insert({number, {}});
        lines.insert({std::wstring(L"Разрез ").append(number).append(L"-").append(number).append(L"'"), {}});
        links.insert({L"ссылка:" + number, L""});
    }
    const PointDepthKey layer{L"117", L"0x1.8p3"};
    const PointKey point{L"Скважина длинного имени 250", 1};
    const std::wstring name = L"290";
    const std::wstring line = L"Разрез 155-155'";
    const std::wstring link = L"ссылка:17";

    const std::size_t before = heapAllocations();
    const bool foundLayer = layers.find(layer) != layers.end();
    const bool foundPoint = points.find(point) != points.end();
    const bool foundName = names.find(name) != names.end();
    const bool foundLine = lines.find(line) != lines.end();
    const bool foundLink = links.find(link) != links.end();
    const std::size_t during = heapAllocations() - before;
    EXPECT_EQ(during, 0U);
    EXPECT_GT(before, 1000U);
    EXPECT_FALSE(foundLayer); // another depth
    EXPECT_TRUE(foundPoint && foundName && foundLine && foundLink);
}
