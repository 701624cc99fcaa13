#include "site/laboratory.h"

#include "dictionaries/test_loads.h"
#include "site/cells.h"
#include "site/standard_values.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace
{

template <std::size_t Size>
std::array<double, Size> loadsInNumbers(const Dictionary<int, std::wstring_view, Size>& loads)
{
    std::array<double, Size> numbers{};
    std::transform(loads.begin(), loads.end(), numbers.begin(), [](const auto& entry) {
        return readNumber(entry.value).value_or(0);
    });
    return numbers;
}

template <class Loads>
Number loadOf(const Loads& loads, int number)
{
    return number >= 0 && static_cast<std::size_t>(number) < loads.size()
        ? Number(loads[static_cast<std::size_t>(number)])
        : Number();
}

// The height that the typed decimal means: a single holds 2.4 as 2.4000001.
Number heightOf(float centimetres)
{
    const double height = roundedTo(static_cast<double>(centimetres), 5);
    return std::isfinite(height) && height > 0 ? Number(height) : Number();
}

void unreadable(Remarks& remarks, std::string cell, std::wstring_view text)
{
    remarks.push_back({Remark::Missing,
        std::move(cell),
        L"«" + std::wstring(text.substr(0, 40)) + L"» не число: значение не участвует в расчёте"});
}

// A number that counts; what is there and does not count is told to the flags.
Number readCounted(std::wstring_view text, const std::string& cell, Remarks& remarks)
{
    if (text.find_first_not_of(L" \t\u00a0\u202f") == std::wstring_view::npos)
        return {};
    const CellNumber number = readCellNumber(text);
    if (!number.value)
        unreadable(remarks, cell, text);
    return number.isLeftOut ? Number() : number.value;
}

bool isBlank(std::wstring_view text)
{
    return text.find_first_not_of(L" \t\u00a0\u202f") == std::wstring_view::npos;
}

class CellsReader
{
public:
    CellsReader(const LabSample& sample, const LabTriple& rings, SampleInput& input)
        : sample_(sample)
        , rings_(rings)
        , input_(input)
    {
    }

    void read()
    {
        readPhysical();
        readGrading();
        for (const auto& [test, group] : sample_.compression)
            readCompression(test, group);
        for (const auto& [method, cells] : sample_.shear)
            readShear(method, cells);
        readSwelling();
        readShrinkage();
    }

private:
    void readPhysical()
    {
        PhysicalInput& physical = input_.physical;
        Number organic;
        const std::pair<int, Number*> wanted[] = {{0, &physical.moisture},
            {1, &physical.density},
            {2, &physical.particleDensity},
            {3, &physical.liquidLimit},
            {4, &physical.plasticLimit},
            {5, &physical.dryDensity},
            {18, &organic}};
        for (const PropertyCell& cell : sample_.physical) {
            if (isBlank(cell.value))
                continue;
            const CellNumber number = readCellNumber(cell.value);
            if (!number.value)
                unreadable(input_.remarks, "physical/" + std::to_string(cell.id), cell.value);
            for (const auto& [id, place] : wanted)
                if (id == cell.id && &cell == propertyCell(sample_, id) && !number.isLeftOut)
                    *place = number.value;
        }
        constexpr double organicShare = 10; // %, from where a soil is peaty
        constexpr int peatyGroup = 8;
        physical.isOrganic = organic.value_or(0) >= organicShare || sample_.soilKind.code >= peatyGroup;
    }

    void readGrading()
    {
        for (const auto& [number, text] : sample_.grading) {
            if (isBlank(text))
                continue;
            const Number share = readCounted(text, "grading/" + std::to_string(number), input_.remarks);
            if (share)
                input_.fractions.emplace(number, *share);
            else
                input_.isGradingReadable = false;
        }
    }

    void readCompression(int test, const CompressionGroup& group)
    {
        CompressionInput read;
        read.oedometer.test = test;
        const std::int32_t first = group.numbers[compression_number::FirstHeight];
        const std::int32_t second = group.numbers[compression_number::SecondHeight];
        const std::int32_t stress = group.numbers[compression_number::NaturalStress];
        const Number ring = heightOf(rings_.valueA);
        read.oedometer.height = first > 0 ? Number(first / 1000.0) : ring ? Number(*ring * 10) : Number();
        if (second > 0)
            read.oedometer.secondHeight = second / 1000.0;
        if (stress > 0)
            read.naturalStress = stress / 1e6;
        read.isLeftOut = group.flags[compression_flag::KeptOut] == 1;
        read.isKept = group.flags[compression_flag::KeptIn] == 1;
        for (const CompressionCell& cell : group.cells)
            readStage(test, cell, read);
        input_.compression.push_back(std::move(read));
    }

    void readStage(int test, const CompressionCell& cell, CompressionInput& read)
    {
        const auto name = [&] {
            return "compression/" + std::to_string(test) + "/" + std::to_string(cell.id);
        };
        OedometerStage stage;
        OedometerStage leftOut;
        stage.row = leftOut.row = cell.id;
        Number load = compressionLoad(cell.id);
        bool isLeftOut = false;
        const auto take = [&](const std::wstring& text, Number OedometerStage::*value) {
            const LoadCell place = readLoadCell(text);
            if (place.isText)
                unreadable(input_.remarks, name(), text);
            if (place.load)
                load = place.load;
            isLeftOut = isLeftOut || place.number.isLeftOut;
            OedometerStage& taken = place.number.isLeftOut ? leftOut : stage;
            taken.*value = place.number.value;
        };
        take(cell.textA, &OedometerStage::deformation);
        take(cell.textB, &OedometerStage::soakedDeformation);
        take(cell.textC, &OedometerStage::correction);
        if (!load && (stage.deformation || stage.soakedDeformation))
            input_.remarks.push_back({Remark::Impossible, name(), L"Нет такой ступени нагрузки"});
        if (!load)
            return;
        stage.load = leftOut.load = *load;
        leftOut.correction = stage.correction;
        if (isLeftOut)
            read.leftOut.push_back(leftOut);
        read.oedometer.stages.push_back(stage);
    }

    void readShear(int method, const std::vector<ShearCell>& cells)
    {
        ShearInput read;
        read.method = method;
        for (std::size_t i = 0; i < cells.size(); ++i) {
            if (cells[i].id == shearTestNote) {
                read.isLeftOut = read.isLeftOut || cells[i].value == shearKeptOut;
                read.isKept = read.isKept || cells[i].value == shearKeptIn;
            } else {
                readPoint(cells[i], i, read);
            }
        }
        input_.shear.push_back(std::move(read));
    }

    void readPoint(const ShearCell& cell, std::size_t index, ShearInput& read)
    {
        const auto name = [&] {
            return "shear/" + std::to_string(read.method) + "/" + std::to_string(cell.id);
        };
        const LoadCell place = readLoadCell(cell.value);
        if (place.isText)
            unreadable(input_.remarks, name(), cell.value);
        if (!place.number.value)
            return;
        const Number load = place.load ? place.load : shearLoad(cell.id);
        const bool isPossible = load && *load >= 0 && *place.number.value >= 0;
        if (!isPossible && !place.number.isLeftOut) {
            input_.remarks.push_back({Remark::Impossible,
                name(),
                load ? L"Отрицательное давление или сопротивление сдвигу"
                     : L"Нет такого нормального давления"});
            read.isImpossible = true;
        }
        if (isPossible)
            read.readings.push_back(
                {{*load, *place.number.value}, place.number.isLeftOut, place.number.isKept, index});
    }

    void readSwelling()
    {
        input_.swellingHeight = heightOf(rings_.valueB);
        for (const SwellingCell& cell : sample_.swelling) {
            const auto name = [&] { return "swelling/" + std::to_string(cell.id); };
            SwellingStage stage;
            SwellingStage leftOut;
            stage.row = leftOut.row = cell.id;
            Number load = swellLoad(cell.id);
            const auto take = [&](const std::wstring& text, Number SwellingStage::*value) {
                const LoadCell place = readLoadCell(text);
                if (place.isText)
                    unreadable(input_.remarks, name(), text);
                if (place.load)
                    load = place.load;
                SwellingStage& taken = place.number.isLeftOut ? leftOut : stage;
                taken.*value = place.number.value;
            };
            take(cell.textA, &SwellingStage::height);
            take(cell.textB, &SwellingStage::absolute);
            take(cell.textC, &SwellingStage::relative);
            if (!load)
                continue;
            stage.load = leftOut.load = *load;
            if (leftOut.height || leftOut.absolute || leftOut.relative)
                input_.swellingLeftOut.push_back(leftOut);
            input_.swelling.push_back(stage);
        }
    }

    void readShrinkage()
    {
        std::vector<const ShrinkageRow*> rows;
        for (const ShrinkageRow& row : sample_.shrinkage)
            rows.push_back(&row);
        std::stable_sort(rows.begin(), rows.end(), [](const ShrinkageRow* a, const ShrinkageRow* b) {
            return a->stage < b->stage;
        });
        for (const ShrinkageRow* row : rows) {
            const std::string name = "shrinkage/" + std::to_string(row->stage);
            ShrinkageStage stage;
            stage.row = row->stage;
            Number* const values[] = {
                &stage.diameter, &stage.height, &stage.mass, &stage.volume, &stage.moisture};
            for (std::size_t i = 0; i < std::size(values); ++i) {
                // Sizes in brackets are drawn, and count for nothing.
                const bool isSize = values[i] != &stage.mass && values[i] != &stage.moisture;
                const CellNumber cell = readCellNumber(row->cells[i + 1]);
                if (isSize && cell.isLeftOut) {
                    *values[i] = cell.value;
                    stage.isLeftOut = true;
                } else {
                    *values[i] = readCounted(row->cells[i + 1], name, input_.remarks);
                }
            }
            if (std::any_of(std::begin(values), std::end(values), [](const Number* value) { return *value; }))
                input_.shrinkage.push_back(stage);
        }
    }

    const LabSample& sample_;
    const LabTriple& rings_;
    SampleInput& input_;
};

void append(Remarks& all, const Remarks& more)
{
    all.insert(all.end(), more.begin(), more.end());
}

// Only 0 to 2 give the void ratio of the specimen; a typed 6 stands in, and last what a typed dry density
// gives.
Number specimenVoidRatio(const LabSample& sample, const SampleInput& input, const Physical& physical)
{
    if (input.physical.moisture && input.physical.density && input.physical.particleDensity)
        return physical.voidRatio;
    const CellNumber typed = propertyNumber(sample, 6);
    if (typed.value && !typed.isLeftOut && *typed.value > 0)
        return typed.value;
    return physical.voidRatio;
}

ShearResult shearResult(const ShearInput& input, Remarks& remarks)
{
    ShearResult result{input.method, {}, input.isLeftOut, input.isKept};
    std::vector<ShearPoint> points;
    for (const ShearReading& reading : input.readings)
        if (!reading.isLeftOut)
            points.push_back(reading.point);
    if (input.isImpossible) {
        result.fit.points = points.size();
        return result;
    }
    result.fit = shearOf(points);
    for (Remark remark : result.fit.remarks) {
        remark.cell = "shear/" + std::to_string(input.method);
        // Rows without a value are a plan, not a test.
        if (!points.empty())
            remarks.push_back(std::move(remark));
    }
    return result;
}

} // namespace

