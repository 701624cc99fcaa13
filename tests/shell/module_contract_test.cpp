// What modules that were built apart rely on: the indices of the signals, and the positions of the
// operations, called through interfaces written down a second time.

#include "shell/shell_test.h"

#include <QMetaMethod>

// Outside of any unnamed namespace: a class that nothing in sight derives from could not be called otherwise.
// clang-format off
struct FacadeMirror {
    virtual std::size_t attach(void*) = 0;
    virtual void detach(void*) = 0;
    virtual void setNotifying(bool) = 0;
    virtual void notify() = 0;
    virtual ~FacadeMirror() = default;
    virtual void* undoRedo() = 0;
    virtual void undo() = 0;
    virtual void redo() = 0;
    virtual void* settings() = 0;
    virtual void* project() = 0;
    virtual void* hatch() = 0;
    virtual void* igkPreset() = 0;
    virtual void setEditedSample(const std::wstring&) = 0;
    virtual const std::wstring& editedSample() = 0;
    virtual UndoContext undoContext() = 0;
    virtual void* deleteAction() = 0;
    virtual void* addAction() = 0;
    virtual void* mainSetAction() = 0;
    virtual void* setAction() = 0;
    virtual void* sampleSetAction() = 0;
    virtual void* calcAction() = 0;
    virtual void* clearAction() = 0;
    virtual void* sortAction() = 0;
    virtual void* endEditAction() = 0;
    virtual void* reportAction() = 0;
    virtual void setLabMode(const int&) = 0;
    virtual int labMode() = 0;
    virtual void setLabState(const int&) = 0;
    virtual int labState() = 0;
    virtual void setEditedSampleName(const std::wstring&) = 0;
    virtual const int& currentMode() = 0;
    virtual void setCurrentMode(const int&) = 0;
    virtual void reset() = 0;
    virtual void setCompressionView(const int&) = 0;
    virtual void setShearView(const int&) = 0;
    virtual void setColumnModified(bool) = 0;
    virtual void setIgeView(const int&) = 0;
    virtual int probingView() = 0;
    virtual void setProbingView(const int&) = 0;
    virtual int probingSubView() = 0;
    virtual void setProbingSubView(const int&) = 0;
    virtual void setChemistryFlag(bool) = 0;
    virtual bool sectionEditorAvailable() = 0;
};

struct MainMirror {
    virtual void* mainWindow() = 0;
    virtual const std::wstring& projectPath() = 0;
    virtual void setProjectPath(const std::wstring&) = 0;
    virtual void* project() = 0;
    virtual void* settings() = 0;
    virtual void* controller() = 0;
    virtual void openProject() = 0;
    virtual std::wstring projectCodeOf(const std::wstring&) = 0;
    virtual void setProjectCodeOf(const std::wstring&, const std::wstring&) = 0;
    virtual ~MainMirror() = default;
    virtual void* dbProject() = 0;
    virtual void* dbSettings() = 0;
};

struct UndoMirror {
    virtual bool execute(const UndoContext&, void*) = 0;
    virtual void add(const UndoContext&, void*) = 0;
    virtual bool undo(const UndoContext&) = 0;
    virtual bool redo(const UndoContext&) = 0;
    virtual bool canUndo(const UndoContext&) = 0;
    virtual bool canRedo(const UndoContext&) = 0;
    virtual ~UndoMirror() = default;
};

struct MakerMirror {
    virtual QWidget* createWidget(const int&) = 0;
    virtual ~MakerMirror() = default;
};
// clang-format on

