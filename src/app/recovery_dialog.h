#pragma once

#include "app/recovery_list.h"

#include <QDialog>

class QLabel;
class QPushButton;
class QTableWidget;

// Shows the copies that crashes have left. Accepted: one of them is to be opened.
class RecoveryDialog : public QDialog
{
public:
    RecoveryDialog(std::vector<RecoveredProject> copies, const std::wstring& workFolder, QWidget* parent);

    // Path of the copy to open.
    const std::wstring& chosen() const { return chosen_; }

protected:
    // Del deletes.
    void keyPressEvent(QKeyEvent* event) override;

private:
    QTableWidget* makeTable();
    void fillRow(int row);
    // As wide as the content, as far as the screen allows.
    void fit();
    void showCurrent();
    void restoreCurrent();
    void deleteCurrent();

    std::vector<RecoveredProject> copies_;
    std::wstring workFolder_;
    std::wstring chosen_;
    QTableWidget* table_;
    QLabel* details_;
    QPushButton* restore_;
};
