#include "document/odt_styles.h"

#include "document/column_widths.h"
#include "document/office_package.h"
#include "document/office_text.h"

#include <cmath>

namespace
{

struct Style {
    const char* name;
    const char* shown;
    const char* parent;
    const char* paragraph;
    const char* letters;
    double points;
};

// Headings and captions have the names of the processor's own styles, so that its navigator knows them.
const Style styles[] = {
    {"Text_20_body", "Text body", "Standard", R"(fo:margin-bottom="1.4mm")", "", bodyPoints},
    {"Heading_20_1",
        "Heading 1",
        "Standard",
        R"(fo:keep-with-next="always" fo:margin-top="4.2mm" fo:margin-bottom="2.1mm")",
        R"(fo:font-weight="bold")",
        14},
    {"Heading_20_2",
        "Heading 2",
        "Standard",
        R"(fo:keep-with-next="always" fo:margin-top="3.5mm" fo:margin-bottom="1.8mm")",
        R"(fo:font-weight="bold")",
        12},
    {"Heading_20_3",
        "Heading 3",
        "Standard",
        R"(fo:keep-with-next="always" fo:margin-top="2.8mm" fo:margin-bottom="1.4mm")",
        R"(fo:font-weight="bold" fo:font-style="italic")",
        11},
    {"Caption",
        "Caption",
        "Standard",
        R"(fo:keep-with-next="always" fo:margin-top="2.1mm" fo:margin-bottom="1mm")",
        R"(fo:font-weight="bold")",
        captionPoints},
    {"Figure",
        "Figure",
        "Standard",
        R"(fo:keep-with-next="always" fo:margin-top="2.1mm" fo:text-align="center")",
        "",
        bodyPoints},
    {"Figure_20_caption",
        "Figure caption",
        "Standard",
        R"(fo:margin-top="1mm" fo:margin-bottom="2.8mm" fo:text-align="center")",
        "",
        captionPoints},
    {"Note", "Note", "Standard", R"(fo:margin-top="0.7mm" fo:margin-bottom="1.4mm")", "", notePoints},
    {"List_20_item", "List item", "Standard", R"(fo:margin-bottom="0.7mm")", "", bodyPoints},
    {"Table_20_Contents", "Table Contents", "Standard", "", "", tablePoints},
    {"Table_20_Heading",
        "Table Heading",
        "Table_20_Contents",
        R"(fo:text-align="center")",
        R"(fo:font-weight="bold")",
        tablePoints},
    {"Table_20_End", "Table end", "Standard", "", "", 6},
    {"Header", "Header", "Standard", "", "", notePoints},
    {"Footer", "Footer", "Standard", "", "", notePoints},
};

std::string paragraphStyle(const Style& style)
{
    const std::string points = digitsOf(style.points) + "pt";
    std::string text = "<style:style style:name=\"" + std::string(style.name) + "\" style:display-name=\""
        + style.shown + "\" style:family=\"paragraph\" style:parent-style-name=\"" + style.parent + "\"";
    if (std::string(style.name).rfind("Heading_", 0) == 0)
        text += " style:default-outline-level=\"" + std::string(1, std::string(style.name).back()) + "\"";
    return text + "><style:paragraph-properties " + style.paragraph
        + "/><style:text-properties fo:font-size=\"" + points + "\" style:font-size-asian=\"" + points
        + "\" style:font-size-complex=\"" + points + "\" " + style.letters + "/></style:style>";
}

std::string lists()
{
    const auto place = [] {
        return std::string(
            R"(<style:list-level-properties text:list-level-position-and-space-mode="label-alignment">)"
            R"(<style:list-level-label-alignment text:label-followed-by="listtab" fo:text-indent="-5mm" fo:margin-left="10mm"/>)"
            R"(</style:list-level-properties>)");
    };
    return R"(<text:list-style style:name="Bullets"><text:list-level-style-bullet text:level="1" text:bullet-char="–">)"
        + place()
        + R"(</text:list-level-style-bullet></text:list-style>)"
          R"(<text:list-style style:name="Numbers"><text:list-level-style-number text:level="1" style:num-format="1" style:num-suffix=".">)"
        + place() + "</text:list-level-style-number></text:list-style>";
}

std::string pageLayout(const OdtPage& page, const Document& document)
{
    const PageFormat& format = page.format;
    const bool hasHead = !page.frame.empty() || !document.header.empty();
    const auto band = [](const char* kind, double high) {
        const std::string name = std::string("style:") + kind + "-style";
        return "<" + name + "><style:header-footer-properties fo:min-height=\"" + odtLength(high)
            + "\" fo:margin-left=\"0mm\" fo:margin-right=\"0mm\"/></" + name + ">";
    };
    // A text processor counts head and foot into the page's body: the margins shrink by them.
    const double high = 5;
    const double top = hasHead ? std::max(2.0, format.top - high) : format.top;
    const double bottom = page.hasNumbers ? std::max(2.0, format.bottom - high) : format.bottom;
    return "<style:page-layout style:name=\"L" + page.name
        + "\"><style:page-layout-properties fo:page-width=\"" + odtLength(format.width)
        + "\" fo:page-height=\"" + odtLength(format.height) + "\" style:print-orientation=\""
        + (format.width > format.height ? "landscape" : "portrait") + "\" fo:margin-left=\""
        + odtLength(format.left) + "\" fo:margin-right=\"" + odtLength(format.right) + "\" fo:margin-top=\""
        + odtLength(top) + "\" fo:margin-bottom=\"" + odtLength(bottom) + "\"/>"
        + (hasHead ? band("header", high) : "") + (page.hasNumbers ? band("footer", high) : "")
        + "</style:page-layout>";
}

std::string masterPage(const OdtPage& page, const Document& document)
{
    std::string text =
        "<style:master-page style:name=\"" + page.name + "\" style:page-layout-name=\"L" + page.name + "\"";
    if (!page.next.empty())
        text += " style:next-style-name=\"" + page.next + "\"";
    text += ">";
    if (!page.frame.empty())
        text += "<style:header>" + page.frame + "</style:header>";
    else if (!document.header.empty())
        text += "<style:header><text:p text:style-name=\"Header\">" + markupText(document.header)
            + "</text:p></style:header>";
    if (page.hasNumbers)
        text += "<style:footer><text:p text:style-name=\"F" + page.name + "\">" + markupText(document.footer)
            + "<text:tab/><text:page-number "
              "text:select-page=\"current\">1</text:page-number></text:p></style:footer>";
    return text + "</style:master-page>";
}

// The foot's own style in each format: its tab stands at the right edge.
std::string footStyle(const OdtPage& page)
{
    const double room = page.format.width - page.format.left - page.format.right;
    return "<style:style style:name=\"F" + page.name
        + R"(" style:family="paragraph" style:parent-style-name="Footer"><style:paragraph-properties><style:tab-stops>)"
        + "<style:tab-stop style:position=\"" + odtLength(room)
        + R"(" style:type="right"/></style:tab-stops></style:paragraph-properties></style:style>)";
}

} // namespace

