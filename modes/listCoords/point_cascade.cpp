#include "listCoords/point_cascade.h"

#include "listCoords/named_registers.h"
#include "persistence/section_marks.h"

namespace
{

template <class Visitor>
void forEachRegister(Visitor visit)
{
    std::apply([&](const auto&... each) { (visit(each), ...); }, namedRegisters);
}

std::wstring unreadEnd(const SectionPointMap& points, SectionLineMap& lines, PointRegister& pointRegister)
{
    for (const auto& [section, ends] : points) {
        SectionPointMap alone;
        alone.insert({section, ends});
        try {
            completeSectionMarks(alone, lines, pointRegister);
        } catch (const std::logic_error&) {
            return section;
        }
    }
    return {};
}

} // namespace

std::vector<PointUse> findPointUses(IDBProject& project, const std::vector<std::wstring>& pointNames)
{
    const WantedNames names(project, pointNames);
    std::vector<PointUse> uses;
    forEachRegister([&](const auto& part) {
        if (const std::size_t rows = part.count(project, names.of(part)); rows > 0)
            uses.push_back({part.title, rows});
    });
    return uses;
}

std::wstring sectionWithoutMark(IDBProject& project)
{
    PointRegister& points = project.getPointRegister();
    const std::wstring section = unreadEnd(project.getSectionPoints(), project.getSectionLines(), points);
    return section.empty() ? unreadEnd(project.getTerrainPoints(), project.getTerrainLines(), points)
                           : section;
}

static std::wstring unmarkedEnd(const std::wstring& section)
{
    return L"на конце сечения «" + section
        + L"» оказалась бы точка без числа в абсолютной отметке, и файл проекта перестал бы"
          L" открываться; сначала введите отметку";
}

// Makes the change; where it says why not, or leaves a section whose mark nobody can read, all is put back.
template <class Change>
static std::wstring changeOrPutBack(
    IDBProject& project, const std::vector<std::wstring>& pointNames, Change change)
{
    const RegistersCopy before(project, pointNames);
    const bool wereAllMarked = sectionWithoutMark(project).empty();
    std::wstring refusal = change();
    if (refusal.empty() && wereAllMarked)
        if (const std::wstring section = sectionWithoutMark(project); !section.empty())
            refusal = unmarkedEnd(section);
    if (!refusal.empty())
        before.putBack(project);
    return refusal;
}

std::wstring renamePoint(IDBProject& project, const std::wstring& oldName, const std::wstring& newName)
{
    const std::wstring from = oldName;
    const std::wstring to = newName;
    return changeOrPutBack(project, {from}, [&]() -> std::wstring {
        const WantedNames names(project, {from});
        if (!Keyed<&IDBProject::getPointRegister>{}.rename(project, from, to))
            return L"такое имя уже занято или не читается";
        using Links = InKeys<BeforeColon>;
        if (!canBeLinked(to) && Links::count(project.getNumberedLinks(), {from}) > 0)
            return L"слои точки отнесены к элементам, а имя с двоеточием эту связь оборвало бы";
        // No point bore the new name, so links under it are left over from a time before.
        Links::remove(project.getNumberedLinks(), {to});
        std::wstring_view refusing;
        forEachRegister([&](const auto& part) {
            if (refusing.empty() && !names.of(part).empty() && !part.rename(project, from, to))
                refusing = part.title;
        });
        if (refusing.empty())
            return {};
        return L"в реестре «" + std::wstring(refusing)
            + L"» под этим именем, или под именем с тем же числом, уже есть строки";
    });
}

// What is left of the rows without the points, in a copy.
template <class Place, class Map>
static Map withoutPoints(Map rows, const PointNames& names)
{
    Place::remove(rows, names);
    return rows;
}

std::wstring removalRefusal(IDBProject& project, const std::vector<std::wstring>& pointNames)
{
    const bool hasEnds = !project.getSectionPoints().empty() || !project.getTerrainPoints().empty();
    if (!hasEnds || !sectionWithoutMark(project).empty())
        return {};
    const PointNames names(pointNames.begin(), pointNames.end());
    PointRegister points = withoutPoints<InKeys<WholeKey>>(project.getPointRegister(), names);
    const auto unmarked = [&](const SectionPointMap& ends, const SectionLineMap& lines) {
        SectionLineMap lineLeft = withoutPoints<InLines>(lines, names);
        return unreadEnd(withoutPoints<AtEnds>(ends, names), lineLeft, points);
    };
    std::wstring section = unmarked(project.getSectionPoints(), project.getSectionLines());
    if (section.empty())
        section = unmarked(project.getTerrainPoints(), project.getTerrainLines());
    return section.empty() ? std::wstring() : unmarkedEnd(section);
}

std::wstring removePoints(IDBProject& project, const std::vector<std::wstring>& pointNames)
{
    std::wstring refusal = removalRefusal(project, pointNames);
    if (!refusal.empty())
        return refusal;
    const WantedNames names(project, pointNames);
    InKeys<WholeKey>::remove(project.getPointRegister(), names.all);
    forEachRegister([&](const auto& part) { part.remove(project, names.of(part)); });
    return {};
}
