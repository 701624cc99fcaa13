#pragma once

#include <string>

class QWidget;

// The shell's way to show a message: a modal box with one button, titled by the plain name of mode `key`, or
// by the program's name where that has none (the shell passes 99). Icon 1 informs, 2 warns.
void showMessageBox(const int& key, const std::wstring& text, QWidget* parent, const int& icon);
// The same with what else there is to know of it, below in smaller letters.
void showMessageBox(
    const int& key, const std::wstring& text, const std::wstring& beside, QWidget* parent, const int& icon);

// The last words before the program ends: the collected text and that the program closes.
void showCriticalError(const std::wstring& text);

// The words for the exception that is being handled.
std::wstring currentFailure();

// Runs the action and returns the words for what it throws, with a line break; empty where all went well.
template <class Action>
std::wstring failureOf(Action&& action)
{
    try {
        action();
    } catch (...) {
        return currentFailure();
    }
    return {};
}
