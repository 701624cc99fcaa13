#include "site/subsidence.h"

#include "modules/idbproject.h"

#include <algorithm>
#include <cmath>
#include <set>
#include <unordered_map>

namespace
{

constexpr double kilopascals = 1000.0; // in a megapascal
constexpr std::wstring_view foundationKey = L"Фундамент:0";

// Codes of the cells that keep a result, with the decimals in which they are written.
struct Figure {
    int code;
    int decimals;
};
constexpr Figure totalFigure{1, 2};
constexpr Figure boundaryFigure{3, 2};
constexpr Figure pressureFigure{4, 1};
constexpr Figure figures[] = {totalFigure, boundaryFigure, pressureFigure};

// Of a row of a point's layers: from, to, stress, relative subsidence, subsidence.
constexpr int rowDecimals[] = {2, 2, 1, 3, 2};
constexpr std::size_t rowCells = std::size(rowDecimals);

// The samples that were chosen for a point, by their codes; empty: all.
std::set<std::wstring_view> chosenCodes(IDBProject& project, std::wstring_view point)
{
    for (const auto& [name, codes] : project.getSubsidenceNames())
        if (name == point)
            return {codes.begin(), codes.end()};
    return {};
}

const CompressionResult* collapseTest(const SiteSample& sample)
{
    for (const CompressionResult& test : sample.result.compression)
        if (!test.collapse.rows.empty())
            return &test;
    return nullptr;
}

std::vector<CollapsePoint> curveOf(const CompressionResult& test)
{
    std::vector<CollapsePoint> curve;
    for (const CollapseRow& row : test.collapse.rows)
        curve.push_back({row.load * kilopascals, row.relative});
    std::ranges::stable_sort(curve, {}, &CollapsePoint::loadKPa);
    return curve;
}

// Of several samples in a layer the one nearest to its middle stands for it.
void addCurves(SubsidencePoint& made, const std::vector<SiteSample>& samples)
{
    std::vector<Number> distances(made.layers.size());
    for (const std::size_t index : made.samples) {
        const SiteSample& sample = samples[index];
        const SiteLayer* layer = sample.depth ? layerAt(made.layers, *sample.depth) : nullptr;
        if (!layer) {
            made.remarks.push_back({Remark::Missing,
                "samples",
                L"Проба " + sample.sample->code + L" не попадает ни в один слой"});
            continue;
        }
        const auto place = static_cast<std::size_t>(layer - made.layers.data());
        const double distance = std::abs(*sample.depth - (layer->top + layer->bottom) / 2.0);
        if (distances[place] && *distances[place] <= distance)
            continue;
        distances[place] = distance;
        const CompressionResult& test = *collapseTest(sample);
        made.collapsible[place].curve = curveOf(test);
        made.collapsible[place].initialPressureKPa.reset();
        if (test.collapse.initialPressure)
            made.collapsible[place].initialPressureKPa = *test.collapse.initialPressure * kilopascals;
    }
}

// Typed is what differs from the calculated by more than the last decimal that is written.
SubsidenceFigure figureOf(std::wstring_view text, const Number& computed, int decimals)
{
    SubsidenceFigure figure{computed, computed, false};
    const CellNumber kept = readCellNumber(text);
    if (!kept.value || kept.isLeftOut)
        return figure;
    if (computed && std::abs(*kept.value - roundedTo(*computed, decimals)) < 0.5 * std::pow(10.0, -decimals))
        return figure;
    figure.value = *kept.value;
    figure.isTyped = true;
    return figure;
}

std::wstring_view cellOf(IDBProject& project, std::wstring_view point, int code)
{
    const auto found = project.getSubsidence().find(std::wstring(point));
    if (found != project.getSubsidence().end())
        for (const SubsidenceCell& cell : found->second)
            if (cell.code == code)
                return cell.text;
    return {};
}

std::optional<SubsidenceType> typeOfTitle(std::wstring_view title)
{
    if (title.ends_with(L" II"))
        return SubsidenceType::II;
    return title.ends_with(L" I") ? std::optional(SubsidenceType::I) : std::nullopt;
}

const std::vector<std::vector<std::wstring>>* rowsOf(IDBProject& project, std::wstring_view point)
{
    for (const auto& [name, rows] : project.getSubsidenceGroups())
        if (name == point)
            return &rows;
    return nullptr;
}

bool isSameDepth(double a, std::wstring_view text)
{
    const Number b = readNumber(text);
    return b && std::abs(a - *b) < 0.006;
}

bool hasTyped(const std::vector<std::wstring>& row, const SubsidencePart& part, std::size_t cell)
{
    const Number computed = cell == 2 ? part.stressKPa : cell == 3 ? part.relative : part.subsidenceCm;
    return figureOf(row[cell], computed, rowDecimals[cell]).isTyped;
}

// A typed share gives the layer's subsidence anew, a typed subsidence stands as it is.
void putTyped(SubsidencePart& part, std::array<bool, 3>& typed, const std::vector<std::wstring>& row)
{
    for (std::size_t cell = 2; cell < rowCells; ++cell)
        typed[cell - 2] = hasTyped(row, part, cell);
    if (typed[0])
        part.stressKPa = readCellNumber(row[2]).value;
    if (typed[1]) {
        part.relative = readCellNumber(row[3]).value;
        part.subsidenceCm = *part.relative >= leastRelativeSubsidence
            ? *part.relative * (part.toM - part.fromM) * 100.0
            : 0.0;
        typed[2] = hasTyped(row, part, 4);
    }
    if (typed[2])
        part.subsidenceCm = readCellNumber(row[4]).value;
}

void applyTyped(IDBProject& project, SubsidencePoint& made)
{
    made.result = made.computed;
    made.typedParts.assign(made.result.parts.size(), {});
    bool isAny = false;
    if (const auto* rows = rowsOf(project, made.point))
        for (std::vector<std::wstring> row : *rows) {
            row.resize(std::max(row.size(), rowCells));
            const auto part = std::ranges::find_if(made.result.parts, [&](const SubsidencePart& one) {
                return isSameDepth(one.fromM, row[0]) && isSameDepth(one.toM, row[1]);
            });
            if (part == made.result.parts.end()) {
                made.remarks.push_back({Remark::Doubtful,
                    "rows",
                    L"Строка " + row[0] + L"–" + row[1] + L" м не отвечает ни одному слою: не учтена"});
                continue;
            }
            auto& typed = made.typedParts[static_cast<std::size_t>(part - made.result.parts.begin())];
            putTyped(*part, typed, row);
            isAny = isAny || typed[0] || typed[1] || typed[2];
        }
    if (isAny)
        sumUp(made.result);
    const Subsidence& result = made.result;
    const auto figure = [&](const Figure& which, const Number& computed) {
        return figureOf(cellOf(project, made.point, which.code), computed, which.decimals);
    };
    made.totalCm = figure(totalFigure, result.totalCm);
    made.lowerBoundaryM = figure(boundaryFigure, result.lowerBoundaryM);
    made.initialPressureKPa = figure(pressureFigure, result.initialPressureKPa);
    made.type = made.totalCm.isTyped ? std::optional(subsidenceType(*made.totalCm.value)) : result.type;
    const auto kept = project.getSubsidence().find(std::wstring(made.point));
    if (kept == project.getSubsidence().end() || kept->second.empty())
        return;
    if (const auto typed = typeOfTitle(kept->second.front().title); typed && typed != made.type) {
        made.type = typed;
        made.isTypeTyped = true;
    }
}

} // namespace

