#include "setup/color_button.h"

#include <QColorDialog>
#include <QPainter>

ColorButton::ColorButton(QWidget* parent)
    : QPushButton(parent)
{
    setIconSize(QSize(56, 14));
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    connect(this, &QPushButton::clicked, this, &ColorButton::choose);
}

void ColorButton::setColor(const QColor& color)
{
    color_ = color;
    QPixmap face(iconSize());
    face.fill(color);
    QPainter painter(&face);
    painter.setPen(QColor(0, 0, 0, 90));
    painter.drawRect(face.rect().adjusted(0, 0, -1, -1));
    painter.end();
    setIcon(face);
    setAccessibleName(color.name());
}

void ColorButton::choose()
{
    const QColor chosen = QColorDialog::getColor(color_, window(), QStringLiteral("Выбор цвета"));
    if (chosen.isValid())
        setColor(chosen);
}
