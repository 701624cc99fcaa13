#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <utility>
#include <vector>

class IDBHatch;
class IDBProject;
class QWidget;
class SoilPatterns;

// What the page of the elements asks the user.

// A hatch of the library, chosen by its picture; 0: by the kind of soil. Nothing where the user gives up.
std::optional<std::uint32_t> askHatch(QWidget* parent, IDBHatch& library, const SoilPatterns& patterns);

// The layers of an element (point and number) that are to become an element of their own; empty where the
// user gives up.
std::vector<std::pair<std::wstring, std::size_t>> askLayersToSplit(
    QWidget* parent, IDBProject& project, const std::wstring& element);
