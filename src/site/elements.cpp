#include "site/elements.h"

#include "modules/idbproject.h"
#include "site/cells.h"
#include "site/layers.h"
#include "site/soil_in_place.h"

#include <algorithm>
#include <set>
#include <string>
#include <unordered_map>

namespace
{

bool isDerived(int property)
{
    return property >= firstDerivedProperty && property <= lastDerivedProperty;
}

// Of which the other physical properties of an element follow.
bool isMeanWanted(int property)
{
    return property >= 0 && property < firstDerivedProperty;
}

// Samples of elements, by the exact name of the element.
using ElementPlaces = std::unordered_map<std::wstring_view, std::size_t>;

using ElementRecords = std::unordered_map<std::wstring_view, const StrataElement*>;

int kindOf(const ElementRecords& records, std::wstring_view name)
{
    const auto found = records.find(name);
    return found == records.end() ? 0 : found->second->code;
}

// The method with most tests, the lower of equal ones; tests that gave a result come first.
template <class Counts>
int busiest(const Counts& counts)
{
    int best = 0;
    std::size_t most = 0;
    for (const auto& [method, count] : counts)
        if (count > most) {
            most = count;
            best = method;
        }
    return best;
}

const ShearInput* inputOf(const SiteSample& sample, int method)
{
    for (const ShearInput& input : sample.result.input.shear)
        if (input.method == method)
            return &input;
    return nullptr;
}

int methodOf(const std::vector<SiteSample>& samples, const std::vector<std::size_t>& taken)
{
    std::map<int, std::size_t> results;
    std::map<int, std::size_t> readings;
    for (const std::size_t place : taken)
        for (const ShearResult& test : samples[place].result.shear) {
            if (test.isLeftOut)
                continue;
            if (test.fit.tanPhi)
                ++results[test.method];
            if (test.fit.points > 0)
                ++readings[test.method];
        }
    return busiest(results.empty() ? readings : results);
}

void addJointPoints(const SiteSample& sample,
    std::size_t place,
    int method,
    std::vector<JointPoint>& points,
    ElementShear& shear)
{
    const ShearInput* input = inputOf(sample, method);
    if (!input || input->isImpossible)
        return;
    for (const ShearReading& reading : input->readings) {
        points.push_back({reading.point.normalStress,
            reading.point.resistance,
            input->isLeftOut || reading.isLeftOut,
            input->isKept || reading.isKept});
        shear.points.push_back({place, reading.point});
    }
}

ElementStatistics statisticsWith(
    std::vector<ElementValue> values, const std::vector<Determination>& determinations)
{
    ElementStatistics result;
    result.statistics = statisticsOf(determinations);
    result.values = std::move(values);
    for (std::size_t i = 0; i < result.values.size(); ++i)
        result.values[i].excluded = result.statistics.excluded[i];
    return result;
}

} // namespace

bool hasCollapseTest(const LabSample& sample)
{
    return std::any_of(std::begin(collapseTests), std::end(collapseTests), [&](int test) {
        return sample.compression.contains(static_cast<std::uint8_t>(test));
    });
}

static bool knowsCollapse(IDBProject& project)
{
    const auto& samples = project.getLabSamples();
    return !project.getSubsidence().empty()
        || std::any_of(
            samples.begin(), samples.end(), [](const auto& entry) { return hasCollapseTest(entry.second); });
}

SiteLaboratory::SiteLaboratory(IDBProject& project, int language, Extent extent)
    : extent_(extent)
{
    if (extent == Extent::Collapse && !knowsCollapse(project))
        return;
    const SiteLayers layers(project);
    computeSamples(project, language, layers);
    computeElements(project);
    computeStresses(layers);
}

const SiteElement* SiteLaboratory::element(std::wstring_view name) const
{
    const auto found = std::find_if(
        elements_.begin(), elements_.end(), [&](const SiteElement& each) { return each.name == name; });
    return found == elements_.end() ? nullptr : &*found;
}

void SiteLaboratory::computeSamples(IDBProject& project, int language, const SiteLayers& layers)
{
    ElementRecords records;
    for (const auto& [name, record] : project.getStrataElements())
        records.try_emplace(name, &record);
    const std::optional<GrainScale> scale = grainScaleOf(project);
    SoilClassifier classifier(project, language);
    samples_.reserve(project.getLabSamples().size());
    for (const auto& [key, sample] : project.getLabSamples()) {
        SiteSample made;
        made.key = &key;
        made.sample = &sample;
        made.depth = readNumber(key.depth);
        if (const SiteLayer* layer = made.depth ? layers.layerAt(key.pointName, *made.depth) : nullptr)
            made.element = layer->element;
        if (extent_ == Extent::Everything || hasCollapseTest(sample))
            made.result = sampleResult(sample,
                project.getLabTriple(),
                scale.value_or(GrainScale::Above200),
                kindOf(records, made.element));
        if (scale && extent_ == Extent::Everything)
            made.soil = nameSoil(classifier.ground(), sample, made.result, *scale, language);
        samples_.push_back(std::move(made));
    }
}

void SiteLaboratory::computeElements(IDBProject& project)
{
    ElementPlaces places;
    for (const auto& [name, record] : project.getStrataElements()) {
        places.try_emplace(name, elements_.size());
        SiteElement element;
        element.name = name;
        element.record = &record;
        elements_.push_back(std::move(element));
    }
    for (std::size_t i = 0; i < samples_.size(); ++i)
        if (const auto place = places.find(samples_[i].element); place != places.end())
            elements_[place->second].samples.push_back(i);
    for (SiteElement& element : elements_)
        computeStatistics(element);
}

