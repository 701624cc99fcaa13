#pragma once

#include "core/base/mobject.h"
#include "core/base/text_number.h"
#include "modules/idbproject.h"

#include <memory>
#include <utility>

class DBSectionEditor;
class DBStamp;

// One open project in memory. A new one holds the defaults below and empty containers; it owns its records by
// value, one reference on each drawing object and inform record of its lists, its section editor and its
// stamp.
class DBProject : public MObject, public IDBProject
{
public:
    DBProject();
    ~DBProject() override;

    // Replaces the whole table of geological elements. Not part of the interface of modules.
    virtual void setStrataElements(const StrataElementMap& value) { strataElements_ = value; }

    // Head of the project.
    std::int32_t getProjectState() override { return projectState_; }
    void setProjectState(const std::int32_t& value) override { projectState_ = value; }
    std::int32_t getGranGost() override { return granGost_; }
    void setGranGost(const std::int32_t& value) override { granGost_ = value; }
    std::int32_t getFileTagB() override { return fileTagB_; }
    void setFileTagB(const std::int32_t& value) override { fileTagB_ = value; }
    std::wstring& getFilePath() override { return filePath_; }
    void setFilePath(const std::wstring& value) override { filePath_ = value; }
    std::wstring& getProjectCode() override { return projectCode_; }
    void setProjectCode(const std::wstring& value) override { projectCode_ = value; }
    std::wstring& getProjectName() override { return projectName_; }
    void setProjectName(const std::wstring& value) override { projectName_ = value; }
    std::wstring& getFileStem() override { return fileStem_; }
    void setFileStem(const std::wstring& value) override { fileStem_ = value; }
    std::int32_t getTypeObject() override { return typeObject_; }
    void setTypeObject(const std::int32_t& value) override { typeObject_ = value; }

    // Point register.
    void clearPointRegister() override { pointRegister_.clear(); }
    PointRegister& getPointRegister() override { return pointRegister_; }
    bool addPointRegisterEntry(const PointKey& key, const std::vector<PointRow>& value) override
    {
        return add(pointRegister_, key, value);
    }
    void setPointRegister(const PointRegister& value) override { pointRegister_ = value; }

    // Lithology and the point register header.
    LithologyRegister::iterator removeLithologyOfPoint(const std::wstring& pointName) override;
    LithologyRegister& getLithology() override { return lithology_; }
    bool addLithology(const PointDepthKey& key, const LithologyValue& value) override
    {
        return add(lithology_, key, value);
    }
    void setLithology(const LithologyRegister& value) override { lithology_ = value; }
    RegisterHeader& getPointRegisterHeader() override { return pointRegisterHeader_; }
    void setPointRegisterHeader(const RegisterHeader& value) override { pointRegisterHeader_ = value; }

    // Samples and the lithology header.
    SampleRegister& getSamples() override { return samples_; }
    bool addSample(const PointDepthKey& key, const SampleValue& value) override
    {
        return add(samples_, key, value);
    }
    void setSamples(const SampleRegister& value) override { samples_ = value; }
    RegisterHeader& getLithologyHeader() override { return lithologyHeader_; }
    void setLithologyHeader(const RegisterHeader& value) override { lithologyHeader_ = value; }

    // Water levels and the samples header.
    WaterRegister& getWaterLevels() override { return waterLevels_; }
    bool addWaterLevel(const PointDepthKey& key, const WaterValue& value) override
    {
        return add(waterLevels_, key, value);
    }
    void setWaterLevels(const WaterRegister& value) override { waterLevels_ = value; }
    RegisterHeader& getSamplesHeader() override { return samplesHeader_; }
    void setSamplesHeader(const RegisterHeader& value) override { samplesHeader_ = value; }

    // Consistency and the water header.
    ConsistencyRegister& getConsistency() override { return consistency_; }
    bool addConsistency(const PointDepthKey& key, const ConsistencyValue& value) override
    {
        return add(consistency_, key, value);
    }
    void setConsistency(const ConsistencyRegister& value) override { consistency_ = value; }
    RegisterHeader& getWaterHeader() override { return waterHeader_; }
    void setWaterHeader(const RegisterHeader& value) override { waterHeader_ = value; }

