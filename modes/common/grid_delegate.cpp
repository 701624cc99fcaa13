#include "common/grid_delegate.h"

#include "common/choice_edit.h"
#include "common/edit_grid_model.h"
#include "common/number_sort_proxy.h"

#include <QAbstractItemView>
#include <QApplication>
#include <QKeyEvent>
#include <QLineEdit>
#include <QPainter>
#include <QPlainTextEdit>

static constexpr int openedLines = 4; // height of the editor of many lines
static constexpr int tallRowMargin = 3;

QString fittedToChoices(const QStringList& choices, const QString& text)
{
    const QString wanted = text.trimmed();
    if (wanted.isEmpty() || choices.contains(text))
        return text;
    QStringList begins;
    for (const QString& choice : choices) {
        if (choice.compare(wanted, Qt::CaseInsensitive) == 0)
            return choice;
        if (choice.startsWith(wanted, Qt::CaseInsensitive))
            begins += choice;
    }
    return begins.size() == 1 ? begins.first() : text;
}

QString fittedToFlag(const QString& text)
{
    static const QStringList no = {
        QString(), QStringLiteral("0"), QStringLiteral("-"), QStringLiteral("нет"), QStringLiteral("false")};
    return no.contains(text.trimmed().toLower()) ? QString() : QStringLiteral("1");
}

GridDelegate::GridDelegate(const EditGridModel* model, QObject* parent)
    : QStyledItemDelegate(parent)
    , model_(model)
{
}

static void paintCorner(QPainter& painter, const QRect& cell, const QColor& color)
{
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(color);
    const QPoint corner = cell.topRight() + QPoint(1, 0);
    painter.drawPolygon(QPolygon({corner, corner - QPoint(7, 0), corner + QPoint(0, 7)}));
    painter.restore();
}

