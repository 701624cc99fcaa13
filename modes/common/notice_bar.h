#pragma once

#include <QFrame>

class QLabel;
class QPushButton;

// A line above a table that says what is the matter with the data and offers to mend it.
class NoticeBar : public QFrame
{
    Q_OBJECT

public:
    NoticeBar(const QString& remedy, QWidget* parent = nullptr);

    // Empty hides the bar.
    void say(const QString& text);

Q_SIGNALS:
    void remedyWanted();

private:
    QLabel* text_;
    QPushButton* button_;
};
