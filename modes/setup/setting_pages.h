#pragma once

#include <QStringList>

#include <string_view>
#include <vector>

// A preference on a page: what the user reads beside its editor.
struct SettingRow {
    std::string_view key;
    const wchar_t* label;
    // What the numbers from 0 on, or from `smallest` on, stand for, parted by bars; a number field where
    // empty.
    const wchar_t* choices = L"";
    int smallest = 0; // of a number field; the first choice's number
    int largest = 1000;
    const wchar_t* unit = L"";
    const wchar_t* tip = L"";
};

struct SettingPage {
    std::wstring_view title;
    std::vector<SettingRow> rows;
};

// The first page; the decimal mark for other programs stands there too.
inline constexpr const wchar_t* generalPage = L"Общие";
// The page that has rows from the office's own file too.
inline constexpr std::wstring_view officePage = L"Документы";

// The pages, in the order of the settings' groups.
const std::vector<SettingPage>& settingPages();
