#include "core/base/reference.h"
#include "core/base/undo_manager.h"
#include "core/counted.h"

#include <gtest/gtest.h>

#include <functional>
#include <stdexcept>
#include <string>
#include <vector>

namespace
{

class LoggedCommand : public MUndoRedoCommand
{
public:
    LoggedCommand(std::string& log, char name)
        : log_(log)
        , name_(name)
    {
    }
    bool execute() override { return log('+'); }
    bool unexecute() override { return log('-'); }

    bool fails = false;

private:
    bool log(char direction)
    {
        if (fails)
            throw std::runtime_error("refused");
        log_ += {direction, name_};
        return name_ != 'F';
    }

    std::string& log_;
    char name_;
};

using Command = Counted<LoggedCommand>;

class UndoManager : public testing::Test
{
protected:
    Reference<Command> command(char name) { return makeReference<Command>(alive, log, name); }
    static Reference<MUndoRedoManager> manager(int limit = 10)
    {
        return makeReference<MUndoRedoManager>(limit);
    }

    int alive = 0;
    std::string log;
};

} // namespace

TEST_F(UndoManager, GoesBackAndForthAndTellsWhetherMoreIsLeft)
{
    const auto undo = manager();
    EXPECT_TRUE(undo->execute(command('A').get()));
    undo->add(command('B').get());
    EXPECT_EQ(log, "+A") << "an added command's change is made already";
    EXPECT_FALSE(undo->execute(command('F').get()));

    log.clear();
    EXPECT_TRUE(undo->undo());
    EXPECT_TRUE(undo->undo());
    EXPECT_FALSE(undo->undo());
    EXPECT_FALSE(undo->undo());
    EXPECT_EQ(log, "-F-B-A");
    EXPECT_FALSE(undo->canUndo());

    log.clear();
    EXPECT_TRUE(undo->redo());
    EXPECT_TRUE(undo->redo());
    EXPECT_FALSE(undo->redo());
    EXPECT_FALSE(undo->redo());
    EXPECT_EQ(log, "+A+B+F");
    EXPECT_FALSE(undo->canRedo());
}

TEST_F(UndoManager, HoldsOneReferenceWhereverTheCommandStands)
{
    const auto first = command('A');
    {
        const auto undo = manager();
        undo->add(first.get());
        undo->add(command('B').get());
        undo->undo();
        undo->undo();
        EXPECT_EQ(first->referenceCount(), 2);
        undo->redo();
        EXPECT_EQ(first->referenceCount(), 2);
        EXPECT_EQ(alive, 2);
        // The change after an undo: B can come back no more.
        undo->add(command('C').get());
        EXPECT_FALSE(undo->canRedo());
        EXPECT_EQ(alive, 2);
        undo->undo();
    }
    EXPECT_EQ(first->referenceCount(), 1);
    EXPECT_EQ(alive, 1);
}

TEST_F(UndoManager, ACommandAddedAgainOutOfTheRedoStackLives)
{
    const auto undo = manager();
    Command* only = command('A').detach();
    undo->add(only);
    only->release();
    undo->undo();
    undo->execute(only);
    EXPECT_EQ(alive, 1);
    EXPECT_EQ(only->referenceCount(), 1);
    EXPECT_TRUE(undo->canUndo());
    EXPECT_FALSE(undo->canRedo());
    EXPECT_EQ(log, "-A+A");
}

TEST_F(UndoManager, WhatFallsOffTheEndIsNeverDestroyed)
{
    struct Case {
        int limit;
        int added;
        int undoable;
    };
    for (const Case& row : std::vector<Case>{
             {1000, 1000, 1000},
             {1000, 1001, 1000},
             {3, 5, 3},
             {1, 2, 1},
             // The newest command always finds its place.
             {0, 2, 1},
             {-1, 2, 1},
         }) {
        SCOPED_TRACE(row.limit);
        // They outlive the test, so the tally must too.
        static int survivors;
        survivors = 0;
        log.clear();
        {
            const auto undo = manager(row.limit);
            for (int i = 0; i < row.added; ++i)
                undo->add(makeReference<Command>(survivors, log, i == 0 ? 'O' : 'N').get());
            int undone = 0;
            for (; undo->canUndo(); ++undone)
                undo->undo();
            EXPECT_EQ(undone, row.undoable);
        }
        EXPECT_EQ(survivors, row.added - row.undoable);
        EXPECT_EQ(log.find('O') == std::string::npos, row.added > row.undoable) << "the oldest drops first";
    }
}

