#pragma once

#include "core/base/mobject.h"
#include "modules/idb_igk_preset.h"

class DBIgkPreset : public MObject, public IDBIgkPreset
{
public:
    const Presets& getPresets() override { return presets_; }
    void setPresets(const Presets& presets) override { presets_ = presets; }
    void addPreset(const std::wstring& name, const IgkPreset& preset) override
    {
        presets_.emplace(name, preset);
    }
    void setActive(const std::wstring& name, bool active) override;
    bool hasActive() override;
    std::wstring getActiveName() override;
    bool hasPreset(const std::wstring& name) override { return presets_.contains(name); }
    void clearActive() override;
    bool isMode1(const std::wstring& name) override;
    void removePreset(const std::wstring& name) override { presets_.erase(name); }
    void renamePreset(const std::wstring& oldName, const std::wstring& newName) override;

private:
    Presets::const_iterator firstActive() const;

    Presets presets_;
};
