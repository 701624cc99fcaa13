#include "setup/setting_pages.h"

static constexpr const wchar_t* backgroundChoices = L"по умолчанию|выбранный цвет";
static constexpr const wchar_t* sounding = L"Цвет: лобовое сопротивление";
static constexpr const wchar_t* friction = L"Цвет: боковое сопротивление";

// A table, as long as it must be. NOLINTNEXTLINE(readability-function-size)
const std::vector<SettingPage>& settingPages()
{
    // clang-format off
    static const std::vector<SettingPage> pages{
        {generalPage, {
            {.key = "projectPath",    .label = L"Рабочая папка",
                .tip = L"Проекты хранятся в папке «Проекты» внутри неё"},
            {.key = "isSetTimer",     .label = L"Сохранять проект автоматически"},
            {.key = "timer",          .label = L"Период автосохранения", .smallest = 1, .largest = 1440, .unit = L" мин"},
            {.key = "isLog",          .label = L"Вести журнал ошибок"},
            {.key = "typeObject",     .label = L"Тип объекта нового проекта", .largest = 255,
                .tip = L"Меняется, пока проект не открыт: у открытого проекта тип свой"},
            {.key = "newProjectMode", .label = L"Режим лаборатории нового проекта", .largest = 255,
                .tip = L"Записывается в каждый новый проект; в файле настроек не хранится"},
        }},
        {officePage, {
            {.key = "reportLanguage", .label = L"Язык документов", .choices = L"русский|украинский"},
        }},
        {L"Разрез", {
            {.key = "isNameIgeNearHoleSection",       .label = L"Номер ИГЭ у скважины"},
            {.key = "isBlueLabelSection",             .label = L"Подписи воды синим"},
            {.key = "isBlueLineSection",              .label = L"Линии воды синим"},
            {.key = "isSceletonSection",              .label = L"Показывать скелет"},
            {.key = "isLensesSection",                .label = L"Строить линзы"},
            {.key = "isNumberTestsSection",           .label = L"Номера проб"},
            {.key = "formConturIgeSection",           .label = L"Форма контура ИГЭ"},
            {.key = "conventionsCellHeightSection",   .label = L"Высота ячейки условных обозначений", .smallest = 1, .unit = L" мм"},
            {.key = "isStaticGraphSection",           .label = L"Графики зондирования"},
            {.key = "staticGraphSectionValues",       .label = L"Значения на графиках зондирования"},
            {.key = "isStaticGraphColorCheckSection", .label = L"Цветные графики зондирования"},
            {.key = "staticGraphColorForeheadColor",  .label = sounding},
            {.key = "staticGraphColorSideColor",      .label = friction},
            {.key = "backgroundSection",              .label = L"Фон разреза", .choices = backgroundChoices},
            {.key = "chooseBackgroundSectionColor",   .label = L"Цвет фона разреза"},
            {.key = "isSectionEditorActivated",       .label = L"Редактор разреза включён"},
            {.key = "isSectionEditorLocal",           .label = L"Редактор разреза на этом компьютере"},
            {.key = "backgroundSectionEditor",        .label = L"Фон редактора разреза", .choices = backgroundChoices},
            {.key = "chooseBackgroundSectionEditorColor", .label = L"Цвет фона редактора разреза"},
            {.key = "powerSectionEditor",             .label = L"Наименьшая мощность слоя", .unit = L" м"},
            {.key = "distanceSectionEditor",          .label = L"Наименьшее расстояние", .unit = L" м"},
            {.key = "isArrow",                        .label = L"Стрелки уровней воды"},
            {.key = "crosshairSizeSectionEditor",     .label = L"Размер перекрестия"},
            {.key = "isShowHatch",                    .label = L"Показывать штриховку"},
            {.key = "countPolylinePoints",            .label = L"Точек в сглаженной линии", .smallest = 2},
        }},
        {L"Раскраска разреза", {
            {.key = "isPatternSectionActivated",        .label = L"Раскрашивать грунты"},
            {.key = "isPatternSectionColorCheck",       .label = L"Цветная штриховка"},
            {.key = "isPatternSectionConventionsColor", .label = L"Цвет в условных обозначениях"},
            {.key = "patternSectionColorSand",          .label = L"Цвет: песок"},
            {.key = "patternSectionColorLoam",          .label = L"Цвет: суглинок"},
            {.key = "patternSectionColorSandyLoam",     .label = L"Цвет: супесь"},
            {.key = "patternSectionColorClay",          .label = L"Цвет: глина"},
        }},
        {L"Профили", {
            {.key = "longitudinalProfile",              .label = L"Вид продольного профиля"},
            {.key = "transverseProfile",                .label = L"Вид поперечного профиля"},
            {.key = "isNumberTestsProfile",             .label = L"Номера проб"},
            {.key = "isStaticGraphProfileCheck",        .label = L"Графики зондирования"},
            {.key = "staticGraphProfileValues",         .label = L"Значения на графиках зондирования"},
            {.key = "isStaticGraphChoosedProfileColor", .label = L"Цветные графики зондирования"},
            {.key = "staticGraphColorForeheadProfileColor", .label = sounding},
            {.key = "staticGraphColorSideProfileColor",     .label = friction},
        }},
        {L"Масштаб штриховки", {
            {.key = "scaleHatchingColumn",              .label = L"Колонка", .smallest = 1},
            {.key = "scaleHatchingSection",             .label = L"Разрез", .smallest = 1},
            {.key = "scaleHatchingLongitudinalProfile", .label = L"Продольный профиль", .smallest = 1},
            {.key = "scaleHatchingTransverseProfile",   .label = L"Поперечный профиль", .smallest = 1},
        }},
        {L"Цифровая модель", {
            {.key = "digitalModel", .label = L"Вид цифровой модели местности"},
        }},
        {L"Лаборатория", {
            {.key = "isActiveSameScaleCompressGraphLabotatory", .label = L"Один масштаб у графиков компрессии"},
            {.key = "isScaleGranGraphLaboratory",    .label = L"Масштаб графика гранулометрии"},
            {.key = "isSaveLastMethodLaboratory",    .label = L"Запоминать последний метод"},
            {.key = "isSmoothingGranLaboratory",     .label = L"Сглаживать кривую гранулометрии"},
            {.key = "isSmoothingSwellingLaboratory", .label = L"Сглаживать кривую набухания"},
            {.key = "granGostLaboratory",            .label = L"Стандарт гранулометрии нового проекта", .largest = 255},
        }},
        {L"Статическое зондирование", {
            {.key = "typeGraphStatic",                  .label = L"Вид графика"},
            {.key = "isBlueLabelStatic",                .label = L"Подписи воды синим"},
            {.key = "isColorGraphStatic",               .label = L"Цветные графики"},
            {.key = "staticGraphColorForeheadStaticColor", .label = sounding},
            {.key = "staticGraphColorSideStaticColor",     .label = friction},
            {.key = "gridGraphStatic",                  .label = L"Сетка графика"},
            {.key = "igeConturStatic",                  .label = L"Контур ИГЭ"},
            {.key = "typeDocStatic",                    .label = L"Вид документа"},
        }},
        {L"ИГЭ", {
            {.key = "isValuesSwellIge",         .label = L"Значения набухания"},
            {.key = "isValuesAngleFrictionIge", .label = L"Значения угла внутреннего трения"},
            {.key = "isValuesModulDefIge",      .label = L"Значения модуля деформации"},
            {.key = "isValuesGravityIge",       .label = L"Значения удельного веса"},
            {.key = "isGranCurveCheckIge",      .label = L"Кривая гранулометрии"},
            {.key = "isGranCurveSplainIge",     .label = L"Сглаживать кривую гранулометрии"},
            {.key = "isGenManualValuesCheckIge", .label = L"Учитывать значения, введённые вручную",
                .tip = L"Действует до конца работы: после запуска всегда включено"},
        }},
        {L"Колонка", {
            {.key = "isBlueLabelIgk",         .label = L"Подписи воды синим"},
            {.key = "isColorPatternIgk",      .label = L"Раскрашивать грунты"},
            {.key = "patternIgkColorSand",      .label = L"Цвет: песок"},
            {.key = "patternIgkColorLoam",      .label = L"Цвет: суглинок"},
            {.key = "patternIgkColorSandyLoam", .label = L"Цвет: супесь"},
            {.key = "patternIgkColorClay",      .label = L"Цвет: глина"},
            {.key = "isColorGraphIgk",        .label = L"Цветные графики зондирования"},
            {.key = "staticGraphColorForeheadIgkColor", .label = sounding},
            {.key = "staticGraphColorSideIgkColor",     .label = friction},
            {.key = "gridGraphIgk",           .label = L"Сетка графика"},
            {.key = "geoIndexIgk",            .label = L"Вид геологического индекса"},
            {.key = "isNumberTestsIgk",       .label = L"Номера проб"},
            {.key = "isCloseFileIgk",         .label = L"Закрывать файл после вывода"},
            {.key = "isFormColIgk",           .label = L"Несколько колонок на листе"},
            {.key = "formColNumberColIgk",    .label = L"Колонок на листе", .smallest = 1, .largest = 50},
            {.key = "backgroundIgk",          .label = L"Фон колонки", .choices = backgroundChoices},
            {.key = "chooseBackgroundIgkColor", .label = L"Цвет фона колонки"},
        }},
        {L"Просадочность", {
            {.key = "typeCalcSubsidence",         .label = L"Вид расчёта",
                .choices = L"от собственного веса|от собственного веса и под фундаментом"},
            {.key = "isSmoothingGraphSubsidence", .label = L"Сглаживать график"},
        }},
    };
    // clang-format on
    return pages;
}
