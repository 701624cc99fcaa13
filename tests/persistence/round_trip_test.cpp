#include "support/project_bytes.h"
#include "support/random_project.h"

#include <gtest/gtest.h>

// Every byte of files from another hand: reader and writer agree with the format, not only with each other.
class SampleFile : public testing::TestWithParam<const char*>
{
};

TEST_P(SampleFile, ComesBackByteForByte)
{
    const Bytes bytes = sampleBytes(GetParam());
    ReadReport report;
    const auto project = openBytes(bytes, report);
    EXPECT_EQ(report.position, bytes.size());
    EXPECT_EQ(report.refusalCount, 0U);
    EXPECT_EQ(report.dropCount, 0U);
    EXPECT_EQ(encodeProject(*project), bytes);
}

INSTANTIATE_TEST_SUITE_P(
    Samples, SampleFile, testing::Values("ALLNUM.TLX", "ALLTEXT.TLX", "LURGAN.TLX", "PORTADOWN.TLX"));

TEST(SampleFile, RealInvestigationHoldsWhatItsPageSays)
{
    const auto project = openBytes(sampleBytes("PORTADOWN.TLX"));
    EXPECT_EQ(project->getPointRegister().size(), 39U);
    EXPECT_EQ(project->getLithology().size(), 324U);
    EXPECT_EQ(project->getSamples().size(), 619U);
    EXPECT_EQ(project->getWaterLevels().size(), 37U);
    EXPECT_EQ(project->getLabSamples().size(), 325U);
    EXPECT_EQ(project->getChemistry().size(), 66U);
}

TEST(RoundTrip, EveryFieldThatAFileCanHoldComesBack)
{
    for (std::uint32_t seed = 1; seed <= 60; ++seed) {
        const auto project = randomProject(seed, seed % 2 == 0);
        const Bytes first = encodeProject(*project);
        ReadReport report;
        const auto again = openBytes(first, report);
        EXPECT_EQ(report.position, first.size()) << "seed " << seed;
        ASSERT_EQ(encodeProject(*again), first) << "seed " << seed;
    }
}

TEST(RoundTrip, WhatTheFileDoesNotHoldComesBackAsTheDefault)
{
    const auto project = makeReference<DBProject>();
    project->setProjectState(5);
    project->setSoundingRatioC(L"7");
    project->setLithologyHeader({{2020, 2, 2}, {2021, 3, 3}, 1, 2, 3});
    project->setLongProfileMap({{L"a", {L"b"}}});
    project->setLinkViewMode(4);
    project->setLinkViewPair({1, 2});
    project->setSectionFlagA(true);
    project->setFilePath(L"D:/Работа\\Мост.через.реку.TLX");
    project->setFileStem(L"Другое");
    PropertyCell cell{3, true, L"0.21", 8, 9};
    project->setPhysicalTemplate({cell});

    const auto again = reopened(*project);
    EXPECT_EQ(again->getProjectState(), 0);
    EXPECT_EQ(again->getSoundingRatioC(), 0.09F);
    EXPECT_EQ(again->getLithologyHeader(), RegisterHeader());
    EXPECT_TRUE(again->getLongProfileMap().empty());
    EXPECT_EQ(again->getLinkViewMode(), 0);
    EXPECT_EQ(again->getLinkViewPair(), Pair2());
    EXPECT_FALSE(again->getSectionFlagA());
    EXPECT_EQ(again->getFilePath(), L"D:/Работа\\Мост.через.реку.TLX");
    EXPECT_EQ(again->getFileStem(), L"Мост.через.реку");
    ASSERT_EQ(again->getPhysicalTemplate().size(), 1U);
    EXPECT_EQ(again->getPhysicalTemplate()[0].value, L"0.21");
    EXPECT_EQ(again->getPhysicalTemplate()[0].aux, 0);
    EXPECT_EQ(again->getPhysicalTemplate()[0].limit, 999);
}

// Mixed names have no consistent order: their rows may change places or be refused, but what comes back is
// made of what went in.
TEST(RoundTrip, MixedNamesBringBackRowsThatWereThere)
{
    const auto project = makeReference<DBProject>();
    const wchar_t* names[] = {L"9", L"10", L"1A", L"100", L"2B", L"3", L"Скв-1", L"20"};
    for (const wchar_t* name : names)
        project->addLithology({name, L"1.5"}, {name, L""});
    const auto again = reopened(*project);
    EXPECT_FALSE(again->getLithology().empty());
    for (const auto& [key, layer] : again->getLithology())
        EXPECT_EQ(key.pointName, layer.geoIndex);
}
