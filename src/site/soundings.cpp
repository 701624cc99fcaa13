#include "site/soundings.h"

#include "modules/idbproject.h"
#include "site/by_point.h"
#include "site/cells.h"
#include "site/element_links.h"
#include "site/points.h"

#include <algorithm>
#include <cmath>
#include <cwctype>
#include <limits>

namespace
{

constexpr double sameDepth = 1e-9;
// No probe of the field reaches further; beyond, somebody typed kPa for MPa.
constexpr double greatestTip = 100.0;
constexpr double greatestSleeve = 1500.0;

void remark(Remarks& remarks, Remark::Kind kind, std::size_t row, int cell, std::wstring text)
{
    remarks.push_back(
        {kind, "sounding/" + std::to_string(row) + '/' + std::to_string(cell), std::move(text)});
}

bool isWritten(std::wstring_view text)
{
    return text.find_first_not_of(L" \t\u00A0") != std::wstring_view::npos;
}

Number reading(
    const SoundingRow& row, std::size_t cell, double greatest, std::size_t number, Remarks& remarks)
{
    const std::wstring& text = row.cells[cell];
    const CellNumber read = readCellNumber(text);
    const int column = static_cast<int>(cell) + 1;
    if (!read.value && isWritten(text))
        remark(remarks, Remark::Impossible, number, column, L"Не число: отсчет пропущен");
    if (!read.value || read.isLeftOut)
        return std::nullopt;
    if (*read.value < 0.0) {
        remark(remarks, Remark::Impossible, number, column, L"Сопротивление не может быть отрицательным");
        return std::nullopt;
    }
    if (*read.value > greatest)
        remark(remarks, Remark::Doubtful, number, column, L"Слишком большое значение: проверьте единицы");
    return read.value;
}

// The borehole that lends its layers: the point's own, else the nearest by coordinates. A pit, which is
// shallow, lends them only where no borehole does.
const SiteLayers::Point* neighbourOf(std::wstring_view point,
    const SitePoint* place,
    const SiteLayers& layers,
    const std::unordered_map<std::wstring_view, const SitePoint*>& places)
{
    if (const SiteLayers::Point* own = layers.find(point); own && !own->layers.empty())
        return own;
    if (!place || !place->x || !place->y)
        return nullptr;
    const SiteLayers::Point* nearest = nullptr;
    double least = std::numeric_limits<double>::infinity();
    bool isBorehole = false;
    for (const SiteLayers::Point& candidate : layers.points()) {
        const auto found = places.find(candidate.name);
        if (candidate.layers.empty() || found == places.end() || !found->second->x || !found->second->y)
            continue;
        const double distance = std::hypot(*found->second->x - *place->x, *found->second->y - *place->y);
        const bool isBetterKind = found->second->kind == PointKind::Borehole && !isBorehole;
        if (isBorehole && found->second->kind != PointKind::Borehole)
            continue;
        if (distance < least || isBetterKind) {
            least = distance;
            isBorehole = found->second->kind == PointKind::Borehole;
            nearest = &candidate;
        }
    }
    return nearest;
}

// The borehole's layers in depths of the sounding: boundaries lie on one mark where both have one. The first
// begins at the sounding's own mouth.
std::vector<SoundingLayer> lentLayers(const SiteLayers::Point& borehole, const Number& mark)
{
    const Number boreholeMark = readNumber(borehole.markText);
    const double shift = mark && boreholeMark ? *mark - *boreholeMark : 0.0;
    std::vector<SoundingLayer> lent;
    for (const SiteLayer& layer : borehole.layers) {
        const double to = layer.bottom + shift;
        if (to <= sameDepth)
            continue;
        const double from = lent.empty() ? 0.0 : layer.top + shift;
        lent.push_back({from, to, layer.element, layer.index, 0, 0});
    }
    return lent;
}

// Cuts the lent layers where the journal names elements of its own.
std::vector<SoundingLayer> cutByJournal(
    const std::vector<SoundingReading>& readings, const std::vector<SoundingLayer>& lent)
{
    if (std::ranges::all_of(readings, [](const SoundingReading& r) { return r.element.empty(); }))
        return lent;
    std::vector<SoundingLayer> cut;
    const auto addLent = [&](double from, double to) {
        for (SoundingLayer layer : lent) {
            layer.from = std::max(layer.from, from);
            layer.to = std::min(layer.to, to);
            if (layer.to - layer.from > sameDepth)
                cut.push_back(layer);
        }
    };
    double reached = 0.0;
    for (std::size_t i = 0; i < readings.size();) {
        std::size_t end = i + 1;
        while (end < readings.size() && readings[end].element == readings[i].element)
            ++end;
        const bool isLast = end == readings.size();
        const double to = readings[end - 1].depth;
        if (readings[i].element.empty())
            addLent(reached, isLast ? std::numeric_limits<double>::infinity() : to);
        else if (to - reached > sameDepth)
            cut.push_back({reached, to, readings[i].element, {}, 0, 0});
        reached = to;
        if (isLast && !readings[i].element.empty())
            addLent(reached, std::numeric_limits<double>::infinity());
        i = end;
    }
    return cut;
}

// Which readings lie in each layer; layers without any are dropped.
std::vector<SoundingLayer> filled(
    const std::vector<SoundingLayer>& layers, const std::vector<SoundingReading>& readings)
{
    const auto below = [&](double depth) {
        const auto place = std::ranges::find_if(
            readings, [&](const SoundingReading& r) { return r.depth > depth + sameDepth; });
        return static_cast<std::size_t>(place - readings.begin());
    };
    std::vector<SoundingLayer> result;
    for (SoundingLayer layer : layers) {
        layer.first = below(layer.from);
        layer.last = below(layer.to);
        if (layer.first < layer.last)
            result.push_back(layer);
    }
    return result;
}

// Small letters with one spelling of "ё".
std::wstring folded(std::wstring_view text)
{
    std::wstring small;
    for (wchar_t c : text) {
        if (c >= L'А' && c <= L'Я')
            c = static_cast<wchar_t>(c + (L'а' - L'А'));
        else if (c == L'Ё' || c == L'ё')
            c = L'е';
        else if (c == L'І')
            c = L'і';
        small += c;
    }
    return small;
}

struct Word {
    std::wstring_view stem;
    int value;
};

// The first row whose stem the name holds; rows with a longer word stand before the word in them.
template <std::size_t Size>
int valueIn(const std::wstring& name, const Word (&words)[Size])
{
    for (const Word& word : words)
        if (name.find(word.stem) != std::wstring::npos)
            return word.value;
    return 0;
}

constexpr Word kindWords[] = {
    {L"супес", SoundedSoil::SandyLoam},
    {L"супіс", SoundedSoil::SandyLoam},
    {L"суглин", SoundedSoil::Loam},
    {L"глин", SoundedSoil::Clay},
    {L"пес", SoundedSoil::Sand},
    {L"піс", SoundedSoil::Sand},
};
constexpr Word grainWords[] = {
    {L"гравелист", SoundedSoil::Gravelly},
    {L"гравіїст", SoundedSoil::Gravelly},
    {L"средней крупности", SoundedSoil::Medium},
    {L"средней крупн", SoundedSoil::Medium},
    {L"середньої крупн", SoundedSoil::Medium},
    {L"крупн", SoundedSoil::Coarse},
    {L"великий", SoundedSoil::Coarse},
    {L"мелк", SoundedSoil::Fine},
    {L"дрібн", SoundedSoil::Fine},
    {L"мілк", SoundedSoil::Fine},
    {L"пылеват", SoundedSoil::Silty},
    {L"пилуват", SoundedSoil::Silty},
};
constexpr Word wetnessWords[] = {
    {L"маловлажн", SoundedSoil::NotSaturated},
    {L"малой степени", SoundedSoil::NotSaturated},
    {L"средней степени", SoundedSoil::NotSaturated},
    {L"малого ступен", SoundedSoil::NotSaturated},
    {L"середнього ступен", SoundedSoil::NotSaturated},
    {L"водонасыщ", SoundedSoil::Saturated},
    {L"водонасич", SoundedSoil::Saturated},
    {L"насыщенн", SoundedSoil::Saturated},
    {L"насичен", SoundedSoil::Saturated},
    {L"влажн", SoundedSoil::NotSaturated},
    {L"волог", SoundedSoil::NotSaturated},
};
constexpr Word stateWords[] = {
    {L"полутверд", SoundedSoil::SemiHard},
    {L"напівтверд", SoundedSoil::SemiHard},
    {L"тугопластич", SoundedSoil::StiffPlastic},
    {L"мягкопластич", SoundedSoil::SofterState},
    {L"м'якопластич", SoundedSoil::SofterState},
    {L"текуч", SoundedSoil::SofterState},
    {L"текуче", SoundedSoil::SofterState},
    {L"плинн", SoundedSoil::SofterState},
    {L"тверд", SoundedSoil::Hard},
    {L"пластич", SoundedSoil::SofterState},
};

const StrataElement* elementOf(IDBProject& project, std::wstring_view element)
{
    for (const auto& [name, value] : project.getStrataElements())
        if (name == element)
            return &value;
    return nullptr;
}

} // namespace

