// The positions of the operations in the interfaces shared with modules, each list written down a second
// time: modules that were built apart call by position.

#include "ground/ground_controller.h"
#include "modules/idb_hatch.h"
#include "modules/idb_igk_preset.h"
#include "modules/idb_project_controller.h"
#include "modules/idb_section_editor.h"
#include "modules/idbproject.h"

#include <gtest/gtest.h>

#include <array>
#include <bit>
#include <cstddef>
#include <vector>

// The place in the table of virtual functions that a pointer to a virtual member holds, doubled and odd as
// both of our compilers have it on this machine.
template <class Operation>
static std::size_t slotOf(Operation operation)
{
    const auto words = std::bit_cast<std::array<std::ptrdiff_t, 2>>(operation);
    return static_cast<std::size_t>(words[0] - 1) / sizeof(void*);
}

namespace
{

struct Slot {
    const char* name;
    std::size_t slot;
};

} // namespace

// clang-format off
#define SLOT(Interface, operation) {#operation, slotOf(&Interface::operation)}
// clang-format on

static void expectInOrder(const std::vector<Slot>& slots, std::size_t count)
{
    EXPECT_EQ(slots.size(), count);
    for (std::size_t i = 0; i < slots.size(); ++i)
        EXPECT_EQ(slots[i].slot, i) << slots[i].name;
}

