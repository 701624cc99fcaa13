#include "common/choice_edit.h"

#include <QAction>
#include <QIcon>
#include <QKeyEvent>
#include <QListWidget>
#include <QScreen>
#include <QStyle>

#include <algorithm>

static constexpr int mostLines = 12;

ChoiceEdit::ChoiceEdit(const QStringList& choices, QWidget* parent)
    : QLineEdit(parent)
    , choices_(choices)
    , list_(new QListWidget(this))
{
    setFrame(false);
    list_->setWindowFlags(Qt::ToolTip | Qt::FramelessWindowHint);
    list_->setAttribute(Qt::WA_ShowWithoutActivating);
    list_->setFocusPolicy(Qt::NoFocus);
    list_->setMouseTracking(true);
    list_->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    list_->hide();
    connect(this, &QLineEdit::textEdited, this, &ChoiceEdit::showMatching);
    connect(list_, &QListWidget::itemClicked, this, [this](const QListWidgetItem* item) {
        take(item->text());
        list_->hide();
        Q_EMIT picked();
    });
    auto* button = addAction(style()->standardIcon(QStyle::SP_ArrowDown), QLineEdit::TrailingPosition);
    button->setToolTip(QStringLiteral("Показать список (Alt+↓)"));
    connect(button, &QAction::triggered, this, [this] { isListShown() ? list_->hide() : showAll(); });
}

bool ChoiceEdit::isListShown() const
{
    return list_->isVisible();
}

void ChoiceEdit::showAll()
{
    showMatching({});
    const auto own = list_->findItems(text(), Qt::MatchExactly);
    if (!own.isEmpty())
        list_->setCurrentItem(own.first());
}

void ChoiceEdit::showMatching(const QString& typed)
{
    list_->clear();
    for (const QString& choice : choices_)
        if (choice.contains(typed.trimmed(), Qt::CaseInsensitive))
            list_->addItem(choice);
    list_->setVisible(list_->count() > 0);
    if (list_->count() == 0)
        return;
    const int line = qMax(list_->sizeHintForRow(0), fontMetrics().height() + 2);
    const int height = line * std::min(list_->count(), mostLines) + 2 * list_->frameWidth();
    const int wide = list_->sizeHintForColumn(0) + 2 * list_->frameWidth() + 24;
    QRect place(mapToGlobal(rect().bottomLeft()) + QPoint(0, 1), QSize(std::max(width(), wide), height));
    if (const QScreen* on = screen(); on && place.bottom() > on->availableGeometry().bottom())
        place.moveBottom(mapToGlobal(rect().topLeft()).y() - 1);
    list_->setGeometry(place);
}

void ChoiceEdit::take(const QString& choice)
{
    setText(choice);
    setModified(true);
}

void ChoiceEdit::walk(int step)
{
    const int next = std::clamp(list_->currentRow() + step, 0, list_->count() - 1);
    list_->setCurrentRow(next);
    take(list_->item(next)->text());
}

void ChoiceEdit::keyPressEvent(QKeyEvent* event)
{
    const bool isArrow = event->key() == Qt::Key_Down || event->key() == Qt::Key_Up;
    if (event->key() == Qt::Key_Down && event->modifiers() & Qt::AltModifier)
        showAll();
    else if (isArrow && isListShown())
        walk(event->key() == Qt::Key_Down ? 1 : -1);
    else
        QLineEdit::keyPressEvent(event);
}

void ChoiceEdit::hideEvent(QHideEvent* event)
{
    list_->hide();
    QLineEdit::hideEvent(event);
}
