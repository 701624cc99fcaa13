#include "tlxtool/check.h"

#include "db/key_text.h"
#include "dictionaries/dictionary.h"
#include "persistence/file_stem.h"
#include "persistence/format.h"
#include "persistence/grammar/project.h"
#include "persistence/save_losses.h"
#include "platform/utf8.h"
#include "site/elements.h"
#include "tlxtool/check_archive.h"

#include <algorithm>
#include <iterator>
#include <utility>

namespace
{

struct DropRow {
    std::string_view what;
    std::string_view text;
};

// The reader's words for what it leaves out, and ours.
constexpr DropRow dropRows[] = {
    {"text behind a zero byte", "текст за нулевым байтом пропущен"},
    {"drawing object of an unknown class",
        "объект чертежа неизвестного класса пропущен; всё за ним может быть прочитано неверно"},
    {"title of a subsidence row without cells", "заголовок строки просадочности без ячеек пропущен"},
    {"replaced subsidence names", "наименования просадочности заменены повторными"},
};

std::string dropText(std::string_view what)
{
    const auto row = std::find_if(
        std::begin(dropRows), std::end(dropRows), [&](const DropRow& each) { return each.what == what; });
    return std::string(row == std::end(dropRows) ? what : row->text);
}

void checkNames(const OpenedProject& opened, std::vector<Finding>& findings)
{
    constexpr std::size_t pathOffset = format::projectHead.contentOffset + 2;
    if (const auto other = otherSavingPlace(opened))
        findings.push_back({"head", pathOffset, *other});
    const std::wstring stem = fileStem(opened.project->getFilePath());
    if (opened.report.storedStem != stem)
        findings.push_back({"head",
            std::nullopt,
            "записано краткое имя «" + toUtf8(opened.report.storedStem) + "», при сохранении станет «"
                + toUtf8(stem) + "»"});
}

void checkReading(const OpenedProject& opened, std::vector<Finding>& findings)
{
    const ReadReport& report = opened.report;
    for (const ReadReport::Refusal& row : report.refusals)
        findings.push_back({std::string(row.section),
            row.begin,
            "строка «" + toUtf8(row.key)
                + "» отвергнута: она читается с тем же номером, что и другая, и при сохранении пропадёт"});
    if (report.refusalCount > report.refusals.size())
        findings.push_back(
            {{}, std::nullopt, "отвергнуто строк всего: " + std::to_string(report.refusalCount)});
    for (const ReadReport::Drop& drop : report.drops)
        findings.push_back({std::string(drop.section), drop.offset, dropText(drop.what)});
    if (report.dropCount > report.drops.size())
        findings.push_back({{}, std::nullopt, "пропусков всего: " + std::to_string(report.dropCount)});
}

void checkEnd(const OpenedProject& opened, std::vector<Finding>& findings)
{
    const std::size_t end = opened.report.position;
    if (end < opened.bytes.size())
        findings.push_back({{},
            end,
            "за концом проекта лишние байты (" + std::to_string(opened.bytes.size() - end)
                + "), при сохранении они пропадут"});
}

// The offset in the file of what a save would write at this offset, where the two still run in parallel.
std::optional<std::size_t> offsetInFile(
    std::optional<std::size_t> offset, const std::optional<ByteDifference>& difference)
{
    if (!offset || !difference || *offset < difference->begin)
        return offset;
    if (*offset < difference->endWhenSaved)
        return std::nullopt;
    return *offset - difference->endWhenSaved + difference->endInFile;
}

void checkContent(const OpenedProject& opened,
    const std::optional<ByteDifference>& difference,
    std::vector<Finding>& findings)
{
    CheckArchive archive(format::projectHead.contentOffset);
    const std::vector<SaveLoss> losses = findSaveLosses(*opened.project);
    for (const SaveLoss& loss : losses)
        archive.wantPlace(loss.section, loss.key);
    projectFields(archive, *opened.project);
    for (const SaveLoss& loss : losses)
        findings.push_back({loss.section,
            offsetInFile(archive.placeOf(loss.section, loss.key), difference),
            "не вернётся после сохранения: " + toUtf8(describeLoss(loss))});
    for (Finding& finding : archive.takeFindings()) {
        finding.offset = offsetInFile(finding.offset, difference);
        findings.push_back(std::move(finding));
    }
}

// What a laboratory cannot have measured.
void checkLaboratory(IDBProject& project, std::vector<Finding>& findings)
{
    const SiteLaboratory laboratory(project, languageRussian);
    for (const SiteSample& sample : laboratory.samples())
        for (const Remark& remark : sample.result.remarks)
            if (remark.kind == Remark::Impossible)
                findings.push_back({"labSamples",
                    std::nullopt,
                    "проба «" + toUtf8(keyText(*sample.key)) + "», " + remark.cell + ": "
                        + toUtf8(remark.text)});
}

} // namespace

std::vector<Finding> checkProject(OpenedProject& opened)
{
    std::vector<Finding> findings;
    const auto problem = decode(opened);
    checkReading(opened, findings);
    if (problem) {
        findings.push_back(*problem);
        return findings;
    }
    checkNames(opened, findings);
    checkEnd(opened, findings);
    const auto difference = differenceOnSave(opened);
    checkContent(opened, difference, findings);
    checkLaboratory(*opened.project, findings);
    if (difference)
        findings.push_back({std::string(sectionAt(opened, difference->begin)),
            difference->begin,
            "отсюда сохранённый файл отличался бы от этого"});
    std::stable_sort(findings.begin(), findings.end(), [](const Finding& a, const Finding& b) {
        return a.offset.value_or(0) < b.offset.value_or(0);
    });
    return findings;
}
