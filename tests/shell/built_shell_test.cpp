// What the shell is built of, held against a list of its own: what stands where, what it is called and looks
// like, and what comes of it.

#include "app/about_dialog.h"
#include "app/combo_box_visual_style.h"
#include "core/base/undo_manager.h"
#include "dialogs/study_dialog.h"
#include "shell/shell_test.h"

#include <QContextMenuEvent>
#include <QLabel>
#include <QLayout>
#include <QMenu>
#include <QMenuBar>
#include <QProgressBar>
#include <QPushButton>
#include <QStatusBar>
#include <QStyleFactory>
#include <QToolBar>

#include <vector>

namespace
{

using A = ShellAction;

struct Wanted {
    A action;
    const char* name;
    const char* text;
    const char* tip; // the text, where none
    const char* picture;
    QKeySequence keys;
    bool startsOn;
    const char* effect; // of a trigger, as Effects tells it
};

// When there is an application: the keys of the platform are its own.
// clang-format off
// A table, as long as it must be. NOLINTNEXTLINE(readability-function-size)
const std::vector<Wanted>& wantedActions()
{
    static const std::vector<Wanted> rows{
    {A::Save, "actSave", "Сохранить", "Сохранить текущий проект", "save.png",
        QKeySequence::Save, false, "saved"},
    {A::Close, "actClose", "Закрыть текущий проект", nullptr, "close.png", {}, false,
        "asks Проект"},
    {A::Report, "actReport", "Генерация отчетной документации", nullptr, "print.png", {},
        false, "20 signalPrint"},
    {A::ExportOgm, "actExportOgm", "Экспорт в ОГМ", nullptr, nullptr, {}, false, ""},
    {A::Exit, "actExit", "Выход", "Завершить работу Tellurix", nullptr, QKeySequence::Quit,
        true, "asks Проект"},
    {A::About, "actAbout", "О Tellurix...", nullptr, "about.png", {}, true, "about"},
    {A::Undo, "actUndo", "Отменить(Ctrl+Z)", "Отменить", "undo.png",
        QKeySequence(QStringLiteral("Ctrl+Z")), false, "editors closed, undone"},
    {A::Redo, "actRedo", "Вернуть(Ctrl+Y)", "Вернуть", "redo.png",
        QKeySequence(QStringLiteral("Ctrl+Y")), false, "editors closed, done"},
    {A::ListCoords, "actListCoords", "Создание нового проекта <Ведомость координат>", "Ведомость координат",
        "listCoord.png", {}, true, "mode 1"},
    {A::Litology, "actLitology", "Литология", nullptr, "litology.png", {}, false, "mode 3"},
    {A::Tests, "actTests", "Пробы", nullptr, "tests.png", {}, false, "mode 4"},
    {A::Waters, "actWaters", "Уровни воды", nullptr, "water.png", {}, false, "mode 5"},
    {A::Consistents, "actConsistents", "Консистенция", nullptr, "consistent.png", {}, false, "mode 6"},
    {A::Laboratory, "actLaboratory", "Лаборатория", nullptr, "lab.png", {}, false, "mode 7"},
    {A::Ige, "actIge", "Инженерно-геологический элемент", nullptr, "ige.png", {}, false, "mode 8"},
    {A::Static, "actStatic", "Статическое зондирование", nullptr, "staticProbing.png", {}, false,
        "mode 10"},
    {A::Section, "actSection", "Построение разреза", nullptr, "section.png", {}, false, "mode 11"},
    {A::Igk, "actIgk", "Инженерно-геологическая колонка", nullptr, "igk.png", {}, false, "mode 17"},
    {A::Column, "actColumn", "Стратиграфическая колонка", nullptr, "str.png", {}, true, "mode 23"},
    {A::Subsidence, "actSubsidence", "Общая просадочность", nullptr, "subsidence.png", {}, false,
        "mode 19"},
    {A::Chemistry, "actChemistry", "Химический анализ", nullptr, "chemistry.png", {}, false,
        "mode 20"},
    {A::Consolidated, "actConsolidated", "Генерация отчетной документации", nullptr, "doc.png", {},
        false, "mode 21"},
    {A::Study, "actStudy", "Список выработок в исследовании", nullptr, "study.png", {}, false,
        "stored, study"},
    {A::Setup, "actSetup", "Настройка программы", nullptr, "setup.png", {}, true,
        "0 signalUpdateProjectsPath, 7 signalChangeLanguage, 21 signalChangeLanguage, 20 signalChangeLanguage, 19 signalChangeLanguage, "
        "7 signalUpdateSetup, 8 signalUpdateSetup, 17 signalUpdateSetup, 10 signalUpdateSetup, 11 signalUpdateSetup"},
    {A::Delete, "actDelete", "Удалить запись (записи)", nullptr, "delRecord.png", {}, false,
        "20 signalDelSelectedRecord"},
    {A::Add, "actAdd", "Добавить запись (записи)", nullptr, "addRecord.png", {}, false,
        "20 signalAddSelectedRecord"},
    {A::MainSet, "actMainSet", "Основной набор свойств", nullptr, "commonSetProperties.png", {}, false,
        "7 signalSetCommonDefShiftProp"},
    {A::Set, "actSet", "Набор свойств", nullptr, "setProperties.png", {}, false,
        "7 signalChangeCommonDefShiftProp"},
    {A::SampleSet, "actSampleSet", "Набор свойств для пробы", nullptr, "setPropertiesTest.png", {},
        false, "7 signalSetPropertiesTest(1)"},
    {A::Calc, "actCalc", "Расчет значений", nullptr, "calc.png", {}, false, "20 signalCalc"},
    {A::Clear, "actClear", "Очистка данных", nullptr, "clear.png", {}, false, "20 signalClearTests"},
    {A::Sort, "actSort", "Сортировка данных", nullptr, "sort.png", {}, false, "23 signalSort"},
    {A::EndEdit, "actEndEdit", "Закончить редактирование данных для пробы", nullptr, "closeEdit.png",
        {}, false, "7 signalEndEditLaboratory"},
    };
    return rows;
}
// clang-format on

// The actions of a menu or bar by their names; a separator is "|", a widget its class.
QString content(const QWidget* place)
{
    QStringList names;
    for (const QAction* each : place->actions()) {
        const auto* bar = dynamic_cast<const QToolBar*>(place);
        const QWidget* widget = bar ? bar->widgetForAction(const_cast<QAction*>(each)) : nullptr;
        if (each->isSeparator())
            names << QStringLiteral("|");
        else if (dynamic_cast<const ComboBoxVisualStyle*>(widget))
            names << QStringLiteral("styles");
        else if (const auto* label = dynamic_cast<const QLabel*>(widget))
            names << label->text();
        else
            names << each->objectName().mid(3);
    }
    return names.join(QLatin1Char(' '));
}

const QString pointActions = QStringLiteral("ListCoords Litology Tests Waters Consistents Laboratory Ige "
                                            "Static Section Igk Column Subsidence Chemistry "
                                            "Consolidated Study");
const QString recordActions = QStringLiteral("Delete Add MainSet Set SampleSet Calc Clear Sort EndEdit");

// A change that can be told from its undoing.
class Switch : public MUndoRedoCommand
{
public:
    explicit Switch(bool& on)
        : on_(on)
    {
    }
    bool execute() override { return on_ = true; }
    bool unexecute() override
    {
        on_ = false;
        return true;
    }

private:
    bool& on_;
};

class BuiltShell : public ShellTest
{
protected:
    // Every mode that a user can come to, with a project.
    void openAll()
    {
        open(QStringLiteral("LURGAN.TLX"), QStringLiteral("a.TLX"));
        for (const int mode : {1, 3, 4, 5, 6, 7, 8, 10, 11, 17, 19, 21, 22, 23, 20})
            controller().changeMode(TX_Modes(mode));
    }

