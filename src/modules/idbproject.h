#pragma once

#include "db/records/chemistry.h"
#include "db/records/consistency.h"
#include "db/records/laboratory.h"
#include "db/records/lithology.h"
#include "db/records/point_register.h"
#include "db/records/register_header.h"
#include "db/records/sample.h"
#include "db/records/section_records.h"
#include "db/records/sounding.h"
#include "db/records/strata_element.h"
#include "db/records/subsidence.h"
#include "db/records/water_level.h"

#include <array>
#include <cstdint>
#include <string>
#include <vector>

class IDBSectionEditor;
class IDBStamp;
class InformRecord;

// The open project as modules see it: a passive store of every register, table and setting. It checks
// nothing, notifies nobody and knows no screens; texts stay exactly as typed.
//
// Modules call these 241 operations by their position: never insert, remove or reorder one.
//
// A getter returns a reference to the field itself, or the value of a number or a flag. A set replaces the
// whole field; given the field itself it does nothing. An add inserts and returns whether it did: a key that
// is there already, or that reads as the same number as one that is, leaves the old value in place. Every
// operation on a map with a text key throws where the text is no number (db/records/orderings.h), and the map
// then stays as it was.
class IDBProject
{
public:
    // Head of the project.
    virtual std::int32_t getProjectState() = 0;
    virtual void setProjectState(const std::int32_t& value) = 0;
    virtual std::int32_t getGranGost() = 0;
    virtual void setGranGost(const std::int32_t& value) = 0;
    virtual std::int32_t getFileTagB() = 0;
    virtual void setFileTagB(const std::int32_t& value) = 0;
    virtual std::wstring& getFilePath() = 0;
    virtual void setFilePath(const std::wstring& value) = 0;
    virtual std::wstring& getProjectCode() = 0;
    virtual void setProjectCode(const std::wstring& value) = 0;
    virtual std::wstring& getProjectName() = 0;
    virtual void setProjectName(const std::wstring& value) = 0;
    virtual std::wstring& getFileStem() = 0;
    virtual void setFileStem(const std::wstring& value) = 0;
    virtual std::int32_t getTypeObject() = 0;
    virtual void setTypeObject(const std::int32_t& value) = 0;

    // Point register.
    virtual void clearPointRegister() = 0;
    virtual PointRegister& getPointRegister() = 0;
    virtual bool addPointRegisterEntry(const PointKey& key, const std::vector<PointRow>& value) = 0;
    virtual void setPointRegister(const PointRegister& value) = 0;

    // Lithology and the point register header.
    // Erases every layer whose point name is exactly this text; returns the end position. The only cascade of
    // the store: renaming or deleting a point elsewhere is the caller's work.
    virtual LithologyRegister::iterator removeLithologyOfPoint(const std::wstring& pointName) = 0;
    virtual LithologyRegister& getLithology() = 0;
    virtual bool addLithology(const PointDepthKey& key, const LithologyValue& value) = 0;
    virtual void setLithology(const LithologyRegister& value) = 0;
    virtual RegisterHeader& getPointRegisterHeader() = 0;
    virtual void setPointRegisterHeader(const RegisterHeader& value) = 0;

    // Samples and the lithology header.
    virtual SampleRegister& getSamples() = 0;
    virtual bool addSample(const PointDepthKey& key, const SampleValue& value) = 0;
    virtual void setSamples(const SampleRegister& value) = 0;
    virtual RegisterHeader& getLithologyHeader() = 0;
    virtual void setLithologyHeader(const RegisterHeader& value) = 0;

    // Water levels and the samples header.
    virtual WaterRegister& getWaterLevels() = 0;
    virtual bool addWaterLevel(const PointDepthKey& key, const WaterValue& value) = 0;
    virtual void setWaterLevels(const WaterRegister& value) = 0;
    virtual RegisterHeader& getSamplesHeader() = 0;
    virtual void setSamplesHeader(const RegisterHeader& value) = 0;

    // Consistency and the water header.
    virtual ConsistencyRegister& getConsistency() = 0;
    virtual bool addConsistency(const PointDepthKey& key, const ConsistencyValue& value) = 0;
    virtual void setConsistency(const ConsistencyRegister& value) = 0;
    virtual RegisterHeader& getWaterHeader() = 0;
    virtual void setWaterHeader(const RegisterHeader& value) = 0;