    // Laboratory.
    bool getLabOption() override { return labOption_; }
    void setLabOption(bool value) override { labOption_ = value; }
    std::int32_t getLabValueA() override { return labValueA_; }
    void setLabValueA(const std::int32_t& value) override { labValueA_ = value; }
    std::int32_t getLabValueB() override { return labValueB_; }
    void setLabValueB(const std::int32_t& value) override { labValueB_ = value; }
    std::int32_t getLabValueC() override { return labValueC_; }
    void setLabValueC(const std::int32_t& value) override { labValueC_ = value; }
    std::vector<PropertyCell>& getPhysicalTemplate() override { return physicalTemplate_; }
    void setPhysicalTemplate(const std::vector<PropertyCell>& value) override;
    std::vector<ShearCell>& getShearTemplate() override { return shearTemplate_; }
    void setShearTemplate(const std::vector<ShearCell>& value) override;
    std::vector<CompressionCell>& getCompressionTemplate() override { return compressionTemplate_; }
    void setCompressionTemplate(const std::vector<CompressionCell>& value) override;
    std::vector<SwellingCell>& getSwellingTemplate() override { return swellingTemplate_; }
    void setSwellingTemplate(const std::vector<SwellingCell>& value) override;
    LabTriple& getLabTriple() override { return labTriple_; }
    void setLabTriple(const LabTriple& value) override { labTriple_ = value; }
    LabSampleRegister& getLabSamples() override { return labSamples_; }
    void setLabSamples(const LabSampleRegister& value) override { labSamples_ = value; }
    bool addLabSample(const PointDepthKey& key, const LabSample& value) override
    {
        return add(labSamples_, key, value);
    }

    // Static probing.
    SoundingRegister& getSoundings() override { return soundings_; }
    bool addSounding(const SoundingKey& key, const std::vector<SoundingRow>& value) override
    {
        return add(soundings_, key, value);
    }
    void setSoundings(const SoundingRegister& value) override { soundings_ = value; }
    void clearSoundingFlags() override { soundingFlags_.clear(); }
    SoundingFlags& getSoundingFlags() override { return soundingFlags_; }
    bool addSoundingFlag(const std::wstring& key, const std::uint8_t& value) override
    {
        return add(soundingFlags_, key, value);
    }
    void setSoundingFlags(const SoundingFlags& value) override { soundingFlags_ = value; }
    SoundingTriples& getSoundingTriples() override { return soundingTriples_; }
    bool addSoundingTriple(const std::uint8_t& key, const std::array<std::int32_t, 3>& value) override
    {
        return add(soundingTriples_, key, value);
    }
    std::vector<SoundingCalcRow>& getSoundingCalcRows() override { return soundingCalcRows_; }
    void addSoundingCalcRow(const SoundingCalcRow& row) override;
    bool getSoundingOptionA() override { return soundingOptionA_; }
    void setSoundingOptionA(bool value) override { soundingOptionA_ = value; }
    bool getSoundingOptionB() override { return soundingOptionB_; }
    void setSoundingOptionB(bool value) override { soundingOptionB_ = value; }
    std::int32_t getSoundingValueA() override { return soundingValueA_; }
    void setSoundingValueD(const std::int32_t& value) override { soundingValueD_ = value; }
    void setSoundingValueC(const std::int32_t& value) override { soundingValueC_ = value; }
    void setSoundingValueB(const std::int32_t& value) override { soundingValueB_ = value; }
    void setSoundingValueA(const std::int32_t& value) override { soundingValueA_ = value; }
    std::int32_t getSoundingValueB() override { return soundingValueB_; }
    std::int32_t getSoundingValueC() override { return soundingValueC_; }
    std::int32_t getSoundingValueD() override { return soundingValueD_; }

    // Laboratory header.
    RegisterHeader& getLabHeader() override { return labHeader_; }
    void setLabHeader(const RegisterHeader& value) override { labHeader_ = value; }

    // Static probing ratios, key move and calculation rows.
    float getSoundingRatioA() override { return soundingRatioA_; }
    void setSoundingRatioA(const std::wstring& value) override { soundingRatioA_ = textToFloat(value); }
    float getSoundingRatioB() override { return soundingRatioB_; }
    void setSoundingRatioB(const std::wstring& value) override { soundingRatioB_ = textToFloat(value); }
    float getSoundingRatioC() override { return soundingRatioC_; }
    void setSoundingRatioC(const std::wstring& value) override { soundingRatioC_ = textToFloat(value); }
    void moveSoundingKey(
        const std::wstring& pointName, const std::uint32_t& pointKind, const std::wstring& device) override;
    void setSoundingCalcRows(const std::vector<SoundingCalcRow>& value) override
    {
        soundingCalcRows_ = value;
    }
    float getSoundingRatioD() override { return soundingRatioD_; }
    void setSoundingRatioD(const std::wstring& value) override { soundingRatioD_ = textToFloat(value); }
    float getSoundingRatioE() override { return soundingRatioE_; }
    void setSoundingRatioE(const std::wstring& value) override { soundingRatioE_ = textToFloat(value); }

