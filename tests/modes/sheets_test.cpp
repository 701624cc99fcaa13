#include "core/base/reference.h"
#include "db/db_project.h"
#include "modes/support/sheets_host.h"
#include "persistence/project_file.h"
#include "tables/tables.h"

#include <QClipboard>
#include <QTabWidget>
#include <gtest/gtest.h>

#include <algorithm>

static Reference<DBProject> sample(const std::wstring& name)
{
    const std::wstring path = QStringLiteral(TELLURIX_SAMPLES).toStdWString() + L"/" + name;
    std::vector<std::uint8_t> bytes;
    lookAtProjectFile(path, bytes);
    ReadReport report;
    return readProject(path, bytes, report);
}

TEST(SheetScreens, keepTheContractWithTheShell)
{
    const auto project = sample(L"ALLTEXT.TLX");
    for (const SheetModule& module : sheetModules) {
        SCOPED_TRACE(module.file);
        SheetHost host(module, nullptr);
        EXPECT_NE(host.labels().find("Проект не открыт"), std::string::npos);
        std::vector<std::pair<TX_Modes, bool>> told;
        const auto keep = [&told](TX_Modes mode, bool value) { told.emplace_back(mode, value); };
        QObject::connect(host.screen.get(), &TXWidget::signalDeleteRecord, keep);
        QObject::connect(host.screen.get(), &TXWidget::signalAddRecord, keep);
        for (DBProject* open : {static_cast<DBProject*>(nullptr), project.get()}) {
            host.controller.setProject(open);
            Q_EMIT host.screen->signalUpdateComplexPoints();
            Q_EMIT host.screen->signalUpdateInfo();
            Q_EMIT host.screen->signalUpdateMode();
            Q_EMIT host.screen->signalCloseAllEditCell();
            Q_EMIT host.screen->signalDelSelectedRecord();
            Q_EMIT host.screen->signalAddSelectedRecord();
            Q_EMIT host.screen->signalPrint();
            Q_EMIT host.screen->signalChangeLanguage();
            Q_EMIT host.screen->signalUpdateSetup();
            EXPECT_TRUE(Q_EMIT host.screen->signalUpdateDB());
        }
        EXPECT_EQ(told, (std::vector<std::pair<TX_Modes, bool>>(4, {module.mode, false})));
        EXPECT_EQ(host.count().find("Показано 0"), std::string::npos);
        EXPECT_EQ(host.count().find("Показано "), 0U);
    }
}

TEST(PagedModules, tellTheShellOnlyOfTheModeInFront)
{
    const auto project = sample(L"ALLTEXT.TLX");
    for (const SheetModule& module : pagedModules) {
        SCOPED_TRACE(module.file);
        SheetHost host(module, nullptr);
        std::vector<std::pair<TX_Modes, bool>> told;
        const auto keep = [&told](TX_Modes mode, bool value) { told.emplace_back(mode, value); };
        QObject::connect(host.screen.get(), &TXWidget::signalDeleteRecord, keep);
        QObject::connect(host.screen.get(), &TXWidget::signalAddRecord, keep);
        auto* pages = host.screen->findChild<QTabWidget*>(QStringLiteral("pages"));
        ASSERT_TRUE(pages);
        ASSERT_GT(pages->count(), 1);
        for (DBProject* open : {static_cast<DBProject*>(nullptr), project.get()})
            for (const TX_Modes shown : {ModeConsolidated, module.mode}) {
                host.controller.setCurrentMode(shown);
                host.controller.setProject(open);
                told.clear();
                Q_EMIT host.screen->signalUpdateInfo();
                Q_EMIT host.screen->signalUpdateMode();
                Q_EMIT host.screen->signalCloseAllEditCell();
                Q_EMIT host.screen->signalDelSelectedRecord();
                Q_EMIT host.screen->signalAddSelectedRecord();
                Q_EMIT host.screen->signalChangeLanguage();
                for (int page = pages->count() - 1; page >= 0; --page)
                    pages->setCurrentIndex(page);
                QCoreApplication::sendPostedEvents();
                EXPECT_TRUE(Q_EMIT host.screen->signalUpdateDB());
                EXPECT_EQ(told.empty(), shown != module.mode);
                // Of these screens only the one of analyses takes rows.
                const bool takesRows = open && module.mode == ModeChemistry;
                for (const auto& each : told) {
                    EXPECT_EQ(each.first, module.mode);
                    EXPECT_TRUE(!each.second || takesRows);
                }
                const bool isOffered =
                    std::any_of(told.begin(), told.end(), [](const auto& each) { return each.second; });
                EXPECT_EQ(isOffered, takesRows && shown == module.mode);
            }
    }
}

