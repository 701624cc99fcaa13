#include "litology/layer_register.h"

#include "common/number_sort_proxy.h"
#include "core/base/typed_number.h"
#include "site/element_edits.h"
#include "site/element_links.h"
#include "site/element_texts.h"

#include <algorithm>
#include <map>

QString LayerRegister::name() const
{
    return QStringLiteral("litology/layers");
}

void LayerRegister::useProject(IDBProject* project)
{
    elements_.clear();
    if (project)
        for (const auto& [name, element] : project->getStrataElements())
            elements_.push_back(name);
}

QVector<GridColumn> LayerRegister::columns() const
{
    QStringList elements;
    for (const std::wstring& element : elements_)
        elements += shownElement(element);
    return {{QStringLiteral("Подошва,\nм"), GridColumn::Number, 70},
        {QStringLiteral("Мощность,\nм"), GridColumn::Number, 70, {}, true},
        {QStringLiteral("Отметка,\nм"), GridColumn::Number, 70, {}, true},
        {QStringLiteral("Геоиндекс"), GridColumn::Text, 90},
        {QStringLiteral("Описание"), GridColumn::Text, 300, {}, false, true},
        {QStringLiteral("ИГЭ"), GridColumn::Choice, 60, elements}};
}

QString LayerRegister::emptyText() const
{
    return QStringLiteral("У этой точки нет слоёв.\nIns — добавить слой, Ctrl+V — вставить из таблицы.");
}

// "2а" for "ИГЭ-2а", unless another element is called just so.
QString LayerRegister::shownElement(const std::wstring& element) const
{
    const std::wstring_view brief = shortElementName(element);
    const bool isTaken =
        brief != element && std::find(elements_.begin(), elements_.end(), brief) != elements_.end();
    return QString::fromStdWString(isTaken ? element : std::wstring(brief));
}

QVector<QString> LayerRegister::cellsOf(const LayerValue& layer) const
{
    return {QString(),
        QString(),
        QString(),
        QString::fromStdWString(layer.geoIndex),
        QString::fromStdWString(layer.description),
        shownElement(layer.element)};
}

QString LayerRegister::readCell(int column, const QString& text, LayerValue& layer) const
{
    if (column == Index)
        layer.geoIndex = text.toStdWString();
    else if (column == Description)
        layer.description = text.toStdWString();
    if (column != Element)
        return {};
    const auto named = std::find_if(elements_.begin(), elements_.end(), [&](const std::wstring& element) {
        return text == shownElement(element) || text.toStdWString() == element;
    });
    if (named == elements_.end() && !text.isEmpty())
        return QStringLiteral("Элемента «%1» в проекте нет. Выберите из списка или добавьте его в режиме "
                              "«Инженерно-геологический элемент».")
            .arg(text);
    layer.element = text.isEmpty() ? std::wstring() : *named;
    return {};
}

DepthRegister::DepthsAndValues LayerRegister::load(IDBProject& project, const std::wstring& point) const
{
    DepthsAndValues rows = DepthRegisterOf::load(project, point);
    NumberedLinks& links = project.getNumberedLinks();
    for (std::size_t layer = 0; layer < rows.size() && !links.empty(); ++layer)
        if (const auto link = links.find(layerLinkKey(point, layer + 1)); link != links.end())
            std::any_cast<LayerValue&>(rows[layer].second).element = link->second;
    return rows;
}

RegisterRows LayerRegister::store(IDBProject& project, const PointState& state) const
{
    const DepthsAndValues former = load(project, state.point);
    const RegisterRows stored = DepthRegisterOf::store(project, state);
    relink(project, state, former, stored);
    return stored;
}

void LayerRegister::relink(IDBProject& project,
    const PointState& state,
    const DepthsAndValues& former,
    const RegisterRows& stored) const
{
    const auto elementOf = [](const RegisterRow& row) -> const std::wstring& {
        return std::any_cast<const LayerValue&>(row.value).element;
    };
    std::map<std::wstring, std::size_t> formerNumbers;
    for (const auto& [depth, value] : former)
        formerNumbers.emplace(depth, formerNumbers.size() + 1);
    std::map<qint64, const RegisterRow*> replaced;
    for (const RegisterRow& row : state.replaced)
        if (row.key && formerNumbers.contains(*row.key))
            replaced.emplace(row.id, &row);
    std::map<std::wstring, const RegisterRow*> rows;
    for (const RegisterRow& row : stored)
        if (row.key)
            rows.emplace(*row.key, &row);

    std::vector<std::size_t> numbers;
    std::vector<std::pair<std::size_t, std::wstring>> given;
    for (const auto& [depth, value] : DepthRegisterOf::load(project, state.point)) {
        numbers.push_back(0);
        const auto row = rows.find(depth);
        if (row == rows.end())
            continue;
        const auto before = replaced.find(row->second->id);
        if (before != replaced.end())
            numbers.back() = formerNumbers[*before->second->key];
        if (before == replaced.end() || elementOf(*before->second) != elementOf(*row->second))
            given.emplace_back(numbers.size(), elementOf(*row->second));
    }
    NumberedLinks links = project.getNumberedLinks();
    moveLayerLinks(links, state.point, numbers);
    for (const auto& [number, element] : given)
        assignElement(links, state.point, number, element);
    if (links != project.getNumberedLinks())
        project.setNumberedLinks(links);
}

static QString differenceOf(const QString& a, const QString& b)
{
    return QString::fromStdWString(differenceText(a.toStdWString(), b.toStdWString()));
}

void LayerRegister::complete(GridRows& rows, const PointFacts& point) const
{
    double top = 0;
    QString topText = QStringLiteral("0");
    const bool isLinkable = canBeLinked(point.name);
    for (GridRow& row : rows) {
        const QString& element = row.cells[Element];
        if (!isLinkable) {
            row.locked |= quint64(1) << Element;
            row.warnings[Element] = QStringLiteral(
                "В имени точки двоеточие: её слои нельзя отнести к элементам. Переименуйте точку.");
        } else if (!element.isEmpty() && row.problems.value(Element).isEmpty()
            && std::none_of(elements_.begin(), elements_.end(), [&](const std::wstring& name) {
                   return shownElement(name) == element;
               })) {
            row.warnings[Element] =
                QStringLiteral("Элемента «%1» в проекте больше нет: слой не входит ни в один.").arg(element);
        }
        double bottom = 0;
        if (!row.problems.value(Bottom).isEmpty() || !readNumber(row.cells[Bottom], bottom))
            continue;
        // With the decimals that were typed, as every sheet and column writes them.
        row.cells[Thickness] = differenceOf(row.cells[Bottom], topText);
        row.cells[Mark] = differenceOf(point.mark, row.cells[Bottom]);
        if (bottom <= top)
            row.warnings[Thickness] =
                QStringLiteral("Мощность не больше нуля: подошва на %1 м, а кровля на %2 м.")
                    .arg(bottom)
                    .arg(top);
        if (row.cells[Description].trimmed().isEmpty())
            row.warnings[Description] = QStringLiteral("Нет описания грунта.");
        top = bottom;
        topText = row.cells[Bottom];
    }
}
