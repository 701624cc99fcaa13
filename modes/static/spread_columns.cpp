#include "static/spread_columns.h"

QVector<GridColumn> spreadColumns()
{
    QVector<GridColumn> columns;
    for (const char* title : {"n",
             "qc,\nМПа",
             "S,\nМПа",
             "V",
             "qc мин,\nМПа",
             "qc макс,\nМПа",
             "fs,\nкПа",
             "E,\nМПа",
             "φ,\nград.",
             "c,\nкПа"})
        columns += GridColumn{QString::fromUtf8(title), GridColumn::Number, 62, {}, true};
    return columns;
}

QVector<QString> spreadCells(const Spread& tip, const Number& meanSleeve, const SoundedProperties& properties)
{
    return {QString::number(tip.n),
        numberCell(tip.mean, 2),
        numberCell(tip.deviation, 2),
        numberCell(tip.variation, 2),
        numberCell(tip.least, 2),
        numberCell(tip.greatest, 2),
        numberCell(meanSleeve, 1),
        numberCell(properties.modulusMPa, 1),
        numberCell(properties.phiDegrees, 1),
        numberCell(properties.cohesionKPa, 0)};
}

QString numberCell(const Number& value, int decimals)
{
    return QString::fromStdWString(numberText(value, decimals));
}
