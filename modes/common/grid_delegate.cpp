#include "common/grid_delegate.h"

#include "common/edit_grid_model.h"

#include <QAbstractItemView>
#include <QApplication>
#include <QComboBox>
#include <QCompleter>
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

static QWidget* choiceEditor(const QStringList& choices, QWidget* parent)
{
    auto* box = new QComboBox(parent);
    box->setEditable(true);
    box->setInsertPolicy(QComboBox::NoInsert);
    box->setFrame(false);
    box->addItems(choices);
    box->completer()->setFilterMode(Qt::MatchContains);
    box->completer()->setCompletionMode(QCompleter::PopupCompletion);
    return box;
}

static QWidget* textEditor(QWidget* parent)
{
    auto* edit = new QPlainTextEdit(parent);
    edit->setFrameShape(QFrame::NoFrame);
    edit->setTabChangesFocus(true);
    edit->document()->setDocumentMargin(2);
    return edit;
}

QWidget* GridDelegate::createEditor(
    QWidget* parent, const QStyleOptionViewItem&, const QModelIndex& index) const
{
    const GridColumn& column = model_->columns()[index.column()];
    if (column.kind == GridColumn::Choice)
        return choiceEditor(column.choices, parent);
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
    if (auto* box = qobject_cast<QComboBox*>(editor)) {
        box->setCurrentIndex(box->findText(text));
        box->setEditText(text);
        box->lineEdit()->selectAll();
    } else if (auto* edit = qobject_cast<QPlainTextEdit*>(editor)) {
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
    if (const auto* box = qobject_cast<QComboBox*>(editor))
        model->setData(index, fittedToChoices(column.choices, box->currentText()), Qt::EditRole);
    else if (const auto* edit = qobject_cast<QPlainTextEdit*>(editor); edit && edit->document()->isModified())
        model->setData(index, edit->toPlainText(), Qt::EditRole);
    else if (const auto* line = qobject_cast<QLineEdit*>(editor); line && line->isModified())
        model->setData(index, line->text(), Qt::EditRole);
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

bool GridDelegate::finishes(QWidget* editor, const QKeyEvent& key) const
{
    if (key.key() != Qt::Key_Return && key.key() != Qt::Key_Enter)
        return false;
    const bool newLine = key.modifiers() & (Qt::ShiftModifier | Qt::ControlModifier);
    return !newLine || !qobject_cast<QPlainTextEdit*>(editor);
}

// Redo has other standard keys on other systems; here it is Ctrl+Y everywhere, as in the shell.
static void undoInEditor(QWidget* editor, bool redo)
{
    if (auto* box = qobject_cast<QComboBox*>(editor))
        editor = box->lineEdit();
    if (auto* edit = qobject_cast<QPlainTextEdit*>(editor))
        redo ? edit->redo() : edit->undo();
    else if (auto* line = qobject_cast<QLineEdit*>(editor))
        redo ? line->redo() : line->undo();
}

bool GridDelegate::eventFilter(QObject* object, QEvent* event)
{
    auto* editor = qobject_cast<QWidget*>(object);
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
    if (event->type() == QEvent::KeyPress && finishes(editor, key)) {
        Q_EMIT commitData(editor);
        Q_EMIT closeEditor(editor, NoHint);
        Q_EMIT entered();
        return true;
    }
    return QStyledItemDelegate::eventFilter(object, event);
}

bool GridDelegate::editorEvent(
    QEvent* event, QAbstractItemModel* model, const QStyleOptionViewItem& option, const QModelIndex& index)
{
    if (model_->columns()[index.column()].kind != GridColumn::Flag
        || event->type() != QEvent::MouseButtonRelease)
        return QStyledItemDelegate::editorEvent(event, model, option, index);
    const auto& mouse = static_cast<const QMouseEvent&>(*event);
    if (mouse.button() != Qt::LeftButton || mouse.modifiers() != Qt::NoModifier
        || qAbs(mouse.pos().x() - option.rect.center().x()) > option.rect.height())
        return false;
    const bool isSet = !index.data(Qt::EditRole).toString().isEmpty();
    return model->setData(index, isSet ? QString() : QStringLiteral("1"), Qt::EditRole);
}