TEST_F(UndoManager, ACommandThatThrowsStaysWhereItIs)
{
    const auto undo = manager();
    const auto broken = command('A');
    undo->add(broken.get());
    broken->fails = true;
    EXPECT_THROW(undo->undo(), std::runtime_error);
    EXPECT_TRUE(undo->canUndo());
    EXPECT_FALSE(undo->canRedo());

    broken->fails = false;
    undo->undo();
    broken->fails = true;
    EXPECT_THROW(undo->redo(), std::runtime_error);
    EXPECT_FALSE(undo->canUndo());
    EXPECT_TRUE(undo->canRedo());
    EXPECT_EQ(broken->referenceCount(), 2);

    // Added before it is tried: a change that broke off half-way can be taken back.
    const auto halfway = command('B');
    halfway->fails = true;
    EXPECT_THROW(undo->execute(halfway.get()), std::runtime_error);
    halfway->fails = false;
    log.clear();
    EXPECT_FALSE(undo->undo());
    EXPECT_EQ(log, "-B");
}

namespace
{

// A command that comes back to its manager while it is at work.
class BusyCommand : public LoggedCommand
{
public:
    using LoggedCommand::LoggedCommand;
    bool execute() override { return work(LoggedCommand::execute()); }
    bool unexecute() override { return work(LoggedCommand::unexecute()); }

    std::function<void()> meanwhile;

private:
    bool work(bool result)
    {
        if (meanwhile)
            meanwhile();
        return result;
    }
};

using Busy = Counted<BusyCommand>;

} // namespace

TEST_F(UndoManager, WhatACommandAddsWhileAtWorkIsTakenWhenItIsDone)
{
    enum class Call { execute, undo, redo };
    struct Case {
        Call call;
        std::string undone; // afterwards, all of it
    };
    // The newest addition is undone first; what was undone itself can come back no more.
    for (const Case& row :
        std::vector<Case>{{Call::execute, "-C-B-A"}, {Call::undo, "-C-B"}, {Call::redo, "-C-B-A"}}) {
        const auto undo = manager();
        const auto busy = makeReference<Busy>(alive, log, 'A');
        if (row.call != Call::execute)
            undo->add(busy.get());
        if (row.call == Call::redo)
            undo->undo();
        busy->meanwhile = [&] {
            undo->add(command('B').get());
            EXPECT_FALSE(undo->undo()) << "the command at work is not undone a second time";
            EXPECT_FALSE(undo->redo());
            undo->execute(command('C').get());
        };
        log.clear();
        if (row.call == Call::execute)
            undo->execute(busy.get());
        else
            row.call == Call::undo ? undo->undo() : undo->redo();
        EXPECT_EQ(log, row.call == Call::undo ? "-A+C" : "+A+C");
        EXPECT_FALSE(undo->canRedo());
        busy->meanwhile = {};
        log.clear();
        while (undo->canUndo())
            undo->undo();
        EXPECT_EQ(log, row.undone);
    }
    EXPECT_EQ(alive, 0);
}

TEST_F(UndoManager, ACommandThatFailsKeepsWhatItAdded)
{
    const auto undo = manager();
    const auto busy = makeReference<Busy>(alive, log, 'A');
    undo->add(busy.get());
    busy->meanwhile = [&] {
        undo->add(command('B').get());
        throw std::runtime_error("half-way");
    };
    EXPECT_THROW(undo->undo(), std::runtime_error);
    busy->meanwhile = {};
    log.clear();
    while (undo->undo()) { }
    EXPECT_EQ(log, "-B-A");
}

TEST_F(UndoManager, LivesUntilTheCommandAtWorkIsDone)
{
    auto undo = manager();
    {
        const auto busy = makeReference<Busy>(alive, log, 'A');
        undo->add(command('B').get());
        undo->add(busy.get());
        busy->meanwhile = [&] {
            undo->add(command('C').get());
            undo = {};
        };
    }
    undo->undo();
    EXPECT_EQ(log, "-A");
    EXPECT_EQ(alive, 0);
}

TEST_F(UndoManager, ACommandMayComeBackWhenItGoes)
{
    class Parting : public LoggedCommand
    {
    public:
        using LoggedCommand::LoggedCommand;
        ~Parting() override
        {
            if (atEnd)
                atEnd();
        }
        std::function<void()> atEnd;
    };
    const auto undo = manager();
    {
        const auto parting = makeReference<Parting>(log, 'A');
        parting->atEnd = [&] { undo->add(command('D').get()); };
        undo->add(command('B').get());
        undo->add(parting.get());
    }
    undo->undo();
    undo->undo();
    undo->add(command('C').get()); // drops A and B, and A adds D
    log.clear();
    while (undo->undo()) { }
    EXPECT_EQ(log, "-D-C");
}