// A point with its layers in place: what samples and tests make of it.
static void complete(IDBProject& project,
    const SiteLaboratory& laboratory,
    const std::vector<std::size_t>& tested,
    SubsidencePoint& made)
{
    for (const SiteLayer& layer : made.layers) {
        CollapsibleLayer collapsible{layer.top, layer.bottom, {}, {}, {}};
        if (const SiteElement* element = laboratory.element(layer.element))
            collapsible.saturatedDensity = element->fromMeans.saturatedDensity;
        made.collapsible.push_back(std::move(collapsible));
    }
    const std::set<std::wstring_view> codes = chosenCodes(project, made.point);
    const std::vector<SiteSample>& samples = laboratory.samples();
    for (const std::size_t i : tested)
        if (codes.empty() || codes.contains(samples[i].sample->code))
            made.samples.push_back(i);
    addCurves(made, samples);
    made.computed = subsidenceByOwnWeight(made.collapsible);
    made.remarks.insert(made.remarks.end(), made.computed.remarks.begin(), made.computed.remarks.end());
    applyTyped(project, made);
}

SubsidencePoint subsidencePoint(
    IDBProject& project, const SiteLaboratory& laboratory, std::wstring_view point)
{
    SubsidencePoint made;
    made.point = point;
    made.layers = layersOfPoint(project, point);
    const std::vector<SiteSample>& samples = laboratory.samples();
    std::vector<std::size_t> tested;
    for (std::size_t i = 0; i < samples.size(); ++i)
        if (samples[i].key->pointName == point && collapseTest(samples[i]))
            tested.push_back(i);
    complete(project, laboratory, tested, made);
    return made;
}

