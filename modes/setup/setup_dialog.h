#pragma once

#include "document/office.h"
#include "setup/setting_editor.h"

#include <QDialog>

#include <vector>

class ITellurixController;
class OfficeForm;
class QComboBox;
class QFormLayout;
class QListWidget;
class QStackedWidget;

// The program's settings, a page a group. Nothing is set before the user accepts; then everything is, in the
// settings' own order.
class SetupDialog : public QDialog
{
public:
    explicit SetupDialog(ITellurixController* controller);

    // Makes the folder of projects in the work folder first; stays open where that fails in a new one.
    void accept() override;

private:
    QWidget* makePage(const SettingPage& page);
    void addDecimalMark(QFormLayout* form, QWidget* parent);
    void resetPage();
    SettingEditor& editorOf(std::string_view key);
    bool makeProjectsFolder();
    bool storeOffice();

    ITellurixController* controller_;
    std::vector<SettingEditor> editors_;
    OfficeForm* office_ = nullptr; // owned by its page
    Office shownOffice_;
    QComboBox* decimalMark_ = nullptr; // for other programs
    QListWidget* list_;
    QStackedWidget* pages_;
};