    // Tells in a word what comes of an action while the chemistry is on screen.
    QString effectOf(A which)
    {
        const QString saved = here(QStringLiteral("Проекты/LURGAN/LURGAN.TLX"));
        QFile::remove(saved);
        const TX_Modes start = which == A::Chemistry ? ModeSubsidence : ModeChemistry;
        controller().changeMode(start);
        if (which == A::Undo) // closing forgets the history
            facade().undoRedo()->execute(facade().undoContext(), change_.get());
        facade().setLabMode(LabShear);
        told_.clear();
        heard(ModeChemistry);
        const bool wasOn = on_;
        {
            QTimer user;
            QObject::connect(&user, &QTimer::timeout, &user, [this] { answerDialog(); });
            user.start(1);
            action(which)->setEnabled(true);
            action(which)->trigger();
        }
        if (facade().currentMode() != start && facade().currentMode() != ModeNone)
            return QStringLiteral("mode %1").arg(facade().currentMode());
        if (QFile::exists(saved))
            told_ << QStringLiteral("saved");
        const QStringList chemistry = heard(ModeChemistry);
        if (on_ != wasOn) {
            if (chemistry.contains(QStringLiteral("signalCloseAllEditCell")))
                told_.prepend(QStringLiteral("editors closed"));
            told_ << (on_ ? QStringLiteral("done") : QStringLiteral("undone"));
        }
        if (chemistry.contains(QStringLiteral("signalUpdateDB"))
            && told_ == QStringList{QStringLiteral("study")})
            told_.prepend(QStringLiteral("stored"));
        return told_.join(QStringLiteral(", "));
    }
    void answerDialog()
    {
        auto* dialog = qobject_cast<QDialog*>(QApplication::activeModalWidget());
        if (!dialog || dialog->property("seen").toBool())
            return;
        dialog->setProperty("seen", true);
        if (dynamic_cast<AboutDialog*>(dialog))
            told_ << QStringLiteral("about");
        else if (dynamic_cast<StudyDialog*>(dialog))
            told_ << QStringLiteral("study");
        else if (auto* box = qobject_cast<QMessageBox*>(dialog))
            told_ << QStringLiteral("asks ") + box->windowTitle();
        else
            return; // the settings, which answer themselves
        dialog->reject();
    }
    // From now on every signal of the shell to a screen is told.
    void listen()
    {
        struct Heard {
            const char* name;
            void (TXWidget::*signal)();
        };
        static const Heard signalsOfShell[] = {
#define HEARD(name) {#name, &TXWidget::name}
            HEARD(signalUpdateProjectsPath),
            HEARD(signalDelSelectedRecord),
            HEARD(signalPrint),
            HEARD(signalAddSelectedRecord),
            HEARD(signalChangeLanguage),
            HEARD(signalSetCommonDefPhysProp),
            HEARD(signalChangeCommonDefPhysProp),
            HEARD(signalSetCommonDefCompProp),
            HEARD(signalChangeCommonDefCompProp),
            HEARD(signalSetCommonDefShiftProp),
            HEARD(signalChangeCommonDefShiftProp),
            HEARD(signalSetCommonDefSwellProp),
            HEARD(signalChangeCommonDefSwellProp),
            HEARD(signalEndEditLaboratory),
            HEARD(signalCalc),
            HEARD(signalClearTests),
            HEARD(signalUpdateSetup),
            HEARD(signalSaveColumn),
            HEARD(signalSort)
#undef HEARD
        };
        for (const int mode : {0, 1, 3, 4, 5, 6, 7, 8, 10, 11, 17, 19, 20, 21, 22, 23}) {
            for (const Heard& each : signalsOfShell)
                QObject::connect(bus(TX_Modes(mode)), each.signal, bus(TX_Modes(mode)), [this, mode, &each] {
                    told_ << QStringLiteral("%1 %2").arg(QString::number(mode), QLatin1String(each.name));
                });
            QObject::connect(bus(TX_Modes(mode)),
                &TXWidget::signalSetPropertiesTest,
                bus(TX_Modes(mode)),
                [this, mode](bool value) {
                    told_ << QStringLiteral("%1 signalSetPropertiesTest(%2)").arg(mode).arg(value);
                });
        }
    }
    TellurixController& facade()
    {
        return *shell.controller;
    }

