#include "dialogs/study_table.h"

#include "dialogs/study_controller.h"
#include "dialogs/study_model.h"

#include <QHeaderView>
#include <QKeyEvent>
#include <QPainter>
#include <QPainterPath>
#include <QStyledItemDelegate>

static constexpr int initialWidth = 150;

namespace
{

// Draws a check mark where the cell holds the mark: the font "Symbol", in which the mark would look like one,
// is on few machines.
class MarkDelegate : public QStyledItemDelegate
{
public:
    using QStyledItemDelegate::QStyledItemDelegate;

    void paint(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const override
    {
        if (index.data().toString() != QString::fromWCharArray(StudyController::mark)) {
            QStyledItemDelegate::paint(painter, option, index);
            return;
        }
        QStyleOptionViewItem empty = option;
        initStyleOption(&empty, index);
        empty.text.clear();
        const QWidget* widget = option.widget;
        widget->style()->drawControl(QStyle::CE_ItemViewItem, &empty, painter, widget);

        const bool selected = (option.state & QStyle::State_Selected) != 0;
        const QPointF middle = QRectF(option.rect).center();
        QPainterPath check(middle + QPointF(-6, 0));
        check.lineTo(middle + QPointF(-1.5, 5));
        check.lineTo(middle + QPointF(7, -5));
        painter->save();
        painter->setRenderHint(QPainter::Antialiasing);
        painter->setPen(QPen(selected ? option.palette.color(QPalette::HighlightedText) : QColor(0, 110, 60),
            2.4,
            Qt::SolidLine,
            Qt::RoundCap,
            Qt::RoundJoin));
        painter->drawPath(check);
        painter->restore();
    }
};

} // namespace

StudyTable::StudyTable(StudyController* controller, StudyModel* model, QWidget* parent)
    : TXTable(parent)
    , controller_(controller)
{
    setModel(model);
    for (int column = 0; column < StudyController::columnCount; ++column)
        setColumnWidth(column, initialWidth);
    setItemDelegate(new MarkDelegate(this));
    setAlternatingRowColors(true);
    verticalHeader()->hide();
}

void StudyTable::paintEvent(QPaintEvent* event)
{
    TXTable::paintEvent(event);
    if (model()->rowCount() > 0)
        return;
    QPainter painter(viewport());
    painter.setPen(palette().color(QPalette::Disabled, QPalette::Text));
    painter.drawText(viewport()->rect(),
        Qt::AlignCenter,
        QStringLiteral("Нет точек. Добавьте точку в режиме «Ведомость координат»."));
}

void StudyTable::keyPressEvent(QKeyEvent* event)
{
    TXTable::keyPressEvent(event);
    if (event->key() == Qt::Key_Enter)
        react();
}

void StudyTable::keyReleaseEvent(QKeyEvent* event)
{
    TXTable::keyReleaseEvent(event);
    if (event->key() == Qt::Key_Escape)
        react();
}

void StudyTable::mouseDoubleClickEvent(QMouseEvent* event)
{
    TXTable::mouseDoubleClickEvent(event);
    react();
}
