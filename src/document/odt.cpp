#include "document/odt.h"

#include "document/column_widths.h"
#include "document/odt_styles.h"
#include "document/office_package.h"
#include "document/page_frame.h"
#include "document/table_grid.h"
#include "document/zip_archive.h"
#include "drawing/svg.h"

#include <algorithm>
#include <array>

namespace
{

// Blanks at an edge, several of them and line breaks have elements of their own.
void appendText(std::string& text, std::wstring_view content)
{
    const std::string plain = markupText(content);
    for (std::size_t i = 0; i < plain.size(); ++i) {
        if (plain[i] == '\n')
            text += "<text:line-break/>";
        else if (plain[i] == ' '
            && (i == 0 || i + 1 == plain.size() || plain[i - 1] == ' ' || plain[i - 1] == '\n'))
            text += "<text:s/>";
        else
            text += plain[i];
    }
}

class OdtWriter
{
public:
    OdtWriter(const Document& document, const OfficeOptions& options)
        : document_(document)
        , options_(options)
        , page_(document.page)
    {
    }

    std::string write()
    {
        beginPages();
        for (const Block& block : document_.blocks) {
            closeList(block);
            std::visit([this](const auto& found) { add(found); }, block);
        }
        closeList(PageBreak());
        if (isPagePending_)
            paragraph("Text_20_body", {});
        ZipArchive zip;
        zip.add("mimetype", "application/vnd.oasis.opendocument.text", false);
        zip.add("content.xml",
            std::string(xmlDeclaration) + "<office:document-content" + odtSpaces()
                + "><office:automatic-styles>" + fixedStyles() + styles_
                + "</office:automatic-styles><office:body><office:text>" + text_
                + "</office:text></office:body></office:document-content>");
        zip.add("styles.xml", odtStyles(document_, pages_));
        zip.add("meta.xml",
            std::string(xmlDeclaration) + "<office:document-meta" + odtSpaces() + "><office:meta><dc:title>"
                + markupText(document_.title) + "</dc:title><dc:creator>" + markupText(document_.author)
                + "</dc:creator></office:meta></office:document-meta>");
        for (std::size_t i = 0; i < pictures_.size(); ++i)
            zip.add(pictureName(i), pictures_[i]);
        zip.add("META-INF/manifest.xml", manifest());
        return zip.bytes();
    }

private:
    static std::string pictureName(std::size_t number)
    {
        return "Pictures/picture" + std::to_string(number + 1) + ".svg";
    }

    std::string manifest() const
    {
        const auto row = [](const std::string& path, const std::string& type) {
            return "<manifest:file-entry manifest:full-path=\"" + path + "\" manifest:media-type=\"" + type
                + "\"/>";
        };
        std::string text = std::string(xmlDeclaration)
            + R"(<manifest:manifest xmlns:manifest="urn:oasis:names:tc:opendocument:xmlns:manifest:1.0" manifest:version="1.2">)"
              R"(<manifest:file-entry manifest:full-path="/" manifest:version="1.2" manifest:media-type="application/vnd.oasis.opendocument.text"/>)";
        for (const char* part : {"content.xml", "styles.xml", "meta.xml"})
            text += row(part, "text/xml");
        for (std::size_t i = 0; i < pictures_.size(); ++i)
            text += row(pictureName(i), "image/svg+xml");
        return text + "</manifest:manifest>";
    }

