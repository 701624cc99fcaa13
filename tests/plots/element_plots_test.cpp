#include "plots/element_plots.h"
#include "plots/plot_checks.h"
#include "site/element_site.h"
#include "site/element_summary.h"

#include <algorithm>
#include <cmath>
#include <set>

// Pictures of an element's samples.

namespace
{

template <class Shape>
std::vector<const Item*> shapesOf(const Drawing& drawing)
{
    std::vector<const Item*> items;
    for (const Item& item : drawing.items)
        if (std::holds_alternative<Shape>(item.shape))
            items.push_back(&item);
    return items;
}

std::set<std::int64_t> idsOf(const std::vector<const Item*>& items)
{
    std::set<std::int64_t> ids;
    for (const Item* item : items)
        if (item->id != 0)
            ids.insert(item->id);
    return ids;
}

// Lines drawn with a pen of this width, which tells curves from grid and frame.
std::vector<const Line*> linesOf(const Drawing& drawing, double width, Dash dash = Dash::Solid)
{
    std::vector<const Line*> lines;
    for (const Item* item : shapesOf<Line>(drawing))
        if (const auto& line = std::get<Line>(item->shape);
            std::fabs(line.pen.width - width) < 1e-9 && line.pen.dash == dash && item->id == 0)
            lines.push_back(&line);
    return lines;
}

bool isFinite(const Drawing& drawing)
{
    for (const Item* item : shapesOf<Line>(drawing))
        for (const Spot& spot : std::get<Line>(item->shape).points)
            if (!std::isfinite(spot.x) || !std::isfinite(spot.y))
                return false;
    for (const Item* item : shapesOf<Circle>(drawing))
        if (const Spot& spot = std::get<Circle>(item->shape).centre;
            !std::isfinite(spot.x) || !std::isfinite(spot.y))
            return false;
    return true;
}

Drawing scatterOf(DBProject& project, int property)
{
    const SiteLaboratory laboratory(project, 0);
    const SiteElement& element = laboratory.elements().front();
    return scatterOfProperty(laboratory,
        propertyValues(laboratory, element, property),
        *statisticsOf(element, property),
        L"ИГЭ 1",
        L"Плотность, г/см3");
}

constexpr double meanWidth = 0.5;

} // namespace

TEST(ElementPlots, EveryValueIsAMarkAndTheExcludedOneACross)
{
    const auto project = siteOfOneElement();
    addDensities(*project);
    sampleAt(*project, 30).physical.push_back({1, true, L"2.60"}); // the rule takes it out
    const Drawing drawing = scatterOf(*project, 1);
    EXPECT_TRUE(textsAreApart(drawing));
    const auto marks = shapesOf<Circle>(drawing);
    EXPECT_EQ(marks.size(), 10U);
    EXPECT_EQ(idsOf(marks).count(11), 0U);
    EXPECT_EQ(idsOf(shapesOf<Line>(drawing)), std::set<std::int64_t>{11}) << "the cross";

    // The mean stands among the marks as 1.93 among its values.
    double least = 1e9;
    double greatest = 0;
    for (const Item* mark : marks) {
        least = std::min(least, std::get<Circle>(mark->shape).centre.x);
        greatest = std::max(greatest, std::get<Circle>(mark->shape).centre.x);
    }
    const auto means = linesOf(drawing, meanWidth);
    ASSERT_EQ(means.size(), 1U);
    EXPECT_NEAR((means[0]->points[0].x - least) / (greatest - least), .5, 1e-6);
}

TEST(ElementPlots, BarsAreAsHighAsThereAreValues)
{
    const auto project = siteOfOneElement();
    for (std::size_t number = 0; number < 8; ++number)
        sampleAt(*project, number).physical.push_back({1, true, number < 2 ? L"1.80" : L"1.90"});
    std::vector<double> heights;
    const Drawing drawing = scatterOf(*project, 1);
    for (const Item* item : shapesOf<Area>(drawing)) {
        const auto [top, bottom] =
            std::ranges::minmax(std::get<Area>(item->shape).rings.front(), {}, &Spot::y);
        heights.push_back(bottom.y - top.y);
    }
    ASSERT_EQ(heights.size(), 2U) << "nothing stands between";
    EXPECT_NEAR(heights[1] / heights[0], 3, 1e-9);
}

