#pragma once

#include <QAbstractButton>
#include <QApplication>
#include <QMessageBox>
#include <QTimer>

#include <deque>
#include <string>
#include <vector>

// Stands in for the user at message boxes: answers each with the next button, a box too many with its escape
// button, and remembers what they said.
class MessageAnswers
{
public:
    explicit MessageAnswers(std::deque<QMessageBox::StandardButton> answers = {})
        : answers_(std::move(answers))
    {
        QObject::connect(&timer_, &QTimer::timeout, &timer_, [this] { answer(); });
        timer_.start(5);
    }

    // "title: text" of each box so far.
    const std::vector<std::wstring>& boxes() const { return boxes_; }

private:
    void answer()
    {
        auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
        if (!box)
            return;
        boxes_.push_back((box->windowTitle() + QStringLiteral(": ") + box->text()).toStdWString());
        QMessageBox::StandardButton wanted = QMessageBox::NoButton;
        if (!answers_.empty()) {
            wanted = answers_.front();
            answers_.pop_front();
        }
        QAbstractButton* button = box->button(wanted);
        if (button)
            button->click();
        else
            box->reject();
    }

    std::deque<QMessageBox::StandardButton> answers_;
    std::vector<std::wstring> boxes_;
    QTimer timer_;
};
