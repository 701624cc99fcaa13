#include "persistence/igk_preset_library.h"

#include <algorithm>
#include <utility>

DBIgkPreset::Presets::const_iterator DBIgkPreset::firstActive() const
{
    return std::find_if(
        presets_.begin(), presets_.end(), [](const auto& entry) { return entry.second.active; });
}

void DBIgkPreset::setActive(const std::wstring& name, bool active)
{
    const auto preset = presets_.find(name);
    if (preset == presets_.end())
        return;
    if (active)
        clearActive();
    preset->second.active = active;
}

bool DBIgkPreset::hasActive()
{
    return firstActive() != presets_.end();
}

std::wstring DBIgkPreset::getActiveName()
{
    const auto active = firstActive();
    return active == presets_.end() ? std::wstring() : active->first;
}

void DBIgkPreset::clearActive()
{
    for (auto& [name, preset] : presets_)
        preset.active = false;
}

bool DBIgkPreset::isMode1(const std::wstring& name)
{
    const auto preset = presets_.find(name);
    return preset != presets_.end() && preset->second.mode == 1;
}

void DBIgkPreset::renamePreset(const std::wstring& oldName, const std::wstring& newName)
{
    // The new name may be a reference into the entry that is taken out.
    std::wstring name = newName;
    auto node = presets_.extract(oldName);
    if (node.empty())
        return;
    node.key() = std::move(name);
    presets_.insert(std::move(node));
}
