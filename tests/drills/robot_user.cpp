// Linked with the entry of the program itself: somebody who opens every screen, types a code, saves and
// leaves, and who writes down what the program says to that.

#include <QAction>
#include <QApplication>
#include <QDialog>
#include <QLineEdit>
#include <QMainWindow>
#include <QMessageBox>
#include <QPushButton>
#include <QTest>
#include <QThread>
#include <QTimer>

#include <cstdio>

namespace
{

class RobotUser : public QObject
{
public:
    explicit RobotUser(QObject* parent)
        : QObject(parent)
    {
        connect(&timer_, &QTimer::timeout, this, &RobotUser::look);
        timer_.start(5);
    }

private:
    static void write(const char* what, const QString& text)
    {
        std::printf("%s: %s\n", what, text.toUtf8().replace('\n', '|').constData());
        std::fflush(stdout);
    }

    void look()
    {
        QWidget* modal = QApplication::activeModalWidget();
        if (auto* box = qobject_cast<QMessageBox*>(modal)) {
            write("box", box->text());
            // Who could not save in closing gives it up the second time.
            QAbstractButton* answer = box->button(closings_ > 1 ? QMessageBox::No : QMessageBox::Yes);
            answer ? answer->click() : box->accept();
        } else if (auto* dialog = qobject_cast<QDialog*>(modal)) {
            write("dialog", dialog->windowTitle());
            dialog->reject();
        } else if (!isWorking_) {
            // A timer is silent while its own slot waits in a dialog.
            isWorking_ = true;
            QTimer::singleShot(0, this, [this] {
                work();
                isWorking_ = false;
            });
        }
    }

    void work()
    {
        QMainWindow* window = nullptr;
        for (QWidget* widget : QApplication::topLevelWidgets())
            if (auto* candidate = qobject_cast<QMainWindow*>(widget))
                window = candidate;
        // Not before the event loop of the program.
        if (!window || !window->isVisible() || QThread::currentThread()->loopLevel() != 1)
            return;
        if (step_ < std::size(screens))
            trigger(*window, screens[step_]);
        else
            close(*window);
        ++step_;
    }
    void trigger(QMainWindow& window, const char* name)
    {
        auto* action = window.findChild<QAction*>(QString::fromLatin1(name));
        if (!action || !action->isEnabled()) {
            write("disabled", QString::fromLatin1(name));
            return;
        }
        action->trigger();
        window.grab();
        if (auto* code = window.findChild<QLineEdit*>(QStringLiteral("projectCode")); code && step_ == 0) {
            code->setFocus();
            code->selectAll();
            for (const QChar letter : QStringLiteral("Ж-17"))
                QTest::sendKeyEvent(QTest::Click, code, Qt::Key_unknown, QString(letter), Qt::NoModifier);
            QTest::keyClick(code, Qt::Key_Return);
        }
    }
    void close(QMainWindow& window)
    {
        ++closings_;
        write("close", QString::number(closings_));
        window.close();
    }

    // In the order of the menus, and the saving last.
    static constexpr const char* screens[] = {"actListCoords",
        "actLitology",
        "actTests",
        "actWaters",
        "actConsistents",
        "actLaboratory",
        "actIge",
        "actStatic",
        "actSection",
        "actIgk",
        "actColumn",
        "actSubsidence",
        "actChemistry",
        "actConsolidated",
        "actSetup",
        "actSave"};

    QTimer timer_;
    bool isWorking_ = false;
    std::size_t step_ = 0;
    int closings_ = 0;
};

} // namespace

static void startRobot()
{
    new RobotUser(QCoreApplication::instance());
}

Q_COREAPP_STARTUP_FUNCTION(startRobot)
