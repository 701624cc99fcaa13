#pragma once

#include "core/base/mexception.h"
#include "db/records/section_records.h"
#include "db/records/sounding.h"
#include "db/records/strata_element.h"
#include "db/records/subsidence.h"
#include "site/element_drawings.h"

#include <cstddef>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

class IDBProject;

// Changes of the elements with everything that names them, on a plain state that an undo step exchanges.

// The depths of each point's layers, from above.
using LayerDepths = std::map<std::wstring, std::vector<std::wstring>>;

struct ElementsState {
    StrataElementMap elements;
    NumberedLinks links; // layers to elements, and the elements' names
    std::shared_ptr<const LayerDepths> layers; // that the links number
    // Only where they change.
    std::optional<SoundingFlags> soundingFlags = {}; // kinds of soil of elements for piles
    std::optional<SectionCurveMap> curves = {}; // lower boundaries of their bodies
    std::optional<SoundingRegister> soundings = {}; // readings given to elements
    std::optional<ElementDrawings> drawings = {}; // bodies drawn by hand
};

ElementsState elementsOf(IDBProject& project);
// What putting the state replaces, for undo. Comes before it.
ElementsState replacedBy(IDBProject& project, const ElementsState& state);
// Where layers have been added, deleted or moved since the state was taken, a link goes to the layer of its
// depth; a layer that was not there then keeps what it has now.
void putElements(IDBProject& project, const ElementsState& state);

// Thrown where the names would have no common order. One form for all of them mends it: uniformElementName.
class MixedElementNames : public MException
{
public:
    using MException::MException;
};

// The next free name in the manner of those that are there: "8" after "7", "ИГЭ-8" after "ИГЭ-7".
std::wstring freeElementName(const StrataElementMap& elements);
// Throws MException, in words for the user, where the name cannot be.
void addElement(ElementsState& state, const std::wstring& name, const StrataElement& element = {});
// Layers and readings that bear it have no element afterwards.
void deleteElement(ElementsState& state, IDBProject& project, const std::wstring& name);
// New names at once, so that they may change places. Throws MException where two would be one, or none.
void renameElements(ElementsState& state,
    IDBProject& project,
    const std::vector<std::pair<std::wstring, std::wstring>>& oldToNew);
// All that bears one bears the other; the one goes.
void mergeElements(
    ElementsState& state, IDBProject& project, const std::wstring& name, const std::wstring& into);
// A new element, in all but its number as the one it comes from, takes these of its layers: point and number.
// Throws MException where it would take none, or leave none.
void splitElement(ElementsState& state,
    const std::wstring& name,
    const std::wstring& newName,
    const std::vector<std::pair<std::wstring, std::size_t>>& layers);
// Numbers 1, 2, 3 ... by the mean depth of their layers; those of no layer behind.
std::vector<std::pair<std::wstring, std::wstring>> numbersFromAbove(IDBProject& project);
// Every name in one form ("ИГЭ-2а"); empty where they have a common order already.
std::vector<std::pair<std::wstring, std::wstring>> uniformNames(const StrataElementMap& elements);

// Gives the point's layer (from 1) an element, or none by an empty text.
void assignElement(
    NumberedLinks& links, std::wstring_view point, std::size_t layer, const std::wstring& element);
void setElementName(NumberedLinks& links, std::wstring_view element, const std::wstring& name);

// The links of a point after its layers changed: for each layer of now, from above, the number it had before
// (0: it is new).
void moveLayerLinks(
    NumberedLinks& links, std::wstring_view point, const std::vector<std::size_t>& formerNumbers);
