#include "document/docx_styles.h"

#include "document/column_widths.h"
#include "document/office_package.h"

#include <cmath>

namespace
{

// A paragraph style. The names of Word's own styles are English in the file; Word shows them in its language.
struct Style {
    const char* id;
    const char* name;
    const char* basedOn; // empty: none
    const char* paragraph;
    const char* letters;
    double points;
};

constexpr Style styles[] = {
    {"Normal", "Normal", "", R"(<w:spacing w:after="80"/>)", "", bodyPoints},
    {"Heading1",
        "heading 1",
        "Normal",
        R"(<w:keepNext/><w:spacing w:before="240" w:after="120"/><w:outlineLvl w:val="0"/>)",
        "<w:b/>",
        14},
    {"Heading2",
        "heading 2",
        "Normal",
        R"(<w:keepNext/><w:spacing w:before="200" w:after="100"/><w:outlineLvl w:val="1"/>)",
        "<w:b/>",
        12},
    {"Heading3",
        "heading 3",
        "Normal",
        R"(<w:keepNext/><w:spacing w:before="160" w:after="80"/><w:outlineLvl w:val="2"/>)",
        "<w:b/><w:i/>",
        11},
    {"Caption",
        "caption",
        "Normal",
        R"(<w:keepNext/><w:spacing w:before="120" w:after="60"/>)",
        "<w:b/>",
        captionPoints},
    {"FigureCaption",
        "Подпись рисунка",
        "Normal",
        R"(<w:spacing w:before="60" w:after="160"/>)",
        "",
        captionPoints},
    {"Figure",
        "Рисунок",
        "Normal",
        R"(<w:keepNext/><w:spacing w:before="120" w:after="0"/><w:jc w:val="center"/>)",
        "",
        bodyPoints},
    {"Note", "Примечание", "Normal", R"(<w:spacing w:before="40" w:after="80"/>)", "", notePoints},
    {"ListBullet",
        "List Bullet",
        "Normal",
        R"(<w:numPr><w:numId w:val="1"/></w:numPr><w:spacing w:after="40"/>)",
        "",
        bodyPoints},
    {"ListNumber", "List Number", "Normal", R"(<w:spacing w:after="40"/>)", "", bodyPoints},
    {"TableText", "Текст таблицы", "Normal", R"(<w:spacing w:after="0"/>)", "", tablePoints},
    {"TableHead",
        "Шапка таблицы",
        "TableText",
        R"(<w:spacing w:after="0"/><w:jc w:val="center"/>)",
        "<w:b/>",
        tablePoints},
    {"TableEnd", "Отбивка таблицы", "Normal", R"(<w:spacing w:after="0"/>)", "", 6},
    {"Header", "header", "Normal", R"(<w:spacing w:after="0"/>)", "", notePoints},
    {"Footer", "footer", "Normal", R"(<w:spacing w:after="0"/>)", "", notePoints},
};

std::string styleOf(const Style& style)
{
    const std::string id = style.id;
    std::string text = "<w:style w:type=\"paragraph\"" + std::string(id == "Normal" ? " w:default=\"1\"" : "")
        + " w:styleId=\"" + id + "\"><w:name w:val=\"" + style.name + "\"/>";
    if (*style.basedOn)
        text += "<w:basedOn w:val=\"" + std::string(style.basedOn) + "\"/>";
    text += std::string("<w:qFormat/><w:pPr>") + style.paragraph + "</w:pPr><w:rPr>" + style.letters;
    const std::string halves = std::to_string(std::lround(style.points * 2));
    return text + "<w:sz w:val=\"" + halves + "\"/><w:szCs w:val=\"" + halves + "\"/></w:rPr></w:style>";
}

std::string tableStyle()
{
    std::string text =
        R"(<w:style w:type="table" w:default="1" w:styleId="TableNormal"><w:name w:val="Normal Table"/>)"
        R"(<w:tblPr><w:tblInd w:w="0" w:type="dxa"/></w:tblPr></w:style>)"
        R"(<w:style w:type="table" w:styleId="Table"><w:name w:val="Таблица"/><w:basedOn w:val="TableNormal"/>)"
        R"(<w:tblPr><w:tblBorders>)";
    for (const std::string side : {"top", "left", "bottom", "right", "insideH", "insideV"})
        text += "<w:" + side + R"( w:val="single" w:sz="4" w:space="0" w:color="000000"/>)";
    return text
        + R"(</w:tblBorders><w:tblCellMar><w:left w:w="57" w:type="dxa"/><w:right w:w="57" w:type="dxa"/></w:tblCellMar></w:tblPr></w:style>)";
}

} // namespace

std::string docxStyles()
{
    std::string text = std::string(xmlDeclaration) + "<w:styles xmlns:w=\"" + wordSpace
        + R"("><w:docDefaults><w:rPrDefault><w:rPr><w:rFonts w:ascii="Arial" w:hAnsi="Arial" w:eastAsia="Arial" w:cs="Arial"/>)"
          R"(<w:lang w:val="ru-RU"/></w:rPr></w:rPrDefault><w:pPrDefault/></w:docDefaults>)";
    for (const Style& style : styles)
        text += styleOf(style);
    return text + tableStyle() + "</w:styles>";
}

std::string docxNumbering(int lists)
{
    const auto list = [](const char* number, const char* format, const char* sign) {
        return "<w:abstractNum w:abstractNumId=\"" + std::string(number)
            + R"("><w:multiLevelType w:val="singleLevel"/><w:lvl w:ilvl="0"><w:start w:val="1"/><w:numFmt w:val=")"
            + format + "\"/><w:lvlText w:val=\"" + sign
            + R"("/><w:lvlJc w:val="left"/><w:pPr><w:ind w:left="567" w:hanging="283"/></w:pPr></w:lvl></w:abstractNum>)";
    };
    std::string text = std::string(xmlDeclaration) + "<w:numbering xmlns:w=\"" + wordSpace + "\">"
        + list("1", "bullet", "–") + list("2", "decimal", "%1.")
        + R"(<w:num w:numId="1"><w:abstractNumId w:val="1"/></w:num>)";
    for (int number = 2; number <= lists; ++number)
        text += "<w:num w:numId=\"" + std::to_string(number)
            + R"("><w:abstractNumId w:val="2"/><w:lvlOverride w:ilvl="0"><w:startOverride w:val="1"/></w:lvlOverride></w:num>)";
    return text + "</w:numbering>";
}
