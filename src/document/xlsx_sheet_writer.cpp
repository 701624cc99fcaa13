#include "document/xlsx_sheet_writer.h"

#include "document/office_package.h"
#include "document/table_grid.h"
#include "document/xlsx_measures.h"

#include <algorithm>
#include <cmath>

namespace
{

constexpr std::size_t longestCell = 32767; // units of UTF-16
constexpr std::size_t mostRows = 1048576;
constexpr std::size_t mostColumns = 16384;

std::string columnName(std::size_t column)
{
    std::string name;
    for (std::size_t rest = column + 1; rest > 0; rest = (rest - 1) / 26)
        name.insert(name.begin(), static_cast<char>('A' + static_cast<int>((rest - 1) % 26)));
    return name;
}

// Texts of a part of the head or foot of a printed page, at most 255 characters.
std::string pageText(const std::wstring& text)
{
    std::wstring codes;
    for (const wchar_t character : firstCharacters(cleanText(text), 110))
        codes += character == L'&' ? std::wstring(L"&&") : std::wstring(1, character);
    return markupText(codes);
}

class SheetWriter
{
public:
    SheetWriter(const XlsxSheet& sheet, XlsxStyles& styles, ZipArchive& zip, ExportRemarks* remarks)
        : sheet_(sheet)
        , styles_(styles)
        , zip_(zip)
        , remarks_(remarks)
        , columns_(sheet.table ? std::min(columnCount(*sheet.table), mostColumns) : 1)
    {
        for (std::size_t column = 0; column < columns_; ++column)
            names_.push_back(columnName(column));
    }

    void write()
    {
        const std::size_t headRows = sheet_.table ? sheet_.table->head.size() : 0;
        headFrom_ = sheet_.above.size();
        bodyFrom_ = headFrom_ + headRows;
        text_ = xmlDeclaration + std::string("<worksheet xmlns=\"") + spreadsheetSpace
            + R"("><sheetPr><pageSetUpPr fitToPage="1"/></sheetPr>)";
        view();
        widths();
        text_ += "<sheetData>";
        for (const Block* block : sheet_.above)
            paragraph(*block);
        if (sheet_.table) {
            rows(sheet_.table->head, true);
            forRows(*sheet_.table, [this](const TableRows& body) { rows(body, false); });
        }
        for (const Block* block : sheet_.below)
            paragraph(*block);
        text_ += "</sheetData>";
        if (!filter().empty())
            text_ += "<autoFilter ref=\"" + filter() + "\"/>";
        merges();
        paper();
        text_ += "</worksheet>";
        zip_.write(text_);
    }

    SheetRanges ranges() const { return {filter(), headRows()}; }

private:
    std::string filter() const
    {
        if (bodyFrom_ == headFrom_ || tableEnd_ <= bodyFrom_)
            return {};
        return "A" + std::to_string(bodyFrom_) + ":" + columnName(columns_ - 1) + std::to_string(tableEnd_);
    }

    std::pair<std::size_t, std::size_t> headRows() const
    {
        return bodyFrom_ == headFrom_ ? std::pair<std::size_t, std::size_t>()
                                      : std::pair(headFrom_ + 1, bodyFrom_);
    }

