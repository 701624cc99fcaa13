#pragma once

#include "document/office.h"

#include <QObject>

#include <vector>

class QComboBox;
class QFormLayout;
class QLineEdit;
class QWidget;

// The rows of the page "Документы" that stand in the office's own file and not among the settings.
class OfficeForm : public QObject
{
public:
    OfficeForm(QFormLayout* form, QWidget* parent);

    Office office() const;
    void show(const Office& office);

private:
    struct PersonRow {
        QComboBox* role;
        QLineEdit* name;
    };

    QLineEdit* addText(QFormLayout* form, const QString& label, const char* name, const QString& tip);
    QWidget* makePeople(QWidget* parent);

    QLineEdit* company_;
    QLineEdit* city_;
    QComboBox* stage_;
    std::vector<PersonRow> people_;
    QComboBox* signatures_;
};

// The file of the program that runs.
std::wstring ownOfficePath();