    QStringList told_;
    Reference<Switch> change_ = makeReference<Switch>(on_);
    bool on_ = true; // of a change in the history of the chemistry
};

} // namespace

TEST_F(BuiltShell, ActionsAreCalledAndLookAsWanted)
{
    std::size_t made = 0;
    for (const ActionRow& row : actionRows())
        made += action(row.action) ? 1U : 0U;
    EXPECT_EQ(made, wantedActions().size());
    for (const Wanted& wanted : wantedActions()) {
        const QAction* one = action(wanted.action);
        ASSERT_NE(one, nullptr) << wanted.name;
        const QString text = QString::fromUtf8(wanted.text);
        const QString tip = wanted.tip ? QString::fromUtf8(wanted.tip) : text;
        EXPECT_EQ(one->objectName(), QLatin1String(wanted.name));
        EXPECT_EQ(one->text(), text);
        EXPECT_EQ(one->statusTip(), tip);
        EXPECT_EQ(one->toolTip(), tip);
        EXPECT_EQ(one->shortcut(), wanted.keys) << wanted.name;
        EXPECT_EQ(one->isCheckable(), wanted.action == A::SampleSet) << wanted.name;
        EXPECT_EQ(one->isEnabled(), wanted.startsOn) << wanted.name;
        EXPECT_EQ(one->parent(), shell.mainWindow.get());
        if (wanted.picture) {
            const QImage picture(QStringLiteral(":/images/24/") + QLatin1String(wanted.picture));
            // As pixmaps hold them: on the way back from there half transparent colours lose a step.
            EXPECT_EQ(one->icon().pixmap(24).toImage().convertToFormat(QImage::Format_ARGB32_Premultiplied),
                picture.convertToFormat(QImage::Format_ARGB32_Premultiplied))
                << wanted.name;
        }
    }
}

