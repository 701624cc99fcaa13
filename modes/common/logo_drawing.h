#pragma once

#include "drawing/drawing.h"

#include <QString>

#include <optional>

// The picture of a file (PNG, JPEG or what else the toolkit reads) as a drawing for the head of a document:
// rectangles of its colours, so that all outputs have it, at 150 dots an inch. Nothing where the file is no
// picture.
std::optional<Drawing> logoDrawing(const QString& file);
