#include "support/random_project.h"
#include "tlxtool/diff.h"
#include "tlxtool/opened_bytes.h"

#include <gtest/gtest.h>

#include <functional>

namespace
{

Reference<DBProject> site()
{
    auto project = projectInPlace();
    project->addPointRegisterEntry({L"1", 1}, {{}});
    project->addLithology({L"1", L"1.5"}, {L"aQ", L"Песок"});
    project->addLithology({L"1", L"2.5"}, {L"bQ", L"Глина"});
    return project;
}

Reference<GLPlaneDB> plane(std::uint32_t number, float x)
{
    return makeReference<GLPlaneDB>(
        GLPlaneData{{x, 0, 0}, {}, {}}, Uuid{{number, 0, 0, 0}}, L"GLPlaneDB", Uuid());
}

} // namespace

TEST(Diff, NamesWhatWasAddedRemovedAndChanged)
{
    struct Row {
        std::function<void(DBProject&)> change;
        std::string text;
    };
    const Row rows[] = {
        {[](DBProject&) {}, ""},
        {[](DBProject& project) {
             project.addLithology({L"1", L"2"}, {});
         },
            "lithology: добавлено 1, удалено 0, изменено 0\n  + 1 / 2\n"},
        {[](DBProject& project) { project.removeLithologyOfPoint(L"1"); },
            "lithology: добавлено 0, удалено 2, изменено 0\n  - 1 / 1.5\n  - 1 / 2.5\n"},
        {[](DBProject& project) { project.getLithology().begin()->second.description = L"Супесь"; },
            "lithology: добавлено 0, удалено 0, изменено 1\n  ~ 1 / 1.5\n      description: \"Песок\" -> "
            "\"Супесь\"\n"},
        // The kind is no part of a point's identity.
        {[](DBProject& project) {
             project.setPointRegister({{{L"1", 3}, {{}, {}}}});
         },
            "pointRegister: добавлено 0, удалено 0, изменено 1\n  ~ 1\n      pointKind: 1 -> 3\n      rows: "
            "было строк "
            "1, стало 2\n"},
        {[](DBProject& project) { project.setProjectCode(L"Ш-2"); },
            "projectCode: \"ШифрXXXX\" -> \"Ш-2\"\n"},
        {[](DBProject& project) { project.getSectionViewQuad()[2] = 7; }, "sectionViewQuad[2]: 0 -> 7\n"},
    };
    for (const Row& row : rows) {
        const auto before = site();
        const auto after = site();
        row.change(*after);
        EXPECT_EQ(diffProjects(*before, *after), row.text);
    }
}

TEST(Diff, FindsDrawingObjectsByTheirIdentifier)
{
    const auto before = projectInPlace();
    const auto after = projectInPlace();
    before->setTerrainGlObjectsB({plane(1, 1).detach(), plane(2, 1).detach()});
    after->setTerrainGlObjectsB({plane(2, 5).detach(), plane(3, 1).detach()});
    EXPECT_EQ(diffProjects(*before, *after),
        "terrainGlObjectsB: добавлено 1, удалено 1, изменено 1\n"
        "  - 00000001-0000-0000-0000-000000000000\n"
        "  + 00000003-0000-0000-0000-000000000000\n"
        "  ~ 00000002-0000-0000-0000-000000000000\n"
        "      pointA.x: 1.0 -> 5.0\n");
}

TEST(Diff, EveryFieldCounts)
{
    // What differs in the bytes differs in the text, and only that.
    for (std::uint32_t seed = 1; seed <= 10; ++seed) {
        const auto a = reopened(*randomProject(seed, true));
        const auto b = reopened(*randomProject(seed, true));
        EXPECT_EQ(diffProjects(*a, *b), "") << "seed " << seed;
    }
    const auto a = reopened(*randomProject(1, true));
    const auto b = reopened(*randomProject(2, true));
    const std::string text = diffProjects(*a, *b);
    for (const char* name :
        {"labValueB", "soundings", "terrainGlObjectsA", "longInforms", "strataElements", "chemistry"})
        EXPECT_NE(text.find(name), std::string::npos) << name;
}
