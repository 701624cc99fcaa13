#pragma once

#include <string>

// Questions about a point that need more than one register.
class IDBProjectController
{
public:
    // The point's absolute mark, m: the third cell of its first row; 0 for an unknown point. Throws as
    // std::stof does where the point has no rows or the cell is no number.
    virtual float getPointMark(const std::wstring& pointName) = 0;
    // The greatest depth, m, of the point in the consistency register; 0 where it has no rows.
    virtual float getConsistencyBottom(const std::wstring& pointName) = 0;
    // The depth of the borehole, m: the greatest depth of the point in the lithology register; 0 without
    // rows.
    virtual float getLithologyBottom(const std::wstring& pointName) = 0;

    virtual ~IDBProjectController() = default;
};
