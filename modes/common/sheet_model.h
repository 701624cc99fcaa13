#pragma once

#include "common/sheet.h"

#include <QAbstractTableModel>

// The rows of a sheet for a table. A cell becomes a QString when somebody looks at it.
class SheetModel : public QAbstractTableModel
{
public:
    // The columns are not copied: sheets stand for the whole run.
    explicit SheetModel(const std::vector<SheetColumn>& columns, QObject* parent = nullptr);

    const SheetRows& rows() const { return rows_; }
    // False, and nothing moves, where the rows are what they were.
    bool setRows(SheetRows rows);

    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

private:
    const std::vector<SheetColumn>& columns_;
    SheetRows rows_;
};
