#include "tlxtool/command_line.h"

#include "core/base/mexception.h"
#include "platform/system_text.h"
#include "platform/utf8.h"
#include "tlxtool/commands.h"
#include "tlxtool/terminal.h"
#include "tlxtool/tool_error.h"

#include <CLI/CLI.hpp>

#include <clocale>
#include <exception>
#include <new>
#include <string>
#include <vector>

namespace
{

constexpr const char* description =
    "tlxtool: проекты Tellurix (.TLX) из командной строки: просмотр, проверка, перевод в JSON и обратно.";

constexpr const char* exitStatuses = "Код завершения: 0 всё в порядке; 1 check нашёл замечания или diff "
                                     "нашёл различия; 2 работа не выполнена.";

// What the commands take; filled by the parser.
struct Arguments {
    std::vector<std::string> files;
    std::string first;
    std::string second;
    std::string folder;
    OfficeFiles office;
    std::string language = "ru";
    bool compact = false;
    DrawRequest draw;
};

CLI::App& addCommand(CLI::App& tool, const std::string& name, const std::string& text)
{
    CLI::App& command = *tool.add_subcommand(name, text);
    command.group("Команды");
    command.set_help_flag("-h,--help", "показать эту справку")->group("Ключи");
    command.footer(exitStatuses);
    return command;
}

void addFiles(CLI::App& command, Arguments& arguments)
{
    command.add_option("FILE", arguments.files, "файлы проектов")->required()->option_text(" ");
}

void addName(CLI::App& command, const std::string& name, std::string& value, const std::string& text)
{
    command.add_option(name, value, text)->required()->option_text(" ");
}

void addDraw(CLI::App& tool, DrawRequest& draw)
{
    CLI::App& command = addCommand(tool, "draw", "чертежи в файлы PDF, SVG, DXF, PNG (по расширению)");
    addName(command, "FILE", draw.file, "файл проекта");
    addName(command, "WHAT", draw.what, "что чертить: column (колонка)");
    const auto option = [&command](const char* name, auto& value, const char* text, const char* hint) {
        return command.add_option(name, value, text)->option_text(hint)->group("Ключи");
    };
    option("--point", draw.point, "имя точки", "NAME");
    command.add_flag("--all", draw.allPoints, "все точки проекта")->group("Ключи");
    option("--out", draw.out, "файл; несколько листов SVG, DXF, PNG получают номера", "PATH")->required();
    option("--scale", draw.scale, "вертикальный масштаб 1:N, от 10 до 500; без ключа по листу", "N");
    option("--sheet", draw.sheet, "формат листа: A4, A3, A2, A1, A4x3, A3x3 …", "NAME");
    command.add_flag("--landscape", draw.isLandscape, "лист поперёк")->group("Ключи");
    option("--language", draw.language, "язык надписей: ru или uk", "ru|uk");
    option("--dpi", draw.dotsPerInch, "точек на дюйм для PNG", "N");
}

void addCommands(CLI::App& tool, Arguments& arguments)
{
    addDraw(tool, arguments.draw);
    addFiles(
        addCommand(tool, "info", "таблица: шифр, наименование, версия, размер, число записей"), arguments);
    addFiles(addCommand(tool,
                 "check",
                 "проверить: что не читается, что пропадёт при сохранении, сомнительные имена и глубины"),
        arguments);

    CLI::App& dump = addCommand(tool, "dump", "весь проект в JSON (UTF-8) на стандартный вывод");
    addName(dump, "FILE", arguments.first, "файл проекта");
    dump.add_flag("--compact", arguments.compact, "одной строкой, без отступов")->group("Ключи");

    CLI::App& build = addCommand(tool, "build", "собрать файл проекта из JSON, который написал dump");
    addName(build, "JSON", arguments.first, "файл JSON");
    addName(build, "FILE", arguments.second, "файл проекта, который будет записан");

    CLI::App& resave = addCommand(tool, "resave", "открыть и записать заново");
    addName(resave, "IN", arguments.first, "файл проекта");
    addName(resave, "OUT", arguments.second, "файл, который будет записан");

    CLI::App& diff = addCommand(tool, "diff", "что добавлено, удалено и изменено, по реестрам");
    addName(diff, "A", arguments.first, "прежний файл");
    addName(diff, "B", arguments.second, "новый файл");

    CLI::App& exported = addCommand(tool,
        "export",
        "реестры в таблицы: CSV (UTF-8, точка с запятой), книга Excel, документ Word, OpenDocument, HTML");
    addName(exported, "FILE", arguments.first, "файл проекта");
    const auto addOutput = [&](const char* name, std::string& value, const char* text, const char* sign) {
        exported.add_option(name, value, text)->option_text(sign)->group("Ключи");
    };
    addOutput("--csv", arguments.folder, "папка для таблиц, создаётся, если её нет", "DIR");
    addOutput("--xlsx", arguments.office.xlsx, "книга: лист на реестр", "PATH");
    addOutput("--docx", arguments.office.docx, "документ Word: глава на реестр", "PATH");
    addOutput("--odt", arguments.office.odt, "документ OpenDocument", "PATH");
    addOutput("--html", arguments.office.html, "веб-страница", "PATH");
    exported.add_option("--tables", arguments.office.tables, "только эти реестры, через запятую")
        ->delimiter(',')
        ->option_text("NAME,...")
        ->group("Ключи");

    CLI::App& calculated =
        addCommand(tool, "calc", "все результаты расчётов в JSON: пробы, ИГЭ, статистика (без округления)");
    addName(calculated, "FILE", arguments.first, "файл проекта");
    calculated.add_option("--language", arguments.language, "язык наименований: ru или uk")
        ->option_text("ru|uk")
        ->group("Ключи");
}

void prepareTool(CLI::App& tool, Arguments& arguments)
{
    tool.get_formatter()->label("Usage", "Вызов");
    tool.get_formatter()->label("OPTIONS", "КЛЮЧИ");
    tool.get_formatter()->label("SUBCOMMAND", "КОМАНДА");
    tool.get_formatter()->label("Positionals", "Аргументы");
    tool.set_help_flag("-h,--help", "показать эту справку")->group("Ключи");
    tool.set_version_flag("--version", "tlxtool " TLXTOOL_VERSION, "показать версию")->group("Ключи");
    tool.footer(std::string("Справка по команде: tlxtool КОМАНДА --help\n") + exitStatuses);
    tool.require_subcommand(1);
    addCommands(tool, arguments);
}

// The parser speaks English; the class of its exception tells what is wrong.
std::string explain(const CLI::ParseError& failure, const CLI::App& tool)
{
    const auto chosen = tool.get_subcommands();
    const std::string help = chosen.empty() ? "смотрите tlxtool --help"
                                            : "смотрите tlxtool " + chosen.front()->get_name() + " --help";
    if (dynamic_cast<const CLI::ExtrasError*>(&failure)) {
        const std::string first = tool.remaining(true).empty() ? std::string() : tool.remaining(true).front();
        return "лишний или неизвестный аргумент «" + toUtf8(fromSystemText(first)) + "»; " + help;
    }
    if (dynamic_cast<const CLI::RequiredError*>(&failure))
        return (chosen.empty() ? "не указана команда; " : "не хватает аргументов; ") + help;
    return "аргументы не поняты; " + help;
}

int runCommand(const std::string& name, const Arguments& given, Output& output)
{
    if (name == "info")
        return runInfo(output, given.files);
    if (name == "check")
        return runCheck(output, given.files);
    if (name == "dump")
        return runDump(output, given.first, given.compact);
    if (name == "build")
        return runBuild(given.first, given.second);
    if (name == "resave")
        return runResave(given.first, given.second);
    if (name == "diff")
        return runDiff(output, given.first, given.second);
    if (name == "draw")
        return runDraw(output, given.draw);
    if (name == "calc")
        return runCalc(output, given.first, given.language);
    if (given.folder.empty() && given.office.isEmpty())
        throw ToolError("не сказано, во что выводить: --csv, --xlsx, --docx, --odt или --html; смотрите "
                        "tlxtool export --help");
    if (!given.office.isEmpty())
        runOfficeExport(output, given.first, given.office);
    return given.folder.empty() ? exitStatus::good : runExport(output, given.first, given.folder);
}

int parseAndRun(int argumentCount, const char* const* arguments, Output& output)
{
    CLI::App tool(description, "tlxtool");
    Arguments given;
    prepareTool(tool, given);
    try {
        tool.parse(argumentCount, arguments);
    } catch (const CLI::CallForHelp&) {
        const auto chosen = tool.get_subcommands();
        output.write(chosen.empty() ? tool.help() : chosen.front()->help(tool.get_name()));
        return exitStatus::good;
    } catch (const CLI::CallForVersion& version) {
        output.line(version.what());
        return exitStatus::good;
    } catch (const CLI::ParseError& failure) {
        throw ToolError(explain(failure, tool));
    }
    return runCommand(tool.get_subcommands().front()->get_name(), given, output);
}

} // namespace

int runTool(int argumentCount, const char* const* arguments)
{
    std::setlocale(LC_ALL, "");
    prepareOutput();
    Output output(stdout);
    try {
        const int status = parseAndRun(argumentCount, arguments, output);
        output.finish();
        return status;
    } catch (const ToolError& failure) {
        complain(failure.what());
    } catch (const MException& failure) {
        complain(toUtf8(failure.message()));
    } catch (const std::bad_alloc&) {
        complain("не хватает памяти; закройте другие программы");
    } catch (const std::exception& failure) {
        complain(toUtf8(fromSystemText(failure.what())));
    }
    return exitStatus::trouble;
}
