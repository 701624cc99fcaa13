#pragma once

#include "modules/tx_table.h"

class StudyController;
class StudyModel;

class StudyTable : public TXTable
{
public:
    StudyTable(StudyController* controller, StudyModel* model, QWidget* parent = nullptr);

protected:
    void paintEvent(QPaintEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void keyReleaseEvent(QKeyEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;

private:
    // Nothing happens yet on the keypad's Enter, on Escape and on a double click; here is where it would.
    void react() { }

    [[maybe_unused]] StudyController* controller_; // for the reactions
};
