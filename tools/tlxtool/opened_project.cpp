#include "tlxtool/opened_project.h"

#include "core/base/mexception.h"
#include "persistence/format.h"
#include "persistence/project_codec.h"
#include "persistence/project_file.h"
#include "persistence/read_failure.h"
#include "platform/files.h"
#include "platform/system_text.h"
#include "platform/utf8.h"
#include "tlxtool/tool_error.h"

#include <algorithm>
#include <exception>
#include <span>

OpenedProject loadFile(const std::string& argument)
{
    OpenedProject opened;
    opened.path = fromSystemText(argument);
    opened.name = toUtf8(opened.path);
    if (const FileResult result = readFile(opened.path, opened.bytes); !result)
        throw ToolError(opened.name + ": " + describe(result));
    return opened;
}

// The head in front of the content: the signature, one byte that nobody looks at, the version.
static std::optional<Finding> headProblem(const std::vector<std::uint8_t>& bytes)
{
    constexpr format::Head head = format::projectHead;
    const auto sameByte = [](char expected, std::uint8_t found) {
        return static_cast<std::uint8_t>(expected) == found;
    };
    const auto differing =
        std::mismatch(head.signature.begin(), head.signature.end(), bytes.begin(), bytes.end(), sameByte);
    if (differing.first != head.signature.end())
        return Finding{"head",
            static_cast<std::size_t>(differing.second - bytes.begin()),
            "это не проект Tellurix: нет его подписи; укажите файл TLX"};
    if (bytes.size() < head.contentOffset)
        return Finding{"head", bytes.size(), "файл обрывается в заголовке; возьмите копию .bak"};
    std::uint32_t version = 0;
    for (std::size_t i = 4; i > 0; --i)
        version = version << 8U | bytes[head.versionOffset + i - 1];
    if (version != head.version)
        return Finding{"head",
            head.versionOffset,
            "версия файла " + std::to_string(version) + ", читается только " + std::to_string(head.version)
                + "; откройте его в программе, чтобы она его преобразовала"};
    return std::nullopt;
}

std::optional<Finding> decode(OpenedProject& opened)
{
    if (auto problem = headProblem(opened.bytes))
        return problem;
    try {
        opened.project = readProject(opened.path, opened.bytes, opened.report);
        return std::nullopt;
    } catch (const MException& failure) {
        // The general message of the windows names neither place nor reason; the report does.
        const std::string& reason = opened.report.failure;
        return Finding{std::string(opened.report.section),
            opened.report.position,
            reason.empty() ? oneLine(toUtf8(failure.message())) : describeReadFailure(reason)};
    }
}

OpenedProject openProject(const std::string& argument)
{
    OpenedProject opened = loadFile(argument);
    if (const auto problem = decode(opened))
        throw ToolError(opened.name + ": " + toText(*problem));
    return opened;
}

std::size_t commonPrefix(const std::vector<std::uint8_t>& a, const std::vector<std::uint8_t>& b)
{
    const auto ends = std::mismatch(a.begin(), a.end(), b.begin(), b.end());
    return static_cast<std::size_t>(ends.first - a.begin());
}

std::optional<ByteDifference> differenceOnSave(const OpenedProject& opened)
{
    const std::span<const std::uint8_t> content(opened.bytes.data(), opened.report.position);
    const std::vector<std::uint8_t> saved = encodeProject(*opened.project);
    const auto ends = std::mismatch(content.begin(), content.end(), saved.begin(), saved.end());
    if (ends.first == content.end() && ends.second == saved.end())
        return std::nullopt;
    const auto begin = static_cast<std::size_t>(ends.first - content.begin());
    const std::size_t longest = std::min(content.size(), saved.size()) - begin;
    std::size_t common = 0;
    while (common < longest && content[content.size() - 1 - common] == saved[saved.size() - 1 - common])
        ++common;
    return ByteDifference{begin, content.size() - common, saved.size() - common};
}

std::string_view sectionAt(const OpenedProject& opened, std::size_t offset)
{
    if (offset < format::projectHead.contentOffset)
        return "head";
    // A file that ends just before the byte fails in the section that wants it.
    const auto scratch = makeReference<DBProject>();
    ReadReport report;
    try {
        decodeProject(std::span(opened.bytes).first(offset), *scratch, report);
    } catch (const std::exception&) {
        return report.section;
    }
    return report.section;
}

static std::wstring fileName(std::wstring_view path)
{
    return std::wstring(path.substr(path.find_last_of(L"\\/") + 1));
}

std::optional<std::string> otherSavingPlace(const OpenedProject& opened)
{
    const std::wstring& stored = opened.project->getFilePath();
    if (fileName(stored) == fileName(opened.path))
        return std::nullopt;
    return "записан путь «" + toUtf8(stored)
        + "»: программа сохранит проект под этим именем, а не в открытый файл";
}
