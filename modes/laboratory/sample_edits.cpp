#include "laboratory/sample_edits.h"

#include "core/base/typed_number.h"
#include "db/exact_key.h"

#include <algorithm>
#include <exception>

void putSamples(IDBProject& project, const SampleStates& states)
{
    LabSampleRegister& samples = project.getLabSamples();
    // What moves leaves its old place first.
    for (const SampleState& state : states)
        if (!state.sample)
            eraseExact(samples, state.key);
    for (const SampleState& state : states) {
        if (!state.sample)
            continue;
        const auto place = findExact(samples, state.key);
        if (place != samples.end())
            place->second = *state.sample;
        else
            project.addLabSample(state.key, *state.sample);
    }
}

const LabSample* findSample(IDBProject& project, const PointDepthKey& key)
{
    LabSampleRegister& samples = project.getLabSamples();
    const auto place = findExact(samples, key);
    return place == samples.end() ? nullptr : &place->second;
}

LabSample newSample(IDBProject& project)
{
    LabSample sample;
    for (const auto& [key, other] : project.getLabSamples())
        sample.number = std::max(sample.number, other.number);
    ++sample.number;
    sample.code = std::to_wstring(sample.number);
    for (PropertyCell cell : project.getPhysicalTemplate()) {
        cell.value.clear();
        sample.physical.push_back(cell);
    }
    return sample;
}

std::wstring refusalOf(IDBProject& project, const PointDepthKey& key)
{
    if (key.pointName.empty())
        return L"Не указана точка";
    if (!readNumber(key.depth))
        return L"Глубина отбора не число";
    try {
        LabSampleRegister& samples = project.getLabSamples();
        if (findExact(samples, key) != samples.end())
            return L"Проба этой точки с этой глубины уже есть";
        if (samples.find(key) != samples.end())
            return L"Реестр читает это имя или глубину так же, как у другой пробы";
        // The register compares nothing while it is empty; the key must bear a comparison all the same.
        static_cast<void>(PointDepthOrder()(key, key));
    } catch (const std::exception&) {
        return L"Такое имя или глубину реестр не примет";
    }
    return {};
}
