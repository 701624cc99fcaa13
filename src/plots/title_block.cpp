#include "plots/title_block.h"

#include <iterator>

namespace
{

// A caption in both languages.
struct Words {
    const wchar_t* russian;
    const wchar_t* ukrainian;

    const wchar_t* in(int language) const { return language == languageUkrainian ? ukrainian : russian; }
};

constexpr Words stageWord = {L"Стадия", L"Стадія"};
constexpr Words sheetWord = {L"Лист", L"Аркуш"};
constexpr Words sheetsWord = {L"Листов", L"Аркушів"};

// The table of changes: where its columns begin, mm, and what they are called.
constexpr double changeColumns[] = {0, 10, 20, 30, 40, 55, 65};
constexpr Words changeWords[] = {{L"Изм.", L"Зм."},
    {L"Кол.", L"Кільк."},
    {L"Лист", L"Арк."},
    {L"№док.", L"№док."},
    {L"Подп.", L"Підп."},
    {L"Дата", L"Дата"}};
// Role, name, signature, date.
constexpr double signatureColumns[] = {0, 20, 40, 55, 65};
constexpr Words usualRoles[] = {
    {L"Разработал", L"Авт.розд."}, {L"Выполнил", L"Виконав"}, {L"Проверил", L"Перевірив"}};

constexpr double rowHeight = 5;
constexpr double leftWidth = 65;
constexpr double stripLength = 85; // of the side strip, from below

struct Form {
    TitleBlock block;
    double height;
    int changes; // rows above the captions
    int signatures; // and below
};
constexpr Form forms[] = {
    {TitleBlock::None, 0, 0, 0},
    {TitleBlock::Drawing, 55, 4, 6},
    {TitleBlock::Text, 40, 2, 5},
    {TitleBlock::Following, 15, 2, 0},
};

// What a cell on the right holds.
enum class Field { Caption, Designation, Object, Title, Company, Stage, Sheet, Sheets };

struct Cell {
    double x; // from the left edge of the block, mm
    double y;
    double width;
    double height;
    Field field;
    const Words* caption = nullptr;
    double text = 3.5; // greatest height of its text, mm
};

constexpr Cell drawingCells[] = {
    {65, 0, 120, 10, Field::Designation, nullptr, 5},
    {65, 10, 120, 15, Field::Object},
    {65, 25, 70, 15, Field::Caption},
    {135, 25, 15, 5, Field::Caption, &stageWord, 2.5},
    {150, 25, 15, 5, Field::Caption, &sheetWord, 2.5},
    {165, 25, 20, 5, Field::Caption, &sheetsWord, 2.5},
    {135, 30, 15, 10, Field::Stage},
    {150, 30, 15, 10, Field::Sheet},
    {165, 30, 20, 10, Field::Sheets},
    {65, 40, 70, 15, Field::Title},
    {135, 40, 50, 15, Field::Company},
};
constexpr Cell textCells[] = {
    {65, 0, 120, 15, Field::Designation, nullptr, 5},
    {65, 15, 70, 25, Field::Title},
    {135, 15, 15, 5, Field::Caption, &stageWord, 2.5},
    {150, 15, 15, 5, Field::Caption, &sheetWord, 2.5},
    {165, 15, 20, 5, Field::Caption, &sheetsWord, 2.5},
    {135, 20, 15, 5, Field::Stage},
    {150, 20, 15, 5, Field::Sheet},
    {165, 20, 20, 5, Field::Sheets},
    {135, 25, 50, 15, Field::Company},
};
constexpr Cell followingCells[] = {
    {65, 0, 110, 15, Field::Designation, nullptr, 5},
    {175, 0, 10, 7, Field::Caption, &sheetWord, 2.5},
    {175, 7, 10, 8, Field::Sheet},
};

std::wstring textOf(const Cell& cell, const TitleBlockTexts& texts)
{
    switch (cell.field) {
    case Field::Caption:
        return cell.caption ? cell.caption->in(texts.language) : L"";
    case Field::Designation:
        return texts.designation;
    case Field::Object:
        return texts.object;
    case Field::Title:
        return texts.title;
    case Field::Company:
        return texts.company;
    case Field::Stage:
        return texts.stage;
    case Field::Sheet:
        return texts.sheet > 0 ? std::to_wstring(texts.sheet) : std::wstring();
    case Field::Sheets:
        return texts.sheets > 0 ? std::to_wstring(texts.sheets) : std::wstring();
    }
    return {};
}

class BlockPainter
{
public:
    BlockPainter(Sketch& sketch, const Spot& origin, const TitleBlockTexts& texts)
        : sketch_(sketch)
        , origin_(origin)
        , texts_(texts)
    {
    }

