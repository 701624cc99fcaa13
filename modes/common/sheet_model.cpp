#include "common/sheet_model.h"

#include <algorithm>
#include <numeric>
#include <utility>

static constexpr int longText = 25; // letters from which a cell may be wider than its column

static QString fromWide(std::wstring_view text)
{
    return QString::fromWCharArray(text.data(), static_cast<int>(text.size()));
}

SheetModel::SheetModel(const std::vector<TableColumn>& columns, QObject* parent)
    : QAbstractTableModel(parent)
    , columns_(columns)
    , rows_(columns.size())
{
}

static wchar_t smallLetter(wchar_t letter)
{
    return static_cast<wchar_t>(QChar::toLower(static_cast<uint>(letter)));
}

std::wstring_view SheetModel::cell(const QModelIndex& index) const
{
    return rows_.cell(
        shown_[static_cast<std::size_t>(index.row())], static_cast<std::size_t>(index.column()));
}

bool SheetModel::setRows(TextRows rows)
{
    if (rows == rows_)
        return false;
    beginResetModel();
    rows_ = std::move(rows);
    small_ = TextRows(columns_.size());
    hasSmall_ = false;
    shown_ = passingRows();
    endResetModel();
    return true;
}

bool SheetModel::setFilterText(const QString& text)
{
    words_.clear();
    const QStringList words = text.split(QLatin1Char(' '), Qt::SkipEmptyParts);
    for (const QString& word : words) {
        words_.push_back(word.toStdWString());
        std::transform(words_.back().begin(), words_.back().end(), words_.back().begin(), smallLetter);
    }
    std::vector<std::size_t> shown = passingRows();
    if (shown == shown_)
        return false;
    // One reset instead of a removal for every run of rows: with scattered hits those take seconds.
    beginResetModel();
    shown_ = std::move(shown);
    endResetModel();
    return true;
}

std::vector<std::size_t> SheetModel::passingRows()
{
    std::vector<std::size_t> passing(rows_.size());
    std::iota(passing.begin(), passing.end(), std::size_t{0});
    if (words_.empty())
        return passing;
    if (!hasSmall_)
        small_ = rows_.changed(smallLetter);
    hasSmall_ = true;
    const auto standsInRow = [this](std::size_t row, const std::wstring& word) {
        for (std::size_t column = 0; column < small_.columns(); ++column)
            if (small_.cell(row, column).find(word) != std::wstring_view::npos)
                return true;
        return false;
    };
    std::erase_if(passing, [&](std::size_t row) {
        return !std::all_of(
            words_.begin(), words_.end(), [&](const std::wstring& word) { return standsInRow(row, word); });
    });
    return passing;
}

int SheetModel::rowCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : static_cast<int>(shown_.size());
}

int SheetModel::columnCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : static_cast<int>(columns_.size());
}

QVariant SheetModel::data(const QModelIndex& index, int role) const
{
    switch (role) {
    case Qt::DisplayRole:
        return fromWide(cell(index));
    case Qt::ToolTipRole: {
        const std::wstring_view text = cell(index);
        // As rich text a long description is broken into lines instead of running across the desktop.
        return text.size() < longText ? QVariant()
                                      : QStringLiteral("<p>%1</p>").arg(fromWide(text).toHtmlEscaped());
    }
    case Qt::TextAlignmentRole:
        return static_cast<int>(Qt::AlignVCenter
            | (columns_[static_cast<std::size_t>(index.column())].kind == TableColumn::Number
                    ? Qt::AlignRight
                    : Qt::AlignLeft));
    default:
        return {};
    }
}

QVariant SheetModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (orientation == Qt::Horizontal && role == Qt::DisplayRole)
        return fromWide(columns_[static_cast<std::size_t>(section)].title);
    return QAbstractTableModel::headerData(section, orientation, role);
}
