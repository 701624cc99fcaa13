#include "core/base/reference.h"
#include "db/db_project.h"
#include "site/chemistry.h"
#include "support/temporary_folder.h"

#include <gtest/gtest.h>

#include <fstream>

TEST(SiteChemistry, AnalysesWithTheCurrentOfTheSampleBesideThem)
{
    const auto project = makeReference<DBProject>();
    ChemistryRecord record;
    record.cells[CellResistivity] = L"60";
    record.cells[CellCl] = L"много";
    project->addChemistry({L"Скв-1", L"2.0"}, record);
    LabSample sample;
    sample.physical = {{56, true, L"0,3"}};
    project->addLabSample({L"Скв-1", L"2"}, sample);
    const std::vector<SiteAnalysis> analyses = siteAnalyses(*project);
    ASSERT_EQ(analyses.size(), 1u);
    EXPECT_EQ(analyses[0].cathodeCurrent, 0.3);
    EXPECT_FALSE(analyses[0].analysis.isWater);
    ASSERT_EQ(analyses[0].remarks.size(), 1u);
    EXPECT_EQ(analyses[0].remarks[0].cell, "chemistry/1");
}

TEST(SiteChemistry, ChoiceOfTheSiteGoesIntoItsLinkAndBack)
{
    const auto project = makeReference<DBProject>();
    project->addNumberedLink(L"Скв-1:1", L"2");
    EXPECT_EQ(protectionText(protectionChoice(*project)), L";;;");
    const ProtectionChoice choice{L"сульфатостойкий", 50, false, true, {}};
    setProtectionChoice(*project, choice);
    const ProtectionChoice back = protectionChoice(*project);
    EXPECT_EQ(back.cement, choice.cement);
    EXPECT_EQ(back.coverMm, 50);
    EXPECT_FALSE(back.isFiltering);
    EXPECT_TRUE(back.isOldEdition);
    EXPECT_EQ(project->getNumberedLinks().size(), 2u);
    setProtectionChoice(*project, {});
    EXPECT_EQ(protectionText(protectionChoice(*project)), L";;;");
    EXPECT_EQ(project->getNumberedLinks().size(), 2u);

    const AggressivenessLimits& limits = AggressivenessLimits::ofProgram();
    EXPECT_EQ(knownCements(limits).size(), 3u);
    EXPECT_EQ(knownCovers(limits, true), (std::vector<int>{20, 30, 50}));
    EXPECT_EQ(knownCovers(limits, false), (std::vector<int>{20, 25, 30, 50}));
}

TEST(SiteChemistry, LimitsBesideTheProgram)
{
    const TemporaryFolder temporary;
    const std::wstring folder = temporary.file(L".");
    std::vector<TableMistake> mistakes;
    EXPECT_EQ(limitsBeside(folder, mistakes).rows().size(), AggressivenessLimits::ofProgram().rows().size());
    EXPECT_TRUE(mistakes.empty());
    std::ofstream(temporary.path() / limitsFileName, std::ios::binary) << "бетон; вода\n";
    EXPECT_EQ(limitsBeside(folder, mistakes).rows().size(), AggressivenessLimits::ofProgram().rows().size());
    ASSERT_EQ(mistakes.size(), 1u);
    EXPECT_EQ(mistakes[0].line, 1u);
    const std::wstring message = limitsMessage(mistakes);
    EXPECT_NE(message.find(L"Строка 1: в строке должно быть десять полей"), std::wstring::npos);
    EXPECT_NE(message.find(L"встроенные пределы"), std::wstring::npos);
    // As it is shipped, nothing is to be said; many mistakes do not make a box as high as the screen.
    mistakes.clear();
    std::ofstream(temporary.path() / limitsFileName, std::ios::binary) << AggressivenessLimits::programText();
    limitsBeside(folder, mistakes);
    EXPECT_EQ(limitsMessage(mistakes), L"");
    mistakes.assign(40, {3, L"x"});
    EXPECT_NE(limitsMessage(mistakes).find(L"И еще ошибок: 35"), std::wstring::npos);
}
