#include "plots/sheet.h"

#include <algorithm>

static constexpr SheetFormat formats[] = {
    {L"A4", 210, 297},
    {L"A3", 297, 420},
    {L"A2", 420, 594},
    {L"A1", 594, 841},
    {L"A4x3", 297, 630},
    {L"A4x4", 297, 841},
    {L"A4x5", 297, 1051},
    {L"A3x3", 420, 891},
    {L"A3x4", 420, 1189},
    {L"A2x3", 594, 1261},
};

std::span<const SheetFormat> sheetFormats()
{
    return formats;
}

const SheetFormat& sheetFormat(std::wstring_view name)
{
    const auto* const found = std::find_if(std::begin(formats),
        std::end(formats),
        [name](const SheetFormat& format) { return format.name == name; });
    return found == std::end(formats) ? formats[0] : *found;
}

Extent Sheet::field() const
{
    constexpr double binding = 20;
    constexpr double edge = 5;
    return {binding, edge, width - edge, height - edge};
}

Sheet sheetOf(const SheetFormat& format, bool isLandscape)
{
    return isLandscape ? Sheet{format.longSide, format.shortSide} : Sheet{format.shortSide, format.longSide};
}

Drawing emptySheet(const Sheet& sheet)
{
    Drawing drawing;
    drawing.width = sheet.width;
    drawing.height = sheet.height;
    if (sheet.hasFrame) {
        Sketch sketch(drawing);
        sketch.setLayer(Layer::Frame);
        sketch.box(sheet.field(), thickLine);
    }
    return drawing;
}
