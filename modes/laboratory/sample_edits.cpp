#include "laboratory/sample_edits.h"

#include "common/mode_screen.h"
#include "core/base/typed_number.h"
#include "db/exact_key.h"

#include <algorithm>
#include <exception>
#include <utility>

static void putSamples(IDBProject& project, const SampleStates& states)
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

SampleStore::SampleStore(ModeScreen& screen)
    : screen_(screen)
{
}

void SampleStore::change(SampleStates before, SampleStates after)
{
    if (after.empty())
        return;
    const auto put = [changed = changed_](IDBProject& project, const SampleStates& states) {
        putSamples(project, states);
        if (changed->isInSight)
            for (const SampleState& state : states)
                changed->keys.push_back(state.key);
    };
    screen_.change<SampleStates>(put, std::move(before), std::move(after));
}

void SampleStore::setInSight(bool isInSight)
{
    changed_->isInSight = isInSight;
    changed_->keys.clear();
}

std::optional<std::vector<PointDepthKey>> SampleStore::takeChanged()
{
    std::vector<PointDepthKey> keys = std::exchange(changed_->keys, {});
    if (keys.empty())
        return std::nullopt;
    return keys;
}

const LabSample* findSample(IDBProject& project, const PointDepthKey& key)
{
    LabSampleRegister& samples = project.getLabSamples();
    const auto place = findExact(samples, key);
    return place == samples.end() ? nullptr : &place->second;
}

int greatestNumber(IDBProject& project)
{
    int number = 0;
    for (const auto& [key, sample] : project.getLabSamples())
        number = std::max(number, sample.number);
    return number;
}

LabSample blankSample(IDBProject& project, int number)
{
    LabSample sample;
    sample.number = number;
    sample.code = std::to_wstring(number);
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
