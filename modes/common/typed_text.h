#pragma once

#include <QString>

#include <string_view>

// A text of the project on the screen. Tables of thousands of rows are made of it, so it goes the short way
// where every character is one of Unicode's first sixty thousand, which is nearly always.
QString shownText(std::wstring_view text);

// What becomes of a typed text on its way into the project, onto the clipboard and into the file.

// A number as everything behind the screens reads it: "3,5" is "3.5", "6 180 123,45" is "6180123.45", digits
// and signs as typed. A text that is no number comes back as it is.
QString mendedNumber(const QString& text);

// The reverse, for spreadsheets of a Russian system: they take "3.6" for a day.
QString withDecimalComma(const QString& text);

// Whether numbers are copied with a decimal comma; the user's choice among the view settings.
bool copiesDecimalComma();
void setCopiesDecimalComma(bool comma);

// Why the file cannot keep the text, with the proposal below; empty where every character comes back.
QString lossProblem(const QString& text);

// The text with what the code page of project files has in place of what it lacks: "м³" is "м3", "≤" is "<=".
QString textForFile(const QString& text);
