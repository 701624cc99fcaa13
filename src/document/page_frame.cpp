#include "document/page_frame.h"

#include "drawing/hit_test.h"

#include <algorithm>

double stampHeight(const PageFrame& frame, const PageFormat& page, int number)
{
    if (!frame.draw)
        return 0;
    double height = 0;
    for (const Item& item : frame.draw(page, number, 0).items) {
        const std::optional<Extent> extent =
            item.layer == Layer::Stamp ? extentOf(item) : std::optional<Extent>();
        // Strips in the binding take nothing from the texts.
        if (extent && extent->right > page.left)
            height = std::max(height, page.height - extent->top);
    }
    return height;
}
