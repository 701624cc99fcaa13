#include "common/drawing_view.h"

#include "common/drawing_output.h"

#include <QAction>
#include <QComboBox>
#include <QLabel>
#include <QSignalBlocker>
#include <QToolBar>
#include <QVBoxLayout>

#include <algorithm>

// The first of the bar, with the line behind them. A single sheet needs no way to others, and the table
// beside the drawing has the room.
static void showWayBetweenSheets(const QToolBar& bar, bool isShown)
{
    const QList<QAction*> actions = bar.actions().mid(0, 4);
    for (QAction* action : actions)
        action->setVisible(isShown);
}

DrawingView::DrawingView(QWidget* parent)
    : QWidget(parent)
    , bar_(new QToolBar)
    , pageChoice_(new QComboBox)
    , zoom_(new QLabel)
    , message_(new QLabel)
    , canvas_(new DrawingCanvas)
{
    bar_->setToolButtonStyle(Qt::ToolButtonTextOnly);
    // What folds away is not found: the neighbour of the drawing gives up the room.
    bar_->setSizePolicy(QSizePolicy::Minimum, QSizePolicy::Fixed);
    before_ = addAction(QStringLiteral("◀"), QStringLiteral("Предыдущий лист"), &DrawingView::showBefore);
    pageChoice_->setToolTip(QStringLiteral("Лист"));
    pageChoice_->setAccessibleName(QStringLiteral("Лист"));
    pageChoice_->setSizeAdjustPolicy(QComboBox::AdjustToContents);
    bar_->addWidget(pageChoice_);
    next_ = addAction(QStringLiteral("▶"), QStringLiteral("Следующий лист"), &DrawingView::showNext);
    bar_->addSeparator();
    addAction(QStringLiteral("Весь лист"), QStringLiteral("Показать лист целиком (0)"), &DrawingView::fit);
    addAction(QStringLiteral("1:1"), QStringLiteral("Натуральная величина (1)"), &DrawingView::showRealSize);
    zoom_->setMinimumWidth(fontMetrics().horizontalAdvance(QStringLiteral("6400 %")));
    zoom_->setAlignment(Qt::AlignCenter);
    bar_->addWidget(zoom_);
    bar_->addSeparator();
    addAction(QStringLiteral("Копировать"), QStringLiteral("Лист в буфер обмена"), &DrawingView::copy)
        ->setShortcut(QKeySequence::Copy);
    addAction(QStringLiteral("Сохранить как…"),
        QStringLiteral("Листы в файл PDF, SVG, DXF или PNG"),
        &DrawingView::saveAs);
    addAction(QStringLiteral("Печать…"), QStringLiteral("Просмотр и печать листов"), &DrawingView::print);
    for (QAction* action : bar_->actions())
        action->setShortcutContext(Qt::WidgetWithChildrenShortcut);
    showWayBetweenSheets(*bar_, false);
    // The same at the right button; a combo box and a label of the bar are no acts.
    for (QAction* action : bar_->actions())
        if (!action->text().isEmpty() || action->isSeparator())
            canvas_->addAction(action);
    canvas_->setContextMenuPolicy(Qt::ActionsContextMenu);

    message_->setAlignment(Qt::AlignCenter);
    message_->setWordWrap(true);
    message_->setMargin(24);
    message_->hide();
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    // A click on the bar takes what is being typed elsewhere, as one on the drawing does.
    setFocusPolicy(Qt::ClickFocus);
    setFocusProxy(canvas_);
    layout->addWidget(bar_);
    layout->addWidget(canvas_, 1);
    layout->addWidget(message_, 1);

    connect(pageChoice_, qOverload<int>(&QComboBox::activated), this, &DrawingView::showPage);
    connect(canvas_, &DrawingCanvas::zoomed, this, [this](double zoom) {
        zoom_->setText(QStringLiteral("%1 %").arg(qRound(zoom * 100)));
    });
    connect(canvas_, &DrawingCanvas::hovered, this, &DrawingView::hovered);
    connect(canvas_, &DrawingCanvas::clicked, this, &DrawingView::clicked);
}

QAction* DrawingView::addAction(const QString& text, const QString& tip, void (DrawingView::*act)())
{
    QAction* action = bar_->addAction(text, this, act);
    action->setToolTip(tip);
    return action;
}

void DrawingView::setPages(std::vector<Drawing> pages, const Hatches& hatches, const QString& fileName)
{
    pages_ = std::move(pages);
    hatches_ = hatches;
    fileName_ = fileName;
    const QSignalBlocker quiet(pageChoice_);
    pageChoice_->clear();
    for (std::size_t page = 0; page < pages_.size(); ++page)
        pageChoice_->addItem(QStringLiteral("Лист %1 из %2").arg(page + 1).arg(pages_.size()));
    showPage(std::clamp(page_, 0, qMax(0, static_cast<int>(pages_.size()) - 1)));
    showWayBetweenSheets(*bar_, pages_.size() > 1);
    setMessage(pages_.empty() ? QStringLiteral("Чертить пока нечего.") : QString());
}

void DrawingView::showPage(int page)
{
    if (page < 0 || page >= static_cast<int>(pages_.size()))
        return;
    page_ = page;
    pageChoice_->setCurrentIndex(page);
    before_->setEnabled(page > 0);
    next_->setEnabled(page + 1 < static_cast<int>(pages_.size()));
    canvas_->setDrawing(pages_[static_cast<std::size_t>(page)], hatches_);
    Q_EMIT pageShown(page);
}

void DrawingView::setMessage(const QString& text)
{
    message_->setText(text);
    message_->setVisible(!text.isEmpty());
    canvas_->setVisible(text.isEmpty());
}

void DrawingView::fit()
{
    canvas_->fit();
}

void DrawingView::showRealSize()
{
    canvas_->showRealSize();
}

void DrawingView::showNext()
{
    showPage(page_ + 1);
}

void DrawingView::showBefore()
{
    showPage(page_ - 1);
}

void DrawingView::copy()
{
    if (!pages_.empty())
        copyDrawing(canvas_->drawing(), hatches_);
}

void DrawingView::saveAs()
{
    if (!pages_.empty())
        saveDrawings(this, pages_, page_, hatches_, fileName_);
}

void DrawingView::print()
{
    if (!pages_.empty())
        printDrawings(this, pages_, hatches_);
}
