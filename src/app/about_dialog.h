#pragma once

#include <QDialog>
#include <QPixmap>

class TellurixController;

// What the program is and which build; a click or any of Escape and Enter closes it.
class AboutDialog : public QDialog
{
public:
    AboutDialog(const TellurixController& controller, QWidget* parent);

protected:
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

private:
    QPixmap picture_;
    QString build_;
};
