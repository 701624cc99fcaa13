#pragma once

#include "core/base/mobject.h"
#include "core/base/references.h"
#include "core/base/uuid.h"
#include "dialogs/records/property_grid_item.h"

#include <array>
#include <cstdint>
#include <string>
#include <utility>
#include <vector>

// A link from a record to another object of the drawing.
struct InformLink {
    std::int32_t kind = 0;
    Uuid id;

    bool operator==(const InformLink&) const = default;
};

// A label placed along a profile, with its properties and the records below it.
class InformRecord : public MObject
{
public:
    // Two identifiers of four words each, then a byte.
    using Frame = std::array<std::uint32_t, 9>;

    // Takes one more reference on each item.
    InformRecord(std::int32_t kind,
        const Uuid& boxA,
        const Uuid& boxC,
        const Frame& frame,
        const std::vector<PropertyGridItem*>& items,
        std::vector<InformLink> tail,
        std::wstring text,
        const Uuid& boxB)
        : frame_(frame)
        , kind_(kind)
        , text_(std::move(text))
        , boxA_(boxA)
        , boxB_(boxB)
        , boxC_(boxC)
        , items_(items)
        , tail_(std::move(tail))
    {
        addRefAll(items_);
    }
    ~InformRecord() override
    {
        releaseAll(items_);
        releaseAll(children_);
    }

    // Takes one more reference on each child, then gives the old ones back.
    void setChildren(const std::vector<InformRecord*>& children) { replaceAll(children_, children); }
    void setFlag(bool flag) { flag_ = flag; }

    const Frame& frame() const { return frame_; }
    std::int32_t kind() const { return kind_; }
    const std::wstring& text() const { return text_; }
    const Uuid& boxA() const { return boxA_; }
    const Uuid& boxB() const { return boxB_; }
    const Uuid& boxC() const { return boxC_; }
    const std::vector<PropertyGridItem*>& items() const { return items_; }
    const std::vector<InformRecord*>& children() const { return children_; }
    const std::vector<InformLink>& tail() const { return tail_; }
    bool flag() const { return flag_; }

private:
    Frame frame_;
    std::int32_t kind_;
    std::wstring text_;
    Uuid boxA_;
    Uuid boxB_;
    Uuid boxC_;
    std::vector<PropertyGridItem*> items_;
    std::vector<InformRecord*> children_;
    std::vector<InformLink> tail_;
    bool flag_ = false;
};
