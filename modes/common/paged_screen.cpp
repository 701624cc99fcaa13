#include "common/paged_screen.h"

#include "common/export_dialog.h"
#include "common/page.h"
#include "common/view_settings.h"

#include <QApplication>
#include <QLabel>
#include <QSettings>
#include <QShortcut>
#include <QTabBar>
#include <QTabWidget>
#include <QVBoxLayout>

#include <algorithm>

static constexpr int margin = 8;

// Where the shell shows what a screen says.
static bool shellListens(TX_Modes mode)
{
    static constexpr TX_Modes listened[] = {ModeListCoords,
        ModeLitology,
        ModeTests,
        ModeWaters,
        ModeConsistents,
        ModeStatic,
        ModeSection,
        ModeIgk,
        ModeStratigraphic};
    return std::find(std::begin(listened), std::end(listened), mode) != std::end(listened);
}

PagedScreen::PagedScreen(TX_Modes mode, ITellurixController* controller, const QString& name, QWidget* parent)
    : ModeScreen(mode, controller, parent)
    , name_(QStringLiteral("pages/") + name)
    , tabs_(new QTabWidget(this))
    , line_(new QLabel(this))
{
    tabs_->setObjectName(QStringLiteral("pages"));
    tabs_->setDocumentMode(true);
    tabs_->tabBar()->setAutoHide(true);
    line_->setObjectName(QStringLiteral("line"));
    line_->setWordWrap(true);
    line_->hide();
}

PagedScreen::~PagedScreen()
{
    tabs_->disconnect(this);
    for (Page* page : pages_)
        page->disconnect(this);
}

void PagedScreen::addPage(Page* page, const QString& title)
{
    pages_.push_back(page);
    isStale_.push_back(true);
    connect(page, &Page::statesChanged, this, [this, page] {
        if (page == front_)
            tellStates();
    });
    connect(page, &Page::said, this, [this](const QString& text) { say(text); });
    tabs_->addTab(page, title);
}

void PagedScreen::setHead(QWidget* head)
{
    head_ = head;
}

void PagedScreen::start()
{
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(margin, margin, margin, margin);
    layout->setSpacing(margin);
    if (head_)
        layout->addWidget(head_);
    layout->addWidget(tabs_, 1);
    layout->addWidget(line_);
    tabs_->setCurrentIndex(std::clamp(viewSettings()->value(name_).toInt(), 0, tabs_->count() - 1));
    front_ = static_cast<Page*>(tabs_->currentWidget());
    connect(tabs_, &QTabWidget::currentChanged, this, [this] { attempt([this] { pageTurned(); }); });
    const auto add = [this](const char* keys, int by) {
        auto* shortcut = new QShortcut(QKeySequence(QLatin1String(keys)), this);
        shortcut->setContext(Qt::WidgetWithChildrenShortcut);
        connect(shortcut, &QShortcut::activated, this, [this, by] { turnPage(by); });
    };
    add("Ctrl+PgDown", 1);
    add("Ctrl+PgUp", -1);
}

Page* PagedScreen::page() const
{
    return front_;
}

void PagedScreen::showPage(Page* page)
{
    tabs_->setCurrentWidget(page);
}

void PagedScreen::turnPage(int by)
{
    tabs_->setCurrentIndex((tabs_->currentIndex() + by + tabs_->count()) % tabs_->count());
}

void PagedScreen::pageTurned()
{
    // What was typed belongs to the state that the page behind has told of.
    front_->closeEditors();
    front_ = static_cast<Page*>(tabs_->currentWidget());
    viewSettings()->setValue(name_, tabs_->currentIndex());
    tellStates();
    // A page that nobody sees is read when the screen is.
    if (!isVisible())
        return;
    readIfStale();
    readFront();
    if (!front_->isAncestorOf(QApplication::focusWidget()))
        focusFront();
}

// A page that has nothing to show has nothing to take the keyboard either; the keys for turning pages work
// all the same.
void PagedScreen::focusFront()
{
    front_->setFocus();
    if (!isAncestorOf(QApplication::focusWidget()))
        setFocus();
}

void PagedScreen::tellStates()
{
    if (controller()->currentMode() != mode())
        return;
    front_->tellView(*controller());
    tellActions(project() && front_->canAdd(), project() && front_->canDelete());
}

void PagedScreen::readProject(IDBProject*)
{
    isStale_.assign(pages_.size(), true);
    readFront();
}

void PagedScreen::readFront()
{
    const auto place =
        static_cast<std::size_t>(std::find(pages_.begin(), pages_.end(), front_) - pages_.begin());
    if (!isStale_[place])
        return;
    isStale_[place] = false;
    front_->read(project());
    tellStates();
}

void PagedScreen::forgetProject()
{
    for (Page* page : pages_)
        page->forget();
    say({});
}

void PagedScreen::closeEditors()
{
    front_->closeEditors();
}

bool PagedScreen::store()
{
    for (Page* page : pages_)
        if (const QString problem = page->problem(); !problem.isEmpty()) {
            say(problem);
            return false;
        }
    return true;
}

void PagedScreen::becomeCurrent()
{
    tellStates();
    if (isVisible() && !isAncestorOf(QApplication::focusWidget()))
        focusFront();
}

void PagedScreen::addRecord()
{
    front_->addRecord();
}

void PagedScreen::deleteRecords()
{
    front_->deleteRecords();
}

void PagedScreen::calculate()
{
    front_->calculate();
}

void PagedScreen::clearData()
{
    front_->clearData();
}

void PagedScreen::sortData()
{
    front_->sortData();
}

void PagedScreen::settingsChanged()
{
    for (Page* page : pages_)
        page->settingsChanged();
}

void PagedScreen::printReport()
{
    if (const std::optional<Document> document = front_->report())
        handOver(*document);
    else
        say(QStringLiteral("На этой странице нечего печатать."));
}

void PagedScreen::handOver(const Document& document)
{
    const QString file = exportDocument(this, *controller(), document);
    if (!file.isEmpty())
        say(QStringLiteral("Отчет записан: %1").arg(file));
}

void PagedScreen::say(const QString& text)
{
    if (shellListens(mode())) {
        ModeScreen::say(text);
        return;
    }
    line_->setText(text);
    line_->setVisible(!text.isEmpty());
}