namespace
{

// The two long signatures go over a line end.
// NOLINTBEGIN(bugprone-suspicious-missing-comma)
const char* const signalNames[] = {
    "signalLoadProjects()",
    "signalUpdateProjectsPath()",
    "signalShowOpenProject()",
    "signalCloseAllEditCell()",
    "signalUpdateDB()",
    "signalDelSelectedRecord()",
    "signalPrint()",
    "signalUpdateComplexPoints()",
    "signalUpdateInfo()",
    "signalAddSelectedRecord()",
    "signalDeleteRecord(TX_Modes,bool)",
    "signalAddRecord(TX_Modes,bool)",
    "signalUpdateMenus()",
    "signalChangeLanguage()",
    "signalSetDefProp(TX_Lab_Modes)",
    "signalDropDefProp(TX_Lab_Modes)",
    "signalSetCommonDefPhysProp()",
    "signalChangeCommonDefPhysProp()",
    "signalSetCommonDefCompProp()",
    "signalChangeCommonDefCompProp()",
    "signalSetCommonDefShiftProp()",
    "signalChangeCommonDefShiftProp()",
    "signalSetCommonDefSwellProp()",
    "signalChangeCommonDefSwellProp()",
    "signalChangeLaboratoryTitle(TX_Lab_Modes)",
    "signalSetAccessAllModes(bool)",
    "signalChangeTitle(TX_Modes)",
    "signalEndEditLaboratory()",
    "signalSetPropertiesTest(bool)",
    "signalUpdateMode()",
    "signalCalc()",
    "signalClearTests()",
    "signalUpdateSetup()",
    "signalUpdateShowLabel(bool)",
    "signalUpdateShowLabel()",
    "signalSaveColumn()",
    "signalSort()",
    "signalShowStatusMessage(std::wstring)",
    "signalShowSectionEditor()",
    "signalSetSectionCalcController(ISectionAnalysisReliefController*,IColumnCalcController*,"
    "ISectionCommonController*)",
    "signalShowSectionEditorTab()",
    "signalSetCurrentSection(std::wstring)",
    "signalSetCurrentSectionCalc(ISectionAnalysisReliefController*,IColumnCalcController*,"
    "ISectionCommonController*,std::wstring)",
    "signalInitializeGL()",
};
// NOLINTEND(bugprone-suspicious-missing-comma)

class ModuleContract : public ShellTest
{
};

} // namespace

TEST(SignalBus, HasItsSignalsAtTheirIndices)
{
    const QMetaObject& bus = TXWidget::staticMetaObject;
    ASSERT_EQ(bus.methodCount() - bus.methodOffset(), 44);
    for (int index = 0; index < 44; ++index) {
        const QMetaMethod method = bus.method(bus.methodOffset() + index);
        EXPECT_EQ(method.methodType(), QMetaMethod::Signal);
        EXPECT_STREQ(method.methodSignature().constData(), signalNames[index]) << index;
    }
    EXPECT_STREQ(bus.method(bus.methodOffset() + 4).typeName(), "bool");
    EXPECT_EQ(bus.propertyCount(), QWidget::staticMetaObject.propertyCount());
}

TEST(SignalBus, NobodyConnectedAnswersFalse)
{
    TXWidget screen;
    EXPECT_FALSE(Q_EMIT screen.signalUpdateDB());
}

TEST_F(ModuleContract, FacadeAnswersByPosition)
{
    auto* facade = reinterpret_cast<FacadeMirror*>(static_cast<ITellurixController*>(shell.controller.get()));
    using A = ShellAction;
    EXPECT_EQ(facade->undoRedo(), static_cast<void*>(shell.controller->undoRedo()));
    EXPECT_EQ(facade->settings(), static_cast<void*>(shell.controller->settings()));
    EXPECT_EQ(facade->project(), nullptr);
    EXPECT_EQ(facade->hatch(), static_cast<void*>(shell.controller->hatch()));
    EXPECT_EQ(facade->igkPreset(), static_cast<void*>(shell.controller->igkPreset()));
    EXPECT_EQ(facade->deleteAction(), action(A::Delete));
    EXPECT_EQ(facade->addAction(), action(A::Add));
    EXPECT_EQ(facade->mainSetAction(), action(A::MainSet));
    EXPECT_EQ(facade->setAction(), action(A::Set));
    EXPECT_EQ(facade->sampleSetAction(), action(A::SampleSet));
    EXPECT_EQ(facade->calcAction(), action(A::Calc));
    EXPECT_EQ(facade->clearAction(), action(A::Clear));
    EXPECT_EQ(facade->sortAction(), action(A::Sort));
    EXPECT_EQ(facade->endEditAction(), action(A::EndEdit));
    EXPECT_EQ(facade->reportAction(), action(A::Report));

    facade->setCurrentMode(7);
    facade->setEditedSample(L"12");
    facade->setEditedSampleName(L"проба");
    facade->setLabMode(4);
    facade->setLabState(3);
    facade->setCompressionView(5);
    facade->setIgeView(6);
    facade->setColumnModified(true);
    facade->setProbingView(1);
    facade->setProbingSubView(2);
    EXPECT_EQ(facade->undoContext(), (UndoContext{ModeLaboratory, L"12", L"проба", LabCompression, 3, 5}));
    facade->setLabMode(5);
    facade->setShearView(4);
    EXPECT_EQ(shell.controller->undoContext().shearView, 4);
    EXPECT_EQ(facade->labMode(), 5);
    EXPECT_EQ(facade->labState(), 3);
    EXPECT_EQ(facade->editedSample(), L"12");
    EXPECT_EQ(facade->currentMode(), 7);
    EXPECT_EQ(shell.controller->igeView(), 6);
    EXPECT_TRUE(shell.controller->columnModified());
    EXPECT_EQ(facade->probingView(), 1);
    EXPECT_EQ(facade->probingSubView(), 2);
    facade->setCurrentMode(20);
    facade->setChemistryFlag(true);
    EXPECT_TRUE(shell.controller->undoContext().chemistryFlag);
    EXPECT_FALSE(facade->sectionEditorAvailable());
    facade->reset();
    EXPECT_EQ(facade->currentMode(), 99);
    facade->setColumnModified(false);

    struct Observer : IMObserver {
        void update() override { ++count; }
        int count = 0;
    } observer;
    EXPECT_EQ(facade->attach(static_cast<IMObserver*>(&observer)), 0U);
    facade->setNotifying(false);
    facade->notify();
    facade->setNotifying(true);
    facade->notify();
    EXPECT_EQ(observer.count, 1);
    facade->detach(static_cast<IMObserver*>(&observer));
}