    void view()
    {
        text_ += R"(<sheetViews><sheetView workbookViewId="0")";
        if (bodyFrom_ > headFrom_)
            text_ += "><pane ySplit=\"" + std::to_string(bodyFrom_) + "\" topLeftCell=\"A"
                + std::to_string(bodyFrom_ + 1) + R"(" activePane="bottomLeft" state="frozen"/></sheetView>)";
        else
            text_ += "/>";
        text_ += R"(</sheetViews><sheetFormatPr defaultRowHeight="13.2"/>)";
    }

    void widths()
    {
        if (!sheet_.table)
            return;
        std::vector<std::size_t> widths(columns_, 5);
        const auto widen = [&](const TableRows& rows, bool isHead) {
            const TableGrid grid(rows, columns_);
            for (std::size_t row = 0; row < grid.rows(); ++row)
                for (std::size_t column = 0; column < columns_; ++column) {
                    const GridPlace& place = grid.at(row, column);
                    if (!place.isStart || place.columns > 1)
                        continue;
                    const std::wstring text = plainText(place.cell->runs);
                    const std::size_t length = isHead ? longestWord(text) + 3 : longestLine(text);
                    widths[column] = std::max(widths[column], std::min(length, widestColumn));
                }
        };
        widen(sheet_.table->head, true);
        forRows(*sheet_.table, [&](const TableRows& rows) { widen(rows, false); });
        text_ += "<cols>";
        widths_ = widths;
        for (const std::size_t width : widths)
            allWidth_ += width;
        for (std::size_t column = 0; column < columns_; ++column) {
            const std::string number = std::to_string(column + 1);
            text_.append("<col min=\"")
                .append(number)
                .append("\" max=\"")
                .append(number)
                .append("\" width=\"");
            text_.append(std::to_string(widths[column] + 2)).append(R"(" customWidth="1"/>)");
        }
        text_ += "</cols>";
    }

    void paragraph(const Block& block)
    {
        XlsxLook look;
        TableCell cell;
        if (const auto* heading = std::get_if<Heading>(&block)) {
            look.kind = XlsxLook::Title;
            cell.runs = {{heading->text}};
        } else if (const auto* found = std::get_if<Paragraph>(&block)) {
            cell.runs = found->runs;
        }
        // Over the whole width of the table, broken there, or it would widen the printed page.
        look.isWrapped = true;
        ++row_;
        beginRow(linesOf(plainText(cell.runs), std::max<std::size_t>(allWidth_, 20)));
        string(cell, 0, look);
        text_ += "</row>";
        if (columns_ > 1)
            merges_.push_back("A" + rowNumber_ + ":" + names_.back() + rowNumber_);
    }

    void rows(const TableRows& rows, bool isHead)
    {
        const TableGrid grid(rows, columns_);
        for (std::size_t row = 0; row < grid.rows(); ++row) {
            if (row_ == mostRows) {
                if (tableEnd_ != mostRows)
                    remark(L"Таблица «" + sheet_.name
                        + L"» длиннее листа Excel: выведены первые 1 048 576 строк.");
                break;
            }
            ++row_;
            beginRow(isHead ? headLines(grid, row) : bodyLines(grid, row));
            for (std::size_t column = 0; column < columns_; ++column)
                cell(grid.at(row, column), column, isHead);
            text_ += "</row>";
            flush();
        }
        tableEnd_ = row_;
    }

    // 0: one line, of the ordinary height. Not every program that opens the file fits the rows by itself.
    std::size_t bodyLines(const TableGrid& grid, std::size_t row) const
    {
        std::size_t lines = 1;
        for (std::size_t column = 0; column < grid.columns(); ++column)
            if (const GridPlace& place = grid.at(row, column);
                place.isStart && place.rows == 1 && place.columns == 1 && !place.cell->number)
                lines = std::max(lines, linesOf(plainText(place.cell->runs), widths_[column]));
        return lines > 1 ? lines : 0;
    }

    void beginRow(std::size_t lines)
    {
        rowNumber_ = std::to_string(row_);
        text_ += "<row r=\"" + rowNumber_ + "\"";
        if (lines > 0)
            text_ += " ht=\"" + digitsOf(std::min(409.0, 13.0 * static_cast<double>(lines) + 3))
                + "\" customHeight=\"1\"";
        text_ += ">";
    }

    void cell(const GridPlace& place, std::size_t column, bool isHead)
    {
        XlsxLook look;
        look.kind = isHead ? XlsxLook::Head : XlsxLook::Body;
        if (!place.cell)
            return;
        const TableCell& cell = *place.cell;
        look.align = isHead ? static_cast<char>(1) : static_cast<char>(cell.align);
        look.isMarked = cell.isMarked;
        look.isWrapped = isHead;
        if (!cell.runs.empty()) {
            look.isBold = cell.runs.front().isBold;
            look.isItalic = cell.runs.front().isItalic;
            look.isStruck = cell.runs.front().isStruck;
        }
        if (!place.isStart) {
            blank(column, look);
            return;
        }
        if (place.columns > 1 || place.rows > 1)
            merges_.push_back(columnName(column) + rowNumber_ + ":"
                + columnName(column + static_cast<std::size_t>(place.columns) - 1)
                + std::to_string(row_ + static_cast<std::size_t>(place.rows) - 1));
        if (cell.number && std::isfinite(*cell.number)) {
            look.decimals = cell.decimals < 0 ? 0 : cell.decimals;
            open(column, look);
            text_ += "><v>" + digitsOf(*cell.number) + "</v></c>";
        } else {
            string(cell, column, look);
        }
    }

    void open(std::size_t column, const XlsxLook& look)
    {
        text_ += "<c r=\"";
        text_ += names_[column];
        text_ += rowNumber_;
        text_ += "\" s=\"";
        text_ += std::to_string(styles_.number(look));
        text_ += '"';
    }

    void blank(std::size_t column, const XlsxLook& look)
    {
        open(column, look);
        text_ += "/>";
    }

    void string(const TableCell& cell, std::size_t column, XlsxLook look)
    {
        std::wstring plain = plainText(cell.runs);
        if (plain.empty()) {
            blank(column, look);
            return;
        }
        if (look.kind == XlsxLook::Body)
            look.isWrapped = plain.size() > widestColumn || plain.find(L'\n') != std::wstring::npos;
        open(column, look);
        text_ += R"( t="inlineStr"><is>)";
        if (utf16Length(plain) > longestCell) {
            remark(L"Лист «" + sheet_.name + L"», ячейка " + wide(columnName(column) + rowNumber_)
                + L": текст длиннее 32 767 знаков, предела Excel, и обрезан (в конце стоит «…»).");
            run(firstCharacters(cleanText(plain), longestCell - 1) + L"…");
        } else if (isRich(cell.runs)) {
            for (const Run& part : cell.runs)
                richRun(part);
        } else {
            run(plain);
        }
        text_ += "</is></c>";
    }

    static std::wstring wide(const std::string& ascii) { return {ascii.begin(), ascii.end()}; }

    static bool isRich(const Runs& runs)
    {
        return std::any_of(runs.begin(), runs.end(), [&](const Run& run) {
            return run.position != Run::Normal || run.isBold != runs.front().isBold
                || run.isItalic != runs.front().isItalic || run.isStruck != runs.front().isStruck;
        });
    }

    void run(std::wstring_view text)
    {
        text_ += "<t xml:space=\"preserve\">";
        text_ += markupText(text);
        text_ += "</t>";
    }

    void richRun(const Run& part)
    {
        text_ += "<r><rPr>";
        if (part.isBold)
            text_ += "<b/>";
        if (part.isItalic)
            text_ += "<i/>";
        if (part.isStruck)
            text_ += "<strike/>";
        if (part.position != Run::Normal)
            text_ += part.position == Run::Raised ? R"(<vertAlign val="superscript"/>)"
                                                  : R"(<vertAlign val="subscript"/>)";
        text_ += R"(<sz val="10"/><rFont val="Arial"/></rPr>)";
        run(part.text);
        text_ += "</r>";
    }

    void merges()
    {
        if (merges_.empty())
            return;
        text_ += "<mergeCells count=\"" + std::to_string(merges_.size()) + "\">";
        for (const std::string& merge : merges_)
            text_ += "<mergeCell ref=\"" + merge + "\"/>";
        text_ += "</mergeCells>";
    }

    void paper()
    {
        const PageFormat& page = sheet_.page;
        const auto inches = [](double mm) { return digitsOf(std::round(mm / 25.4 * 100) / 100); };
        text_ += "<pageMargins left=\"" + inches(page.left) + "\" right=\"" + inches(page.right) + "\" top=\""
            + inches(page.top + 5) + "\" bottom=\"" + inches(page.bottom + 5)
            + R"(" header="0.3" footer="0.3"/>)";
        const bool isA3 = std::max(page.width, page.height) > 400;
        text_ += std::string(R"(<pageSetup paperSize=")") + (isA3 ? "8" : "9")
            + R"(" fitToHeight="0" orientation=")" + (page.width > page.height ? "landscape" : "portrait")
            + "\"/>";
        text_ += "<headerFooter><oddFooter>&amp;L" + pageText(sheet_.name)
            + "&amp;R&amp;P / &amp;N</oddFooter></headerFooter>";
    }

    void flush()
    {
        constexpr std::size_t piece = 1 << 17;
        if (text_.size() < piece)
            return;
        zip_.write(text_);
        text_.clear();
    }

    void remark(std::wstring text)
    {
        if (remarks_)
            remarks_->push_back(std::move(text));
    }

    const XlsxSheet& sheet_;
    XlsxStyles& styles_;
    ZipArchive& zip_;
    ExportRemarks* remarks_;
    std::size_t columns_;
    std::size_t row_ = 0;
    std::size_t headFrom_ = 0;
    std::size_t bodyFrom_ = 0;
    std::size_t tableEnd_ = 0;
    std::string rowNumber_;
    std::vector<std::string> names_;
    std::vector<std::size_t> widths_; // characters
    std::size_t allWidth_ = 0;
    std::vector<std::string> merges_;
    std::string text_;
};

} // namespace

SheetRanges writeSheet(const XlsxSheet& sheet, XlsxStyles& styles, ZipArchive& zip, ExportRemarks* remarks)
{
    SheetWriter writer(sheet, styles, zip, remarks);
    writer.write();
    return writer.ranges();
}
