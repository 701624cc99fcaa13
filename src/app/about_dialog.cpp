#include "app/about_dialog.h"

#include "app/splash_screen.h"

#include <QKeyEvent>
#include <QPainter>

AboutDialog::AboutDialog(const TellurixController& controller, QWidget* parent)
    : QDialog(parent, Qt::Dialog | Qt::FramelessWindowHint)
    , picture_(QStringLiteral(":/images/logo.png"))
    , build_(buildText(controller))
{
    setFixedSize(424, 464);
    setModal(true);
}

void AboutDialog::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    painter.setRenderHint(QPainter::SmoothPixmapTransform);
    painter.fillRect(rect(), Qt::white);
    const QSize size = picture_.size().scaled(width(), height() - 72, Qt::KeepAspectRatio);
    painter.drawPixmap(
        QRect(QPoint((width() - size.width()) / 2, (height() - 72 - size.height()) / 2), size), picture_);
    painter.setPen(Qt::black);
    painter.drawText(QRect(24, height() - 72, width() - 48, 24), Qt::AlignLeft | Qt::AlignVCenter, build_);
    painter.setPen(Qt::darkGray);
    painter.drawText(QRect(24, height() - 44, width() - 48, 24),
        Qt::AlignLeft | Qt::AlignVCenter,
        QStringLiteral("Закрыть: Esc или щелчок мышью"));
    painter.drawRect(rect().adjusted(0, 0, -1, -1));
}

void AboutDialog::mousePressEvent(QMouseEvent*)
{
    accept();
}

void AboutDialog::keyPressEvent(QKeyEvent* event)
{
    if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter || event->key() == Qt::Key_Space)
        accept();
    else
        QDialog::keyPressEvent(event);
}
