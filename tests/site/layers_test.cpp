#include "core/base/reference.h"
#include "db/db_project.h"
#include "site/column.h"
#include "site/element_links.h"
#include "site/layers.h"
#include "site/points.h"

#include <gtest/gtest.h>

namespace
{

class LayersTest : public testing::Test
{
protected:
    void layer(const wchar_t* point, const wchar_t* bottom, const wchar_t* index = L"")
    {
        project->addLithology({point, bottom}, {index, L""});
    }

    // The element at a depth; "-" where no layer is there.
    std::wstring elementAt(const wchar_t* point, double depth) const
    {
        const SiteLayers layers(*project);
        LayerFinder finder(*project);
        const SiteLayer* found = layers.layerAt(point, depth);
        const auto alone = finder.layerAt(point, depth);
        EXPECT_EQ(alone.has_value(), found != nullptr) << depth;
        if (alone && found) {
            EXPECT_EQ(alone->number, found->number) << depth;
            EXPECT_EQ(alone->element, found->element) << depth;
        }
        return found ? std::wstring(found->element) : L"-";
    }

    Reference<DBProject> project = makeReference<DBProject>();
};

} // namespace

TEST_F(LayersTest, LayersFollowOneAnotherFromTheMouth)
{
    PointRow mouth;
    mouth.absoluteMark = L"112,47";
    project->addPointRegisterEntry({L"Скв-1", 1}, {mouth});
    layer(L"Скв-1", L"12.20");
    layer(L"Скв-1", L"1,205");
    layer(L"Скв-1", L"3.6");
    const SiteLayers layers(*project);
    const SiteLayers::Point* point = layers.find(L"Скв-1");
    ASSERT_NE(point, nullptr);
    ASSERT_EQ(point->layers.size(), 3u);
    EXPECT_EQ(point->layers[0].thicknessText(), L"1,205");
    EXPECT_EQ(point->layers[1].thicknessText(), L"2,395");
    EXPECT_EQ(point->layers[2].markText(point->markText), L"100,27");
    EXPECT_DOUBLE_EQ(point->layers[2].thickness(), 8.6);
    EXPECT_DOUBLE_EQ(point->depth(), 12.2);
    EXPECT_EQ(layers.find(L"Скв-2"), nullptr);
}

TEST_F(LayersTest, WhatHasNoThicknessIsLeftOutAndKeepsItsNumber)
{
    layer(L"Скв-1", L"-1");
    layer(L"Скв-1", L"2");
    layer(L"Скв-1", L"3x");
    layer(L"Скв-1", L"5");
    project->addNumberedLink(L"Скв-1:2", L"a");
    project->addNumberedLink(L"Скв-1:3", L"b");
    const auto layers = layersOfPoint(*project, L"Скв-1");
    ASSERT_EQ(layers.size(), 2u);
    EXPECT_EQ(layers[0].number, 2u);
    EXPECT_EQ(layers[0].element, L"a");
    EXPECT_EQ(layers[1].number, 3u) << "words stand below the numbers";
    EXPECT_EQ(layers[1].element, L"b");
}

TEST_F(LayersTest, ABoundaryBelongsToTheUpperLayer)
{
    layer(L"Скв-1", L"2");
    layer(L"Скв-1", L"5");
    layer(L"10", L"3");
    project->addNumberedLink(L"Скв-1:1", L"1");
    project->addNumberedLink(L"Скв-1:2", L"2а");
    project->addNumberedLink(L"10:1", L"3");
    project->addNumberedLink(L"ИГЭ 2а:0", L"Суглинок");
    project->addNumberedLink(L"Коррозия:0", L"Портландцемент;20");
    EXPECT_EQ(elementAt(L"Скв-1", 0), L"1");
    EXPECT_EQ(elementAt(L"Скв-1", 2), L"1");
    EXPECT_EQ(elementAt(L"Скв-1", 2.001), L"2а");
    EXPECT_EQ(elementAt(L"Скв-1", 5), L"2а");
    EXPECT_EQ(elementAt(L"Скв-1", 5.1), L"-");
    EXPECT_EQ(elementAt(L"Скв-1", -0.1), L"-");
    EXPECT_EQ(elementAt(L"10", 1), L"3");
    EXPECT_EQ(elementAt(L"11", 1), L"-");
    EXPECT_EQ(elementName(project->getNumberedLinks(), L"2а"), L"Суглинок");
    EXPECT_EQ(elementName(project->getNumberedLinks(), L"2"), L"");
}

TEST(LayerLinkKeys, OnlyThoseOfLayersAreRead)
{
    EXPECT_EQ(layerLinkKey(L"Скв-1", 12), L"Скв-1:12");
    const auto link = readLayerLink(L"Скв-1:12");
    ASSERT_TRUE(link);
    EXPECT_EQ(link->point, L"Скв-1");
    EXPECT_EQ(link->number, 12u);
    for (const wchar_t* other :
        {L"ИГЭ 2:0", L"Коррозия:0", L"Скв-1", L"Скв-1:", L"Скв-1:2а", L"a:b:2", L"a:-1"})
        EXPECT_FALSE(readLayerLink(other)) << std::wstring(other).size();
    EXPECT_FALSE(canBeLinked(L"Скв:1"));
    EXPECT_FALSE(canBeLinked(L""));
    EXPECT_TRUE(canBeLinked(L"Скв-1"));
}

TEST(SitePoints, NumbersOfTheFirstRow)
{
    const auto project = makeReference<DBProject>();
    PointRow row;
    row.text0 = L"6 180,5";
    row.text1 = L"north";
    row.absoluteMark = L"0";
    project->addPointRegisterEntry({L"2", 3}, {row, PointRow()});
    project->addPointRegisterEntry({L"5", 77}, {});
    const auto points = sitePoints(*project);
    ASSERT_EQ(points.size(), 2u);
    EXPECT_EQ(points[0].x, Number(6180.5));
    EXPECT_EQ(points[0].y, Number());
    EXPECT_EQ(points[0].mark, Number(0));
    EXPECT_EQ(points[0].kind, PointKind::Sounding);
    EXPECT_EQ(points[1].kind, PointKind::Unknown);
    EXPECT_EQ(pointKindFullName(2), L"Шурф");
    EXPECT_EQ(pointKindShortName(77), L"77");
}

// A layer that begins and ends at the mouth has no place in a strip to scale; the column tells of it.
TEST(ColumnOfPoint, LayersWithoutThicknessAreToldApart)
{
    const auto project = makeReference<DBProject>();
    project->addLithology({L"С-1", L"0"}, {L"", L"Почва"});
    project->addLithology({L"С-1", L"2.5"}, {L"", L"Глина"});
    project->addLithology({L"С-2", L"1"}, {L"", L"Песок"});
    const ColumnData column = columnData(*project, L"С-1");
    ASSERT_EQ(column.layers.size(), 1U);
    EXPECT_EQ(column.layers.front().description, L"Глина");
    EXPECT_EQ(column.leftOut, std::vector<std::wstring>{L"1 (0 м) Почва"});
    EXPECT_TRUE(columnData(*project, L"С-2").leftOut.empty());
}