TEST_F(BuiltShell, MenusAndBarsStandInTheirOrder)
{
    const std::pair<const char*, QString> menus[] = {
        {"&Файл", QStringLiteral("Save Close | Report | ExportOgm | Exit")},
        {"&Редактирование", QStringLiteral("Undo Redo")},
        {"&Комплексная точка", pointActions},
        {"&Настройки", QStringLiteral("Setup")},
        {"&Доступные режимы", recordActions},
        {"Помощь", QStringLiteral("About")},
    };
    const auto inBar = shell.mainWindow->menuBar()->actions();
    ASSERT_EQ(static_cast<std::size_t>(inBar.size()), std::size(menus));
    for (int i = 0; i < inBar.size(); ++i) {
        EXPECT_EQ(inBar[i]->text(), QString::fromUtf8(menus[i].first));
        EXPECT_EQ(content(inBar[i]->menu()), menus[i].second);
    }

    struct Bar {
        const char* title;
        Qt::ToolBarArea area;
        bool breaks; // a line of its own
        QString content;
    };
    const Bar bars[] = {
        {"Файл",
            Qt::TopToolBarArea,
            false,
            QStringLiteral("Save Close Report About | Undo Redo | Изменение визуального стиля:  styles")},
        {"Ведомость координат", Qt::TopToolBarArea, true, pointActions + QStringLiteral(" Setup")},
        {"&Доступные режимы", Qt::RightToolBarArea, false, recordActions},
    };
    const auto found = shell.mainWindow->findChildren<QToolBar*>(QString(), Qt::FindDirectChildrenOnly);
    ASSERT_EQ(static_cast<std::size_t>(found.size()), std::size(bars));
    for (int i = 0; i < found.size(); ++i) {
        EXPECT_EQ(found[i]->windowTitle(), QString::fromUtf8(bars[i].title));
        EXPECT_EQ(shell.mainWindow->toolBarArea(found[i]), bars[i].area) << bars[i].title;
        EXPECT_EQ(shell.mainWindow->toolBarBreak(found[i]), bars[i].breaks) << bars[i].title;
        EXPECT_EQ(found[i]->iconSize(), QSize(24, 24)) << bars[i].title;
        EXPECT_EQ(content(found[i]), bars[i].content) << bars[i].title;
    }
    EXPECT_EQ(shell.mainWindow->toolButtonStyle(), Qt::ToolButtonFollowStyle);

    QStringList offered;
    QTimer::singleShot(20, shell.mainWindow.get(), [&] {
        auto* menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
        offered << (menu ? content(menu) : QString());
        if (menu)
            menu->close();
    });
    QContextMenuEvent ask(QContextMenuEvent::Mouse, QPoint(5, 5), QPoint(5, 5));
    QCoreApplication::sendEvent(shell.mainWindow.get(), &ask);
    EXPECT_EQ(offered, QStringList{QStringLiteral("Column | ListCoords | Exit")});
}

