#include "core/base/reference.h"
#include "core/counted.h"
#include "section/db_section_editor.h"

#include <gtest/gtest.h>

#include <memory>
#include <stdexcept>
#include <string>
#include <vector>

namespace
{

template <class Base>
class Coloured : public Base
{
public:
    explicit Coloured(const std::wstring& name = {})
        : Base(Uuid(), name, Uuid())
    {
    }
    const Vec3& getColor() const override { return color_; }
    void setColor(const Vec3& color) override { color_ = color; }

private:
    Vec3 color_;
};

using Object = Counted<Coloured<GLEdObjectDB>>;
using Borehole = Counted<Coloured<GLEdBoreholeDB>>;

struct Sheet : SectionEditorRecord {
};

// Both object stores keep the same rules: each case runs over either.
struct Store {
    const char* name;
    SectionObjectMap& (IDBSectionEditor::*get)();
    void (IDBSectionEditor::*add)(const std::wstring&, const std::vector<GLEdObjectDB*>&);
    void (IDBSectionEditor::*set)(const SectionObjectMap&);
    void (IDBSectionEditor::*clear)();
    BoreholeQuery (IDBSectionEditor::*query)(const std::wstring&);
};

class SectionEditor : public testing::TestWithParam<Store>
{
protected:
    SectionObjectMap& objects() { return (editor.get()->*GetParam().get)(); }
    void add(const std::wstring& section, const std::vector<GLEdObjectDB*>& list)
    {
        (editor.get()->*GetParam().add)(section, list);
    }
    void set(const SectionObjectMap& map) { (editor.get()->*GetParam().set)(map); }
    BoreholeQuery query(const std::wstring& section) { return (editor.get()->*GetParam().query)(section); }

    Reference<Object> object() { return makeReference<Object>(alive); }
    Reference<Borehole> borehole(const std::wstring& name) { return makeReference<Borehole>(alive, name); }

    int alive = 0;
    std::unique_ptr<IDBSectionEditor> editor = std::make_unique<DBSectionEditor>();
};

} // namespace

TEST_P(SectionEditor, SectionsStandByTheirNumber)
{
    for (const auto* section : {L"Разрез 10-10'", L"Разрез 2-2'", L"Профиль 2-2'", L"Разрез А-А'"})
        add(section, {});
    std::vector<std::wstring> order;
    for (const auto& [section, list] : objects())
        order.push_back(section);
    EXPECT_EQ(order,
        (std::vector<std::wstring>{L"Разрез А-А'", L"Профиль 2-2'", L"Разрез 2-2'", L"Разрез 10-10'"}));
}

TEST_P(SectionEditor, TheTwoStoresAreApart)
{
    add(L"Разрез 1-1'", {borehole(L"1").get()});
    EXPECT_EQ(editor->getObjectsA().size() + editor->getObjectsB().size(), 1U);
    EXPECT_EQ(
        editor->queryBoreholesA(L"Разрез 1-1'").size() + editor->queryBoreholesB(L"Разрез 1-1'").size(), 1U);
}

TEST_P(SectionEditor, HoldsAReferenceOnEachObjectUntilItIsReplaced)
{
    const auto held = object();
    add(L"Разрез 1-1'", {held.get(), object().get(), nullptr, held.get()});
    EXPECT_EQ(held->referenceCount(), 3);
    EXPECT_EQ(alive, 2);
    add(L"Разрез 1-1'", {object().get(), held.get()});
    EXPECT_EQ(held->referenceCount(), 2);
    EXPECT_EQ(alive, 2);
    EXPECT_EQ(objects().size(), 1U);
    (editor.get()->*GetParam().clear)();
    EXPECT_TRUE(objects().empty());
    EXPECT_EQ(alive, 1);

    add(L"Разрез 1-1'", {held.get(), object().get()});
    editor.reset();
    EXPECT_EQ(held->referenceCount(), 1);
    EXPECT_EQ(alive, 1);
}

