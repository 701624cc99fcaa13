#include "projects/projects_screen.h"

#include "common/sheet_page.h"
#include "common/table_view.h"
#include "modules/imain_controller.h"
#include "modules/isettings.h"
#include "platform/files.h"
#include "projects/start_panel.h"

#include <QCoreApplication>
#include <QDir>
#include <QDirIterator>
#include <QFileDialog>
#include <QHeaderView>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QMainWindow>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QMessageBox>
#include <QPushButton>
#include <QSortFilterProxyModel>
#include <QStackedLayout>
#include <QVBoxLayout>

#include <algorithm>

static constexpr int margin = 8;
static constexpr int closingMilliseconds = 200; // between two looks whether the project has been closed

ProjectsScreen::ProjectsScreen(IMainController* controller, QProgressBar* progress)
    : controller_(controller)
    , model_(new ProjectModel(this))
    , scan_(new ProjectScan(
          progress, [this] { return isOnView() && !controller_->project(); }, this))
{
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(margin, margin, margin, margin);
    layout->addLayout(makeHead());
    stack_ = new QStackedLayout;
    stack_->addWidget(makeTable());
    empty_ = new QLabel(this);
    empty_->setAlignment(Qt::AlignCenter);
    empty_->setWordWrap(true);
    stack_->addWidget(empty_);
    stack_->addWidget(makeStart());
    layout->addLayout(stack_, 1);
    layout->addWidget(makeHint());

    connect(scan_, &ProjectScan::found, this, &ProjectsScreen::showFound);
    connect(scan_, &ProjectScan::read, this, &ProjectsScreen::showRead);
    connect(scan_, &ProjectScan::finished, this, &ProjectsScreen::arrange);
    connect(model_, &ProjectModel::codeTyped, this, &ProjectsScreen::storeCode);
    again_.setSingleShot(true);
    again_.setInterval(closingMilliseconds);
    connect(&again_, &QTimer::timeout, this, &ProjectsScreen::list);
    // Not at once: the window that the screen stands in is only being shown.
    connect(this, &TXWidget::signalLoadProjects, this, [this] {
        watchActivation();
        QTimer::singleShot(0, this, &ProjectsScreen::list);
    });
    connect(this, &TXWidget::signalUpdateProjectsPath, this, &ProjectsScreen::list);
    // The text of a cell that is open goes with the focus; without one the focus is none of this screen's
    // business.
    connect(this, &TXWidget::signalCloseAllEditCell, this, [this] {
        if (isEditing())
            table_->setFocus();
    });
}

QLayout* ProjectsScreen::makeHead()
{
    filter_ = new QLineEdit(this);
    filter_->setObjectName(QStringLiteral("filter"));
    filter_->setAccessibleName(QStringLiteral("Найти проект"));
    filter_->setPlaceholderText(QStringLiteral("Найти проект"));
    filter_->setClearButtonEnabled(true);
    filter_->setMaximumWidth(360);
    filter_->installEventFilter(this);
    folder_ = new QLabel(this);
    folder_->setPalette(quietPalette(folder_->palette()));
    folder_->setTextInteractionFlags(Qt::TextSelectableByMouse);
    openFile_ = new QPushButton(QStringLiteral("Открыть файл…"), this);
    newProject_ = new QPushButton(QStringLiteral("Новый проект"), this);
    openFile_->setObjectName(QStringLiteral("openFile"));
    newProject_->setObjectName(QStringLiteral("newProject"));
    connect(openFile_, &QPushButton::clicked, this, &ProjectsScreen::openAnyFile);
    connect(newProject_, &QPushButton::clicked, this, &ProjectsScreen::makeNewProject);
    auto* head = new QHBoxLayout;
    head->addWidget(filter_, 1);
    head->addWidget(folder_, 1);
    head->addWidget(openFile_);
    head->addWidget(newProject_);
    return head;
}

