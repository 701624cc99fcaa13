#include "app/show_label.h"
#include "shell/shell_test.h"

#include <QElapsedTimer>
#include <QMdiArea>
#include <QSettings>
#include <QSplashScreen>
#include <QStatusBar>
#include <QToolBar>
#include <QWindow>

namespace
{

class ModeSwitching : public ShellTest
{
protected:
    static QString base() { return QStringLiteral("Tellurix 2019 - Инженерная геология"); }
    bool hintShows()
    {
        return !shell.mainWindow->findChild<ShowLabel*>(QStringLiteral("hintLabel"))->isHidden();
    }
};

QStringList list(const char* names)
{
    return QString::fromLatin1(names).split(QLatin1Char(' '), Qt::SkipEmptyParts);
}

} // namespace

TEST_F(ModeSwitching, StartsWithTheRegisterOfProjects)
{
    EXPECT_EQ(heard(ModeProjects), list("signalLoadProjects"));
    EXPECT_EQ(shell.mainWindow->windowTitle(), base() + QStringLiteral(" - "));
    EXPECT_EQ(shell.controller->currentMode(), ModeNone);
    EXPECT_EQ(shell.mainWindow->statusBar()->currentMessage(), QStringLiteral("Готово."));
    EXPECT_FALSE(hintShows());
}

TEST_F(ModeSwitching, TellsOldAndNewScreenInOrder)
{
    open(QStringLiteral("LURGAN.TLX"), QStringLiteral("a.TLX"));
    controller().changeMode(ModeLitology);
    EXPECT_EQ(heard(ModeLitology), list("signalUpdateMode")) << "new: nothing to refresh";
    EXPECT_EQ(shell.mainWindow->windowTitle(), base() + QStringLiteral(" - [Литология]"));
    controller().changeMode(ModeTests);
    EXPECT_EQ(heard(ModeLitology), list("signalUpdateDB signalCloseAllEditCell"));
    heard(ModeTests);
    controller().changeMode(ModeLitology);
    EXPECT_EQ(heard(ModeLitology),
        list("signalCloseAllEditCell signalUpdateComplexPoints signalUpdateInfo signalUpdateMode"));
    // New, and refreshed all the same.
    shell.controller->setLabMode(LabShear);
    controller().changeMode(ModeChemistry);
    EXPECT_EQ(heard(ModeChemistry), list("signalUpdateComplexPoints signalUpdateInfo signalUpdateMode"));
    EXPECT_EQ(shell.controller->labMode(), LabNone);
    // The laboratory keeps its page.
    controller().changeMode(ModeLaboratory);
    shell.controller->setLabMode(LabShear);
    controller().changeMode(ModeLaboratory);
    EXPECT_EQ(shell.controller->labMode(), LabShear);
}

TEST_F(ModeSwitching, EachModeIsTakenInItsWay)
{
    open(QStringLiteral("LURGAN.TLX"), QStringLiteral("a.TLX"));
    struct Case {
        TX_Modes mode;
        bool hint;
        bool refreshesWhenNew;
        bool keepsPage;
    };
    // clang-format off
    const Case rows[] = {
        {ModeLitology, true, false, false}, {ModeTests, true, false, false}, {ModeWaters, true, false, false},
        {ModeConsistents, true, false, false}, {ModeLaboratory, false, false, true}, {ModeIge, false, true, false},
        {ModeStatic, true, true, false}, {ModeSection, false, true, false}, {ModeIgk, false, true, false},
        {ModeSubsidence, false, true, false}, {ModeChemistry, false, true, false},
        {ModeConsolidated, false, true, false}, {ModeStratigraphic, true, false, false},
        {ModeStratigraphicIge, false, false, false},
    };
    // clang-format on
    const auto refreshes = [&](TX_Modes mode) {
        return heard(mode)
            .join(QLatin1Char(' '))
            .contains(QStringLiteral("signalUpdateComplexPoints signalUpdateInfo"));
    };
    for (const Case& row : rows) {
        SCOPED_TRACE(row.mode);
        shell.controller->setLabMode(LabShear);
        controller().changeMode(row.mode);
        EXPECT_EQ(hintShows(), row.hint);
        EXPECT_EQ(refreshes(row.mode), row.refreshesWhenNew);
        EXPECT_EQ(shell.controller->labMode(), row.refreshesWhenNew ? LabNone : LabShear);
        controller().changeMode(ModeListCoords);
        heard(row.mode);
        shell.controller->setLabMode(LabShear);
        controller().changeMode(row.mode);
        EXPECT_TRUE(refreshes(row.mode));
        EXPECT_EQ(shell.controller->labMode(), row.keepsPage ? LabShear : LabNone);
    }
}

