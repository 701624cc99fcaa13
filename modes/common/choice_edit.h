#pragma once

#include <QLineEdit>

class QListWidget;

// A line with a list of choices below it. Typing narrows the list to what holds the typed letters, the arrows
// walk it, a click takes from it; Alt+Down shows all of it. The line takes any other text as well. The list
// never has the keyboard, so that Enter and Tab are the line's own.
class ChoiceEdit : public QLineEdit
{
    Q_OBJECT

public:
    ChoiceEdit(const QStringList& choices, QWidget* parent);

    bool isListShown() const;
    void showAll();

Q_SIGNALS:
    // A choice was clicked; it stands in the line.
    void picked();

protected:
    void keyPressEvent(QKeyEvent* event) override;
    void hideEvent(QHideEvent* event) override;

private:
    void showMatching(const QString& typed);
    void walk(int step);
    void take(const QString& choice);

    QStringList choices_;
    QListWidget* list_;
};
