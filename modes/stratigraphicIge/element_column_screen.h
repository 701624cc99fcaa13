#pragma once

#include "common/mode_screen.h"
#include "drawing/hatch.h"

class DrawingView;
class QComboBox;

// The site's elements as one column. Sorting turns between the order of the register and that of depth.
class ElementColumnScreen : public ModeScreen
{
    Q_OBJECT

public:
    ElementColumnScreen(TX_Modes mode, ITellurixController* controller, QWidget* parent = nullptr);

protected:
    void readProject(IDBProject* project) override;
    void sortData() override;
    void printReport() override;
    void settingsChanged() override;

private:
    void drawElements();

    Hatches hatches_;
    DrawingView* view_;
    QComboBox* sheet_;
    bool isByDepth_ = false;
};