TEST_F(ModeSwitching, SomeModesAreLeftWithoutStoring)
{
    open(QStringLiteral("LURGAN.TLX"), QStringLiteral("a.TLX"));
    for (const TX_Modes mode : {ModeIge, ModeIgk, ModeConsolidated, ModeWaters}) {
        controller().changeMode(mode);
        heard(mode);
        controller().changeMode(ModeTests);
        EXPECT_EQ(heard(mode).contains(QStringLiteral("signalUpdateDB")), mode == ModeWaters) << mode;
    }
}

TEST_F(ModeSwitching, HintFollowsTheMode)
{
    open(QStringLiteral("LURGAN.TLX"), QStringLiteral("a.TLX"));
    const std::pair<TX_Modes, bool> rows[] = {{ModeLitology, true},
        {ModeListCoords, false},
        {ModeLaboratory, false},
        {ModeListCoords, true},
        {ModeIge, false},
        {ModeListCoords, true},
        {ModeSubsidence, false}};
    for (const auto& [mode, shown] : rows) {
        controller().changeMode(mode);
        EXPECT_EQ(hintShows(), shown) << mode;
    }
    Q_EMIT bus(ModeSubsidence)->signalUpdateShowLabel(true);
    EXPECT_TRUE(hintShows());
}

TEST_F(ModeSwitching, ScreensSpeakToTheShell)
{
    open(QStringLiteral("LURGAN.TLX"), QStringLiteral("a.TLX"));
    controller().changeMode(ModeTests);
    Q_EMIT bus(ModeTests)->signalDeleteRecord(ModeTests, true);
    EXPECT_TRUE(action(ShellAction::Delete)->isEnabled());
    Q_EMIT bus(ModeTests)->signalAddRecord(ModeTests, true);
    EXPECT_TRUE(action(ShellAction::Add)->isEnabled());
    Q_EMIT bus(ModeTests)->signalShowStatusMessage(L"глубина 3,5");
    EXPECT_EQ(shell.mainWindow->statusBar()->currentMessage(), QStringLiteral("глубина 3,5"));
    heard(ModeTests);
    action(ShellAction::Delete)->trigger();
    action(ShellAction::Add)->trigger();
    EXPECT_EQ(heard(ModeTests), list("signalDelSelectedRecord signalAddSelectedRecord"));

    controller().changeMode(ModeLaboratory);
    Q_EMIT bus(ModeLaboratory)->signalChangeLaboratoryTitle(LabShear);
    EXPECT_EQ(shell.mainWindow->windowTitle(),
        base() + QStringLiteral(" - (Редактирование пробы <Сдвиг>) - [Лабораторные пробы]"));
    Q_EMIT bus(ModeLaboratory)->signalChangeTitle(ModeLaboratory);
    EXPECT_EQ(shell.mainWindow->windowTitle(), base() + QStringLiteral(" - [Лабораторные пробы]"));
    Q_EMIT bus(ModeLaboratory)->signalShowStatusMessage(L"не подключено");
    EXPECT_EQ(shell.mainWindow->statusBar()->currentMessage(), QStringLiteral("глубина 3,5"));
    Q_EMIT bus(ModeLaboratory)->signalSetDefProp(LabShear);
    EXPECT_TRUE(shell.controller->access({ModeLaboratory, MainPropertySet, LabShear}));
    Q_EMIT bus(ModeLaboratory)->signalDropDefProp(LabShear);
    EXPECT_FALSE(shell.controller->access({ModeLaboratory, MainPropertySet, LabShear}));
}

TEST_F(ModeSwitching, ClosedScreensAreMadeAnewAndConnectedAgain)
{
    open(QStringLiteral("LURGAN.TLX"), QStringLiteral("a.TLX"));
    controller().changeMode(ModeTests);
    controller().findSubWindow(ModeTests)->close();
    EXPECT_EQ(controller().findSubWindow(ModeTests), nullptr);
    controller().changeMode(ModeTests);
    Q_EMIT bus(ModeTests)->signalAddRecord(ModeTests, true);
    EXPECT_TRUE(action(ShellAction::Add)->isEnabled());
}

