#include "document/html.h"

#include "document/table_grid.h"
#include "drawing/svg.h"

#include <algorithm>

namespace
{

constexpr const char* pageStyle = R"(
body { font: 11pt/1.35 Arial, "Liberation Sans", sans-serif; color: #000; background: #fff; margin: 2em auto; max-width: 72em; padding: 0 1em; }
h1 { font-size: 15pt; } h2 { font-size: 13pt; } h3 { font-size: 11pt; }
p { margin: 0 0 .5em; }
p.note { font-size: 9pt; }
p.caption, caption { font-size: 10pt; font-weight: bold; text-align: left; padding: 1em 0 .3em; }
table { border-collapse: collapse; font-size: 9.5pt; margin-bottom: 1em; }
th, td { border: 1px solid #777; padding: .15em .45em; vertical-align: top; white-space: pre-line; }
th { background: #e7ebef; vertical-align: middle; }
.c { text-align: center; } .r { text-align: right; } td.m { background: #d9d9d9; }
figure { margin: 1em 0; page-break-inside: avoid; } figure svg { max-width: 100%; height: auto; }
figcaption { font-size: 10pt; }
thead { display: table-header-group; }
header, footer { font-size: 9pt; color: #444; }
@media print { body { margin: 0; max-width: none; } tr { page-break-inside: avoid; } }
)";

void appendRuns(std::string& html, const Runs& runs)
{
    for (const Run& run : runs) {
        const std::pair<bool, const char*> tags[] = {{run.isBold, "b"},
            {run.isItalic, "i"},
            {run.isStruck, "s"},
            {run.position == Run::Raised, "sup"},
            {run.position == Run::Lowered, "sub"}};
        for (const auto& [isOn, tag] : tags)
            if (isOn)
                html.append("<").append(tag).append(">");
        html += markupText(run.text);
        for (auto tag = std::rbegin(tags); tag != std::rend(tags); ++tag)
            if (tag->first)
                html.append("</").append(tag->second).append(">");
    }
}

std::string number(int value)
{
    return std::to_string(value);
}

void appendRows(std::string& html, const TableRows& rows, std::size_t columns, bool isHead)
{
    const TableGrid grid(rows, columns);
    const char* const tag = isHead ? "th" : "td";
    for (std::size_t row = 0; row < grid.rows(); ++row) {
        html += "<tr>";
        for (std::size_t column = 0; column < columns; ++column) {
            const GridPlace& place = grid.at(row, column);
            if (place.cell && !place.isStart)
                continue;
            html.append("<").append(tag);
            if (place.cell) {
                if (place.columns > 1)
                    html += " colspan=\"" + number(place.columns) + "\"";
                if (place.rows > 1)
                    html += " rowspan=\"" + number(place.rows) + "\"";
                const char* const align = isHead         ? ""
                    : place.cell->align == Align::Right  ? "r"
                    : place.cell->align == Align::Centre ? "c"
                                                         : "";
                const std::string names = std::string(align) + (*align && place.cell->isMarked ? " " : "")
                    + (place.cell->isMarked ? "m" : "");
                if (!names.empty())
                    html += " class=\"" + names + "\"";
            }
            html += ">";
            if (place.cell)
                appendRuns(html, place.cell->runs);
            html.append("</").append(tag).append(">");
        }
        html += "</tr>\n";
    }
}

void appendTable(std::string& html, const TableBlock& table)
{
    const std::size_t columns = columnCount(table);
    html += "<table>\n";
    if (!table.title.empty())
        html += "<caption>" + markupText(table.title) + "</caption>\n";
    if (!table.head.empty()) {
        html += "<thead>\n";
        appendRows(html, table.head, columns, true);
        html += "</thead>\n";
    }
    html += "<tbody>\n";
    forRows(table, [&](const TableRows& rows) { appendRows(html, rows, columns, false); });
    html += "</tbody></table>\n";
}

class HtmlWriter
{
public:
    HtmlWriter(const Document& document, const OfficeOptions& options)
        : options_(options)
    {
        html_ = "<!DOCTYPE html>\n<html lang=\"ru\"><head><meta charset=\"utf-8\"><title>"
            + markupText(document.title) + "</title>";
        if (!document.author.empty())
            html_ += "<meta name=\"author\" content=\"" + markupText(document.author) + "\">";
        html_ += std::string("<style>") + pageStyle + "</style></head><body>\n";
        if (!document.header.empty())
            html_ += "<header>" + markupText(document.header) + "</header>\n";
        for (const Block& block : document.blocks) {
            closeList(block);
            std::visit([this](const auto& found) { add(found); }, block);
        }
        closeList(PageBreak());
        if (!document.footer.empty())
            html_ += "<footer>" + markupText(document.footer) + "</footer>\n";
        html_ += "</body></html>\n";
    }

    std::string take() { return std::move(html_); }

private:
    void closeList(const Block& next)
    {
        const auto* paragraph = std::get_if<Paragraph>(&next);
        const char* const wanted = !paragraph         ? ""
            : paragraph->style == Paragraph::Bullet   ? "ul"
            : paragraph->style == Paragraph::Numbered ? "ol"
                                                      : "";
        if (list_ == wanted)
            return;
        if (!list_.empty())
            html_ += "</" + list_ + ">\n";
        list_ = wanted;
        if (!list_.empty())
            html_ += "<" + list_ + ">\n";
    }

    void add(const Heading& heading)
    {
        const std::string tag = "h" + number(std::clamp(heading.level, 1, 3));
        html_ += "<" + tag + ">" + markupText(heading.text) + "</" + tag + ">\n";
    }

    void add(const Paragraph& paragraph)
    {
        if (!list_.empty()) {
            html_ += "<li>";
            appendRuns(html_, paragraph.runs);
            html_ += "</li>\n";
            return;
        }
        std::string names = paragraph.style == Paragraph::Note ? "note"
            : paragraph.style == Paragraph::Caption            ? "caption"
                                                               : "";
        if (paragraph.align != Align::Left)
            names += paragraph.align == Align::Right ? " r" : " c";
        html_ += names.empty() ? "<p>" : "<p class=\"" + names + "\">";
        appendRuns(html_, paragraph.runs);
        html_ += "</p>\n";
    }

    void add(const TableBlock& table) { appendTable(html_, table); }

    void add(const Figure& figure)
    {
        static const Hatches none;
        std::string svg = toSvg(figure.drawing, options_.hatches ? *options_.hatches : none);
        if (const std::size_t begin = svg.find("<svg"); begin != std::string::npos)
            svg.erase(0, begin);
        html_ += "<figure>" + svg;
        if (!figure.caption.empty())
            html_ += "<figcaption>" + markupText(figure.caption) + "</figcaption>";
        html_ += "</figure>\n";
    }

    void add(const PageBreak&) { html_ += "<div style=\"page-break-after: always\"></div>\n"; }
    void add(const Section&) { }

    const OfficeOptions& options_;
    std::string html_;
    std::string list_;
};

} // namespace

std::string toHtml(const Document& document, const OfficeOptions& options)
{
    return HtmlWriter(document, options).take();
}

std::string toHtmlFragment(const TableBlock& table)
{
    std::string html;
    appendTable(html, table);
    return html;
}
