#pragma once

#include "modules/idb_igk_preset.h"
#include "persistence/grammar/grammar.h"

// The IGK presets; a hatch is a number and a block of bytes and needs no fields of its own.

template <class Archive>
void fields(Archive& archive, IgkPresetItem& item)
{
    archive.word("id", item.id);
    archive.flag("flagA", item.flagA);
    archive.flag("flagB", item.flagB);
}

template <class Archive>
void fields(Archive& archive, IgkPreset& preset)
{
    archive.flag("active", preset.active);
    archive.word("mode", preset.mode);
    archive.list("items", preset.items);
}