    static std::string fixedStyles()
    {
        std::string text;
        const auto letters = [&](int bits, const char* position) {
            text += "<style:style style:name=\"" + std::string(1, *position) + std::to_string(bits)
                + "\" style:family=\"text\"><style:text-properties";
            if ((bits & 1) != 0)
                text += R"( fo:font-weight="bold")";
            if ((bits & 2) != 0)
                text += R"( fo:font-style="italic")";
            if ((bits & 4) != 0)
                text += R"( style:text-line-through-style="solid")";
            if (*position == 'U')
                text += R"( style:text-position="super 65%")";
            if (*position == 'D')
                text += R"( style:text-position="sub 65%")";
            text += "/></style:style>";
        };
        for (int bits = 0; bits < 8; ++bits)
            for (const char* position : {"N", "U", "D"})
                letters(bits, position);
        const auto cell = [&](const char* name, const char* ground, const char* more) {
            text += "<style:style style:name=\"" + std::string(name)
                + R"(" style:family="table-cell"><style:table-cell-properties fo:padding="0.3mm" fo:padding-left="1mm" fo:padding-right="1mm" fo:border="0.25pt solid #000000" )"
                + ground + more + "/></style:style>";
        };
        cell("Cell", "", "");
        cell("Marked", R"(fo:background-color="#d9d9d9" )", "");
        cell("Head", "", R"(style:vertical-align="middle")");
        text +=
            R"(<style:style style:name="Row" style:family="table-row"><style:table-row-properties fo:keep-together="always"/></style:style>)"
            R"(<style:style style:name="Break" style:family="paragraph" style:parent-style-name="Table_20_End"><style:paragraph-properties fo:break-before="page"/></style:style>)";
        const auto aligned = [&](const char* name, const char* parent, const char* align) {
            text += "<style:style style:name=\"" + std::string(name)
                + "\" style:family=\"paragraph\" style:parent-style-name=\"" + parent
                + "\"><style:paragraph-properties fo:text-align=\"" + align + "\"/></style:style>";
        };
        for (const char* parent : parents) {
            aligned((std::string(parent) + "1").c_str(), parent, "center");
            aligned((std::string(parent) + "2").c_str(), parent, "end");
        }
        return text;
    }

    static constexpr std::array<const char*, 5> parents{
        "Text_20_body", "Caption", "Note", "List_20_item", "Table_20_Contents"};

    double room() const { return std::max(20.0, page_.width - page_.left - page_.right); }

    // ---- pages ----

    // The first page has a frame of its own.
    void beginPages()
    {
        if (document_.frame.draw) {
            const std::string next = masterOf(page_);
            constexpr double airAbove = 4; // mm
            PageFormat first = page_;
            first.bottom = std::max(first.bottom, stampHeight(document_.frame, page_, 1) + airAbove);
            pages_.push_back({"First", first, next, framePicture(true), false});
            master_ = "First";
        } else {
            master_ = masterOf(page_);
        }
        // The first paragraph or table takes it.
        isPagePending_ = true;
    }

    std::string masterOf(const PageFormat& format)
    {
        for (const OdtPage& page : pages_)
            if (page.format == format && page.name != "First")
                return page.name;
        std::string name = pages_.empty() ? "Standard" : "Page" + std::to_string(pages_.size());
        const bool hasFrame = static_cast<bool>(document_.frame.draw);
        pages_.push_back({name, format, {}, hasFrame ? framePicture(false) : std::string(), !hasFrame});
        return name;
    }

    std::string framePicture(bool isFirst)
    {
        const PageFrame& frame = document_.frame;
        std::string text = R"(<text:p text:style-name="Header">)"
            + picture(frame.draw(page_, isFirst ? 1 : 2, 0),
                page_.width,
                page_.height,
                R"(draw:style-name="Behind" text:anchor-type="paragraph" svg:x="0mm" svg:y="0mm")");
        if (isFirst)
            text += placed(R"(<text:page-number text:select-page="current">1</text:page-number>)",
                        frame.firstNumber)
                + placed("<text:page-count>1</text:page-count>", frame.firstCount);
        else
            text +=
                placed(R"(<text:page-number text:select-page="current">2</text:page-number>)", frame.number);
        return text + "</text:p>";
    }

