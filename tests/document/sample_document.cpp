#include "document/sample_document.h"

namespace
{

TableCell text(std::wstring content, int columns = 1, int rows = 1)
{
    TableCell cell;
    cell.runs = {{std::move(content)}};
    cell.columns = columns;
    cell.rows = rows;
    return cell;
}

TableCell number(double value, int decimals)
{
    TableCell cell;
    cell.runs = {{numberText(value, decimals)}};
    cell.number = value;
    cell.decimals = decimals;
    cell.align = Align::Right;
    return cell;
}

TableBlock layers()
{
    TableBlock table;
    table.title = L"Таблица 1. Слои [скважин]: мощность/глубина";
    table.head = {
        {text(L"Скважина", 1, 2), text(L"Глубина, м", 2), text(L"Описание", 1, 2), text(L"ρ, г/см³", 1, 2)},
        {text(L"от"), text(L"до")}};
    for (int i = 0; i < 70; ++i) {
        TableCell index;
        index.runs = {{L"Суглинок ", true},
            {L"aQ"},
            {L"III", false, false, false, Run::Lowered},
            {L"2", false, false, false, Run::Raised},
            {L" коричневый, тугопластичный, с прослоями песка мелкого, водонасыщенного"}};
        TableCell density = number(1.9 + i * 0.001, 3);
        density.isMarked = i % 10 == 3;
        table.rows.push_back(
            {text(L"Скв-" + std::to_wstring(i / 7 + 1)), number(i, 1), number(i + 1, 1), index, density});
    }
    table.rows.push_back({text(L"Итого", 3), text(L"среднее по площадке"), number(1.934, 3)});
    return table;
}

TableBlock traps()
{
    TableBlock table;
    table.title = L"Таблица 1. Слои [скважин]: мощность?глубина"; // nearly the same name once more
    table.head = {{text(L"Вид"), text(L"Текст")}};
    table.rows = {{text(L"Формула"), text(L"=cmd|' /C calc'!A0")},
        {text(L"Плюс"), text(L"+7 <b>&\"'")},
        {text(L"Управляющие"), text(std::wstring(L"а\u0001б\u000Bв\tг\uFFFFд"))},
        {text(L"Строки"), text(L"первая\nвторая")},
        {text(L"Знаки"), text(L"№ ² α °С \U0001F30D")},
        {text(L"Пробелы"), text(L"  по краям  ")},
        {text(L"Пусто"), text(L"")},
        {text(L"Длинный"), text(std::wstring(40000, L'я'))}};
    return table;
}

Drawing picture()
{
    Drawing drawing;
    drawing.width = 120;
    drawing.height = 60;
    drawing.title = L"Разрез";
    drawing.items.push_back(
        {Layer::Frame, 0, Line{{{0.5, 0.5}, {119.5, 0.5}, {119.5, 59.5}, {0.5, 59.5}}, {0.5}, true}});
    Area area;
    area.rings = {
        {{10, 10}, {60, 15}, {110, 10}, {110, 30}, {10, 35}}, {{50, 18}, {70, 18}, {70, 25}, {50, 25}}};
    area.ground = {250, 230, 170};
    area.hasGround = true;
    drawing.items.push_back({Layer::Ground, 0, area});
    drawing.items.push_back(
        {Layer::Water, 0, Line{{{10, 40}, {110, 38}}, {0.35, {0, 90, 200}, Dash::DashDotted}, false}});
    drawing.items.push_back(
        {Layer::Boundary, 0, Line{{{10, 45}, {110, 43}}, {0.25, {}, Dash::Dashed}, false}});
    drawing.items.push_back({Layer::Element, 0, Circle{{30, 22}, 4, {0.25}, false}});
    drawing.items.push_back({Layer::Text, 0, Text{L"12", {30, 23.2}, 2.5, Align::Centre}});
    drawing.items.push_back({Layer::Text, 0, Text{L"Скв-1 Ёж №5", {10, 8}, 3, Align::Left, 0, Font::Bold}});
    drawing.items.push_back(
        {Layer::Text, 0, Text{L"вдоль оси", {116, 50}, 2.5, Align::Left, 90, Font::Italic, {160, 0, 0}}});
    drawing.items.push_back(
        {Layer::Text, 0, Text{L"справа по краю", {110, 55}, 2.5, Align::Right, 0, Font::Narrow}});
    return drawing;
}

// Border lines and a box below for the number of the page, as a stamp has them.
Drawing frameOf(const PageFormat& page, int pageNumber, int count)
{
    Drawing drawing;
    drawing.width = page.width;
    drawing.height = page.height;
    const double right = page.width - 5;
    const double bottom = page.height - 5;
    drawing.items.push_back(
        {Layer::Frame, 0, Line{{{20, 5}, {right, 5}, {right, bottom}, {20, bottom}}, {0.5}, true}});
    drawing.items.push_back({Layer::Stamp, 0, Line{{{20, bottom - 15}, {right, bottom - 15}}, {0.5}, false}});
    drawing.items.push_back({Layer::Stamp, 0, Text{L"2026-17-ИГИ", {25, bottom - 5}, 3.5}});
    if (count > 0)
        drawing.items.push_back({Layer::Stamp,
            0,
            Text{std::to_wstring(pageNumber) + L" из " + std::to_wstring(count),
                {right - 10, bottom - 5},
                3,
                Align::Centre}});
    return drawing;
}

} // namespace

