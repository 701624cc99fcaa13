#pragma once

#include <QAbstractTableModel>
#include <QVector>

// A column of an editable table.
struct GridColumn {
    enum Kind {
        Text,
        Number, // stored with a point: a typed comma becomes one; right-aligned
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
    // The same for what is stored, but looks wrong.
    QVector<QString> warnings = {};
    // A bit for each column that takes nothing in this row: computed cells.
    quint64 locked = 0;
    // A bit for each column whose cell holds, or waits for, what a calculation writes: it stands grey until
    // somebody types over it.
    quint64 computed = 0;
};

using GridRows = QVector<GridRow>;

// The rows of an EditGrid, and below them, where the table may grow, an empty spare row to begin a new one
// in. A cell that holds what the file cannot keep has a problem of its own accord.
class EditGridModel : public QAbstractTableModel
{
    Q_OBJECT

public:
    // What a delegate may ask for beside the usual roles: true where a cell has a problem, or a warning; why.
    enum Role { ProblemRole = Qt::UserRole, WarningRole, ReasonRole };

    explicit EditGridModel(const QVector<GridColumn>& columns, QObject* parent = nullptr);

    const GridRows& rows() const { return rows_; }
    const QVector<GridColumn>& columns() const { return columns_; }
    // Whether a column of many lines makes rows differ in height.
    bool hasTallRows() const;
    // The place of the row with this id, -1 where there is none.
    int rowOf(qint64 id) const;
    // Rows that were there before keep their persistent indexes, and with them current cell, selection and
    // open editor.
    void setRows(const GridRows& rows);
    // The list of a Choice, when it depends on the project or on a setting.
    void setChoices(int column, const QStringList& choices) { columns_[column].choices = choices; }

    void setSpareRow(bool shown);
    bool hasSpareRow() const { return hasSpareRow_; }
    bool isSpare(int row) const { return row == rows_.size(); }
    bool isLocked(int row, int column) const;

    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;
    Qt::ItemFlags flags(const QModelIndex& index) const override;
    // Changes nothing itself: it tells by typed() what the user wants.
    bool setData(const QModelIndex& index, const QVariant& value, int role) override;

Q_SIGNALS:
    void typed(int row, int column, const QString& text);

private:
    QString cell(const QModelIndex& index) const;
    QString problemOf(const QModelIndex& index) const;
    QString warningOf(const QModelIndex& index) const;
    bool isComputed(const QModelIndex& index) const;
    void replaceCells(const GridRows& rows);
    void removeMissing(const GridRows& rows);
    void appendNew(const GridRows& rows);
    void arrange(const GridRows& rows);

    QVector<GridColumn> columns_;
    GridRows rows_;
    bool hasSpareRow_ = false;
};