TEST_F(BuiltShell, StatusBarAndStylesAreThere)
{
    const QStatusBar* bar = shell.mainWindow->statusBar();
    EXPECT_EQ(bar->currentMessage(), QStringLiteral("Готово."));
    const auto* hint = bar->findChild<QLabel*>(QStringLiteral("hintLabel"));
    ASSERT_NE(hint, nullptr);
    EXPECT_EQ(hint->text(), QStringLiteral("Используйте клавишу <Пробел> для выбора записи."));
    EXPECT_TRUE(hint->isHidden());
    const auto* progress = bar->findChild<QProgressBar*>();
    ASSERT_NE(progress, nullptr);
    EXPECT_FALSE(progress->isTextVisible());
    EXPECT_EQ(progress->maximum(), 0);
    EXPECT_EQ(progress->minimum(), 0);
    const QLayout* row = progress->parentWidget()->layout();
    ASSERT_EQ(row->count(), 2);
    ASSERT_NE(row->itemAt(0)->spacerItem(), nullptr);
    EXPECT_EQ(
        row->itemAt(0)->spacerItem()->sizePolicy(), QSizePolicy(QSizePolicy::Minimum, QSizePolicy::Minimum));
    EXPECT_EQ(row->itemAt(0)->spacerItem()->sizeHint().height(), 2);
    EXPECT_EQ(row->itemAt(1)->widget(), progress);
    EXPECT_GT(bar->maximumHeight(), 40);
    EXPECT_LT(bar->maximumHeight(), 140);

    auto* styles = shell.mainWindow->findChild<ComboBoxVisualStyle*>();
    ASSERT_NE(styles, nullptr);
    EXPECT_EQ(styles->count(), QStyleFactory::keys().size());
    EXPECT_EQ(styles->currentText(), QString::fromStdWString(shell.settings->visualStyleName()));
    for (const QLabel* label : shell.mainWindow->findChildren<QLabel*>()) {
        if (label->text().startsWith(QStringLiteral("Изменение"))) {
            EXPECT_EQ(label->buddy(), styles);
        }
    }

    QAction* const given[] = {facade().deleteAction(),
        facade().addAction(),
        facade().mainSetAction(),
        facade().setAction(),
        facade().sampleSetAction(),
        facade().calcAction(),
        facade().clearAction(),
        facade().sortAction(),
        facade().endEditAction(),
        facade().reportAction()};
    const A wanted[] = {A::Delete,
        A::Add,
        A::MainSet,
        A::Set,
        A::SampleSet,
        A::Calc,
        A::Clear,
        A::Sort,
        A::EndEdit,
        A::Report};
    for (std::size_t i = 0; i < std::size(wanted); ++i)
        EXPECT_EQ(given[i], action(wanted[i])) << i;
}

TEST_F(BuiltShell, ActionsDoWhatIsWanted)
{
    openAll();
    listen();
    for (const Wanted& wanted : wantedActions())
        EXPECT_EQ(effectOf(wanted.action).toStdString(), wanted.effect) << wanted.name;

    const std::pair<TX_Lab_Modes, const char*> pages[] = {
        {LabPhysical, "Phys"}, {LabCompression, "Comp"}, {LabShear, "Shift"}, {LabSwell, "Swell"}};
    for (const auto& [page, word] : pages) {
        facade().setLabMode(page);
        told_.clear();
        controller().takeMainPropertySet();
        controller().takePropertySet();
        EXPECT_EQ(told_.join(QLatin1Char(' ')),
            QStringLiteral("7 signalSetCommonDef%1Prop 7 signalChangeCommonDef%1Prop")
                .arg(QLatin1String(word)));
    }
}

TEST_F(BuiltShell, RejectedSettingsChangeNothing)
{
    openAll();
    listen();
    shell.settings->setTimer(7);
    shell.settings->setIsSetTimer(true);
    auto* timer = shell.mainWindow->findChild<QTimer*>();
    qApp->setProperty("rejectsSetup", true);
    EXPECT_EQ(effectOf(A::Setup), QString());
    EXPECT_FALSE(QFile::exists(here(settingsFileName)));
    EXPECT_FALSE(timer->isActive());
    qApp->setProperty("rejectsSetup", {});
    effectOf(A::Setup);
    EXPECT_TRUE(QFile::exists(here(settingsFileName)));
    EXPECT_TRUE(timer->isActive());
    EXPECT_EQ(timer->interval(), 7 * 60000);
}

