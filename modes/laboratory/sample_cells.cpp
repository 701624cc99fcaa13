#include "laboratory/sample_cells.h"

#include "calc/physical.h"
#include "common/typed_text.h"
#include "dictionaries/properties.h"
#include "dictionaries/test_loads.h"
#include "modules/idbproject.h"
#include "site/cells.h"

const char* nameOf(LabTest test)
{
    constexpr const char* names[] = {"physical", "grading", "compression", "shear", "swelling", "shrinkage"};
    return names[static_cast<std::size_t>(test)];
}

TX_Lab_Modes labModeOf(LabTest test)
{
    constexpr TX_Lab_Modes modes[] = {
        LabPhysical, LabGranulometry, LabCompression, LabShear, LabSwell, LabShrink};
    return modes[static_cast<std::size_t>(test)];
}

QString qText(std::wstring_view text)
{
    return shownText(text);
}

QString textOf(const PointDepthKey& key)
{
    std::wstring text;
    text.reserve(key.pointName.size() + 1 + key.depth.size());
    text += key.pointName;
    text += L'\x1f';
    text += key.depth;
    return shownText(text);
}

template <class Cells, class Make>
static auto& cellOf(Cells& cells, int id, Make make)
{
    auto place = std::find_if(cells.begin(), cells.end(), [&](const auto& cell) { return cell.id >= id; });
    if (place == cells.end() || place->id != id)
        place = cells.insert(place, make());
    return *place;
}

PropertyCell& propertyOf(LabSample& sample, int id)
{
    return cellOf(sample.physical, id, [id] {
        PropertyCell cell;
        cell.id = id;
        cell.enabled = true;
        return cell;
    });
}

CompressionCell& stageOf(LabSample& sample, int test, int id)
{
    return cellOf(sample.compression[static_cast<std::uint8_t>(test)].cells, id, [id] {
        CompressionCell cell;
        cell.id = id;
        return cell;
    });
}

ShearCell& shearCellOf(LabSample& sample, int method, int id)
{
    return cellOf(sample.shear[static_cast<std::uint8_t>(method)], id, [id] { return ShearCell{id, {}}; });
}

SwellingCell& swellCellOf(LabSample& sample, int id)
{
    return cellOf(sample.swelling, id, [id] { return SwellingCell{id, {}, {}, {}}; });
}

// The numbers of cells, beside those that are there.
template <class Cells>
static void addNumbers(std::set<int>& numbers, const Cells& cells)
{
    for (const auto& cell : cells)
        numbers.insert(cell.id);
}

std::set<int> mainSet(LabTest test)
{
    std::set<int> numbers;
    if (test == LabTest::Physical) {
        for (int number = 0; number <= lastDerivedProperty; ++number)
            numbers.insert(number);
        return numbers;
    }
    const auto isUsual = [test](const QString& load) {
        static const QStringList shear = {
            QStringLiteral("0.1"), QStringLiteral("0.2"), QStringLiteral("0.3")};
        static const QStringList compression = QStringList(shear) << QStringLiteral("0.05");
        static const QStringList swelling = {
            QStringLiteral("0.0"), QStringLiteral("0.05"), QStringLiteral("0.1"), QStringLiteral("0.2")};
        return (test == LabTest::Compression ? compression
                : test == LabTest::Shear     ? shear
                                             : swelling)
            .contains(load);
    };
    for (int load = 0; !loadText(test, load).isEmpty(); ++load)
        if (isUsual(loadText(test, load)))
            numbers.insert(load);
    return numbers;
}

std::set<int> ownSet(IDBProject& project, LabTest test)
{
    std::set<int> numbers;
    if (test == LabTest::Physical)
        addNumbers(numbers, project.getPhysicalTemplate());
    else if (test == LabTest::Compression)
        addNumbers(numbers, project.getCompressionTemplate());
    else if (test == LabTest::Shear)
        addNumbers(numbers, project.getShearTemplate());
    else if (test == LabTest::Swelling)
        addNumbers(numbers, project.getSwellingTemplate());
    return numbers;
}

static std::set<int> setOf(IDBProject& project, LabTest test)
{
    const std::set<int> own = ownSet(project, test);
    return own.empty() ? mainSet(test) : own;
}

std::set<int> propertiesInUse(IDBProject& project)
{
    std::set<int> numbers = setOf(project, LabTest::Physical);
    for (const auto& [key, sample] : project.getLabSamples())
        for (const PropertyCell& cell : sample.physical)
            if (!cell.value.empty())
                numbers.insert(cell.id);
    return numbers;
}

std::set<int> loadsInUse(IDBProject& project, const TestChoice& choice)
{
    std::set<int> loads = setOf(project, choice.test);
    const auto method = static_cast<std::uint8_t>(choice.method);
    for (const auto& [key, sample] : project.getLabSamples()) {
        if (choice.test == LabTest::Swelling)
            addNumbers(loads, sample.swelling);
        else if (const auto group = sample.compression.find(method);
                 choice.test == LabTest::Compression && group != sample.compression.end())
            addNumbers(loads, group->second.cells);
        else if (const auto cells = sample.shear.find(method);
                 choice.test == LabTest::Shear && cells != sample.shear.end())
            addNumbers(loads, cells->second);
    }
    if (choice.test == LabTest::Shear)
        loads.erase(shearTestNote); // no load: whether the test counts
    return loads;
}

// The dictionary spells some letters in Latin ones; a person sees no difference, a search does.
QString propertyTitle(int property, int language)
{
    const std::wstring_view* name = propertyNames.find(language, property);
    return name ? qText(*name) : QStringLiteral("Свойство %1").arg(property);
}

QString loadText(LabTest test, int number)
{
    const std::wstring_view* text = test == LabTest::Compression ? compressionLoads.find(number)
        : test == LabTest::Shear                                 ? shearLoads.find(number)
                                                                 : swellLoads.find(number);
    return text ? qText(*text) : QString();
}

GridColumn numberColumn(const QString& title, int width, bool isComputed)
{
    GridColumn column;
    column.title = title;
    column.kind = GridColumn::Number;
    column.width = width;
    column.readOnly = isComputed;
    return column;
}

GridColumn readOnlyColumn(const QString& title, int width)
{
    GridColumn column;
    column.title = title;
    column.width = width;
    column.readOnly = true;
    return column;
}
