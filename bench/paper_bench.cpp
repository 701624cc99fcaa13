#include "core/base/typed_number.h"
#include "document/docx.h"
#include "document/pages.h"
#include "document/xlsx.h"
#include "drawing/dxf.h"
#include "drawing/hatch.h"
#include "paint/drawing_files.h"
#include "paint/drawing_painter.h"
#include "persistence/project_file.h"
#include "plots/column.h"
#include "plots/sounding_graph.h"

#include <QGuiApplication>
#include <QImage>
#include <QPainter>

#include <cstdio>
#include <ctime>
#include <fstream>
#include <functional>
#include <string>

// One paper a run: its time of the processor and the highest memory of the process (bench/papers.sh runs
// all).
//   paper_bench OPERATION HATCHES [FILE]

namespace
{

ColumnData columnOfLayers(int number, int layers)
{
    static const wchar_t* const soils[] = {L"Суглинок тугопластичный, коричневый, с прослоями песка",
        L"Песок мелкий, средней плотности, водонасыщенный",
        L"Глина полутвёрдая, серая, с включениями известняка",
        L"Супесь пластичная, жёлто-бурая"};
    static const std::uint32_t hatches[] = {3, 1, 4, 2};
    ColumnData data;
    data.point = L"Скв-" + std::to_wstring(number);
    data.mouthMark = L"152.35";
    for (int row = 0; row < layers; ++row) {
        ColumnLayer layer;
        layer.id = row + 1;
        layer.top = row * 0.5;
        layer.bottom = layer.top + 0.5;
        layer.bottomText = numberText(layer.bottom, 2);
        layer.thickness = L"0.50";
        layer.mark = numberText(152.35 - layer.bottom, 2);
        layer.index = L"aQ_III^2";
        layer.description = soils[row % 4];
        layer.element = std::to_wstring(row % 4 + 1);
        layer.hatch = hatches[row % 4];
        data.layers.push_back(std::move(layer));
        data.samples.push_back({row * 0.5 + 0.3, L"1.30", ColumnSample::Undisturbed, L"17"});
    }
    data.waters.push_back({4.6, L"4.60", L"147.75", L"07.08.2019", true, true});
    data.depth = layers * 0.5;
    data.depthText = numberText(data.depth, 2);
    for (int row = 0; row < layers * 2; ++row)
        data.sounding.rows.push_back({row * 0.2, 1.0 + row % 9, 20.0 + row % 30});
    return data;
}

std::vector<Drawing> manyColumns()
{
    constexpr int columns = 500;
    std::vector<Drawing> sheets;
    for (int number = 0; number < columns; ++number)
        for (Drawing& sheet : columnOf(columnOfLayers(number, 12), {}))
            sheets.push_back(std::move(sheet));
    return sheets;
}

// One reading a centimetre, as electric probes give them.
std::vector<Drawing> manyGraphs()
{
    constexpr int soundings = 100;
    constexpr int readings = 1500;
    std::vector<Drawing> sheets;
    for (int number = 0; number < soundings; ++number) {
        SoundingGraph graph;
        graph.title = L"ТСЗ-" + std::to_wstring(number + 1);
        graph.layers = {{0, 5, L"1"}, {5, 15, L"2"}};
        for (int row = 0; row < readings; ++row)
            graph.readings.push_back(
                {(row + 1) * 0.01, 2.0 + (row * 13 + number) % 50 * 0.1, 40.0 + row % 30, {}, {}, 0});
        for (Drawing& sheet : soundingGraphPages({graph}, {}))
            sheets.push_back(std::move(sheet));
    }
    return sheets;
}

Document tableOf(std::size_t rows, std::size_t columns)
{
    Document document;
    document.title = L"Ведомость";
    TableBlock table;
    table.title = L"Ведомость";
    std::vector<TableCell> head;
    for (std::size_t column = 0; column < columns; ++column)
        head.push_back({.runs = {{L"Графа " + std::to_wstring(column + 1)}}});
    table.head = {head};
    table.madeRows = rows;
    // Texts and numbers in turn, as in a register.
    table.makeRow = [columns](std::size_t row) {
        std::vector<TableCell> cells;
        for (std::size_t column = 0; column < columns; ++column) {
            TableCell cell;
            if (column % 3 == 0) {
                cell.runs = {{L"Скв-" + std::to_wstring(row % 977 + column)}};
            } else {
                cell.number = static_cast<double>(row * 7 + column) / 100;
                cell.decimals = 2;
                cell.align = Align::Right;
                cell.runs = {{numberText(*cell.number, 2)}};
            }
            cells.push_back(std::move(cell));
        }
        return cells;
    };
    document.blocks.emplace_back(std::move(table));
    return document;
}

std::size_t writeOut(const char* path, const char* bytes, std::size_t size)
{
    std::ofstream(path, std::ios::binary).write(bytes, static_cast<std::streamsize>(size));
    return size;
}

// Of this process, MB.
double highestMemory()
{
    std::ifstream status("/proc/self/status");
    for (std::string word; status >> word;)
        if (word == "VmHWM:") {
            double kilobytes = 0;
            status >> kilobytes;
            return kilobytes / 1024;
        }
    return 0;
}

std::size_t run(const std::string& operation, const Hatches& hatches, const char* path)
{
    if (operation == "xlsx") {
        const std::string bytes = toXlsx(tableOf(100'000, 12));
        return writeOut(path, bytes.data(), bytes.size());
    }
    if (operation == "docx") {
        const std::string bytes = toDocx(tableOf(2'000, 12));
        return writeOut(path, bytes.data(), bytes.size());
    }
    if (operation == "pdf") {
        const QByteArray bytes = toPdf(pagesOf(tableOf(2'000, 12)), {});
        return writeOut(path, bytes.constData(), static_cast<std::size_t>(bytes.size()));
    }
    if (operation == "columns.pdf") {
        const QByteArray bytes = toPdf(manyColumns(), hatches);
        return writeOut(path, bytes.constData(), static_cast<std::size_t>(bytes.size()));
    }
    if (operation == "graphs.pdf") {
        const QByteArray bytes = toPdf(manyGraphs(), hatches);
        return writeOut(path, bytes.constData(), static_cast<std::size_t>(bytes.size()));
    }
    if (operation == "columns.dxf") {
        std::size_t size = 0;
        for (const Drawing& sheet : manyColumns())
            size += toDxf(sheet, hatches).size();
        return size;
    }
    return 0;
}

// Laid out and painted as on the screen at 100 %; the mean of many, the first one left out (fonts are
// loaded).
double millisecondsOfColumn(const Hatches& hatches)
{
    constexpr int times = 40;
    constexpr int layers = 30;
    const ColumnData data = columnOfLayers(1, layers);
    QImage screen(794, 1123, QImage::Format_RGB32);
    std::clock_t begin = 0;
    for (int time = 0; time <= times; ++time) {
        if (time == 1)
            begin = std::clock();
        const std::vector<Drawing> sheets = columnOf(data, {});
        screen.fill(Qt::white);
        QPainter painter(&screen);
        painter.setRenderHint(QPainter::Antialiasing);
        painter.scale(96 / 25.4, 96 / 25.4);
        paint(painter, sheets.front(), hatches);
    }
    return 1000.0 * static_cast<double>(std::clock() - begin) / CLOCKS_PER_SEC / times;
}

} // namespace

int main(int argumentCount, char** arguments)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const QGuiApplication application(argumentCount, arguments);
    if (argumentCount < 3)
        return 2;
    const std::string operation = arguments[1];
    const std::string library = arguments[2];
    const Reference<DBHatch> found = readHatchFile(std::wstring(library.begin(), library.end()));
    if (!found)
        return 2;
    const Hatches hatches = readHatches(found->getHatches());
    if (operation == "column") {
        std::printf("%-12s %8.1f ms\n", "column", millisecondsOfColumn(hatches));
        return 0;
    }
    const std::clock_t begin = std::clock();
    const std::size_t size = run(operation, hatches, argumentCount > 3 ? arguments[3] : "paper");
    const double seconds = static_cast<double>(std::clock() - begin) / CLOCKS_PER_SEC;
    std::printf("%-12s %8.2f s %8.0f MB %12zu bytes\n", operation.c_str(), seconds, highestMemory(), size);
    return size > 0 ? 0 : 1;
}
