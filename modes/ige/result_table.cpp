#include "ige/result_table.h"

#include <QHeaderView>

ResultTable::ResultTable(const QString& name, const QStringList& titles, int textColumns, QWidget* parent)
    : TableView(name, parent)
    , textColumns_(textColumns)
    , model_(new QStandardItemModel(0, titles.size(), this))
{
    setObjectName(name);
    setEditTriggers(NoEditTriggers);
    setSelectionBehavior(SelectRows);
    setTabKeyNavigation(false);
    model_->setHorizontalHeaderLabels(titles);
    horizontalHeader()->setStretchLastSection(false);
    horizontalHeader()->setMinimumSectionSize(40);
    setSourceModel(model_);
    for (int column = 0; column < titles.size(); ++column)
        setFirstWidth(column, column < textColumns ? 150 : 70);
}

void ResultTable::setFirstWidths(const QVector<int>& widths)
{
    for (int column = 0; column < widths.size(); ++column)
        setFirstWidth(column, widths[column]);
}

void ResultTable::setRows(const QVector<ResultRow>& rows)
{
    const int current = currentResult();
    model_->setRowCount(0);
    for (const ResultRow& row : rows) {
        QList<QStandardItem*> items;
        for (int column = 0; column < row.size(); ++column) {
            auto* item = new QStandardItem(row[column].text);
            item->setEditable(false);
            item->setToolTip(row[column].tip);
            item->setTextAlignment(
                Qt::AlignVCenter | (column < textColumns_ ? Qt::AlignLeft : Qt::AlignRight));
            if (row[column].look != ResultCell::Plain) {
                QFont font = this->font();
                font.setBold(row[column].look == ResultCell::Bold);
                font.setStrikeOut(row[column].look == ResultCell::Struck);
                item->setFont(font);
            }
            if (row[column].look == ResultCell::Struck)
                item->setForeground(QColor(0x9a, 0x30, 0x30));
            items.append(item);
        }
        model_->appendRow(items);
    }
    setCurrentResult(qBound(0, current, rows.size() - 1));
}

int ResultTable::currentResult() const
{
    return currentIndex().isValid() ? sourceIndex(currentIndex()).row() : -1;
}

void ResultTable::setCurrentResult(int row)
{
    if (row >= 0 && row < model_->rowCount())
        setCurrentIndex(seenIndex(model_->index(row, 0)));
}
