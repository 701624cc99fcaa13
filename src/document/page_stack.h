#pragma once

#include "document/document.h"
#include "document/set_lines.h"

#include <functional>
#include <variant>
#include <vector>

// Thrown to leave the work when the user has called it off.
struct CalledOff {
};

// The pages of a document that fill from above, in millimetres. At first there is none.
class PageStack
{
public:
    // goesOn as pagesOf has it.
    PageStack(const Document& document, const std::function<bool(std::size_t)>& goesOn);

    double left() const { return format_.left; }
    double top() const { return format_.top; }
    double room() const; // between left and right
    double high() const; // between top and bottom of a page like this one
    double bottom() const;
    double y() const { return y_; } // the upper edge of what comes next
    bool isAtTop() const;
    bool hasRoom(double height) const;

    void turn();
    // Room for so much from here on, on this page or on the next one.
    void demand(double height);
    void moveDown(double distance) { y_ += distance; }
    // Of the pages from here on.
    void setFormat(const PageFormat& format);

    void put(Layer layer, std::variant<Line, Area, Circle, Text> shape);
    void put(Item item) { pages_.back().items.push_back(std::move(item)); }
    void putLine(const SetLine& line, double x, double width, double baseLine, Align align);

    // With their frames, or the document's head and foot and their numbers.
    std::vector<Drawing> finished();

private:
    void addHeadAndFoot(std::vector<Item>& items, const PageFormat& format, int number) const;

    const Document& document_;
    const std::function<bool(std::size_t)>& goesOn_;
    PageFormat format_;
    double firstStamp_; // mm from below
    std::vector<Drawing> pages_;
    std::vector<PageFormat> formats_;
    double y_ = 0;
};