static QString shownFolder(const std::wstring& workFolder)
{
    return QString::fromStdWString(systemPath(projectsFolderOf(workFolder)));
}

// The projects to try are shipped in the folder of projects beside the program; a user may work in another
// one.
static QString examplesFolder()
{
    return shownFolder(QCoreApplication::applicationDirPath().toStdWString());
}

static bool hasExamples(const QString& workFolder)
{
    const QString folder = examplesFolder();
    return QDir(folder) != QDir(workFolder)
        && QDirIterator(folder, {QStringLiteral("*.TLX")}, QDir::Files, QDirIterator::Subdirectories)
               .hasNext();
}

QWidget* ProjectsScreen::makeStart()
{
    start_ = new StartPanel(this);
    connect(start_, &StartPanel::newProject, this, &ProjectsScreen::makeNewProject);
    connect(start_, &StartPanel::openFile, this, &ProjectsScreen::openAnyFile);
    connect(start_, &StartPanel::openExample, this, [this] { openFrom(examplesFolder()); });
    return start_;
}

QWidget* ProjectsScreen::makeHint()
{
    hint_ = new QLabel(
        QStringLiteral("Enter или двойной щелчок — открыть проект, F2 — изменить шифр, буква — искать."),
        this);
    hint_->setPalette(quietPalette(hint_->palette()));
    return hint_;
}

QWidget* ProjectsScreen::makeTable()
{
    table_ = new TableView(QStringLiteral("projects/register"), this);
    table_->setSourceModel(model_);
    table_->setAccessibleName(QStringLiteral("Проекты"));
    table_->setSelectionBehavior(QAbstractItemView::SelectRows);
    table_->setEditTriggers(QAbstractItemView::EditKeyPressed);
    table_->setTextElideMode(Qt::ElideMiddle); // of a saving place both ends tell most
    table_->verticalHeader()->hide();
    // As wide as what usually stands in a column.
    static const QString usual[ProjectModel::ColumnCount] = {QStringLiteral("20-1040/26"),
        QStringLiteral("Жилой дом по улице Садовой, секция «А»"),
        QStringLiteral("SADOVAYA-12.TLX"),
        QStringLiteral("10000"),
        QStringLiteral("2026-11-21 00:00"),
        QStringLiteral("Размер, КБ"),
        QStringLiteral("этот файл")};
    for (int column = 0; column < ProjectModel::ColumnCount; ++column)
        table_->setFirstWidth(column, table_->fontMetrics().horizontalAdvance(usual[column]) + 2 * margin);
    table_->installEventFilter(this);
    connect(filter_, &QLineEdit::textChanged, this, &ProjectsScreen::arrange);
    connect(table_, &QTableView::doubleClicked, this, &ProjectsScreen::openCurrent);
    return table_;
}

// Enter opens, F2 edits the code wherever the row is current; a letter typed over the table begins a search,
// the arrows lead back from it.
bool ProjectsScreen::eventFilter(QObject* watched, QEvent* event)
{
    // The line of an open cell passes its Enter on.
    if (event->type() != QEvent::KeyPress || isEditing())
        return TXWidget::eventFilter(watched, event);
    auto* key = static_cast<QKeyEvent*>(event);
    if (key->key() == Qt::Key_Return || key->key() == Qt::Key_Enter) {
        openCurrent();
        return true;
    }
    if (watched == table_ && key->key() == Qt::Key_F2 && table_->currentIndex().isValid())
        table_->setCurrentIndex(table_->currentIndex().siblingAtColumn(ProjectModel::Code));
    const bool isText = !key->text().isEmpty() && key->text()[0].isPrint()
        && key->text()[0] != QLatin1Char(' ')
        && (key->modifiers() & (Qt::ControlModifier | Qt::AltModifier)) == 0;
    if (watched == table_ && isText) {
        filter_->setFocus();
        filter_->setText(filter_->text() + key->text());
        return true;
    }
    if (watched == filter_ && (key->key() == Qt::Key_Down || key->key() == Qt::Key_Up)) {
        table_->setFocus();
        if (!table_->currentIndex().isValid())
            table_->selectRow(0);
        return true;
    }
    if (watched == filter_ && key->key() == Qt::Key_Escape) {
        filter_->clear();
        return true;
    }
    return TXWidget::eventFilter(watched, event);
}

