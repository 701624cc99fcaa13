#pragma once

#include "common/point_register_screen.h"

class LithologyColumn;

// The screen of a register with the column of the point beside the table, where the chosen row is drawn out.
class ColumnRegisterScreen : public PointRegisterScreen
{
    Q_OBJECT

public:
    // The columns of the table with the depths: from and to, the same one twice for a single depth.
    ColumnRegisterScreen(TX_Modes mode,
        std::shared_ptr<DepthRegister> depthRegister,
        ITellurixController* controller,
        int fromColumn,
        int toColumn);

protected:
    void rowsShown(const GridRows& rows, const PointFacts& point) override;

private:
    void showStretch();

    const int fromColumn_;
    const int toColumn_;
    LithologyColumn* column_;
    GridRows shown_;
};