    // Laboratory.
    virtual bool getLabOption() = 0;
    virtual void setLabOption(bool value) = 0;
    virtual std::int32_t getLabValueA() = 0;
    virtual void setLabValueA(const std::int32_t& value) = 0;
    virtual std::int32_t getLabValueB() = 0;
    virtual void setLabValueB(const std::int32_t& value) = 0;
    virtual std::int32_t getLabValueC() = 0;
    virtual void setLabValueC(const std::int32_t& value) = 0;
    virtual std::vector<PropertyCell>& getPhysicalTemplate() = 0;
    // The four templates are kept sorted by id; rows of equal id keep their order.
    virtual void setPhysicalTemplate(const std::vector<PropertyCell>& value) = 0;
    virtual std::vector<ShearCell>& getShearTemplate() = 0;
    virtual void setShearTemplate(const std::vector<ShearCell>& value) = 0;
    virtual std::vector<CompressionCell>& getCompressionTemplate() = 0;
    virtual void setCompressionTemplate(const std::vector<CompressionCell>& value) = 0;
    virtual std::vector<SwellingCell>& getSwellingTemplate() = 0;
    virtual void setSwellingTemplate(const std::vector<SwellingCell>& value) = 0;
    virtual LabTriple& getLabTriple() = 0;
    virtual void setLabTriple(const LabTriple& value) = 0;
    virtual LabSampleRegister& getLabSamples() = 0;
    virtual void setLabSamples(const LabSampleRegister& value) = 0;
    virtual bool addLabSample(const PointDepthKey& key, const LabSample& value) = 0;

    // Static probing.
    virtual SoundingRegister& getSoundings() = 0;
    virtual bool addSounding(const SoundingKey& key, const std::vector<SoundingRow>& value) = 0;
    virtual void setSoundings(const SoundingRegister& value) = 0;
    virtual void clearSoundingFlags() = 0;
    virtual SoundingFlags& getSoundingFlags() = 0;
    virtual bool addSoundingFlag(const std::wstring& key, const std::uint8_t& value) = 0;
    virtual void setSoundingFlags(const SoundingFlags& value) = 0;
    virtual SoundingTriples& getSoundingTriples() = 0;
    virtual bool addSoundingTriple(const std::uint8_t& key, const std::array<std::int32_t, 3>& value) = 0;
    virtual std::vector<SoundingCalcRow>& getSoundingCalcRows() = 0;
    virtual void addSoundingCalcRow(const SoundingCalcRow& row) = 0;
    virtual bool getSoundingOptionA() = 0;
    virtual void setSoundingOptionA(bool value) = 0;
    virtual bool getSoundingOptionB() = 0;
    virtual void setSoundingOptionB(bool value) = 0;
    virtual std::int32_t getSoundingValueA() = 0;
    virtual void setSoundingValueD(const std::int32_t& value) = 0;
    virtual void setSoundingValueC(const std::int32_t& value) = 0;
    virtual void setSoundingValueB(const std::int32_t& value) = 0;
    virtual void setSoundingValueA(const std::int32_t& value) = 0;
    virtual std::int32_t getSoundingValueB() = 0;
    virtual std::int32_t getSoundingValueC() = 0;
    virtual std::int32_t getSoundingValueD() = 0;

    // Laboratory header.
    virtual RegisterHeader& getLabHeader() = 0;
    virtual void setLabHeader(const RegisterHeader& value) = 0;

    // Static probing ratios, key move and calculation rows.
    virtual float getSoundingRatioA() = 0;
    // The ratio setters read the number from the text and throw as std::stof does; the old value then stays.
    virtual void setSoundingRatioA(const std::wstring& value) = 0;
    virtual float getSoundingRatioB() = 0;
    virtual void setSoundingRatioB(const std::wstring& value) = 0;
    virtual float getSoundingRatioC() = 0;
    virtual void setSoundingRatioC(const std::wstring& value) = 0;
    // Gives the point's sounding another device; its date becomes "01.01.2019". Unknown points change
    // nothing.
    virtual void moveSoundingKey(
        const std::wstring& pointName, const std::uint32_t& pointKind, const std::wstring& device) = 0;
    virtual void setSoundingCalcRows(const std::vector<SoundingCalcRow>& value) = 0;
    virtual float getSoundingRatioD() = 0;
    virtual void setSoundingRatioD(const std::wstring& value) = 0;
    virtual float getSoundingRatioE() = 0;
    virtual void setSoundingRatioE(const std::wstring& value) = 0;