bool ProjectsScreen::isOnView() const
{
    const auto* own = dynamic_cast<const QMdiSubWindow*>(parentWidget());
    const QMdiSubWindow* current = own && own->mdiArea() ? own->mdiArea()->currentSubWindow() : nullptr;
    return isVisible() && (!current || current == own);
}

bool ProjectsScreen::isEditing() const
{
    return table_->indexWidget(table_->currentIndex()) != nullptr;
}

// The shell does not tell this screen when it comes on top again.
void ProjectsScreen::watchActivation()
{
    if (auto* window = dynamic_cast<QMdiSubWindow*>(parentWidget()))
        connect(window, &QMdiSubWindow::aboutToActivate, &again_, qOverload<>(&QTimer::start));
}

void ProjectsScreen::list()
{
    if (!isOnView())
        return;
    if (isEditing()) {
        again_.start();
        return;
    }
    model_->setEditable(controller_->project() == nullptr);
    if (controller_->project()) {
        again_.start();
        return;
    }
    const std::wstring workFolder = controller_->settings()->projectPath();
    const QString folder = shownFolder(workFolder);
    start_->showExamples(hasExamples(folder));
    folder_->setText(QStringLiteral("Папка: ") + folder);
    folder_->setToolTip(QStringLiteral("Папка проектов; меняется в настройках программы"));
    if (scan_->start(workFolder))
        folderWords_ = QStringLiteral("Проектов пока нет. Создайте новый или откройте файл.\n"
                                      "Проекты хранятся в папке %1")
                           .arg(folder);
    else
        folderWords_ =
            QStringLiteral("Папка проектов не создаётся:\n%1\n\nВыберите в настройках программы рабочую "
                           "папку, в которую можно записывать.")
                .arg(folder);
    arrange();
}

void ProjectsScreen::showFound(const QVector<ProjectEntry>& entries)
{
    if (entries == model_->entries())
        return;
    const QModelIndex current = table_->sourceIndex(table_->currentIndex());
    const std::wstring path = current.isValid() ? model_->entries()[current.row()].path : std::wstring();
    model_->setEntries(entries);
    arrange();
    int row = 0;
    for (int i = 0; i < entries.size(); ++i)
        if (entries[i].path == path)
            row = i;
    const QModelIndex seen = table_->seenIndex(model_->index(row, ProjectModel::Code));
    if (seen.isValid())
        table_->setCurrentIndex(seen);
    if (!filter_->hasFocus())
        table_->setFocus();
}

// What is typed over the table is looked for in files that come in later, too.
void ProjectsScreen::showRead(int row, const ProjectEntry& entry)
{
    model_->setEntry(row, entry);
    if (!filter_->text().isEmpty())
        arrange();
}

void ProjectsScreen::arrange()
{
    table_->setFilterText(filter_->text());
    if (auto* rows = dynamic_cast<QSortFilterProxyModel*>(table_->model()))
        rows->sort(rows->sortColumn(), rows->sortOrder());
    const QVector<ProjectEntry>& entries = model_->entries();
    const bool isRead = std::none_of(entries.begin(), entries.end(), [](const ProjectEntry& entry) {
        return entry.state == ProjectEntry::State::waiting;
    });
    start_->setWords(folderWords_);
    empty_->setText(
        QStringLiteral("Ничего не найдено: «%1».\n\nEsc — показать все проекты.").arg(filter_->text()));
    const bool isEmpty = isRead && table_->model()->rowCount() == 0;
    const bool atStart = isEmpty && entries.isEmpty();
    const bool comesUp = atStart && stack_->currentWidget() != start_;
    stack_->setCurrentIndex(atStart ? 2 : isEmpty ? 1 : 0);
    // The panel says the same, larger.
    for (QWidget* part : std::initializer_list<QWidget*>{filter_, folder_, openFile_, newProject_, hint_})
        part->setVisible(!atStart);
    if (comesUp)
        start_->setFocus();
}

