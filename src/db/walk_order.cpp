#include "db/walk_order.h"

#include "core/base/letters.h"
#include "core/base/text_number.h"

#include <cmath>

NameClass classOfName(std::wstring_view name)
{
    if (containsLetter(name))
        return NameClass::lettered;
    int number = 0;
    if (!tryTextToInt(name, number))
        return NameClass::unreadable;
    return number != 0 ? NameClass::number : NameClass::zero;
}

bool isFiniteNumber(std::wstring_view text)
{
    float number = 0;
    return tryTextToFloat(text, number) && std::isfinite(number);
}

bool WalkOrder::admitsName(std::wstring_view name, bool zeroIsNumber)
{
    if (!consistent_)
        return false;
    const NameClass found = classOfName(name);
    const bool isNumber = found == NameClass::number || (zeroIsNumber && found == NameClass::zero);
    const Names names = found == NameClass::lettered ? Names::lettered : Names::numbers;
    consistent_ = (names == Names::lettered || isNumber) && (names_ == Names::none || names_ == names);
    names_ = names;
    return consistent_;
}
