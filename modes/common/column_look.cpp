#include "common/column_look.h"

#include "common/office_paper.h"
#include "dictionaries/report_language.h"
#include "modules/isettings.h"
#include "modules/itellurix_controller.h"

static Color colorOf(int red, int green, int blue)
{
    return {
        static_cast<std::uint8_t>(red), static_cast<std::uint8_t>(green), static_cast<std::uint8_t>(blue)};
}

// Of a colour there are three getters.
#define CHOSEN_COLOR(key) colorOf(settings.key##Red(), settings.key##Green(), settings.key##Blue())

ColumnLook columnLookOf(ITellurixController& controller)
{
    ISettings& settings = *controller.settings();
    ColumnLook look;
    look.language = knownLanguage(settings.reportLanguage());
    look.hatchScale = settings.scaleHatchingColumn();
    look.isWaterBlue = settings.isBlueLabelIgk();
    look.hasGrounds = settings.isColorPatternIgk();
    look.sand = CHOSEN_COLOR(patternIgkColorSand);
    look.loam = CHOSEN_COLOR(patternIgkColorLoam);
    look.sandyLoam = CHOSEN_COLOR(patternIgkColorSandyLoam);
    look.clay = CHOSEN_COLOR(patternIgkColorClay);
    look.isGraphColored = settings.isColorGraphIgk();
    look.tip = CHOSEN_COLOR(staticGraphColorForeheadIgkColor);
    look.sleeve = CHOSEN_COLOR(staticGraphColorSideIgkColor);
    look.hasGraphGrid = settings.gridGraphIgk() != 0;
    look.isIndexPlain = settings.geoIndexIgk() != 0;
    look.hasSampleNumbers = settings.isNumberTestsIgk();
    look.texts = officePaper(controller).texts;
    return look;
}

Color columnPaper(ISettings& settings)
{
    return settings.backgroundIgk() == 0 ? Color{255, 255, 255} : CHOSEN_COLOR(chooseBackgroundIgkColor);
}

#undef CHOSEN_COLOR
