#include "tlxtool/messages.h"

#include "platform/system_text.h"
#include "platform/utf8.h"

#include <algorithm>
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

struct ReasonRow {
    std::string_view reason;
    std::string_view text;
};

constexpr ReasonRow reasonRows[] = {
    {"invalid vector<T> subscript", "файл обрывается или испорчен счётчик: за этим местом данных не хватает"},
    {"invalid map<K, T> key", "в тексте геологического элемента пробел или буква не из латиницы"},
    {"invalid stoi argument", "имя без букв не читается как целое число"},
    {"stoi argument out of range", "имя без букв больше любого целого числа"},
    {"invalid stof argument", "глубина или отметка не читается как число"},
    {"stof argument out of range", "глубина или отметка вне пределов числа"},
    {"nesting too deep", "чертёж вложен глубже, чем бывает: файл испорчен"},
};

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

std::string describeReadFailure(std::string_view reason)
{
    const auto row = std::find_if(std::begin(reasonRows), std::end(reasonRows), [&](const ReasonRow& each) {
        return each.reason == reason;
    });
    return std::string(row == std::end(reasonRows) ? reason : row->text);
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
