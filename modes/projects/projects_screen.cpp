#include "projects/projects_screen.h"

#include "common/table_view.h"
#include "modules/imain_controller.h"
#include "modules/isettings.h"
#include "platform/files.h"

#include <QApplication>
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
#include <QStackedLayout>
#include <QVBoxLayout>

static constexpr int margin = 8;
static constexpr int closingMilliseconds = 200; // between two looks whether the project has been closed

ProjectsScreen::ProjectsScreen(IMainController* controller, QProgressBar* progress)
    : controller_(controller)
    , model_(new ProjectModel(this))
    , scan_(new ProjectScan(progress, this))
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
    layout->addLayout(stack_, 1);

    connect(scan_, &ProjectScan::found, this, &ProjectsScreen::showFound);
    connect(scan_, &ProjectScan::read, model_, &ProjectModel::setEntry);
    connect(model_, &ProjectModel::codeTyped, this, &ProjectsScreen::storeCode);
    // Not at once: the window that the screen stands in is only being shown.
    connect(this, &TXWidget::signalLoadProjects, this, [this] {
        watchActivation();
        QTimer::singleShot(0, this, &ProjectsScreen::list);
    });
    connect(this, &TXWidget::signalUpdateProjectsPath, this, &ProjectsScreen::list);
    // The text of a cell that is open goes with the focus; without one the focus is none of this screen's
    // business.
    connect(this, &TXWidget::signalCloseAllEditCell, this, [this] {
        if (table_->viewport()->isAncestorOf(QApplication::focusWidget()))
            table_->setFocus();
    });
}

QLayout* ProjectsScreen::makeHead()
{
    filter_ = new QLineEdit(this);
    filter_->setObjectName(QStringLiteral("filter"));
    filter_->setPlaceholderText(QStringLiteral("Найти проект"));
    filter_->setClearButtonEnabled(true);
    filter_->setMaximumWidth(360);
    filter_->installEventFilter(this);
    folder_ = new QLabel(this);
    folder_->setTextInteractionFlags(Qt::TextSelectableByMouse);
    auto* openFile = new QPushButton(QStringLiteral("Открыть файл…"), this);
    auto* newProject = new QPushButton(QStringLiteral("Новый проект"), this);
    openFile->setObjectName(QStringLiteral("openFile"));
    newProject->setObjectName(QStringLiteral("newProject"));
    connect(openFile, &QPushButton::clicked, this, &ProjectsScreen::openAnyFile);
    // The shell makes a new project where none is open, and shows the open one else.
    connect(newProject, &QPushButton::clicked, this, &TXWidget::signalShowOpenProject);
    auto* head = new QHBoxLayout;
    head->addWidget(filter_, 1);
    head->addWidget(folder_, 1);
    head->addWidget(openFile);
    head->addWidget(newProject);
    return head;
}

QWidget* ProjectsScreen::makeTable()
{
    table_ = new TableView(QStringLiteral("projects/register"), this);
    table_->setSourceModel(model_);
    table_->setSelectionBehavior(QAbstractItemView::SelectRows);
    table_->setEditTriggers(QAbstractItemView::EditKeyPressed);
    table_->verticalHeader()->hide();
    // As wide as what usually stands in a column.
    static const QString usual[ProjectModel::ColumnCount] = {QStringLiteral("20-1040/26"),
        QStringLiteral("Жилой дом по улице Садовой, секция «А»"),
        QStringLiteral("SADOVAYA-12.TLX"),
        QStringLiteral("10000"),
        QStringLiteral("2026-11-21 00:00"),
        QStringLiteral("Размер, КБ"),
        QStringLiteral("этот файл")};
    if (table_->columnWidth(ProjectModel::Name) == table_->horizontalHeader()->defaultSectionSize())
        for (int column = 0; column < ProjectModel::ColumnCount; ++column)
            table_->setColumnWidth(
                column, table_->fontMetrics().horizontalAdvance(usual[column]) + 2 * margin);
    table_->installEventFilter(this);
    connect(filter_, &QLineEdit::textChanged, table_, &TableView::setFilterText);
    connect(table_, &QTableView::doubleClicked, this, &ProjectsScreen::openCurrent);
    return table_;
}

