#include "core/base/reference.h"
#include "core/base/undo_manager.h"
#include "core/facade/tellurix_controller.h"

#include <QLibrary>
#include <gtest/gtest.h>

namespace
{

class Facade : public testing::Test
{
protected:
    Reference<Settings> settings = makeReference<Settings>();
    Reference<TellurixController> facade = makeReference<TellurixController>(settings.get(), nullptr);

    // A screen state in which no value is that of the empty context.
    void fillState(TX_Modes mode, TX_Lab_Modes page)
    {
        facade->setCurrentMode(mode);
        facade->setEditedSample(L"3");
        facade->setEditedSampleName(L"проба");
        facade->setLabMode(page);
        facade->setLabState(8);
        facade->setCompressionView(21);
        facade->setShearView(22);
        facade->setProbingView(1);
        facade->setProbingSubView(2);
        facade->setChemistryFlag(true);
    }
};

class Step : public MUndoRedoCommand
{
public:
    explicit Step(int& value)
        : value_(value)
    {
    }
    bool execute() override
    {
        ++value_;
        return true;
    }
    bool unexecute() override
    {
        --value_;
        return true;
    }

private:
    int& value_;
};

} // namespace

TEST_F(Facade, UndoContextHoldsWhatCountsInTheMode)
{
    const std::wstring point = L"3";
    const std::wstring sample = L"проба";
    const auto only = [](int mode) { return UndoContext{TX_Modes(mode)}; };
    const auto withPoint = [&](int mode) { return UndoContext{TX_Modes(mode), point}; };
    const UndoContext lab{ModeLaboratory, point, sample, LabPhysical, 8};
    UndoContext compression = lab;
    compression.labMode = LabCompression;
    compression.compressionView = 21;
    UndoContext shear = lab;
    shear.labMode = LabShear;
    shear.shearView = 22;
    UndoContext probing = withPoint(10);
    probing.probingView = 1;
    probing.probingSubView = 2;
    UndoContext twelve = withPoint(12);
    twelve.sampleName = sample;
    UndoContext chemistry = withPoint(20);
    chemistry.sampleName = sample;
    chemistry.chemistryFlag = true;

    struct Row {
        int mode;
        TX_Lab_Modes page;
        UndoContext expected;
    };
    std::vector<Row> rows{{7, LabPhysical, lab},
        {7, LabCompression, compression},
        {7, LabShear, shear},
        {10, LabPhysical, probing},
        {12, LabPhysical, twelve},
        {20, LabPhysical, chemistry}};
    for (const int mode : {1, 11, 13, 14, 15, 16, 22, 23})
        rows.push_back({mode, LabShear, only(mode)});
    for (const int mode : {3, 4, 5, 6, 19})
        rows.push_back({mode, LabShear, withPoint(mode)});
    for (const int mode : {0, 2, 8, 9, 17, 18, 21, 26, 99})
        rows.push_back({mode, LabShear, UndoContext{}});
    for (const Row& row : rows) {
        fillState(TX_Modes(row.mode), row.page);
        EXPECT_EQ(facade->undoContext(), row.expected) << "mode " << row.mode << " page " << row.page;
    }
}

TEST_F(Facade, ResetDropsTheScreenStateAndKeepsTheRest)
{
    int value = 0;
    const auto step = makeReference<Step>(value);
    fillState(ModeLitology, LabShear);
    facade->setColumnModified(true);
    facade->setIgeView(1);
    facade->setDeleteAccess(ModeLitology, true);
    const UndoContext before = facade->undoContext();
    facade->undoRedo()->execute(before, step.get());
    facade->reset();
    EXPECT_EQ(facade->currentMode(), ModeNone);
    EXPECT_EQ(facade->editedSample(), L"");
    EXPECT_EQ(facade->labMode(), LabNone);
    EXPECT_EQ(facade->labState(), 0);
    EXPECT_EQ(facade->probingView(), 99);
    EXPECT_FALSE(facade->undoRedo()->canUndo(before));
    EXPECT_TRUE(facade->columnModified());
    EXPECT_EQ(facade->igeView(), 1);
    EXPECT_TRUE(facade->access({ModeLitology, DeleteRecords, LabNone}));
    EXPECT_EQ(step->referenceCount(), 1);
    facade->setCurrentMode(ModeLaboratory);
    facade->setLabMode(LabShear);
    EXPECT_EQ(facade->undoContext().shearView, 22);
}

