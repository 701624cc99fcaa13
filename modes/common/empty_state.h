#pragma once

#include <QWidget>

class QLabel;

// What stands in place of data that are not there: a picture, what is missing, and what to do first.
class EmptyState : public QWidget
{
    Q_OBJECT

public:
    // The file of the picture below :/images/, drawn large and pale.
    explicit EmptyState(const QString& picture, QWidget* parent = nullptr);

    void say(const QString& heading, const QString& whatToDo);

private:
    QLabel* heading_;
    QLabel* whatToDo_;
};
