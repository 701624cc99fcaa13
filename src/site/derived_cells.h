#pragma once

#include "site/laboratory.h"
#include "site/soil_name.h"

// What "Расчет значений" writes into a sample: derived properties 5 to 14, swelling pressure and free
// swelling (30, 31), shrinkage limit (32), the swell of each load, volume and moisture of each drying stage,
// the soil's name.

enum class Fill {
    Empty, // typed cells stay
    All, // typed cells give way
};

// Whether anything has changed. A soil's name follows its inputs unless it was typed (its code is 0).
bool fillDerivedCells(LabSample& sample, const SampleResult& result, const SoilNaming& soil, Fill fill);

// Whether a text in the cell of a physical property is what the calculation writes there, or the cell is
// empty and waits for it. False for the measured ones.
bool isComputedText(const SampleResult& result, int property, std::wstring_view text);
