#include "tlxdraw/tlxdraw.h"

#include "core/base/mexception.h"
#include "modules/module_export.h"
#include "paint/drawing_files.h"
#include "paint/drawing_fonts.h"
#include "platform/files.h"

#include <QGuiApplication>

#include <exception>

// Without a display, with the plugins that stand beside the program where the system has none.
static void prepareToolkit()
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const QString folder = QString::fromStdWString(executableFolder());
    QCoreApplication::setLibraryPaths(
        QCoreApplication::libraryPaths() << folder + QStringLiteral("/Qt/plugins"));
}

// No exception may leave it.
TELLURIX_MODULE void tellurixDraw(DrawOrder& order)
{
    try {
        prepareToolkit();
        // It ends here and not with the process, when what it stands on is gone already.
        int count = 1;
        char name[] = "tlxtool";
        char* arguments[] = {name, nullptr};
        const QGuiApplication application(count, arguments);
        order.files = writeDrawings(order.path, *order.pages, *order.hatches, {}, order.dotsPerInch);
        order.warning = missingFonts().toStdWString();
    } catch (const MException& failure) {
        order.failure = failure.message();
    } catch (const std::exception& failure) {
        order.failure = QString::fromLocal8Bit(failure.what()).toStdWString();
    }
}
