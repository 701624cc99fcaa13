#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

// UTF-8 text in columns. Widths count code points, which is what a terminal shows for Russian and Latin.

std::size_t widthOf(std::string_view text);

// The text itself, or its beginning with an ellipsis where it is wider.
std::string cutToWidth(std::string_view text, std::size_t width);

// What a column may lose where the table is wider than the terminal.
enum class Cut { nothing, end, begin };

struct TextColumn {
    std::string title;
    bool alignRight = false;
    Cut cut = Cut::nothing;
};

// The rows below their titles, two blanks between columns. A width of 0 means that the line may be as long as
// it is.
std::string formatTable(const std::vector<TextColumn>& columns,
    std::vector<std::vector<std::string>> rows,
    std::size_t lineWidth);