TEST_F(ModuleContract, MainControllerAndUndoAnswerByPosition)
{
    auto* main = reinterpret_cast<MainMirror*>(static_cast<IMainController*>(shell.mainController.get()));
    EXPECT_EQ(main->mainWindow(), static_cast<QMainWindow*>(shell.mainWindow.get()));
    main->setProjectPath(L"нет такого.TLX");
    EXPECT_EQ(main->projectPath(), L"нет такого.TLX");
    EXPECT_EQ(main->projectCodeOf(L"нет такого.TLX"), L"");
    EXPECT_EQ(main->settings(), static_cast<ISettings*>(shell.settings.get()));
    EXPECT_EQ(main->controller(), static_cast<ITellurixController*>(shell.controller.get()));
    EXPECT_EQ(main->dbProject(), nullptr);
    EXPECT_EQ(main->dbSettings(), shell.settings.get());
    main->openProject();
    EXPECT_TRUE(controller().openFailed());
    controller().setProjectPath(open(QStringLiteral("LURGAN.TLX"), QStringLiteral("a.TLX")).toStdWString());
    EXPECT_EQ(main->project(), static_cast<void*>(controller().project()));
    EXPECT_EQ(main->dbProject(), controller().dbProject());

    auto* undo = reinterpret_cast<UndoMirror*>(shell.controller->undoRedo());
    const UndoContext context{ModeWaters, L"1"};
    EXPECT_FALSE(undo->canUndo(context));
    EXPECT_FALSE(undo->canRedo(context));
    EXPECT_FALSE(undo->undo(context));
    EXPECT_FALSE(undo->redo(context));
    EXPECT_FALSE(undo->execute(context, nullptr));
    undo->add(context, nullptr);
    EXPECT_FALSE(undo->canUndo(context));
}

TEST_F(ModuleContract, EveryModeIsGivenItsParameters)
{
    shell.controller->setCurrentMode(TX_Modes(17));
    auto* maker = reinterpret_cast<MakerMirror*>(static_cast<ICreateWidget*>(shell.mainController.get()));
    const auto given = [&](int mode) {
        const std::unique_ptr<QWidget> widget(maker->createWidget(mode));
        return widget ? widget->property("given").toString().toStdString() : "none";
    };
    EXPECT_EQ(given(0), "main, progress 0");
    for (const int mode : {1, 3, 4, 5, 6, 7, 8, 10, 17, 19, 20, 21, 22, 23})
        EXPECT_EQ(given(mode), "mode " + std::to_string(mode) + ", facade in 17");
    EXPECT_EQ(given(11), "mode 11, facade in 17, maker");
    for (const int mode : {9, 12, 13, 14, 15, 16, 18, 24, 25, 26, 99})
        EXPECT_EQ(given(mode), "none") << mode;
    const std::unique_ptr<QWidget> setup(maker->createWidget(2));
    EXPECT_NE(dynamic_cast<QDialog*>(setup.get()), nullptr);
}
