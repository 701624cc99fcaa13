#pragma once

#include "common/table_view.h"

#include <QStandardItemModel>
#include <QVector>

#include <string>

// A cell of results.
struct ResultCell {
    enum Look { Plain, Bold, Struck };
    QString text;
    Look look = Plain;
    QString tip = {};
};
using ResultRow = QVector<ResultCell>;

// A table of results that nobody types into: numbers to the right, all copied as a block, sorted by a click.
class ResultTable : public TableView
{
public:
    // The first columns (so many) hold texts, the others numbers.
    ResultTable(const QString& name, const QStringList& titles, int textColumns, QWidget* parent = nullptr);

    // Of the first columns, pixels, until the user drags them.
    void setFirstWidths(const QVector<int>& widths);
    // The current row stays current by its place.
    void setRows(const QVector<ResultRow>& rows);
    // In the order of setRows; -1: none.
    int currentResult() const;
    void setCurrentResult(int row);

private:
    int textColumns_;
    QStandardItemModel* model_;
};

inline QString fromWide(std::wstring_view text)
{
    return QString::fromWCharArray(text.data(), static_cast<int>(text.size()));
}
