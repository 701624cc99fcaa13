// The least that a program of the toolkit with a window can be: what starting Tellurix is measured against.

#include "since_start.h"

#include <QApplication>
#include <QMainWindow>

namespace
{

class BareWindow : public QMainWindow
{
    void paintEvent(QPaintEvent* event) override
    {
        QMainWindow::paintEvent(event);
        report("first_window_ms", millisecondsSinceStart());
        std::_Exit(0);
    }
};

} // namespace

int main(int argc, char** argv)
{
    QApplication application(argc, argv);
    BareWindow window;
    window.showMaximized();
    return QApplication::exec();
}
