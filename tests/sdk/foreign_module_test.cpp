// The shell with a module that was built outside of the project, against the installed package.

#include "modules/tx_table.h"
#include "shell/shell_test.h"

#include <QStatusBar>
#include <QTableView>

class ForeignModule : public ShellTest
{
};

TEST_F(ForeignModule, WorksOnProjectClassificationUndoAndStatusBar)
{
    open(QStringLiteral("LURGAN.TLX"), QStringLiteral("a.TLX"));
    controller().changeMode(ModeWaters);
    QWidget* waters = screen(ModeWaters);
    ASSERT_NE(waters, nullptr);
    EXPECT_STREQ(waters->metaObject()->className(), "WatersScreen");
    EXPECT_NE(bus(ModeWaters), nullptr) << "its copy of the bus is taken for the shell's";
    EXPECT_NE(dynamic_cast<TXTable*>(waters->findChild<QTableView*>()), nullptr) << "and so is its table";
    EXPECT_EQ(waters->property("words").toStringList(),
        (QStringList{QStringLiteral("Определение типа грунта для каждого ИГЭ\nПодождите пожалуйста..."),
            QStringLiteral("Выбранная видеокарта не поддерживает многопоточность OpenGL.\nБольшие модели в "
                           "редакторе разреза будут обрабатываться медленно!"),
            QStringLiteral("convertor19.exe"),
            QStringLiteral("convertorColumn19.exe"),
            QStringLiteral("str19.dll"),
            QStringLiteral("\\Support\\")}));
    const auto levels = [&] { return waters->property("levels").toInt(); };
    const auto stored = [&] { return int(controller().dbProject()->getWaterLevels().size()); };
    EXPECT_EQ(levels(), stored());
    EXPECT_EQ(waters->property("soil").toString(), QStringLiteral("Глина"));
    EXPECT_TRUE(action(ShellAction::Add)->isEnabled());
    const int before = stored();
    action(ShellAction::Add)->trigger();
    EXPECT_EQ(stored(), before + 1);
    EXPECT_EQ(levels(), stored());
    EXPECT_EQ(
        shell.mainWindow->statusBar()->currentMessage(), QStringLiteral("Уровней воды: %1").arg(before + 1));
    QTest::keyClick(shell.mainWindow.get(), Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(stored(), before);
    EXPECT_TRUE(action(ShellAction::Redo)->isEnabled());
    EXPECT_TRUE(controller().syncMode(ModeWaters));
}
