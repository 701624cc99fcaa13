#pragma once

#include <cstdint>
#include <map>
#include <string>
#include <vector>

struct IgkPresetItem {
    std::uint32_t id = 0;
    bool flagA = false;
    bool flagB = false;

    bool operator==(const IgkPresetItem&) const = default;
};

// A named selection of the columns' screen. What mode and items stand for is known to that screen alone.
struct IgkPreset {
    bool active = false;
    std::uint32_t mode = 0;
    std::vector<IgkPresetItem> items;

    bool operator==(const IgkPreset&) const = default;
};

class IDBIgkPreset
{
public:
    using Presets = std::map<std::wstring, IgkPreset>;

    virtual const Presets& getPresets() = 0;
    virtual void setPresets(const Presets& presets) = 0;
    // A name that is there already keeps its preset.
    virtual void addPreset(const std::wstring& name, const IgkPreset& preset) = 0;
    // True makes the preset the only active one; false clears this one alone. An unknown name changes
    // nothing.
    virtual void setActive(const std::wstring& name, bool active) = 0;
    virtual bool hasActive() = 0;
    // The first active preset by name; empty where none is.
    virtual std::wstring getActiveName() = 0;
    virtual bool hasPreset(const std::wstring& name) = 0;
    virtual void clearActive() = 0;
    // Whether the preset's mode is 1; false for an unknown name.
    virtual bool isMode1(const std::wstring& name) = 0;
    virtual void removePreset(const std::wstring& name) = 0;
    // Where the new name is taken, the preset of the old name is lost and the other stays.
    virtual void renamePreset(const std::wstring& oldName, const std::wstring& newName) = 0;

    virtual ~IDBIgkPreset() = default;
};