TEST(ElementPlots, OneValueEqualValuesAndNoneAreDrawn)
{
    const auto project = siteOfOneElement();
    const SiteLaboratory none(*project, 0);
    const SiteElement& empty = none.elements().front();
    for (const Drawing& drawing : {scatterOfProperty(none, {}, {}, L"ИГЭ 1", L"W"),
             gradingsOfElement(none, empty, L"ИГЭ 1", true),
             shearOfElement(empty, L"ИГЭ 1"),
             compressionOfElement(none, empty, L"ИГЭ 1")})
        EXPECT_TRUE(hasText(drawing, L"Нет данных"));
    for (std::size_t number = 0; number < 3; ++number) {
        sampleAt(*project, number).physical.push_back({1, true, number == 0 ? L"0" : L"1.9"});
        const Drawing drawing = scatterOf(*project, 1);
        EXPECT_TRUE(isFinite(drawing)) << number;
        EXPECT_EQ(shapesOf<Circle>(drawing).size(), number + 1);
    }
}

TEST(ElementPlots, TheBandHoldsAllGradingCurves)
{
    const auto project = siteOfOneElement(ElementKind::Sand);
    const wchar_t* coarse[] = {L"5", L"15", L"30", L"30", L"20"};
    const wchar_t* fine[] = {L"0", L"5", L"20", L"45", L"30"};
    for (std::size_t number = 0; number < 2; ++number)
        for (int rank = 0; rank < 5; ++rank)
            sampleAt(*project, number)
                .grading.emplace(static_cast<std::uint8_t>(15 + rank), (number == 0 ? coarse : fine)[rank]);
    for (auto& [key, sample] : project->getLabSamples())
        sample.grading[20] = L"0";
    const SiteLaboratory laboratory(*project, 0);
    for (const bool isSmoothed : {false, true}) {
        const Drawing drawing =
            gradingsOfElement(laboratory, laboratory.elements().front(), L"ИГЭ 1", isSmoothed);
        const auto band = linesOf(drawing, .3, Dash::Dashed);
        const auto curves = linesOf(drawing, .15);
        const auto means = linesOf(drawing, meanWidth);
        ASSERT_EQ(band.size(), 2U);
        ASSERT_EQ(curves.size(), 2U);
        ASSERT_EQ(means.size(), 1U);
        for (const Line* curve : curves)
            for (std::size_t i = 1; i < curve->points.size(); ++i)
                EXPECT_GE(curve->points[i].y, curve->points[i - 1].y - 1e-9)
                    << "to finer grains a curve only falls";
        if (isSmoothed)
            continue;
        // The coarser sample is the lower edge, the finer one the upper; the mean runs between.
        EXPECT_EQ(band[0]->points, curves[0]->points);
        EXPECT_EQ(band[1]->points, curves[1]->points);
        for (std::size_t i = 0; i < means[0]->points.size(); ++i)
            EXPECT_NEAR(means[0]->points[i].y, (band[0]->points[i].y + band[1]->points[i].y) / 2, 1e-9);
    }
}

TEST(ElementPlots, TheLineOfShearGoesThroughAllPoints)
{
    const auto project = siteOfOneElement();
    addShearTests(*project);
    const SiteLaboratory laboratory(*project, 0);
    const Drawing drawing = shearOfElement(laboratory.elements().front(), L"ИГЭ 1");
    EXPECT_EQ(shapesOf<Circle>(drawing).size(), 18U);
    EXPECT_EQ(idsOf(shapesOf<Circle>(drawing)).size(), 6U);
    EXPECT_EQ(linesOf(drawing, meanWidth).size(), 1U);
    EXPECT_TRUE(textsAreApart(drawing));
}
