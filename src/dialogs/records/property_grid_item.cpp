#include "dialogs/records/property_grid_item.h"

const std::vector<std::wstring>& PropertyGridItem::getLabels() const
{
    static const std::vector<std::wstring> none;
    return none;
}

void PropertyGridItem::setLabels(const std::vector<std::wstring>&) { }
