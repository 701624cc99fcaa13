#include "persistence/save_losses.h"

#include "core/base/text_number.h"
#include "persistence/grammar/project.h"
#include "persistence/loss_archive.h"
#include "persistence/section_marks.h"
#include "platform/ascii.h"
#include "platform/code_page.h"

#include <algorithm>

namespace
{

struct LossRow {
    SaveLoss::Kind kind;
    bool unreadable;
    std::wstring_view what;
    std::wstring_view advice;
};

using Kind = SaveLoss::Kind;

// One row a kind, in the order of the enumeration: whether the file will not open, what it is, what to do.
// clang-format off
constexpr LossRow lossRows[] = {
    {Kind::elementText, true,
     L"в тексте геологического элемента пробел или буква не из латиницы",
     L"уберите такие знаки, иначе файл не откроется"},
    {Kind::markUnread, true,
     L"у конца разреза нет отметки, а отметка его точки не число",
     L"введите отметку точки числом, иначе файл не откроется"},
    {Kind::unknownObject, true,
     L"объект чертежа, для которого в файле нет места",
     L"удалите его, иначе файл может не открыться"},
    {Kind::keyUnread, true,
     L"имя или глубина строки не читается как число",
     L"исправьте или удалите строку, иначе файл не откроется"},
    {Kind::nesting, true,
     L"слишком глубокая вложенность чертежа",
     L"разберите вложенные блоки, иначе файл не откроется"},

    {Kind::rowRefused, false,
     L"строка читается с тем же номером, что и другая",
     L"переименуйте точку, иначе после открытия строки не будет"},
    {Kind::textCut, false,
     L"нулевой знак внутри текста",
     L"после открытия текст кончится перед ним"},
    {Kind::textReplaced, false,
     L"знаки, которых нет в кодировке файла",
     L"после открытия текст изменится"},
    {Kind::byteCut, false,
     L"число больше 255 или отрицательное",
     L"после открытия останется только младший байт"},
    {Kind::markReplaced, false,
     L"отрицательная отметка конца разреза",
     L"после открытия вместо неё будет отметка точки"},
    {Kind::secondTitle, false,
     L"второй заголовок профиля",
     L"после открытия он повторит первый"},
    {Kind::sectionFlag, false,
     L"признак разреза",
     L"в файле его нет"},
    {Kind::subsidence, false,
     L"ячейка просадочности без текста или с особым заголовком",
     L"в файле один заголовок на точку и нет пустых ячеек"},
    {Kind::subsidenceNames, false,
     L"наименования просадочности без единой точки",
     L"без строк просадочности они не сохраняются"},
};
// clang-format on

struct NameRow {
    std::string_view name;
    std::wstring_view shown;
};

// What the screens call the parts of a project where people type texts. Others go by their names in the dump.
constexpr NameRow nameRows[] = {
    {"head", L"Проект"},
    {"pointRegister", L"Ведомость координат"},
    {"lithology", L"Литология"},
    {"samples", L"Пробы"},
    {"waterLevels", L"Уровни воды"},
    {"consistency", L"Консистенция"},
    {"laboratory", L"Лаборатория"},
    {"labSamples", L"Лаборатория"},
    {"soundings", L"Статическое зондирование"},
    {"subsidence", L"Просадочность"},
    {"chemistry", L"Химический анализ"},
    {"strataElements", L"Инженерно-геологические элементы"},
    {"section", L"Разрез"},

    {"projectCode", L"шифр"},
    {"projectName", L"наименование"},
    {"pointName", L"имя точки"},
    {"depth", L"глубина"},
    {"geoIndex", L"геоиндекс"},
    {"description", L"описание"},
    {"device", L"установка"},
    {"date", L"дата"},
};

std::wstring shownName(std::string_view name)
{
    for (const NameRow& row : nameRows)
        if (row.name == name)
            return std::wstring(row.shown);
    return {name.begin(), name.end()};
}

const LossRow& rowOf(Kind kind)
{
    return lossRows[static_cast<std::size_t>(kind)];
}

static_assert(std::size(lossRows) == static_cast<std::size_t>(Kind::subsidenceNames) + 1);
static_assert([] {
    for (std::size_t i = 0; i < std::size(lossRows); ++i)
        if (lossRows[i].kind != static_cast<Kind>(i))
            return false;
    return true;
}());

} // namespace

bool makesUnreadable(SaveLoss::Kind kind)
{
    return rowOf(kind).unreadable;
}

std::wstring describeLoss(const SaveLoss& loss)
{
    const LossRow& row = rowOf(loss.kind);
    std::wstring where = shownName(loss.section);
    if (!loss.key.empty())
        where.append(L" [").append(loss.key).append(L"]");
    if (!loss.field.empty() && loss.field != loss.section)
        where.append(L", ").append(shownName(loss.field));
    return where.append(L": ").append(row.what).append(L"; ").append(row.advice);
}

void LossArchive::note(SaveLoss::Kind kind, std::string_view field)
{
    note(kind, field, key_.text());
}

void LossArchive::note(SaveLoss::Kind kind, std::string_view field, const std::wstring& key)
{
    std::vector<SaveLoss>& losses = makesUnreadable(kind) ? unreadable_ : others_;
    if (losses.size() < limit_)
        losses.push_back({kind, std::string(section_), key, std::string(field)});
}