// Enter opens; a letter typed over the table begins a search, the arrows lead back from it.
bool ProjectsScreen::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() != QEvent::KeyPress)
        return TXWidget::eventFilter(watched, event);
    auto* key = static_cast<QKeyEvent*>(event);
    if (key->key() == Qt::Key_Return || key->key() == Qt::Key_Enter) {
        openCurrent();
        return true;
    }
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

// The shell does not tell this screen when it comes on top again.
void ProjectsScreen::watchActivation()
{
    if (auto* window = dynamic_cast<QMdiSubWindow*>(parentWidget()))
        connect(window, &QMdiSubWindow::aboutToActivate, this, [this] {
            QTimer::singleShot(closingMilliseconds, this, &ProjectsScreen::list);
        });
}

void ProjectsScreen::list()
{
    if (!isOnView())
        return;
    model_->setEditable(controller_->project() == nullptr);
    if (controller_->project()) {
        scan_->stop();
        QTimer::singleShot(closingMilliseconds, this, &ProjectsScreen::list);
        return;
    }
    const std::wstring workFolder = controller_->settings()->projectPath();
    const QString folder = QString::fromStdWString(systemPath(projectsFolderOf(workFolder)));
    folder_->setText(folder);
    folder_->setToolTip(QStringLiteral("Папка проектов; меняется в настройках программы"));
    if (scan_->start(workFolder))
        empty_->setText(QStringLiteral("Проектов пока нет.\n\nСоздайте новый проект или откройте файл.\n"
                                       "Проекты хранятся в папке %1")
                            .arg(folder));
    else
        empty_->setText(
            QStringLiteral("Папка проектов не создаётся:\n%1\n\nВыберите в настройках программы рабочую "
                           "папку, в которую можно записывать.")
                .arg(folder));
}

void ProjectsScreen::showFound(const QVector<ProjectEntry>& entries)
{
    const QModelIndex current = table_->sourceIndex(table_->currentIndex());
    const std::wstring path = current.isValid() ? model_->entries()[current.row()].path : std::wstring();
    model_->setEntries(entries);
    stack_->setCurrentIndex(entries.isEmpty() ? 1 : 0);
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
    const QString folder =
        QString::fromStdWString(systemPath(projectsFolderOf(controller_->settings()->projectPath())));
    const QString file = QFileDialog::getOpenFileName(window(),
        QStringLiteral("Открыть проект"),
        folder,
        QStringLiteral("Проекты (*.TLX *.tlx);;Все файлы (*)"));
    if (!file.isEmpty())
        open(file.toStdWString());
}

void ProjectsScreen::open(const std::wstring& path)
{
    const auto refuse = [this](const QString& words) {
        QMessageBox::warning(controller_->mainWindow(), QStringLiteral("Открытие проекта"), words);
    };
    if (controller_->project()) {
        refuse(QStringLiteral("Сначала закройте текущий проект: «Файл», «Закрыть текущий проект»."));
        return;
    }
    // Looked at first: after an attempt that failed the shell would make no new project until one succeeds.
    if (const std::wstring problem = openingProblem(path); !problem.empty()) {
        refuse(QString::fromStdWString(systemPath(path) + L"\n\n" + problem));
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
    const std::wstring path = model_->entries()[row].path;
    controller_->setProjectCodeOf(path, code.toStdWString());
    ProjectEntry entry;
    entry.path = path;
    const FileInfo file = fileInfo(path);
    entry.size = file.size;
    entry.modified = file.modified;
    readProjectEntry(entry, controller_->settings()->projectPath());
    model_->setEntry(row, entry);
    if (entry.code != code.toStdWString())
        QMessageBox::warning(controller_->mainWindow(),
            QStringLiteral("Шифр проекта"),
            QStringLiteral("Шифр не записан. Проверьте, можно ли изменять файл %1")
                .arg(QString::fromStdWString(systemPath(path))));
}