    void addLeft(const Form& form) const
    {
        const double captions = form.changes * rowHeight;
        for (int row = 0; row <= form.changes; ++row)
            addRow(changeColumns, row * rowHeight);
        for (std::size_t column = 0; column < std::size(changeWords); ++column)
            addText(changeColumns[column],
                captions,
                changeColumns[column + 1],
                changeWords[column].in(texts_.language));
        for (int row = 0; row < form.signatures; ++row) {
            const double y = captions + (row + 1) * rowHeight;
            addRow(signatureColumns, y);
            const auto person = static_cast<std::size_t>(row);
            addPerson(person, y);
        }
        sketch_.line(at(0, captions), at(leftWidth, captions), middleLine);
        sketch_.line(at(leftWidth, 0), at(leftWidth, form.height), thickLine);
    }

    void addCell(const Cell& cell) const
    {
        const Extent box = boxOf(cell.x, cell.y, cell.width, cell.height);
        sketch_.box(box, middleLine);
        sketch_.textInBox(textOf(cell, texts_), box, {.height = cell.text, .smallest = 1.2});
    }

private:
    Spot at(double x, double y) const { return {origin_.x + x, origin_.y + y}; }
    Extent boxOf(double x, double y, double width, double height) const
    {
        return {origin_.x + x, origin_.y + y, origin_.x + x + width, origin_.y + y + height};
    }
    template <std::size_t count>
    void addRow(const double (&columns)[count], double y) const
    {
        for (std::size_t column = 0; column + 1 < count; ++column)
            sketch_.box(boxOf(columns[column], y, columns[column + 1] - columns[column], rowHeight));
    }
    void addText(
        double left, double y, double right, std::wstring_view text, Align align = Align::Centre) const
    {
        sketch_.textInBox(text,
            boxOf(left, y, right - left, rowHeight),
            {.height = 2.5, .align = align, .font = Font::Narrow, .smallest = 1.2, .padding = 0.5});
    }
    void addPerson(std::size_t person, double y) const
    {
        std::wstring role;
        std::wstring name;
        if (person < texts_.people.size()) {
            role = texts_.people[person].role;
            name = texts_.people[person].name;
        } else if (texts_.people.empty() && person < std::size(usualRoles)) {
            role = usualRoles[person].in(texts_.language);
        }
        addText(signatureColumns[0], y, signatureColumns[1], role, Align::Left);
        addText(signatureColumns[1], y, signatureColumns[2], name, Align::Left);
        if (!name.empty())
            addText(signatureColumns[3], y, signatureColumns[4], texts_.date);
    }

    Sketch& sketch_;
    Spot origin_;
    const TitleBlockTexts& texts_;
};

const Form& formOf(TitleBlock block)
{
    return forms[static_cast<std::size_t>(block)];
}

} // namespace

double titleBlockHeight(TitleBlock block)
{
    return formOf(block).height;
}

