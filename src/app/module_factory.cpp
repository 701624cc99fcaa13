// How a screen is asked for: the one function of its library, called with what the mode expects.

#include "app/main_controller.h"
#include "app/main_window.h"

#include <QLibrary>

#include <algorithm>
#include <iterator>

namespace
{

// What createWidget is given, in order.
enum class Given {
    nothing,
    mainAndProgress, // IMainController*, QProgressBar*
    facade, // ITellurixController*
    modeAndFacade, // const TX_Modes* of the mode asked for, ITellurixController*
    modeFacadeAndMaker, // the same and ICreateWidget*
    currentModeFacadeAndMain, // const TX_Modes* of the facade's current mode, ITellurixController*,
                              // IMainController*
};

struct ParameterRow {
    TX_Modes mode;
    Given given;
};

constexpr ParameterRow parameterRows[] = {
    {ModeProjects, Given::mainAndProgress},
    {ModeListCoords, Given::modeAndFacade},
    {ModeSetup, Given::facade},
    {ModeLitology, Given::modeAndFacade},
    {ModeTests, Given::modeAndFacade},
    {ModeWaters, Given::modeAndFacade},
    {ModeConsistents, Given::modeAndFacade},
    {ModeLaboratory, Given::modeAndFacade},
    {ModeIge, Given::modeAndFacade},
    {ModeStatic, Given::modeAndFacade},
    {ModeSection, Given::modeFacadeAndMaker},
    {ModeSectionEditor, Given::currentModeFacadeAndMain},
    {ModeIgk, Given::modeAndFacade},
    {ModeSubsidence, Given::modeAndFacade},
    {ModeChemistry, Given::modeAndFacade},
    {ModeConsolidated, Given::modeAndFacade},
    {ModeStratigraphic, Given::modeAndFacade},
    {ModeStratigraphicIge, Given::modeAndFacade},
};

Given givenTo(TX_Modes mode)
{
    const auto found = std::find_if(std::begin(parameterRows),
        std::end(parameterRows),
        [=](const ParameterRow& row) { return row.mode == mode; });
    return found == std::end(parameterRows) ? Given::nothing : found->given;
}

template <class... Parameters>
QWidget* call(QFunctionPointer function, Parameters... parameters)
{
    return reinterpret_cast<QWidget* (*)(Parameters...)>(function)(parameters...);
}

} // namespace

QWidget* MainController::createWidget(const TX_Modes& mode)
{
    QLibrary* library = controller_->libraryOf(mode);
    const QFunctionPointer function = library ? library->resolve("createWidget") : nullptr;
    if (!function)
        return nullptr;
    ITellurixController* facade = controller_;
    switch (givenTo(mode)) {
    case Given::nothing:
        return call(function);
    case Given::mainAndProgress:
        return call(function, static_cast<IMainController*>(this), progressBar_);
    case Given::facade:
        return call(function, facade);
    case Given::modeAndFacade:
        return call(function, &mode, facade);
    case Given::modeFacadeAndMaker:
        return call(function, &mode, facade, static_cast<ICreateWidget*>(this));
    case Given::currentModeFacadeAndMain:
        break;
    }
    // The section's screen asks for the section editor and puts it into itself, so it gets no sub-window and
    // none of the connections that come with one.
    QWidget* editor =
        call(function, &controller_->currentMode(), facade, static_cast<IMainController*>(this));
    if (auto* screen = dynamic_cast<TXWidget*>(editor))
        QObject::connect(
            screen, &TXWidget::signalShowStatusMessage, mainWindow_, [this](const std::wstring& text) {
                showStatus(QString::fromStdWString(text), 0);
            });
    return editor;
}
