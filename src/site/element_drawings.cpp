#include "site/element_drawings.h"

#include "modules/idbproject.h"
#include "section/gl_block.h"

#include <utility>

namespace
{

using NameOf = std::function<std::wstring(const std::wstring&)>;

constexpr std::wstring_view prefix = L"ИГЭ ";
constexpr std::wstring_view assumed = L" ?";

std::array<GLObjectList*, 3> listsOf(IDBProject& project)
{
    return {&project.getTerrainGlObjectsA(), &project.getLongGlObjects(), &project.getCrossGlObjects()};
}

std::wstring renamedBlock(const std::wstring& block, const NameOf& nameOf)
{
    if (!block.starts_with(prefix))
        return block;
    const bool isAssumed = block.ends_with(assumed);
    const std::size_t length = block.size() - prefix.size() - (isAssumed ? assumed.size() : 0);
    const std::wstring name = nameOf(block.substr(prefix.size(), length));
    return name.empty()
        ? block
        : std::wstring(prefix) + name + std::wstring(isAssumed ? assumed : std::wstring_view());
}

// The object itself where nothing in it changes. As deep as files nest: some hundreds.
Reference<GLObjectDB> renamedObject(GLObjectDB* object, const NameOf& nameOf)
{
    const auto* block = dynamic_cast<GLBlockDB*>(object);
    if (!block)
        return Reference<GLObjectDB>::share(object);
    std::vector<Reference<GLObjectDB>> inner;
    bool isChanged = false;
    for (GLObjectDB* each : block->objects()) {
        inner.push_back(renamedObject(each, nameOf));
        isChanged = isChanged || inner.back().get() != each;
    }
    const std::wstring name = renamedBlock(block->getName(), nameOf);
    if (!isChanged && name == block->getName())
        return Reference<GLObjectDB>::share(object);
    GLBlockData data;
    for (Reference<GLObjectDB>& each : inner)
        data.objects.push_back(each.detach());
    auto renamed = makeReference<GLBlockDB>(std::move(data), block->getId(), name, block->getLinkId());
    renamed->objectState = block->objectState;
    renamed->stateBytes = block->stateBytes;
    return renamed;
}

} // namespace

ElementDrawings drawingsOf(IDBProject& project)
{
    ElementDrawings drawings;
    const auto lists = listsOf(project);
    for (std::size_t list = 0; list < lists.size(); ++list)
        for (GLObjectDB* object : *lists[list])
            drawings[list].push_back(Reference<GLObjectDB>::share(object));
    return drawings;
}

void putDrawings(IDBProject& project, const ElementDrawings& drawings)
{
    // What the project held is let go when this ends.
    std::vector<Reference<GLObjectDB>> former;
    const auto lists = listsOf(project);
    for (std::size_t list = 0; list < lists.size(); ++list) {
        for (GLObjectDB* object : *lists[list])
            former.push_back(Reference<GLObjectDB>::adopt(object));
        lists[list]->clear();
        for (const Reference<GLObjectDB>& object : drawings[list])
            lists[list]->push_back(Reference<GLObjectDB>(object).detach());
    }
}

std::optional<ElementDrawings> renamedDrawings(IDBProject& project, const NameOf& nameOf)
{
    ElementDrawings drawings;
    bool isChanged = false;
    const auto lists = listsOf(project);
    for (std::size_t list = 0; list < lists.size(); ++list)
        for (GLObjectDB* object : *lists[list]) {
            drawings[list].push_back(renamedObject(object, nameOf));
            isChanged = isChanged || drawings[list].back().get() != object;
        }
    return isChanged ? std::optional(std::move(drawings)) : std::nullopt;
}
