#include "app/tx_application.h"
#include "core/base/reference.h"
#include "settings/settings.h"

#include <gtest/gtest.h>

#include <cstdio>

// Two remarks of the toolkit that say nothing about us: the platform without a display has no window manager,
// and a sub-window that is made as a child of the area is in it already.
static void showMessage(QtMsgType, const QMessageLogContext&, const QString& text)
{
    if (!text.contains(QLatin1String("propagateSizeHints")) && !text.contains(QLatin1String("already added")))
        std::fprintf(stderr, "%s\n", qPrintable(text));
}

// The application object of the program itself, with the settings as they are at its start.
int main(int argc, char** argv)
{
    testing::InitGoogleTest(&argc, argv);
    qInstallMessageHandler(showMessage);
    const auto settings = makeReference<Settings>();
    const TXApplication application(argc, argv, settings.get());
    return RUN_ALL_TESTS();
}
