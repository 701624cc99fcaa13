#pragma once

#include <QDialog>

#include <memory>

class IDBProject;
class StudyController;
class StudyTable;

// Which investigations exist for each point of the project: a table to look at.
class StudyDialog : public QDialog
{
public:
    explicit StudyDialog(IDBProject* project, QWidget* parent = nullptr);
    ~StudyDialog() override;

private:
    std::unique_ptr<StudyController> controller_;
    StudyTable* table_;
};