    std::string placed(const std::string& field, const Spot& at) const
    {
        return R"(<draw:frame draw:style-name="Placed" text:anchor-type="paragraph" svg:width="12mm" svg:height="5mm" svg:x=")"
            + odtLength(page_.width - at.x - 6) + "\" svg:y=\"" + odtLength(page_.height - at.y - 3.8)
            + R"("><draw:text-box><text:p text:style-name="Middle">)" + field
            + "</text:p></draw:text-box></draw:frame>";
    }

    std::string picture(const Drawing& drawing, double width, double height, const std::string& place)
    {
        static const Hatches none;
        pictures_.push_back(toSvg(drawing, options_.hatches ? *options_.hatches : none));
        return "<draw:frame " + place + " draw:name=\"Picture" + std::to_string(pictures_.size())
            + "\" svg:width=\"" + odtLength(width) + "\" svg:height=\"" + odtLength(height)
            + "\"><draw:image xlink:href=\"" + pictureName(pictures_.size() - 1)
            + R"(" xlink:type="simple" xlink:show="embed" xlink:actuate="onLoad"/></draw:frame>)";
    }

    // The name of a style, or of one made from it that begins the pages in waiting.
    std::string styleFor(const std::string& style)
    {
        if (!isPagePending_)
            return style;
        isPagePending_ = false;
        std::string name = "P" + std::to_string(++made_);
        const char at = style.back();
        const bool isAligned = (at == '1' || at == '2') && style.rfind("Heading_", 0) != 0;
        const std::string base = isAligned ? style.substr(0, style.size() - 1) : style;
        styles_ += "<style:style style:name=\"" + name
            + "\" style:family=\"paragraph\" style:parent-style-name=\"" + base
            + "\" style:master-page-name=\"" + master_ + "\"";
        styles_ += isAligned ? std::string("><style:paragraph-properties fo:text-align=\"")
                + (at == '1' ? "center" : "end") + "\"/></style:style>"
                             : "/>";
        return name;
    }

    // ---- blocks ----

    void runs(const Runs& all)
    {
        for (const Run& run : all) {
            const int bits = (run.isBold ? 1 : 0) + (run.isItalic ? 2 : 0) + (run.isStruck ? 4 : 0);
            if (bits == 0 && run.position == Run::Normal) {
                appendText(text_, run.text);
                continue;
            }
            const char position = run.position == Run::Raised ? 'U'
                : run.position == Run::Lowered                ? 'D'
                                                              : 'N';
            text_ += std::string("<text:span text:style-name=\"") + position + std::to_string(bits) + "\">";
            appendText(text_, run.text);
            text_ += "</text:span>";
        }
    }

    static std::string alignedName(const char* style, Align align)
    {
        return std::string(style) + (align == Align::Left ? "" : align == Align::Centre ? "1" : "2");
    }

    void paragraph(const std::string& style, const Runs& all)
    {
        text_ += "<text:p text:style-name=\"" + styleFor(style) + "\">";
        runs(all);
        text_ += "</text:p>";
    }

    void closeList(const Block& next)
    {
        const auto* found = std::get_if<Paragraph>(&next);
        const std::string wanted = !found         ? ""
            : found->style == Paragraph::Bullet   ? "Bullets"
            : found->style == Paragraph::Numbered ? "Numbers"
                                                  : "";
        if (wanted == list_)
            return;
        if (!list_.empty())
            text_ += "</text:list>";
        list_ = wanted;
        if (!list_.empty())
            text_ += "<text:list text:style-name=\"" + list_ + "\">";
    }

    void add(const Heading& heading)
    {
        const std::string level = std::to_string(std::clamp(heading.level, 1, 3));
        text_ += "<text:h text:style-name=\"" + styleFor("Heading_20_" + level) + "\" text:outline-level=\""
            + level + "\">";
        appendText(text_, heading.text);
        text_ += "</text:h>";
    }

    void add(const Paragraph& found)
    {
        if (!list_.empty()) {
            text_ += "<text:list-item>";
            paragraph("List_20_item", found.runs);
            text_ += "</text:list-item>";
            return;
        }
        const char* const style = found.style == Paragraph::Caption ? "Caption"
            : found.style == Paragraph::Note                        ? "Note"
                                                                    : "Text_20_body";
        paragraph(alignedName(style, found.align), found.runs);
    }

    void add(const PageBreak&) { text_ += R"(<text:p text:style-name="Break"/>)"; }

    void add(const Section& section)
    {
        page_ = section.page;
        master_ = masterOf(page_);
        isPagePending_ = true;
    }

    void add(const Figure& figure)
    {
        const double high = std::max(20.0, page_.height - page_.top - page_.bottom - 15);
        const double scale = std::min({1.0, room() / figure.drawing.width, high / figure.drawing.height});
        text_ += "<text:p text:style-name=\"" + styleFor("Figure") + "\">"
            + picture(figure.drawing,
                figure.drawing.width * scale,
                figure.drawing.height * scale,
                R"(draw:style-name="Graphics" text:anchor-type="as-char")")
            + "</text:p>";
        if (!figure.caption.empty())
            paragraph("Figure_20_caption", {{figure.caption}});
    }

    void add(const TableBlock& table)
    {
        // A table begins no pages by itself here: a paragraph before it does.
        if (!table.title.empty())
            paragraph("Caption", {{table.title}});
        else if (isPagePending_)
            paragraph("Table_20_End", {});
        const std::vector<double> widths = columnWidths(table, room());
        const std::string name = "T" + std::to_string(++tables_);
        double all = 0;
        for (const double width : widths)
            all += width;
        styles_ += "<style:style style:name=\"" + name
            + "\" style:family=\"table\"><style:table-properties style:width=\"" + odtLength(all)
            + R"(" table:align="left" table:border-model="collapsing"/></style:style>)";
        text_ += "<table:table table:name=\"" + name + "\" table:style-name=\"" + name + "\">";
        for (std::size_t i = 0; i < widths.size(); ++i) {
            const std::string column = name + "C" + std::to_string(i + 1);
            styles_ += "<style:style style:name=\"" + column
                + "\" style:family=\"table-column\"><style:table-column-properties style:column-width=\""
                + odtLength(widths[i]) + "\"/></style:style>";
            text_ += "<table:table-column table:style-name=\"" + column + "\"/>";
        }
        if (!table.head.empty()) {
            text_ += "<table:table-header-rows>";
            rows(table.head, widths.size(), true);
            text_ += "</table:table-header-rows>";
        }
        forRows(table, [&](const TableRows& body) { rows(body, widths.size(), false); });
        if (table.rows.empty() && table.madeRows == 0)
            rows({{TableCell{}}}, widths.size(), false);
        text_ += R"(</table:table><text:p text:style-name="Table_20_End"/>)";
    }

    void rows(const TableRows& rows, std::size_t columns, bool isHead)
    {
        const TableGrid grid(rows, columns);
        for (std::size_t row = 0; row < grid.rows(); ++row) {
            text_ += R"(<table:table-row table:style-name="Row">)";
            for (std::size_t column = 0; column < columns; ++column)
                cell(grid.at(row, column), isHead);
            text_ += "</table:table-row>";
        }
    }

    void cell(const GridPlace& place, bool isHead)
    {
        if (place.cell && !place.isStart) {
            text_ += "<table:covered-table-cell/>";
            return;
        }
        text_ += "<table:table-cell table:style-name=\"";
        text_ += place.cell && place.cell->isMarked ? "Marked" : isHead ? "Head" : "Cell";
        text_ += '"';
        if (place.cell && place.columns > 1)
            text_ += " table:number-columns-spanned=\"" + std::to_string(place.columns) + "\"";
        if (place.cell && place.rows > 1)
            text_ += " table:number-rows-spanned=\"" + std::to_string(place.rows) + "\"";
        if (place.cell && place.cell->number && !isHead)
            text_ += " office:value-type=\"float\" office:value=\"" + digitsOf(*place.cell->number) + "\">";
        else
            text_ += R"( office:value-type="string">)";
        text_ += "<text:p text:style-name=\"";
        text_ +=
            isHead || !place.cell ? "Table_20_Heading" : alignedName("Table_20_Contents", place.cell->align);
        text_ += "\">";
        if (place.cell)
            runs(place.cell->runs);
        text_ += "</text:p></table:table-cell>";
    }

    const Document& document_;
    const OfficeOptions& options_;
    PageFormat page_;
    std::string text_;
    std::string styles_;
    std::string list_;
    std::string master_;
    std::vector<OdtPage> pages_;
    std::vector<std::string> pictures_;
    int made_ = 0;
    int tables_ = 0;
    bool isPagePending_ = false;
};

} // namespace

std::string toOdt(const Document& document, const OfficeOptions& options)
{
    return OdtWriter(document, options).write();
}