void addTitleBlock(Sketch& sketch, TitleBlock block, const Spot& corner, const TitleBlockTexts& texts)
{
    if (block == TitleBlock::None)
        return;
    const Form& form = formOf(block);
    const Spot origin{corner.x - titleBlockWidth, corner.y - form.height};
    sketch.setLayer(Layer::Stamp);
    const BlockPainter painter(sketch, origin, texts);
    painter.addLeft(form);
    if (block == TitleBlock::Drawing)
        for (const Cell& cell : drawingCells)
            painter.addCell(cell);
    else if (block == TitleBlock::Text)
        for (const Cell& cell : textCells)
            painter.addCell(cell);
    else
        for (const Cell& cell : followingCells)
            painter.addCell(cell);
    sketch.box({origin.x, origin.y, corner.x, corner.y}, thickLine);
}

void addSideStrip(Sketch& sketch, const Spot& corner, int language)
{
    struct Part {
        Words words;
        double length;
    };
    // From below.
    constexpr Part parts[] = {{{L"Инв. № под.", L"Інв. № ор."}, 25},
        {{L"Подпись и дата", L"Підпис і дата"}, 35},
        {{L"Взам. ин. №", L"Зам. інв. №"}, 25}};
    constexpr double captionWidth = 5;
    constexpr double width = 12;
    sketch.setLayer(Layer::Stamp);
    double bottom = corner.y;
    for (const Part& part : parts) {
        const Extent caption{corner.x - width, bottom - part.length, corner.x - width + captionWidth, bottom};
        sketch.box(caption);
        sketch.textInBox(
            part.words.in(language), caption, {.height = 2.5, .smallest = 1.2, .isTurned = true});
        sketch.box({caption.right, caption.top, corner.x, bottom});
        bottom -= part.length;
    }
    sketch.box({corner.x - width, bottom, corner.x, corner.y}, thickLine);
}

void addAgreedField(Sketch& sketch, const Spot& corner, const TitleBlockTexts& texts)
{
    constexpr Words caption = {L"СОГЛАСОВАНО", L"ПОГОДЖЕНО"};
    // Role, name, signature, date, from below.
    constexpr double lengths[] = {20, 20, 15, 10};
    constexpr double rowWidth = 5;
    constexpr int rows = 2;
    constexpr double width = (rows + 1) * rowWidth;
    const double below = corner.y - stripLength;
    double above = below;
    for (const double length : lengths)
        above -= length;
    constexpr BoxText turned = {
        .height = 2.5, .font = Font::Narrow, .smallest = 1.2, .isTurned = true, .padding = 0.5};
    sketch.setLayer(Layer::Stamp);
    const double left = corner.x - width;
    const Extent head{left, above, left + rowWidth, below};
    sketch.box(head);
    sketch.textInBox(caption.in(texts.language), head, turned);
    for (int row = 0; row < rows; ++row) {
        const auto number = static_cast<std::size_t>(row);
        const bool isNamed = number < texts.agreed.size();
        const std::wstring cells[] = {isNamed ? texts.agreed[number].role : std::wstring(),
            isNamed ? texts.agreed[number].name : std::wstring(),
            {},
            {}};
        double bottom = below;
        for (std::size_t cell = 0; cell < std::size(lengths); ++cell) {
            const Extent box{
                left + (row + 1) * rowWidth, bottom - lengths[cell], left + (row + 2) * rowWidth, bottom};
            sketch.box(box);
            sketch.textInBox(cells[cell], box, turned);
            bottom = box.top;
        }
    }
    sketch.box({left, above, corner.x, below}, thickLine);
}

void addSheetBlocks(Sketch& sketch,
    const Extent& field,
    TitleBlock block,
    const TitleBlockTexts& texts,
    bool isFirst,
    bool hasSideStrip)
{
    addTitleBlock(sketch, block, {field.right, field.bottom}, texts);
    if (!hasSideStrip)
        return;
    addSideStrip(sketch, {field.left, field.bottom}, texts.language);
    if (isFirst)
        addAgreedField(sketch, {field.left, field.bottom}, texts);
}
