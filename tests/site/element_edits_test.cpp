#include "core/base/mexception.h"
#include "core/base/reference.h"
#include "db/db_project.h"
#include "db/exact_key.h"
#include "section/gl_block.h"
#include "site/element_edits.h"
#include "site/element_links.h"
#include "site/element_proposal.h"
#include "site/element_texts.h"
#include "site/layers.h"

#include <gtest/gtest.h>

#include <functional>

namespace
{

class ElementEdits : public testing::Test
{
protected:
    ElementEdits()
    {
        for (const wchar_t* name : {L"1", L"2", L"3"})
            project->addStrataElement(name, {});
        for (const wchar_t* bottom : {L"1", L"3", L"6"})
            project->addLithology({L"С-1", bottom}, {});
        project->addNumberedLink(L"С-1:1", L"3");
        project->addNumberedLink(L"С-1:2", L"1");
        project->addNumberedLink(L"С-1:3", L"2");
        project->addNumberedLink(L"ИГЭ 1:0", L"Суглинок");
        project->addNumberedLink(L"ИГЭ 2:0", L"Песок");
        project->addNumberedLink(L"Коррозия:0", L";30");
        project->addSoundingFlag(L"1", 3);
        project->addSectionCurve({L"Разрез 1-1'", L"Подошва 1:2"}, {});
        project->addSectionCurve({L"Разрез 1-1'", L"Рельеф"}, {});
        project->addSounding(
            {L"Т-1", 3, L"", L""}, {{L"1", {L"2", L"50", L"", L"1"}}, {L"2", {L"2", L"50", L"", L""}}});
    }

    std::wstring elements() const
    {
        std::wstring all;
        for (const SiteLayer& layer : layersOfPoint(*project, L"С-1"))
            all += std::wstring(layer.element) + L" ";
        return all;
    }
    std::wstring words(const wchar_t* element) const
    {
        return std::wstring(elementName(project->getNumberedLinks(), element));
    }
    std::wstring reading() const { return project->getSoundings().begin()->second[0].cells[3]; }

    Reference<DBProject> project = makeReference<DBProject>();
};

} // namespace

TEST_F(ElementEdits, NewNamesGoWhereverTheOldOnesStood)
{
    ElementsState state = elementsOf(*project);
    renameElements(state, *project, {{L"1", L"2"}, {L"2", L"1"}});
    const ElementsState restored = replacedBy(*project, state);
    putElements(*project, state);
    EXPECT_EQ(elements(), L"3 2 1 ");
    EXPECT_EQ(words(L"2"), L"Суглинок");
    EXPECT_EQ(words(L"1"), L"Песок");
    EXPECT_EQ(project->getSoundingFlags().begin()->first, L"2");
    EXPECT_EQ(reading(), L"2");
    EXPECT_EQ(project->getSectionCurves().begin()->first.second, L"Подошва 2:2");
    EXPECT_EQ(project->getNumberedLinks().size(), 6u);

    putElements(*project, restored);
    EXPECT_EQ(elements(), L"3 1 2 ");
    EXPECT_EQ(reading(), L"1");
}

TEST_F(ElementEdits, BodiesDrawnByHandAreRenamedAndMergedWithoutLoss)
{
    const auto block = [](const wchar_t* name, std::vector<GLObjectDB*> objects) {
        return new GLBlockDB({std::move(objects)}, Uuid{}, name, Uuid{});
    };
    project->getTerrainGlObjectsA().push_back(block(L"Разрез 1-1'",
        {block(L"Слой", {block(L"ИГЭ 1", {}), block(L"ИГЭ 1 ?", {}), block(L"ИГЭ 12", {})})}));
    project->getLongGlObjects().push_back(block(L"Профиль", {block(L"ИГЭ 2", {})}));
    project->addSectionCurve({L"Разрез 1-1'", L"Подошва 2:2"}, {{L"0", L"7"}});
    project->addSoundingFlag(L"2", 4);
    const auto drawn = [](const GLObjectList& list) {
        std::wstring names;
        const std::function<void(const GLObjectDB*)> tell = [&](const GLObjectDB* object) {
            names += object->getName() + L"; ";
            for (const GLObjectDB* each : dynamic_cast<const GLBlockDB*>(object)->objects())
                tell(each);
        };
        for (const GLObjectDB* object : list)
            tell(object);
        return names;
    };
    const GLObjectDB* untouched = project->getLongGlObjects().front();

    ElementsState state = elementsOf(*project);
    mergeElements(state, *project, L"1", L"2");
    const ElementsState before = replacedBy(*project, state);
    putElements(*project, state);
    EXPECT_EQ(drawn(project->getTerrainGlObjectsA()), L"Разрез 1-1'; Слой; ИГЭ 2; ИГЭ 2 ?; ИГЭ 12; ");
    EXPECT_EQ(project->getLongGlObjects().front(), untouched);
    EXPECT_EQ(findExact(project->getSoundingFlags(), L"2")->second, 4) << "of the one that stays";
    auto& curves = project->getSectionCurves();
    ASSERT_EQ(curves.size(), 3U);
    EXPECT_EQ(findExact(curves, {L"Разрез 1-1'", L"Подошва 2:2"})->second.size(), 1U);
    EXPECT_NE(findExact(curves, {L"Разрез 1-1'", L"Подошва 2:1"}), curves.end());

    putElements(*project, before);
    EXPECT_EQ(drawn(project->getTerrainGlObjectsA()), L"Разрез 1-1'; Слой; ИГЭ 1; ИГЭ 1 ?; ИГЭ 12; ");
    EXPECT_EQ(project->getSoundingFlags().size(), 2U);
    EXPECT_EQ(elements(), L"3 1 2 ");
}

