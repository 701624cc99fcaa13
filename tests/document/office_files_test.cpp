#include "document/docx.h"
#include "document/emf.h"
#include "document/html.h"
#include "document/odt.h"
#include "document/office_reader.h"
#include "document/sample_document.h"
#include "document/table_grid.h"
#include "document/xlsx.h"
#include "document/xlsx_sheets.h"
#include "platform/utf8.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <pugixml.hpp>
#include <set>
#include <sstream>

namespace
{

using Parts = std::map<std::string, std::string>;

pugi::xml_document xmlOf(const Parts& parts, const std::string& name)
{
    pugi::xml_document xml;
    const auto part = parts.find(name);
    if (part == parts.end())
        ADD_FAILURE() << name << " is missing";
    else
        EXPECT_TRUE(xml.load_buffer(
            part->second.data(), part->second.size(), pugi::parse_default | pugi::parse_ws_pcdata))
            << name;
    return xml;
}

// All text below a node.
std::string textOf(const pugi::xml_node& node)
{
    std::string text = node.value();
    for (const pugi::xml_node& child : node.children())
        text += textOf(child);
    return text;
}

// The cell of a sheet by its name, "B3".
pugi::xml_node cellOf(const pugi::xml_document& sheet, const char* name)
{
    return sheet.find_node([&](const pugi::xml_node& node) {
        return std::string(node.name()) == "c" && std::string(node.attribute("r").value()) == name;
    });
}

// That of its format of numbers.
std::string formatOf(const Parts& parts, const pugi::xml_node& cell)
{
    const pugi::xml_document styles = xmlOf(parts, "xl/styles.xml");
    pugi::xml_node look = styles.child("styleSheet").child("cellXfs").first_child();
    for (int i = cell.attribute("s").as_int(); i > 0; --i)
        look = look.next_sibling();
    return styles.child("styleSheet")
        .child("numFmts")
        .find_child_by_attribute("numFmtId", look.attribute("numFmtId").value())
        .attribute("formatCode")
        .value();
}

std::vector<pugi::xml_node> nodes(const pugi::xml_node& from, const std::string& name)
{
    std::vector<pugi::xml_node> found;
    for (const pugi::xml_node& child : from.children()) {
        if (child.name() == name)
            found.push_back(child);
        const auto below = nodes(child, name);
        found.insert(found.end(), below.begin(), below.end());
    }
    return found;
}

// Every part has a content type and every relation leads to a part, as strict readers demand.
void expectSoundPackage(const Parts& parts)
{
    const pugi::xml_document types = xmlOf(parts, "[Content_Types].xml");
    std::set<std::string> endings;
    std::set<std::string> named;
    for (const pugi::xml_node& type : types.child("Types").children())
        (std::string(type.name()) == "Default" ? endings : named)
            .insert(type.attribute(std::string(type.name()) == "Default" ? "Extension" : "PartName").value());
    for (const std::string& name : named)
        EXPECT_EQ(parts.count(name.substr(1)), 1U) << name;
    for (const auto& [name, content] : parts) {
        EXPECT_TRUE(named.count("/" + name) || endings.count(name.substr(name.rfind('.') + 1))) << name;
        if (!name.ends_with(".rels"))
            continue;
        std::string folder = name.substr(0, name.find("_rels/"));
        const pugi::xml_document relations = xmlOf(parts, name);
        for (const pugi::xml_node& relation : nodes(relations, "Relationship"))
            EXPECT_EQ(parts.count(folder + relation.attribute("Target").value()), 1U)
                << name << ": " << relation.attribute("Target").value();
    }
}

TEST(Xlsx, KeepsNumbersTextsMergesAndHeads)
{
    ExportRemarks remarks;
    const Parts parts = partsOf(toXlsx(sampleDocument(), {nullptr, &remarks}));
    expectSoundPackage(parts);
    const pugi::xml_document sheet = xmlOf(parts, "xl/worksheets/sheet1.xml");
    // Seven paragraphs stand above the head of two rows: the first layer is row 10.
    EXPECT_EQ(textOf(cellOf(sheet, "A1")), "1 Инженерно-геологические условия");
    EXPECT_EQ(textOf(cellOf(sheet, "A8")), "Скважина");
    EXPECT_EQ(textOf(cellOf(sheet, "A10")), "Скв-1");
    EXPECT_EQ(cellOf(sheet, "E10").child("v").text().get(), std::string("1.9"));
    EXPECT_EQ(formatOf(parts, cellOf(sheet, "E10")), "0.000");
    EXPECT_EQ(formatOf(parts, cellOf(sheet, "B10")), "0.0");
    EXPECT_STREQ(nodes(cellOf(sheet, "D10"), "vertAlign").front().attribute("val").value(), "subscript");
    std::set<std::string> merges;
    for (const pugi::xml_node& merge : nodes(sheet, "mergeCell"))
        merges.insert(merge.attribute("ref").value());
    for (const char* merge : {"A8:A9", "B8:C8", "D8:D9", "E8:E9", "A80:C80"})
        EXPECT_EQ(merges.count(merge), 1U) << merge;
    EXPECT_STREQ(nodes(sheet, "pane").front().attribute("topLeftCell").value(), "A10");
    EXPECT_STREQ(nodes(sheet, "autoFilter").front().attribute("ref").value(), "A9:E80");
    EXPECT_NE(textOf(xmlOf(parts, "xl/workbook.xml")).find("'Таблица 1. Слои (скважин)- мощн'!$8:$9"),
        std::string::npos)
        << textOf(xmlOf(parts, "xl/workbook.xml"));
    EXPECT_EQ(
        std::count_if(remarks.begin(),
            remarks.end(),
            [](const std::wstring& remark) { return remark.find(L"ячейка B10:") != std::wstring::npos; }),
        1);
}

TEST(Xlsx, TakesNoTextForMoreThanItIs)
{
    const Parts parts = partsOf(toXlsx(sampleDocument()));
    const pugi::xml_document sheet = xmlOf(parts, "xl/worksheets/sheet2.xml");
    const std::pair<const char*, std::string> expected[] = {
        {"B3", "=cmd|' /C calc'!A0"},
        {"B4", "+7 <b>&\"'"},
        {"B5", "аб в гд"},
        {"B6", "первая\nвторая"},
        {"B7", "№ ² α °С \U0001F30D"},
        {"B8", "  по краям  "},
        {"B9", ""},
    };
    for (const auto& [name, text] : expected)
        EXPECT_EQ(textOf(cellOf(sheet, name)), text) << name;
    EXPECT_TRUE(nodes(sheet, "f").empty());
    EXPECT_EQ(fromUtf8(textOf(cellOf(sheet, "B10"))).value().size(), 32767U);
}

TEST(Xlsx, NamesSheetsAsSpreadsheetsTakeThem)
{
    SheetNames names;
    const std::pair<std::wstring, std::wstring> rows[] = {
        {L"Пробы", L"Пробы"},
        {L"пробы", L"пробы (2)"},
        {L"a[b]c:d*e?f/g\\h", L"a(b)c-d-e-f-g-h"},
        {L"'в кавычках'", L"в кавычках"},
        {L"", L"Лист"},
        {L"History", L"Лист (2)"},
        {std::wstring(40, L'я'), std::wstring(31, L'я')},
        {std::wstring(41, L'Я'), std::wstring(27, L'Я') + L" (2)"},
    };
    for (const auto& [wanted, made] : rows)
        EXPECT_EQ(names.make(wanted), made);
}

TEST(Xlsx, MadeRowsComeAfterTheGivenOnes)
{
    const Parts parts = partsOf(toXlsx(largeRegister(1000)));
    const pugi::xml_document sheet = xmlOf(parts, "xl/worksheets/sheet1.xml");
    EXPECT_EQ(nodes(sheet, "row").size(), 1001U);
    EXPECT_EQ(textOf(cellOf(sheet, "A1001")), "Скв-50");
    // (999 * 131 + 11 * 17) % 10000 = 1056
    EXPECT_STREQ(cellOf(sheet, "L1001").child("v").text().get(), "10.56");
}

TEST(Docx, HasStylesHeadsSpansAndSections)
{
    const Parts parts = partsOf(toDocx(sampleDocument()));
    expectSoundPackage(parts);
    const pugi::xml_document text = xmlOf(parts, "word/document.xml");
    const std::vector<pugi::xml_node> tables = nodes(text, "w:tbl");
    ASSERT_EQ(tables.size(), 2U);
    EXPECT_EQ(nodes(tables[0], "w:tblHeader").size(), 2U);
    EXPECT_EQ(nodes(tables[0], "w:tr").size(), 73U);
    for (const pugi::xml_node& row : nodes(tables[0], "w:tr")) {
        int columns = 0;
        for (const pugi::xml_node& cell : nodes(row, "w:tc")) {
            const auto spans = nodes(cell, "w:gridSpan");
            columns += spans.empty() ? 1 : spans.front().attribute("w:val").as_int();
        }
        ASSERT_EQ(columns, 5);
    }
    EXPECT_EQ(nodes(tables[0], "w:vMerge").size(), 6U); // three cells, begun and gone on
    const std::vector<pugi::xml_node> sections = nodes(text, "w:pgSz");
    ASSERT_EQ(sections.size(), 3U);
    EXPECT_STREQ(sections[1].attribute("w:orient").value(), "landscape");
    std::set<std::string> known;
    const pugi::xml_document styles = xmlOf(parts, "word/styles.xml");
    for (const pugi::xml_node& style : nodes(styles, "w:style"))
        known.insert(style.attribute("w:styleId").value());
    for (const pugi::xml_node& style : nodes(text, "w:pStyle"))
        EXPECT_EQ(known.count(style.attribute("w:val").value()), 1U) << style.attribute("w:val").value();
    // Two counted lists, each from 1.
    EXPECT_EQ(nodes(xmlOf(parts, "word/numbering.xml"), "w:startOverride").size(), 2U);
    EXPECT_NE(textOf(text).find("+7 <b>&\"'"), std::string::npos);
    EXPECT_EQ(textOf(text).find('\x01'), std::string::npos);
}

TEST(Docx, FrameStandsInEveryHeader)
{
    const Parts parts = partsOf(toDocx(sampleDocument(true)));
    expectSoundPackage(parts);
    int first = 0;
    for (const auto& [name, content] : parts)
        if (name.starts_with("word/header"))
            first += textOf(xmlOf(parts, name)).find(" NUMPAGES ") != std::string::npos ? 1 : 0;
    EXPECT_EQ(first, 1);
    EXPECT_EQ(nodes(xmlOf(parts, "word/document.xml"), "w:headerReference").size(), 4U);
}

TEST(Odt, HasTypeFirstAndKnowsItsStyles)
{
    for (const bool hasFrame : {false, true}) {
        const std::string bytes = toOdt(sampleDocument(hasFrame));
        // Readers look for the type in its place, not compressed.
        EXPECT_EQ(bytes.substr(30, 47), "mimetypeapplication/vnd.oasis.opendocument.text");
        const Parts parts = partsOf(bytes);
        const pugi::xml_document manifest = xmlOf(parts, "META-INF/manifest.xml");
        for (const pugi::xml_node& entry : nodes(manifest, "manifest:file-entry"))
            EXPECT_TRUE(entry.attribute("manifest:full-path").value() == std::string("/")
                || parts.count(entry.attribute("manifest:full-path").value()));
        const pugi::xml_document text = xmlOf(parts, "content.xml");
        const pugi::xml_document styles = xmlOf(parts, "styles.xml");
        std::set<std::string> known;
        for (const pugi::xml_document* part : {&text, &styles})
            for (const pugi::xml_node& style : nodes(*part, "style:style"))
                known.insert(style.attribute("style:name").value());
        for (const char* kind : {"text:p", "text:h", "text:span"})
            for (const pugi::xml_node& node : nodes(text, kind))
                EXPECT_EQ(known.count(node.attribute("text:style-name").value()), 1U)
                    << node.attribute("text:style-name").value();
        const pugi::xml_node table = nodes(text, "table:table").front();
        EXPECT_EQ(nodes(table.child("table:table-header-rows"), "table:table-row").size(), 2U);
        for (const pugi::xml_node& row : nodes(table, "table:table-row"))
            ASSERT_EQ(std::distance(row.begin(), row.end()), 5);
        EXPECT_EQ(nodes(table, "table:covered-table-cell").size(), 6U);
    }
}

// A text processor knows no limit of a cell.
TEST(OfficeFiles, KeepEveryLetterThatXmlCanHold)
{
    const Document document = sampleDocument();
    const Parts docx = partsOf(toDocx(document));
    const Parts odt = partsOf(toOdt(document));
    for (const auto& [parts, name] : {std::pair{docx, "word/document.xml"}, std::pair{odt, "content.xml"}}) {
        const std::wstring text = fromUtf8(textOf(xmlOf(parts, name))).value();
        EXPECT_GE(std::count(text.begin(), text.end(), L'я'), 40000) << name;
        EXPECT_NE(text.find(L"\U0001F30D"), std::wstring::npos) << name;
        EXPECT_NE(text.find(L"=cmd|' /C calc'!A0"), std::wstring::npos) << name;
        EXPECT_TRUE(std::none_of(text.begin(), text.end(), [](wchar_t letter) {
            return letter < L' ' && letter != L'\n' && letter != L'\t';
        })) << name;
    }
}

TEST(Html, EscapesAndPairs)
{
    const std::string html = toHtml(sampleDocument());
    EXPECT_NE(html.find("+7 &lt;b&gt;&amp;&quot;'"), std::string::npos);
    EXPECT_NE(
        html.find("<th rowspan=\"2\">Скважина</th><th colspan=\"2\">Глубина, м</th>"), std::string::npos);
    EXPECT_NE(html.find("<sub>III</sub><sup>2</sup>"), std::string::npos);
    for (const std::string tag : {"table", "tr", "td", "thead", "tbody", "ul", "ol", "figure"}) {
        const auto count = [&](const std::string& piece) {
            std::size_t found = 0;
            for (std::size_t at = html.find(piece); at != std::string::npos; at = html.find(piece, at + 1))
                ++found;
            return found;
        };
        EXPECT_EQ(count("<" + tag + ">") + count("<" + tag + " "), count("</" + tag + ">")) << tag;
    }
}

TEST(Emf, RecordsFillTheFile)
{
    const Document document = sampleDocument();
    for (const Block& block : document.blocks)
        if (const auto* figure = std::get_if<Figure>(&block)) {
            const std::string bytes = toEmf(figure->drawing, nullptr);
            const auto word = [&](std::size_t at) {
                std::uint32_t value = 0;
                for (std::size_t i = 4; i-- > 0;)
                    value = value << 8U | static_cast<std::uint8_t>(bytes[at + i]);
                return value;
            };
            std::size_t at = 0;
            std::uint32_t records = 0;
            std::uint32_t texts = 0;
            for (; at + 8 <= bytes.size() && word(at + 4) >= 8 && word(at + 4) % 4 == 0; at += word(at + 4)) {
                ++records;
                texts += word(at) == 84 ? 1U : 0U;
            }
            EXPECT_EQ(at, bytes.size());
            EXPECT_EQ(word(48), bytes.size());
            EXPECT_EQ(word(52), records);
            EXPECT_EQ(texts, 4U);
            EXPECT_EQ(word(32), 12000U); // the frame, hundredths of a millimetre
        }
}

TEST(TableGrid, CutsSpansThatOverlapOrRunOut)
{
    const auto cell = [](int columns, int rows) {
        TableCell made;
        made.columns = columns;
        made.rows = rows;
        return made;
    };
    const TableRows rows = {{cell(1, 9), cell(9, 1)}, {cell(2, 1), cell(1, 1)}, {cell(0, -3)}};
    const TableGrid grid(rows, 3);
    EXPECT_EQ(grid.at(0, 0).rows, 3);
    EXPECT_EQ(grid.at(0, 1).columns, 2);
    EXPECT_EQ(grid.at(1, 1).columns, 2);
    EXPECT_EQ(grid.at(2, 1).columns, 1);
    EXPECT_EQ(grid.at(2, 2).cell, nullptr);
    // The cell that stood behind the row's end is left out.
    EXPECT_EQ(grid.at(1, 0).cell, &rows[0][0]);
}

} // namespace
