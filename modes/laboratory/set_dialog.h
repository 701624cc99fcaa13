#pragma once

#include "laboratory/sample_columns.h"

#include <QDialog>

#include <set>

class QListWidget;

// Which properties or loads the project's set of a test has.
struct TemplateState {
    LabTest test = LabTest::Physical;
    std::set<int> numbers;
};

TemplateState templateOf(IDBProject& project, LabTest test);
void putTemplate(IDBProject& project, const TemplateState& state);

class SetDialog : public QDialog
{
    Q_OBJECT

public:
    SetDialog(IDBProject& project, LabTest test, QWidget* parent = nullptr);

    TemplateState chosen() const;

private:
    LabTest test_;
    QListWidget* list_;
};