TEST_F(ElementEdits, AStateOfFormerLayersGoesToWhereTheyAreNow)
{
    const ElementsState before = elementsOf(*project);
    ElementsState state = before;
    assignElement(state.links, L"С-1", 2, L"3");
    putElements(*project, state);
    EXPECT_EQ(elements(), L"3 3 2 ");
    // Another screen adds a layer at the top, gives it an element, and takes the third layer away.
    project->addLithology({L"С-1", L"0.5"}, {});
    eraseExact(project->getLithology(), {L"С-1", L"6"});
    NumberedLinks links = project->getNumberedLinks();
    moveLayerLinks(links, L"С-1", {0, 1, 2});
    assignElement(links, L"С-1", 1, L"2");
    project->setNumberedLinks(links);
    EXPECT_EQ(elements(), L"2 3 3 ");
    putElements(*project, before);
    EXPECT_EQ(elements(), L"2 3 1 ");
    putElements(*project, state);
    EXPECT_EQ(elements(), L"2 3 3 ");
}

TEST_F(ElementEdits, APartOfTheLayersBecomesAnElementOfItsOwn)
{
    ElementsState state = elementsOf(*project);
    state.elements.begin()->second.texts[0] = L"aQ";
    assignElement(state.links, L"С-1", 3, L"1");
    EXPECT_THROW(splitElement(state, L"1", L"4", {}), MException);
    ElementsState all = state;
    EXPECT_THROW(splitElement(all, L"1", L"4", {{L"С-1", 2}, {L"С-1", 3}}), MException);
    splitElement(state, L"1", L"4", {{L"С-1", 3}});
    putElements(*project, state);
    EXPECT_EQ(elements(), L"3 1 4 ");
    EXPECT_EQ(words(L"4"), L"Суглинок");
    EXPECT_EQ(findExact(project->getStrataElements(), L"4")->second.texts[0], L"aQ");
}

TEST_F(ElementEdits, NumbersFromAboveFollowTheLayers)
{
    const auto names = numbersFromAbove(*project);
    EXPECT_EQ(names,
        (std::vector<std::pair<std::wstring, std::wstring>>{{L"3", L"1"}, {L"1", L"2"}, {L"2", L"3"}}));
}

TEST_F(ElementEdits, MergedAndDeletedOnesLeaveNothingBehind)
{
    ElementsState state = elementsOf(*project);
    mergeElements(state, *project, L"1", L"2");
    putElements(*project, state);
    EXPECT_EQ(elements(), L"3 2 2 ");
    EXPECT_EQ(words(L"2"), L"Песок") << "the one that stays keeps its words";
    EXPECT_EQ(words(L"1"), L"");
    EXPECT_EQ(reading(), L"2");
    EXPECT_EQ(project->getStrataElements().size(), 2u);

    state = elementsOf(*project);
    deleteElement(state, *project, L"2");
    putElements(*project, state);
    EXPECT_EQ(elements(), L"3   ");
    EXPECT_EQ(reading(), L"");
    EXPECT_EQ(project->getNumberedLinks().size(), 2u);
}

