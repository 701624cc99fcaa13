#pragma once

class QWidget;

// Gives a drawing a menu by which it is copied, or saved as a picture, in twice the points of the screen. The
// keys work where the drawing can have the focus.
void addPictureActions(QWidget* drawing, const char* fileName);
