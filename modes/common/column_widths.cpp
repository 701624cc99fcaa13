#include "common/column_widths.h"

#include "common/resting_hand.h"
#include "common/view_settings.h"

#include <QEvent>
#include <QHeaderView>
#include <QScopedValueRollback>
#include <QSettings>
#include <QTableView>

ColumnWidths::ColumnWidths(QTableView* table, const QString& name)
    : QObject(table)
    , table_(table)
    , header_(table->horizontalHeader())
    , key_(QStringLiteral("widths/") + name)
{
    const QStringList widths = viewSettings()->value(key_).toStringList();
    for (int column = 0; column < qMin(header_->count(), widths.size()); ++column)
        if (const int width = widths[column].toInt(); width > 0 && hasOwnWidth(column)) {
            header_->resizeSection(column, width);
            dragged_.insert(column);
        }
    // The rows in view tell how wide a text is: to ask all of ten thousand takes too long.
    header_->setResizeContentsPrecision(0);
    auto* hand = new RestingHand(header_, [this] { keep(); });
    connect(header_, &QHeaderView::sectionResized, this, [this, hand](int column) {
        if (resizing_ || !header_->isVisible() || !hasOwnWidth(column))
            return;
        follow(column);
        hand->wait();
    });
    later_.setSingleShot(true);
    later_.setInterval(0);
    connect(&later_, &QTimer::timeout, this, [this] { share(Share::GrowOnly); });
    connect(table->model(), &QAbstractItemModel::modelReset, &later_, qOverload<>(&QTimer::start));
    connect(table->model(), &QAbstractItemModel::rowsInserted, &later_, qOverload<>(&QTimer::start));
    table->viewport()->installEventFilter(this);
}

// A column that takes the rest of the width has none of its own: remembered, it would be cut off in a wider
// table, or push the others out of a narrower one.
bool ColumnWidths::hasOwnWidth(int column) const
{
    return header_->sectionResizeMode(column) == QHeaderView::Interactive
        && (!header_->stretchLastSection() || column != header_->count() - 1);
}

void ColumnWidths::keep() const
{
    QStringList widths;
    for (int column = 0; column < header_->count(); ++column)
        widths += QString::number(dragged_.contains(column) ? header_->sectionSize(column) : 0);
    viewSettings()->setValue(key_, widths);
}

void ColumnWidths::follow(int column)
{
    dragged_.insert(column);
    given_.remove(column);
}

void ColumnWidths::resize(int column, int width)
{
    const QScopedValueRollback<bool> resizing(resizing_, true);
    header_->resizeSection(column, width);
}

void ColumnWidths::setFirst(int column, int width)
{
    if (!dragged_.contains(column))
        resize(column, qMax(width, header_->sectionSizeHint(column)));
}

void ColumnWidths::makeRoomForTitles(int first)
{
    for (int column = first; column < header_->count(); ++column)
        if (!header_->isSectionHidden(column))
            resize(column, qMax(header_->sectionSize(column), header_->sectionSizeHint(column)));
}

bool ColumnWidths::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() == QEvent::Resize || event->type() == QEvent::Show)
        share(Share::Anew);
    return QObject::eventFilter(watched, event);
}

// What the rows in view take, up to that of a sentence.
int ColumnWidths::textWidth(int column) const
{
    constexpr int most = 600;
    const QAbstractItemView& view = *table_;
    return qMin(most, qMax(view.sizeHintForColumn(column), header_->sectionSizeHint(column)));
}

void ColumnWidths::share(Share how)
{
    // Texts of many lines break instead.
    if (!table_->isVisible() || table_->wordWrap() || table_->model()->rowCount() == 0)
        return;
    QHash<int, int> own;
    int room = table_->viewport()->width();
    for (int column = 0; column < header_->count(); ++column) {
        if (header_->isSectionHidden(column))
            continue;
        const int now = header_->sectionSize(column);
        if (hasOwnWidth(column))
            own.insert(column, how == Share::Anew ? given_.value(column, now) : now);
        room -= own.value(column, hasOwnWidth(column) ? now : textWidth(column));
    }
    for (int column = 0; column < header_->count(); ++column) {
        if (!own.contains(column) || dragged_.contains(column))
            continue;
        const bool isNumber =
            table_->model()->index(0, column).data(Qt::TextAlignmentRole).toInt() & Qt::AlignRight;
        const int wanted = qMax(0, textWidth(column) - own[column]);
        const int more = isNumber ? wanted : qBound(0, wanted, qMax(0, room));
        room -= more;
        if (more > 0 && !given_.contains(column))
            given_.insert(column, own[column]);
        if (own[column] + more != header_->sectionSize(column))
            resize(column, own[column] + more);
    }
}
