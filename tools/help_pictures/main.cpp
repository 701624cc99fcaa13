// Pictures of a user's first project for the guide: help_pictures FOLDER. Works as the guide tells: by the
// button of the register, by typing, by pasting tables. Runs beside the module libraries.

#include "app/mdi_child.h"
#include "app/shell_assembly.h"
#include "app/tx_application.h"

#include <QAction>
#include <QClipboard>
#include <QDialog>
#include <QDir>
#include <QElapsedTimer>
#include <QIcon>
#include <QItemSelectionModel>
#include <QKeyEvent>
#include <QLineEdit>
#include <QPushButton>
#include <QStyleFactory>
#include <QTableView>

#include <cstdio>
#include <stdexcept>

static void settle(int milliseconds)
{
    QElapsedTimer timer;
    timer.start();
    while (timer.elapsed() < milliseconds)
        QCoreApplication::processEvents(QEventLoop::AllEvents, 20);
}

namespace
{

class FirstProject
{
public:
    FirstProject(Shell& shell, const QString& folder)
        : shell_(shell)
        , folder_(folder)
    {
    }

    void run()
    {
        nameProject();
        paste(ModeListCoords, pointTable, "first_points");
        shell_.mainController->action(ShellAction::Litology)->trigger();
        paste(ModeLitology, layerTable, "first_layers");
        shell_.mainController->action(ShellAction::Waters)->trigger();
        paste(ModeWaters, waterTable, "first_water");
        wrongCell();
    }

private:
    void nameProject()
    {
        auto* button = found<QPushButton>(*shell_.mainWindow, "newProject");
        button->click();
        settle(300);
        auto* dialog = shell_.mainWindow->findChild<QDialog*>();
        if (!dialog)
            throw std::runtime_error("no dialog asks for the new project's name");
        enter(*found<QLineEdit>(*dialog, "newProjectCode"), QStringLiteral("ИГИ-31/19"));
        enter(
            *found<QLineEdit>(*dialog, "newProjectTitle"), QStringLiteral("Насосная станция на ул. Луговой"));
        take(*dialog, "first_name");
        dialog->accept();
        settle(300);
    }

    // A depth that is no number stays in the table, marked.
    void wrongCell()
    {
        shell_.mainController->action(ShellAction::Litology)->trigger();
        QTableView& table = tableOf(ModeLitology);
        table.setCurrentIndex(table.model()->index(1, 0));
        settle(100);
        QGuiApplication::clipboard()->setText(QStringLiteral("4м20"));
        press(table, Qt::Key_V, Qt::ControlModifier);
        // The mark is to be seen, not the selection.
        table.selectionModel()->setCurrentIndex(
            table.model()->index(3, 0), QItemSelectionModel::ClearAndSelect);
        take(table, "wrong_cell");
    }

    void paste(TX_Modes mode, const char* text, const char* picture)
    {
        QGuiApplication::clipboard()->setText(QString::fromUtf8(text));
        QTableView& table = tableOf(mode);
        table.setFocus();
        press(table, Qt::Key_V, Qt::ControlModifier);
        if (table.model()->rowCount() < 3)
            throw std::runtime_error(std::string("nothing was pasted for ") + picture);
        table.setCurrentIndex(table.model()->index(0, 0));
        take(*shell_.mainWindow, picture);
    }

    QTableView& tableOf(TX_Modes mode)
    {
        settle(300);
        MdiChild* window = shell_.mainController->findSubWindow(mode);
        const auto tables = window ? window->findChildren<QTableView*>() : QList<QTableView*>();
        if (tables.isEmpty())
            throw std::runtime_error("a screen without a table");
        return *tables.first();
    }

    template <class Widget>
    static Widget* found(QWidget& parent, const char* name)
    {
        if (auto* widget = parent.findChild<Widget*>(QString::fromLatin1(name)))
            return widget;
        throw std::runtime_error(std::string("not on the screen: ") + name);
    }

    static void press(QWidget& widget, int key, Qt::KeyboardModifiers modifiers, const QString& text = {})
    {
        QKeyEvent down(QEvent::KeyPress, key, modifiers, text);
        QCoreApplication::sendEvent(&widget, &down);
        settle(50);
    }

    static void enter(QLineEdit& edit, const QString& text)
    {
        for (const QChar letter : text)
            press(edit, Qt::Key_unknown, Qt::NoModifier, QString(letter));
    }

    void take(QWidget& widget, const char* name)
    {
        settle(400);
        const QString path = folder_ + QLatin1Char('/') + QString::fromLatin1(name) + QStringLiteral(".png");
        if (!widget.grab().save(path))
            throw std::runtime_error("cannot be written: " + path.toStdString());
    }

    static constexpr const char* pointTable = "1\tСкважина\t540.20\t118.40\t96.35\n"
                                              "2\tСкважина\t552.75\t141.10\t96.10\n"
                                              "3\tСкважина\t531.60\t149.85\t95.80\n"
                                              "4\tШурф\t545.00\t132.30\t96.20\n";
    static constexpr const char* layerTable =
        "0.6\t\t\ttQIV\tНасыпной грунт: суглинок с включением щебня и строительного мусора\n"
        "4.2\t\t\taQIII\tСуглинок коричневый, тугопластичный, с прослоями супеси\n"
        "7.8\t\t\taQIII\tПесок мелкий, желто-серый, средней плотности, с 5.1 м насыщенный водой\n"
        "12.0\t\t\tJ3\tГлина темно-серая, полутвердая, слюдистая\n";
    static constexpr const char* waterTable = "4.9\t12.06.2019\t\t1\n"
                                              "5.1\t11.06.2019\t1\t\n"
                                              "5.0\t20.06.2019\t\t1\n";

    Shell& shell_;
    QString folder_;
};

} // namespace

int main(int argc, char** argv)
{
    if (argc != 2) {
        std::fprintf(stderr, "help_pictures FOLDER\n");
        return 2;
    }
    Q_INIT_RESOURCE(tellurix);
    QIcon::setThemeSearchPaths({QStringLiteral(":/icons")});
    QIcon::setThemeName(QStringLiteral("tellurix"));
    Shell shell;
    shell.settings = makeReference<Settings>();
    const TXApplication application(argc, argv, shell.settings.get());
    QApplication::setStyle(QStyleFactory::create(QStringLiteral("Fusion")));
    shell.settings->initialise();
    if (!assembleShell(shell))
        return 1;
    shell.mainWindow->showNormal();
    shell.mainWindow->resize(1366, 720);
    settle(500);
    int result = 0;
    try {
        FirstProject(shell, QString::fromLocal8Bit(argv[1])).run();
    } catch (const std::exception& problem) {
        std::fprintf(stderr, "%s\n", problem.what());
        result = 1;
    }
    shell.closeWindows();
    return result;
}