LoadCell readLoadCell(std::wstring_view text)
{
    LoadCell cell;
    if (isBlank(text))
        return cell;
    const std::size_t at = text.find(L'@');
    std::wstring_view value = text.substr(0, at);
    bool isInBrackets = false;
    if (at != std::wstring_view::npos) {
        std::wstring_view load = text.substr(at + 1);
        // "(0.0567@0.04)": the brackets hold both.
        const std::size_t open = value.find_first_not_of(L" \t\u00a0");
        const std::size_t close = load.find_last_not_of(L" \t\u00a0");
        if (open != std::wstring_view::npos && value[open] == L'('
            && value.find(L')') == std::wstring_view::npos && close != std::wstring_view::npos
            && load[close] == L')') {
            isInBrackets = true;
            value = value.substr(open + 1);
            load = load.substr(0, close);
        }
        const CellNumber number = readCellNumber(load);
        cell.load = number.value;
        cell.number.isKept = number.isKept;
        cell.isText = !cell.load;
    }
    if (isBlank(value))
        return cell;
    const bool isKept = cell.number.isKept;
    cell.number = readCellNumber(value);
    cell.number.isLeftOut = cell.number.isLeftOut || isInBrackets;
    cell.number.isKept = cell.number.isKept || isKept;
    cell.isText = cell.isText || !cell.number.value;
    if (cell.isText)
        cell.number = {};
    return cell;
}

