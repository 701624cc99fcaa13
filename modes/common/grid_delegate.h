#pragma once

#include <QStyledItemDelegate>

class EditGridModel;

// Draws and edits the cells of an EditGrid after the kind of their column. From an open cell Enter, Tab and,
// where it was opened by typing, the arrows lead out (Shift+Enter and Alt+Enter are a new line where a cell
// may have several); Esc gives up; Ctrl+Z and Ctrl+Y belong to the open cell and not to the shell.
class GridDelegate : public QStyledItemDelegate
{
    Q_OBJECT

public:
    GridDelegate(const EditGridModel* model, QObject* parent);

    void paint(
        QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const override;
    QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override;
    QWidget* createEditor(
        QWidget* parent, const QStyleOptionViewItem& option, const QModelIndex& index) const override;
    void setEditorData(QWidget* editor, const QModelIndex& index) const override;
    void setModelData(QWidget* editor, QAbstractItemModel* model, const QModelIndex& index) const override;
    void updateEditorGeometry(
        QWidget* editor, const QStyleOptionViewItem& option, const QModelIndex& index) const override;
    bool eventFilter(QObject* object, QEvent* event) override;
    bool editorEvent(QEvent* event,
        QAbstractItemModel* model,
        const QStyleOptionViewItem& option,
        const QModelIndex& index) override;

    // Whether the cell that opens next was opened by a letter; F2 and a click in it make the arrows its own.
    void setOpenedByTyping(bool typing) { openedByTyping_ = typing; }

Q_SIGNALS:
    // A key leads out of an editor, whose text is to be committed.
    void left(QWidget* editor, int key, Qt::KeyboardModifiers modifiers);
    // The mouse leads out of an editor into the table, which commits the text.
    void leftByMouse();

private:
    bool leadsOut(QWidget* editor, const QKeyEvent& key) const;

    const EditGridModel* model_;
    bool openedByTyping_ = false;
};

// What a text typed or pasted into a Choice means: a choice in other letters, or the only one that begins so;
// else the text itself. A text that is pasted into a Flag becomes "1" or empty.
QString fittedToChoices(const QStringList& choices, const QString& text);
QString fittedToFlag(const QString& text);
