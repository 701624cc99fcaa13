#pragma once

#include "drawing/drawing.h"

#include <QFont>
#include <QString>

// The fonts that stand in the folder "fonts" beside the program. They are registered with the toolkit at the
// first call, once for the program and all its modules; a QGuiApplication must be there.

// The font in a size of a hundred pixels, without kerning and hints: places come from drawing/text_layout.h,
// and the painter's scale makes the size.
const QFont& drawingFont(Font font);
inline constexpr int drawingFontPixels = 100;

// What a user should know when one of the files is missing: drawings are made with another font then, and
// their texts may not fit. Empty while all are there.
QString missingFonts();
