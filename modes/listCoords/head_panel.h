#pragma once

#include "listCoords/project_head.h"

#include <QWidget>

class ISettings;
class QLabel;
class QLineEdit;
class QPushButton;

// Code, title and file name of the project on top of the screen. A line is taken over by Enter or when the
// user leaves it; Escape gives it up. A file name that cannot be stays as typed, with the reason below.
class HeadPanel : public QWidget
{
    Q_OBJECT

public:
    explicit HeadPanel(ISettings* settings, QWidget* parent = nullptr);
    ~HeadPanel() override;

    // The project as stored. A refused file name stays until the stored one changes.
    void showHead(const ProjectHead& head);
    void showNothing();
    // Takes over what stands in the lines.
    void commit();
    // Why the file name is not stored; empty where it is.
    QString problem() const { return problem_; }

Q_SIGNALS:
    void edited(const ProjectHead& after);
    void nameWanted();

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void fill();
    void showNotice();

    ISettings* settings_;
    ProjectHead head_;
    QString problem_;
    QLineEdit* code_;
    QLineEdit* title_;
    QLineEdit* file_;
    QLabel* notice_;
    QPushButton* nameButton_;
};
