#include "document/pages.h"

#include "document/column_widths.h"
#include "document/page_stack.h"
#include "document/page_tables.h"
#include "drawing/text_layout.h"

#include <algorithm>

namespace
{

struct TextStyle {
    double points = bodyPoints;
    bool isBold = false;
    double before = 0; // mm
    double after = 0;
    bool staysWithNext = false;
    double indent = 0;
};

constexpr TextStyle bodyStyle{bodyPoints, false, 0, 1.4, false, 0};
constexpr TextStyle captionStyle{captionPoints, true, 2.1, 1.1, true, 0};
constexpr TextStyle figureCaptionStyle{captionPoints, false, 1, 2.8, false, 0};
constexpr TextStyle noteStyle{notePoints, false, 0.7, 1.4, false, 0};
constexpr TextStyle listStyle{bodyPoints, false, 0, 0.7, false, 10};
constexpr TextStyle headingStyles[] = {
    {14, true, 4.2, 2.1, true, 0}, {12, true, 3.5, 1.8, true, 0}, {11, true, 2.8, 1.4, true, 0}};

class PageMaker
{
public:
    PageMaker(const Document& document, const std::function<bool(std::size_t)>& goesOn)
        : document_(document)
        , pages_(document, goesOn)
    {
    }

    std::vector<Drawing> make()
    {
        for (std::size_t i = 0; i < document_.blocks.size(); ++i) {
            const Block& block = document_.blocks[i];
            const auto* paragraph = std::get_if<Paragraph>(&block);
            number_ = paragraph && paragraph->style == Paragraph::Numbered ? number_ + 1 : 0;
            next_ = i + 1 < document_.blocks.size() ? &document_.blocks[i + 1] : nullptr;
            std::visit([this](const auto& found) { add(found); }, block);
        }
        return pages_.finished();
    }

private:
    // ---- texts ----

    void addText(
        const Runs& runs, const TextStyle& style, Align align = Align::Left, const std::wstring& sign = {})
    {
        const double height = capitalHeight(style.points);
        const double step = lineDistance(Font::Plain, height);
        const std::vector<SetLine> lines = setLines(runs, height, pages_.room() - style.indent, style.isBold);
        double before = pages_.isAtTop() ? 0 : style.before;
        // What stays with the next one asks for some of its room too.
        pages_.demand(before
            + static_cast<double>(style.staysWithNext ? lines.size() : std::min<std::size_t>(2, lines.size()))
                * step
            + (style.staysWithNext ? roomOfNext() : 0));
        if (pages_.isAtTop())
            before = 0;
        pages_.moveDown(before);
        for (std::size_t i = 0; i < lines.size(); ++i) {
            pages_.demand(step);
            const double baseLine = pages_.y() + (step + height) / 2;
            if (i == 0 && !sign.empty())
                pages_.put(Layer::Text, Text{sign, {pages_.left() + style.indent - 5, baseLine}, height});
            pages_.putLine(
                lines[i], pages_.left() + style.indent, pages_.room() - style.indent, baseLine, align);
            pages_.moveDown(step);
        }
        pages_.moveDown(style.after);
    }

    // How much of the next block a heading or caption wants to see on its page.
    double roomOfNext() const
    {
        if (!next_)
            return 0;
        if (const auto* figure = std::get_if<Figure>(next_))
            return figure->drawing.height * scaleOf(*figure) + 8;
        if (std::holds_alternative<TableBlock>(*next_))
            return 25;
        return std::holds_alternative<Paragraph>(*next_) ? 12 : 20;
    }

    void add(const Heading& heading)
    {
        addText({{heading.text}}, headingStyles[std::clamp(heading.level, 1, 3) - 1]);
    }

    void add(const Paragraph& paragraph)
    {
        switch (paragraph.style) {
        case Paragraph::Body:
            addText(paragraph.runs, bodyStyle, paragraph.align);
            break;
        case Paragraph::Caption:
            addText(paragraph.runs, captionStyle, paragraph.align);
            break;
        case Paragraph::Note:
            addText(paragraph.runs, noteStyle, paragraph.align);
            break;
        case Paragraph::Bullet:
            addText(paragraph.runs, listStyle, paragraph.align, L"–");
            break;
        case Paragraph::Numbered:
            addText(paragraph.runs, listStyle, paragraph.align, std::to_wstring(number_) + L".");
            break;
        }
    }

    void add(const PageBreak&) { pages_.turn(); }

    void add(const Section& section) { pages_.setFormat(section.page); }

    // ---- figures ----

    double scaleOf(const Figure& figure) const
    {
        const Drawing& drawing = figure.drawing;
        if (drawing.width <= 0 || drawing.height <= 0)
            return 1;
        return std::min({1.0, pages_.room() / drawing.width, (pages_.high() - 12) / drawing.height});
    }

    void add(const Figure& figure)
    {
        const double scale = scaleOf(figure);
        pages_.demand(figure.drawing.height * scale + (figure.caption.empty() ? 2 : 8));
        if (!pages_.isAtTop())
            pages_.moveDown(2);
        const double x = pages_.left() + (pages_.room() - figure.drawing.width * scale) / 2;
        for (const Item& item : figure.drawing.items)
            pages_.put(placed(item, x, pages_.y(), scale));
        pages_.moveDown(figure.drawing.height * scale);
        if (!figure.caption.empty())
            addText({{figure.caption}}, figureCaptionStyle, Align::Centre);
        else
            pages_.moveDown(2);
    }

    static Item placed(Item item, double x, double y, double scale)
    {
        const auto move = [&](Spot& spot) { spot = {x + spot.x * scale, y + spot.y * scale}; };
        if (auto* line = std::get_if<Line>(&item.shape)) {
            for (Spot& spot : line->points)
                move(spot);
            line->pen.width *= scale;
        } else if (auto* area = std::get_if<Area>(&item.shape)) {
            for (auto& ring : area->rings)
                for (Spot& spot : ring)
                    move(spot);
            move(area->origin);
            area->hatchUnit *= scale;
        } else if (auto* circle = std::get_if<Circle>(&item.shape)) {
            move(circle->centre);
            circle->radius *= scale;
            circle->pen.width *= scale;
        } else if (auto* text = std::get_if<Text>(&item.shape)) {
            move(text->at);
            text->height *= scale;
        }
        return item;
    }

    void add(const TableBlock& block)
    {
        if (!block.title.empty()) {
            const Block* const behind = next_;
            const Block table = TableBlock();
            next_ = &table; // so that the caption stays with its table
            addText({{block.title}}, captionStyle);
            next_ = behind;
        }
        putTable(pages_, block);
    }

    const Document& document_;
    PageStack pages_;
    const Block* next_ = nullptr;
    int number_ = 0;
};

} // namespace

std::vector<Drawing> pagesOf(const Document& document, const std::function<bool(std::size_t)>& goesOn)
{
    try {
        return PageMaker(document, goesOn).make();
    } catch (const CalledOff&) {
        return {};
    }
}