Document sampleDocument(bool hasFrame)
{
    Document document;
    document.title = L"Отчёт об изысканиях";
    document.author = L"Иванов И. И.";
    document.header = L"2026-17-ИГИ";
    document.footer = L"ООО «Грунт» & Ко";
    Paragraph body;
    body.runs = {{L"Плотность ρ"},
        {L"d", false, false, false, Run::Lowered},
        {L" = 1,65 г/см"},
        {L"3", false, false, false, Run::Raised},
        {L"; значение "},
        {L"0.063", false, false, true},
        {L" исключено. "},
        {L"Участок изысканий расположен в пределах второй надпойменной террасы; абсолютные отметки меняются "
         L"от 150.10 до 152.35 м."}};
    const auto item = [](const wchar_t* content, Paragraph::Style style) {
        return Paragraph{{{content}}, style, Align::Left};
    };
    document.blocks = {Heading{L"1 Инженерно-геологические условия", 1},
        body,
        Heading{L"1.1 Слои", 2},
        item(L"насыпные грунты;", Paragraph::Bullet),
        item(L"суглинки.", Paragraph::Bullet),
        item(L"первое", Paragraph::Numbered),
        item(L"второе", Paragraph::Numbered),
        layers(),
        item(L"Примечание: серым выделены сомнительные значения.", Paragraph::Note),
        Figure{picture(), L"Рисунок 1. Разрез I–I"},
        Section{{420, 297, 20, 15, 10, 15}},
        Heading{L"2 Ведомость", 1},
        traps(),
        Section{{210, 297, 20, 15, 10, 15}},
        item(L"Список начинается заново:", Paragraph::Body),
        item(L"первое", Paragraph::Numbered),
        PageBreak{},
        item(L"Последняя страница", Paragraph::Body)};
    if (hasFrame) {
        for (Block& block : document.blocks)
            if (auto* section = std::get_if<Section>(&block))
                section->page.left = 25, section->page.bottom = 25;
        document.page.left = 25;
        document.page.bottom = 25;
        document.frame.draw = frameOf;
        document.frame.number = {15, 10};
        document.frame.firstNumber = {25, 10};
        document.frame.firstCount = {12, 10};
    }
    return document;
}

Document largeRegister(std::size_t rows)
{
    TableBlock table;
    table.title = L"Ведомость";
    std::vector<TableCell> head;
    for (int i = 1; i <= 12; ++i)
        head.push_back(text(L"Показатель " + std::to_wstring(i)));
    table.head = {head};
    table.madeRows = rows;
    table.makeRow = [](std::size_t row) {
        std::vector<TableCell> cells{
            text(L"Скв-" + std::to_wstring(row / 20 + 1)), text(L"Суглинок тугопластичный")};
        for (std::size_t i = 2; i < 12; ++i)
            cells.push_back(number(static_cast<double>((row * 131 + i * 17) % 10000) / 100, 2));
        return cells;
    };
    Document document;
    document.title = L"Ведомость";
    document.page = {297, 210, 15, 15, 10, 10};
    document.blocks = {table};
    return document;
}