    // Section (plain).
    virtual std::wstring& getSectionLinesLayer() = 0;
    virtual void setSectionLinesLayer(const std::wstring& value) = 0;
    virtual std::wstring& getSectionHatchLayer() = 0;
    virtual void setSectionHatchLayer(const std::wstring& value) = 0;
    virtual std::wstring& getSectionTextLayer() = 0;
    virtual void setSectionTextLayer(const std::wstring& value) = 0;
    virtual std::wstring& getSectionGraphLayer() = 0;
    virtual void setSectionGraphLayer(const std::wstring& value) = 0;
    virtual SectionLineMap& getSectionLines() = 0;
    virtual bool addSectionLine(const std::wstring& key, const std::vector<SectionRef>& value) = 0;
    virtual void setSectionLines(const SectionLineMap& value) = 0;
    virtual void setSectionPoints(const SectionPointMap& value) = 0;
    virtual SectionPointMap& getSectionPoints() = 0;
    virtual bool addSectionPoint(const std::wstring& key, const SectionPointValue& value) = 0;
    virtual SectionLineMap& getTerrainLines() = 0;
    virtual bool addTerrainLine(const std::wstring& key, const std::vector<SectionRef>& value) = 0;
    virtual void setTerrainLines(const SectionLineMap& value) = 0;
    virtual void clearTerrainLines() = 0;
    virtual void setTerrainPoints(const SectionPointMap& value) = 0;
    virtual SectionPointMap& getTerrainPoints() = 0;
    virtual bool addTerrainPoint(const std::wstring& key, const SectionPointValue& value) = 0;
    virtual SectionCurveMap& getSectionCurves() = 0;
    virtual bool addSectionCurve(const CurveKey& key, const std::vector<CurveCell>& value) = 0;
    virtual void setSectionCurves(const SectionCurveMap& value) = 0;
    virtual std::int32_t getSectionViewMode() = 0;
    virtual void setSectionViewMode(std::int32_t value) = 0;
    virtual Pair2& getSectionViewPair() = 0;
    virtual void setSectionViewPair(const Pair2& value) = 0;
    virtual Quad4& getSectionViewQuad() = 0;
    virtual void setSectionViewQuad(const Quad4& value) = 0;
    virtual bool getSectionFlagA() = 0;
    virtual void setSectionFlagA(bool value) = 0;

    // Section (terrain model).
    virtual std::wstring& getTerrainLinesLayer() = 0;
    virtual void setTerrainLinesLayer(const std::wstring& value) = 0;
    virtual std::wstring& getTerrainHatchLayer() = 0;
    virtual void setTerrainHatchLayer(const std::wstring& value) = 0;
    virtual std::wstring& getTerrainTextLayer() = 0;
    virtual void setTerrainTextLayer(const std::wstring& value) = 0;
    virtual std::wstring& getTerrainGraphLayer() = 0;
    virtual void setTerrainGraphLayer(const std::wstring& value) = 0;
    virtual std::wstring& getSectionText() = 0;
    virtual void setSectionText(const std::wstring& value) = 0;
    virtual GLObjectList& getTerrainGlObjectsA() = 0;
    // The drawing object lists take over the caller's reference of each new object; a set copies the list as
    // it is and releases nothing.
    virtual void setTerrainGlObjectsA(const GLObjectList& value) = 0;
    virtual GLObjectList& getTerrainGlObjectsB() = 0;
    virtual void setTerrainGlObjectsB(const GLObjectList& value) = 0;
    virtual TerrainCellMap& getTerrainCells() = 0;
    virtual bool addTerrainCell(const std::uint8_t& key, const std::vector<std::wstring>& value) = 0;
    virtual void setTerrainCells(const TerrainCellMap& value) = 0;
    virtual void clearSectionLines() = 0;
    virtual std::int32_t getTerrainViewMode() = 0;
    virtual void setTerrainViewMode(std::int32_t value) = 0;
    virtual Pair2& getTerrainViewPair() = 0;
    virtual void setTerrainViewPair(const Pair2& value) = 0;
    virtual Quad4& getTerrainViewQuad() = 0;
    virtual void setTerrainViewQuad(const Quad4& value) = 0;
    virtual bool getSectionFlagB() = 0;
    virtual void setSectionFlagB(bool value) = 0;
    virtual ProfileTextMap& getLongProfileMap() = 0;
    virtual void setLongProfileMap(const ProfileTextMap& value) = 0;
    virtual void clearLongProfileMap() = 0;

    // Longitudinal profile.
    virtual std::wstring& getLongTextA() = 0;
    virtual void setLongTextA(const std::wstring& value) = 0;
    virtual std::wstring& getLongTextB() = 0;
    virtual void setLongTextB(const std::wstring& value) = 0;
    virtual std::wstring& getLongLinesLayer() = 0;
    virtual void setLongLinesLayer(const std::wstring& value) = 0;
    virtual std::wstring& getLongHatchLayer() = 0;
    virtual void setLongHatchLayer(const std::wstring& value) = 0;
    virtual std::wstring& getLongTextLayer() = 0;
    virtual void setLongTextLayer(const std::wstring& value) = 0;
    virtual std::wstring& getLongGraphLayer() = 0;
    virtual void setLongGraphLayer(const std::wstring& value) = 0;
    virtual GLObjectList& getLongGlObjects() = 0;
    virtual void setLongGlObjects(const GLObjectList& value) = 0;
    virtual InformList& getLongInforms() = 0;
    // Add and set take one more reference of each record; set then releases the old ones. Clear releases
    // nothing: whoever clears gives the references back first.
    virtual void addLongInform(InformRecord* inform) = 0;
    virtual void setLongInforms(const InformList& value) = 0;
    virtual void clearLongInforms() = 0;
    virtual ProfileTextMap& getLongLayerMap() = 0;
    virtual void setLongLayerMap(const ProfileTextMap& value) = 0;
    virtual void clearLongLayerMap() = 0;
    virtual std::int32_t getLongViewMode() = 0;
    virtual void setLongViewMode(std::int32_t value) = 0;
    virtual Pair2& getLongViewPair() = 0;
    virtual void setLongViewPair(const Pair2& value) = 0;
    virtual Quad4& getLongViewQuad() = 0;
    virtual void setLongViewQuad(const Quad4& value) = 0;

