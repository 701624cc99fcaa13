#pragma once

#include "core/base/reference.h"
#include "section/records/gl_object.h"

#include <array>
#include <functional>
#include <optional>
#include <string>
#include <vector>

class IDBProject;

// Bodies of elements that were drawn by hand stand in blocks "ИГЭ E", or "ИГЭ E ?" where they are assumed, in
// the drawings of the sections. Objects of a drawing cannot be renamed: a block of another name is a new one
// around the same objects, and so are those that hold it.

// The objects of the plain section, of the longitudinal and of the cross profile.
using ElementDrawings = std::array<std::vector<Reference<GLObjectDB>>, 3>;

ElementDrawings drawingsOf(IDBProject& project);
void putDrawings(IDBProject& project, const ElementDrawings& drawings);
// With the names that the function gives (an empty one leaves the block alone); nothing where none changes.
std::optional<ElementDrawings> renamedDrawings(
    IDBProject& project, const std::function<std::wstring(const std::wstring& element)>& nameOf);
