#include "drawing/sheet_files.h"

#include <gtest/gtest.h>

TEST(SheetFiles, AreNamedByWhatTheyShow)
{
    struct Case {
        const wchar_t* path;
        std::vector<const wchar_t*> shown;
        std::vector<const wchar_t*> files;
    };
    const Case cases[] = {
        {L"/п/к.dxf", {L"Скв-1"}, {L"/п/к.dxf"}},
        {L"/п/к.PDF", {L"Скв-1", L"Скв-2"}, {L"/п/к.PDF"}},
        {L"/п.1/к", {L"Скв-1", L"Скв-2"}, {L"/п.1/к_Скв-1", L"/п.1/к_Скв-2"}},
        {L"к.svg", {L"Скв-1", L"Скв-1", L"Скв-1"}, {L"к_1.svg", L"к_2.svg", L"к_3.svg"}},
        {L"к.dxf", {L"1", L"2", L"2"}, {L"к_1.dxf", L"к_2.dxf", L"к_2_2.dxf"}},
        // Names that a file cannot bear or that another file has.
        {L"к.dxf",
            {L"1/2", L"1:2", L"", L"1-2_2"},
            {L"к_1-2.dxf", L"к_1-2_2.dxf", L"к_1.dxf", L"к_1-2_2_2.dxf"}},
        {L"к.dxf", {L"Скв-А", L"скв-а", L"ё"}, {L"к_Скв-А.dxf", L"к_скв-а_2.dxf", L"к_ё.dxf"}},
    };
    for (const Case& each : cases) {
        std::vector<Drawing> pages(each.shown.size());
        for (std::size_t page = 0; page < pages.size(); ++page)
            pages[page].shows = each.shown[page];
        EXPECT_EQ(
            sheetFiles(each.path, pages), std::vector<std::wstring>(each.files.begin(), each.files.end()))
            << each.files.size();
    }
}
