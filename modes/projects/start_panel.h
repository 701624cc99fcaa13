#pragma once

#include <QWidget>

class QLabel;
class QPushButton;

// What stands in place of the register while there are no projects: what the program is, and what to do
// first.
class StartPanel : public QWidget
{
    Q_OBJECT

public:
    explicit StartPanel(QWidget* parent = nullptr);

    // The words below the heading: where projects are kept, or what hinders.
    void setWords(const QString& words);
    // Nothing to open where no examples are shipped.
    void showExamples(bool hasExamples);

Q_SIGNALS:
    void newProject();
    void openFile();
    void openExample();

private:
    QPushButton* addButton(
        class QBoxLayout* row, const char* name, const QString& text, const QString& tip, const char* icon);

    QLabel* words_;
    QPushButton* example_ = nullptr;
};