// The register of projects too, which the start makes in another way.
TEST_F(ModeSwitching, RegisterOfProjectsMadeAnewFillsAndOpens)
{
    controller().findSubWindow(ModeProjects)->close();
    ASSERT_EQ(screen(ModeProjects), nullptr);
    controller().activateMode(ModeProjects);
    EXPECT_EQ(heard(ModeProjects), list("signalLoadProjects"));
    Q_EMIT bus(ModeProjects)->signalShowOpenProject();
    EXPECT_NE(controller().dbProject(), nullptr);
    EXPECT_EQ(shell.controller->currentMode(), ModeListCoords);
    // Not once more for every visit.
    controller().changeMode(ModeProjects);
    heard(ModeProjects);
    controller().changeMode(ModeProjects);
    EXPECT_FALSE(heard(ModeProjects).contains(QStringLiteral("signalLoadProjects")));
}

// Every form of a designer has a title, and many change it.
TEST_F(ModeSwitching, TitlesOfScreensStayOutOfTheWindows)
{
    open(QStringLiteral("LURGAN.TLX"), QStringLiteral("a.TLX"));
    controller().changeMode(ModeTests);
    const QString title = base() + QStringLiteral(" - [Пробы]");
    EXPECT_EQ(shell.mainWindow->windowTitle(), title);
    for (const char* word : {"Form", "Form2", "Form2"}) {
        screen(ModeTests)->setWindowTitle(QString::fromLatin1(word));
        EXPECT_EQ(controller().findSubWindow(ModeTests)->windowTitle(), QString());
        EXPECT_EQ(shell.mainWindow->windowTitle(), title);
        controller().changeMode(ModeWaters);
        controller().changeMode(ModeTests);
        EXPECT_EQ(shell.mainWindow->windowTitle(), title);
    }
    // One that had it before it came into its sub-window.
    auto* titled = new QWidget;
    titled->setWindowTitle(QStringLiteral("Form"));
    auto* area = shell.mainWindow->findChild<QMdiArea*>();
    area->addSubWindow(new MdiChild(area, ModeSectionEditor, titled));
    QCoreApplication::processEvents();
    EXPECT_EQ(shell.mainWindow->windowTitle(), title);
}

TEST_F(ModeSwitching, ModeAskedForWhileTheWindowIsMinimisedShowsWhenItComesBack)
{
    open(QStringLiteral("LURGAN.TLX"), QStringLiteral("a.TLX"));
    controller().changeMode(ModeWaters);
    controller().changeMode(ModeTests);
    heard(ModeTests);
    heard(ModeWaters);
    // What the display does with a window that is minimised; the platform without one leaves it where it is.
    shell.mainWindow->hide();
    QCoreApplication::processEvents();
    controller().changeMode(ModeWaters);
    EXPECT_FALSE(heard(ModeTests).contains(QStringLiteral("signalUpdateMode")));
    shell.mainWindow->showMaximized();
    QApplication::setActiveWindow(shell.mainWindow.get());
    QCoreApplication::processEvents();
    EXPECT_EQ(heard(ModeWaters).count(QStringLiteral("signalUpdateMode")), 1);
    const QMdiSubWindow* wanted = controller().findSubWindow(ModeWaters);
    auto* area = shell.mainWindow->findChild<QMdiArea*>();
    EXPECT_EQ(area->activeSubWindow(), wanted);
    EXPECT_EQ(area->subWindowList(QMdiArea::StackingOrder).constLast(), wanted);
    EXPECT_TRUE(wanted->isVisible() && !wanted->visibleRegion().isEmpty());
}

TEST(Splash, IsPaintedBeforeTheWorkBegins)
{
    class Seen : public QSplashScreen
    {
    public:
        using QSplashScreen::QSplashScreen;
        int paintings = 0;

    protected:
        void drawContents(QPainter* painter) override
        {
            ++paintings;
            QSplashScreen::drawContents(painter);
        }
    } splash(QPixmap(100, 100));
    splash.show();
    waitUntilPainted(splash);
    EXPECT_GT(splash.paintings, 0);
    EXPECT_TRUE(splash.windowHandle()->isExposed());

    // A display that never makes room for it does not hold up the work for ever.
    QSplashScreen hidden;
    hidden.winId();
    QElapsedTimer waited;
    waited.start();
    waitUntilPainted(hidden);
    EXPECT_LT(waited.elapsed(), 5000);
}

