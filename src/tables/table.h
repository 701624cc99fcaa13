#pragma once

#include <cstddef>
#include <initializer_list>
#include <string>
#include <string_view>
#include <vector>

class IDBProject;

// What a mode shows of the project, as tables of texts below the windows: a screen draws them, a test reads
// them, neither knows where a cell comes from.

struct TableColumn {
    enum Kind {
        Text,
        Number, // right-aligned
    };
    std::wstring_view title; // may have line breaks
    int width = 12; // in digits of the font, until the user drags it; a title always fits
    Kind kind = Text;
    bool onlyWhenFilled = false; // hidden while every cell is empty
};

// The rows of a table: all their texts in one block, so that a register of 100,000 rows costs two growing
// buffers instead of a million strings. Copies the texts; the project may go meanwhile.
class TextRows
{
public:
    explicit TextRows(std::size_t columns = 1)
        : columns_(columns)
    {
    }

    // Cells that are missing at the end of the row are empty, those beyond the last column are dropped.
    void add(std::initializer_list<std::wstring_view> cells) { add(cells.begin(), cells.size()); }
    void add(const std::vector<std::wstring>& cells) { add(cells.data(), cells.size()); }

    // Room for so many rows of ordinary length; of what is not used nothing is ever touched.
    void reserve(std::size_t rows)
    {
        constexpr std::size_t ordinaryCell = 10; // characters
        text_.reserve(rows * columns_ * ordinaryCell);
        ends_.reserve(rows * columns_);
    }
    // Room for as much as another table holds.
    void reserveLike(const TextRows& other)
    {
        text_.reserve(other.text_.size());
        ends_.reserve(other.ends_.size());
    }

    std::size_t columns() const { return columns_; }
    std::size_t size() const { return ends_.size() / columns_; }
    std::wstring_view cell(std::size_t row, std::size_t column) const
    {
        const std::size_t place = row * columns_ + column;
        const std::size_t begin = place == 0 ? 0 : ends_[place - 1];
        return std::wstring_view(text_).substr(begin, ends_[place] - begin);
    }
    bool isColumnEmpty(std::size_t column) const;
    // A copy with every character changed, for a search that does not tell small letters from capitals.
    template <class Change>
    TextRows changed(Change change) const
    {
        TextRows copy = *this;
        for (wchar_t& character : copy.text_)
            character = change(character);
        return copy;
    }

    bool operator==(const TextRows&) const = default;

private:
    template <class Cell>
    void add(const Cell* cells, std::size_t count)
    {
        for (std::size_t column = 0; column < columns_; ++column) {
            if (column < count)
                text_ += cells[column];
            ends_.push_back(text_.size());
        }
    }

    std::size_t columns_;
    std::wstring text_;
    std::vector<std::size_t> ends_; // of each cell, row by row
};

// Where the rows come from.
struct TableSource {
    IDBProject& project;
    int language = 0; // of the names in dictionaries: languageRussian or languageUkrainian
    std::wstring_view chosen = {}; // for a detail: the first cell of the row chosen above it
};

struct Table {
    std::string_view name; // of the table in the file of view settings: "laboratory/properties"
    std::wstring_view title; // of the tab
    std::vector<TableColumn> columns = {};
    void (*fill)(TextRows& rows, const TableSource& source) = nullptr;
    std::wstring_view whenEmpty = {}; // a sentence in place of a table without rows
    std::wstring_view whatToDo =
        L"Внести эти данные пока можно утилитой tlxtool: dump записывает проект в JSON, "
        L"build собирает его обратно."; // the sentence below it
    const Table* detail = nullptr; // shown below for the current row
};

// Large tables are mostly read again to find them as they were.
inline TextRows rowsOf(const Table& table, const TableSource& source, const TextRows& before = TextRows())
{
    TextRows rows(table.columns.size());
    rows.reserveLike(before);
    table.fill(rows, source);
    return rows;
}
