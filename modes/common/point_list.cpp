#include "common/point_list.h"

#include <QAction>
#include <QApplication>
#include <QClipboard>
#include <QKeyEvent>
#include <QLineEdit>
#include <QListView>
#include <QPainter>
#include <QScopedValueRollback>
#include <QSortFilterProxyModel>
#include <QStyledItemDelegate>
#include <QVBoxLayout>

#include <algorithm>
#include <functional>

static constexpr int markWidth = 20;

QString pointKindName(int kind)
{
    switch (kind) {
    case 1:
        return QStringLiteral("скважина");
    case 2:
        return QStringLiteral("шурф");
    case 3:
        return QStringLiteral("зондирование");
    default:
        return QStringLiteral("точка");
    }
}

void PointListModel::setPoints(const QVector<ListedPoint>& points)
{
    const bool sameNames = std::equal(points_.begin(),
        points_.end(),
        points.begin(),
        points.end(),
        [](const ListedPoint& a, const ListedPoint& b) { return a.name == b.name; });
    if (points == points_)
        return;
    if (!sameNames)
        beginResetModel();
    points_ = points;
    if (!sameNames)
        endResetModel();
    else
        Q_EMIT dataChanged(index(0), index(points_.size() - 1));
}

int PointListModel::rowCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : points_.size();
}

QVariant PointListModel::data(const QModelIndex& index, int role) const
{
    if (!index.isValid())
        return {};
    const ListedPoint& point = points_[index.row()];
    switch (role) {
    case Qt::DisplayRole:
        return point.name;
    case KindRole:
        return point.kind;
    case RowsRole:
        return point.rows;
    case ProblemRole:
        return point.hasProblem;
    case Qt::ToolTipRole:
        return QStringLiteral("%1 %2, строк: %3").arg(pointKindName(point.kind), point.name).arg(point.rows)
            + (point.kind == 0 ? QStringLiteral("\nЭтой точки нет в ведомости координат.") : QString())
            + (point.hasProblem ? QStringLiteral("\nЕсть незаписанные строки.") : QString());
    default:
        return {};
    }
}

namespace
{

// A mark for the kind, the name, and on the right the number of rows.
class PointDelegate : public QStyledItemDelegate
{
public:
    using QStyledItemDelegate::QStyledItemDelegate;

    void paint(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const override
    {
        QStyleOptionViewItem item = option;
        initStyleOption(&item, index);
        const QString name = item.text;
        item.text.clear();
        const QWidget* view = item.widget;
        (view ? view->style() : QApplication::style())
            ->drawControl(QStyle::CE_ItemViewItem, &item, painter, view);

        const bool selected = item.state & QStyle::State_Selected;
        const QColor text = item.palette.color(selected ? QPalette::HighlightedText : QPalette::Text);
        const QString rows = QString::number(index.data(PointListModel::RowsRole).toInt());
        const QRect inside = item.rect.adjusted(4, 0, -8, 0);
        const int rowsWidth = item.fontMetrics.horizontalAdvance(rows) + 10;
        const QRect nameRect = inside.adjusted(markWidth, 0, -rowsWidth, 0);
        painter->save();
        paintMark(*painter, QRect(inside.topLeft(), QSize(markWidth, inside.height())), index, text);
        painter->setPen(text);
        painter->drawText(nameRect,
            Qt::AlignVCenter | Qt::AlignLeft,
            item.fontMetrics.elidedText(name, Qt::ElideMiddle, nameRect.width()));
        const bool hasProblem = index.data(PointListModel::ProblemRole).toBool();
        QColor rowsColor = hasProblem && !selected ? QColor(0xc6, 0x28, 0x28) : text;
        rowsColor.setAlphaF(hasProblem || selected ? 1.0 : 0.6);
        painter->setPen(rowsColor);
        painter->drawText(
            inside, Qt::AlignVCenter | Qt::AlignRight, hasProblem ? rows + QLatin1Char('!') : rows);
        painter->restore();
    }

    QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex&) const override
    {
        return {120, option.fontMetrics.height() + 9};
    }

private:
    static void paintMark(
        QPainter& painter, const QRect& place, const QModelIndex& index, const QColor& color)
    {
        painter.setRenderHint(QPainter::Antialiasing);
        painter.setPen(QPen(color, 1.2));
        painter.setBrush(Qt::NoBrush);
        const QPointF center = QRectF(place).center() - QPointF(2, 0);
        switch (index.data(PointListModel::KindRole).toInt()) {
        case 1: // a borehole as on plans: a circle, half filled
            painter.drawEllipse(center, 4.5, 4.5);
            painter.setBrush(color);
            painter.drawPie(QRectF(center - QPointF(4.5, 4.5), QSizeF(9, 9)), 90 * 16, 180 * 16);
            break;
        case 2:
            painter.drawRect(QRectF(center - QPointF(4, 4), QSizeF(8, 8)));
            break;
        case 3:
            painter.drawPolygon(
                QPolygonF({center + QPointF(-4.5, -4), center + QPointF(4.5, -4), center + QPointF(0, 4.5)}));
            break;
        default:
            painter.drawLine(center - QPointF(3, 0), center + QPointF(3, 0));
        }
    }
};

// A filter that nothing passes says so.
class NamesView : public QListView
{
public:
    using QListView::QListView;

protected:
    void paintEvent(QPaintEvent* event) override
    {
        QListView::paintEvent(event);
        if (model()->rowCount() > 0)
            return;
        QPainter painter(viewport());
        painter.setPen(QColor(0x60, 0x60, 0x60));
        painter.drawText(viewport()->rect().adjusted(8, 12, -8, -12),
            Qt::AlignHCenter | Qt::AlignTop | Qt::TextWordWrap,
            QStringLiteral("Такой точки нет.\nEsc — показать все."));
    }
};

} // namespace

