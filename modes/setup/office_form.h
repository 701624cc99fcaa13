#pragma once

#include "document/office.h"

#include <QObject>

#include <vector>

class LogoEdit;
class QCheckBox;
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
    QWidget* makeAgreed(QWidget* parent);
    static std::vector<Office::Person> peopleOf(const std::vector<PersonRow>& rows);
    static void showPeople(const std::vector<PersonRow>& rows, const std::vector<Office::Person>& people);

    QLineEdit* company_;
    QLineEdit* city_;
    LogoEdit* logo_;
    QComboBox* stage_;
    QLineEdit* date_;
    std::vector<PersonRow> people_;
    std::vector<PersonRow> agreed_;
    QComboBox* signatures_;
    QCheckBox* hasFrame_;
};

// Of the program that runs, and the user's file in it.
std::wstring programFolder();
std::wstring ownOfficePath();
