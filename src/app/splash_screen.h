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

// "Обновление: 19.3.2": the version and the build, or .1 where the machine knows none.
QString buildText(const TellurixController& controller);
