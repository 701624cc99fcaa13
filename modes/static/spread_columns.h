#pragma once

#include "common/edit_grid_model.h"
#include "site/sounding_layers.h"

// What readings say of a layer or an element, in a grid: from n to c, left to right.
QVector<GridColumn> spreadColumns();
QVector<QString> spreadCells(
    const Spread& tip, const Number& meanSleeve, const SoundedProperties& properties);

// Empty where there is no number.
QString numberCell(const Number& value, int decimals);
