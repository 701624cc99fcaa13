#pragma once

#include "modules/idbproject.h"
#include "persistence/grammar/drawings.h"
#include "persistence/grammar/grammar.h"
#include "persistence/grammar/informs.h"
#include "persistence/grammar/laboratory.h"
#include "persistence/grammar/registers.h"
#include "persistence/grammar/sections.h"
#include "persistence/grammar/sounding.h"
#include "persistence/grammar/strata.h"

#include <string>
#include <string_view>

// The whole project in file order: a head, then twelve sections with nothing between them.

// Fields that the project hands out by value: read, describe, give back.
template <class Archive, class Value, class Set>
void byteField(
    Archive& archive, std::string_view name, IDBProject& project, Value (IDBProject::*get)(), Set set)
{
    Value value = (project.*get)();
    archive.byte(name, value);
    if constexpr (Archive::reading)
        (project.*set)(value);
}

template <class Archive, class Set>
void flagField(
    Archive& archive, std::string_view name, IDBProject& project, bool (IDBProject::*get)(), Set set)
{
    bool value = (project.*get)();
    archive.flag(name, value);
    if constexpr (Archive::reading)
        (project.*set)(value);
}

template <class Archive, class Value, class Set>
void wordField(
    Archive& archive, std::string_view name, IDBProject& project, Value (IDBProject::*get)(), Set set)
{
    Value value = (project.*get)();
    archive.word(name, value);
    if constexpr (Archive::reading)
        (project.*set)(value);
}

template <class Archive>
void headFields(Archive& archive, IDBProject& project)
{
    archive.section("head");
    byteField(archive, "granGost", project, &IDBProject::getGranGost, &IDBProject::setGranGost);
    byteField(archive, "fileTagB", project, &IDBProject::getFileTagB, &IDBProject::setFileTagB);
    archive.text("filePath", project.getFilePath());
    archive.text("projectCode", project.getProjectCode());
    archive.text("projectName", project.getProjectName());
    archive.stem("fileStem", project);
    byteField(archive, "typeObject", project, &IDBProject::getTypeObject, &IDBProject::setTypeObject);
}

template <class Archive>
void registerFields(Archive& archive, IDBProject& project)
{
    archive.section("pointRegister");
    archive.map("pointRegister", {{}, "rows"}, project.getPointRegister());
    archive.section("lithology");
    archive.map("lithology", {}, project.getLithology());
    archive.section("samples");
    archive.map("samples", {}, project.getSamples());
    archive.section("waterLevels");
    archive.map("waterLevels", {}, project.getWaterLevels());
    archive.section("consistency");
    archive.map("consistency", {}, project.getConsistency());
}

// A template that is kept sorted by id: what a file holds in another order is sorted once it is read.
template <class Archive, class Cells, class Set>
void templateFields(Archive& archive, std::string_view name, IDBProject& project, Cells& cells, Set set)
{
    archive.list(name, cells);
    if constexpr (Archive::reading)
        (project.*set)(cells);
}

template <class Archive>
void laboratoryFields(Archive& archive, IDBProject& project)
{
    archive.section("laboratory");
    flagField(archive, "labOption", project, &IDBProject::getLabOption, &IDBProject::setLabOption);
    byteField(archive, "labValueA", project, &IDBProject::getLabValueA, &IDBProject::setLabValueA);
    byteField(archive, "labValueB", project, &IDBProject::getLabValueB, &IDBProject::setLabValueB);
    byteField(archive, "labValueC", project, &IDBProject::getLabValueC, &IDBProject::setLabValueC);
    templateFields(archive,
        "physicalTemplate",
        project,
        project.getPhysicalTemplate(),
        &IDBProject::setPhysicalTemplate);
    templateFields(
        archive, "shearTemplate", project, project.getShearTemplate(), &IDBProject::setShearTemplate);
    templateFields(archive,
        "compressionTemplate",
        project,
        project.getCompressionTemplate(),
        &IDBProject::setCompressionTemplate);
    templateFields(archive,
        "swellingTemplate",
        project,
        project.getSwellingTemplate(),
        &IDBProject::setSwellingTemplate);
    archive.record("labTriple", project.getLabTriple());
    archive.section("labSamples");
    archive.map("labSamples", {}, project.getLabSamples());
}

template <class Archive>
void soundingFields(Archive& archive, IDBProject& project)
{
    archive.section("soundings");
    archive.map("soundings", {{}, "rows"}, project.getSoundings());
    archive.map("soundingFlags", {"name", "value"}, project.getSoundingFlags());
    archive.map("soundingTriples", {"number", "values"}, project.getSoundingTriples());
    archive.list("soundingCalcRows", project.getSoundingCalcRows());
    flagField(archive,
        "soundingOptionA",
        project,
        &IDBProject::getSoundingOptionA,
        &IDBProject::setSoundingOptionA);
    flagField(archive,
        "soundingOptionB",
        project,
        &IDBProject::getSoundingOptionB,
        &IDBProject::setSoundingOptionB);
    byteField(
        archive, "soundingValueA", project, &IDBProject::getSoundingValueA, &IDBProject::setSoundingValueA);
    byteField(
        archive, "soundingValueB", project, &IDBProject::getSoundingValueB, &IDBProject::setSoundingValueB);
    byteField(
        archive, "soundingValueC", project, &IDBProject::getSoundingValueC, &IDBProject::setSoundingValueC);
    byteField(
        archive, "soundingValueD", project, &IDBProject::getSoundingValueD, &IDBProject::setSoundingValueD);
}

