#include "reports/laboratory_passports.h"

#include "dictionaries/fractions.h"
#include "dictionaries/laboratory_vocabulary.h"
#include "modules/idbproject.h"
#include "plots/laboratory_curves.h"
#include "reports/table_cells.h"
#include "site/elements.h"

namespace
{

// A name that was typed stays; else the computed one goes before what was once computed and kept.
const std::wstring& soilNameOf(const SiteSample& sample)
{
    const auto& kept = sample.sample->soilKind;
    const bool isTyped = kept.code == 0 && !kept.text.empty();
    return isTyped || sample.soil.text.empty() ? kept.text : sample.soil.text;
}

Paragraph paragraph(std::wstring_view text, Paragraph::Style style = Paragraph::Body)
{
    Paragraph made;
    Run run;
    run.text = std::wstring(text);
    made.runs.push_back(run);
    made.style = style;
    return made;
}

std::vector<TableCell> headRow(std::initializer_list<std::wstring_view> titles)
{
    std::vector<TableCell> row;
    for (const std::wstring_view title : titles)
        row.push_back(textCell(title, Align::Centre, true));
    return row;
}

constexpr CurveSize passportCurve = {170, 95};

class Passports
{
public:
    Passports(IDBProject& project, const SiteLaboratory& site)
        : site_(site)
    {
        document_.title = L"Паспорта лабораторных испытаний";
        document_.header = project.getProjectCode();
        document_.footer = project.getProjectName();
    }

    void add(const SiteSample& sample, TX_Lab_Modes test)
    {
        switch (test) {
        case LabGranulometry:
            addGrading(sample);
            break;
        case LabCompression:
            for (const CompressionResult& each : sample.result.compression)
                addCompression(sample, each);
            break;
        case LabShear:
            for (std::size_t i = 0; i < sample.result.shear.size(); ++i)
                addShear(sample, i);
            break;
        case LabSwell:
        case LabShrink:
            addSwelling(sample);
            addShrinkage(sample);
            break;
        default:
            addPhysical(sample);
        }
    }

    std::optional<Document> take()
    {
        if (document_.blocks.empty())
            return std::nullopt;
        return std::move(document_);
    }

private:
    void begin(const SiteSample& sample, std::wstring_view title)
    {
        if (!document_.blocks.empty())
            document_.blocks.emplace_back(PageBreak{});
        document_.blocks.emplace_back(Heading{std::wstring(title), 2});
        TableBlock head;
        const auto row = [&](std::wstring_view a,
                             std::wstring_view b,
                             std::wstring_view c,
                             std::wstring_view d) {
            head.rows.push_back(
                {textCell(a), textCell(b, Align::Left, true), textCell(c), textCell(d, Align::Left, true)});
        };
        head.widths = {35, 55, 35, 55};
        row(L"Выработка", sample.key->pointName, L"Глубина отбора, м", sample.key->depth);
        row(L"Код пробы", sample.sample->code, L"Номер в журнале", std::to_wstring(sample.sample->number));
        row(L"Грунт",
            soilNameOf(sample),
            L"ИГЭ",
            sample.element.empty() ? std::wstring_view(L"–") : sample.element);
        document_.blocks.emplace_back(std::move(head));
    }

    void curve(const SiteSample& sample, TX_Lab_Modes test, int method)
    {
        if (std::optional<Drawing> drawing = curveOfTest(site_, sample, test, method, {}, passportCurve))
            document_.blocks.emplace_back(Figure{std::move(*drawing), {}});
    }

    // What the results have against them stands on the paper too.
    void end(const SiteSample& sample, const std::string& cells)
    {
        for (const Remark& remark : sample.result.remarks)
            if (remark.cell.rfind(cells, 0) == 0 && remark.kind != Remark::Missing)
                document_.blocks.emplace_back(paragraph(remark.text, Paragraph::Note));
        document_.blocks.emplace_back(
            paragraph(L"Испытание выполнил ____________________    Дата ____________"));
    }

