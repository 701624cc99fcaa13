#pragma once

#include <QSplashScreen>

class TellurixController;

// The picture of the start, with the installed build and the progress of loading on it.
class SplashScreen : public QSplashScreen
{
public:
    SplashScreen(const QPixmap& picture, const TellurixController& controller);

protected:
    void drawContents(QPainter* painter) override;
};

// Handles events until a splash that was just shown stands on the screen with its picture, but no longer than
// a person would take for a fault: the display may be slow to make room for it. What comes next may keep the
// program from painting.
void waitUntilPainted(QSplashScreen& splash);

// "Обновление: 19.3.2": the version and the build, or .1 where the machine knows none.
QString buildText(const TellurixController& controller);
