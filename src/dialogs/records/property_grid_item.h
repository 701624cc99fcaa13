#pragma once

#include "core/base/mobject.h"
#include "core/base/references.h"
#include "core/base/uuid.h"

#include <array>
#include <cstdint>
#include <string>
#include <utility>
#include <vector>

// A property of a label on a profile: name and value, and items below it. Only the drawing modules know what
// kind and boxes mean.
class PropertyGridItem : public MObject
{
public:
    // Takes one more reference on each child.
    PropertyGridItem(std::array<std::wstring, 2> texts,
        std::int32_t kind,
        const Uuid& boxA,
        const Uuid& boxB,
        const std::vector<PropertyGridItem*>& children)
        : texts_(std::move(texts))
        , kind_(kind)
        , boxA_(boxA)
        , boxB_(boxB)
        , children_(children)
    {
        addRefAll(children_);
    }
    ~PropertyGridItem() override { releaseAll(children_); }

    // A plain item has no labels: an empty list, shared by all of them, and setting does nothing.
    virtual const std::vector<std::wstring>& getLabels() const;
    virtual void setLabels(const std::vector<std::wstring>& labels);

    const std::array<std::wstring, 2>& texts() const { return texts_; }
    std::int32_t kind() const { return kind_; }
    const Uuid& boxA() const { return boxA_; }
    const Uuid& boxB() const { return boxB_; }
    const std::vector<PropertyGridItem*>& children() const { return children_; }
    // Takes one more reference on each child, then gives the old ones back.
    void setChildren(const std::vector<PropertyGridItem*>& children) { replaceAll(children_, children); }

private:
    std::array<std::wstring, 2> texts_;
    std::int32_t kind_;
    Uuid boxA_;
    Uuid boxB_;
    std::vector<PropertyGridItem*> children_;
};

// One of the choices that a module keeps beside a property for the time it is open; not in the file.
struct ProfilePropertyExtra {
    std::int32_t number = 0;
    std::wstring text;
    std::int32_t value = 0;
};

// A property with an identifier, a type and a list of values.
class ProfilePropertyGridItem : public PropertyGridItem
{
public:
    ProfilePropertyGridItem(const Uuid& boxC,
        std::int32_t level,
        std::vector<std::wstring> labels,
        std::array<std::wstring, 2> texts,
        std::int32_t kind,
        const Uuid& boxA,
        const Uuid& boxB,
        const std::vector<PropertyGridItem*>& children)
        : PropertyGridItem(std::move(texts), kind, boxA, boxB, children)
        , boxC_(boxC)
        , level_(level)
        , labels_(std::move(labels))
    {
    }

    const std::vector<std::wstring>& getLabels() const override { return labels_; }
    void setLabels(const std::vector<std::wstring>& labels) override { labels_ = labels; }

    const Uuid& boxC() const { return boxC_; }
    std::int32_t level() const { return level_; }
    std::vector<ProfilePropertyExtra>& extras() { return extras_; }

private:
    Uuid boxC_;
    std::int32_t level_;
    std::vector<ProfilePropertyExtra> extras_;
    std::vector<std::wstring> labels_;
};
