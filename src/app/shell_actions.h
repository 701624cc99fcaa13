#pragma once

#include "dictionaries/modes.h"

#include <QKeySequence>

#include <array>
#include <cstddef>

class MainController;
class QAction;

// The user's vocabulary: every action of the shell, in the order of the menus and tool bars.
enum class ShellAction {
    Save,
    Close,
    Report,
    ExportOgm,
    Exit,
    About,
    Undo,
    Redo,

    ListCoords,
    Litology,
    Tests,
    Waters,
    Consistents,
    Laboratory,
    Ige,
    Static,
    Section,
    Igk,
    Column,
    Subsidence,
    Chemistry,
    Consolidated,
    Study,
    Stamps,
    Setup,
    Synchro,

    Delete,
    Add,
    MainSet,
    Set,
    SampleSet,
    Calc,
    Clear,
    Sort,
    EndEdit,
};

inline constexpr std::size_t shellActionCount = static_cast<std::size_t>(ShellAction::EndEdit) + 1;

// Where an action stands, and where a separator follows it.
enum ActionPlace : unsigned {
    InFileMenu = 1U << 0,
    InFileBar = 1U << 1,
    InEditMenu = 1U << 2,
    InPointMenu = 1U << 3,
    InPointBar = 1U << 4,
    InSetupMenu = 1U << 5,
    InRecordMenu = 1U << 6,
    InRecordBar = 1U << 7,
    MenuSeparator = 1U << 8,
    BarSeparator = 1U << 9,
};

// The keys of an action: spelt out, those that the platform has for the purpose (which may be none), or none.
class ActionKeys
{
public:
    constexpr ActionKeys(std::nullptr_t) { } // NOLINT(google-explicit-constructor): cells of a table
    constexpr ActionKeys(const char* text)
        : text_(text)
    {
    }
    constexpr ActionKeys(QKeySequence::StandardKey standard)
        : standard_(standard)
    {
    }

    QKeySequence sequence() const
    {
        return text_ ? QKeySequence(QString::fromLatin1(text_)) : QKeySequence(standard_);
    }

private:
    const char* text_ = nullptr;
    QKeySequence::StandardKey standard_ = QKeySequence::UnknownKey;
};

// One row an action; an empty cell is a null pointer.
struct ActionRow {
    ShellAction action;
    const char* name; // the action's object name
    const wchar_t* text;
    const wchar_t* tip; // the text, where empty
    const char* icon; // below :/images/
    const char* theme; // tried before the icon
    ActionKeys shortcut;
    unsigned places;
    bool on; // at the start
    TX_Modes mode; // changed to when triggered
    void (MainController::*run)(); // called when triggered
};

const std::array<ActionRow, shellActionCount>& actionRows();

// The actions that have been made; null for the others.
class ShellActions
{
public:
    QAction*& operator[](ShellAction action) { return actions_[static_cast<std::size_t>(action)]; }
    QAction* operator[](ShellAction action) const { return actions_[static_cast<std::size_t>(action)]; }

private:
    std::array<QAction*, shellActionCount> actions_{};
};
