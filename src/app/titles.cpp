// The captions in the window's title.

#include "app/main_controller.h"
#include "app/main_window.h"
#include "modules/program.h"

static QString baseTitle()
{
    return applicationName + QLatin1Char(' ') + QString::number(productYear)
        + QStringLiteral(" - Инженерная геология");
}

static QString textOf(const std::wstring_view* text)
{
    return text ? QString::fromWCharArray(text->data(), int(text->size())) : QString();
}

// A mode without a caption leaves a title that ends in the dash.
void MainController::updateTitle(TX_Modes mode)
{
    if (!mainWindow_)
        return;
    if (mode == ModeProjects) {
        mainWindow_->setWindowTitle(baseTitle());
        return;
    }
    const bool isSectionView =
        mode == ModeSectionTerrain || mode == ModeSectionLongitudinal || mode == ModeSectionCross;
    const QString caption = textOf(modeTitles.find(isSectionView ? ModeSection : mode));
    mainWindow_->setWindowTitle(baseTitle() + QStringLiteral(" - ") + caption);
}

void MainController::updateLabTitle(TX_Lab_Modes labMode)
{
    mainWindow_->setWindowTitle(baseTitle() + QStringLiteral(" - (Редактирование пробы <")
        + textOf(labModeTitles.find(labMode)) + QStringLiteral(">) - ")
        + textOf(modeTitles.find(ModeLaboratory)));
}
