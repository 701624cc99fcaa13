#include "persistence/read_archive.h"

#include "db/project_controller.h"
#include "persistence/file_stem.h"
#include "persistence/section_marks.h"
#include "platform/code_page.h"
#include "platform/uuid.h"

#include <stdexcept>
#include <unordered_map>
#include <utility>

ReadArchive::ReadArchive(
    std::span<const std::uint8_t> bytes, std::size_t position, ReadReport& report, const WorkSharing& sharing)
    : bytes_(bytes)
    , position_(position)
    , report_(report)
    , sharing_(sharing)
{
    if (position > bytes.size())
        failPastEnd();
}

void ReadArchive::failPastEnd()
{
    throw std::out_of_range("invalid vector<T> subscript");
}

// Here and by function, so that what a thread needs is compiled once and not once a register.
std::future<void> ReadArchive::readAside(std::function<void()> read)
{
    return inAnotherThread(std::move(read));
}

std::span<const std::uint8_t> ReadArchive::readTextBytes()
{
    const std::uint32_t length = readWord();
    if (length == 0)
        return {};
    const std::uint8_t* first = take(length);
    const void* zero = std::memchr(first, 0, length);
    if (!zero)
        return {first, length};
    drop("text behind a zero byte");
    return {first, static_cast<const std::uint8_t*>(zero)};
}

void ReadArchive::text(std::string_view, std::wstring& value)
{
    const auto bytes = readTextBytes();
    fromCodePage(bytes.data(), bytes.size(), value);
}

void ReadArchive::elementText(std::string_view, std::wstring& value)
{
    const auto bytes = readTextBytes();
    value.resize(bytes.size());
    for (std::size_t i = 0; i < bytes.size(); ++i) {
        // A blank or a Cyrillic letter is written without a word and makes the file unreadable: the table of
        // these texts holds no entry for it. Files in the field depend on that reading.
        if (!format::isElementTextByte(bytes[i]))
            throw std::out_of_range("invalid map<K, T> key");
        value[i] = static_cast<wchar_t>(bytes[i]);
    }
}

void ReadArchive::guid(std::string_view, Uuid& value)
{
    const auto bytes = readTextBytes();
    value = uuidFromText(std::string_view(reinterpret_cast<const char*>(bytes.data()), bytes.size()));
}

void ReadArchive::blob(std::string_view, std::vector<std::uint8_t>& value)
{
    const std::uint32_t length = readWord();
    const std::uint8_t* first = take(length);
    value.assign(first, first + length);
}

void ReadArchive::objects(std::string_view, GLObjectList& values)
{
    references(values, [this] {
        std::uint8_t code = 0;
        byte({}, code);
        Reference<GLObjectDB> object;
        const bool known = anyDrawingClass([&](auto row) {
            if (static_cast<std::uint8_t>(row.code) != code)
                return false;
            object = readObject(*this, row);
            return true;
        });
        if (!known)
            drop("drawing object of an unknown class");
        return object;
    });
}

void ReadArchive::planes(std::string_view, GLObjectList& values)
{
    references(values, [this] { return readPlane(*this); });
}

void ReadArchive::informs(std::string_view, InformList& values)
{
    references(values, [this] { return readInform(*this); });
}

void ReadArchive::items(std::string_view, std::vector<PropertyGridItem*>& values)
{
    references(values, [this] { return Reference<PropertyGridItem>(readItem(*this)); });
}

void ReadArchive::stem(std::string_view name, IDBProject& project)
{
    text(name, report_.storedStem);
    project.setFileStem(fileStem(project.getFilePath()));
}

void ReadArchive::complete(SectionPointMap& points, SectionLineMap& lines, PointRegister& pointRegister)
{
    completeSectionMarks(points, lines, pointRegister);
}

void ReadArchive::subsidence(std::string_view, SubsidenceMap& values)
{
    const std::uint32_t count = readWord();
    expect(count, smallestSize<std::wstring>() * 3);
    for (std::uint32_t i = 0; i < count; ++i) {
        std::wstring pointName;
        std::wstring title;
        std::vector<SubsidenceCell> cells;
        text("pointName", pointName);
        text("title", title);
        list("cells", cells);
        // A row without cells keeps its place: the two maps behind this one are in the file because of it.
        values.try_emplace(pointName);
        if (cells.empty() && !title.empty())
            drop("title of a subsidence row without cells");
        for (SubsidenceCell& cell : cells) {
            cell.title = title;
            applySubsidenceCell(values, pointName, cell);
        }
    }
}

void ReadArchive::subsidenceNames(std::string_view, SubsidenceNames& values)
{
    // The register is searched by exact text, not by its ordering: an index keeps that from taking the square
    // of the number of names.
    std::unordered_map<std::wstring, SubsidenceNames::iterator> byText;
    const std::uint32_t count = readWord();
    expect(count, smallestSize<std::wstring>() + smallestSize<std::vector<std::wstring>>());
    for (std::uint32_t i = 0; i < count; ++i) {
        const std::size_t begin = position_;
        std::pair<std::wstring, std::vector<std::wstring>> entry;
        entryFields(*this, {"name", "names"}, entry.first, entry.second);
        const auto known = byText.find(entry.first);
        if (known != byText.end()) {
            known->second->second = std::move(entry.second);
            drop("replaced subsidence names");
            continue;
        }
        const std::wstring name = entry.first;
        const auto [place, inserted] = values.insert(SubsidenceNames::value_type(std::move(entry)));
        if (inserted)
            byText.emplace(name, place);
        else
            report_.addRefusal(name, begin, position_);
    }
}
