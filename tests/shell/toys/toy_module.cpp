// A module for the tests of the shell. TOY_MODE is the mode whose library it stands for; toys that misbehave
// have TOY_THROWS.

#include "modules/icreate_widget.h"
#include "modules/imain_controller.h"
#include "modules/itellurix_controller.h"
#include "modules/module_export.h"
#include "toys/toy_screen.h"

#include <QCoreApplication>
#include <QDialog>
#include <QProgressBar>
#include <QTimer>
#include <QVariant>

#include <stdexcept>

[[maybe_unused]] static QString text(const TX_Modes* mode)
{
    return QStringLiteral("mode %1").arg(*mode);
}

[[maybe_unused]] static QString text(ITellurixController* facade)
{
    return facade->settings() ? QStringLiteral("facade in %1").arg(facade->currentMode()) : QString();
}

[[maybe_unused]] static QString text(IMainController* controller)
{
    return controller->mainWindow() ? QStringLiteral("main") : QString();
}

[[maybe_unused]] static QString text(ICreateWidget* maker)
{
    return maker->createWidget(TX_Modes(18)) ? QString() : QStringLiteral("maker");
}

[[maybe_unused]] static QString text(QProgressBar* bar)
{
    return QStringLiteral("progress %1").arg(bar->maximum());
}

template <class... Parameters>
static QWidget* makeScreen(Parameters... parameters)
{
    return new ToyScreen(QStringList{text(parameters)...}.join(QStringLiteral(", ")));
}

#if defined(TOY_THROWS)
TELLURIX_MODULE QWidget* createWidget(const TX_Modes*, ITellurixController*)
{
    throw std::runtime_error("toy does not come");
}
#elif TOY_MODE == 0
TELLURIX_MODULE QWidget* createWidget(IMainController* controller, QProgressBar* bar)
{
    return makeScreen(controller, bar);
}
#elif TOY_MODE == 2
TELLURIX_MODULE QWidget* createWidget(ITellurixController*)
{
    // The user accepts as soon as the dialog is there, or thinks better of it.
    auto* dialog = new QDialog;
    const bool rejects = QCoreApplication::instance()->property("rejectsSetup").toBool();
    QTimer::singleShot(0, dialog, rejects ? &QDialog::reject : &QDialog::accept);
    return dialog;
}
#elif TOY_MODE == 11
TELLURIX_MODULE QWidget* createWidget(const TX_Modes* mode, ITellurixController* facade, ICreateWidget* maker)
{
    return makeScreen(mode, facade, maker);
}
#elif TOY_MODE == 16
TELLURIX_MODULE QWidget* createWidget(
    const TX_Modes* mode, ITellurixController* facade, IMainController* main)
{
    return makeScreen(mode, facade, main);
}
#else
TELLURIX_MODULE QWidget* createWidget(const TX_Modes* mode, ITellurixController* facade)
{
    return makeScreen(mode, facade);
}
#endif
