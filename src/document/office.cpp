#include "document/office.h"

#include "platform/files.h"
#include "platform/safe_write.h"
#include "platform/utf8.h"

#include <algorithm>
#include <optional>
#include <string_view>

namespace
{

constexpr std::size_t mostPeople = 6;
constexpr std::size_t mostAgreed = 2;
constexpr const wchar_t* projectOfficeName = L"office.ini";

// Texts by their keys in the file.
struct TextKey {
    std::wstring_view key;
    std::wstring Office::*text;
};
constexpr TextKey textKeys[] = {
    {L"company", &Office::company},
    {L"city", &Office::city},
    {L"stage", &Office::stage},
    {L"logo", &Office::logo},
    {L"date", &Office::date},
};

// A value keeps to its line.
std::wstring oneLine(std::wstring text)
{
    std::replace_if(
        text.begin(), text.end(), [](wchar_t character) { return character < L' '; }, L' ');
    return text;
}

std::optional<int> digitOf(std::wstring_view text)
{
    if (text.size() != 1 || text.front() < L'0' || text.front() > L'9')
        return std::nullopt;
    return text.front() - L'0';
}

void readLine(Office& office, std::wstring_view line)
{
    const std::size_t sign = line.find(L'=');
    if (sign == std::wstring_view::npos)
        return;
    const std::wstring_view key = line.substr(0, sign);
    const std::wstring_view value = line.substr(sign + 1);
    for (const TextKey& text : textKeys)
        if (key == text.key)
            office.*text.text = value;
    const auto number = digitOf(value);
    if (key == L"signatures" && number && *number <= Office::Nowhere)
        office.signatures = static_cast<Office::Signatures>(*number);
    if (key == L"frame" && number)
        office.hasFrame = *number != 0;
    // "person=role|name"
    const std::size_t bar = value.find(L'|');
    if (bar == std::wstring_view::npos)
        return;
    const Office::Person person{std::wstring(value.substr(0, bar)), std::wstring(value.substr(bar + 1))};
    if (key == L"person" && office.people.size() < mostPeople)
        office.people.push_back(person);
    if (key == L"agreed" && office.agreed.size() < mostAgreed)
        office.agreed.push_back(person);
}

std::wstring folderOf(const std::wstring& path)
{
    const std::size_t end = path.find_last_of(L"\\/");
    return end == std::wstring::npos ? std::wstring() : path.substr(0, end + 1);
}

std::wstring projectOfficePath(const std::wstring& projectFolder)
{
    return projectFolder + L"/" + projectOfficeName;
}

} // namespace

Office emptyOffice()
{
    Office office;
    office.stage = L"П";
    for (const wchar_t* role : {L"Разработал", L"Проверил", L"Н. контр.", L"Утвердил"})
        office.people.push_back({role, {}});
    return office;
}

std::wstring officePath(const std::wstring& programFolder)
{
    return programFolder + L"/tellurix19_office.ini";
}

Office readOffice(const std::wstring& path)
{
    std::vector<std::uint8_t> bytes;
    if (!readFile(path, bytes))
        return emptyOffice();
    const std::optional<std::wstring> read =
        fromUtf8({reinterpret_cast<const char*>(bytes.data()), bytes.size()});
    if (!read)
        return emptyOffice();
    Office office;
    std::wstring_view rest = *read;
    while (!rest.empty()) {
        const std::size_t end = std::min(rest.find(L'\n'), rest.size());
        std::wstring_view line = rest.substr(0, end);
        if (!line.empty() && line.back() == L'\r')
            line.remove_suffix(1);
        readLine(office, line);
        rest.remove_prefix(std::min(end + 1, rest.size()));
    }
    if (office.people.empty())
        office.people = emptyOffice().people;
    // A name alone goes with its folder from place to place.
    if (!office.logo.empty() && folderOf(office.logo).empty())
        office.logo = folderOf(path) + office.logo;
    return office;
}

bool isOfficeOfProject(const std::wstring& programFolder, const std::wstring& projectFolder)
{
    return !projectFolder.empty() && !fileExists(officePath(programFolder))
        && fileExists(projectOfficePath(projectFolder));
}

Office officeInForce(const std::wstring& programFolder, const std::wstring& projectFolder)
{
    return readOffice(isOfficeOfProject(programFolder, projectFolder) ? projectOfficePath(projectFolder)
                                                                      : officePath(programFolder));
}

Office officeForFile(const std::wstring& programFolder, const std::wstring& projectFile)
{
    const std::wstring folder = folderOf(projectFile);
    return officeInForce(programFolder, folder.empty() ? L"." : folder);
}

FileResult writeOffice(const std::wstring& path, const Office& office)
{
    std::wstring text;
    for (const TextKey& key : textKeys)
        text += std::wstring(key.key) + L"=" + oneLine(office.*key.text) + L"\n";
    text += L"signatures=" + std::to_wstring(static_cast<int>(office.signatures)) + L"\n";
    text += std::wstring(L"frame=") + (office.hasFrame ? L"1" : L"0") + L"\n";
    const auto addPeople = [&text](const wchar_t* key, const std::vector<Office::Person>& people) {
        for (const Office::Person& person : people) {
            std::wstring role = oneLine(person.role);
            std::replace(role.begin(), role.end(), L'|', L'/');
            text += key + role + L"|" + oneLine(person.name) + L"\n";
        }
    };
    addPeople(L"person=", office.people);
    addPeople(L"agreed=", office.agreed);
    const std::string bytes = toUtf8(text);
    return replaceFile(path, {reinterpret_cast<const std::uint8_t*>(bytes.data()), bytes.size()});
}
