#include "plots/sketch.h"

#include "drawing/text_layout.h"

#include <algorithm>

double textLineDistance(double height)
{
    // Capitals, what hangs below them, and a little air.
    return height * 1.5;
}

void Sketch::setSign(std::string name, const Spot& at)
{
    sign_ = std::move(name);
    signAt_ = at;
}

void Sketch::add(std::variant<Line, Area, Circle, Text> shape)
{
    drawing_.items.push_back({layer_, id_, std::move(shape), sign_, signAt_});
}

void Sketch::line(const Spot& from, const Spot& to, double width, const Color& color)
{
    add(Line{{from, to}, {width, color, Dash::Solid}, false});
}

void Sketch::line(std::vector<Spot> points, const Pen& pen, bool isClosed)
{
    add(Line{std::move(points), pen, isClosed});
}

void Sketch::box(const Extent& box, double width)
{
    add(Line{{{box.left, box.top}, {box.right, box.top}, {box.right, box.bottom}, {box.left, box.bottom}},
        {width, {}, Dash::Solid},
        true});
}

void Sketch::text(
    std::wstring_view text, const Spot& at, double height, Align align, Font font, const Color& color)
{
    if (!text.empty())
        add(Text{std::wstring(text), at, height, align, 0, font, color});
}

namespace
{

struct FittedText {
    std::vector<std::wstring> lines;
    double height = 0;
};

double widestWord(std::wstring_view text, Font font, double height)
{
    constexpr std::wstring_view ends = L" \n-/\u2013";
    double widest = 0;
    while (!text.empty()) {
        const std::size_t end = std::min(text.find_first_of(ends), text.size() - 1) + 1;
        const std::wstring_view word = text.substr(0, end);
        const bool endsInBlank = word.back() == L' ' || word.back() == L'\n';
        widest = std::max(widest, textWidth(word.substr(0, end - (endsInBlank ? 1 : 0)), font, height));
        text.remove_prefix(end);
    }
    return widest;
}

// The greatest height in which the text stands in width and length of the box.
FittedText fittedText(std::wstring_view text, double along, double across, const BoxText& look)
{
    constexpr double step = 0.1;
    for (double height = look.height; height > look.smallest - step / 2; height -= step) {
        std::vector<std::wstring> lines = brokenLines(text, look.font, height, along);
        const double needed = static_cast<double>(lines.size() - 1) * textLineDistance(height) + height
            + descentOf(look.font, height) / 2;
        if (needed <= across && widestWord(text, look.font, height) <= along)
            return {std::move(lines), height};
    }
    std::vector<std::wstring> lines = brokenLines(text, look.font, look.smallest, along);
    const double room = (across - look.smallest) / textLineDistance(look.smallest);
    const auto most = static_cast<std::size_t>(std::max(0.0, room + 1e-9)) + 1;
    if (lines.size() > most) {
        lines.resize(most);
        lines.back() = shortenedText(lines.back() + L"\u2026\u2026", look.font, look.smallest, along);
    }
    return {std::move(lines), look.smallest};
}

} // namespace

void Sketch::textInBox(std::wstring_view text, const Extent& box, const BoxText& look)
{
    if (text.empty())
        return;
    const double width = box.right - box.left - 2 * look.padding;
    const double height = box.bottom - box.top - 2 * look.padding;
    const double along = look.isTurned ? height : width;
    const double across = look.isTurned ? width : height;
    const FittedText fitted = fittedText(text, along, across, look);
    const double step = textLineDistance(fitted.height);
    const double needed = static_cast<double>(fitted.lines.size() - 1) * step + fitted.height;
    // Along the reading direction and across it, from the middle of the box.
    const double alongStart = look.align == Align::Left ? -along / 2
        : look.align == Align::Right                    ? along / 2
                                                        : 0;
    double acrossPlace = -needed / 2 + fitted.height;
    const Spot middle{(box.left + box.right) / 2, (box.top + box.bottom) / 2};
    for (const std::wstring& line : fitted.lines) {
        const Spot at = look.isTurned ? Spot{middle.x + acrossPlace, middle.y - alongStart}
                                      : Spot{middle.x + alongStart, middle.y + acrossPlace};
        if (!line.empty())
            add(Text{line, at, fitted.height, look.align, look.isTurned ? 90.0 : 0.0, look.font, {}});
        acrossPlace += step;
    }
}