TEST_P(SectionEditor, TakesItsOwnNamesAndListsAsArguments)
{
    add(L"Разрез 1-1'", {object().get(), object().get()});
    const auto entry = objects().begin();
    add(entry->first, entry->second);
    EXPECT_EQ(alive, 2);
    add(L"Разрез 2-2'", objects().begin()->second);
    add(L"Разрез 1-1'", {});
    EXPECT_EQ(alive, 2);
    ASSERT_EQ(objects().size(), 2U);
    EXPECT_EQ(objects().rbegin()->second.size(), 2U);
    EXPECT_EQ(objects().rbegin()->second[0]->referenceCount(), 1);
}

TEST_P(SectionEditor, AWholeMapReplacesEverything)
{
    const auto stays = object();
    add(L"Разрез 1-1'", {stays.get(), object().get()});
    set(objects());
    EXPECT_EQ(stays->referenceCount(), 2);
    EXPECT_EQ(alive, 2);

    const auto comes = object();
    set({{L"Разрез 3-3'", {stays.get(), comes.get()}}});
    EXPECT_EQ(alive, 2) << "the object that stood in the old map alone is gone";
    EXPECT_EQ(stays->referenceCount(), 2);
    EXPECT_EQ(comes->referenceCount(), 2);
    ASSERT_EQ(objects().size(), 1U);
    EXPECT_EQ(objects().begin()->first, L"Разрез 3-3'");
}

TEST_P(SectionEditor, AsksForTheBoreholesOfASection)
{
    const std::wstring section = L"Разрез 1-1'";
    add(section,
        {object().get(),
            borehole(L"1 'a").get(),
            nullptr,
            object().get(),
            borehole(L"Скв. 2'").get(),
            borehole(L" '").get()});
    add(L"Разрез 2-2'", {object().get()});
    const BoreholeQuery wanted{{section, {{L"1a", 1}, {L"Скв.2", 2}, {L"", 3}}}};
    EXPECT_EQ(query(section), wanted);
    EXPECT_TRUE(query(L"Разрез 2-2'").empty()) << "no borehole among its objects";
    EXPECT_TRUE(query(L"Разрез 3-3'").empty());
}

TEST_P(SectionEditor, ARefusedNameLeavesTheStoreAsItWas)
{
    const auto held = object();
    add(L"Разрез 1-1'", {held.get()});
    EXPECT_THROW(add(L"Разрез", {held.get()}), std::invalid_argument);
    EXPECT_THROW(add(L"Разрез 99999999999-1'", {held.get()}), std::out_of_range);
    EXPECT_THROW(query(L""), std::invalid_argument);
    EXPECT_EQ(objects().size(), 1U);
    EXPECT_EQ(held->referenceCount(), 2);
}

INSTANTIATE_TEST_SUITE_P(Stores,
    SectionEditor,
    testing::Values(Store{"A",
                        &IDBSectionEditor::getObjectsA,
                        &IDBSectionEditor::addObjectsA,
                        &IDBSectionEditor::setObjectsA,
                        &IDBSectionEditor::clearObjectsA,
                        &IDBSectionEditor::queryBoreholesA},
        Store{"B",
            &IDBSectionEditor::getObjectsB,
            &IDBSectionEditor::addObjectsB,
            &IDBSectionEditor::setObjectsB,
            &IDBSectionEditor::clearObjectsB,
            &IDBSectionEditor::queryBoreholesB}),
    [](const auto& store) { return store.param.name; });

TEST(SectionEditorLists, OwnTheModulesRecords)
{
    int alive = 0;
    {
        DBSectionEditor editor;
        for (auto* list : {&editor.getListA(), &editor.getListB(), &editor.getListC(), &editor.getListD()}) {
            EXPECT_TRUE(list->empty());
            list->push_back(std::make_unique<Counted<Sheet>>(alive));
        }
        EXPECT_EQ(alive, 4);
    }
    EXPECT_EQ(alive, 0);
}
