#include "document/page_stack.h"

#include "document/column_widths.h"
#include "document/office_text.h"
#include "document/page_frame.h"
#include "drawing/text_layout.h"

#include <algorithm>
#include <iterator>

namespace
{

constexpr double airAbove = 4; // mm between texts and the stamp of the first page
constexpr double slack = 0.01; // mm

} // namespace

PageStack::PageStack(const Document& document, const std::function<bool(std::size_t)>& goesOn)
    : document_(document)
    , goesOn_(goesOn)
    , format_(document.page)
    , firstStamp_(stampHeight(document.frame, document.page, 1))
{
}

double PageStack::room() const
{
    return std::max(20.0, format_.width - format_.left - format_.right);
}

double PageStack::bottom() const
{
    const bool hasStamp = pages_.size() <= 1 && firstStamp_ > 0;
    return format_.height - (hasStamp ? std::max(format_.bottom, firstStamp_ + airAbove) : format_.bottom);
}

double PageStack::high() const
{
    return std::max(20.0, bottom() - format_.top);
}

bool PageStack::isAtTop() const
{
    return pages_.empty() || y_ <= format_.top + slack;
}

bool PageStack::hasRoom(double height) const
{
    return y_ + height <= bottom() + slack;
}

void PageStack::turn()
{
    if (goesOn_ && !goesOn_(pages_.size()))
        throw CalledOff();
    Drawing page;
    page.width = format_.width;
    page.height = format_.height;
    page.title = document_.title;
    pages_.push_back(std::move(page));
    formats_.push_back(format_);
    y_ = format_.top;
}

void PageStack::demand(double height)
{
    if (pages_.empty() || (!hasRoom(height) && !isAtTop()))
        turn();
}

void PageStack::setFormat(const PageFormat& format)
{
    format_ = format;
    if (pages_.empty())
        return;
    // A page that nothing stands on yet takes the format.
    if (pages_.back().items.empty()) {
        pages_.pop_back();
        formats_.pop_back();
    }
    turn();
}

void PageStack::put(Layer layer, std::variant<Line, Area, Circle, Text> shape)
{
    pages_.back().items.push_back({layer, 0, std::move(shape)});
}

void PageStack::putLine(const SetLine& line, double x, double width, double baseLine, Align align)
{
    const double free = width - line.width;
    const double shift = align == Align::Right ? free : align == Align::Centre ? free / 2 : 0;
    for (const SetPiece& piece : line.pieces) {
        const double at = x + shift + piece.left;
        put(Layer::Text,
            Text{piece.text, {at, baseLine - piece.rise}, piece.height, Align::Left, 0, piece.font});
        if (piece.isStruck) {
            const double y = baseLine - piece.rise - piece.height * 0.4;
            put(Layer::Text, Line{{{at, y}, {at + piece.width, y}}, {0.2}, false});
        }
    }
}

std::vector<Drawing> PageStack::finished()
{
    if (pages_.empty())
        turn();
    for (std::size_t i = 0; i < pages_.size(); ++i) {
        std::vector<Item>& items = pages_[i].items;
        const int number = static_cast<int>(i) + 1;
        if (!document_.frame.draw) {
            addHeadAndFoot(items, formats_[i], number);
            continue;
        }
        Drawing frame = document_.frame.draw(formats_[i], number, static_cast<int>(pages_.size()));
        items.insert(items.begin(),
            std::make_move_iterator(frame.items.begin()),
            std::make_move_iterator(frame.items.end()));
    }
    return std::move(pages_);
}

void PageStack::addHeadAndFoot(std::vector<Item>& items, const PageFormat& format, int number) const
{
    const double height = capitalHeight(notePoints);
    const double foot = format.height - format.bottom / 2 + height / 2;
    const double right = format.width - format.right;
    const double wide = right - format.left - 15;
    const auto add = [&](const std::wstring& text, double y) {
        if (!text.empty())
            items.push_back({Layer::Frame,
                0,
                Text{shortenedText(cleanText(text), Font::Plain, height, wide), {format.left, y}, height}});
    };
    add(document_.header, format.top / 2 + height / 2);
    add(document_.footer, foot);
    items.push_back({Layer::Frame, 0, Text{std::to_wstring(number), {right, foot}, height, Align::Right}});
}
