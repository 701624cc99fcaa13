#pragma once

#include <QAbstractButton>
#include <QApplication>
#include <QDialog>
#include <QMessageBox>
#include <QTimer>

// Stands in for the user at boxes whose buttons have words of their own: presses the next one by its text, ""
// and whatever is not there being Escape, and remembers what the boxes said.
class ButtonAnswers
{
public:
    explicit ButtonAnswers(QStringList answers = {})
        : answers_(std::move(answers))
    {
        QObject::connect(&timer_, &QTimer::timeout, &timer_, [this] { answer(); });
        timer_.start(5);
    }

    const QStringList& boxes() const { return boxes_; }

private:
    void answer()
    {
        auto* dialog = qobject_cast<QDialog*>(QApplication::activeModalWidget());
        if (!dialog)
            return;
        auto* box = qobject_cast<QMessageBox*>(dialog);
        boxes_ << (box ? box->text() : dialog->windowTitle());
        const QString wanted = answers_.isEmpty() ? QString() : answers_.takeFirst();
        const auto buttons = dialog->findChildren<QAbstractButton*>();
        for (QAbstractButton* button : buttons)
            if (button->text() == wanted) {
                button->click();
                return;
            }
        dialog->reject();
    }

    QStringList answers_;
    QStringList boxes_;
    QTimer timer_;
};
