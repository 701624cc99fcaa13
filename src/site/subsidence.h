#pragma once

#include "calc/subsidence.h"
#include "db/records/subsidence.h"
#include "site/elements.h"
#include "site/layers.h"

#include <array>

// Subsidence of a point: its layers, the densities of their elements and the collapse tests of its samples.
// Views into the project: look, use and let go before the next change.

// A figure of the result as the project may keep it. What somebody typed rules, and is told from what was
// calculated by more than its rounding.
struct SubsidenceFigure {
    Number value;
    Number computed;
    bool isTyped = false;
};

struct SubsidencePoint {
    std::wstring_view point;
    std::vector<SiteLayer> layers; // beside the calculation's
    std::vector<CollapsibleLayer> collapsible;
    std::vector<std::size_t> samples; // of the site, that took part
    Subsidence computed; // by tests and densities alone
    Subsidence result; // the same with what was typed of its parts
    std::vector<std::array<bool, 3>> typedParts; // beside the result's parts: stress, relative, subsidence
    SubsidenceFigure totalCm, lowerBoundaryM, initialPressureKPa; // with what was typed of the whole
    std::optional<SubsidenceType> type;
    bool isTypeTyped = false;
    Remarks remarks; // of samples and of the calculation: "sample/CODE", "layer/2", "rows"
};

// Points that have a collapse test, in the order of their samples.
std::vector<SubsidencePoint> subsidencePoints(IDBProject& project, const SiteLaboratory& laboratory);
// The same, and behind them those of which the project keeps a result.
std::vector<SubsidencePoint> allSubsidencePoints(IDBProject& project, const SiteLaboratory& laboratory);
// One point, with or without a test.
SubsidencePoint subsidencePoint(
    IDBProject& project, const SiteLaboratory& laboratory, std::wstring_view point);

// What the project keeps of all points.
struct SubsidenceState {
    SubsidenceMap results;
    SubsidenceNames samples;
    SubsidenceGroups rows;
};
SubsidenceState subsidenceState(IDBProject& project);
bool isSame(const SubsidenceState& a, const SubsidenceState& b);
void setSubsidenceState(IDBProject& project, const SubsidenceState& state);
// The state with the calculated figures of these points in it: in empty places alone, or in all.
enum class FillPlaces { Empty, All };
SubsidenceState filledState(
    SubsidenceState state, const std::vector<SubsidencePoint>& points, FillPlaces places);
// A figure of a point, of code 1 subsidence (cm), 3 lower boundary (m), 4 initial pressure (kPa); the first
// of a point makes the entry with all its cells, since a file keeps nothing of a point without them.
void setSubsidenceFigure(
    SubsidenceState& state, const std::wstring& point, int code, const std::wstring& text);
void setSubsidenceTitle(SubsidenceState& state, const std::wstring& point, const std::wstring& title);
// The codes of the samples that take part; none: all.
void setSubsidenceSamples(
    SubsidenceState& state, const std::wstring& point, const std::vector<std::wstring>& codes);
// A cell of the row of these depths, 2 stress (kPa), 3 relative subsidence, 4 subsidence (cm); an empty text
// gives the cell back to the calculation.
void setSubsidenceRowCell(SubsidenceState& state,
    const std::wstring& point,
    const std::wstring& from,
    const std::wstring& to,
    std::size_t cell,
    const std::wstring& text);
// "Тип I", "Тип II"; empty where it is not known.
std::wstring subsidenceTitle(const std::optional<SubsidenceType>& type);

// The foundation whose load the site is looked at under, as the project keeps it: width, length (empty: a
// strip), depth, m, and pressure, kPa. Nothing without a width and a pressure.
std::optional<Foundation> siteFoundation(IDBProject& project);
std::array<std::wstring, 4> foundationTexts(IDBProject& project);
NumberedLinks withFoundation(const NumberedLinks& links, const std::array<std::wstring, 4>& texts);
