#include "common/sheet_screen.h"

#include "dictionaries/report_language.h"
#include "modules/isettings.h"
#include "modules/itellurix_controller.h"

#include <QApplication>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QShortcut>
#include <QTabWidget>
#include <QTimer>
#include <QVBoxLayout>

#include <algorithm>
#include <utility>

static constexpr int margin = 8;
static constexpr int manyRows = 5000; // from here on the filter waits until the typing rests

// The same as on the button of the mode.
static QString pictureOf(TX_Modes mode)
{
    static const std::map<TX_Modes, const char*> pictures{{ModeLaboratory, "lab.png"},
        {ModeIge, "ige.png"},
        {ModeStatic, "staticProbing.png"},
        {ModeSection, "section.png"},
        {ModeIgk, "igk.png"},
        {ModeSubsidence, "subsidence.png"},
        {ModeChemistry, "chemistry.png"},
        {ModeConsolidated, "doc.png"}};
    const auto found = pictures.find(mode);
    return QString::fromLatin1(found == pictures.end() ? "str.png" : found->second);
}

SheetScreen::SheetScreen(TX_Modes mode,
    ITellurixController* controller,
    const std::vector<Table>& sheets,
    const SheetDrawings& drawings,
    QWidget* parent)
    : ModeScreen(mode, controller, parent)
    , filterRest_(new QTimer(this))
{
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(margin, margin, margin, margin);
    layout->setSpacing(margin);
    layout->addWidget(makeHead());
    addPages(sheets, drawings);
    layout->addWidget(tabs_ ? static_cast<QWidget*>(tabs_) : pages_.front(), 1);
    layout->addWidget(makeNote());
    setFocusProxy(filter_);
    filterRest_->setSingleShot(true);
    filterRest_->setInterval(150);
    connectViews();
    addShortcuts();
}

void SheetScreen::becomeCurrent()
{
    ModeScreen::becomeCurrent();
    if (!isVisible() || isAncestorOf(QApplication::focusWidget()))
        return;
    page()->focusTable();
    if (!isAncestorOf(QApplication::focusWidget()))
        filter_->setFocus(); // an empty sheet shows no table
}

QWidget* SheetScreen::makeHead()
{
    auto* head = new QWidget(this);
    auto* layout = new QHBoxLayout(head);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(margin);
    filter_ = new QLineEdit(head);
    filter_->setObjectName(QStringLiteral("filter"));
    filter_->setAccessibleName(QStringLiteral("Фильтр"));
    filter_->setPlaceholderText(QStringLiteral("Фильтр: слова через пробел"));
    filter_->setToolTip(QStringLiteral("Показать строки, в которых есть каждое из слов. Ctrl+F: сюда, "
                                       "стрелка вниз: к таблице, Esc: очистить."));
    filter_->setClearButtonEnabled(true);
    filter_->setMaximumWidth(380);
    filter_->installEventFilter(this);
    count_ = new QLabel(head);
    count_->setObjectName(QStringLiteral("count"));
    layout->addWidget(filter_, 1);
    layout->addWidget(count_);
    layout->addStretch(1);
    auto* exports = new QPushButton(QStringLiteral("Экспорт…"), head);
    exports->setToolTip(QStringLiteral(
        "Таблица в Excel, Word, OpenDocument, PDF, HTML или CSV, и на печать. Ctrl+E в таблице."));
    exports->setFocusPolicy(Qt::TabFocus);
    connect(exports, &QPushButton::clicked, this, [this] { page()->exportRows(); });
    layout->addWidget(exports);
    return head;
}

QLabel* SheetScreen::makeNote()
{
    auto* note = new QLabel(
        QStringLiteral("Просмотр. Редактирование этих данных появится в следующих версиях."), this);
    note->setPalette(quietPalette(note->palette()));
    return note;
}

void SheetScreen::addPages(const std::vector<Table>& sheets, const SheetDrawings& drawings)
{
    if (sheets.size() > 1) {
        tabs_ = new QTabWidget(this);
        tabs_->setDocumentMode(true);
    }
    stale_.assign(sheets.size(), true);
    for (const Table& sheet : sheets) {
        const auto drawing = drawings.find(sheet.name);
        auto* page = new SheetPage(
            sheet,
            [this] { return source(); },
            pictureOf(mode()),
            drawing == drawings.end() ? MakeDrawing() : drawing->second,
            this);
        connect(page, &SheetPage::rowsChanged, this, [this] { showCount(); });
        pages_.push_back(page);
        if (tabs_)
            tabs_->addTab(
                page, QString::fromWCharArray(sheet.title.data(), static_cast<int>(sheet.title.size())));
    }
    if (tabs_)
        connect(tabs_, &QTabWidget::currentChanged, this, [this] {
            readFront();
            filter();
        });
}

void SheetScreen::connectViews()
{
    connect(filter_, &QLineEdit::textChanged, this, [this] {
        if (page()->allRows() < manyRows)
            filter();
        else
            filterRest_->start();
    });
    connect(filterRest_, &QTimer::timeout, this, [this] { filter(); });
}

void SheetScreen::addShortcuts()
{
    const auto add = [this](const QKeySequence& keys, auto act) {
        auto* shortcut = new QShortcut(keys, this);
        shortcut->setContext(Qt::WidgetWithChildrenShortcut);
        connect(shortcut, &QShortcut::activated, this, act);
    };
    add(QKeySequence::Find, [this] {
        filter_->setFocus();
        filter_->selectAll();
    });
    add(QKeySequence(QStringLiteral("Ctrl+PgDown")), [this] { turnPage(1); });
    add(QKeySequence(QStringLiteral("Ctrl+PgUp")), [this] { turnPage(-1); });
}

void SheetScreen::turnPage(int by)
{
    if (tabs_)
        tabs_->setCurrentIndex((tabs_->currentIndex() + by + tabs_->count()) % tabs_->count());
}

void SheetScreen::readProject(IDBProject*)
{
    stale_.assign(pages_.size(), true);
    readFront();
}

void SheetScreen::readFront()
{
    const auto current = static_cast<std::size_t>(tabs_ ? tabs_->currentIndex() : 0);
    if (!stale_[current])
        return;
    stale_[current] = false;
    page()->read();
}

void SheetScreen::filter()
{
    filterRest_->stop();
    page()->setFilterText(filter_->text());
}

void SheetScreen::showCount()
{
    count_->setText(project() && page()->allRows() > 0
            ? QStringLiteral("Показано %1 из %2").arg(page()->shownRows()).arg(page()->allRows())
            : QString());
}

SheetPage* SheetScreen::page() const
{
    return pages_[static_cast<std::size_t>(tabs_ ? tabs_->currentIndex() : 0)];
}

std::optional<TableSource> SheetScreen::source() const
{
    if (!project())
        return std::nullopt;
    return TableSource{*project(), settings() ? knownLanguage(settings()->reportLanguage()) : 0};
}

bool SheetScreen::eventFilter(QObject* watched, QEvent* event)
{
    if (watched != filter_ || event->type() != QEvent::KeyPress)
        return ModeScreen::eventFilter(watched, event);
    switch (static_cast<QKeyEvent*>(event)->key()) {
    case Qt::Key_Down:
    case Qt::Key_Return:
    case Qt::Key_Enter:
        filter();
        page()->focusTable();
        return true;
    case Qt::Key_Escape:
        filter_->clear();
        return true;
    default:
        return false;
    }
}