    // Section (plain).
    std::wstring& getSectionLinesLayer() override { return sectionLinesLayer_; }
    void setSectionLinesLayer(const std::wstring& value) override { sectionLinesLayer_ = value; }
    std::wstring& getSectionHatchLayer() override { return sectionHatchLayer_; }
    void setSectionHatchLayer(const std::wstring& value) override { sectionHatchLayer_ = value; }
    std::wstring& getSectionTextLayer() override { return sectionTextLayer_; }
    void setSectionTextLayer(const std::wstring& value) override { sectionTextLayer_ = value; }
    std::wstring& getSectionGraphLayer() override { return sectionGraphLayer_; }
    void setSectionGraphLayer(const std::wstring& value) override { sectionGraphLayer_ = value; }
    SectionLineMap& getSectionLines() override { return sectionLines_; }
    bool addSectionLine(const std::wstring& key, const std::vector<SectionRef>& value) override
    {
        return add(sectionLines_, key, value);
    }
    void setSectionLines(const SectionLineMap& value) override { sectionLines_ = value; }
    void setSectionPoints(const SectionPointMap& value) override { sectionPoints_ = value; }
    SectionPointMap& getSectionPoints() override { return sectionPoints_; }
    bool addSectionPoint(const std::wstring& key, const SectionPointValue& value) override
    {
        return add(sectionPoints_, key, value);
    }
    SectionLineMap& getTerrainLines() override { return terrainLines_; }
    bool addTerrainLine(const std::wstring& key, const std::vector<SectionRef>& value) override
    {
        return add(terrainLines_, key, value);
    }
    void setTerrainLines(const SectionLineMap& value) override { terrainLines_ = value; }
    void clearTerrainLines() override { terrainLines_.clear(); }
    void setTerrainPoints(const SectionPointMap& value) override { terrainPoints_ = value; }
    SectionPointMap& getTerrainPoints() override { return terrainPoints_; }
    bool addTerrainPoint(const std::wstring& key, const SectionPointValue& value) override
    {
        return add(terrainPoints_, key, value);
    }
    SectionCurveMap& getSectionCurves() override { return sectionCurves_; }
    bool addSectionCurve(const CurveKey& key, const std::vector<CurveCell>& value) override
    {
        return add(sectionCurves_, key, value);
    }
    void setSectionCurves(const SectionCurveMap& value) override { sectionCurves_ = value; }
    std::int32_t getSectionViewMode() override { return sectionViewMode_; }
    void setSectionViewMode(std::int32_t value) override { sectionViewMode_ = value; }
    Pair2& getSectionViewPair() override { return sectionViewPair_; }
    void setSectionViewPair(const Pair2& value) override { sectionViewPair_ = value; }
    Quad4& getSectionViewQuad() override { return sectionViewQuad_; }
    void setSectionViewQuad(const Quad4& value) override { sectionViewQuad_ = value; }
    bool getSectionFlagA() override { return sectionFlagA_; }
    void setSectionFlagA(bool value) override { sectionFlagA_ = value; }

