#include "app/shell_actions.h"

#include "app/main_controller.h"

static constexpr unsigned inFile = InFileMenu | InFileBar;
static constexpr unsigned inEdit = InEditMenu | InFileBar;
static constexpr unsigned inPoint = InPointMenu | InPointBar;
static constexpr unsigned inSetup = InSetupMenu | InPointBar;
static constexpr unsigned inRecord = InRecordMenu | InRecordBar;

// A table, as long as it must be. NOLINTNEXTLINE(readability-function-size)
const std::array<ActionRow, shellActionCount>& actionRows()
{
    using A = ShellAction;
    using C = MainController;
    // clang-format off
    static const std::array<ActionRow, shellActionCount> rows{{
        {A::Save,         "actSave",         L"Сохранить", L"Сохранить текущий проект",
            "save.png", "document-save", QKeySequence::Save, inFile, false, ModeNone, &C::saveByUser},
        {A::Close,        "actClose",        L"Закрыть текущий проект", nullptr,
            "close.png", "document-close", nullptr, inFile | MenuSeparator, false, ModeNone, &C::closeProject},
        {A::Report,       "actReport",       L"Генерация отчетной документации", nullptr,
            "print.png", "document-print", nullptr, inFile | MenuSeparator, false, ModeNone, &C::printReport},
        // The entry has no behaviour and stays in the menu.
        {A::ExportOgm,    "actExportOgm",    L"Экспорт в ОГМ", nullptr,
            nullptr, nullptr, nullptr, InFileMenu | MenuSeparator, false, ModeNone, &C::exportOgm},
        {A::Exit,         "actExit",         L"Выход", L"Завершить работу Tellurix",
            nullptr, "application-exit", QKeySequence::Quit, InFileMenu, true, ModeNone, &C::leave},
        {A::About,        "actAbout",        L"О Tellurix...", nullptr,
            "about.png", nullptr, nullptr, InFileBar | BarSeparator, true, ModeNone, &C::showAbout},
        {A::Undo,         "actUndo",         L"Отменить(Ctrl+Z)", L"Отменить",
            "undo.png", "edit-undo", "Ctrl+Z", inEdit, false, ModeNone, &C::undo},
        {A::Redo,         "actRedo",         L"Вернуть(Ctrl+Y)", L"Вернуть",
            "redo.png", "edit-redo", "Ctrl+Y", inEdit | BarSeparator, false, ModeNone, &C::redo},

        {A::ListCoords,   "actListCoords",   L"Создание нового проекта <Ведомость координат>", L"Ведомость координат",
            "listCoord.png", nullptr, nullptr, inPoint, false, ModeNone, &C::showListCoords},
        {A::Litology,     "actLitology",     L"Литология", nullptr,
            "litology.png", nullptr, nullptr, inPoint, false, ModeLitology, nullptr},
        {A::Tests,        "actTests",        L"Пробы", nullptr,
            "tests.png", nullptr, nullptr, inPoint, false, ModeTests, nullptr},
        {A::Waters,       "actWaters",       L"Уровни воды", nullptr,
            "water.png", nullptr, nullptr, inPoint, false, ModeWaters, nullptr},
        {A::Consistents,  "actConsistents",  L"Консистенция", nullptr,
            "consistent.png", nullptr, nullptr, inPoint, false, ModeConsistents, nullptr},
        {A::Laboratory,   "actLaboratory",   L"Лаборатория", nullptr,
            "lab.png", nullptr, nullptr, inPoint, false, ModeLaboratory, nullptr},
        {A::Ige,          "actIge",          L"Инженерно-геологический элемент", nullptr,
            "ige.png", nullptr, nullptr, inPoint, false, ModeIge, nullptr},
        {A::Static,       "actStatic",       L"Статическое зондирование", nullptr,
            "staticProbing.png", nullptr, nullptr, inPoint, false, ModeStatic, nullptr},
        {A::Section,      "actSection",      L"Построение разреза", nullptr,
            "section.png", nullptr, nullptr, inPoint, false, ModeSection, nullptr},
        {A::Igk,          "actIgk",          L"Инженерно-геологическая колонка", nullptr,
            "igk.png", nullptr, nullptr, inPoint, false, ModeIgk, nullptr},
        {A::Column,       "actColumn",       L"Стратиграфическая колонка", nullptr,
            "str.png", nullptr, nullptr, inPoint, true, ModeNone, &C::showColumn},
        {A::Subsidence,   "actSubsidence",   L"Общая просадочность", nullptr,
            "subsidence.png", nullptr, nullptr, inPoint, false, ModeSubsidence, nullptr},
        {A::Chemistry,    "actChemistry",    L"Химический анализ", nullptr,
            "chemistry.png", nullptr, nullptr, inPoint, false, ModeChemistry, nullptr},
        {A::Consolidated, "actConsolidated", L"Генерация отчетной документации", nullptr,
            "doc.png", nullptr, nullptr, inPoint, false, ModeConsolidated, nullptr},
        {A::Study,        "actStudy",        L"Список выработок в исследовании", nullptr,
            "study.png", nullptr, nullptr, inPoint, false, ModeNone, &C::showStudy},
        {A::Stamps,       "actStamps",       L"Установки штампов документов", nullptr,
            "Database.png", "document-open", nullptr, inPoint, false, ModeNone, &C::showStamps},
        {A::Setup,        "actSetup",        L"Настройка программы", nullptr,
            "setup.png", nullptr, nullptr, inSetup, true, ModeNone, &C::showSetup},
        {A::Synchro,      "actSynchro",      L"Синхронизация", nullptr,
            "synchro.png", nullptr, nullptr, InPointBar, false, ModeNone, nullptr},

        {A::Delete,       "actDelete",       L"Удалить запись (записи)", nullptr,
            "delRecord.png", nullptr, nullptr, inRecord, false, ModeNone, &C::deleteRecords},
        {A::Add,          "actAdd",          L"Добавить запись (записи)", nullptr,
            "addRecord.png", nullptr, nullptr, inRecord, false, ModeNone, &C::addRecord},
        {A::MainSet,      "actMainSet",      L"Основной набор свойств", nullptr,
            "commonSetProperties.png", nullptr, nullptr, inRecord, false, ModeNone, &C::takeMainPropertySet},
        {A::Set,          "actSet",          L"Набор свойств", nullptr,
            "setProperties.png", nullptr, nullptr, inRecord, false, ModeNone, &C::takePropertySet},
        {A::SampleSet,    "actSampleSet",    L"Набор свойств для пробы", nullptr,
            "setPropertiesTest.png", nullptr, nullptr, inRecord, false, ModeNone, &C::switchSampleSet},
        {A::Calc,         "actCalc",         L"Расчет значений", nullptr,
            "calc.png", nullptr, nullptr, inRecord, false, ModeNone, &C::calculate},
        {A::Clear,        "actClear",        L"Очистка данных", nullptr,
            "clear.png", nullptr, nullptr, inRecord, false, ModeNone, &C::clearData},
        {A::Sort,         "actSort",         L"Сортировка данных", nullptr,
            "sort.png", nullptr, nullptr, inRecord, false, ModeNone, &C::sortData},
        {A::EndEdit,      "actEndEdit",      L"Закончить редактирование данных для пробы", nullptr,
            "closeEdit.png", nullptr, nullptr, inRecord, false, ModeNone, &C::endEditing},
    }};
    // clang-format on
    return rows;
}