TEST_F(Facade, EachScreenStateHasItsOwnHistory)
{
    int first = 0;
    int second = 0;
    const auto step = makeReference<Step>(first);
    const auto other = makeReference<Step>(second);
    facade->setCurrentMode(ModeLitology);
    facade->setEditedSample(L"A");
    facade->undoRedo()->execute(facade->undoContext(), step.get());
    facade->setEditedSample(L"B");
    facade->undo();
    EXPECT_EQ(first, 1) << "nothing was changed in B";
    facade->undoRedo()->execute(facade->undoContext(), other.get());
    facade->setEditedSample(L"A");
    facade->undo();
    EXPECT_EQ(first, 0);
    EXPECT_EQ(second, 1);
    facade->redo();
    EXPECT_EQ(first, 1);

    class Foreign : public IMCommand
    {
        bool execute() override { return true; }
        bool unexecute() override { return true; }
    } foreign;
    EXPECT_FALSE(facade->undoRedo()->execute(facade->undoContext(), &foreign));
    EXPECT_FALSE(facade->undoRedo()->execute(facade->undoContext(), nullptr));
}

TEST_F(Facade, HistoryKeepsTheLastThousandChanges)
{
    int value = 0;
    facade->setCurrentMode(ModeListCoords);
    const UndoContext context = facade->undoContext();
    for (int i = 0; i < 1005; ++i) {
        const auto step = makeReference<Step>(value);
        facade->undoRedo()->execute(context, step.get());
    }
    for (int i = 0; i < 2000 && facade->undoRedo()->canUndo(context); ++i)
        facade->undo();
    EXPECT_EQ(value, 5);
    for (int i = 0; i < 2000 && facade->undoRedo()->canRedo(context); ++i)
        facade->redo();
    EXPECT_EQ(value, 1005);
}

TEST_F(Facade, ACommandMayDropTheHistoriesWhileItIsAtWork)
{
    class Dropping : public Step
    {
    public:
        Dropping(TellurixController& facade, int& value)
            : Step(value)
            , facade_(facade)
        {
        }
        bool unexecute() override
        {
            facade_.reset();
            return Step::unexecute();
        }

    private:
        TellurixController& facade_;
    };
    int value = 0;
    facade->setCurrentMode(ModeListCoords);
    const UndoContext context = facade->undoContext();
    {
        const auto step = makeReference<Dropping>(*facade, value);
        facade->undoRedo()->execute(context, step.get());
    }
    facade->undo();
    EXPECT_EQ(value, 0);
    EXPECT_FALSE(facade->undoRedo()->canUndo(context) || facade->undoRedo()->canRedo(context));
}

TEST_F(Facade, ModulesAreKeptByTheModeOfTheirFile)
{
    facade->addModule(QStringLiteral("waters19.dll"), std::make_unique<QLibrary>());
    EXPECT_NE(facade->libraryOf(ModeWaters), nullptr);
    EXPECT_EQ(facade->libraryOf(ModeTests), nullptr);
    try {
        facade->addModule(QStringLiteral("str19.dll"), std::make_unique<QLibrary>());
        FAIL();
    } catch (const std::out_of_range& failure) {
        EXPECT_STREQ(failure.what(), "invalid map<K, T> key");
    }
    EXPECT_NE(facade->hatch(), nullptr);
    EXPECT_NE(facade->igkPreset(), nullptr);
    EXPECT_EQ(facade->buildNumber(), L"");
}

TEST_F(Facade, ObserversAreReachedThroughEitherBase)
{
    struct Observer : IMObserver {
        void update() override { ++count; }
        int count = 0;
    } observer;
    static_cast<ITellurixController*>(facade.get())->attach(&observer);
    static_cast<MObservable*>(facade.get())->notify();
    EXPECT_EQ(observer.count, 1);
    static_cast<IMObservable*>(static_cast<ITellurixController*>(facade.get()))->detach(&observer);
    facade->notify();
    EXPECT_EQ(observer.count, 1);
}
