// Menus, tool bars and status bar, built from the table of actions.

#include "app/combo_box_visual_style.h"
#include "app/main_controller.h"
#include "app/main_window.h"
#include "app/show_label.h"
#include "app/visual_style.h"

#include <QAction>
#include <QHBoxLayout>
#include <QLabel>
#include <QMenuBar>
#include <QProgressBar>
#include <QSpacerItem>
#include <QStatusBar>
#include <QStyleFactory>
#include <QToolBar>

static constexpr QSize barIconSize{24, 24};

void MainController::createUserInterface()
{
    createActions();
    createMenusAndBars();
    handActionsToFacade();
    createStatusBar();
    updateTitle(ModeProjects);
    mainWindow_->setWindowIcon(QIcon(QStringLiteral(":/images/tellurix.ico")));
    mainWindow_->setUnifiedTitleAndToolBarOnMac(true);
    updateActions();
}

// The two actions whose making depends on the machine.
bool MainController::isMade(ShellAction action) const
{
    if (action == ShellAction::Stamps)
        return stampsEnabled_;
    if (action == ShellAction::Synchro)
        return controller_->sectionEditorAvailable();
    return true;
}

void MainController::createActions()
{
    for (const ActionRow& row : actionRows())
        if (isMade(row.action))
            actions_[row.action] = makeAction(row);
    actions_[ShellAction::SampleSet]->setCheckable(true);
    if (QAction* synchro = actions_[ShellAction::Synchro])
        synchro->setEnabled(settings_->isSectionEditorActivated() && settings_->isSectionEditorLocal());
}

// In every size that bars and menus show, on dense displays too: a picture made smaller loses its lines. Told
// the size, the icon would decode the picture at once and not when it is shown.
static QIcon iconNamed(const char* file)
{
    const QString name = QString::fromLatin1(file);
    QIcon icon(QStringLiteral(":/images/") + name);
    for (const int size : {16, 24, 32, 96})
        icon.addFile(QStringLiteral(":/images/%1/%2").arg(QString::number(size), name));
    return icon;
}

QAction* MainController::makeAction(const ActionRow& row)
{
    auto* made = new QAction(QString::fromWCharArray(row.text), mainWindow_);
    made->setObjectName(QString::fromLatin1(row.name));
    const QString tip = QString::fromWCharArray(row.tip ? row.tip : row.text);
    made->setStatusTip(tip);
    made->setToolTip(tip);
    const QIcon icon = row.icon ? iconNamed(row.icon) : QIcon();
    made->setIcon(row.theme ? QIcon::fromTheme(QString::fromLatin1(row.theme), icon) : icon);
    made->setShortcut(row.shortcut.sequence());
    made->setEnabled(row.on);
    QObject::connect(made, &QAction::triggered, mainWindow_, [this, &row] { trigger(row); });
    return made;
}

void MainController::trigger(const ActionRow& row)
{
    if (row.run)
        (this->*row.run)();
    else if (row.mode != ModeNone)
        changeMode(row.mode);
}