    // Section (terrain model).
    std::wstring& getTerrainLinesLayer() override { return terrainLinesLayer_; }
    void setTerrainLinesLayer(const std::wstring& value) override { terrainLinesLayer_ = value; }
    std::wstring& getTerrainHatchLayer() override { return terrainHatchLayer_; }
    void setTerrainHatchLayer(const std::wstring& value) override { terrainHatchLayer_ = value; }
    std::wstring& getTerrainTextLayer() override { return terrainTextLayer_; }
    void setTerrainTextLayer(const std::wstring& value) override { terrainTextLayer_ = value; }
    std::wstring& getTerrainGraphLayer() override { return terrainGraphLayer_; }
    void setTerrainGraphLayer(const std::wstring& value) override { terrainGraphLayer_ = value; }
    std::wstring& getSectionText() override { return sectionText_; }
    void setSectionText(const std::wstring& value) override { sectionText_ = value; }
    GLObjectList& getTerrainGlObjectsA() override { return terrainGlObjectsA_; }
    void setTerrainGlObjectsA(const GLObjectList& value) override { terrainGlObjectsA_ = value; }
    GLObjectList& getTerrainGlObjectsB() override { return terrainGlObjectsB_; }
    void setTerrainGlObjectsB(const GLObjectList& value) override { terrainGlObjectsB_ = value; }
    TerrainCellMap& getTerrainCells() override { return terrainCells_; }
    bool addTerrainCell(const std::uint8_t& key, const std::vector<std::wstring>& value) override
    {
        return add(terrainCells_, key, value);
    }
    void setTerrainCells(const TerrainCellMap& value) override { terrainCells_ = value; }
    void clearSectionLines() override { sectionLines_.clear(); }
    std::int32_t getTerrainViewMode() override { return terrainViewMode_; }
    void setTerrainViewMode(std::int32_t value) override { terrainViewMode_ = value; }
    Pair2& getTerrainViewPair() override { return terrainViewPair_; }
    void setTerrainViewPair(const Pair2& value) override { terrainViewPair_ = value; }
    Quad4& getTerrainViewQuad() override { return terrainViewQuad_; }
    void setTerrainViewQuad(const Quad4& value) override { terrainViewQuad_ = value; }
    bool getSectionFlagB() override { return sectionFlagB_; }
    void setSectionFlagB(bool value) override { sectionFlagB_ = value; }
    ProfileTextMap& getLongProfileMap() override { return longProfileMap_; }
    void setLongProfileMap(const ProfileTextMap& value) override { longProfileMap_ = value; }
    void clearLongProfileMap() override { longProfileMap_.clear(); }

    // Longitudinal profile.
    std::wstring& getLongTextA() override { return longTextA_; }
    void setLongTextA(const std::wstring& value) override { longTextA_ = value; }
    std::wstring& getLongTextB() override { return longTextB_; }
    void setLongTextB(const std::wstring& value) override { longTextB_ = value; }
    std::wstring& getLongLinesLayer() override { return longLinesLayer_; }
    void setLongLinesLayer(const std::wstring& value) override { longLinesLayer_ = value; }
    std::wstring& getLongHatchLayer() override { return longHatchLayer_; }
    void setLongHatchLayer(const std::wstring& value) override { longHatchLayer_ = value; }
    std::wstring& getLongTextLayer() override { return longTextLayer_; }
    void setLongTextLayer(const std::wstring& value) override { longTextLayer_ = value; }
    std::wstring& getLongGraphLayer() override { return longGraphLayer_; }
    void setLongGraphLayer(const std::wstring& value) override { longGraphLayer_ = value; }
    GLObjectList& getLongGlObjects() override { return longGlObjects_; }
    void setLongGlObjects(const GLObjectList& value) override { longGlObjects_ = value; }
    InformList& getLongInforms() override { return longInforms_; }
    void addLongInform(InformRecord* inform) override;
    void setLongInforms(const InformList& value) override;
    void clearLongInforms() override { longInforms_.clear(); }
    ProfileTextMap& getLongLayerMap() override { return longLayerMap_; }
    void setLongLayerMap(const ProfileTextMap& value) override { longLayerMap_ = value; }
    void clearLongLayerMap() override { longLayerMap_.clear(); }
    std::int32_t getLongViewMode() override { return longViewMode_; }
    void setLongViewMode(std::int32_t value) override { longViewMode_ = value; }
    Pair2& getLongViewPair() override { return longViewPair_; }
    void setLongViewPair(const Pair2& value) override { longViewPair_ = value; }
    Quad4& getLongViewQuad() override { return longViewQuad_; }
    void setLongViewQuad(const Quad4& value) override { longViewQuad_ = value; }

    // Cross profile.
    std::wstring& getCrossTextA() override { return crossTextA_; }
    void setCrossTextA(const std::wstring& value) override { crossTextA_ = value; }
    std::wstring& getCrossTextB() override { return crossTextB_; }
    void setCrossTextB(const std::wstring& value) override { crossTextB_ = value; }
    std::wstring& getCrossLinesLayer() override { return crossLinesLayer_; }
    void setCrossLinesLayer(const std::wstring& value) override { crossLinesLayer_ = value; }
    std::wstring& getCrossHatchLayer() override { return crossHatchLayer_; }
    void setCrossHatchLayer(const std::wstring& value) override { crossHatchLayer_ = value; }
    std::wstring& getCrossTextLayer() override { return crossTextLayer_; }
    void setCrossTextLayer(const std::wstring& value) override { crossTextLayer_ = value; }
    GLObjectList& getCrossGlObjects() override { return crossGlObjects_; }
    void setCrossGlObjects(const GLObjectList& value) override { crossGlObjects_ = value; }
    InformList& getCrossInforms() override { return crossInforms_; }
    void addCrossInform(InformRecord* inform) override;
    void setCrossInforms(const InformList& value) override;
    void clearCrossInforms() override { crossInforms_.clear(); }
    std::int32_t getCrossViewMode() override { return crossViewMode_; }
    void setCrossViewMode(std::int32_t value) override { crossViewMode_ = value; }
    Pair2& getCrossViewPair() override { return crossViewPair_; }
    void setCrossViewPair(const Pair2& value) override { crossViewPair_ = value; }
    Quad4& getCrossViewQuad() override { return crossViewQuad_; }
    void setCrossViewQuad(const Quad4& value) override { crossViewQuad_ = value; }

