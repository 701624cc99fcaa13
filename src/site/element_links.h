#pragma once

#include "db/records/subsidence.h"

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <utility>
#include <vector>

// The numbered links as elements use them: "point:n" gives the element of the point's n-th layer from above,
// from 1; "ИГЭ E:0" gives the element E its name in words.

// Whether layers of a point of this name can bear elements: a colon in it would part the key wrongly.
bool canBeLinked(std::wstring_view point);
std::wstring layerLinkKey(std::wstring_view point, std::size_t number);
std::wstring elementNameKey(std::wstring_view element);

struct LayerLink {
    std::wstring_view point;
    std::size_t number = 0; // of the layer, from 1
};
// The layer that a key speaks of; nothing for links of number 0 and for others.
std::optional<LayerLink> readLayerLink(std::wstring_view key);

// The links gathered by point. Views into the project: look, use and let go before the next change.
class ElementLinks
{
public:
    explicit ElementLinks(const NumberedLinks& links);

    // Empty where the layer has none.
    std::wstring_view elementOf(std::wstring_view point, std::size_t number) const;

private:
    using Numbered = std::vector<std::pair<std::size_t, std::wstring_view>>;
    std::unordered_map<std::wstring_view, Numbered> byPoint_; // by number
};

// The name of the soil of an element as typed; empty where there is none.
std::wstring_view elementName(NumberedLinks& links, std::wstring_view element);