void ProjectsScreen::openCurrent()
{
    QModelIndex seen = table_->currentIndex();
    // From the filter: the first row that it leaves.
    if (!seen.isValid())
        seen = table_->model()->index(0, 0);
    const QModelIndex index = table_->sourceIndex(seen);
    if (index.isValid())
        open(model_->entries()[index.row()].path);
}

void ProjectsScreen::openAnyFile()
{
    openFrom(shownFolder(controller_->settings()->projectPath()));
}

void ProjectsScreen::openFrom(const QString& folder)
{
    const QString file = QFileDialog::getOpenFileName(window(),
        QStringLiteral("Открыть проект"),
        folder,
        QStringLiteral("Проекты (*.TLX *.tlx);;Все файлы (*)"));
    if (!file.isEmpty())
        open(file.toStdWString());
}

void ProjectsScreen::warn(const QString& title, const QString& words)
{
    QMessageBox::warning(controller_->mainWindow(), title, words);
}

bool ProjectsScreen::mayOpen(const QString& title)
{
    if (!controller_->project())
        return true;
    warn(title, QStringLiteral("Сначала закройте текущий проект: «Файл», «Закрыть текущий проект»."));
    return false;
}

void ProjectsScreen::makeNewProject()
{
    const QString title = QStringLiteral("Новый проект");
    if (!mayOpen(title))
        return;
    Q_EMIT signalShowOpenProject();
    if (!controller_->project())
        warn(title,
            QStringLiteral("Последний файл не открылся, и пока это так, новый проект не создаётся.\n"
                           "Откройте любой исправный проект и закройте его или запустите программу заново."));
}

void ProjectsScreen::open(const std::wstring& path)
{
    const QString title = QStringLiteral("Открытие проекта");
    if (!mayOpen(title))
        return;
    // Looked at first: after an attempt that failed the shell would make no new project until one succeeds.
    if (const std::wstring problem = openingProblem(path); !problem.empty()) {
        warn(title, QString::fromStdWString(systemPath(path) + L"\n\n" + problem));
        return;
    }
    scan_->stop();
    controller_->setProjectPath(path);
    controller_->openProject();
    if (controller_->project())
        Q_EMIT signalShowOpenProject();
    else
        list();
}

void ProjectsScreen::storeCode(int row, const QString& code)
{
    const QString title = QStringLiteral("Шифр проекта");
    if (!mayOpen(title))
        return;
    ProjectEntry entry;
    entry.path = model_->entries()[row].path;
    const std::wstring workFolder = controller_->settings()->projectPath();
    // The file may have changed since it was listed, and the shell writes it without a question.
    const std::wstring problem = storingProblem(entry.path, workFolder);
    if (problem.empty())
        controller_->setProjectCodeOf(entry.path, code.toStdWString());
    lookAtFile(entry);
    readProjectEntry(entry, workFolder);
    scan_->setEntry(row, entry);
    const QString path = QString::fromStdWString(systemPath(entry.path));
    if (!problem.empty())
        warn(title, QStringLiteral("Шифр не записан.\n%1\n\n").arg(path) + QString::fromStdWString(problem));
    else if (entry.code != code.toStdWString())
        warn(title,
            QStringLiteral("Шифр записан не так, как введён: в файле стоит «%1».\nПроверьте, можно ли "
                           "изменять файл %2 и нет ли в шифре редких знаков.")
                .arg(QString::fromStdWString(entry.code), path));
}
