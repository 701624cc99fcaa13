#include "site/element_links.h"

#include <algorithm>

static constexpr std::wstring_view elementPrefix = L"ИГЭ ";

bool canBeLinked(std::wstring_view point)
{
    return !point.empty() && point.find(L':') == std::wstring_view::npos;
}

std::wstring layerLinkKey(std::wstring_view point, std::size_t number)
{
    return std::wstring(point) + L":" + std::to_wstring(number);
}

std::wstring elementNameKey(std::wstring_view element)
{
    return std::wstring(elementPrefix) + std::wstring(element) + L":0";
}

std::optional<LayerLink> readLayerLink(std::wstring_view key)
{
    constexpr std::size_t mostDigits = 6; // of a layer's number
    const std::size_t colon = key.find(L':');
    if (colon == std::wstring_view::npos)
        return std::nullopt;
    const std::wstring_view digits = key.substr(colon + 1);
    if (digits.empty() || digits.size() > mostDigits)
        return std::nullopt;
    std::size_t number = 0;
    for (const wchar_t digit : digits) {
        if (digit < L'0' || digit > L'9')
            return std::nullopt;
        number = number * 10 + static_cast<std::size_t>(digit - L'0');
    }
    if (number == 0)
        return std::nullopt;
    return LayerLink{key.substr(0, colon), number};
}

ElementLinks::ElementLinks(const NumberedLinks& links)
{
    // The register walks by number, so the links of each point come in their order.
    for (const auto& [key, element] : links)
        if (const auto link = readLayerLink(key))
            byPoint_[link->point].emplace_back(link->number, element);
}

std::wstring_view ElementLinks::elementOf(std::wstring_view point, std::size_t number) const
{
    const auto links = byPoint_.find(point);
    if (links == byPoint_.end())
        return {};
    const auto link = std::lower_bound(
        links->second.begin(), links->second.end(), number, [](const auto& entry, std::size_t wanted) {
            return entry.first < wanted;
        });
    return link != links->second.end() && link->first == number ? link->second : std::wstring_view();
}

std::wstring_view elementName(NumberedLinks& links, std::wstring_view element)
{
    const auto found = links.find(elementNameKey(element));
    return found == links.end() ? std::wstring_view() : std::wstring_view(found->second);
}