PointList::PointList(QWidget* parent)
    : QWidget(parent)
    , model_(new PointListModel(this))
    , proxy_(new QSortFilterProxyModel(this))
    , filter_(new QLineEdit(this))
    , list_(new NamesView(this))
{
    proxy_->setSourceModel(model_);
    proxy_->setFilterCaseSensitivity(Qt::CaseInsensitive);
    filter_->setPlaceholderText(QStringLiteral("Найти точку"));
    filter_->setAccessibleName(QStringLiteral("Найти точку"));
    list_->setAccessibleName(QStringLiteral("Точки"));
    filter_->setClearButtonEnabled(true);
    filter_->setToolTip(QStringLiteral("Часть имени точки. Enter — к её строкам, Esc — показать все."));
    filter_->installEventFilter(this);
    list_->setModel(proxy_);
    list_->setUniformItemSizes(true);
    list_->setItemDelegate(new PointDelegate(list_));
    list_->setEditTriggers(QListView::NoEditTriggers);
    list_->installEventFilter(this);
    setFocusProxy(list_);

    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(filter_);
    layout->addWidget(list_);

    connect(filter_, &QLineEdit::textChanged, this, [this](const QString& text) {
        const QScopedValueRollback<bool> quiet(quiet_, true);
        proxy_->setFilterFixedString(text);
        showCurrent();
    });
    connect(list_->selectionModel(),
        &QItemSelectionModel::currentChanged,
        this,
        [this](const QModelIndex& current) {
            if (quiet_ || !current.isValid())
                return;
            current_ = current.data().toString();
            Q_EMIT chosen(current_);
        });
    connect(list_, &QListView::doubleClicked, this, &PointList::enter);
    addMenu();
}

void PointList::addMenu()
{
    const auto add = [this](const QString& text, const std::function<void()>& act) {
        auto* action = new QAction(text, list_);
        connect(action, &QAction::triggered, this, act);
        list_->addAction(action);
    };
    add(QStringLiteral("К строкам точки"), [this] { enter(); });
    add(QStringLiteral("Копировать имя"), [this] {
        if (!current_.isEmpty())
            QApplication::clipboard()->setText(current_);
    });
    add(QStringLiteral("Найти точку…"), [this] { filter_->setFocus(); });
    add(QStringLiteral("Показать все точки"), [this] { filter_->clear(); });
    list_->setContextMenuPolicy(Qt::ActionsContextMenu);
}

void PointList::setPoints(const QVector<ListedPoint>& points)
{
    const QScopedValueRollback<bool> quiet(quiet_, true);
    model_->setPoints(points);
    showCurrent();
}

void PointList::setCurrentPoint(const QString& name)
{
    const QScopedValueRollback<bool> quiet(quiet_, true);
    current_ = name;
    showCurrent();
}

// A point that the filter hides stays current, unseen.
void PointList::showCurrent()
{
    const QVector<ListedPoint>& points = model_->points();
    const auto found = std::find_if(
        points.begin(), points.end(), [&](const ListedPoint& point) { return point.name == current_; });
    const QModelIndex index = found != points.end()
        ? proxy_->mapFromSource(model_->index(int(found - points.begin())))
        : QModelIndex();
    if (index == list_->currentIndex() && list_->selectionModel()->isSelected(index))
        return;
    list_->selectionModel()->setCurrentIndex(index, QItemSelectionModel::ClearAndSelect);
    if (index.isValid())
        list_->scrollTo(index);
}

void PointList::enter()
{
    if (!list_->currentIndex().isValid() && proxy_->rowCount() > 0)
        list_->setCurrentIndex(proxy_->index(0, 0));
    if (list_->currentIndex().isValid())
        Q_EMIT entered();
}

bool PointList::handleKeyInFilter(const QKeyEvent& key)
{
    switch (key.key()) {
    case Qt::Key_Return:
    case Qt::Key_Enter:
        enter();
        return true;
    case Qt::Key_Escape:
        filter_->clear();
        list_->setFocus();
        return true;
    case Qt::Key_Down:
    case Qt::Key_Up:
        list_->setFocus();
        if (!list_->currentIndex().isValid())
            list_->setCurrentIndex(proxy_->index(0, 0));
        return true;
    default:
        return false;
    }
}

bool PointList::handleKeyInList(QKeyEvent& key)
{
    if (key.key() == Qt::Key_Return || key.key() == Qt::Key_Enter || key.key() == Qt::Key_Space) {
        enter();
        return true;
    }
    if (key.key() == Qt::Key_Escape && !filter_->text().isEmpty()) {
        filter_->clear();
        return true;
    }
    const bool isTyped = !key.text().isEmpty() && key.text().at(0).isPrint()
        && !(key.modifiers() & (Qt::ControlModifier | Qt::AltModifier));
    if (!isTyped && key.key() != Qt::Key_Backspace)
        return false;
    filter_->setFocus();
    QApplication::sendEvent(filter_, &key);
    return true;
}

bool PointList::eventFilter(QObject* object, QEvent* event)
{
    if (event->type() != QEvent::KeyPress)
        return QWidget::eventFilter(object, event);
    auto& key = static_cast<QKeyEvent&>(*event);
    return object == filter_ ? handleKeyInFilter(key) : handleKeyInList(key);
}