// The points of the names in turn; layers and samples are gathered once for all of them.
static std::vector<SubsidencePoint> pointsOf(
    IDBProject& project, const SiteLaboratory& laboratory, bool withKept)
{
    std::vector<std::wstring_view> names;
    std::unordered_map<std::wstring_view, std::vector<std::size_t>> tested;
    const std::vector<SiteSample>& samples = laboratory.samples();
    for (std::size_t i = 0; i < samples.size(); ++i)
        if (collapseTest(samples[i])) {
            std::vector<std::size_t>& own = tested[samples[i].key->pointName];
            if (own.empty())
                names.push_back(samples[i].key->pointName);
            own.push_back(i);
        }
    if (withKept)
        for (const auto& [name, cells] : project.getSubsidence())
            if (!tested.contains(name))
                names.push_back(name);
    std::vector<SubsidencePoint> points(names.size());
    if (names.empty())
        return points;
    const SiteLayers layers(project);
    for (std::size_t i = 0; i < names.size(); ++i) {
        points[i].point = names[i];
        if (const SiteLayers::Point* found = layers.find(names[i]))
            points[i].layers = found->layers;
        complete(project, laboratory, tested[names[i]], points[i]);
    }
    return points;
}

std::vector<SubsidencePoint> subsidencePoints(IDBProject& project, const SiteLaboratory& laboratory)
{
    return pointsOf(project, laboratory, false);
}

std::vector<SubsidencePoint> allSubsidencePoints(IDBProject& project, const SiteLaboratory& laboratory)
{
    return pointsOf(project, laboratory, true);
}

SubsidenceState subsidenceState(IDBProject& project)
{
    return {project.getSubsidence(), project.getSubsidenceNames(), project.getSubsidenceGroups()};
}

void setSubsidenceState(IDBProject& project, const SubsidenceState& state)
{
    project.setSubsidence(state.results);
    project.getSubsidenceNames() = state.samples;
    project.setSubsidenceGroups(state.rows);
}

std::wstring subsidenceTitle(const std::optional<SubsidenceType>& type)
{
    if (!type)
        return {};
    return *type == SubsidenceType::I ? L"Тип I" : L"Тип II";
}

void setSubsidenceTitle(SubsidenceState& state, const std::wstring& point, const std::wstring& title)
{
    std::vector<SubsidenceCell>& cells = state.results[point];
    for (const Figure& figure : figures)
        if (std::ranges::find(cells, figure.code, &SubsidenceCell::code) == cells.end())
            cells.push_back({figure.code, {}, {}});
    for (SubsidenceCell& cell : cells)
        cell.title = title;
}

// Makes the point's entry where it has none.
static void addEntry(SubsidenceState& state, const std::wstring& point)
{
    const auto known = state.results.find(point);
    setSubsidenceTitle(state,
        point,
        known == state.results.end() || known->second.empty() ? std::wstring() : known->second.front().title);
}

void setSubsidenceFigure(
    SubsidenceState& state, const std::wstring& point, int code, const std::wstring& text)
{
    addEntry(state, point);
    std::ranges::find(state.results[point], code, &SubsidenceCell::code)->text = text;
}

bool isSame(const SubsidenceState& a, const SubsidenceState& b)
{
    const auto isSameCell = [](const SubsidenceCell& x, const SubsidenceCell& y) {
        return x.code == y.code && x.text == y.text && x.title == y.title;
    };
    return a.samples == b.samples && a.rows == b.rows
        && std::equal(a.results.begin(),
            a.results.end(),
            b.results.begin(),
            b.results.end(),
            [&](const auto& x, const auto& y) {
                return x.first == y.first && std::ranges::equal(x.second, y.second, isSameCell);
            });
}

void setSubsidenceSamples(
    SubsidenceState& state, const std::wstring& point, const std::vector<std::wstring>& codes)
{
    addEntry(state, point);
    std::erase_if(state.samples, [&](const auto& entry) { return entry.first == point; });
    if (!codes.empty())
        state.samples.insert({point, codes});
}