TEST(SheetScreens, filterCountCopyAndTabs)
{
    const auto project = sample(L"PORTADOWN.TLX");
    SheetHost host(laboratoryTables(), ModeLaboratory, project.get());
    EXPECT_EQ(host.count(), "Показано 325 из 325");

    QTest::keyClicks(host.filter(), QStringLiteral("cbh02 26"));
    EXPECT_EQ(host.count(), "Показано 1 из 325");
    QTest::keyClick(host.filter(), Qt::Key_Down);
    QTableView* samples = host.table("laboratory/samples");
    EXPECT_TRUE(samples->hasFocus());
    QTest::keyClick(samples, Qt::Key_Home);
    QTest::keyClick(samples, Qt::Key_Right, Qt::ShiftModifier);
    QTest::keyClick(samples, Qt::Key_C, Qt::ControlModifier);
    EXPECT_EQ(QGuiApplication::clipboard()->text().toStdString(), "CBH02\t1,20\n");

    // The filter goes along to the next sheet, and Escape takes it away.
    QTest::keyClick(samples, Qt::Key_PageDown, Qt::ControlModifier);
    EXPECT_EQ(host.screen->findChild<QTabWidget*>()->currentIndex(), 1);
    QTest::keyClick(host.table("laboratory/physical"), Qt::Key_F, Qt::ControlModifier);
    EXPECT_TRUE(host.filter()->hasFocus());
    QTest::keyClicks(host.filter(), QStringLiteral("nothing"));
    EXPECT_EQ(host.count(), "Показано 0 из 747");
    EXPECT_NE(host.labels().find("Ничего не найдено"), std::string::npos);
    QTest::keyClick(host.filter(), Qt::Key_Escape);
    EXPECT_EQ(host.count(), "Показано 747 из 747");
}

TEST(SheetScreens, detailsFollowTheCurrentRow)
{
    const auto project = sample(L"PORTADOWN.TLX");
    SheetHost host(stratigraphicColumnTables(), ModeStratigraphic, project.get());
    QTableView* columns = host.table("stratigraphic/columns");
    QTableView* layers = host.table("stratigraphic/layers");
    EXPECT_EQ(layers->model()->rowCount(), 5);
    columns->setFocus();
    QTest::keyClick(columns, Qt::Key_Down);
    EXPECT_EQ(layers->model()->rowCount(), 12);
    EXPECT_NE(host.labels().find("Слои колонки: CBH02"), std::string::npos);
    QTest::keyClicks(host.filter(), QStringLiteral("fbh03"));
    EXPECT_NE(host.labels().find("Слои колонки: FBH03"), std::string::npos);
}

TEST(SheetScreens, followTheProject)
{
    const auto project = makeReference<DBProject>();
    for (const wchar_t* name : {L"С-1", L"С-2", L"С-3"})
        project->addLithology({name, L"2"}, {L"aQ", L"Песок"});
    SheetHost host(stratigraphicOrderTables(), ModeStratigraphicIge, project.get());
    QTableView* layers = host.table("stratigraphicIge/layers");
    layers->setFocus();
    QTest::keyClick(layers, Qt::Key_Down);

    // Nothing new: the user's place stays; a new row: seen at once, the place stays as well.
    host.controller.notify();
    EXPECT_EQ(host.count(), "Показано 3 из 3");
    EXPECT_EQ(layers->currentIndex().row(), 1);
    project->addLithology({L"С-2", L"5"}, {L"dP", L"Глина"});
    host.controller.notify();
    EXPECT_EQ(host.count(), "Показано 4 из 4");
    EXPECT_EQ(layers->currentIndex().row(), 1);

    // Another project comes with the observers dropped; the first word of the shell brings them back.
    const auto other = makeReference<DBProject>();
    host.controller.detachAll();
    host.controller.setProject(other.get());
    Q_EMIT host.screen->signalUpdateInfo();
    EXPECT_NE(host.labels().find("В проекте нет слоев"), std::string::npos);
    other->addLithology({L"С-9", L"2"}, {L"aQ", L"Песок"});
    host.controller.notify();
    EXPECT_EQ(host.count(), "Показано 1 из 1");

    // Out of view it reads nothing; closed it is told nothing.
    host.screen->hide();
    other->addLithology({L"С-9", L"3"}, {L"aQ", L"Песок"});
    host.controller.notify();
    EXPECT_EQ(host.count(), "Показано 1 из 1");
    host.screen->show();
    EXPECT_EQ(host.count(), "Показано 2 из 2");
    host.screen.reset();
    host.controller.notify();
}
