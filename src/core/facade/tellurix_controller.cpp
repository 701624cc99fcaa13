#include "core/facade/tellurix_controller.h"

#include "core/base/mexception.h"
#include "core/facade/mode_libraries.h"
#include "modules/program.h"
#include "persistence/project_file.h"
#include "platform/files.h"

#include <QCoreApplication>
#include <QLibrary>
#include <QSettings>

#include <algorithm>
#include <iterator>
#include <stdexcept>

template <class Library>
static Reference<Library> readLibraryBeside(
    const QString& name, Reference<Library> (*read)(const std::wstring&), const wchar_t* missing)
{
    const std::wstring path =
        (QCoreApplication::applicationDirPath() + QLatin1Char('/') + name).toStdWString();
    if (!fileExists(path))
        throw MException(missing);
    return read(path);
}

// The machine's number of the installed build without its first part, which is the version. Only Windows
// keeps one; elsewhere the key names a file that nobody makes.
static std::wstring readBuildNumber()
{
    const QSettings registry(registryPath, QSettings::NativeFormat);
    const QString build = registry.value(QStringLiteral("Build"), QStringLiteral("1")).toString();
    return build.section(QLatin1Char('.'), 1).toStdWString();
}

TellurixController::TellurixController(Settings* settings, DBProject* project)
    : GroundController(settings, project)
    , project_(project)
    , settings_(settings)
    , hatch_(readLibraryBeside(hatchLibraryName,
          readHatchFile,
          L"Нет файла штриховок.\nПроверьте правильность установки Tellurix!"))
    , igkPreset_(readLibraryBeside(igkPresetLibraryName,
          readIgkPresetFile,
          L"Нет файла установок ИГК.\nПроверьте правильность установки Tellurix!"))
    , buildNumber_(readBuildNumber())
{
}

TellurixController::~TellurixController() = default;

void TellurixController::undo()
{
    const UndoContext context = undoContext();
    if (undoRedo_.canUndo(context))
        undoRedo_.undo(context);
}

void TellurixController::redo()
{
    const UndoContext context = undoContext();
    if (undoRedo_.canRedo(context))
        undoRedo_.redo(context);
}

namespace
{

// What of the screen's state tells one undo history from another in a mode.
struct ContextRow {
    TX_Modes mode;
    bool sample;
    bool sampleName;
    bool lab;
    bool probing;
    bool chemistry;
};

// clang-format off
constexpr ContextRow contextRows[] = {
    //                       sample sampleName lab    probing chemistry
    {ModeListCoords,          false, false,    false, false,  false},
    {ModeSection,             false, false,    false, false,  false},
    {ModeSectionTerrain,      false, false,    false, false,  false},
    {ModeSectionLongitudinal, false, false,    false, false,  false},
    {ModeSectionCross,        false, false,    false, false,  false},
    {ModeSectionEditor,       false, false,    false, false,  false},
    {ModeStratigraphic,       false, false,    false, false,  false},
    {ModeStratigraphicIge,    false, false,    false, false,  false},
    {ModeLitology,            true,  false,    false, false,  false},
    {ModeTests,               true,  false,    false, false,  false},
    {ModeWaters,              true,  false,    false, false,  false},
    {ModeConsistents,         true,  false,    false, false,  false},
    {ModeSubsidence,          true,  false,    false, false,  false},
    {ModeLaboratory,          true,  true,     true,  false,  false},
    {ModeStatic,              true,  false,    false, true,   false},
    {TX_Modes(12),            true,  true,     false, false,  false},
    {ModeChemistry,           true,  true,     false, false,  true},
};
// clang-format on

} // namespace

UndoContext TellurixController::undoContext()
{
    UndoContext context;
    for (const ContextRow& row : contextRows) {
        if (row.mode != context_.mode)
            continue;
        context.mode = row.mode;
        if (row.sample)
            context.sample = context_.sample;
        if (row.sampleName)
            context.sampleName = context_.sampleName;
        if (row.lab) {
            context.labMode = context_.labMode;
            context.labState = context_.labState;
            if (context_.labMode == LabCompression)
                context.compressionView = context_.compressionView;
            if (context_.labMode == LabShear)
                context.shearView = context_.shearView;
        }
        if (row.probing) {
            context.probingView = context_.probingView;
            context.probingSubView = context_.probingSubView;
        }
        if (row.chemistry)
            context.chemistryFlag = context_.chemistryFlag;
    }
    return context;
}

void TellurixController::reset()
{
    context_.mode = ModeNone;
    context_.labMode = LabNone;
    context_.labState = 0;
    context_.probingView = 99;
    context_.probingSubView = 99;
    context_.sample.clear();
    context_.chemistryFlag = false;
    undoRedo_.clear();
}

bool TellurixController::sectionEditorAvailable()
{
    const auto& row = *std::find_if(std::begin(modeRows), std::end(modeRows), [](const ModeRow& candidate) {
        return candidate.mode == ModeSectionEditor;
    });
    const QString name = QString::fromWCharArray(row.moduleFile.data(), int(row.moduleFile.size()));
    return QLibrary(modeLibraryPath(name)).load();
}

void TellurixController::addModule(const QString& fileName, std::unique_ptr<QLibrary> library)
{
    const auto found = modeLibraries().find(fileName);
    if (found == modeLibraries().end())
        throw std::out_of_range("invalid map<K, T> key");
    modules_[found->second] = std::move(library);
}

QLibrary* TellurixController::libraryOf(const TX_Modes& mode) const
{
    const auto found = modules_.find(mode);
    return found == modules_.end() ? nullptr : found->second.get();
}

void TellurixController::setProject(DBProject* project)
{
    project_ = project;
    classifyFor(project);
}

bool TellurixController::access(const AccessKey& key) const
{
    const auto found = actionAccess_.find(key);
    return found != actionAccess_.end() && found->second;
}
