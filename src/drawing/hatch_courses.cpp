#include "drawing/hatch_courses.h"

#include <cmath>
#include <cstdint>
#include <optional>

namespace
{

constexpr double hair = 1e-6; // of a unit

struct Piece {
    Spot from;
    Spot way; // to the right, or straight down
    bool isTaken = false;
    std::optional<std::size_t> next = {};
    bool hasBefore = false;
};

std::vector<Piece> piecesOf(const HatchTile& tile)
{
    std::vector<Piece> pieces;
    for (const HatchTile::Shape& shape : tile.shapes) {
        const std::vector<double>& n = shape.numbers;
        if (shape.stroke != HatchTile::Stroke::Line || n.size() != 4)
            continue;
        const Spot way{n[2] - n[0], n[3] - n[1]};
        if (std::abs(way.x) < hair && std::abs(way.y) < hair)
            continue;
        if (way.x > hair || (way.x > -hair && way.y > 0))
            pieces.push_back({{n[0], n[1]}, way});
        else
            pieces.push_back({{n[2], n[3]}, {-way.x, -way.y}});
    }
    return pieces;
}

bool isWhole(double value, int side)
{
    return std::abs(value - std::round(value / side) * side) < hair;
}

bool goesOn(const Piece& piece, const Piece& next, const HatchTile& tile)
{
    const double cross = piece.way.x * next.way.y - piece.way.y * next.way.x;
    const double along = piece.way.x * next.way.x + piece.way.y * next.way.y;
    return std::abs(cross) < hair * along && isWhole(piece.from.x + piece.way.x - next.from.x, tile.width)
        && isWhole(piece.from.y + piece.way.y - next.from.y, tile.height);
}

void joinPieces(std::vector<Piece>& pieces, const HatchTile& tile)
{
    for (Piece& piece : pieces)
        for (std::size_t other = 0; other < pieces.size() && !piece.next; ++other)
            if (!pieces[other].hasBefore && goesOn(piece, pieces[other], tile)) {
                piece.next = other;
                pieces[other].hasBefore = true;
            }
}

HatchCourse courseFrom(std::vector<Piece>& pieces, std::size_t first, const HatchTile& tile)
{
    HatchCourse course{pieces[first].from, pieces[first].from};
    std::optional<std::size_t> at = first;
    while (at && !pieces[*at].isTaken) {
        Piece& piece = pieces[*at];
        piece.isTaken = true;
        course.to = {course.to.x + piece.way.x, course.to.y + piece.way.y};
        at = piece.next;
    }
    if (at == first) {
        course.columns = static_cast<int>(std::lround((course.to.x - course.from.x) / tile.width));
        course.rows = static_cast<int>(std::lround((course.to.y - course.from.y) / tile.height));
    }
    return course;
}

} // namespace

std::vector<HatchCourse> hatchCourses(const HatchTile& tile)
{
    std::vector<Piece> pieces = piecesOf(tile);
    joinPieces(pieces, tile);
    std::vector<HatchCourse> courses;
    // Those with an end first: what is left runs in circles.
    for (const bool hasBefore : {false, true})
        for (std::size_t piece = 0; piece < pieces.size(); ++piece)
            if (!pieces[piece].isTaken && (hasBefore || !pieces[piece].hasBefore))
                courses.push_back(courseFrom(pieces, piece, tile));
    return courses;
}
