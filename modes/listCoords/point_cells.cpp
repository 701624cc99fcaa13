#include "listCoords/point_cells.h"

#include "common/number_sort_proxy.h"
#include "common/typed_text.h"
#include "core/base/calendar_date.h"
#include "dictionaries/captions.h"

#include <QHash>

#include <algorithm>
#include <iterator>
#include <optional>

namespace
{

struct Choice {
    int code;
    const wchar_t* name;
    const wchar_t* other; // how lists from elsewhere have it
};

// Codes of the file. A code without a name is shown and typed as its number.
constexpr Choice kinds[] = {
    {1, L"Скважина", L"Скв."},
    {2, L"Шурф", L"Ш."},
    {3, L"Зондирование", L"Тсз."},
};
constexpr Choice profiles[] = {
    {0, L"Без профиля", L"Нет"},
    {1, L"Прод. и попереч.", L"Продольный и поперечный"},
    {2, L"Продольный", L"Прод."},
    {3, L"Поперечный", L"Попереч."},
};
constexpr Choice types[] = {
    {0, L"Геол.", L"Геологическая"},
    {1, L"Карт.", L"Картировочная"},
    {2, L"Вирт.", L"Виртуальная"},
};
constexpr int largestCode = 255; // one byte in the file

using Cells = std::wstring PointRow::*;

struct Column {
    std::wstring_view title;
    GridColumn::Kind kind;
    int width;
    Cells text; // null: the name, or a code
    const Choice* choices = nullptr;
    std::size_t choiceCount = 0;
};

// In the order of PointColumn.
// clang-format off
constexpr Column columns[] = {
    {L"Имя\nточки",                   GridColumn::Text,   96,  nullptr},
    {L"Тип скв.",                     GridColumn::Choice, 148, nullptr, kinds, std::size(kinds)},
    {captions::xMetres,               GridColumn::Number, 112, &PointRow::text0},
    {captions::yMetres,               GridColumn::Number, 112, &PointRow::text1},
    {L"Абсолютная\nотметка(м)",       GridColumn::Number, 118,  &PointRow::absoluteMark},
    {L"Относительная\nотметка(м)",    GridColumn::Number, 148, &PointRow::text3},
    {captions::profileType,           GridColumn::Choice, 170, nullptr, profiles, std::size(profiles)},
    {captions::toRight,               GridColumn::Number, 84,  &PointRow::text4},
    {captions::toLeft,                GridColumn::Number, 84,  &PointRow::text5},
    {L"Дата\nзамера",                 GridColumn::Date,   110,  &PointRow::text6},
    {captions::type,                  GridColumn::Choice, 84,  nullptr, types, std::size(types)},
};
// clang-format on
static_assert(std::size(columns) == PointColumnCount);

// Thousands of points share the few names.
QString nameOfCode(const Column& column, int code)
{
    static QHash<const Choice*, QString> names;
    const auto end = column.choices + column.choiceCount;
    const auto choice =
        std::find_if(column.choices, end, [&](const Choice& each) { return each.code == code; });
    if (choice == end)
        return QString::number(code);
    QString& name = names[choice];
    if (name.isEmpty())
        name = shownText(choice->name);
    return name;
}

std::optional<int> codeOfName(const Column& column, const QString& text)
{
    const QString wanted = text.trimmed();
    if (wanted.isEmpty())
        return column.choices->code;
    for (const Choice* choice = column.choices; choice != column.choices + column.choiceCount; ++choice)
        for (const wchar_t* name : {choice->name, choice->other})
            if (wanted.compare(QString::fromWCharArray(name), Qt::CaseInsensitive) == 0)
                return choice->code;
    bool isNumber = false;
    const int code = wanted.toInt(&isNumber);
    return isNumber && code >= 0 && code <= largestCode ? std::optional(code) : std::nullopt;
}

int codeOf(const PointKey& key, const PointRow& row, int column)
{
    return column == PointKindColumn ? key.pointKind : column == PointProfileColumn ? row.kindA : row.kindB;
}

void setCode(PointEntry& point, int column, int code)
{
    if (column == PointKindColumn)
        point.first.pointKind = static_cast<std::uint8_t>(code);
    else
        (column == PointProfileColumn ? point.second.front().kindA : point.second.front().kindB) = code;
}

} // namespace

QVector<GridColumn> pointColumns()
{
    QVector<GridColumn> made;
    for (const Column& column : columns) {
        GridColumn grid{shownText(column.title), column.kind, column.width};
        for (std::size_t i = 0; i < column.choiceCount; ++i)
            grid.choices.append(QString::fromWCharArray(column.choices[i].name));
        made.append(grid);
    }
    return made;
}

QVector<QString> pointCells(const PointKey& key, const std::vector<PointRow>& rows)
{
    static const PointRow nothing;
    const PointRow& row = rows.empty() ? nothing : rows.front();
    QVector<QString> cells(PointColumnCount);
    cells[PointNameColumn] = shownText(key.pointName);
    for (int column = PointKindColumn; column < PointColumnCount; ++column) {
        const Column& each = columns[column];
        cells[column] = each.text ? shownText(row.*each.text) : nameOfCode(each, codeOf(key, row, column));
    }
    return cells;
}

bool setPointCell(PointEntry& point, int column, const QString& text)
{
    if (point.second.empty())
        point.second.resize(1);
    const Column& each = columns[column];
    if (column == PointNameColumn) {
        point.first.pointName = text.toStdWString();
    } else if (each.text) {
        point.second.front().*each.text = text.toStdWString();
    } else {
        const auto code = codeOfName(each, text);
        if (!code)
            return false;
        setCode(point, column, *code);
    }
    return true;
}

int pointKindNamed(const QString& text)
{
    return codeOfName(columns[PointKindColumn], text).value_or(0);
}

QString pointCellWarning(int column, const QString& text)
{
    double number = 0;
    if (text.isEmpty())
        return {};
    if (columns[column].kind == GridColumn::Number && !readNumber(text, number))
        return QStringLiteral("Это не число. Текст сохранится, но в расчёты и на план не попадёт.");
    // Sections and calculations read the mark up to the comma.
    if (column == PointMarkColumn && text.contains(QLatin1Char(',')))
        return QStringLiteral(
            "Разрезы и расчёты прочтут «%1» без дробной части. Отделяйте дробь точкой, не запятой.")
            .arg(text);
    if (columns[column].kind == GridColumn::Date && !readDate(text.toStdWString()))
        return QStringLiteral("Такой даты нет. Пишите число, месяц и год: 31.12.2019.");
    return {};
}

QString pointCellProblem(int column)
{
    const Column& each = columns[column];
    QStringList names;
    for (std::size_t i = 0; i < each.choiceCount; ++i)
        names.append(QStringLiteral("«%1»").arg(QString::fromWCharArray(each.choices[i].name)));
    return QStringLiteral("Не записано: выберите %1 или введите номер от 0 до 255.")
        .arg(names.join(QStringLiteral(", ")));
}
