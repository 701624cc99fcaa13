#include "document/docx.h"

#include "document/column_widths.h"
#include "document/docx_styles.h"
#include "document/emf.h"
#include "document/office_package.h"
#include "document/page_frame.h"
#include "document/table_grid.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace
{

std::string twips(double mm)
{
    return std::to_string(std::lround(mm * 1440 / 25.4));
}

std::string emus(double mm)
{
    return std::to_string(std::lround(mm * 36000));
}

std::string spaces()
{
    return "xmlns:w=\"" + std::string(wordSpace) + "\" xmlns:r=\"" + relationSpace
        + R"(" xmlns:wp="http://schemas.openxmlformats.org/drawingml/2006/wordprocessingDrawing")"
          R"( xmlns:a="http://schemas.openxmlformats.org/drawingml/2006/main")"
          R"( xmlns:pic="http://schemas.openxmlformats.org/drawingml/2006/picture")";
}

std::string field(const char* code)
{
    return R"(<w:r><w:fldChar w:fldCharType="begin"/></w:r><w:r><w:instrText xml:space="preserve"> )"
        + std::string(code)
        + R"( </w:instrText></w:r><w:r><w:fldChar w:fldCharType="separate"/></w:r><w:r><w:t>1</w:t></w:r>)"
          R"(<w:r><w:fldChar w:fldCharType="end"/></w:r>)";
}

void appendText(std::string& text, std::wstring_view content)
{
    std::size_t begin = 0;
    while (begin <= content.size()) {
        const std::size_t end = std::min(content.find(L'\n', begin), content.size());
        if (begin > 0)
            text += "<w:br/>";
        if (end > begin)
            text +=
                "<w:t xml:space=\"preserve\">" + markupText(content.substr(begin, end - begin)) + "</w:t>";
        begin = end + 1;
    }
}

void appendRun(std::string& text, const Run& run)
{
    if (run.text.empty())
        return;
    text += "<w:r>";
    if (run.isBold || run.isItalic || run.isStruck || run.position != Run::Normal) {
        text += "<w:rPr>";
        if (run.isBold)
            text += "<w:b/>";
        if (run.isItalic)
            text += "<w:i/>";
        if (run.isStruck)
            text += "<w:strike/>";
        if (run.position != Run::Normal)
            text += run.position == Run::Raised ? R"(<w:vertAlign w:val="superscript"/>)"
                                                : R"(<w:vertAlign w:val="subscript"/>)";
        text += "</w:rPr>";
    }
    appendText(text, run.text);
    text += "</w:r>";
}

constexpr std::array<const char*, 3> alignments{"left", "center", "right"};

class DocxWriter
{
public:
    DocxWriter(const Document& document, const OfficeOptions& options)
        : document_(document)
        , options_(options)
        , package_("word/document.xml", type("document.main+xml"))
        , page_(document.page)
    {
    }

    std::string write()
    {
        for (const Block& block : document_.blocks) {
            if (!std::holds_alternative<Paragraph>(block))
                inNumberedList_ = false;
            std::visit([this](const auto& found) { add(found); }, block);
        }
        const std::string last = sectionProperties();
        package_.addPart("styles.xml", type("styles+xml"), "styles");
        package_.addPart("numbering.xml", type("numbering+xml"), "numbering");
        package_.addPart("settings.xml", type("settings+xml"), "settings");
        ZipArchive zip;
        package_.write(zip, document_);
        zip.add("word/document.xml",
            std::string(xmlDeclaration) + "<w:document " + spaces() + "><w:body>" + text_ + last
                + "</w:body></w:document>");
        zip.add("word/styles.xml", docxStyles());
        zip.add("word/numbering.xml", docxNumbering(lists_));
        zip.add("word/settings.xml",
            std::string(xmlDeclaration) + "<w:settings xmlns:w=\"" + wordSpace
                + R"("><w:defaultTabStop w:val="709"/><w:compat><w:compatSetting w:name="compatibilityMode")"
                  R"( w:uri="http://schemas.microsoft.com/office/word" w:val="15"/></w:compat></w:settings>)");
        for (const auto& [name, content] : parts_)
            zip.add("word/" + name, content);
        return zip.bytes();
    }

private:
    static std::string type(const std::string& kind)
    {
        return "application/vnd.openxmlformats-officedocument.wordprocessingml." + kind;
    }

    double room() const { return std::max(20.0, page_.width - page_.left - page_.right); }

    // ---- blocks ----

    void beginParagraph(const char* style, Align align = Align::Left, const std::string& more = {})
    {
        text_ += "<w:p><w:pPr><w:pStyle w:val=\"" + std::string(style) + "\"/>" + more;
        if (align != Align::Left)
            text_ += "<w:jc w:val=\"" + std::string(alignments[static_cast<std::size_t>(align)]) + "\"/>";
        text_ += "</w:pPr>";
    }