    void addPhysical(const SiteSample& sample)
    {
        TableBlock table;
        table.widths = {130, 40};
        table.head = {headRow({L"Показатель", L"Значение"})};
        struct Row {
            int number;
            const wchar_t* name;
        };
        constexpr Row rows[] = {
            {0, L"Влажность природная, д.е."},
            {1, L"Плотность грунта, г/см3"},
            {2, L"Плотность частиц грунта, г/см3"},
            {3, L"Влажность на границе текучести, д.е."},
            {4, L"Влажность на границе раскатывания, д.е."},
            {5, L"Плотность сухого грунта, г/см3"},
            {6, L"Коэффициент пористости"},
            {7, L"Пористость, %"},
            {8, L"Коэффициент водонасыщения"},
            {12, L"Число пластичности, %"},
            {13, L"Показатель текучести"},
        };
        const auto derived = derivedProperties(sample.result.physical);
        for (const Row& row : rows) {
            const PropertyCell* cell = propertyCell(*sample.sample, row.number);
            const bool isDerived = row.number >= firstDerivedProperty;
            const Number computed =
                isDerived ? derived[static_cast<std::size_t>(row.number - firstDerivedProperty)] : Number();
            if (cell && !cell->value.empty()) {
                TableCell value = textCell(cell->value, Align::Right);
                value.number = readNumber(cell->value);
                table.rows.push_back({textCell(row.name), std::move(value)});
            } else if (computed) {
                table.rows.push_back({textCell(row.name), numberCell(computed, derivedDecimals(row.number))});
            }
        }
        if (table.rows.empty())
            return;
        begin(sample, L"Физические свойства грунта");
        document_.blocks.emplace_back(std::move(table));
        end(sample, "physical");
    }

    void addGrading(const SiteSample& sample)
    {
        if (!sample.result.grading.sum)
            return;
        begin(sample, L"Гранулометрический состав грунта");
        TableBlock table;
        std::vector<TableCell> head;
        std::vector<TableCell> values;
        for (const auto& [number, text] : sample.sample->grading) {
            const std::wstring_view* caption = fractionCaptions.find(number);
            if (text.empty() || !caption)
                continue;
            head.push_back(textCell(*caption, Align::Centre, true));
            values.push_back(textCell(text, Align::Centre));
        }
        table.title = L"Содержание фракций, % по массе, при размере частиц, мм";
        table.head = {std::move(head)};
        table.rows = {std::move(values)};
        document_.blocks.emplace_back(std::move(table));
        curve(sample, LabGranulometry, 0);
        end(sample, "grading");
    }

    void addCompression(const SiteSample& sample, const CompressionResult& test)
    {
        if (test.oedometer.rows.empty())
            return;
        const std::wstring_view* name = subsidenceMethodNames.find(languageRussian, test.oedometer.test);
        begin(sample, L"Компрессионное испытание");
        document_.blocks.emplace_back(paragraph(name ? *name : std::wstring_view()));
        document_.blocks.emplace_back(paragraph(L"Высота образца " + numberText(test.oedometer.height, 1)
            + L" мм, начальный коэффициент пористости "
            + (test.oedometer.voidRatio ? numberText(test.oedometer.voidRatio, 3) : L"–") + L"."));
        TableBlock table;
        table.head = {headRow({L"p, МПа",
            L"ε",
            L"e",
            L"ε при замачивании",
            L"e при замачивании",
            L"m0, 1/МПа",
            L"Eoed, МПа",
            L"E, МПа"})};
        for (std::size_t i = 0; i < test.oedometer.rows.size(); ++i) {
            const OedometerRow& row = test.oedometer.rows[i];
            OedometerInterval interval;
            for (const OedometerInterval& each : test.oedometer.intervals)
                if (each.to == row.load)
                    interval = each;
            table.rows.push_back({numberCell(row.load, 4),
                numberCell(row.strain, 4),
                numberCell(row.voidRatio, 3),
                numberCell(row.soakedStrain, 4),
                numberCell(row.soakedVoidRatio, 3),
                numberCell(interval.compressibility, 3),
                numberCell(interval.oedometricModulus, 1),
                numberCell(interval.modulus, 1)});
        }
        document_.blocks.emplace_back(std::move(table));
        curve(sample, LabCompression, test.oedometer.test);
        addCollapse(test.collapse);
        end(sample, "compression/" + std::to_string(test.oedometer.test) + "/");
    }

