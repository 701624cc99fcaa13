#pragma once

#include "calc/standard_tables.h"
#include "site/elements.h"

#include <optional>
#include <string>

// What the standards' tables say of an element by its kind, void ratio, liquidity and index.

struct ElementTableValues {
    TableState state;
    Number friction; // degrees
    Number cohesion; // kPa
    Number modulus; // MPa
    Number resistance; // R0, kPa
};

// Nothing where the tables do not know the soil. The kind of a sand comes from the words of the element's
// name, else from the gradings of most of its samples. Strength and modulus of clays are given for Quaternary
// soils, their modulus for alluvial, deluvial and lacustrine ones: an index that says otherwise has no such
// values.
std::optional<ElementTableValues> elementTableValues(const StandardTables& tables,
    const SiteLaboratory& laboratory,
    const SiteElement& element,
    const std::wstring& words);