void SiteLaboratory::computeStatistics(SiteElement& element) const
{
    element.properties.clear();
    std::set<int> numbers;
    for (const std::size_t sample : element.samples)
        for (const PropertyCell& cell : samples_[sample].sample->physical)
            if (extent_ == Extent::Everything ? !isDerived(cell.id) : isMeanWanted(cell.id))
                numbers.insert(cell.id);
    for (const int number : numbers) {
        ElementStatistics statistics = propertyStatistics(samples_, element.samples, number);
        if (!statistics.values.empty())
            element.properties.emplace(number, std::move(statistics));
    }
    const auto meanOf = [&](int number) {
        const auto found = element.properties.find(number);
        return found == element.properties.end() ? Number() : found->second.statistics.mean;
    };
    PhysicalInput means;
    means.moisture = meanOf(0);
    means.density = meanOf(1);
    means.particleDensity = meanOf(2);
    means.liquidLimit = meanOf(3);
    means.plasticLimit = meanOf(4);
    means.isOrganic = element.record->code == static_cast<std::int32_t>(ElementKind::Organic);
    element.fromMeans = physicalOf(means);
    if (extent_ == Extent::Collapse)
        return;
    element.modulus = modulusStatistics(samples_, element.samples);
    element.shear = shearStatistics(samples_, element.samples);
}

void SiteLaboratory::recompute(IDBProject& project, int language, std::size_t place)
{
    SiteSample& sample = samples_[place];
    const auto owner = std::find_if(elements_.begin(), elements_.end(), [&](const SiteElement& element) {
        return element.name == sample.element;
    });
    const std::optional<GrainScale> scale = grainScaleOf(project);
    sample.result = sampleResult(*sample.sample,
        project.getLabTriple(),
        scale.value_or(GrainScale::Above200),
        owner == elements_.end() ? 0 : owner->record->code);
    if (scale) {
        SoilClassifier classifier(project, language);
        sample.soil = nameSoil(classifier.ground(), *sample.sample, sample.result, *scale, language);
    }
    addCollapse(sample.result, sample.naturalStress);
    if (owner != elements_.end())
        computeStatistics(*owner);
}

void SiteLaboratory::computeStresses(const SiteLayers& layers)
{
    std::unordered_map<std::wstring_view, Number> densities;
    for (const SiteElement& element : elements_)
        densities.try_emplace(element.name, elementDensity(element));
    const auto densityOf = [&](std::wstring_view name) {
        const auto found = densities.find(name);
        return found == densities.end() ? Number() : found->second;
    };
    for (SiteSample& sample : samples_) {
        if (const SiteLayers::Point* point = sample.depth ? layers.find(sample.key->pointName) : nullptr)
            if (const Number stress = stressUnder(point->layers, *sample.depth, densityOf))
                sample.naturalStress = *stress / 1000;
        addCollapse(sample.result, sample.naturalStress);
    }
}

Number elementDensity(const SiteElement& element)
{
    if (const Number typed = readNumber(element.record->texts[element_text::DensityNormative]))
        return typed;
    const auto mean = element.properties.find(1);
    return mean == element.properties.end() ? Number() : mean->second.statistics.mean;
}

std::optional<GrainScale> grainScaleOf(IDBProject& project)
{
    switch (project.getGranGost()) {
    case 0:
        return GrainScale::Above800;
    case 1:
        return GrainScale::Above200;
    default:
        return std::nullopt;
    }
}

ElementStatistics propertyStatistics(
    const std::vector<SiteSample>& samples, const std::vector<std::size_t>& taken, int property)
{
    std::vector<ElementValue> values;
    std::vector<Determination> determinations;
    for (const std::size_t place : taken) {
        const PropertyCell* cell = propertyCell(*samples[place].sample, property);
        const CellNumber number = cell ? readCellNumber(cell->value) : CellNumber();
        if (!number.value)
            continue;
        values.push_back({place, *number.value, ExcludedBy::Nobody});
        determinations.push_back({*number.value, !cell->enabled || number.isLeftOut, number.isKept});
    }
    return statisticsWith(std::move(values), determinations);
}

ElementStatistics modulusStatistics(
    const std::vector<SiteSample>& samples, const std::vector<std::size_t>& taken)
{
    constexpr double from = 0.1; // MPa
    constexpr double to = 0.2;
    std::vector<ElementValue> values;
    std::vector<Determination> determinations;
    for (const std::size_t place : taken)
        for (const CompressionResult& test : samples[place].result.compression) {
            if (mainBranch(test.oedometer) != Branch::Natural)
                continue;
            const Number modulus = intervalOf(test.oedometer, from, to).modulus;
            if (!modulus)
                continue;
            values.push_back({place, *modulus, ExcludedBy::Nobody});
            determinations.push_back({*modulus, test.isLeftOut, test.isKept});
        }
    return statisticsWith(std::move(values), determinations);
}

ElementShear shearStatistics(const std::vector<SiteSample>& samples, const std::vector<std::size_t>& taken)
{
    ElementShear shear;
    shear.method = methodOf(samples, taken);
    if (shear.method == 0)
        return shear;
    std::vector<ShearDetermination> tests;
    std::vector<JointPoint> points;
    for (const std::size_t place : taken) {
        for (const ShearResult& test : samples[place].result.shear)
            if (test.method == shear.method && test.fit.tanPhi) {
                tests.push_back({*test.fit.tanPhi, *test.fit.cohesion, test.isLeftOut, test.isKept});
                shear.tests.push_back(place);
            }
        addJointPoints(samples[place], place, shear.method, points, shear);
    }
    shear.partial = partialShearOf(tests);
    shear.joint = jointShearOf(points);
    return shear;
}
