#pragma once

#include "listCoords/project_head.h"

#include <QDialog>

class ISettings;
class QLabel;
class QLineEdit;
class QPushButton;

// Asks for code, title and file name of a new project. The file name follows the code until the user types
// one of his own.
class NameDialog : public QDialog
{
    Q_OBJECT

public:
    NameDialog(const ProjectHead& present, ISettings* settings, QWidget* parent = nullptr);

    ProjectHead head() const;

private:
    void followCode();
    void check();

    ProjectHead present_;
    ISettings* settings_;
    QLineEdit* code_;
    QLineEdit* title_;
    QLineEdit* file_;
    QLabel* problem_;
    QPushButton* accept_;
};