void setSubsidenceRowCell(SubsidenceState& state,
    const std::wstring& point,
    const std::wstring& from,
    const std::wstring& to,
    std::size_t cell,
    const std::wstring& text)
{
    addEntry(state, point);
    auto& rows = state.rows[point];
    auto row = std::ranges::find_if(rows, [&](const std::vector<std::wstring>& one) {
        const Number depth = readNumber(from);
        const Number end = readNumber(to);
        return one.size() > 1 && depth && end && isSameDepth(*depth, one[0]) && isSameDepth(*end, one[1]);
    });
    if (row == rows.end())
        row = rows.insert(rows.end(), {from, to});
    row->resize(std::max(row->size(), rowCells));
    (*row)[cell] = text;
}

SubsidenceState filledState(
    SubsidenceState state, const std::vector<SubsidencePoint>& points, FillPlaces places)
{
    const auto put = [places](std::wstring& text, const Number& value, int decimals) {
        if (value && (places == FillPlaces::All || text.empty()))
            text = numberText(value, decimals);
    };
    for (const SubsidencePoint& point : points) {
        const Subsidence& computed = places == FillPlaces::All ? point.computed : point.result;
        if (!computed.totalCm)
            continue;
        const std::wstring name(point.point);
        const auto known = state.results.find(name);
        const bool isTitled =
            known != state.results.end() && !known->second.empty() && !known->second.front().title.empty();
        if (places == FillPlaces::All || !isTitled)
            setSubsidenceTitle(state, name, subsidenceTitle(computed.type));
        else
            setSubsidenceTitle(state, name, known->second.front().title);
        const Number values[] = {computed.totalCm, computed.lowerBoundaryM, computed.initialPressureKPa};
        for (std::size_t i = 0; i < std::size(figures); ++i)
            put(std::ranges::find(state.results[name], figures[i].code, &SubsidenceCell::code)->text,
                values[i],
                figures[i].decimals);
        std::vector<std::vector<std::wstring>>& rows = state.rows[name];
        if (places == FillPlaces::All)
            rows.clear();
        for (const SubsidencePart& part : computed.parts) {
            auto row = std::ranges::find_if(rows, [&](const std::vector<std::wstring>& one) {
                return one.size() > 1 && isSameDepth(part.fromM, one[0]) && isSameDepth(part.toM, one[1]);
            });
            if (row == rows.end())
                row = rows.insert(rows.end(), std::vector<std::wstring>(rowCells));
            row->resize(std::max(row->size(), rowCells));
            const Number cells[] = {part.fromM, part.toM, part.stressKPa, part.relative, part.subsidenceCm};
            for (std::size_t i = 0; i < rowCells; ++i)
                put((*row)[i], cells[i], rowDecimals[i]);
        }
    }
    return state;
}

std::array<std::wstring, 4> foundationTexts(IDBProject& project)
{
    std::array<std::wstring, 4> texts;
    const auto& links = project.getNumberedLinks();
    const auto found =
        std::ranges::find_if(links, [](const auto& link) { return link.first == foundationKey; });
    if (found == links.end())
        return texts;
    std::wstring_view rest = found->second;
    for (std::wstring& text : texts) {
        const std::size_t end = std::min(rest.find(L';'), rest.size());
        text = rest.substr(0, end);
        rest.remove_prefix(std::min(end + 1, rest.size()));
    }
    return texts;
}

std::optional<Foundation> siteFoundation(IDBProject& project)
{
    const std::array<std::wstring, 4> texts = foundationTexts(project);
    const Number width = readNumber(texts[0]);
    const Number pressure = readNumber(texts[3]);
    if (!width || *width <= 0.0 || !pressure || *pressure <= 0.0)
        return std::nullopt;
    const auto notBelowZero = [](std::wstring_view text) {
        return std::max(0.0, readNumber(text).value_or(0.0));
    };
    return Foundation{*width, notBelowZero(texts[1]), notBelowZero(texts[2]), *pressure};
}

NumberedLinks withFoundation(const NumberedLinks& links, const std::array<std::wstring, 4>& texts)
{
    NumberedLinks chosen;
    for (const auto& [key, value] : links)
        if (key != foundationKey)
            chosen.insert({key, value});
    if (std::ranges::any_of(texts, [](const std::wstring& text) { return !text.empty(); }))
        chosen.insert(
            {std::wstring(foundationKey), texts[0] + L';' + texts[1] + L';' + texts[2] + L';' + texts[3]});
    return chosen;
}
