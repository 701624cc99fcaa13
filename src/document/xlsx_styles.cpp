#include "document/xlsx_styles.h"

#include "document/office_package.h"

#include <algorithm>

namespace
{

constexpr int mostDecimals = 15;

// Bold, italic and struck as bits; the fonts stand in this order, headings behind them.
int fontOf(const XlsxLook& look)
{
    if (look.kind == XlsxLook::Title)
        return 8;
    const bool isBold = look.isBold || look.kind == XlsxLook::Head;
    return (isBold ? 1 : 0) + (look.isItalic ? 2 : 0) + (look.isStruck ? 4 : 0);
}

std::string fonts()
{
    std::string text = R"(<fonts count="9">)";
    for (int bits = 0; bits < 9; ++bits) {
        const bool isTitle = bits == 8;
        text += "<font>";
        if (isTitle || (bits & 1) != 0)
            text += "<b/>";
        if ((bits & 2) != 0)
            text += "<i/>";
        if ((bits & 4) != 0)
            text += "<strike/>";
        text += isTitle ? R"(<sz val="12"/>)" : R"(<sz val="10"/>)";
        text += R"(<color rgb="FF000000"/><name val="Arial"/><family val="2"/></font>)";
    }
    return text + "</fonts>";
}

// The first two are the format's own; then the ground of heads and of marked cells.
constexpr const char* fills =
    R"(<fills count="4"><fill><patternFill patternType="none"/></fill>)"
    R"(<fill><patternFill patternType="gray125"/></fill>)"
    R"(<fill><patternFill patternType="solid"><fgColor rgb="FFE7EBEF"/></patternFill></fill>)"
    R"(<fill><patternFill patternType="solid"><fgColor rgb="FFD9D9D9"/></patternFill></fill></fills>)";

std::string borders()
{
    std::string text =
        R"(<borders count="2"><border><left/><right/><top/><bottom/><diagonal/></border><border>)";
    for (const std::string side : {"left", "right", "top", "bottom"})
        text.append("<")
            .append(side)
            .append(R"( style="thin"><color rgb="FFA0A0A0"/></)")
            .append(side)
            .append(">");
    return text + "<diagonal/></border></borders>";
}

std::string formatOf(const XlsxLook& look)
{
    const bool hasBorder = look.kind == XlsxLook::Body || look.kind == XlsxLook::Head;
    const int fill = look.kind == XlsxLook::Head ? 2 : look.isMarked ? 3 : 0;
    // Formats of our own begin at 164; "0" is the first of them, "@" (text) is the format's own number 49.
    const int numbers = look.decimals < 0 ? 0 : 164 + std::min(look.decimals, mostDecimals);
    constexpr const char* aligns[] = {"left", "center", "right"};
    std::string text = "<xf numFmtId=\"" + std::to_string(numbers) + "\" fontId=\""
        + std::to_string(fontOf(look)) + "\" fillId=\"" + std::to_string(fill) + "\" borderId=\""
        + (hasBorder ? "1" : "0")
        + R"(" xfId="0" applyNumberFormat="1" applyFont="1" applyFill="1" applyBorder="1" applyAlignment="1">)";
    text += std::string(R"(<alignment horizontal=")") + aligns[static_cast<unsigned char>(look.align)]
        + "\" vertical=\"" + (look.kind == XlsxLook::Head ? "center" : "top") + "\"";
    if (look.isWrapped)
        text += R"( wrapText="1")";
    return text + "/></xf>";
}

} // namespace

int XlsxStyles::number(const XlsxLook& look)
{
    const auto [place, isNew] = numbers_.try_emplace(look, static_cast<int>(looks_.size()));
    if (isNew)
        looks_.push_back(look);
    return place->second;
}

std::string XlsxStyles::part() const
{
    std::string text = std::string(xmlDeclaration)
        + R"(<styleSheet xmlns="http://schemas.openxmlformats.org/spreadsheetml/2006/main">)"
        + ("<numFmts count=\"" + std::to_string(mostDecimals + 1) + "\">");
    for (int decimals = 0; decimals <= mostDecimals; ++decimals)
        text += "<numFmt numFmtId=\"" + std::to_string(164 + decimals) + "\" formatCode=\"0"
            + (decimals > 0 ? "." + std::string(static_cast<std::size_t>(decimals), '0') : "") + "\"/>";
    text += "</numFmts>" + fonts() + fills + borders()
        + R"(<cellStyleXfs count="1"><xf numFmtId="0" fontId="0" fillId="0" borderId="0"/></cellStyleXfs>)"
        + "<cellXfs count=\"" + std::to_string(looks_.size()) + "\">";
    for (const XlsxLook& look : looks_)
        text += formatOf(look);
    return text
        + R"(</cellXfs><cellStyles count="1"><cellStyle name="Normal" xfId="0" builtinId="0"/></cellStyles></styleSheet>)";
}