    // Cross profile.
    virtual std::wstring& getCrossTextA() = 0;
    virtual void setCrossTextA(const std::wstring& value) = 0;
    virtual std::wstring& getCrossTextB() = 0;
    virtual void setCrossTextB(const std::wstring& value) = 0;
    virtual std::wstring& getCrossLinesLayer() = 0;
    virtual void setCrossLinesLayer(const std::wstring& value) = 0;
    virtual std::wstring& getCrossHatchLayer() = 0;
    virtual void setCrossHatchLayer(const std::wstring& value) = 0;
    virtual std::wstring& getCrossTextLayer() = 0;
    virtual void setCrossTextLayer(const std::wstring& value) = 0;
    virtual GLObjectList& getCrossGlObjects() = 0;
    virtual void setCrossGlObjects(const GLObjectList& value) = 0;
    virtual InformList& getCrossInforms() = 0;
    virtual void addCrossInform(InformRecord* inform) = 0;
    virtual void setCrossInforms(const InformList& value) = 0;
    virtual void clearCrossInforms() = 0;
    virtual std::int32_t getCrossViewMode() = 0;
    virtual void setCrossViewMode(std::int32_t value) = 0;
    virtual Pair2& getCrossViewPair() = 0;
    virtual void setCrossViewPair(const Pair2& value) = 0;
    virtual Quad4& getCrossViewQuad() = 0;
    virtual void setCrossViewQuad(const Quad4& value) = 0;

    // Numbered links.
    virtual void clearNumberedLinks() = 0;
    virtual NumberedLinks& getNumberedLinks() = 0;
    virtual bool addNumberedLink(const std::wstring& key, const std::wstring& value) = 0;
    virtual std::int32_t getLinkViewMode() = 0;
    virtual void setLinkViewMode(std::int32_t value) = 0;
    virtual Pair2& getLinkViewPair() = 0;
    virtual void setLinkViewPair(const Pair2& value) = 0;
    virtual void setNumberedLinks(const NumberedLinks& value) = 0;
    virtual Quad4& getLinkViewQuad() = 0;
    virtual void setLinkViewQuad(const Quad4& value) = 0;

    // Subsidence.
    virtual SubsidenceMap& getSubsidence() = 0;
    virtual void setSubsidence(const SubsidenceMap& value) = 0;
    virtual SubsidenceNames& getSubsidenceNames() = 0;
    // Unlike the other add operations it replaces the list of a key that is there already.
    virtual bool addSubsidenceName(const std::wstring& key, const std::vector<std::wstring>& value) = 0;
    virtual SubsidenceGroups& getSubsidenceGroups() = 0;
    virtual bool addSubsidenceGroup(
        const std::wstring& key, const std::vector<std::vector<std::wstring>>& value) = 0;
    virtual void setSubsidenceGroups(const SubsidenceGroups& value) = 0;

    // Chemistry.
    virtual ChemistryRegister& getChemistry() = 0;
    virtual bool addChemistry(const PointDepthKey& key, const ChemistryRecord& value) = 0;
    virtual void setChemistry(const ChemistryRegister& value) = 0;

    // Geological elements.
    virtual void clearStrataElements() = 0;
    // True when no element has a text in any of its eleven cells.
    virtual bool areStrataElementsEmpty() = 0;
    virtual bool getStrataElementsOption() = 0;
    virtual void setStrataElementsOption(bool value) = 0;
    virtual StrataElementMap& getStrataElements() = 0;
    virtual bool addStrataElement(const std::wstring& key, const StrataElement& value) = 0;
    // Of the element with exactly this name: 999, 777 and 0 where there is none.
    virtual std::int32_t getStrataElementLowerBound(const std::wstring& name) = 0;
    virtual std::int32_t getStrataElementUpperBound(const std::wstring& name) = 0;
    virtual std::int32_t getStrataElementCode(const std::wstring& name) = 0;

    // Owned objects and destruction.
    virtual IDBSectionEditor* getSectionEditor() = 0;
    virtual IDBStamp* getStamp() = 0;

    virtual ~IDBProject() = default;
};