std::vector<SaveLoss> LossArchive::takeLosses()
{
    std::vector<SaveLoss> losses = std::move(unreadable_);
    const std::size_t room = std::min(limit_ - losses.size(), others_.size());
    losses.insert(losses.end(), others_.begin(), others_.begin() + static_cast<std::ptrdiff_t>(room));
    return losses;
}

std::wstring storedText(const std::wstring& text)
{
    if (std::all_of(text.begin(), text.end(), [](wchar_t c) { return c != L'\0' && codePageHolds(c); }))
        return text;
    const std::string bytes = toCodePage(text);
    return fromCodePage(std::string_view(bytes).substr(0, bytes.find('\0')));
}

void LossArchive::text(std::string_view name, const std::wstring& value)
{
    if (isPlainAscii(value))
        return;
    if (value.find(L'\0') != std::wstring::npos)
        note(Kind::textCut, name);
    if (!std::all_of(value.begin(), value.end(), codePageHolds))
        note(Kind::textReplaced, name);
}

void LossArchive::elementText(std::string_view, const std::wstring& value)
{
    // What stands behind a zero is passed over, readable or not.
    const std::string bytes = toCodePage(value);
    const auto end = std::find(bytes.begin(), bytes.end(), '\0');
    const auto readable = [](char byte) {
        return format::isElementTextByte(static_cast<std::uint8_t>(byte));
    };
    if (!std::all_of(bytes.begin(), end, readable))
        note(Kind::elementText, "texts");
    else if (end != bytes.end())
        note(Kind::textCut, "texts");
    // What stays is the byte, not the character: a quotation mark comes back as a control character.
    else if (std::any_of(value.begin(), value.end(), [](wchar_t character) { return character > 0x7A; }))
        note(Kind::textReplaced, "texts");
}

void LossArchive::objects(std::string_view name, const GLObjectList& values)
{
    for (GLObjectDB* object : values) {
        const auto walk = [this](auto row, auto& drawing) { existingObject(*this, row, drawing); };
        if (!visitDrawing(object, walk))
            note(Kind::unknownObject, name);
    }
}

void LossArchive::planes(std::string_view name, const GLObjectList& values)
{
    for (GLObjectDB* object : values)
        if (!dynamic_cast<GLPlaneDB*>(object))
            note(Kind::unknownObject, name);
}

void LossArchive::informs(std::string_view, const InformList& values)
{
    for (const InformRecord* inform : values)
        if (inform)
            existingRecord(*this, *inform);
}

void LossArchive::items(std::string_view, const std::vector<PropertyGridItem*>& values)
{
    for (const PropertyGridItem* item : values)
        if (item)
            existingRecord(*this, *item);
}

// The short name follows from the path and is made anew at every opening.
void LossArchive::stem(std::string_view, IDBProject&) { }

void LossArchive::doubledTitle(
    std::string_view, const std::wstring& a, std::string_view nameB, const std::wstring& b)
{
    text(nameB, a);
    if (a != b)
        note(Kind::secondTitle, nameB);
}

void LossArchive::subsidence(std::string_view name, SubsidenceMap& values)
{
    for (auto& [pointName, cells] : values) {
        key_ = RowKey(pointName);
        text("pointName", pointName);
        for (SubsidenceCell& cell : cells) {
            text("title", cell.title);
            fields(*this, cell);
            if (cell.text.empty() || cell.title != cells.front().title)
                note(Kind::subsidence, name);
        }
    }
    key_ = {};
}

static void findUnreadMarks(
    LossArchive& archive, IDBProject& project, const SectionPointMap& points, const SectionLineMap& lines)
{
    if (points.empty())
        return;
    PointRegister storedPoints = storedRegister(project.getPointRegister());
    SectionLineMap storedLines = storedRegister(lines);
    for (const auto& [section, ends] : points) {
        if (ends.markA < 0 || ends.markB < 0)
            archive.note(Kind::markReplaced, "mark", section);
        SectionPointMap alone;
        alone.insert({section, ends});
        alone = storedRegister(alone);
        try {
            completeSectionMarks(alone, storedLines, storedPoints);
        } catch (const std::logic_error&) {
            archive.note(Kind::markUnread, "mark", section);
        }
    }
}

std::vector<SaveLoss> findSaveLosses(IDBProject& project, std::size_t limit)
{
    LossArchive archive(limit);
    try {
        projectFields(archive, project);
    } catch (const std::length_error&) {
        archive.note(Kind::nesting, {});
    }
    archive.section("sectionPoints");
    findUnreadMarks(archive, project, project.getSectionPoints(), project.getSectionLines());
    archive.section("terrainPoints");
    findUnreadMarks(archive, project, project.getTerrainPoints(), project.getTerrainLines());
    archive.section("sections");
    if (project.getSectionFlagA())
        archive.note(Kind::sectionFlag, "sectionFlagA", {});
    if (project.getSectionFlagB())
        archive.note(Kind::sectionFlag, "sectionFlagB", {});
    archive.section("subsidence");
    if (project.getSubsidence().empty()
        && !(project.getSubsidenceNames().empty() && project.getSubsidenceGroups().empty()))
        archive.note(Kind::subsidenceNames, {}, {});
    return archive.takeLosses();
}
