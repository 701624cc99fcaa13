#include "laboratory/sample_marks.h"

#include <algorithm>
#include <functional>
#include <string_view>

namespace
{

void addTo(QVector<QString>& texts, int column, const QString& text)
{
    if (texts.size() <= column)
        texts.resize(column + 1);
    if (!texts[column].isEmpty())
        texts[column] += QLatin1Char('\n');
    texts[column] += text;
}

void addRemark(GridRow& row, int column, const Remark& remark)
{
    const QString text = QString::fromWCharArray(remark.text.data(), static_cast<int>(remark.text.size()));
    addTo(remark.kind == Remark::Impossible ? row.problems : row.warnings, column, text);
}

bool isBelow(std::string_view mark, std::string_view path)
{
    return mark.size() > path.size() && mark.substr(0, path.size()) == path && mark[path.size()] == '/';
}

// The numbers of the marks that a remark belongs to.
std::vector<std::size_t> placesOf(const std::string& cell,
    const std::vector<std::string>& marks,
    const std::function<bool(std::size_t)>& isFilled)
{
    std::vector<std::size_t> places;
    for (std::string_view path = cell; !path.empty();) {
        for (std::size_t i = 0; i < marks.size(); ++i)
            if (marks[i] == path)
                places.push_back(i);
        // Above the method stand the tests by all others.
        const bool isOneTest = path.find('/') != std::string_view::npos || path == cell;
        if (places.empty() && isOneTest)
            for (std::size_t i = 0; i < marks.size(); ++i)
                if (isBelow(marks[i], path) && isFilled(i))
                    places.push_back(i);
        if (!places.empty())
            return places;
        const std::size_t slash = path.rfind('/');
        path = slash == std::string_view::npos ? std::string_view() : path.substr(0, slash);
    }
    return places;
}

} // namespace

void markCells(GridRow& row, int firstColumn, const std::vector<std::string>& marks, const Remarks& remarks)
{
    const auto isFilled = [&](std::size_t i) {
        return !row.cells.value(firstColumn + static_cast<int>(i)).isEmpty();
    };
    for (const Remark& remark : remarks)
        for (const std::size_t place : placesOf(remark.cell, marks, isFilled))
            addRemark(row, firstColumn + static_cast<int>(place), remark);
}

void markRows(GridRows& rows, int column, const std::vector<std::string>& marks, const Remarks& remarks)
{
    const auto isFilled = [&](std::size_t i) {
        const QVector<QString>& cells = rows[static_cast<int>(i)].cells;
        return std::any_of(
            cells.begin() + column, cells.end(), [](const QString& cell) { return !cell.isEmpty(); });
    };
    for (const Remark& remark : remarks)
        for (const std::size_t place : placesOf(remark.cell, marks, isFilled))
            addRemark(rows[static_cast<int>(place)], column, remark);
}