// clang-format off
// The destructor stands behind the 240.
TEST(InterfaceSlots, Project)
{
    expectInOrder({
    // Head of the project
    SLOT(IDBProject, getProjectState), SLOT(IDBProject, setProjectState), SLOT(IDBProject, getGranGost),
    SLOT(IDBProject, setGranGost), SLOT(IDBProject, getFileTagB), SLOT(IDBProject, setFileTagB),
    SLOT(IDBProject, getFilePath), SLOT(IDBProject, setFilePath), SLOT(IDBProject, getProjectCode),
    SLOT(IDBProject, setProjectCode), SLOT(IDBProject, getProjectName), SLOT(IDBProject, setProjectName),
    SLOT(IDBProject, getFileStem), SLOT(IDBProject, setFileStem), SLOT(IDBProject, getTypeObject),
    SLOT(IDBProject, setTypeObject),
    // Point register
    SLOT(IDBProject, clearPointRegister), SLOT(IDBProject, getPointRegister),
    SLOT(IDBProject, addPointRegisterEntry), SLOT(IDBProject, setPointRegister),
    // Lithology and the point register header
    SLOT(IDBProject, removeLithologyOfPoint), SLOT(IDBProject, getLithology),
    SLOT(IDBProject, addLithology), SLOT(IDBProject, setLithology),
    SLOT(IDBProject, getPointRegisterHeader), SLOT(IDBProject, setPointRegisterHeader),
    // Samples and the lithology header
    SLOT(IDBProject, getSamples), SLOT(IDBProject, addSample), SLOT(IDBProject, setSamples),
    SLOT(IDBProject, getLithologyHeader), SLOT(IDBProject, setLithologyHeader),
    // Water levels and the samples header
    SLOT(IDBProject, getWaterLevels), SLOT(IDBProject, addWaterLevel), SLOT(IDBProject, setWaterLevels),
    SLOT(IDBProject, getSamplesHeader), SLOT(IDBProject, setSamplesHeader),
    // Consistency and the water header
    SLOT(IDBProject, getConsistency), SLOT(IDBProject, addConsistency), SLOT(IDBProject, setConsistency),
    SLOT(IDBProject, getWaterHeader), SLOT(IDBProject, setWaterHeader),
    // Laboratory
    SLOT(IDBProject, getLabOption), SLOT(IDBProject, setLabOption), SLOT(IDBProject, getLabValueA),
    SLOT(IDBProject, setLabValueA), SLOT(IDBProject, getLabValueB), SLOT(IDBProject, setLabValueB),
    SLOT(IDBProject, getLabValueC), SLOT(IDBProject, setLabValueC), SLOT(IDBProject, getPhysicalTemplate),
    SLOT(IDBProject, setPhysicalTemplate), SLOT(IDBProject, getShearTemplate),
    SLOT(IDBProject, setShearTemplate), SLOT(IDBProject, getCompressionTemplate),
    SLOT(IDBProject, setCompressionTemplate), SLOT(IDBProject, getSwellingTemplate),
    SLOT(IDBProject, setSwellingTemplate), SLOT(IDBProject, getLabTriple), SLOT(IDBProject, setLabTriple),
    SLOT(IDBProject, getLabSamples), SLOT(IDBProject, setLabSamples), SLOT(IDBProject, addLabSample),
    // Static probing
    SLOT(IDBProject, getSoundings), SLOT(IDBProject, addSounding), SLOT(IDBProject, setSoundings),
    SLOT(IDBProject, clearSoundingFlags), SLOT(IDBProject, getSoundingFlags),
    SLOT(IDBProject, addSoundingFlag), SLOT(IDBProject, setSoundingFlags),
    SLOT(IDBProject, getSoundingTriples), SLOT(IDBProject, addSoundingTriple),
    SLOT(IDBProject, getSoundingCalcRows), SLOT(IDBProject, addSoundingCalcRow),
    SLOT(IDBProject, getSoundingOptionA), SLOT(IDBProject, setSoundingOptionA),
    SLOT(IDBProject, getSoundingOptionB), SLOT(IDBProject, setSoundingOptionB),
    SLOT(IDBProject, getSoundingValueA), SLOT(IDBProject, setSoundingValueD),
    SLOT(IDBProject, setSoundingValueC), SLOT(IDBProject, setSoundingValueB),
    SLOT(IDBProject, setSoundingValueA), SLOT(IDBProject, getSoundingValueB),
    SLOT(IDBProject, getSoundingValueC), SLOT(IDBProject, getSoundingValueD),
    // Laboratory header
    SLOT(IDBProject, getLabHeader), SLOT(IDBProject, setLabHeader),
    // Static probing ratios, key move and calculation rows
    SLOT(IDBProject, getSoundingRatioA), SLOT(IDBProject, setSoundingRatioA),
    SLOT(IDBProject, getSoundingRatioB), SLOT(IDBProject, setSoundingRatioB),
    SLOT(IDBProject, getSoundingRatioC), SLOT(IDBProject, setSoundingRatioC),
    SLOT(IDBProject, moveSoundingKey), SLOT(IDBProject, setSoundingCalcRows),
    SLOT(IDBProject, getSoundingRatioD), SLOT(IDBProject, setSoundingRatioD),
    SLOT(IDBProject, getSoundingRatioE), SLOT(IDBProject, setSoundingRatioE),
    // Section (plain)
    SLOT(IDBProject, getSectionLinesLayer), SLOT(IDBProject, setSectionLinesLayer),
    SLOT(IDBProject, getSectionHatchLayer), SLOT(IDBProject, setSectionHatchLayer),
    SLOT(IDBProject, getSectionTextLayer), SLOT(IDBProject, setSectionTextLayer),
    SLOT(IDBProject, getSectionGraphLayer), SLOT(IDBProject, setSectionGraphLayer),
    SLOT(IDBProject, getSectionLines), SLOT(IDBProject, addSectionLine), SLOT(IDBProject, setSectionLines),
    SLOT(IDBProject, setSectionPoints), SLOT(IDBProject, getSectionPoints),
    SLOT(IDBProject, addSectionPoint), SLOT(IDBProject, getTerrainLines), SLOT(IDBProject, addTerrainLine),
    SLOT(IDBProject, setTerrainLines), SLOT(IDBProject, clearTerrainLines),
    SLOT(IDBProject, setTerrainPoints), SLOT(IDBProject, getTerrainPoints),
    SLOT(IDBProject, addTerrainPoint), SLOT(IDBProject, getSectionCurves),
    SLOT(IDBProject, addSectionCurve), SLOT(IDBProject, setSectionCurves),
    SLOT(IDBProject, getSectionViewMode), SLOT(IDBProject, setSectionViewMode),
    SLOT(IDBProject, getSectionViewPair), SLOT(IDBProject, setSectionViewPair),
    SLOT(IDBProject, getSectionViewQuad), SLOT(IDBProject, setSectionViewQuad),
    SLOT(IDBProject, getSectionFlagA), SLOT(IDBProject, setSectionFlagA),
    // Section (terrain model)
    SLOT(IDBProject, getTerrainLinesLayer), SLOT(IDBProject, setTerrainLinesLayer),
    SLOT(IDBProject, getTerrainHatchLayer), SLOT(IDBProject, setTerrainHatchLayer),
    SLOT(IDBProject, getTerrainTextLayer), SLOT(IDBProject, setTerrainTextLayer),
    SLOT(IDBProject, getTerrainGraphLayer), SLOT(IDBProject, setTerrainGraphLayer),
    SLOT(IDBProject, getSectionText), SLOT(IDBProject, setSectionText),
    SLOT(IDBProject, getTerrainGlObjectsA), SLOT(IDBProject, setTerrainGlObjectsA),
    SLOT(IDBProject, getTerrainGlObjectsB), SLOT(IDBProject, setTerrainGlObjectsB),
    SLOT(IDBProject, getTerrainCells), SLOT(IDBProject, addTerrainCell), SLOT(IDBProject, setTerrainCells),
    SLOT(IDBProject, clearSectionLines), SLOT(IDBProject, getTerrainViewMode),
    SLOT(IDBProject, setTerrainViewMode), SLOT(IDBProject, getTerrainViewPair),
    SLOT(IDBProject, setTerrainViewPair), SLOT(IDBProject, getTerrainViewQuad),
    SLOT(IDBProject, setTerrainViewQuad), SLOT(IDBProject, getSectionFlagB),
    SLOT(IDBProject, setSectionFlagB), SLOT(IDBProject, getLongProfileMap),
    SLOT(IDBProject, setLongProfileMap), SLOT(IDBProject, clearLongProfileMap),
    // Longitudinal profile
    SLOT(IDBProject, getLongTextA), SLOT(IDBProject, setLongTextA), SLOT(IDBProject, getLongTextB),
    SLOT(IDBProject, setLongTextB), SLOT(IDBProject, getLongLinesLayer),
    SLOT(IDBProject, setLongLinesLayer), SLOT(IDBProject, getLongHatchLayer),
    SLOT(IDBProject, setLongHatchLayer), SLOT(IDBProject, getLongTextLayer),
    SLOT(IDBProject, setLongTextLayer), SLOT(IDBProject, getLongGraphLayer),
    SLOT(IDBProject, setLongGraphLayer), SLOT(IDBProject, getLongGlObjects),
    SLOT(IDBProject, setLongGlObjects), SLOT(IDBProject, getLongInforms), SLOT(IDBProject, addLongInform),
    SLOT(IDBProject, setLongInforms), SLOT(IDBProject, clearLongInforms), SLOT(IDBProject, getLongLayerMap),
    SLOT(IDBProject, setLongLayerMap), SLOT(IDBProject, clearLongLayerMap),
    SLOT(IDBProject, getLongViewMode), SLOT(IDBProject, setLongViewMode), SLOT(IDBProject, getLongViewPair),
    SLOT(IDBProject, setLongViewPair), SLOT(IDBProject, getLongViewQuad), SLOT(IDBProject, setLongViewQuad),
    // Cross profile
    SLOT(IDBProject, getCrossTextA), SLOT(IDBProject, setCrossTextA), SLOT(IDBProject, getCrossTextB),
    SLOT(IDBProject, setCrossTextB), SLOT(IDBProject, getCrossLinesLayer),
    SLOT(IDBProject, setCrossLinesLayer), SLOT(IDBProject, getCrossHatchLayer),
    SLOT(IDBProject, setCrossHatchLayer), SLOT(IDBProject, getCrossTextLayer),
    SLOT(IDBProject, setCrossTextLayer), SLOT(IDBProject, getCrossGlObjects),
    SLOT(IDBProject, setCrossGlObjects), SLOT(IDBProject, getCrossInforms),
    SLOT(IDBProject, addCrossInform), SLOT(IDBProject, setCrossInforms),
    SLOT(IDBProject, clearCrossInforms), SLOT(IDBProject, getCrossViewMode),
    SLOT(IDBProject, setCrossViewMode), SLOT(IDBProject, getCrossViewPair),
    SLOT(IDBProject, setCrossViewPair), SLOT(IDBProject, getCrossViewQuad),
    SLOT(IDBProject, setCrossViewQuad),
    // Numbered links
    SLOT(IDBProject, clearNumberedLinks), SLOT(IDBProject, getNumberedLinks),
    SLOT(IDBProject, addNumberedLink), SLOT(IDBProject, getLinkViewMode), SLOT(IDBProject, setLinkViewMode),
    SLOT(IDBProject, getLinkViewPair), SLOT(IDBProject, setLinkViewPair),
    SLOT(IDBProject, setNumberedLinks), SLOT(IDBProject, getLinkViewQuad),
    SLOT(IDBProject, setLinkViewQuad),
    // Subsidence
    SLOT(IDBProject, getSubsidence), SLOT(IDBProject, setSubsidence), SLOT(IDBProject, getSubsidenceNames),
    SLOT(IDBProject, addSubsidenceName), SLOT(IDBProject, getSubsidenceGroups),
    SLOT(IDBProject, addSubsidenceGroup), SLOT(IDBProject, setSubsidenceGroups),
    // Chemistry
    SLOT(IDBProject, getChemistry), SLOT(IDBProject, addChemistry), SLOT(IDBProject, setChemistry),
    // Geological elements
    SLOT(IDBProject, clearStrataElements), SLOT(IDBProject, areStrataElementsEmpty),
    SLOT(IDBProject, getStrataElementsOption), SLOT(IDBProject, setStrataElementsOption),
    SLOT(IDBProject, getStrataElements), SLOT(IDBProject, addStrataElement),
    SLOT(IDBProject, getStrataElementLowerBound), SLOT(IDBProject, getStrataElementUpperBound),
    SLOT(IDBProject, getStrataElementCode),
    // Owned objects and destruction
    SLOT(IDBProject, getSectionEditor), SLOT(IDBProject, getStamp),
    }, 240);
}

