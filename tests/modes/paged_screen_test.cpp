#include "common/page.h"
#include "common/paged_screen.h"
#include "core/base/reference.h"
#include "core/facade/tellurix_controller.h"
#include "db/db_project.h"

#include <QApplication>
#include <QTabWidget>
#include <gtest/gtest.h>

namespace
{

// Says what it is told, and knows one text of the project.
class ToyPage : public Page
{
public:
    ToyPage(ModeScreen& screen, QStringList& told, const QString& name)
        : screen_(screen)
        , told_(told)
        , name_(name)
    {
        setObjectName(name);
        setFocusPolicy(Qt::StrongFocus);
    }

    void read(IDBProject* project) override
    {
        shown = project ? QString::fromStdWString(project->getProjectName()) : QStringLiteral("-");
        tell("read " + shown.toUtf8());
    }
    void forget() override { tell("forget"); }
    QString problem() override { return typed; }
    void closeEditors() override { tell("close"); }
    void calculate() override { tell("calculate"); }
    void addRecord() override
    {
        screen_.change<std::wstring>(
            [](IDBProject& project, const std::wstring& text) { project.setProjectName(text); },
            shown.toStdWString(),
            L"after");
        tell("changed");
    }
    bool canAdd() const override { return true; }
    void tellView(ITellurixController& controller) const override
    {
        controller.setEditedSample(name_.toStdWString());
    }

    QString shown;
    QString typed;

private:
    void tell(const QByteArray& what) { told_ += name_ + QLatin1Char(':') + QString::fromUtf8(what); }

    ModeScreen& screen_;
    QStringList& told_;
    QString name_;
};

class ToyScreen : public PagedScreen
{
public:
    explicit ToyScreen(ITellurixController* controller)
        : PagedScreen(ModeLitology, controller, QStringLiteral("toy"))
        , a(new ToyPage(*this, told, QStringLiteral("a")))
        , b(new ToyPage(*this, told, QStringLiteral("b")))
    {
        addPage(a, QStringLiteral("A"));
        addPage(b, QStringLiteral("B"));
        start();
        showPage(a);
    }

    // What the pages were told since the last question.
    std::string news()
    {
        QCoreApplication::sendPostedEvents();
        return std::exchange(told, {}).join(QLatin1Char(' ')).toStdString();
    }

    QStringList told;
    ToyPage* a;
    ToyPage* b;
};

class PagedScreenTest : public testing::Test
{
protected:
    PagedScreenTest()
    {
        project->setProjectName(L"before");
        controller.setCurrentMode(ModeLitology);
    }

    Reference<Settings> settings = makeReference<Settings>();
    Reference<DBProject> project = makeReference<DBProject>();
    TellurixController controller{settings.get(), project.get()};
    ToyScreen screen{&controller};
};

} // namespace

TEST_F(PagedScreenTest, ReadsTheFrontPageWhenSeenAndOnceForAllThatTheShellTells)
{
    EXPECT_EQ(screen.news(), "");
    screen.show();
    Q_EMIT screen.signalUpdateComplexPoints();
    Q_EMIT screen.signalUpdateInfo();
    Q_EMIT screen.signalUpdateMode();
    EXPECT_EQ(screen.news(), "a:forget b:forget a:read before");
    EXPECT_EQ(controller.editedSample(), L"a");

    screen.findChild<QTabWidget*>()->setCurrentIndex(1);
    EXPECT_EQ(screen.news(), "a:close b:read before");
    EXPECT_EQ(controller.editedSample(), L"b");
    screen.findChild<QTabWidget*>()->setCurrentIndex(0);
    EXPECT_EQ(screen.news(), "b:close");
}

TEST_F(PagedScreenTest, FollowsTheProjectInViewWhicheverModeIsCurrent)
{
    screen.show();
    screen.news();
    controller.setCurrentMode(ModeIge);
    controller.setEditedSample(L"another's");
    project->setProjectName(L"next");
    controller.notify();
    EXPECT_EQ(screen.news(), "a:read next");
    EXPECT_EQ(controller.editedSample(), L"another's");

    screen.hide();
    controller.notify();
    EXPECT_EQ(screen.news(), "");
    screen.show();
    EXPECT_EQ(screen.news(), "a:read next");
}

TEST_F(PagedScreenTest, ChangesAreUndoStepsOfTheContextThatThePageTells)
{
    screen.show();
    screen.news();
    Q_EMIT screen.signalAddSelectedRecord();
    EXPECT_EQ(screen.news(), "a:close a:read after a:changed");
    controller.undo();
    EXPECT_EQ(screen.news(), "a:read before");
    EXPECT_TRUE(controller.undoRedo()->canRedo(controller.undoContext()));
    screen.showPage(screen.b);
    EXPECT_FALSE(controller.undoRedo()->canRedo(controller.undoContext()));
}

TEST_F(PagedScreenTest, WhatAnyPageCannotStoreBarsTheClosing)
{
    screen.show();
    EXPECT_TRUE(Q_EMIT screen.signalUpdateDB());
    screen.b->typed = QStringLiteral("x is no number");
    std::wstring said;
    QObject::connect(
        &screen, &TXWidget::signalShowStatusMessage, [&](const std::wstring& text) { said = text; });
    EXPECT_FALSE(Q_EMIT screen.signalUpdateDB());
    EXPECT_EQ(said, L"x is no number");
}

TEST_F(PagedScreenTest, NoProjectIsAStateLikeAnyOther)
{
    screen.show();
    screen.news();
    controller.setProject(nullptr);
    Q_EMIT screen.signalUpdateInfo();
    EXPECT_EQ(screen.news(), "a:forget b:forget a:read -");
}
