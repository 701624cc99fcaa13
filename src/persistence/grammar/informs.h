#pragma once

#include "core/base/reference.h"
#include "db/records/section_records.h"
#include "dialogs/records/inform_record.h"
#include "dialogs/records/property_grid_item.h"
#include "persistence/grammar/grammar.h"

#include <array>
#include <cstdint>
#include <string>
#include <utility>
#include <vector>

// The trees of inform records along a profile, and their property items.

// A property item as it stands in the file. A plain item, which has no id, type or values of its own, stands
// there with none.
struct ItemFields {
    Uuid boxC;
    std::int32_t level = 0;
    std::vector<std::wstring> labels;
    std::array<std::wstring, 2> texts;
    std::int32_t kind = 0;
    Uuid boxA;
    Uuid boxB;
    std::vector<PropertyGridItem*> children;
};

template <class Archive>
void fields(Archive& archive, ItemFields& item)
{
    const auto level = archive.enter();
    archive.guid("boxC", item.boxC);
    archive.byte("level", item.level);
    archive.list("labels", item.labels);
    texts(archive, "texts", item.texts);
    archive.byte("kind", item.kind);
    archive.guid("boxA", item.boxA);
    archive.guid("boxB", item.boxB);
    archive.items("children", item.children);
}

template <class Archive, Of<InformLink> Link>
void fields(Archive& archive, Link& link)
{
    archive.byte("kind", link.kind);
    archive.guid("id", link.id);
}

// An inform record as it stands in the file: its frame is two identifiers and a byte.
struct InformFields {
    std::int32_t kind = 0;
    Uuid frameFirst;
    Uuid frameSecond;
    std::uint32_t frameByte = 0; // one byte in the file
    std::wstring text;
    Uuid boxA;
    Uuid boxB;
    Uuid boxC;
    std::vector<PropertyGridItem*> items;
    InformList children;
    std::vector<InformLink> tail;
    bool flag = false;
};

template <class Archive>
void fields(Archive& archive, InformFields& inform)
{
    const auto level = archive.enter();
    archive.byte("kind", inform.kind);
    archive.guid("frameFirst", inform.frameFirst);
    archive.guid("frameSecond", inform.frameSecond);
    archive.byte("frameByte", inform.frameByte);
    archive.text("text", inform.text);
    archive.guid("boxA", inform.boxA);
    archive.guid("boxB", inform.boxB);
    archive.guid("boxC", inform.boxC);
    archive.items("items", inform.items);
    archive.informs("children", inform.children);
    archive.list("tail", inform.tail);
    archive.flag("flag", inform.flag);
}

inline ItemFields fieldsOf(const PropertyGridItem& item)
{
    ItemFields fields;
    if (const auto* profile = dynamic_cast<const ProfilePropertyGridItem*>(&item)) {
        fields.boxC = profile->boxC();
        fields.level = profile->level();
        fields.labels = profile->getLabels();
    }
    fields.texts = item.texts();
    fields.kind = item.kind();
    fields.boxA = item.boxA();
    fields.boxB = item.boxB();
    fields.children = item.children();
    return fields;
}

inline InformFields fieldsOf(const InformRecord& inform)
{
    const InformRecord::Frame& frame = inform.frame();
    InformFields fields;
    fields.kind = inform.kind();
    fields.frameFirst = {{frame[0], frame[1], frame[2], frame[3]}};
    fields.frameSecond = {{frame[4], frame[5], frame[6], frame[7]}};
    fields.frameByte = frame[8];
    fields.text = inform.text();
    fields.boxA = inform.boxA();
    fields.boxB = inform.boxB();
    fields.boxC = inform.boxC();
    fields.items = inform.items();
    fields.children = inform.children();
    fields.tail = inform.tail();
    fields.flag = inform.flag();
    return fields;
}

// The fields of a record or item that is there, for every archive that does not read.
template <class Archive, class Record>
void existingRecord(Archive& archive, const Record& record)
{
    auto copy = fieldsOf(record);
    fields(archive, copy);
}

// Gives the references of a half-read record back when reading is done or has failed: the finished record
// takes references of its own.
struct HeldItem : ItemFields {
    HeldItem() = default;
    HeldItem(const HeldItem&) = delete;
    HeldItem& operator=(const HeldItem&) = delete;
    ~HeldItem() { releaseAll(children); }
};

struct HeldInform : InformFields {
    HeldInform() = default;
    HeldInform(const HeldInform&) = delete;
    HeldInform& operator=(const HeldInform&) = delete;
    ~HeldInform()
    {
        releaseAll(items);
        releaseAll(children);
    }
};

template <class Archive>
Reference<ProfilePropertyGridItem> readItem(Archive& archive)
{
    HeldItem item;
    fields(archive, static_cast<ItemFields&>(item));
    return makeReference<ProfilePropertyGridItem>(item.boxC,
        item.level,
        std::move(item.labels),
        std::move(item.texts),
        item.kind,
        item.boxA,
        item.boxB,
        item.children);
}

template <class Archive>
Reference<InformRecord> readInform(Archive& archive)
{
    HeldInform inform;
    fields(archive, static_cast<InformFields&>(inform));
    const auto& first = inform.frameFirst.words;
    const auto& second = inform.frameSecond.words;
    const InformRecord::Frame frame{
        first[0], first[1], first[2], first[3], second[0], second[1], second[2], second[3], inform.frameByte};
    auto record = makeReference<InformRecord>(inform.kind,
        inform.boxA,
        inform.boxC,
        frame,
        inform.items,
        std::move(inform.tail),
        std::move(inform.text),
        inform.boxB);
    record->setChildren(inform.children);
    record->setFlag(inform.flag);
    return record;
}