// The ends of the sections, completed from the lines and the point register as soon as they are read.
template <class Archive>
void sectionPoints(Archive& archive,
    std::string_view name,
    IDBProject& project,
    SectionPointMap& points,
    SectionLineMap& lines)
{
    archive.map(name, {"section", {}}, points);
    if constexpr (Archive::reading)
        archive.complete(points, lines, project.getPointRegister());
}

template <class Archive>
void planSectionFields(Archive& archive, IDBProject& project)
{
    archive.section("sections");
    archive.text("sectionLinesLayer", project.getSectionLinesLayer());
    archive.text("sectionHatchLayer", project.getSectionHatchLayer());
    archive.text("sectionTextLayer", project.getSectionTextLayer());
    archive.text("sectionGraphLayer", project.getSectionGraphLayer());
    wordField(archive,
        "sectionViewMode",
        project,
        &IDBProject::getSectionViewMode,
        &IDBProject::setSectionViewMode);
    words(archive, "sectionViewPair", project.getSectionViewPair());
    words(archive, "sectionViewQuad", project.getSectionViewQuad());
    archive.map("sectionLines", {"section", "points"}, project.getSectionLines());
    sectionPoints(archive, "sectionPoints", project, project.getSectionPoints(), project.getSectionLines());
    archive.map("terrainLines", {"section", "points"}, project.getTerrainLines());
    sectionPoints(archive, "terrainPoints", project, project.getTerrainPoints(), project.getTerrainLines());
    archive.map("sectionCurves", {{}, "cells"}, project.getSectionCurves());
}

template <class Archive>
void terrainFields(Archive& archive, IDBProject& project)
{
    archive.section("terrain");
    archive.text("terrainLinesLayer", project.getTerrainLinesLayer());
    archive.text("terrainHatchLayer", project.getTerrainHatchLayer());
    archive.text("terrainTextLayer", project.getTerrainTextLayer());
    archive.text("terrainGraphLayer", project.getTerrainGraphLayer());
    archive.text("sectionText", project.getSectionText());
    wordField(archive,
        "terrainViewMode",
        project,
        &IDBProject::getTerrainViewMode,
        &IDBProject::setTerrainViewMode);
    words(archive, "terrainViewPair", project.getTerrainViewPair());
    words(archive, "terrainViewQuad", project.getTerrainViewQuad());
    archive.objects("terrainGlObjectsA", project.getTerrainGlObjectsA());
    archive.planes("terrainGlObjectsB", project.getTerrainGlObjectsB());
    archive.map("terrainCells", {"number", "cells"}, project.getTerrainCells());
}

template <class Archive>
void longProfileFields(Archive& archive, IDBProject& project)
{
    archive.section("longProfile");
    archive.doubledTitle("longTextA", project.getLongTextA(), "longTextB", project.getLongTextB());
    archive.text("longLinesLayer", project.getLongLinesLayer());
    archive.text("longHatchLayer", project.getLongHatchLayer());
    archive.text("longTextLayer", project.getLongTextLayer());
    archive.text("longGraphLayer", project.getLongGraphLayer());
    wordField(archive, "longViewMode", project, &IDBProject::getLongViewMode, &IDBProject::setLongViewMode);
    words(archive, "longViewPair", project.getLongViewPair());
    words(archive, "longViewQuad", project.getLongViewQuad());
    archive.objects("longGlObjects", project.getLongGlObjects());
    archive.informs("longInforms", project.getLongInforms());
}

// The cross profile has no graph layer.
template <class Archive>
void crossProfileFields(Archive& archive, IDBProject& project)
{
    archive.section("crossProfile");
    archive.doubledTitle("crossTextA", project.getCrossTextA(), "crossTextB", project.getCrossTextB());
    archive.text("crossLinesLayer", project.getCrossLinesLayer());
    archive.text("crossHatchLayer", project.getCrossHatchLayer());
    archive.text("crossTextLayer", project.getCrossTextLayer());
    wordField(
        archive, "crossViewMode", project, &IDBProject::getCrossViewMode, &IDBProject::setCrossViewMode);
    words(archive, "crossViewPair", project.getCrossViewPair());
    words(archive, "crossViewQuad", project.getCrossViewQuad());
    archive.objects("crossGlObjects", project.getCrossGlObjects());
    archive.informs("crossInforms", project.getCrossInforms());
}

template <class Archive>
void subsidenceFields(Archive& archive, IDBProject& project)
{
    archive.section("subsidence");
    archive.subsidence("subsidence", project.getSubsidence());
    // Without a subsidence row neither of the two stands in the file, and names without rows are lost.
    if (!Archive::binary || !project.getSubsidence().empty()) {
        archive.subsidenceNames("subsidenceNames", project.getSubsidenceNames());
        archive.map("subsidenceGroups", {"name", "groups"}, project.getSubsidenceGroups());
    }
}

template <class Archive>
void projectFields(Archive& archive, IDBProject& project)
{
    headFields(archive, project);
    registerFields(archive, project);
    laboratoryFields(archive, project);
    soundingFields(archive, project);
    planSectionFields(archive, project);
    terrainFields(archive, project);
    longProfileFields(archive, project);
    crossProfileFields(archive, project);
    archive.section("numberedLinks");
    archive.map("numberedLinks", {"key", "value"}, project.getNumberedLinks());
    subsidenceFields(archive, project);
    archive.section("chemistry");
    archive.map("chemistry", {}, project.getChemistry());
    archive.section("strataElements");
    flagField(archive,
        "strataElementsOption",
        project,
        &IDBProject::getStrataElementsOption,
        &IDBProject::setStrataElementsOption);
    archive.map("strataElements", {"name", {}}, project.getStrataElements());
}
