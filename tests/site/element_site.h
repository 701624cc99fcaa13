#pragma once

#include "core/base/reference.h"
#include "db/db_project.h"
#include "site/cells.h"

#include <string>
#include <vector>

// A site with the worked examples of the statistics: the layer down to 10 m of С-1 is the element 1.
inline Reference<DBProject> siteOfOneElement(ElementKind kind = ElementKind::Loam)
{
    auto project = makeReference<DBProject>();
    project->setGranGost(1);
    project->addLithology({L"С-1", L"10"}, {L"aQ_III", L"Суглинок тугопластичный"});
    StrataElement element;
    element.code = static_cast<std::int32_t>(kind);
    project->addStrataElement(L"1", element);
    project->addNumberedLink(L"С-1:1", L"1");
    return project;
}

inline LabSample& sampleAt(DBProject& project, std::size_t number)
{
    const PointDepthKey key{L"С-1", L"1." + std::to_wstring(number + 10)};
    project.addLabSample(key, {});
    return project.getLabSamples().find(key)->second;
}

// Ten densities: mean 1.93, design values 1.92102 and 1.91506.
inline void addDensities(DBProject& project)
{
    std::size_t number = 0;
    for (const wchar_t* density :
        {L"1.92", L"1.95", L"1.89", L"1.97", L"1.93", L"1.90", L"1.94", L"1.96", L"1.91", L"1.93"})
        sampleAt(project, number++).physical.push_back({1, true, density});
}

// Six shear tests of method 3 whose lines are tan(phi) .360 .384 .349 .373 .395 .368 and c 26 22 31 24 19 28
// kPa.
inline void addShearTests(DBProject& project)
{
    const struct {
        double tanPhi;
        double cohesion;
    } tests[] = {{.360, .026}, {.384, .022}, {.349, .031}, {.373, .024}, {.395, .019}, {.368, .028}};
    std::size_t number = 0;
    for (const auto& [tanPhi, cohesion] : tests) {
        std::vector<ShearCell>& cells = sampleAt(project, number++).shear[3];
        for (const auto& [load, stress] : {std::pair(7, .1), std::pair(15, .2), std::pair(19, .3)})
            cells.push_back({load, numberText(cohesion + stress * tanPhi, 6)});
    }
}

// One sample of each quantity that void ratio .693052 and liquidity .193548 follow from.
inline void addLoam(DBProject& project)
{
    sampleAt(project, 0).physical = {{0, true, L"0.212"},
        {1, true, L"1.94"},
        {2, true, L"2.71"},
        {3, true, L"0.312"},
        {4, true, L"0.188"}};
}