    void add(const Heading& heading)
    {
        const std::string style = "Heading" + std::to_string(std::clamp(heading.level, 1, 3));
        beginParagraph(style.c_str());
        appendRun(text_, {heading.text});
        text_ += "</w:p>";
    }

    void add(const Paragraph& paragraph)
    {
        constexpr std::array<const char*, 5> names{"Normal", "Caption", "Note", "ListBullet", "ListNumber"};
        std::string more;
        const bool isNumbered = paragraph.style == Paragraph::Numbered;
        if (isNumbered) {
            if (!inNumberedList_)
                ++lists_;
            more =
                "<w:numPr><w:ilvl w:val=\"0\"/><w:numId w:val=\"" + std::to_string(lists_) + "\"/></w:numPr>";
        }
        inNumberedList_ = isNumbered;
        beginParagraph(names[static_cast<std::size_t>(paragraph.style)], paragraph.align, more);
        for (const Run& run : paragraph.runs)
            appendRun(text_, run);
        text_ += "</w:p>";
    }

    void add(const PageBreak&) { text_ += R"(<w:p><w:r><w:br w:type="page"/></w:r></w:p>)"; }

    void add(const Section& section)
    {
        // The format of a section stands in its last paragraph.
        if (!text_.empty())
            text_ += R"(<w:p><w:pPr><w:pStyle w:val="TableEnd"/>)" + sectionProperties() + "</w:pPr></w:p>";
        page_ = section.page;
    }

    void add(const Figure& figure)
    {
        const double high = std::max(20.0, page_.height - page_.top - page_.bottom - 15);
        const double scale = std::min({1.0, room() / figure.drawing.width, high / figure.drawing.height});
        beginParagraph("Figure");
        const std::string id = package_.addPart(addPicture(figure.drawing), "", "image");
        text_ += "<w:r><w:drawing>"
            + inlinePicture(id, figure.drawing.width * scale, figure.drawing.height * scale)
            + "</w:drawing></w:r></w:p>";
        if (!figure.caption.empty()) {
            beginParagraph("FigureCaption", Align::Centre);
            appendRun(text_, {figure.caption});
            text_ += "</w:p>";
        }
    }