void GridDelegate::paint(
    QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const
{
    QStyleOptionViewItem cell = option;
    initStyleOption(&cell, index);
    QStyle* style = cell.widget ? cell.widget->style() : QApplication::style();
    const bool isFlag = model_->columns()[index.column()].kind == GridColumn::Flag;
    const bool isSet = isFlag && !cell.text.isEmpty();
    if (isFlag)
        cell.text.clear();
    if (model_->hasTallRows()) {
        style->drawPrimitive(QStyle::PE_PanelItemViewItem, &cell, painter, cell.widget);
        cell.rect.adjust(0, tallRowMargin, 0, -tallRowMargin);
    }
    style->drawControl(QStyle::CE_ItemViewItem, &cell, painter, cell.widget);
    cell.rect = option.rect;
    if (isFlag) {
        QStyleOptionButton box;
        box.rect = style->subElementRect(QStyle::SE_CheckBoxIndicator, &box, cell.widget);
        box.rect.moveCenter(cell.rect.center());
        box.state = QStyle::State_Enabled | (isSet ? QStyle::State_On : QStyle::State_Off);
        style->drawPrimitive(QStyle::PE_IndicatorItemViewItemCheck, &box, painter, cell.widget);
    }
    if (index.data(EditGridModel::ProblemRole).toBool())
        paintCorner(*painter, cell.rect, QColor(0xc6, 0x28, 0x28));
    else if (index.data(EditGridModel::WarningRole).toBool())
        paintCorner(*painter, cell.rect, QColor(0xc7, 0x8a, 0x00));
}

QSize GridDelegate::sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const
{
    const QSize size = QStyledItemDelegate::sizeHint(option, index);
    return model_->hasTallRows() ? QSize(size.width(), size.height() + 2 * tallRowMargin) : size;
}

static QWidget* textEditor(QWidget* parent)
{
    auto* edit = new QPlainTextEdit(parent);
    edit->setFrameShape(QFrame::Box);
    edit->setFrameShadow(QFrame::Plain);
    edit->setTabChangesFocus(true);
    edit->document()->setDocumentMargin(2);
    return edit;
}

QWidget* GridDelegate::createEditor(
    QWidget* parent, const QStyleOptionViewItem&, const QModelIndex& index) const
{
    const GridColumn& column = model_->columns()[index.column()];
    if (column.kind == GridColumn::Choice) {
        auto* choice = new ChoiceEdit(column.choices, parent);
        connect(choice, &ChoiceEdit::picked, this, [this, choice] {
            auto* that = const_cast<GridDelegate*>(this);
            Q_EMIT that->commitData(choice);
            Q_EMIT that->closeEditor(choice, NoHint);
        });
        return choice;
    }
    if (column.multiline)
        return textEditor(parent);
    auto* line = new QLineEdit(parent);
    line->setFrame(false);
    if (column.kind == GridColumn::Number)
        line->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    if (column.kind == GridColumn::Date)
        line->setPlaceholderText(QStringLiteral("дд.мм.гггг"));
    return line;
}

void GridDelegate::setEditorData(QWidget* editor, const QModelIndex& index) const
{
    const QString text = index.data(Qt::EditRole).toString();
    if (auto* edit = qobject_cast<QPlainTextEdit*>(editor)) {
        edit->setPlainText(text);
        edit->selectAll();
    } else if (auto* line = qobject_cast<QLineEdit*>(editor)) {
        line->setText(text);
        line->selectAll();
    }
}

// An editor that nobody typed into writes nothing: it could not show every character that a record may hold.
void GridDelegate::setModelData(QWidget* editor, QAbstractItemModel* model, const QModelIndex& index) const
{
    const GridColumn& column = model_->columns()[index.column()];
    if (const auto* edit = qobject_cast<QPlainTextEdit*>(editor); edit && edit->document()->isModified())
        model->setData(index, edit->toPlainText(), Qt::EditRole);
    else if (const auto* line = qobject_cast<QLineEdit*>(editor); line && line->isModified())
        model->setData(index,
            column.kind == GridColumn::Choice ? fittedToChoices(column.choices, line->text()) : line->text(),
            Qt::EditRole);
}

void GridDelegate::updateEditorGeometry(
    QWidget* editor, const QStyleOptionViewItem& option, const QModelIndex& index) const
{
    QRect place = option.rect;
    if (model_->columns()[index.column()].multiline)
        place.setHeight(qMax(place.height(), openedLines * option.fontMetrics.lineSpacing() + 8));
    if (const QWidget* viewport = editor->parentWidget(); place.bottom() > viewport->height())
        place.moveBottom(qMax(viewport->height() - 1, place.height() - 1));
    editor->setGeometry(place);
}

bool GridDelegate::leadsOut(QWidget* editor, const QKeyEvent& key) const
{
    const auto* choice = qobject_cast<ChoiceEdit*>(editor);
    const bool isText = qobject_cast<QPlainTextEdit*>(editor);
    const Qt::KeyboardModifiers held = key.modifiers() & ~Qt::KeypadModifier;
    switch (key.key()) {
    case Qt::Key_Return:
    case Qt::Key_Enter:
        return !isText || held == Qt::NoModifier;
    case Qt::Key_Tab:
    case Qt::Key_Backtab:
        return !(held & ~Qt::ShiftModifier);
    case Qt::Key_Up:
    case Qt::Key_Down:
        return held == Qt::NoModifier && !(choice && choice->isListShown()) && (openedByTyping_ || !isText);
    case Qt::Key_Left:
    case Qt::Key_Right:
        return held == Qt::NoModifier && openedByTyping_;
    default:
        return false;
    }
}

// Redo has other standard keys on other systems; here it is Ctrl+Y everywhere, as in the shell.
static void undoInEditor(QWidget* editor, bool redo)
{
    if (auto* edit = qobject_cast<QPlainTextEdit*>(editor))
        redo ? edit->redo() : edit->undo();
    else if (auto* line = qobject_cast<QLineEdit*>(editor))
        redo ? line->redo() : line->undo();
}

// A line of text lets these through to the table, whose cursor would leave in the middle of the word.
static bool moveInLine(QWidget* editor, const QKeyEvent& key)
{
    auto* line = qobject_cast<QLineEdit*>(editor);
    const bool isHome = key.key() == Qt::Key_Home;
    if (!line || !(key.modifiers() & Qt::ControlModifier) || (!isHome && key.key() != Qt::Key_End))
        return false;
    const bool mark = key.modifiers() & Qt::ShiftModifier;
    isHome ? line->home(mark) : line->end(mark);
    return true;
}

bool GridDelegate::eventFilter(QObject* object, QEvent* event)
{
    auto* editor = qobject_cast<QWidget*>(object);
    if (event->type() == QEvent::MouseButtonPress)
        openedByTyping_ = false;
    // Whoever clicks means the record under the pointer, and taking the text over may move that away first:
    // the table takes it when it knows where the click was.
    if (event->type() == QEvent::FocusOut && QApplication::focusWidget() == parent()
        && static_cast<const QFocusEvent*>(event)->reason() == Qt::MouseFocusReason) {
        Q_EMIT leftByMouse();
        return false;
    }
    if (!editor || (event->type() != QEvent::KeyPress && event->type() != QEvent::ShortcutOverride))
        return QStyledItemDelegate::eventFilter(object, event);
    const auto& key = static_cast<const QKeyEvent&>(*event);
    const bool undo = key.modifiers() == Qt::ControlModifier && key.key() == Qt::Key_Z;
    const bool redo = key.modifiers() == Qt::ControlModifier && key.key() == Qt::Key_Y;
    if (undo || redo) {
        if (event->type() == QEvent::KeyPress)
            undoInEditor(editor, redo);
        event->accept();
        return true;
    }
    if (event->type() == QEvent::ShortcutOverride)
        return QStyledItemDelegate::eventFilter(object, event);
    if (leadsOut(editor, key)) {
        Q_EMIT left(editor, key.key(), key.modifiers());
        return true;
    }
    if (moveInLine(editor, key))
        return true;
    const bool isEnter = key.key() == Qt::Key_Return || key.key() == Qt::Key_Enter;
    if (auto* text = qobject_cast<QPlainTextEdit*>(editor); text && isEnter) {
        text->insertPlainText(QStringLiteral("\n"));
        return true;
    }
    if (key.key() == Qt::Key_F2)
        openedByTyping_ = false;
    return QStyledItemDelegate::eventFilter(object, event);
}

bool GridDelegate::editorEvent(
    QEvent* event, QAbstractItemModel* model, const QStyleOptionViewItem& option, const QModelIndex& index)
{
    const bool isLocked = index.data(NumberSortProxy::SpareRole).toBool()
        ? false
        : model_->isLocked(
            model_->rowOf(index.data(NumberSortProxy::RowIdRole).toLongLong()), index.column());
    if (model_->columns()[index.column()].kind != GridColumn::Flag || isLocked
        || event->type() != QEvent::MouseButtonRelease)
        return QStyledItemDelegate::editorEvent(event, model, option, index);
    const auto& mouse = static_cast<const QMouseEvent&>(*event);
    if (mouse.button() != Qt::LeftButton || mouse.modifiers() != Qt::NoModifier
        || qAbs(mouse.pos().x() - option.rect.center().x()) > option.rect.height())
        return false;
    const bool isSet = !index.data(Qt::EditRole).toString().isEmpty();
    return model->setData(index, isSet ? QString() : QStringLiteral("1"), Qt::EditRole);
}