    // Numbered links.
    void clearNumberedLinks() override { numberedLinks_.clear(); }
    NumberedLinks& getNumberedLinks() override { return numberedLinks_; }
    bool addNumberedLink(const std::wstring& key, const std::wstring& value) override
    {
        return add(numberedLinks_, key, value);
    }
    std::int32_t getLinkViewMode() override { return linkViewMode_; }
    void setLinkViewMode(std::int32_t value) override { linkViewMode_ = value; }
    Pair2& getLinkViewPair() override { return linkViewPair_; }
    void setLinkViewPair(const Pair2& value) override { linkViewPair_ = value; }
    void setNumberedLinks(const NumberedLinks& value) override { numberedLinks_ = value; }
    Quad4& getLinkViewQuad() override { return linkViewQuad_; }
    void setLinkViewQuad(const Quad4& value) override { linkViewQuad_ = value; }

    // Subsidence.
    SubsidenceMap& getSubsidence() override { return subsidence_; }
    void setSubsidence(const SubsidenceMap& value) override { subsidence_ = value; }
    SubsidenceNames& getSubsidenceNames() override { return subsidenceNames_; }
    bool addSubsidenceName(const std::wstring& key, const std::vector<std::wstring>& value) override;
    SubsidenceGroups& getSubsidenceGroups() override { return subsidenceGroups_; }
    bool addSubsidenceGroup(
        const std::wstring& key, const std::vector<std::vector<std::wstring>>& value) override
    {
        return add(subsidenceGroups_, key, value);
    }
    void setSubsidenceGroups(const SubsidenceGroups& value) override { subsidenceGroups_ = value; }

    // Chemistry.
    ChemistryRegister& getChemistry() override { return chemistry_; }
    bool addChemistry(const PointDepthKey& key, const ChemistryRecord& value) override
    {
        return add(chemistry_, key, value);
    }
    void setChemistry(const ChemistryRegister& value) override { chemistry_ = value; }

    // Geological elements.
    void clearStrataElements() override { strataElements_.clear(); }
    bool areStrataElementsEmpty() override;
    bool getStrataElementsOption() override { return strataElementsOption_; }
    void setStrataElementsOption(bool value) override { strataElementsOption_ = value; }
    StrataElementMap& getStrataElements() override { return strataElements_; }
    bool addStrataElement(const std::wstring& key, const StrataElement& value) override
    {
        return add(strataElements_, key, value);
    }
    std::int32_t getStrataElementLowerBound(const std::wstring& name) override;
    std::int32_t getStrataElementUpperBound(const std::wstring& name) override;
    std::int32_t getStrataElementCode(const std::wstring& name) override;

    // Owned objects and destruction.
    IDBSectionEditor* getSectionEditor() override;
    IDBStamp* getStamp() override;

private:
    // An empty map compares nothing: the key is compared with itself there, so that a key which the ordering
    // cannot read is refused when it is typed, not when the next row is.
    template <class Map, class Key, class Value>
    static bool add(Map& map, const Key& key, const Value& value)
    {
        if (map.empty())
            static_cast<void>(map.key_comp()(key, key));
        return map.insert(std::pair<const Key, Value>(key, value)).second;
    }

