#include "tlxtool/messages.h"

#include "platform/system_text.h"
#include "platform/utf8.h"

#include <algorithm>
#include <string_view>
#include <system_error>

namespace
{

struct StepRow {
    FileStep step;
    std::string_view text;
};

// One row a step, in the order of the enumeration.
constexpr StepRow stepRows[] = {
    {FileStep::Done, "готово"},
    {FileStep::Open, "не открывается, проверьте имя и права"},
    {FileStep::NotARegularFile, "это не файл, укажите имя файла"},
    {FileStep::TooLarge, "слишком велик для проекта, укажите другой файл"},
    {FileStep::Read, "не читается, проверьте диск"},
    {FileStep::CreateTemporary, "в папке нельзя создать файл, проверьте место и права"},
    {FileStep::Write, "не записан, освободите место на диске"},
    {FileStep::Flush, "не записан, освободите место на диске"},
    {FileStep::Replace, "не заменён, закройте его в других программах"},
    {FileStep::FlushFolder, "записан, но диск этого не подтвердил, повторите"},
    {FileStep::CreateFolder, "папка не создана, создайте её сами"},
};

static_assert(std::size(stepRows) == static_cast<std::size_t>(FileStep::CreateFolder) + 1);
static_assert([] {
    for (std::size_t i = 0; i < std::size(stepRows); ++i)
        if (stepRows[i].step != static_cast<FileStep>(i))
            return false;
    return true;
}());

} // namespace

std::string toText(const Finding& finding)
{
    std::string text = finding.section;
    if (finding.offset)
        text.append(text.empty() ? "байт " : ", байт ").append(std::to_string(*finding.offset));
    return text.append(text.empty() ? "" : ": ").append(finding.text);
}

std::string describe(const FileResult& failure)
{
    std::string text(stepRows[static_cast<std::size_t>(failure.step)].text);
    if (!failure.reason.empty())
        text.append(" (").append(toUtf8(failure.reason)).append(")");
    if (failure.targetDamaged)
        text.append("; прежнее содержимое файла испорчено");
    return oneLine(std::move(text));
}

std::string systemReason(int error)
{
    return toUtf8(fromSystemText(std::generic_category().message(error)));
}

std::string oneLine(std::string text)
{
    std::replace_if(
        text.begin(), text.end(), [](char character) { return character == '\n' || character == '\r'; }, ' ');
    return text;
}
