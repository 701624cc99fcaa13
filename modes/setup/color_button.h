#pragma once

#include <QColor>
#include <QPushButton>

// A button with a colour for its face; a click opens the chooser.
class ColorButton : public QPushButton
{
public:
    explicit ColorButton(QWidget* parent = nullptr);

    QColor color() const { return color_; }
    void setColor(const QColor& color);

private:
    void choose();

    QColor color_;
};
