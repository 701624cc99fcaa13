#pragma once

#include "common/depth_register.h"
#include "common/point_list.h"
#include "modules/itellurix_controller.h"

#include <map>
#include <memory>
#include <string>

// What was typed into a register, by point: above all the rows that the project could not take. It lives as
// long as a screen or an undo step needs it, so a screen that is made anew finds it again.
class RegisterMemory
{
public:
    // A cell that the project could not take.
    struct OpenCell {
        std::wstring point;
        qint64 row = 0;
        int column = 0;
        QString text; // where and why
    };

    // The one of a mode, shared by its screens.
    static std::shared_ptr<RegisterMemory> of(TX_Modes mode, const ITellurixController* controller);

    bool isOf(const IDBProject* project) const { return project_ == project; }
    // Rows of another project are nothing to this one. Whether there were any to be forgotten.
    bool turnTo(const IDBProject* project);

    RegisterRows& rowsOf(const std::wstring& point) { return rows_[point]; }
    // The point goes out of view: rows that nobody typed anything into are not worth keeping.
    void leave(const std::wstring& point);

    // All points that have rows here, in the project's register or could have them, in reading order; those
    // that stand in no register of points come last.
    QVector<ListedPoint> listedPoints(IDBProject& project, const DepthRegister& depthRegister) const;
    // The cells that are not stored, those of the point on view first.
    QVector<OpenCell> openCells(const std::wstring& onView, const QVector<GridColumn>& columns) const;

private:
    bool hasProblem(const std::wstring& point) const;

    const IDBProject* project_ = nullptr; // only compared
    std::map<std::wstring, RegisterRows> rows_;
};