// By what comes of each signal that a screen may send.
TEST_F(BuiltShell, ScreensAreHeardAsWanted)
{
    openAll();
    const auto* hint = shell.mainWindow->findChild<QLabel*>(QStringLiteral("hintLabel"));
    const QStatusBar* bar = shell.mainWindow->statusBar();
    for (const int number : {0, 1, 3, 4, 5, 6, 7, 8, 10, 11, 17, 19, 20, 21, 22, 23}) {
        const auto mode = TX_Modes(number);
        TXWidget* screen = bus(mode);
        ASSERT_NE(screen, nullptr) << number;
        QStringList answered;
        const auto note = [&answered](int signal, bool heard) {
            if (heard)
                answered << QString::number(signal);
        };
        Q_EMIT screen->signalDeleteRecord(mode, true);
        note(10, facade().access({mode, DeleteRecords, LabNone}));
        Q_EMIT screen->signalAddRecord(mode, true);
        note(11, facade().access({mode, AddRecords, LabNone}));
        action(A::Column)->setEnabled(false);
        Q_EMIT screen->signalUpdateMenus();
        note(12, action(A::Column)->isEnabled());
        Q_EMIT screen->signalSetDefProp(LabSwell);
        note(14, facade().access({ModeLaboratory, MainPropertySet, LabSwell}));
        facade().setMainSetAccess(LabSwell, true);
        Q_EMIT screen->signalDropDefProp(LabSwell);
        note(15, !facade().access({ModeLaboratory, MainPropertySet, LabSwell}));
        facade().setMainSetAccess(LabSwell, false);
        shell.mainWindow->setWindowTitle({});
        Q_EMIT screen->signalChangeLaboratoryTitle(LabShear);
        note(24, shell.mainWindow->windowTitle().contains(QStringLiteral("<Сдвиг>")));
        Q_EMIT screen->signalSetAccessAllModes(false);
        note(25, !controller().modesAccessible());
        Q_EMIT screen->signalSetAccessAllModes(true);
        shell.mainWindow->setWindowTitle({});
        Q_EMIT screen->signalChangeTitle(ModeTests);
        note(26, shell.mainWindow->windowTitle().endsWith(QStringLiteral("[Пробы]")));
        const bool wasHidden = hint->isHidden();
        Q_EMIT screen->signalUpdateShowLabel(wasHidden);
        note(33, hint->isHidden() != wasHidden);
        Q_EMIT screen->signalShowStatusMessage(L"экран " + std::to_wstring(number));
        note(37, bar->currentMessage() == QStringLiteral("экран %1").arg(number));

        const bool tellsRecords = QList<int>{1, 3, 4, 5, 6, 10, 11, 17, 22}.contains(number);
        const QString wanted = number == 0 ? QString()
            : number == 7                  ? QStringLiteral("10 12 14 15 24 25 26 33")
            : tellsRecords                 ? QStringLiteral("10 11 12 33 37")
                                           : QStringLiteral("12 33");
        EXPECT_EQ(answered.join(QLatin1Char(' ')), wanted) << number;
    }
}

TEST_F(BuiltShell, QuestionsOfClosingAreCarefulOnes)
{
    open(QStringLiteral("LURGAN.TLX"), QStringLiteral("a.TLX"));
    shell.controller->setColumnModified(true);
    int seen = 0;
    const auto look = [&] {
        auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
        if (!box)
            return;
        ++seen;
        EXPECT_EQ(box->icon(), QMessageBox::Warning);
        EXPECT_EQ(box->standardButtons(), QMessageBox::Yes | QMessageBox::No | QMessageBox::Cancel);
        EXPECT_EQ(static_cast<QAbstractButton*>(box->defaultButton()), box->button(QMessageBox::Cancel))
            << "a stray key loses nothing";
        box->reject();
    };
    QTimer user;
    QObject::connect(&user, &QTimer::timeout, &user, look);
    user.start(1);
    EXPECT_FALSE(controller().closeProjectPrompt());
    EXPECT_FALSE(controller().closeColumnPrompt());
    EXPECT_EQ(seen, 2);

    // Whoever followed the shell's state does so no longer, though the window stays.
    struct Observer : IMObserver {
        void update() override { ++count; }
        int count = 0;
    } observer;
    shell.controller->setColumnModified(false);
    facade().attach(&observer);
    EXPECT_FALSE(shell.mainWindow->close());
    observer.count = 0;
    facade().notify();
    EXPECT_EQ(observer.count, 0);
    facade().detach(&observer);
}
