#include "core/base/reference.h"
#include "db/db_project.h"
#include "site/cells.h"
#include "support/json_schema.h"
#include "support/project_bytes.h"
#include "support/random_project.h"
#include "tlxtool/calc/calc_command.h"
#include "tlxtool/project_json.h"

#include <gtest/gtest.h>

#include <cmath>
#include <fstream>

// Results of whole projects as `tlxtool calc` prints them.

namespace
{

Reference<DBProject> exampleProject()
{
    std::ifstream file(TELLURIX_SAMPLES "/sources/zarechnaya.json");
    return projectFromJson(Json::parse(file));
}

JsonSchema calcSchema()
{
    std::ifstream file(TELLURIX_DOCS "/calc.schema.json");
    return JsonSchema(JsonSchema::Value::parse(file));
}

// A loam of three layers with one sample in each test, from the worked examples.
LabSample loamSample()
{
    LabSample sample;
    sample.code = L"1";
    const wchar_t* values[] = {L"0,212", L"1.94", L" 2.71 ", L"0.312", L"0.188"};
    for (int i = 0; i < 5; ++i)
        sample.physical.push_back({i, true, values[i]});
    const std::pair<std::uint8_t, const wchar_t*> fractions[] = {{13, L"4"},
        {15, L"8"},
        {16, L"16"},
        {17, L"34"},
        {18, L"26"},
        {19, L"8"},
        {20, L"3"},
        {21, L"0.6"},
        {23, L"0.4"}};
    for (const auto& [number, share] : fractions)
        sample.grading.emplace(number, share);
    sample.shear[3] = {{7, L"0.063"}, {15, L"0.101"}, {19, L"0.135"}, {20, L"(0.9)"}};
    CompressionGroup& group = sample.compression[23];
    group.numbers[compression_number::FirstHeight] = 20000;
    group.numbers[compression_number::NaturalStress] = 100000;
    const std::tuple<int, const wchar_t*, const wchar_t*> stages[] = {{0, L"0", L"0"},
        {4, L"0.10", L"0.18"},
        {8, L"0.16", L"0.34"},
        {12, L"0.21", L"0.57"},
        {16, L"0.25", L"0.89"},
        {20, L"0.33", L"1.45"}};
    for (const auto& [load, natural, soaked] : stages)
        group.cells.push_back({load, natural, soaked, L"", 0, L""});
    sample.swelling = {
        {1, L"", L"0.23", L""}, {3, L"", L"0.115", L""}, {4, L"", L"0.0525", L""}, {5, L"", L"-0.0175", L""}};
    return sample;
}

Reference<DBProject> loamProject()
{
    auto project = makeReference<DBProject>();
    project->setGranGost(1);
    project->addLithology({L"Скв-1", L"1.0"}, {});
    project->addLithology({L"Скв-1", L"5.0"}, {});
    project->addNumberedLink(L"Скв-1:1", L"1");
    project->addNumberedLink(L"Скв-1:2", L"2");
    StrataElement element;
    project->addStrataElement(L"1", element);
    element.texts[element_text::DensityNormative] = L"1.80";
    project->addStrataElement(L"2", element);
    return project;
}

Results calculated(DBProject& project)
{
    return calculateAll(project, 0);
}

void expectNear(const Results& value, double expected, double tolerance = 1e-6)
{
    ASSERT_TRUE(value.is_number()) << value;
    EXPECT_NEAR(value.get<double>(), expected, tolerance);
}

std::vector<std::string> remarkCells(const Results& sample)
{
    std::vector<std::string> cells;
    for (const Results& remark : sample["remarks"])
        cells.push_back(remark["kind"].get<std::string>() + " " + remark["cell"].get<std::string>());
    return cells;
}

} // namespace

