#pragma once

#include "site/cells.h"

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

class IDBProject;

// Elements for the layers that have none, by geological index, kind of soil and state: layers that agree in
// all three are one element. Where such layers have an element already, it is that one.

struct LayerSoil {
    ElementKind kind = ElementKind::NotGiven;
    std::wstring state; // "тугопластичный", "мелкий плотный": what follows the kind in a name

    bool operator==(const LayerSoil&) const = default;
};

// By the first soil that a description names, and the words of state and coarseness in it.
LayerSoil soilOfDescription(std::wstring_view description);

struct ElementProposal {
    struct Element {
        std::wstring name; // its number
        std::wstring index; // without marks that an element's text cannot hold
        ElementKind kind = ElementKind::NotGiven;
        std::wstring words; // "Суглинок тугопластичный"
        bool isNew = true;
        std::size_t layers = 0; // that are to be given to it
    };
    struct Layer {
        std::wstring point;
        std::size_t number = 0; // from 1
        std::size_t element = 0; // index in the elements
    };
    std::vector<Element> elements; // from above
    std::vector<Layer> layers;
    std::size_t leftOut = 0; // layers whose description names no soil, points that cannot be linked
};

// Changes nothing.
ElementProposal proposeElements(IDBProject& project);
