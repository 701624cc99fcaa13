#include "db/db_project.h"

#include "core/base/references.h"
#include "db/db_stamp.h"
#include "db/walk_order.h"
#include "dialogs/records/inform_record.h"
#include "section/db_section_editor.h"

#include <algorithm>

DBProject::DBProject()
    : sectionEditor_(std::make_unique<DBSectionEditor>())
    , stamp_(std::make_unique<DBStamp>())
{
}

DBProject::~DBProject()
{
    stamp_.reset();
    sectionEditor_.reset();
    releaseAll(terrainGlObjectsA_);
    releaseAll(terrainGlObjectsB_);
    releaseAll(longGlObjects_);
    releaseAll(crossGlObjects_);
    releaseAll(longInforms_);
    releaseAll(crossInforms_);
}

LithologyRegister::iterator DBProject::removeLithologyOfPoint(const std::wstring& pointName)
{
    // The name may be that of the very row that goes first.
    const std::wstring name = pointName; // NOLINT(performance-unnecessary-copy-initialization)
    for (auto layer = lithology_.begin(); layer != lithology_.end();)
        layer = layer->first.pointName == name ? lithology_.erase(layer) : std::next(layer);
    return lithology_.end();
}

template <class Cell>
static std::vector<Cell> sortedById(std::vector<Cell> cells)
{
    // Stable, so that rows of equal id do not change places at every save.
    std::stable_sort(cells.begin(), cells.end(), [](const Cell& a, const Cell& b) { return a.id < b.id; });
    return cells;
}

void DBProject::setPhysicalTemplate(const std::vector<PropertyCell>& value)
{
    physicalTemplate_ = sortedById(value);
}

void DBProject::setShearTemplate(const std::vector<ShearCell>& value)
{
    shearTemplate_ = sortedById(value);
}

void DBProject::setCompressionTemplate(const std::vector<CompressionCell>& value)
{
    compressionTemplate_ = sortedById(value);
}

void DBProject::setSwellingTemplate(const std::vector<SwellingCell>& value)
{
    swellingTemplate_ = sortedById(value);
}

void DBProject::addSoundingCalcRow(const SoundingCalcRow& row)
{
    soundingCalcRows_.push_back(row);
}

// Whether the names all compare in one way, this one among them. Only then does a key that was found stand
// where a search for another spelling of it would put it.
static bool haveOneOrder(const SoundingRegister& soundings, const SoundingKey& key)
{
    WalkOrder order;
    return order.admits(key) && std::all_of(soundings.begin(), soundings.end(), [&](const auto& entry) {
        return order.admits(entry.first);
    });
}

// The rows stay where they are in memory. Returns whether the register took the new key.
static bool giveKey(SoundingRegister& soundings, std::ptrdiff_t place, const SoundingKey& key)
{
    auto entry = soundings.extract(std::next(soundings.begin(), place));
    entry.key() = key;
    return soundings.insert(std::move(entry)).inserted;
}

void DBProject::moveSoundingKey(
    const std::wstring& pointName, const std::uint32_t& pointKind, const std::wstring& device)
{
    // The old date is dropped for this fixed one: that is how the operation works.
    const SoundingKey key{pointName, pointKind, device, L"01.01.2019"};
    const auto found = soundings_.find(key);
    if (found == soundings_.end())
        return;
    const auto place = std::distance(soundings_.begin(), found);
    // Numbers beside names with letters have no order that holds: the register may refuse the key, or fail on
    // it, when the old one is gone. A copy tells, so that the journal is still there then.
    if (!haveOneOrder(soundings_, key)) {
        SoundingRegister trial = soundings_;
        if (!giveKey(trial, place, key))
            return;
    }
    giveKey(soundings_, place, key);
}

void DBProject::addLongInform(InformRecord* inform)
{
    longInforms_.push_back(inform);
    addRefAll(InformList{inform});
}

void DBProject::addCrossInform(InformRecord* inform)
{
    crossInforms_.push_back(inform);
    addRefAll(InformList{inform});
}

void DBProject::setLongInforms(const InformList& value)
{
    replaceAll(longInforms_, value);
}

void DBProject::setCrossInforms(const InformList& value)
{
    replaceAll(crossInforms_, value);
}

bool DBProject::addSubsidenceName(const std::wstring& key, const std::vector<std::wstring>& value)
{
    const auto found = std::find_if(subsidenceNames_.begin(), subsidenceNames_.end(), [&](const auto& entry) {
        return entry.first == key;
    });
    if (found == subsidenceNames_.end())
        return add(subsidenceNames_, key, value);
    found->second = std::vector<std::wstring>(value);
    return true;
}

bool DBProject::areStrataElementsEmpty()
{
    const auto hasText = [](const auto& entry) {
        const auto& texts = entry.second.texts;
        return std::any_of(
            texts.begin(), texts.end(), [](const std::wstring& text) { return !text.empty(); });
    };
    return std::none_of(strataElements_.begin(), strataElements_.end(), hasText);
}

static const StrataElement* elementNamed(const StrataElementMap& elements, const std::wstring& name)
{
    const auto found = std::find_if(
        elements.begin(), elements.end(), [&](const auto& entry) { return entry.first == name; });
    return found == elements.end() ? nullptr : &found->second;
}

// 999 and 777 for an unknown name are what the modules expect.
std::int32_t DBProject::getStrataElementLowerBound(const std::wstring& name)
{
    const StrataElement* element = elementNamed(strataElements_, name);
    return element ? element->lowerBound : 999;
}

std::int32_t DBProject::getStrataElementUpperBound(const std::wstring& name)
{
    const StrataElement* element = elementNamed(strataElements_, name);
    return element ? element->upperBound : 777;
}

std::int32_t DBProject::getStrataElementCode(const std::wstring& name)
{
    const StrataElement* element = elementNamed(strataElements_, name);
    return element ? element->code : 0;
}

IDBSectionEditor* DBProject::getSectionEditor()
{
    return sectionEditor_.get();
}

IDBStamp* DBProject::getStamp()
{
    return stamp_.get();
}
