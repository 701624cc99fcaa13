#pragma once

#include <QAbstractTableModel>
#include <QVector>

// A column of an editable table.
struct GridColumn {
    enum Kind {
        Text,
        Number, // typed with comma or point, kept as typed; right-aligned
        Choice, // one of the choices, or whatever else stands there
        Date, // "31.12.2019"
        Flag, // "1" or empty, shown as a check mark
    };
    QString title; // may have line breaks
    Kind kind = Text;
    int width = 100; // pixels, until the user drags it
    QStringList choices = {};
    bool readOnly = false;
    bool multiline = false;
};

// A row. The id tells rows apart while they are moved and renamed; 0 is a row that has none yet.
struct GridRow {
    qint64 id = 0;
    QVector<QString> cells;
    // Why a cell cannot be stored as it stands, in a sentence for the tool tip; empty where all is well. May
    // be shorter than the cells.
    QVector<QString> problems = {};
};

using GridRows = QVector<GridRow>;

class EditGridModel : public QAbstractTableModel
{
    Q_OBJECT

public:
    explicit EditGridModel(const QVector<GridColumn>& columns, QObject* parent = nullptr);

    const GridRows& rows() const { return rows_; }
    const QVector<GridColumn>& columns() const { return columns_; }
    void setRows(const GridRows& rows);

    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;
    Qt::ItemFlags flags(const QModelIndex& index) const override;
    bool setData(const QModelIndex& index, const QVariant& value, int role) override;

Q_SIGNALS:
    void edited(const GridRows& after);

private:
    QVector<GridColumn> columns_;
    GridRows rows_;
};
