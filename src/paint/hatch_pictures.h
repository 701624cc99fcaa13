#pragma once

#include "drawing/hatch.h"

#include <QColor>
#include <QPixmap>

class QPainter;

// Hatches on the screen, where a unit of their tiles is a point. On paper drawing/hatch.h cuts them at areas.

// The strokes of one tile with its corner at the origin, those of the tiles around it included where they
// reach in.
void paintHatchTile(QPainter& painter, const HatchTile& tile, const QColor& color);
// A tile on a transparent ground, to be laid side by side; pixels per unit.
QPixmap hatchTilePicture(const HatchTile& tile, double density, const QColor& color);
