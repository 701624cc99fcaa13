#include "section/db_section_editor.h"

#include "core/base/references.h"

#include <algorithm>
#include <utility>

static void releaseObjects(const SectionObjectMap& sections)
{
    for (const auto& [section, objects] : sections)
        releaseAll(objects);
}

static void addObjects(
    SectionObjectMap& sections, const std::wstring& section, const std::vector<GLEdObjectDB*>& objects)
{
    // Name and list may be those of the entry that is replaced.
    std::pair<const std::wstring, std::vector<GLEdObjectDB*>> entry(section, objects);
    // An empty map compares nothing: a name that the ordering cannot read is refused here, not at the next
    // one.
    if (sections.empty())
        static_cast<void>(sections.key_comp()(entry.first, entry.first));
    const auto old = sections.find(entry.first);
    if (old != sections.end()) {
        replaceAll(old->second, std::move(entry.second));
        return;
    }
    const auto [place, inserted] = sections.insert(std::move(entry));
    if (inserted)
        addRefAll(place->second);
}

static void setObjects(SectionObjectMap& sections, const SectionObjectMap& replacement)
{
    if (&sections == &replacement)
        return;
    SectionObjectMap old = replacement;
    for (const auto& [section, objects] : old)
        addRefAll(objects);
    sections.swap(old);
    releaseObjects(old);
}

static void clearObjects(SectionObjectMap& sections)
{
    // Out of the map first: an object that goes may look into the store.
    SectionObjectMap released;
    released.swap(sections);
    releaseObjects(released);
}

static BoreholeQuery queryBoreholes(const SectionObjectMap& sections, const std::wstring& section)
{
    BoreholeQuery result;
    const auto found = sections.find(section);
    if (found == sections.end())
        return result;
    std::vector<BoreholeEntry> boreholes;
    for (const GLEdObjectDB* object : found->second) {
        const auto* borehole = dynamic_cast<const GLEdBoreholeDB*>(object);
        if (!borehole)
            continue;
        std::wstring name = borehole->boreholeName();
        std::erase_if(name, [](wchar_t character) { return character == L' ' || character == L'\''; });
        boreholes.push_back({std::move(name), static_cast<std::uint32_t>(boreholes.size() + 1)});
    }
    if (!boreholes.empty())
        result.emplace(section, std::move(boreholes));
    return result;
}

DBSectionEditor::~DBSectionEditor()
{
    clearObjects(objectsA_);
    clearObjects(objectsB_);
}

void DBSectionEditor::addObjectsA(const std::wstring& section, const std::vector<GLEdObjectDB*>& objects)
{
    addObjects(objectsA_, section, objects);
}

void DBSectionEditor::setObjectsA(const SectionObjectMap& objects)
{
    setObjects(objectsA_, objects);
}

void DBSectionEditor::clearObjectsA()
{
    clearObjects(objectsA_);
}

void DBSectionEditor::addObjectsB(const std::wstring& section, const std::vector<GLEdObjectDB*>& objects)
{
    addObjects(objectsB_, section, objects);
}

void DBSectionEditor::setObjectsB(const SectionObjectMap& objects)
{
    setObjects(objectsB_, objects);
}

void DBSectionEditor::clearObjectsB()
{
    clearObjects(objectsB_);
}

BoreholeQuery DBSectionEditor::queryBoreholesA(const std::wstring& section)
{
    return queryBoreholes(objectsA_, section);
}

BoreholeQuery DBSectionEditor::queryBoreholesB(const std::wstring& section)
{
    return queryBoreholes(objectsB_, section);
}
