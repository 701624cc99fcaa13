#include "litology/layer_register.h"

#include "common/number_sort_proxy.h"

QString LayerRegister::name() const
{
    return QStringLiteral("litology/layers");
}

QVector<GridColumn> LayerRegister::columns() const
{
    return {{QStringLiteral("Подошва,\nм"), GridColumn::Number, 70},
        {QStringLiteral("Мощность,\nм"), GridColumn::Number, 70, {}, true},
        {QStringLiteral("Отметка,\nм"), GridColumn::Number, 70, {}, true},
        {QStringLiteral("Геоиндекс"), GridColumn::Text, 90},
        {QStringLiteral("Описание грунта"), GridColumn::Text, 300, {}, false, true}};
}

QString LayerRegister::emptyText() const
{
    return QStringLiteral("У этой точки нет слоёв.\nIns — добавить слой, Ctrl+V — вставить из таблицы.");
}

QVector<QString> LayerRegister::cells(const RegisterValue& value) const
{
    const auto& layer = std::get<LithologyValue>(value);
    return {QString(),
        QString(),
        QString(),
        QString::fromStdWString(layer.geoIndex),
        QString::fromStdWString(layer.description)};
}

QString LayerRegister::read(int column, const QString& text, RegisterValue& value) const
{
    auto& layer = std::get<LithologyValue>(value);
    if (column == Index)
        layer.geoIndex = text.toStdWString();
    else if (column == Description)
        layer.description = text.toStdWString();
    return {};
}

void LayerRegister::complete(GridRows& rows, const PointFacts& point) const
{
    double mark = 0;
    const bool hasMark = readNumber(point.mark, mark);
    double top = 0;
    for (GridRow& row : rows) {
        double bottom = 0;
        if (!row.problems.value(Bottom).isEmpty() || !readNumber(row.cells[Bottom], bottom))
            continue;
        row.cells[Thickness] = QString::number(bottom - top, 'f', 2);
        if (hasMark)
            row.cells[Mark] = QString::number(mark - bottom, 'f', 2);
        if (bottom <= top)
            row.warnings[Thickness] =
                QStringLiteral("Мощность не больше нуля: подошва на %1 м, а кровля на %2 м.")
                    .arg(bottom)
                    .arg(top);
        if (row.cells[Description].trimmed().isEmpty())
            row.warnings[Description] = QStringLiteral("Нет описания грунта.");
        top = bottom;
    }
}
