#include "program/program_test.h"

#include <QCheckBox>
#include <QClipboard>
#include <QComboBox>
#include <QDialog>
#include <QListWidget>
#include <QPushButton>
#include <QSettings>
#include <QSpinBox>

#include <functional>

namespace
{

class Setup : public ProgramTest
{
protected:
    // Opens the dialog by its action and has somebody work in it.
    void work(const std::function<void(QDialog&)>& user)
    {
        QTimer::singleShot(100, [&] {
            auto* dialog = dynamic_cast<QDialog*>(QApplication::activeModalWidget());
            ASSERT_NE(dialog, nullptr);
            // An editor of a window that is not active yet takes no focus.
            EXPECT_TRUE(QTest::qWaitForWindowActive(dialog));
            user(*dialog);
        });
        action(ShellAction::Setup)->trigger();
    }
    template <class Editor>
    static Editor* editor(const QDialog& dialog, const char* key)
    {
        return dialog.findChild<Editor*>(QString::fromLatin1(key));
    }
    static void press(const QDialog& dialog, const QString& text)
    {
        for (QPushButton* button : dialog.findChildren<QPushButton*>())
            if (button->text().remove(QLatin1Char('&')) == text)
                QTest::mouseClick(button, Qt::LeftButton);
    }
};

} // namespace