std::vector<SoundingReading> soundingReadings(const std::vector<SoundingRow>& rows, Remarks& remarks)
{
    std::vector<SoundingReading> readings;
    readings.reserve(rows.size());
    for (std::size_t i = 0; i < rows.size(); ++i) {
        const SoundingRow& row = rows[i];
        const Number depth = readNumber(row.depth);
        if (!depth || *depth < 0.0) {
            remark(remarks, Remark::Impossible, i, 0, L"Глубина не читается: строка пропущена");
            continue;
        }
        if (!readings.empty() && *depth <= readings.back().depth)
            remark(remarks, Remark::Doubtful, i, 0, L"Глубина не больше предыдущей");
        std::wstring_view element = row.cells[sounding_cell::Element];
        if (!isWritten(element))
            element = {};
        readings.push_back({*depth,
            reading(row, sounding_cell::Tip, greatestTip, i, remarks),
            reading(row, sounding_cell::Sleeve, greatestSleeve, i, remarks),
            reading(row, sounding_cell::Side, 1e9, i, remarks),
            element,
            i});
    }
    std::ranges::stable_sort(readings, {}, &SoundingReading::depth);
    return readings;
}

static std::unordered_map<std::wstring_view, const SitePoint*> placesOf(const std::vector<SitePoint>& points)
{
    std::unordered_map<std::wstring_view, const SitePoint*> places;
    for (const SitePoint& point : points)
        places.try_emplace(point.name, &point);
    return places;
}

