#include "app/splash_screen.h"

#include "core/facade/tellurix_controller.h"
#include "settings/program.h"

#include <QLabel>
#include <QPainter>
#include <QVBoxLayout>

QString buildText(const TellurixController& controller)
{
    const QString build = QString::fromStdWString(controller.buildNumber());
    return QStringLiteral("Обновление: ") + applicationVersion + QLatin1Char('.')
        + (build.isEmpty() ? QStringLiteral("1") : build);
}

SplashScreen::SplashScreen(const QPixmap& picture, const TellurixController& controller)
    : QSplashScreen(picture)
{
    auto* layout = new QVBoxLayout(this);
    auto* build = new QLabel(buildText(controller), this);
    build->setAlignment(Qt::AlignLeft | Qt::AlignTop);
    layout->addWidget(build);
}

void SplashScreen::drawContents(QPainter* painter)
{
    QFont font = painter->font();
    font.setPixelSize(20);
    font.setWeight(QFont::Bold);
    painter->setFont(font);
    painter->setPen(Qt::black);
    QSplashScreen::drawContents(painter);
}
