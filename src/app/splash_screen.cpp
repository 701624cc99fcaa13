#include "app/splash_screen.h"

#include "core/facade/tellurix_controller.h"
#include "modules/program.h"

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QLabel>
#include <QPainter>
#include <QTimer>
#include <QVBoxLayout>
#include <QWindow>

QString buildText(const TellurixController& controller)
{
    const QString build = QString::fromStdWString(controller.buildNumber());
    return QStringLiteral("Обновление: ") + applicationVersion + QLatin1Char('.')
        + (build.isEmpty() ? QStringLiteral("1") : build);
}

void waitUntilPainted(QSplashScreen& splash)
{
    static constexpr int longestMilliseconds = 500;
    static constexpr int betweenLooks = 10;
    QElapsedTimer waited;
    waited.start();
    QTimer look; // wakes the loop below where nothing else does
    look.start(betweenLooks);
    const QWindow* window = splash.windowHandle();
    while (window && !window->isExposed() && waited.elapsed() < longestMilliseconds)
        QCoreApplication::processEvents(QEventLoop::ExcludeUserInputEvents | QEventLoop::WaitForMoreEvents);
    splash.repaint();
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