TEST_F(Setup, HasAnEditorForEveryKeyButThoseThatAreNoPreferences)
{
    QStringList missing;
    work([&](QDialog& dialog) {
#define SETTING_ANY(key)                                                                                     \
    if (!dialog.findChild<QWidget*>(QStringLiteral(#key)))                                                   \
        missing += QStringLiteral(#key);
#define SETTING_PATH(save, group, key, Key) SETTING_ANY(key)
#define SETTING_STYLE(save, group, key, initial) SETTING_ANY(key)
#define SETTING_BOOL(save, group, key, Key, initial) SETTING_ANY(key)
#define SETTING_INT(save, group, key, Key, initial) SETTING_ANY(key)
#define SETTING_DOUBLE(save, group, key, Key, initial) SETTING_ANY(key)
#define SETTING_COLOR(save, group, key, Key, red0, green0, blue0) SETTING_ANY(key)
#define SETTING_LAUNCH_FLAG(key)
#define SETTING_NEW_PROJECT_MODE(key, Key, initial) SETTING_ANY(key)
#include "modules/setting_keys.def"
#undef SETTING_ANY
        dialog.reject();
    });
    // The style has its chooser in the tool bar, the other one is state of the run.
    EXPECT_EQ(missing, (QStringList{QStringLiteral("visualStyleName"), QStringLiteral("isShowTypeObject")}));
}

TEST_F(Setup, ChangesReachTheStoreTogetherAndOnlyWhenAccepted)
{
    const auto change = [](QDialog& dialog) {
        editor<QComboBox>(dialog, "reportLanguage")->setCurrentIndex(1);
        editor<QSpinBox>(dialog, "timer")->setValue(25);
        editor<QCheckBox>(dialog, "isSetTimer")->setChecked(true);
    };
    work([&](QDialog& dialog) {
        change(dialog);
        QTest::keyClick(&dialog, Qt::Key_Escape);
    });
    EXPECT_EQ(shell.settings->reportLanguage(), 0);
    work([&](QDialog& dialog) {
        change(dialog);
        press(dialog, QStringLiteral("OK"));
    });
    EXPECT_EQ(shell.settings->reportLanguage(), 1);
    EXPECT_TRUE(shell.settings->isSetTimer());
    EXPECT_EQ(
        QSettings(here(settingsFileName), QSettings::IniFormat).value(QStringLiteral("timer")).toInt(), 25);
}

TEST_F(Setup, DecimalMarkForSpreadsheetsIsChosen)
{
    openFromCommandLine(controller(), project(QStringLiteral("LURGAN")).toLocal8Bit().constData());
    const auto copiedMark = [&] {
        action(ShellAction::Litology)->trigger();
        table(ModeLitology)->setFocus();
        table(ModeLitology)->selectAll();
        QTest::keyClick(table(ModeLitology), Qt::Key_C, Qt::ControlModifier);
        const QString depth = QApplication::clipboard()->text().section(QLatin1Char('\t'), 0, 0);
        EXPECT_TRUE(depth.contains(QLatin1Char(',')) || depth.contains(QLatin1Char('.')))
            << depth.toStdString();
        return depth.contains(QLatin1Char(',')) ? ',' : '.';
    };
    EXPECT_EQ(copiedMark(), ',') << "a spreadsheet of this country reads it";
    const auto choose = [&](int index, const QString& button) {
        work([&](QDialog& dialog) {
            editor<QComboBox>(dialog, "decimalMark")->setCurrentIndex(index);
            press(dialog, button);
        });
    };
    choose(1, QStringLiteral("Отмена"));
    EXPECT_EQ(copiedMark(), ',');
    choose(1, QStringLiteral("OK"));
    EXPECT_EQ(copiedMark(), '.');
}

TEST_F(Setup, AcceptingWithoutAChangeChangesNothing)
{
    shell.settings->setBackgroundSection(0);
    shell.settings->setChooseBackgroundSectionColor(10, 20, 30);
    shell.settings->setTypeGraphStatic(7777);
    shell.settings->setReportLanguage(5);
    shell.settings->setPowerSectionEditor(0.125);
    shell.settings->setDistanceSectionEditor(0.0004);
    shell.settings->save();
    const QString path = here(settingsFileName);
    const auto values = [&] {
        QSettings file(path, QSettings::IniFormat);
        QVariantList list;
        for (const QString& key : file.allKeys())
            list += file.value(key);
        return list;
    };
    const QVariantList before = values();
    work([&](QDialog& dialog) { press(dialog, QStringLiteral("OK")); });
    EXPECT_EQ(values(), before);
    EXPECT_EQ(shell.settings->chooseBackgroundSectionColorGreen(), 20);
    EXPECT_EQ(shell.settings->powerSectionEditor(), 0.125) << "more digits than are shown";
}

TEST_F(Setup, PageGoesBackToItsInitialValues)
{
    shell.settings->setScaleHatchingColumn(99);
    shell.settings->setTimer(99);
    work([&](QDialog& dialog) {
        auto* pages = dialog.findChild<QListWidget*>();
        pages->setCurrentItem(
            pages->findItems(QStringLiteral("Масштаб штриховки"), Qt::MatchExactly).first());
        press(dialog, QStringLiteral("Сбросить страницу"));
        press(dialog, QStringLiteral("OK"));
    });
    EXPECT_EQ(shell.settings->scaleHatchingColumn(), 15);
    EXPECT_EQ(shell.settings->timer(), 99);
}

TEST_F(Setup, WorkFolderGetsItsFolderOfProjects)
{
    QDir(here(QStringLiteral("работа"))).removeRecursively();
    QDir().mkpath(here(QStringLiteral("работа")));
    const auto choose = [&](const QString& folder) {
        return [folder](QDialog& dialog) {
            dialog.findChild<QWidget*>(QStringLiteral("projectPath"))
                ->findChild<QLineEdit*>()
                ->setText(folder);
            press(dialog, QStringLiteral("OK"));
            if (dialog.isVisible())
                dialog.reject();
        };
    };
    work(choose(here(QStringLiteral("работа"))));
    EXPECT_TRUE(QDir(here(QStringLiteral("работа/Проекты"))).exists());
    EXPECT_EQ(QString::fromStdWString(shell.settings->projectPath()),
        here(QStringLiteral("работа")).replace(QLatin1Char('/'), QLatin1Char('\\')));
    const MessageAnswers answers;
    work(choose(here(QStringLiteral("нет/такой"))));
    ASSERT_EQ(answers.boxes().size(), 1U);
    EXPECT_NE(answers.boxes()[0].find(L"не создаётся папка «Проекты»"), std::wstring::npos);
    EXPECT_TRUE(QString::fromStdWString(shell.settings->projectPath()).endsWith(QStringLiteral("работа")));
}

TEST_F(Setup, WorkFolderOutOfReachHoldsBackNoOtherSetting)
{
    const std::wstring gone = QDir::fromNativeSeparators(here(QStringLiteral("нет/такой"))).toStdWString();
    shell.settings->setProjectPath(gone);
    const std::wstring stored = shell.settings->projectPath();
    {
        const MessageAnswers answers;
        work([&](QDialog& dialog) {
            editor<QComboBox>(dialog, "reportLanguage")->setCurrentIndex(1);
            press(dialog, QStringLiteral("OK"));
            dialog.reject();
        });
        EXPECT_TRUE(answers.boxes().empty());
    }
    EXPECT_EQ(shell.settings->reportLanguage(), 1);
    EXPECT_EQ(shell.settings->projectPath(), stored);
    for (const QString& folder : {QString(), QStringLiteral("работа")}) {
        const MessageAnswers answers;
        work([&](QDialog& dialog) {
            editor<QWidget>(dialog, "projectPath")->findChild<QLineEdit*>()->setText(folder);
            press(dialog, QStringLiteral("OK"));
            dialog.reject();
        });
        ASSERT_EQ(answers.boxes().size(), 1U) << qPrintable(folder);
        EXPECT_NE(answers.boxes()[0].find(L"Нужен полный путь"), std::wstring::npos);
    }
    EXPECT_EQ(shell.settings->projectPath(), stored);
}

// Else a page that is scrolled with the wheel changes whatever comes under the pointer.
TEST_F(Setup, WheelChangesOnlyTheEditorThatIsWorkedIn)
{
    work([&](QDialog& dialog) {
        auto* pages = dialog.findChild<QListWidget*>();
        pages->setCurrentRow(1);
        pages->setFocus();
        auto* box = editor<QSpinBox>(dialog, "conventionsCellHeightSection");
        EXPECT_NE(box->focusPolicy(), Qt::WheelFocus);
        EXPECT_FALSE(turnWheel(*box, -120)) << "left to the page";
        EXPECT_EQ(box->value(), 10);
        box->setFocus();
        EXPECT_TRUE(turnWheel(*box, -120));
        EXPECT_EQ(box->value(), 9);
        dialog.reject();
    });
}

TEST_F(Setup, ObjectTypeIsTheProjectsOwnWhileOneIsOpen)
{
    bool closed = false;
    bool opened = true;
    work([&](QDialog& dialog) {
        closed = editor<QSpinBox>(dialog, "typeObject")->isEnabled();
        dialog.reject();
    });
    open(QStringLiteral("LURGAN.TLX"), QStringLiteral("a.TLX"));
    work([&](QDialog& dialog) {
        opened = editor<QSpinBox>(dialog, "typeObject")->isEnabled();
        dialog.reject();
    });
    EXPECT_TRUE(closed);
    EXPECT_FALSE(opened);
}