void MainController::createMenusAndBars()
{
    QToolBar* fileBar = mainWindow_->addToolBar(QStringLiteral("Файл"));
    QMenu* fileMenu = mainWindow_->menuBar()->addMenu(QStringLiteral("&Файл"));
    QMenu* editMenu = mainWindow_->menuBar()->addMenu(QStringLiteral("&Редактирование"));
    QMenu* pointMenu = mainWindow_->menuBar()->addMenu(QStringLiteral("&Комплексная точка"));
    modeToolBar_ = new QToolBar(QStringLiteral("Ведомость координат"), mainWindow_);
    QMenu* setupMenu = mainWindow_->menuBar()->addMenu(QStringLiteral("&Настройки"));
    QMenu* recordMenu = mainWindow_->menuBar()->addMenu(QStringLiteral("&Доступные режимы"));
    auto* recordBar = new QToolBar(QStringLiteral("&Доступные режимы"), mainWindow_);

    struct Place {
        unsigned place;
        QWidget* where;
        unsigned separator;
    };
    const Place places[] = {{InFileMenu, fileMenu, MenuSeparator},
        {InFileBar, fileBar, BarSeparator},
        {InEditMenu, editMenu, 0},
        {InPointMenu, pointMenu, MenuSeparator},
        {InPointBar, modeToolBar_, BarSeparator},
        {InSetupMenu, setupMenu, MenuSeparator},
        {InRecordMenu, recordMenu, MenuSeparator},
        {InRecordBar, recordBar, BarSeparator}};
    for (const ActionRow& row : actionRows())
        for (const Place& place : places)
            if (actions_[row.action] && (row.places & place.place) != 0) {
                place.where->addAction(actions_[row.action]);
                if ((row.places & place.separator) != 0) {
                    auto* separator = new QAction(place.where);
                    separator->setSeparator(true);
                    place.where->addAction(separator);
                }
            }
    createStyleChooser(fileBar);
    mainWindow_->addToolBarBreak(Qt::TopToolBarArea);
    mainWindow_->addToolBar(modeToolBar_);
    mainWindow_->addToolBar(Qt::RightToolBarArea, recordBar);
    for (QToolBar* bar : {fileBar, modeToolBar_, recordBar})
        bar->setIconSize(barIconSize);
    mainWindow_->menuBar()->addMenu(QStringLiteral("Помощь"))->addAction(actions_[ShellAction::About]);
}

void MainController::createStyleChooser(QToolBar* bar)
{
    auto* chooser = new ComboBoxVisualStyle(bar);
    chooser->addItems(QStyleFactory::keys());
    chooser->setCurrentText(QString::fromStdWString(settings_->visualStyleName()));
    auto* label = new QLabel(QStringLiteral("Изменение визуального стиля: "), bar);
    label->setBuddy(chooser);
    bar->addWidget(label);
    bar->addWidget(chooser);
    QObject::connect(
        chooser, &QComboBox::textActivated, mainWindow_, [this](const QString& name) { applyStyle(name); });
}

void MainController::applyStyle(const QString& name)
{
    applyVisualStyle(name);
    settings_->saveVisualStyle(name);
}

void MainController::handActionsToFacade()
{
    using A = ShellAction;
    controller_->setDeleteAction(actions_[A::Delete]);
    controller_->setAddAction(actions_[A::Add]);
    controller_->setMainSetAction(actions_[A::MainSet]);
    controller_->setSetAction(actions_[A::Set]);
    controller_->setSampleSetAction(actions_[A::SampleSet]);
    controller_->setCalcAction(actions_[A::Calc]);
    controller_->setClearAction(actions_[A::Clear]);
    controller_->setSortAction(actions_[A::Sort]);
    controller_->setEndEditAction(actions_[A::EndEdit]);
    controller_->setReportAction(actions_[A::Report]);
}

void MainController::createStatusBar()
{
    QStatusBar* bar = mainWindow_->statusBar();
    hintLabel_ = new ShowLabel(QStringLiteral("Используйте клавишу <Пробел> для выбора записи."));
    hintLabel_->setObjectName(QStringLiteral("hintLabel"));
    hintLabel_->hide();

    progressBar_ = new QProgressBar(bar);
    progressBar_->setTextVisible(false);
    progressBar_->setRange(0, 0);
    // Taken now: in a layout, and with another style, the height is another.
    const int height = progressBar_->height();
    auto* holder = new QWidget(bar);
    auto* layout = new QHBoxLayout(holder);
    layout->addItem(new QSpacerItem(progressBar_->width(), 2, QSizePolicy::Minimum, QSizePolicy::Minimum));
    layout->addWidget(progressBar_);
    bar->addPermanentWidget(holder);
    bar->insertPermanentWidget(0, hintLabel_);
    bar->setMaximumHeight(height + 40);
    bar->showMessage(QStringLiteral("Готово."));
}