    void add(const TableBlock& table)
    {
        if (!table.title.empty()) {
            beginParagraph("Caption");
            appendRun(text_, {table.title});
            text_ += "</w:p>";
        }
        const std::vector<double> widths = columnWidths(table, room());
        double all = 0;
        for (const double width : widths)
            all += width;
        text_ += R"(<w:tbl><w:tblPr><w:tblStyle w:val="Table"/><w:tblW w:w=")" + twips(all)
            + R"(" w:type="dxa"/><w:tblLayout w:type="fixed"/></w:tblPr><w:tblGrid>)";
        for (const double width : widths)
            text_ += "<w:gridCol w:w=\"" + twips(width) + "\"/>";
        text_ += "</w:tblGrid>";
        rows(table.head, widths, true);
        forRows(table, [&](const TableRows& body) { rows(body, widths, false); });
        if (table.head.empty() && table.rows.empty() && table.madeRows == 0)
            rows({{TableCell{}}}, widths, false);
        text_ += R"(</w:tbl><w:p><w:pPr><w:pStyle w:val="TableEnd"/></w:pPr></w:p>)";
    }

    // ---- tables ----

    void rows(const TableRows& rows, const std::vector<double>& widths, bool isHead)
    {
        const TableGrid grid(rows, widths.size());
        for (std::size_t row = 0; row < grid.rows(); ++row) {
            text_ += isHead ? "<w:tr><w:trPr><w:cantSplit/><w:tblHeader/></w:trPr>"
                            : "<w:tr><w:trPr><w:cantSplit/></w:trPr>";
            for (std::size_t column = 0; column < widths.size();) {
                const int wide = grid.at(row, column).cell ? grid.columnsFrom(row, column) : 1;
                cell(grid.at(row, column), widths, column, static_cast<std::size_t>(wide), isHead);
                column += static_cast<std::size_t>(wide);
            }
            text_ += "</w:tr>";
        }
    }

    void cell(const GridPlace& place,
        const std::vector<double>& widths,
        std::size_t column,
        std::size_t wide,
        bool isHead)
    {
        double width = 0;
        for (std::size_t i = column; i < column + wide; ++i)
            width += widths[i];
        text_ += "<w:tc><w:tcPr><w:tcW w:w=\"" + twips(width) + "\" w:type=\"dxa\"/>";
        if (wide > 1)
            text_ += "<w:gridSpan w:val=\"" + std::to_string(wide) + "\"/>";
        if (place.cell && place.cell->rows > 1)
            text_ += place.isStart ? R"(<w:vMerge w:val="restart"/>)" : "<w:vMerge/>";
        if (place.cell && place.cell->isMarked)
            text_ += R"(<w:shd w:val="clear" w:color="auto" w:fill="D9D9D9"/>)";
        if (isHead)
            text_ += R"(<w:vAlign w:val="center"/>)";
        text_ += "</w:tcPr>";
        beginParagraph(
            isHead ? "TableHead" : "TableText", place.cell && !isHead ? place.cell->align : Align::Left);
        if (place.cell && place.isStart)
            for (const Run& run : place.cell->runs)
                appendRun(text_, run);
        text_ += "</w:p></w:tc>";
    }

    // ---- pictures ----

    std::string addPicture(const Drawing& drawing)
    {
        std::string name = "media/image" + std::to_string(++pictures_) + ".emf";
        parts_.emplace_back(name, toEmf(drawing, options_.hatches));
        return name;
    }

    std::string graphic(const std::string& id, double width, double height) const
    {
        const std::string number = std::to_string(pictures_);
        return "<wp:docPr id=\"" + number + "\" name=\"" + "Рисунок " + number
            + R"("/><a:graphic><a:graphicData uri="http://schemas.openxmlformats.org/drawingml/2006/picture"><pic:pic><pic:nvPicPr>)"
            + "<pic:cNvPr id=\"" + number + "\" name=\"image" + number
            + R"("/><pic:cNvPicPr/></pic:nvPicPr><pic:blipFill><a:blip r:embed=")" + id
            + R"("/><a:stretch><a:fillRect/></a:stretch></pic:blipFill><pic:spPr><a:xfrm><a:off x="0" y="0"/><a:ext cx=")"
            + emus(width) + "\" cy=\"" + emus(height)
            + R"("/></a:xfrm><a:prstGeom prst="rect"><a:avLst/></a:prstGeom></pic:spPr></pic:pic></a:graphicData></a:graphic>)";
    }

    std::string inlinePicture(const std::string& id, double width, double height) const
    {
        return R"(<wp:inline distT="0" distB="0" distL="0" distR="0"><wp:extent cx=")" + emus(width)
            + "\" cy=\"" + emus(height) + "\"/>" + graphic(id, width, height) + "</wp:inline>";
    }

    // ---- pages ----

    std::string framePicture(const std::string& id) const
    {
        return R"(<w:r><w:drawing><wp:anchor distT="0" distB="0" distL="0" distR="0" simplePos="0" relativeHeight="1")"
               R"( behindDoc="1" locked="0" layoutInCell="1" allowOverlap="1"><wp:simplePos x="0" y="0"/>)"
               R"(<wp:positionH relativeFrom="page"><wp:posOffset>0</wp:posOffset></wp:positionH>)"
               R"(<wp:positionV relativeFrom="page"><wp:posOffset>0</wp:posOffset></wp:positionV><wp:extent cx=")"
            + emus(page_.width) + "\" cy=\"" + emus(page_.height) + R"("/><wp:wrapNone/>)"
            + graphic(id, page_.width, page_.height) + "</wp:anchor></w:drawing></w:r>";
    }

    // A number in a frame of its own at a place of the page, of which the middle is told from the lower
    // right. Boxes of the newer kind end up in the corner of the page in one processor; in a frame that text flows
    // around the same one forgets the heads of long tables.
    std::string placedNumber(const char* code, const Spot& at) const
    {
        constexpr double wide = 12;
        constexpr double high = 5;
        constexpr double belowBaseLine = 1.2;
        return R"(<w:p><w:pPr><w:pStyle w:val="Header"/><w:framePr w:w=")" + twips(wide) + "\" w:h=\""
            + twips(high) + R"(" w:hRule="exact" w:wrap="through" w:vAnchor="page" w:hAnchor="page" w:x=")"
            + twips(page_.width - at.x - wide / 2) + "\" w:y=\""
            + twips(page_.height - at.y - high + belowBaseLine) + R"("/><w:jc w:val="center"/></w:pPr>)"
            + field(code) + "</w:p>";
    }

    // A header with the frame of the first page, or of the next ones; answers its id.
    std::string addFrame(bool isFirst)
    {
        const std::string name = "header" + std::to_string(++frames_) + ".xml";
        const std::string relations = "_rels/" + name + ".rels";
        const std::string picture = addPicture(document_.frame.draw(page_, isFirst ? 1 : 2, 0));
        std::string text = std::string(xmlDeclaration) + "<w:hdr " + spaces() + ">";
        const PageFrame& frame = document_.frame;
        text += placedNumber("PAGE", isFirst ? frame.firstNumber : frame.number);
        if (isFirst)
            text += placedNumber("NUMPAGES", frame.firstCount);
        text += R"(<w:p><w:pPr><w:pStyle w:val="Header"/></w:pPr>)" + framePicture("rId1");
        text += "</w:p></w:hdr>";
        parts_.emplace_back(name, text);
        parts_.emplace_back(relations,
            std::string(xmlDeclaration)
                + R"(<Relationships xmlns="http://schemas.openxmlformats.org/package/2006/relationships"><Relationship Id="rId1" Type=")"
                + relationSpace + "/image\" Target=\"" + picture + "\"/></Relationships>");
        return package_.addPart(name, type("header+xml"), "header");
    }

    // Nothing but height, which moves the texts of the first page up above its stamp.
    template <class Reference>
    std::string firstFoot(const Reference& reference)
    {
        constexpr double airAbove = 4; // mm
        const double stamp = stampHeight(document_.frame, page_, 1) + airAbove;
        if (stamp <= page_.bottom)
            return {};
        const std::string name = "footer" + std::to_string(++foots_) + ".xml";
        parts_.emplace_back(name,
            std::string(xmlDeclaration) + "<w:ftr " + spaces()
                + R"(><w:p><w:pPr><w:pStyle w:val="Footer"/><w:spacing w:before="0" w:after="0" w:line=")"
                + twips(stamp - page_.bottom / 2) + R"(" w:lineRule="exact"/></w:pPr></w:p></w:ftr>)");
        return reference("footer", "first", package_.addPart(name, type("footer+xml"), "footer"));
    }

    std::string headsAndFoots()
    {
        const auto reference = [](const char* kind, const char* pages, const std::string& id) {
            return "<w:" + std::string(kind) + "Reference w:type=\"" + pages + "\" r:id=\"" + id + "\"/>";
        };
        if (document_.frame.draw) {
            if (isFirstSection_)
                return reference("header", "first", addFrame(true))
                    + reference("header", "default", addFrame(false)) + firstFoot(reference);
            return reference("header", "default", addFrame(false));
        }
        std::string text;
        if (headId_.empty()) {
            if (!document_.header.empty()) {
                std::string part = std::string(xmlDeclaration) + "<w:hdr " + spaces()
                    + R"(><w:p><w:pPr><w:pStyle w:val="Header"/></w:pPr>)";
                appendRun(part, {document_.header});
                parts_.emplace_back("header.xml", part + "</w:p></w:hdr>");
                headId_ = package_.addPart("header.xml", type("header+xml"), "header");
            }
        }
        if (!headId_.empty())
            text += reference("header", "default", headId_);
        // The number stands at the right edge, which is another one in each format.
        const std::string name = "footer" + std::to_string(++foots_) + ".xml";
        std::string part = std::string(xmlDeclaration) + "<w:ftr " + spaces()
            + R"(><w:p><w:pPr><w:pStyle w:val="Footer"/><w:tabs><w:tab w:val="right" w:pos=")" + twips(room())
            + "\"/></w:tabs></w:pPr>";
        appendRun(part, {document_.footer});
        part += "<w:r><w:tab/></w:r>" + field("PAGE") + "</w:p></w:ftr>";
        parts_.emplace_back(name, part);
        return text + reference("footer", "default", package_.addPart(name, type("footer+xml"), "footer"));
    }

    std::string sectionProperties()
    {
        std::string text = "<w:sectPr>" + headsAndFoots() + "<w:pgSz w:w=\"" + twips(page_.width)
            + "\" w:h=\"" + twips(page_.height) + "\""
            + (page_.width > page_.height ? " w:orient=\"landscape\"" : "") + "/><w:pgMar w:top=\""
            + twips(page_.top) + "\" w:right=\"" + twips(page_.right) + "\" w:bottom=\"" + twips(page_.bottom)
            + "\" w:left=\"" + twips(page_.left) + "\" w:header=\"" + twips(page_.top / 2) + "\" w:footer=\""
            + twips(page_.bottom / 2) + R"(" w:gutter="0"/>)";
        if (document_.frame.draw && isFirstSection_)
            text += "<w:titlePg/>";
        isFirstSection_ = false;
        return text + "</w:sectPr>";
    }

    const Document& document_;
    const OfficeOptions& options_;
    OfficePackage package_;
    PageFormat page_;
    std::string text_;
    std::vector<std::pair<std::string, std::string>> parts_;
    std::string headId_;
    int pictures_ = 0;
    int frames_ = 0;
    int foots_ = 0;
    int lists_ = 1;
    bool inNumberedList_ = false;
    bool isFirstSection_ = true;
};

} // namespace

std::string toDocx(const Document& document, const OfficeOptions& options)
{
    return DocxWriter(document, options).write();
}