SiteSoundings::SiteSoundings(IDBProject& project)
    : points_(std::make_shared<const std::vector<SitePoint>>(sitePoints(project)))
    , layers_(project)
{
    const Places places = placesOf(*points_);
    for (const auto* journal : inReadingOrder(project.getSoundings()))
        add(project, *journal, places);
}

// Layers of other points are needed where it has none of its own.
static SiteLayers layersAround(IDBProject& project, std::wstring_view point)
{
    SiteLayers own(project, point);
    const SiteLayers::Point* found = own.find(point);
    return found && !found->layers.empty() ? own : SiteLayers(project);
}

SiteSoundings::SiteSoundings(IDBProject& project, std::wstring_view point)
    : points_(std::make_shared<const std::vector<SitePoint>>(sitePoints(project)))
    , layers_(layersAround(project, point))
{
    const Places places = placesOf(*points_);
    for (const auto& journal : project.getSoundings())
        if (journal.first.pointName == point)
            add(project, journal, places);
}

void SiteSoundings::add(
    IDBProject& project, const SoundingRegister::value_type& journal, const Places& places)
{
    const auto& [key, rows] = journal;
    SiteSounding sounding;
    sounding.point = key.pointName;
    sounding.device = key.device;
    sounding.date = key.date;
    const auto place = places.find(key.pointName);
    sounding.place = place == places.end() ? nullptr : place->second;
    sounding.readings = soundingReadings(rows, sounding.remarks);
    const SiteLayers::Point* borehole = neighbourOf(key.pointName, sounding.place, layers_, places);
    std::vector<SoundingLayer> lent;
    if (borehole) {
        sounding.borehole = borehole->name;
        lent = lentLayers(*borehole, sounding.place ? sounding.place->mark : std::nullopt);
    } else if (!sounding.readings.empty()) {
        sounding.remarks.push_back(
            {Remark::Missing, "sounding", L"Нет соседней скважины со слоями и координатами"});
    }
    std::vector<SoundingLayer> shaft = cutByJournal(sounding.readings, lent);
    for (SoundingLayer& layer : shaft)
        if (const StrataElement* element = elementOf(project, layer.element))
            if (!element->texts[element_text::GeologicalIndex].empty())
                layer.index = element->texts[element_text::GeologicalIndex];
    sounding.layers = filled(shaft, sounding.readings);
    soundings_.push_back(std::move(sounding));
    shafts_.push_back(std::move(shaft));
}

