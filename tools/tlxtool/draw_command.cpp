#include "core/base/file_names.h"
#include "core/base/mexception.h"
#include "core/base/reference.h"
#include "document/office.h"
#include "drawing/dxf.h"
#include "drawing/sheet_files.h"
#include "drawing/svg.h"
#include "persistence/hatch_library.h"
#include "persistence/project_file.h"
#include "platform/files.h"
#include "platform/safe_write.h"
#include "platform/shared_function.h"
#include "platform/system_text.h"
#include "platform/utf8.h"
#include "plots/column.h"
#include "reports/office_pages.h"
#include "tlxdraw/tlxdraw.h"
#include "tlxtool/commands.h"
#include "tlxtool/messages.h"
#include "tlxtool/opened_project.h"
#include "tlxtool/tool_error.h"

#include <algorithm>

namespace
{

// As the build names it (tools/tlxdraw).
constexpr const wchar_t* libraryName = TLXDRAW_NAME;

// Without the library drawings come without hatches.
Hatches shippedHatches()
{
    const std::wstring path = executableFolder() + L"/hatch/gl/hatch.dat";
    if (!fileExists(path)) {
        complain("штриховки не найдены: рядом с tlxtool нет файла hatch/gl/hatch.dat; чертёж без штриховок");
        return {};
    }
    const Reference<DBHatch> library = readHatchFile(path);
    if (!library)
        throw ToolError("файл hatch/gl/hatch.dat рядом с tlxtool другого вида: переустановите Tellurix");
    return readHatches(library->getHatches());
}

void writeText(const std::wstring& path, const std::string& text)
{
    const auto* begin = reinterpret_cast<const std::uint8_t*>(text.data());
    if (const FileResult result = replaceFile(path, {begin, text.size()}); !result)
        throw ToolError(toUtf8(path) + ": " + describe(result));
}

// These two need no toolkit.
std::size_t writeTexts(const std::wstring& path,
    const std::vector<Drawing>& pages,
    const Hatches& hatches,
    std::string (*format)(const Drawing&, const Hatches&))
{
    const std::vector<std::wstring> files = sheetFiles(path, pages);
    for (std::size_t page = 0; page < pages.size(); ++page)
        writeText(files[page], format(pages[page], hatches));
    return pages.size();
}

std::size_t writeByToolkit(DrawOrder& order)
{
    const std::wstring library = executableFolder() + L'/' + libraryName;
    std::wstring reason;
    void* found = sharedFunction(library, drawFunctionName, reason);
    if (!found)
        throw ToolError("для PDF и PNG нужна библиотека " + toUtf8(library) + ": " + toUtf8(reason));
    reinterpret_cast<DrawFunction>(found)(order);
    if (!order.failure.empty())
        throw ToolError(oneLine(toUtf8(order.failure)));
    if (!order.warning.empty())
        complain(oneLine(toUtf8(order.warning)));
    return order.files;
}

std::size_t writePages(const DrawRequest& request, const std::vector<Drawing>& pages)
{
    const std::wstring path = fromSystemText(request.out);
    const std::wstring suffix = fileSuffix(path);
    const Hatches hatches = shippedHatches();
    if (suffix == L"svg")
        return writeTexts(path, pages, hatches, toSvg);
    if (suffix == L"dxf")
        return writeTexts(path, pages, hatches, toDxf);
    if (suffix != L"pdf" && suffix != L"png")
        throw ToolError("формат «" + toUtf8(suffix) + "» не знаком: есть pdf, svg, dxf, png");
    DrawOrder order;
    order.path = path;
    order.pages = &pages;
    order.hatches = &hatches;
    order.dotsPerInch = request.dotsPerInch;
    return writeByToolkit(order);
}

ColumnLook columnLook(const DrawRequest& request, IDBProject& project)
{
    constexpr int largestScale = 10;
    constexpr int smallestScale = 500;
    const std::wstring name = fromSystemText(request.sheet);
    const SheetFormat& format = sheetFormat(name);
    if (format.name != name)
        throw ToolError(
            "формата листа «" + toUtf8(name) + "» нет: есть A4, A3, A2, A1, A4x3, A4x4, A3x3 и другие");
    if (request.scale != 0 && (request.scale < largestScale || request.scale > smallestScale))
        throw ToolError("масштаб 1:N, N от 10 до 500");
    if (request.language != "ru" && request.language != "uk")
        throw ToolError("неизвестный язык «" + request.language + "»: есть ru и uk");
    ColumnLook look;
    look.sheet = sheetOf(format, request.isLandscape);
    look.scale = request.scale;
    look.language = request.language == "uk" ? languageUkrainian : languageRussian;
    // The day of drawing stands in the title block only where the office has typed one: a command draws the
    // same file twice to the same bytes.
    const Office office = officeForFile(executableFolder(), fromSystemText(request.file));
    look.texts = titleBlockTexts(office, &project, look.language);
    return look;
}

} // namespace

int runDraw(Output& output, const DrawRequest& request)
{
    if (request.what != "column")
        throw ToolError("«" + request.what + "» начертить нельзя: есть column");
    const OpenedProject opened = openProject(request.file);
    IDBProject& project = *opened.project;
    const std::vector<std::wstring> known = columnPoints(project);
    std::vector<std::wstring> points = known;
    if (!request.allPoints) {
        const std::wstring name = fromSystemText(request.point);
        if (name.empty())
            throw ToolError("укажите точку: --point ИМЯ или --all");
        if (std::find(known.begin(), known.end(), name) == known.end())
            throw ToolError("точки «" + toUtf8(name) + "» в проекте нет");
        points = {name};
    }
    const ColumnLook look = columnLook(request, project);
    std::vector<Drawing> pages;
    try {
        for (const std::wstring& point : points)
            for (Drawing& page : columnOf(columnData(project, point), look))
                pages.push_back(std::move(page));
    } catch (const MException& failure) {
        throw ToolError(oneLine(toUtf8(failure.message())));
    }
    if (pages.empty())
        throw ToolError("в проекте нет точек, чертить нечего");
    const std::size_t files = writePages(request, pages);
    output.line("листов: " + std::to_string(pages.size()) + ", файлов: " + std::to_string(files));
    return exitStatus::good;
}