TEST_F(ModeSwitching, TitlesOfSectionViewsAndUnknownModes)
{
    const std::pair<int, QString> rows[] = {{0, base()},
        {13, base() + QStringLiteral(" - [Разрез]")},
        {16, base() + QStringLiteral(" - [Редактор разреза]")},
        {26, base() + QStringLiteral(" - ")},
        {99, base() + QStringLiteral(" - ")}};
    for (const auto& [mode, title] : rows) {
        controller().updateTitle(TX_Modes(mode));
        EXPECT_EQ(shell.mainWindow->windowTitle(), title);
    }
}

TEST_F(ModeSwitching, LeavingIsRefusedWhileDataCannotBeStored)
{
    open(QStringLiteral("LURGAN.TLX"), QStringLiteral("a.TLX"));
    controller().changeMode(ModeWaters);
    screen(ModeWaters)->setProperty("storable", false);
    const MessageAnswers answers;
    controller().finishModeLeave();
    EXPECT_EQ(answers.boxes(),
        std::vector<std::wstring>{
            L"Tellurix: Данные для режима [Уровень воды] не могут быть синхронизированны с "
            L"базой проекта!\nВозможно есть пустые строки в текущих данных."});
    EXPECT_EQ(shell.controller->currentMode(), ModeWaters);
    screen(ModeWaters)->setProperty("storable", true);
    controller().finishModeLeave();
    EXPECT_EQ(shell.controller->currentMode(), ModeProjects);
}

TEST_F(ModeSwitching, SettingsReachTheScreensThatAsk)
{
    open(QStringLiteral("LURGAN.TLX"), QStringLiteral("a.TLX"));
    controller().changeMode(ModeLaboratory);
    controller().changeMode(ModeIgk);
    for (const TX_Modes mode : {ModeProjects, ModeLaboratory, ModeIgk})
        heard(mode);
    shell.settings->setTimer(7);
    action(ShellAction::Setup)->trigger();
    EXPECT_EQ(heard(ModeProjects), list("signalUpdateProjectsPath"));
    EXPECT_EQ(heard(ModeLaboratory), list("signalChangeLanguage signalUpdateSetup"));
    EXPECT_EQ(heard(ModeIgk), list("signalUpdateSetup"));
    EXPECT_EQ(
        QSettings(here(settingsFileName), QSettings::IniFormat).value(QStringLiteral("timer")).toInt(), 7);
}

TEST_F(ModeSwitching, CtrlTabDoesNotSwitchScreens)
{
    open(QStringLiteral("LURGAN.TLX"), QStringLiteral("a.TLX"));
    controller().changeMode(ModeTests);
    controller().changeMode(ModeWaters);
    QTest::keyClick(screen(ModeWaters), Qt::Key_Tab, Qt::ControlModifier);
    QTest::keyRelease(screen(ModeWaters), Qt::Key_Control);
    auto* area = shell.mainWindow->findChild<QMdiArea*>();
    EXPECT_EQ(area->activeSubWindow(), controller().findSubWindow(ModeWaters));
}

// An exception in a screen costs the click that led to it.
TEST_F(ModeSwitching, ScreenThatThrowsLosesOneEvent)
{
    open(QStringLiteral("LURGAN.TLX"), QStringLiteral("a.TLX"));
    controller().changeMode(ModeTests);
    Q_EMIT bus(ModeTests)->signalDeleteRecord(ModeTests, true);
    screen(ModeTests)->setProperty("throwsOn", QStringLiteral("signalDelSelectedRecord"));
    const MessageAnswers answers;
    for (QWidget* widget : action(ShellAction::Delete)->associatedWidgets())
        if (auto* bar = dynamic_cast<QToolBar*>(widget))
            QTest::mouseClick(bar->widgetForAction(action(ShellAction::Delete)), Qt::LeftButton);
    EXPECT_TRUE(heard(ModeTests).contains(QStringLiteral("signalDelSelectedRecord")));
    EXPECT_TRUE(answers.boxes().empty());
    controller().changeMode(ModeWaters);
    EXPECT_EQ(shell.controller->currentMode(), ModeWaters);
}