const SiteSounding* SiteSoundings::find(std::wstring_view point) const
{
    const auto found = std::ranges::find(soundings_, point, &SiteSounding::point);
    return found == soundings_.end() ? nullptr : &*found;
}

std::vector<SoundingLayer> SiteSoundings::shaft(const SiteSounding& sounding) const
{
    for (std::size_t i = 0; i < soundings_.size(); ++i)
        if (&soundings_[i] == &sounding)
            return shafts_[i];
    return {};
}

SoundingLayerResult layerResult(IDBProject& project, const SiteSounding& sounding, const SoundingLayer& layer)
{
    std::vector<Number> tips;
    std::vector<Number> sleeves;
    for (std::size_t i = layer.first; i < layer.last; ++i) {
        tips.push_back(sounding.readings[i].tip);
        sleeves.push_back(sounding.readings[i].sleeve);
    }
    SoundingLayerResult result;
    result.tip = spreadOf(std::span<const Number>(tips));
    result.sleeve = spreadOf(std::span<const Number>(sleeves));
    if (!result.tip.mean)
        return result;
    const SoundedSoil soil = soundedSoil(project, layer.element, layer.index);
    result.properties = soundedProperties(soil, *result.tip.mean, (layer.from + layer.to) / 2.0);
    if (soil.kind != SoundedSoil::Sand)
        result.liquidity = liquidityBySounding(result.tip.mean, result.sleeve.mean);
    return result;
}

SoundedSoil soundedSoilNamed(int kind, std::wstring_view name)
{
    const std::wstring words = folded(name);
    SoundedSoil soil;
    if (kind >= SoundedSoil::Sand && kind <= SoundedSoil::Clay)
        soil.kind = static_cast<SoundedSoil::Kind>(kind);
    else if (kind > SoundedSoil::Clay)
        soil.kind = SoundedSoil::OtherKind;
    else
        soil.kind = static_cast<SoundedSoil::Kind>(valueIn(words, kindWords));
    if (soil.kind == SoundedSoil::Sand) {
        soil.grain = static_cast<SoundedSoil::Grain>(valueIn(words, grainWords));
        soil.wetness = static_cast<SoundedSoil::Wetness>(valueIn(words, wetnessWords));
    } else {
        soil.state = static_cast<SoundedSoil::State>(valueIn(words, stateWords));
    }
    return soil;
}

SoundedSoil soundedSoil(IDBProject& project, std::wstring_view element, std::wstring_view index)
{
    if (element.empty())
        return {};
    const StrataElement* found = elementOf(project, element);
    SoundedSoil soil =
        soundedSoilNamed(found ? found->code : 0, elementName(project.getNumberedLinks(), element));
    if (found && !found->texts[element_text::GeologicalIndex].empty())
        index = found->texts[element_text::GeologicalIndex];
    soil.isAlluvial = index.starts_with(L'a');
    return soil;
}

PileSoil pileSoil(IDBProject& project, std::wstring_view element)
{
    if (element.empty())
        return PileSoil::Unknown;
    for (const auto& [name, flag] : project.getSoundingFlags())
        if (name == element && flag >= 1 && flag <= 4)
            return static_cast<PileSoil>(flag);
    const SoundedSoil soil = soundedSoil(project, element);
    if (soil.kind >= SoundedSoil::Sand && soil.kind <= SoundedSoil::Clay)
        return static_cast<PileSoil>(soil.kind);
    return PileSoil::Unknown;
}
