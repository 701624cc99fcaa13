#pragma once

#include <QString>

#include <functional>

class QPainter;
class QWidget;

// Gives a drawing a menu by which it is copied, or saved as a picture, in twice the points of the screen;
// where it can have the focus, also a key. What is painted is what the drawing shows, without marks of the
// focus.
void addPictureActions(
    QWidget* drawing, const QString& fileName, const std::function<void(QPainter& painter)>& paint);