TEST(CalculatedProject, FollowsItsSchema)
{
    const auto project = exampleProject();
    const Results all = calculated(*project);
    EXPECT_EQ(calcSchema().faultsOf(all), std::vector<std::string>());
    EXPECT_EQ(all["samples"].size(), project->getLabSamples().size());
    EXPECT_EQ(all["elements"].size(), project->getStrataElements().size());
    // The test would see a fault.
    Results broken = all;
    broken["samples"][0]["shear"].push_back({{"method", "3"}});
    broken["elements"][0].erase("name");
    EXPECT_EQ(calcSchema().faultsOf(broken).size(), 6U);
    for (const char* section : {"soundings", "piles", "subsidence", "chemistry"})
        ASSERT_FALSE(all[section].empty()) << section;
    broken = all;
    broken["soundings"][0]["layers"][0]["qcMPa"]["n"] = 2.5;
    broken["piles"][0]["points"][0].erase("sideKN");
    broken["subsidence"][0]["type"] = "III";
    broken["chemistry"][0]["concrete"]["W4"]["class"] = "bad";
    EXPECT_EQ(calcSchema().faultsOf(broken).size(), 4U);
}

TEST(CalculatedProject, OneSampleWithAllItsTests)
{
    const auto project = loamProject();
    project->addLabSample({L"Скв-1", L"1.0"}, loamSample());
    const Results all = calculated(*project);
    const Results& sample = all["samples"][0];
    EXPECT_EQ(sample["element"], "1"); // at the boundary the upper layer
    expectNear(sample["physical"]["6"], .693052);
    expectNear(sample["physical"]["12"], 12.4);
    EXPECT_EQ(sample["soil"], "Суглинок полутвердый");
    EXPECT_EQ(sample["soilClass"], 6);
    EXPECT_EQ(calculateAll(*project, 1)["samples"][0]["soil"], "Суглинок напівтвердий");
    expectNear(sample["grading"]["d10"], .084090);
    const Results& test = sample["compression"][0];
    EXPECT_EQ(test["heightMm"], 20.0);
    expectNear(test["intervals"][1]["beta"], .6);
    expectNear(test["collapse"]["naturalStressMPa"], .1, 1e-12);
    expectNear(test["collapse"]["initialPressureMPa"], .105111);
    expectNear(test["collapse"]["rows"][4]["relative"], .032258);
    EXPECT_EQ(sample["shear"][0]["n"], 3);
    expectNear(sample["shear"][0]["tanPhi"], .36);
    expectNear(sample["swelling"]["free"], .092);
    expectNear(sample["swelling"]["pressureMPa"], .175);
    EXPECT_TRUE(sample["remarks"].empty()) << sample["remarks"];
}

TEST(CalculatedProject, StressInPlaceByTheLayersAbove)
{
    const auto project = loamProject();
    LabSample sample = loamSample();
    sample.compression[23].numbers = {};
    project->addLabSample({L"Скв-1", L"3.0"}, sample);
    // One metre of an element without density.
    EXPECT_TRUE(
        calculated(*project)["samples"][0]["compression"][0]["collapse"]["naturalStressMPa"].is_null());
    EXPECT_TRUE(calculated(*project)["samples"][0]["compression"][0]["collapse"]["rows"].empty());
    project->getStrataElements().find(L"1")->second.texts[element_text::DensityNormative] = L"1.60";
    // The typed density counts, not the sample's own 1.94.
    expectNear(calculated(*project)["samples"][0]["compression"][0]["collapse"]["naturalStressMPa"],
        (1.60 * 1 + 1.80 * 2) * 9.81 / 1000);
    EXPECT_EQ(calculated(*project)["samples"][0]["compression"][0]["heightMm"], 25.0);
}

TEST(CalculatedProject, BadCellsAreMarkedAndPretendNothing)
{
    const auto project = loamProject();
    LabSample sample = loamSample();
    sample.physical[0].value = L"21.2"; // per cent
    sample.physical[2].value = L"1.2.3";
    sample.grading[17] = L"33";
    sample.shear[3][0].value = L"-0.063";
    sample.compression[23].cells[3].textA = L"0.15"; // less than under the load before
    sample.swelling[1].id = 1;
    sample.shrinkage = {{1, {L"1", L"5.0", L"2.5", L"-96", L"", L"0.28"}}};
    project->addLabSample({L"Скв-1", L"3.0"}, sample);
    const Results made = calculated(*project)["samples"][0];
    EXPECT_EQ(remarkCells(made),
        (std::vector<std::string>{"missing physical/2",
            "impossible shear/3/7",
            "impossible physical/0",
            "impossible grading",
            "impossible compression/23/12",
            "missing compression/23/0",
            "impossible swelling/1",
            "impossible shrinkage/1"}));
    EXPECT_FALSE(made["physical"].contains("5"));
    EXPECT_FALSE(made["physical"].contains("13"));
    EXPECT_TRUE(made["grading"]["d50"].is_null());
    EXPECT_TRUE(made["shear"][0]["tanPhi"].is_null());
    EXPECT_TRUE(made["compression"][0]["intervals"][2]["modulusMPa"].is_null());
    EXPECT_TRUE(made["swelling"]["free"].is_null());
    EXPECT_EQ(calcSchema().faultsOf(calculated(*project)), std::vector<std::string>());
}

