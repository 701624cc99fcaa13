#include "core/base/reference.h"
#include "db/db_project.h"
#include "site/subsidence.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <stdexcept>

namespace
{

// Dry density 1.5 and particles of 2.7: void ratio 0.8, saturated density 3.5 / 1.8 = 1.9444.
constexpr double saturated = 3.5 / 1.8;

// Two curves of a ring 20 mm high; the natural one does not move, so that the share is soaked / 20. Under own
// weight the height of the natural sample is the ring's.
LabSample soaked(const std::wstring& code, std::initializer_list<const wchar_t*> millimetres)
{
    LabSample sample;
    sample.code = code;
    sample.physical = {{0, true, L"0.2"}, {1, true, L"1.8"}, {2, true, L"2.70"}};
    CompressionGroup& group = sample.compression[23];
    group.numbers[0] = 20000;
    group.numbers[2] = 100000;
    std::int32_t load = 0;
    for (const wchar_t* text : millimetres) {
        group.cells.push_back({load, L"0", text, L"", 0, L""});
        load += 4; // 0.05 MPa
    }
    return sample;
}

// Two layers of two metres, samples in the middle of each.
Reference<DBProject> site()
{
    auto project = makeReference<DBProject>();
    for (const wchar_t* depth : {L"2.0", L"4.0"})
        project->addLithology({L"Скв-1", depth}, {L"", L""});
    project->addNumberedLink(L"Скв-1:1", L"1");
    project->addNumberedLink(L"Скв-1:2", L"1");
    project->addStrataElement(L"1", {});
    project->addLabSample({L"Скв-1", L"1.0"}, soaked(L"1", {L"0", L"0.6", L"1.2", L"1.8"}));
    project->addLabSample({L"Скв-1", L"3.0"}, soaked(L"2", {L"0", L"0.1", L"0.4", L"0.8"}));
    return project;
}

constexpr auto collapse = SiteLaboratory::Extent::Collapse;

SubsidencePoint calculated(DBProject& project, SiteLaboratory::Extent extent = collapse)
{
    const SiteLaboratory laboratory(project, 0, extent);
    const auto points = allSubsidencePoints(project, laboratory);
    if (points.size() != 1)
        throw std::runtime_error("one point");
    return points.front();
}

SubsidenceState keep(DBProject& project, FillPlaces places)
{
    const SiteLaboratory laboratory(project, 0, collapse);
    return filledState(subsidenceState(project), subsidencePoints(project, laboratory), places);
}

} // namespace

TEST(SiteSubsidence, LayersTakeTheCurvesOfTheirSamples)
{
    const auto project = site();
    const SubsidencePoint point = calculated(*project);
    ASSERT_EQ(point.result.parts.size(), 2U);
    const double above = saturated * 9.81 * 1.0;
    const double below = saturated * 9.81 * 3.0;
    EXPECT_NEAR(*point.result.parts[0].stressKPa, above, 1e-9);
    EXPECT_NEAR(*point.result.parts[1].stressKPa, below, 1e-9);
    // 0.6 mm of 20 at 50 kPa, from nothing at none: 0.0114 at 19 kPa.
    const double first = 0.03 * above / 50;
    EXPECT_NEAR(*point.result.parts[0].relative, first, 1e-9);
    // 0.005 at 50, 0.020 at 100.
    const double second = 0.005 + 0.015 * (below - 50) / 50;
    EXPECT_NEAR(*point.result.parts[1].relative, second, 1e-9);
    EXPECT_LT(second, 0.01);
    EXPECT_NEAR(*point.totalCm.value, first * 200, 1e-9);
    EXPECT_EQ(point.type, SubsidenceType::I);
    EXPECT_NEAR(*point.lowerBoundaryM.value, 2.0, 1e-9);
    EXPECT_NEAR(*point.initialPressureKPa.value, 50 * 0.01 / 0.03, 1e-9);
    // Only the samples that were chosen take part.
    project->addSubsidenceName(L"Скв-1", {L"2"});
    const SubsidencePoint chosen = calculated(*project);
    EXPECT_FALSE(chosen.result.parts[0].relative);
    EXPECT_NEAR(*chosen.result.parts[1].relative, second, 1e-9);
}

TEST(SiteSubsidence, SamplesWithoutATestCountInTheDensities)
{
    const auto project = site();
    LabSample heavy = soaked(L"3", {});
    heavy.compression.clear();
    heavy.physical[1].value = L"2.4"; // mean 2.0: dry 1.6667, void ratio 0.62
    project->addLabSample({L"Скв-1", L"3.5"}, heavy);
    const double dry = 2.0 / 1.2;
    const double dense = dry + (1 - dry / 2.7);
    for (const auto extent : {collapse, SiteLaboratory::Extent::Everything}) {
        const SubsidencePoint point = calculated(*project, extent);
        EXPECT_NEAR(*point.result.parts[0].stressKPa, dense * 9.81, 1e-9);
        EXPECT_EQ(point.samples.size(), 2U);
    }
    // What is kept is shown though no sample has a test any more, with its stress.
    setSubsidenceState(*project, keep(*project, FillPlaces::All));
    for (auto& [key, sample] : project->getLabSamples())
        sample.compression.clear();
    const SubsidencePoint kept = calculated(*project);
    EXPECT_NEAR(*kept.computed.parts[0].stressKPa, dense * 9.81, 1e-9);
    EXPECT_TRUE(kept.typedParts[0][1]);
}

