#pragma once

#include "listCoords/point_table.h"

// Whether the user wants a change that goes through other registers, told how many of their rows go along.
bool askAboutChange(const PointsChange& change, QWidget* parent);
