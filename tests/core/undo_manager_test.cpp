#include "core/base/reference.h"
#include "core/base/undo_manager.h"
#include "core/counted.h"

#include <gtest/gtest.h>

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
