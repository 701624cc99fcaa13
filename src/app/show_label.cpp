#include "app/show_label.h"

#include <QFontMetrics>
#include <QPainter>

ShowLabel::ShowLabel(const QString& text, QWidget* parent)
    : QLabel(text, parent)
{
    setStyleSheet(QStringLiteral("QLabel { color : darkblue; }"));
    setFont(QFont(QStringLiteral("Impact"), 10));
    // The text is drawn at 20 pixels, with room for its descenders below.
    setMinimumHeight(26);
}

void ShowLabel::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    painter.drawText(0, 20, QFontMetrics(font()).elidedText(text(), Qt::ElideRight, width()));
}