Number compressionLoad(int number)
{
    static const auto loads = loadsInNumbers(compressionLoads);
    return loadOf(loads, number);
}

Number shearLoad(int number)
{
    static const auto loads = loadsInNumbers(shearLoads);
    return loadOf(loads, number);
}

Number swellLoad(int number)
{
    static const auto loads = loadsInNumbers(swellLoads);
    return loadOf(loads, number);
}

const PropertyCell* propertyCell(const LabSample& sample, int property)
{
    const PropertyCell* found = nullptr;
    for (const PropertyCell& cell : sample.physical)
        if (cell.id == property && (!found || found->value.empty()))
            found = &cell;
    return found;
}

CellNumber propertyNumber(const LabSample& sample, int property)
{
    const PropertyCell* cell = propertyCell(sample, property);
    return cell ? readCellNumber(cell->value) : CellNumber();
}

SampleInput sampleInput(const LabSample& sample, const LabTriple& rings)
{
    SampleInput input;
    CellsReader(sample, rings, input).read();
    return input;
}

SampleResult sampleResult(const LabSample& sample, const LabTriple& rings, GrainScale scale, int elementKind)
{
    SampleResult result;
    result.input = sampleInput(sample, rings);
    result.remarks = result.input.remarks;
    result.physical = physicalOf(result.input.physical);
    append(result.remarks, result.physical.remarks);
    compareTyped(sample, result.physical, result.remarks);

    result.grading = gradingOf(result.input.fractions, scale);
    append(result.remarks, result.grading.remarks);

    const Number voidRatio = specimenVoidRatio(sample, result.input, result.physical);
    const int plasticKind = kindOfPlasticity(result.physical.plasticity);
    const Number beta = betaOfKind(plasticKind != 0 ? plasticKind : elementKind);
    for (CompressionInput& test : result.input.compression) {
        test.oedometer.voidRatio = voidRatio;
        test.oedometer.beta = beta;
        result.compression.push_back(
            {oedometerOf(test.oedometer), {}, test.naturalStress, test.isLeftOut, test.isKept});
        append(result.remarks, result.compression.back().oedometer.remarks);
    }
    for (const ShearInput& test : result.input.shear)
        result.shear.push_back(shearResult(test, result.remarks));

    result.swelling = swellingOf(result.input.swelling, result.input.swellingHeight);
    append(result.remarks, result.swelling.remarks);
    result.shrinkage = shrinkageOf(result.input.shrinkage, result.input.physical.moisture);
    append(result.remarks, result.shrinkage.remarks);
    return result;
}

