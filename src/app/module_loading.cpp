#include "app/module_loading.h"

#include "app/message_box.h"
#include "core/base/mexception.h"
#include "core/facade/mode_libraries.h"
#include "core/facade/tellurix_controller.h"

#include <QCoreApplication>
#include <QLibrary>
#include <QSplashScreen>

#include <cmath>
#include <memory>

// Takes the library into the facade, or throws what the user is to read.
static void loadModule(TellurixController& controller, const QString& fileName, TX_Modes mode)
{
    auto library = std::make_unique<QLibrary>(modeLibraryPath(fileName));
    if (library->load())
        controller.addModule(fileName, std::move(library));
    else if (mode != ModeSectionEditor)
        throw MException(L"Invalid load libray: " + fileName.toStdWString());
}

int loadModules(TellurixController* controller, QSplashScreen* splash)
{
    const auto total = static_cast<float>(modeLibraries().size());
    int loaded = 0;
    for (const auto& [fileName, mode] : modeLibraries()) {
        ++loaded;
        const std::wstring failure = failureOf([&, &name = fileName, of = mode] {
            loadModule(*controller, name, of);
            const float percent = std::ceil(static_cast<float>(loaded) * 100.0F / total);
            splash->showMessage(QStringLiteral("Загрузка модулей: ")
                    + QString::number(static_cast<double>(percent), 'g', 6) + QLatin1Char('%'),
                Qt::AlignHCenter | Qt::AlignBottom,
                Qt::black);
            QCoreApplication::processEvents();
        });
        if (!failure.empty()) {
            showCriticalError(failure);
            return -1;
        }
    }
    return 1;
}