TEST(InterfaceSlots, Libraries)
{
    expectInOrder({SLOT(IDBHatch, getHatches), SLOT(IDBHatch, addHatch)}, 2);
    expectInOrder({
    SLOT(IDBIgkPreset, getPresets), SLOT(IDBIgkPreset, setPresets), SLOT(IDBIgkPreset, addPreset),
    SLOT(IDBIgkPreset, setActive), SLOT(IDBIgkPreset, hasActive), SLOT(IDBIgkPreset, getActiveName),
    SLOT(IDBIgkPreset, hasPreset), SLOT(IDBIgkPreset, clearActive), SLOT(IDBIgkPreset, isMode1),
    SLOT(IDBIgkPreset, removePreset), SLOT(IDBIgkPreset, renamePreset),
    }, 11);
}

TEST(InterfaceSlots, ProjectController)
{
    expectInOrder({
    SLOT(IDBProjectController, getPointMark), SLOT(IDBProjectController, getConsistencyBottom),
    SLOT(IDBProjectController, getLithologyBottom),
    }, 3);
}

TEST(InterfaceSlots, SectionEditor)
{
    expectInOrder({
    SLOT(IDBSectionEditor, getListA), SLOT(IDBSectionEditor, getListB), SLOT(IDBSectionEditor, getListC),
    SLOT(IDBSectionEditor, getListD), SLOT(IDBSectionEditor, getObjectsA),
    SLOT(IDBSectionEditor, addObjectsA), SLOT(IDBSectionEditor, setObjectsA),
    SLOT(IDBSectionEditor, clearObjectsA), SLOT(IDBSectionEditor, getObjectsB),
    SLOT(IDBSectionEditor, addObjectsB), SLOT(IDBSectionEditor, setObjectsB),
    SLOT(IDBSectionEditor, clearObjectsB), SLOT(IDBSectionEditor, queryBoreholesA),
    SLOT(IDBSectionEditor, queryBoreholesB),
    }, 14);
}

TEST(InterfaceSlots, SoilClassification)
{
    expectInOrder({
    SLOT(GroundController, determineCohesive), SLOT(GroundController, soilName),
    SLOT(GroundController, consistencyName), SLOT(GroundController, elementValue),
    SLOT(GroundController, setElementValue), SLOT(GroundController, determineRockGrades),
    SLOT(GroundController, densityGrade), SLOT(GroundController, permeabilityGrade),
    SLOT(GroundController, strengthGrade), SLOT(GroundController, weatheringGrade),
    SLOT(GroundController, softeningGrade), SLOT(GroundController, solubilityGrade),
    SLOT(GroundController, salinityGrade), SLOT(GroundController, groupName),
    SLOT(GroundController, determineFrozenGrades), SLOT(GroundController, consistencyNameAgain),
    SLOT(GroundController, frozenStateName), SLOT(GroundController, determineGroup),
    SLOT(GroundController, determineSand), SLOT(GroundController, setSoilGroup),
    }, 20);
}
// clang-format on