void addCollapse(SampleResult& result, const Number& naturalStress)
{
    for (CompressionResult& test : result.compression) {
        test.collapse = collapseOf(test.oedometer, test.storedStress ? test.storedStress : naturalStress);
        append(result.remarks, test.collapse.remarks);
    }
}

void compareTyped(const LabSample& sample, const Physical& physical, Remarks& remarks)
{
    const auto derived = derivedProperties(physical);
    for (const PropertyCell& cell : sample.physical) {
        if (cell.id < firstDerivedProperty || cell.id > lastDerivedProperty || cell.value.empty())
            continue;
        const Number& computed = derived[static_cast<std::size_t>(cell.id - firstDerivedProperty)];
        const std::optional<Decimal> typed = readDecimal(cell.value);
        if (!computed || !typed)
            continue;
        const int decimals = std::min(typed->decimals, derivedDecimals(cell.id));
        const double rounding = 0.5 * std::pow(10.0, -decimals) * (1 + 1e-6);
        if (std::abs(*readNumber(cell.value) - *computed) > rounding)
            remarks.push_back({Remark::Doubtful,
                "physical/" + std::to_string(cell.id),
                L"Введено " + cell.value + L", по измеренным свойствам "
                    + numberText(computed, derivedDecimals(cell.id))});
    }
}