    void addCollapse(const Collapse& collapse)
    {
        if (collapse.rows.empty())
            return;
        TableBlock table;
        table.title = L"Относительная просадочность";
        std::vector<TableCell> loads = {textCell(L"p, МПа", Align::Left, true)};
        std::vector<TableCell> values = {textCell(L"εsl", Align::Left, true)};
        for (const CollapseRow& row : collapse.rows) {
            loads.push_back(numberCell(row.load, 3));
            values.push_back(numberCell(row.relative, 3));
        }
        table.rows = {std::move(loads), std::move(values)};
        document_.blocks.emplace_back(std::move(table));
    }

    void addShear(const SiteSample& sample, std::size_t index)
    {
        const ShearInput& input = sample.result.input.shear[index];
        if (input.readings.empty())
            return;
        begin(sample, L"Испытание на одноплоскостной срез");
        const std::wstring_view* name = shearMethodNames.find(languageRussian, input.method);
        document_.blocks.emplace_back(paragraph(name ? *name : std::wstring_view()));
        TableBlock table;
        table.widths = {60, 60, 50};
        table.head = {
            headRow({L"Нормальное давление, МПа", L"Сопротивление сдвигу, МПа", L"Участие в расчёте"})};
        for (const ShearReading& reading : input.readings)
            table.rows.push_back({numberCell(reading.point.normalStress, 4),
                numberCell(reading.point.resistance, 3),
                textCell(reading.isLeftOut ? L"исключена" : L"", Align::Centre)});
        document_.blocks.emplace_back(std::move(table));
        curve(sample, LabShear, input.method);
        end(sample, "shear/" + std::to_string(input.method));
    }

    void addSwelling(const SiteSample& sample)
    {
        const Swelling& swelling = sample.result.swelling;
        if (swelling.rows.empty())
            return;
        begin(sample, L"Набухание грунта");
        TableBlock table;
        table.widths = {50, 60, 60};
        table.head = {
            headRow({L"Давление, МПа", L"Абсолютное набухание, см", L"Относительное набухание, д.е."})};
        for (const SwellingRow& row : swelling.rows)
            table.rows.push_back(
                {numberCell(row.load, 4), numberCell(row.absolute, 3), numberCell(row.relative, 4)});
        document_.blocks.emplace_back(std::move(table));
        curve(sample, LabSwell, 0);
        end(sample, "swelling");
    }

    void addShrinkage(const SiteSample& sample)
    {
        const Shrinkage& shrinkage = sample.result.shrinkage;
        if (shrinkage.points.empty())
            return;
        begin(sample, L"Усадка грунта");
        TableBlock table;
        table.head = {headRow(
            {L"Этап", L"Диаметр, см", L"Высота, см", L"Масса, г", L"Объём, см3", L"Влажность, д.е."})};
        for (std::size_t i = 0; i < shrinkage.points.size(); ++i) {
            const ShrinkageStage& stage = sample.result.input.shrinkage[i];
            table.rows.push_back({textCell(std::to_wstring(stage.row), Align::Centre),
                numberCell(stage.diameter, 2),
                numberCell(stage.height, 2),
                numberCell(stage.mass, 1),
                numberCell(shrinkage.points[i].volume, 1),
                numberCell(shrinkage.points[i].moisture, 3)});
        }
        document_.blocks.emplace_back(std::move(table));
        curve(sample, LabShrink, 0);
        end(sample, "shrinkage");
    }

