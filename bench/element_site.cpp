#include "element_site.h"

#include "site/element_edits.h"

#include <string>

namespace
{

constexpr int points = 500;
constexpr int layersOfPoint = 10;
constexpr int samplesOfLayer = 2;

} // namespace

LabSample sampleWithTests(std::mt19937& random)
{
    const auto vary = [&](int value) { return std::to_wstring(value + static_cast<int>(random() % 20)); };
    LabSample sample;
    sample.physical = {{0, true, L"0." + vary(200)},
        {1, true, L"1." + vary(75)},
        {2, true, L"2.70"},
        {3, true, L"0." + vary(300)},
        {4, true, L"0." + vary(180)}};
    sample.grading = {
        {16, L"2"}, {17, L"8"}, {18, L"20"}, {19, L"25"}, {20, L"20"}, {21, L"15"}, {23, L"10"}};
    sample.shear[3] = {{7, L"0.0" + vary(60)}, {15, L"0." + vary(100)}, {19, L"0." + vary(130)}};
    CompressionGroup& group = sample.compression[21];
    int deformation = 0;
    for (const int load : {0, 4, 8, 16, 20, 24}) {
        group.cells.push_back({load, L"0." + std::to_wstring(100 + deformation), L"", L"", 0, L""});
        deformation += 100 + static_cast<int>(random() % 40);
    }
    return sample;
}

Reference<DBProject> siteOfElements(int elements)
{
    auto project = makeReference<DBProject>();
    project->setGranGost(1);
    std::mt19937 random(17);
    for (int element = 1; element <= elements; ++element)
        project->addStrataElement(std::to_wstring(element), {});
    for (int point = 1; point <= points; ++point) {
        const std::wstring name = std::to_wstring(point);
        for (int layer = 1; layer <= layersOfPoint; ++layer) {
            project->addLithology({name, std::to_wstring(layer * 2)}, {L"aQ", L"Суглинок тугопластичный"});
            const int element = (point + layer * (elements / 10)) % elements + 1;
            assignElement(
                project->getNumberedLinks(), name, static_cast<std::size_t>(layer), std::to_wstring(element));
            for (int sample = 0; sample < samplesOfLayer; ++sample)
                project->addLabSample(
                    {name, std::to_wstring(layer * 2 - 1) + L"." + std::to_wstring(sample * 4 + 1)},
                    sampleWithTests(random));
        }
    }
    return project;
}
