#pragma once

#include "tables/table.h"

#include <QAbstractTableModel>

// The rows of a sheet for a table, those that the filter lets through. A cell becomes a QString when somebody
// looks at it, and the filter reads the sheet itself, so that 100,000 rows are filtered between two keys.
class SheetModel : public QAbstractTableModel
{
public:
    // The columns are not copied: sheets stand for the whole run.
    explicit SheetModel(const std::vector<TableColumn>& columns, QObject* parent = nullptr);

    // All rows, whatever the filter.
    const TextRows& rows() const { return rows_; }
    std::wstring_view cell(const QModelIndex& index) const;
    // Both answer false, and nothing moves, where the same rows stay in view.
    bool setRows(TextRows rows);
    // Shows only rows in which each word stands somewhere.
    bool setFilterText(const QString& text);

    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

private:
    std::vector<std::size_t> passingRows();

    const std::vector<TableColumn>& columns_;
    TextRows rows_;
    TextRows small_; // the same in small letters, made at the first filter
    bool hasSmall_ = false;
    std::vector<std::wstring> words_; // of the filter, in small letters
    std::vector<std::size_t> shown_; // rows that pass, in order
};
