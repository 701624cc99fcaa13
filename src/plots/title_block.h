#pragma once

#include "dictionaries/dictionary.h"
#include "plots/sketch.h"

#include <cstdint>
#include <string>
#include <vector>

// The blocks of an office's sheets: who made it, what it is, which sheet. Sizes after GOST R 21.101 as they
// are told second-hand: they stand in the tables of title_block.cpp alone.

struct TitleBlockTexts {
    struct Person {
        std::wstring role; // "Разработал"
        std::wstring name;
    };
    int language = languageRussian;
    std::wstring designation; // the project's code
    std::wstring object; // its name
    std::wstring title; // of the sheet
    std::wstring company;
    std::wstring stage;
    std::wstring date; // beside each person
    int sheet = 1; // 0: its cell stays free, as that of the sheets does
    int sheets = 1;
    std::vector<Person> people; // six at most; empty: the usual roles without names
    std::vector<Person> agreed; // two at most, in the field "Согласовано"
};

enum class TitleBlock : std::uint8_t {
    None,
    Drawing, // form 3, 185 x 55
    Text, // form 5, 185 x 40
    Following, // form 6, 185 x 15
};

inline constexpr double titleBlockWidth = 185;
double titleBlockHeight(TitleBlock block);

// With its lower right corner there.
void addTitleBlock(Sketch& sketch, TitleBlock block, const Spot& corner, const TitleBlockTexts& texts);
// The strip of the master copy's numbers, left of the frame, from the lower left corner of the frame up.
void addSideStrip(Sketch& sketch, const Spot& corner, int language);
// The field "Согласовано" above that strip, of first sheets.
void addAgreedField(Sketch& sketch, const Spot& corner, const TitleBlockTexts& texts);

// What belongs to a sheet of that field: the block, and where asked for the strip, above it on the first
// sheet the field "Согласовано".
void addSheetBlocks(Sketch& sketch,
    const Extent& field,
    TitleBlock block,
    const TitleBlockTexts& texts,
    bool isFirst,
    bool hasSideStrip = true);