TEST_F(ElementEdits, NamesWithoutACommonOrderAreRefusedAndOfferedInOneForm)
{
    ElementsState state = elementsOf(*project);
    for (const wchar_t* name : {L"2а", L"", L"2", L"2.1", L"a:b", L"0", L"№"})
        EXPECT_THROW(addElement(state, name), MException) << std::wstring(name).size();
    EXPECT_EQ(state.elements.size(), 3u);
    EXPECT_EQ(freeElementName(state.elements), L"4");

    StrataElementMap mixed;
    mixed.insert({L"3", {}});
    mixed.insert({L"2а", {}});
    const auto uniform = uniformNames(mixed);
    ASSERT_EQ(uniform.size(), 2u);
    std::vector<std::wstring> names;
    for (const auto& [old, name] : uniform) {
        EXPECT_EQ(shortElementName(name), old);
        names.push_back(name);
    }
    EXPECT_TRUE(haveCommonOrder(names));
    EXPECT_TRUE(uniformNames(state.elements).empty());
    renameElements(state, *project, {{L"1", L"ИГЭ-1"}, {L"2", L"ИГЭ-2"}, {L"3", L"ИГЭ-3"}});
    addElement(state, L"ИГЭ-2а");
    EXPECT_EQ(state.elements.size(), 4u);
}

TEST_F(ElementEdits, LinksStayWithTheirLayers)
{
    NumberedLinks links = project->getNumberedLinks();
    moveLayerLinks(links, L"С-1", {1, 0, 3, 2}); // one new below the first, the others changed places
    project->setNumberedLinks(links);
    project->addLithology({L"С-1", L"9"}, {});
    EXPECT_EQ(elements(), L"3  2 1 ");
    EXPECT_EQ(words(L"1"), L"Суглинок");
    moveLayerLinks(links, L"С-1", {});
    EXPECT_EQ(links.size(), 3u);
}

TEST(ElementTexts, OnlyWhatTheFileGivesBack)
{
    EXPECT_TRUE(isElementText(L"aQ_III^2"));
    for (const wchar_t* bad : {L"а", L"1 5", L"{1}", L"1–2", L"№2", L"~"})
        EXPECT_FALSE(isElementText(bad)) << std::wstring(bad).size();
    EXPECT_EQ(latinLookAlike(L"аQ_III"), L"aQ_III");
    EXPECT_EQ(latinLookAlike(L"1 5–2"), L"15-2");
    EXPECT_EQ(latinLookAlike(L"Ж"), std::nullopt);
    EXPECT_NE(elementTextProblem(L"аQ").find(L"«aQ»"), std::wstring::npos);
    EXPECT_EQ(elementTextProblem(L"aQ"), L"");
}

TEST(SoilOfDescription, TheFirstSoilAndItsState)
{
    const struct {
        const wchar_t* text;
        ElementKind kind;
        const wchar_t* state;
    } rows[] = {
        {L"Суглинок серый, тугопластичный, с прослоями песка", ElementKind::Loam, L"тугопластичный"},
        {L"Песок мелкий, желтый, средней плотности", ElementKind::Sand, L"мелкий средней плотности"},
        {L"Песок средней крупности, плотный", ElementKind::Sand, L"средней крупности плотный"},
        {L"Глина полутвердая", ElementKind::Clay, L"полутвердая"},
        {L"Насыпной грунт: суглинок", ElementKind::ManMade, L""},
        {L"Супесь", ElementKind::SandyLoam, L""},
        {L"something", ElementKind::NotGiven, L""},
        {L"", ElementKind::NotGiven, L""},
    };
    for (const auto& row : rows) {
        const LayerSoil soil = soilOfDescription(row.text);
        EXPECT_EQ(soil.kind, row.kind);
        EXPECT_EQ(soil.state, row.state);
    }
}

TEST(ElementProposals, AlikeLayersAreOneElementAndKnownOnesAreKept)
{
    const auto project = makeReference<DBProject>();
    const auto layer =
        [&](const wchar_t* point, const wchar_t* bottom, const wchar_t* index, const wchar_t* text) {
            project->addLithology({point, bottom}, {index, text});
        };
    layer(L"С-1", L"2", L"dQ_III", L"Суглинок твердый");
    layer(L"С-1", L"5", L"aQIII", L"Песок мелкий");
    layer(L"С-2", L"3", L"dQIII", L"Суглинок твердый, бурый");
    layer(L"С-2", L"6", L"aQIII", L"Песок крупный");
    layer(L"С-2", L"7", L"aQIII", L"???");
    project->addStrataElement(L"1", {});
    project->addNumberedLink(L"С-1:2", L"1");
    const ElementProposal proposal = proposeElements(*project);
    ASSERT_EQ(proposal.elements.size(), 2u);
    EXPECT_EQ(proposal.elements[0].words, L"Суглинок твердый");
    EXPECT_EQ(proposal.elements[0].layers, 2u);
    EXPECT_TRUE(proposal.elements[0].isNew);
    EXPECT_EQ(proposal.elements[0].name, L"2");
    EXPECT_EQ(proposal.elements[1].words, L"Песок крупный");
    EXPECT_EQ(proposal.layers.size(), 3u);
    EXPECT_EQ(proposal.leftOut, 1u);
    EXPECT_EQ(project->getNumberedLinks().size(), 1u) << "nothing is changed";
}