    const SiteLaboratory& site_;
    Document document_;
};

// The columns of the summary behind place and soil.
struct SummaryColumn {
    const wchar_t* title;
    int property; // -1: of a test
    int decimals;
    Number (*value)(const SiteSample&);
};

Number modulusOf(const SiteSample& sample)
{
    for (const CompressionResult& test : sample.result.compression)
        if (mainBranch(test.oedometer) == Branch::Natural)
            if (const Number modulus = intervalOf(test.oedometer, 0.1, 0.2).modulus)
                return modulus;
    return {};
}

Number soakedModulusOf(const SiteSample& sample)
{
    for (const CompressionResult& test : sample.result.compression)
        if (const Number modulus = intervalOf(test.oedometer, 0.1, 0.2).soakedModulus)
            return modulus;
    return {};
}

Number tangentOf(const SiteSample& sample)
{
    for (const ShearResult& test : sample.result.shear)
        if (test.fit.tanPhi)
            return angleOf(*test.fit.tanPhi);
    return {};
}

Number cohesionOf(const SiteSample& sample)
{
    for (const ShearResult& test : sample.result.shear)
        if (test.fit.cohesion)
            return *test.fit.cohesion * 1000;
    return {};
}

Number initialPressureOf(const SiteSample& sample)
{
    for (const CompressionResult& test : sample.result.compression)
        if (test.collapse.initialPressure)
            return test.collapse.initialPressure;
    return {};
}

Number freeSwellingOf(const SiteSample& sample)
{
    return sample.result.swelling.free;
}

constexpr SummaryColumn summaryColumns[] = {
    {L"W, д.е.", 0, 3, nullptr},
    {L"ρ, г/см3", 1, 2, nullptr},
    {L"ρs, г/см3", 2, 2, nullptr},
    {L"ρd, г/см3", 5, 2, nullptr},
    {L"e", 6, 3, nullptr},
    {L"n, %", 7, 1, nullptr},
    {L"Sr", 8, 2, nullptr},
    {L"WL, д.е.", 3, 3, nullptr},
    {L"Wp, д.е.", 4, 3, nullptr},
    {L"Ip, %", 12, 1, nullptr},
    {L"IL", 13, 2, nullptr},
    {L"E, МПа", -1, 1, modulusOf},
    {L"E вод., МПа", -1, 1, soakedModulusOf},
    {L"φ, град.", -1, 1, tangentOf},
    {L"c, кПа", -1, 0, cohesionOf},
    {L"psl, МПа", -1, 3, initialPressureOf},
    {L"εsw", -1, 3, freeSwellingOf},
};

TableCell summaryCell(const SiteSample& sample, const SummaryColumn& column)
{
    if (column.value)
        return numberCell(column.value(sample), column.decimals);
    const PropertyCell* cell = propertyCell(*sample.sample, column.property);
    if (cell && !cell->value.empty()) {
        TableCell made = textCell(cell->value, Align::Right);
        made.number = readNumber(cell->value);
        made.decimals = column.decimals;
        return made;
    }
    Number computed;
    if (column.property >= firstDerivedProperty)
        computed = derivedProperties(
            sample.result.physical)[static_cast<std::size_t>(column.property - firstDerivedProperty)];
    return numberCell(computed, column.decimals);
}

} // namespace

std::optional<Document> laboratoryPassports(IDBProject& project,
    const SiteLaboratory& site,
    const std::vector<const SiteSample*>& samples,
    TX_Lab_Modes test)
{
    Passports passports(project, site);
    for (const SiteSample* sample : samples)
        passports.add(*sample, test);
    return passports.take();
}

Document laboratorySummary(IDBProject& project, const SiteLaboratory& site, bool byElement)
{
    Document document;
    document.title = L"Сводная ведомость физико-механических свойств грунтов";
    document.page = {420, 297, 20, 10, 10, 10};
    document.header = project.getProjectCode();
    document.footer = project.getProjectName();
    document.blocks.emplace_back(Heading{document.title, 1});
    TableBlock table;
    table.title = L"Сводная ведомость";
    std::vector<TableCell> head =
        headRow({L"Выработка", L"Глубина, м", L"Код", L"ИГЭ", L"Наименование грунта"});
    table.widths = {24, 16, 14, 12, 48};
    for (const SummaryColumn& column : summaryColumns) {
        head.push_back(textCell(column.title, Align::Centre, true));
        table.widths.push_back(16);
    }
    table.head = {std::move(head)};
    const auto addRow = [&](const SiteSample& sample) {
        std::vector<TableCell> row = {textCell(sample.key->pointName),
            textCell(sample.key->depth, Align::Right),
            textCell(sample.sample->code, Align::Centre),
            textCell(sample.element, Align::Centre),
            textCell(soilNameOf(sample))};
        for (const SummaryColumn& column : summaryColumns)
            row.push_back(summaryCell(sample, column));
        table.rows.push_back(std::move(row));
    };
    if (byElement) {
        for (const SiteElement& element : site.elements())
            for (const std::size_t index : element.samples)
                addRow(site.samples()[index]);
        for (const SiteSample& sample : site.samples())
            if (!site.element(sample.element))
                addRow(sample);
    } else {
        for (const SiteSample& sample : site.samples())
            addRow(sample);
    }
    document.blocks.emplace_back(std::move(table));
    return document;
}