TEST(SiteSubsidence, WhatIsMissingIsSaidAndNotGuessed)
{
    auto project = site();
    project->addLabSample({L"Скв-1", L"9.0"}, soaked(L"3", {L"0", L"0.6", L"1.2"}));
    const SubsidencePoint deep = calculated(*project);
    EXPECT_TRUE(std::ranges::any_of(deep.remarks,
        [](const Remark& remark) { return remark.text == L"Проба 3 не попадает ни в один слой"; }));
    // Without a density there is no stress, without a stress no sum.
    for (auto& [key, sample] : project->getLabSamples())
        sample.physical.clear();
    const SubsidencePoint bare = calculated(*project);
    EXPECT_FALSE(bare.totalCm.value);
    EXPECT_FALSE(bare.type);
    EXPECT_TRUE(keep(*project, FillPlaces::All).results.empty());
    // A curve that never reaches 0.01: nothing subsides, and it is of no type.
    project = site();
    project->getLabSamples().clear();
    project->addLabSample({L"Скв-1", L"1.0"}, soaked(L"1", {L"0", L"0.01", L"0.02"}));
    const SubsidencePoint still = calculated(*project);
    EXPECT_NEAR(*still.totalCm.value, 0.0, 1e-12);
    EXPECT_FALSE(still.type);
    EXPECT_FALSE(still.initialPressureKPa.value);
}

TEST(SiteSubsidence, TypedFiguresRuleAndAreTold)
{
    const auto project = site();
    // Kept as calculated, nothing is typed.
    setSubsidenceState(*project, keep(*project, FillPlaces::Empty));
    ASSERT_EQ(project->getSubsidence().at(L"Скв-1").size(), 3U);
    EXPECT_EQ(project->getSubsidence().at(L"Скв-1")[0].title, L"Тип I");
    SubsidencePoint point = calculated(*project);
    const double computed = *point.totalCm.computed;
    EXPECT_FALSE(point.totalCm.isTyped || point.lowerBoundaryM.isTyped || point.initialPressureKPa.isTyped);
    EXPECT_FALSE(point.isTypeTyped);
    EXPECT_FALSE(point.typedParts[0][0] || point.typedParts[0][1] || point.typedParts[0][2]);

    // A typed share of the second layer: 0.03 of two metres more, and the other type.
    SubsidenceState state = subsidenceState(*project);
    setSubsidenceRowCell(state, L"Скв-1", L"2.00", L"4.00", 3, L"0,03");
    setSubsidenceRowCell(state, L"Скв-1", L"2.00", L"4.00", 4, L"");
    setSubsidenceFigure(state, L"Скв-1", 1, L"");
    setSubsidenceTitle(state, L"Скв-1", L"");
    setSubsidenceFigure(state, L"Скв-1", 3, L"");
    setSubsidenceState(*project, state);
    point = calculated(*project);
    EXPECT_TRUE(point.typedParts[1][1]);
    EXPECT_NEAR(*point.totalCm.value, computed + 6.0, 1e-9);
    EXPECT_EQ(point.type, SubsidenceType::II);
    EXPECT_NEAR(*point.lowerBoundaryM.value, 4.0, 1e-9);
    EXPECT_NEAR(*point.computed.totalCm, computed, 1e-12);

    // A typed whole stands above all, filling leaves it alone, calculating all anew does not.
    setSubsidenceFigure(state, L"Скв-1", 1, L"3.3");
    setSubsidenceState(*project, state);
    EXPECT_EQ(keep(*project, FillPlaces::Empty).results.at(L"Скв-1")[0].text, L"3.3");
    point = calculated(*project);
    EXPECT_TRUE(point.totalCm.isTyped);
    EXPECT_NEAR(*point.totalCm.value, 3.3, 1e-12);
    EXPECT_EQ(point.type, SubsidenceType::I);
    setSubsidenceState(*project, keep(*project, FillPlaces::All));
    EXPECT_NEAR(*calculated(*project).totalCm.value, computed, 1e-9);
    EXPECT_FALSE(calculated(*project).totalCm.isTyped);
    // A row of other depths is no layer.
    state = subsidenceState(*project);
    setSubsidenceRowCell(state, L"Скв-1", L"0.50", L"1.00", 4, L"9");
    setSubsidenceState(*project, state);
    EXPECT_TRUE(std::ranges::any_of(
        calculated(*project).remarks, [](const Remark& remark) { return remark.cell == "rows"; }));
}

TEST(SiteSubsidence, FoundationIsKeptBesideOtherLinks)
{
    const auto project = site();
    EXPECT_FALSE(siteFoundation(*project));
    const NumberedLinks before = project->getNumberedLinks();
    project->setNumberedLinks(withFoundation(before, {L"1,5", L"", L"1.8", L"200"}));
    const auto foundation = siteFoundation(*project);
    ASSERT_TRUE(foundation);
    EXPECT_EQ(foundation->widthM, 1.5);
    EXPECT_EQ(foundation->lengthM, 0.0);
    EXPECT_EQ(foundation->depthM, 1.8);
    EXPECT_EQ(foundation->pressureKPa, 200.0);
    EXPECT_EQ(project->getNumberedLinks().size(), before.size() + 1);
    project->setNumberedLinks(withFoundation(project->getNumberedLinks(), {}));
    EXPECT_EQ(project->getNumberedLinks(), before);
}