std::string odtLength(double mm)
{
    return digitsOf(std::round(mm * 100) / 100) + "mm";
}

std::string odtSpaces()
{
    std::string text;
    for (const std::string space : {"office", "style", "text", "table", "meta"})
        text.append(" xmlns:")
            .append(space)
            .append("=\"urn:oasis:names:tc:opendocument:xmlns:")
            .append(space)
            .append(":1.0\"");
    return text
        + R"( xmlns:draw="urn:oasis:names:tc:opendocument:xmlns:drawing:1.0" xmlns:svg="urn:oasis:names:tc:opendocument:xmlns:svg-compatible:1.0")"
          R"( xmlns:fo="urn:oasis:names:tc:opendocument:xmlns:xsl-fo-compatible:1.0" xmlns:xlink="http://www.w3.org/1999/xlink")"
          R"( xmlns:dc="http://purl.org/dc/elements/1.1/" office:version="1.2")";
}

std::string odtStyles(const Document& document, const std::vector<OdtPage>& pages)
{
    std::string text = std::string(xmlDeclaration) + "<office:document-styles" + odtSpaces()
        + R"(><office:font-face-decls><style:font-face style:name="Arial" svg:font-family="Arial"/></office:font-face-decls><office:styles>)"
          R"(<style:default-style style:family="paragraph"><style:paragraph-properties style:writing-mode="page"/>)"
          R"(<style:text-properties style:font-name="Arial" style:font-name-asian="Arial" style:font-name-complex="Arial" fo:language="ru" fo:country="RU"/></style:default-style>)"
          R"(<style:style style:name="Standard" style:family="paragraph"><style:text-properties fo:font-size="11pt"/></style:style>)"
          R"(<style:style style:name="Graphics" style:family="graphic"/>)";
    for (const Style& style : styles)
        text += paragraphStyle(style);
    text += lists() + "</office:styles><office:automatic-styles>";
    for (const OdtPage& page : pages)
        text += pageLayout(page, document) + footStyle(page);
    text +=
        R"(<style:style style:name="Behind" style:family="graphic" style:parent-style-name="Graphics"><style:graphic-properties)"
        R"( style:wrap="run-through" style:run-through="background" style:vertical-pos="from-top" style:vertical-rel="page")"
        R"( style:horizontal-pos="from-left" style:horizontal-rel="page"/></style:style>)"
        R"(<style:style style:name="Placed" style:family="graphic" style:parent-style-name="Graphics"><style:graphic-properties)"
        R"( style:wrap="run-through" style:vertical-pos="from-top" style:vertical-rel="page" style:horizontal-pos="from-left")"
        R"( style:horizontal-rel="page" fo:padding="0mm" fo:border="none"/></style:style>)"
        R"(<style:style style:name="Middle" style:family="paragraph" style:parent-style-name="Header"><style:paragraph-properties fo:text-align="center"/></style:style>)"
        "</office:automatic-styles><office:master-styles>";
    for (const OdtPage& page : pages)
        text += masterPage(page, document);
    return text + "</office:master-styles></office:document-styles>";
}