TEST(CalculatedProject, ElementsLeaveOutByRuleAndByHand)
{
    const auto project = loamProject();
    const double densities[] = {1.92, 1.95, 1.89, 1.97, 1.93, 1.90, 1.94, 1.96, 1.91, 1.93};
    for (int i = 0; i < 10; ++i) {
        LabSample sample;
        sample.physical = {{1, true, numberText(densities[i], 2)}};
        project->addLabSample({L"Скв-1", numberText(2 + .1 * i, 1)}, sample);
    }
    LabSample wild;
    wild.physical = {{1, true, L"2.31"}};
    project->addLabSample({L"Скв-1", L"4.0"}, wild);
    wild.physical = {{1, false, L"1.91"}};
    project->addLabSample({L"Скв-1", L"4.1"}, wild);
    const Results property = calculated(*project)["elements"][1]["properties"]["1"];
    EXPECT_EQ(property["n"], 10);
    expectNear(property["deviation"], .025820);
    expectNear(property["levels"]["0.85"]["lower"], 1.92102, 5e-6);
    expectNear(property["levels"]["0.85"]["upper"], 1.93898, 5e-6);
    ASSERT_EQ(property["excluded"].size(), 2U);
    EXPECT_EQ(property["excluded"][0]["by"], "rule");
    EXPECT_EQ(property["excluded"][0]["depth"], "4.0");
    EXPECT_EQ(property["excluded"][1]["by"], "hand");
    wild.physical = {{1, true, L"2.31!"}};
    project->getLabSamples().find({L"Скв-1", L"4.0"})->second = wild;
    EXPECT_EQ(calculated(*project)["elements"][1]["properties"]["1"]["n"], 11);
}

TEST(CalculatedProject, ShearOfAnElementBothWays)
{
    const auto project = loamProject();
    const double cohesions[] = {.026, .022, .031, .024, .019, .028};
    for (int i = 0; i < 6; ++i) {
        LabSample sample;
        for (const auto& [id, stress] : {std::pair(7, .1), std::pair(15, .2), std::pair(19, .3)})
            sample.shear[3].push_back({id, numberText(cohesions[i] + .36 * stress, 4)});
        // Fewer tests of another method do not mix in.
        if (i < 5)
            sample.shear[1] = {{7, L"0.5"}, {15, L"0.6"}, {19, L"0.7"}};
        project->addLabSample({L"Скв-1", numberText(2 + .1 * i, 1)}, sample);
    }
    Results shear = calculated(*project)["elements"][1]["shear"];
    EXPECT_EQ(shear["partial"]["tanPhi"]["n"], 6);
    expectNear(shear["partial"]["tanPhi"]["mean"], .36);
    expectNear(shear["partial"]["cohesionMPa"]["levels"]["0.95"]["lower"], .02148, 5e-6);
    EXPECT_EQ(shear["joint"]["n"], 18);
    expectNear(shear["joint"]["cohesionMPa"]["mean"], .025, 1e-9);
    project->getLabSamples().begin()->second.shear[3].push_back({255, L"-"});
    shear = calculated(*project)["elements"][1]["shear"];
    EXPECT_EQ(shear["method"], 1); // five of each now
    EXPECT_EQ(shear["partial"]["tanPhi"]["n"], 5);
}

TEST(CalculatedProject, NoProjectMakesItFail)
{
    for (const char* name : {"PORTADOWN.TLX", "LURGAN.TLX", "ALLNUM.TLX", "ALLTEXT.TLX"}) {
        const auto project = openBytes(sampleBytes(name));
        EXPECT_EQ(calcSchema().faultsOf(calculated(*project)), std::vector<std::string>()) << name;
    }
    const auto nothing = makeReference<DBProject>();
    EXPECT_TRUE(calculated(*nothing)["samples"].empty());
}
