#include "drawing/hatch.h"
#include "platform/utf8.h"

#include <charconv>
#include <cmath>
#include <numbers>
#include <string_view>

static constexpr int largestTile = 400;

namespace
{

// A word of a stroke and how many numbers it takes; an uneven span means pairs.
struct StrokeWord {
    std::string_view word;
    HatchTile::Stroke stroke;
    std::size_t least;
    std::size_t most;
};

constexpr StrokeWord strokeWords[] = {
    {"line", HatchTile::Stroke::Line, 4, 1000},
    {"fill", HatchTile::Stroke::Fill, 6, 1000},
    {"dot", HatchTile::Stroke::Dot, 3, 3},
    {"oval", HatchTile::Stroke::Oval, 5, 5},
};

std::vector<std::string_view> piecesOf(std::string_view text, char mark)
{
    std::vector<std::string_view> pieces;
    for (std::size_t at = text.find(mark); at != std::string_view::npos; at = text.find(mark)) {
        pieces.push_back(text.substr(0, at));
        text.remove_prefix(at + 1);
    }
    pieces.push_back(text);
    return pieces;
}

template <class Value>
bool readWhole(std::string_view text, Value& value)
{
    const auto [end, failure] = std::from_chars(text.data(), text.data() + text.size(), value);
    return failure == std::errc() && end == text.data() + text.size();
}

// Two whole numbers, the tile's sides.
bool readSides(std::string_view line, HatchTile& tile)
{
    const std::vector<std::string_view> sides = piecesOf(line, ' ');
    return sides.size() == 2 && readWhole(sides[0], tile.width) && readWhole(sides[1], tile.height)
        && tile.width >= 1 && tile.height >= 1 && tile.width <= largestTile && tile.height <= largestTile;
}

std::optional<HatchTile::Shape> readShape(std::string_view line)
{
    const std::vector<std::string_view> words = piecesOf(line, ' ');
    for (const StrokeWord& row : strokeWords) {
        if (words.front() != row.word)
            continue;
        HatchTile::Shape shape{row.stroke, {}};
        for (std::size_t word = 1; word < words.size(); ++word) {
            double number = 0;
            if (!readWhole(words[word], number) || !std::isfinite(number))
                return std::nullopt;
            shape.numbers.push_back(number);
        }
        const std::size_t count = shape.numbers.size();
        const bool isWhole = row.least == row.most || count % 2 == 0;
        return count >= row.least && count <= row.most && isWhole ? std::optional(shape) : std::nullopt;
    }
    return std::nullopt;
}

std::vector<Spot> ovalRing(const Spot& centre, double width, double height, double degrees, int corners)
{
    const double turn = degrees * std::numbers::pi / 180;
    std::vector<Spot> ring;
    for (int corner = 0; corner < corners; ++corner) {
        const double angle = 2 * std::numbers::pi * corner / corners;
        const double x = width / 2 * std::cos(angle);
        const double y = height / 2 * std::sin(angle);
        ring.push_back({centre.x + x * std::cos(turn) - y * std::sin(turn),
            centre.y + x * std::sin(turn) + y * std::cos(turn)});
    }
    return ring;
}

} // namespace

std::optional<HatchTile> readHatchTile(const std::vector<std::uint8_t>& bytes)
{
    const std::string text(bytes.begin(), bytes.end());
    const std::vector<std::string_view> lines = piecesOf(text, '\n');
    if (lines.size() < 4 || !lines.back().empty())
        return std::nullopt;
    HatchTile tile;
    const std::optional<std::wstring> name = fromUtf8(lines[0]);
    if (!name || !readSides(lines[1], tile))
        return std::nullopt;
    tile.name = *name;
    for (std::size_t line = 2; line + 1 < lines.size(); ++line) {
        const std::optional<HatchTile::Shape> shape = readShape(lines[line]);
        if (!shape)
            return std::nullopt;
        tile.shapes.push_back(*shape);
    }
    return tile;
}

Hatches readHatches(const std::map<std::uint32_t, std::vector<std::uint8_t>>& patterns)
{
    Hatches hatches;
    for (const auto& [number, bytes] : patterns)
        if (std::optional<HatchTile> tile = readHatchTile(bytes))
            hatches.emplace(number, std::move(*tile));
    return hatches;
}

HatchOutline hatchOutline(const HatchTile::Shape& shape, int roundCorners)
{
    const std::vector<double>& n = shape.numbers;
    if (shape.stroke == HatchTile::Stroke::Dot)
        return {ovalRing({n[0], n[1]}, n[2], n[2], 0, roundCorners), true, true};
    if (shape.stroke == HatchTile::Stroke::Oval)
        return {ovalRing({n[0], n[1]}, n[2], n[3], n[4], roundCorners), true, false};
    const bool isFilled = shape.stroke == HatchTile::Stroke::Fill;
    HatchOutline outline{{}, isFilled, isFilled};
    for (std::size_t number = 0; number + 1 < n.size(); number += 2)
        outline.corners.push_back({n[number], n[number + 1]});
    return outline;
}
