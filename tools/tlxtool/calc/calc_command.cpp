#include "tlxtool/calc/calc_command.h"

#include "platform/utf8.h"
#include "site/elements.h"
#include "tlxtool/commands.h"
#include "tlxtool/opened_project.h"
#include "tlxtool/tool_error.h"

#include <cmath>

namespace
{

struct SectionRow {
    const char* key;
    Results (*results)(const CalcContext&);
};

// In the order in which they are printed.
constexpr SectionRow sectionRows[] = {
    {"samples", samplesResults},
    {"elements", elementsResults},
    {"soundings", soundingsResults},
    {"piles", pilesResults},
    {"subsidence", subsidenceResults},
    {"chemistry", chemistryResults},
};

constexpr int indentation = 1;

int languageOf(const std::string& name)
{
    if (name == "ru")
        return 0;
    if (name == "uk")
        return 1;
    throw ToolError("неизвестный язык «" + name + "»: есть ru и uk");
}

} // namespace

Results numberResult(const Number& number)
{
    return number && std::isfinite(*number) ? Results(*number) : Results();
}

Results textResult(std::wstring_view text)
{
    return toUtf8(text);
}

Results remarksResult(const Remarks& remarks)
{
    Results list = Results::array();
    for (const Remark& remark : remarks)
        list.push_back({{"cell", remark.cell},
            {"kind", remarkKindName(remark.kind)},
            {"text", textResult(remark.text)}});
    return list;
}

Results calculateAll(IDBProject& project, int language)
{
    const SiteLaboratory laboratory(project, language);
    const CalcContext context{project, laboratory, language};
    Results all = Results::object();
    for (const SectionRow& row : sectionRows)
        all[row.key] = row.results(context);
    return all;
}

int runCalc(Output& output, const std::string& file, const std::string& language)
{
    const int number = languageOf(language);
    const OpenedProject opened = openProject(file);
    // A text that is no valid UTF-16 in a damaged file is printed as the replacement character.
    output.line(calculateAll(*opened.project, number)
                    .dump(indentation, ' ', false, Results::error_handler_t::replace));
    return exitStatus::good;
}
