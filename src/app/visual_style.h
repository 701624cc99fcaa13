#pragma once

class QString;

// The style of that name with its own light palette, for the whole program.
void applyVisualStyle(const QString& name);