    std::int32_t projectState_ = 0;
    std::int32_t granGost_ = 1;
    std::int32_t fileTagB_ = 0;
    std::wstring filePath_;
    std::wstring projectCode_ = L"ШифрXXXX";
    std::wstring projectName_ = L"Новый";
    std::wstring fileStem_ = L"TLXXXXX";
    std::int32_t typeObject_ = 1;
    PointRegister pointRegister_;
    RegisterHeader pointRegisterHeader_;
    LithologyRegister lithology_;
    RegisterHeader lithologyHeader_;
    SampleRegister samples_;
    RegisterHeader samplesHeader_;
    WaterRegister waterLevels_;
    RegisterHeader waterHeader_;
    ConsistencyRegister consistency_;
    bool labOption_ = false;
    std::int32_t labValueA_ = 0;
    std::int32_t labValueB_ = 0;
    std::int32_t labValueC_ = 1;
    std::vector<PropertyCell> physicalTemplate_;
    std::vector<ShearCell> shearTemplate_;
    std::vector<CompressionCell> compressionTemplate_;
    LabTriple labTriple_;
    std::vector<SwellingCell> swellingTemplate_;
    LabSampleRegister labSamples_;
    RegisterHeader labHeader_;
    SoundingRegister soundings_;
    SoundingFlags soundingFlags_;
    SoundingTriples soundingTriples_;
    std::vector<SoundingCalcRow> soundingCalcRows_;
    bool soundingOptionA_ = false;
    bool soundingOptionB_ = false;
    std::int32_t soundingValueA_ = 0;
    std::int32_t soundingValueB_ = 2;
    std::int32_t soundingValueC_ = 0;
    std::int32_t soundingValueD_ = 0;
    float soundingRatioA_ = 0.0357F;
    float soundingRatioB_ = 0.0357F;
    float soundingRatioC_ = 0.09F;
    float soundingRatioD_ = 0.5F;
    float soundingRatioE_ = 0.8F;
    std::wstring sectionLinesLayer_ = L"Разрез_линии";
    std::wstring sectionHatchLayer_ = L"Разрез_штриховка";
    std::wstring sectionTextLayer_ = L"Разрез_текст";
    std::wstring sectionGraphLayer_ = L"Разрез_график";
    SectionLineMap sectionLines_;
    SectionPointMap sectionPoints_;
    SectionCurveMap sectionCurves_;
    bool sectionFlagA_ = false;
    bool sectionFlagB_ = false;
    std::int32_t sectionViewMode_ = 0;
    Pair2 sectionViewPair_{};
    Quad4 sectionViewQuad_{};
    std::wstring sectionText_;
    std::wstring terrainLinesLayer_ = L"Разрез_линии";
    std::wstring terrainHatchLayer_ = L"Разрез_штриховка";
    std::wstring terrainTextLayer_ = L"Разрез_текст";
    std::wstring terrainGraphLayer_ = L"Разрез_график";
    std::int32_t terrainViewMode_ = 0;
    Pair2 terrainViewPair_{};
    Quad4 terrainViewQuad_{};
    GLObjectList terrainGlObjectsA_;
    GLObjectList terrainGlObjectsB_;
    SectionLineMap terrainLines_;
    SectionPointMap terrainPoints_;
    TerrainCellMap terrainCells_;
    ProfileTextMap longProfileMap_;
    std::wstring longTextA_;
    std::wstring longTextB_;
    std::wstring longLinesLayer_ = L"Продольный_геология_линии";
    std::wstring longHatchLayer_ = L"Продольный_геология_штриховка";
    std::wstring longTextLayer_ = L"Продольный_геология_текст";
    std::wstring longGraphLayer_ = L"Продольный_геология_график";
    GLObjectList longGlObjects_;
    InformList longInforms_;
    ProfileTextMap longLayerMap_;
    std::int32_t longViewMode_ = 0;
    Pair2 longViewPair_{};
    Quad4 longViewQuad_{};
    std::wstring crossTextA_;
    std::wstring crossTextB_;
    std::wstring crossLinesLayer_ = L"Поперечный_геология_линии";
    std::wstring crossHatchLayer_ = L"Поперечный_геология_штриховка";
    std::wstring crossTextLayer_ = L"Поперечный_геология_текст";
    GLObjectList crossGlObjects_;
    InformList crossInforms_;
    std::int32_t crossViewMode_ = 0;
    Pair2 crossViewPair_{};
    Quad4 crossViewQuad_{};
    NumberedLinks numberedLinks_;
    std::int32_t linkViewMode_ = 0;
    Pair2 linkViewPair_{};
    Quad4 linkViewQuad_{};
    SubsidenceMap subsidence_;
    SubsidenceNames subsidenceNames_;
    SubsidenceGroups subsidenceGroups_;
    ChemistryRegister chemistry_;
    bool strataElementsOption_ = false;
    StrataElementMap strataElements_;
    std::unique_ptr<DBSectionEditor> sectionEditor_;
    std::unique_ptr<DBStamp> stamp_;
};
