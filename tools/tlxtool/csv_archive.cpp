#include "tlxtool/csv_archive.h"

#include "platform/uuid.h"
#include "tlxtool/base64.h"

#include <algorithm>
#include <array>
#include <charconv>

CsvArchive::CsvArchive()
{
    table_ = &tables_.emplace_back();
    table_->name = "project";
    table_->columns = {"field", "value"};
}

CsvArchive::InTable::InTable(CsvArchive& archive, std::string_view name)
    : archive_(archive)
    , table_(archive.table_)
    , row_(archive.row_)
    , prefix_(std::exchange(archive.prefix_, {}))
{
    std::list<CsvTable>& tables = archive.tables_;
    const bool atRoot = table_ == &tables.front();
    const std::string fullName = (atRoot ? std::string() : table_->name + ".") + std::string(name);
    const auto known = std::find_if(
        tables.begin(), tables.end(), [&](const CsvTable& table) { return table.name == fullName; });
    if (known == tables.end()) {
        archive.table_ = &tables.emplace_back();
        archive.table_->name = fullName;
    } else {
        archive.table_ = &*known;
    }
    archive.row_.cells.resize(row_.keyCells);
    if (archive.heading_)
        archive.row_.columns.resize(row_.keyCells);
}

CsvArchive::InTable::~InTable()
{
    archive_.table_ = table_;
    archive_.row_ = std::move(row_);
    archive_.prefix_ = std::move(prefix_);
}

void CsvArchive::cell(std::string_view name, std::string value)
{
    std::string column = name.empty() ? arrayName_ + std::to_string(arrayNumber_) : std::string(name);
    column.insert(0, prefix_);
    if (table_ == &tables_.front()) {
        table_->rows.push_back({std::move(column), std::move(value)});
        return;
    }
    if (heading_)
        row_.columns.push_back(std::move(column));
    row_.cells.push_back(std::move(value));
}

void CsvArchive::endRow()
{
    if (heading_) {
        table_->columns = row_.columns;
        return;
    }
    row_.cells.resize(table_->columns.size());
    table_->rows.push_back(std::move(row_.cells));
}

void CsvArchive::word(std::string_view name, float value)
{
    std::array<char, 32> digits{};
    const auto end = std::to_chars(digits.data(), digits.data() + digits.size(), value);
    std::string text(digits.data(), end.ptr);
    std::replace(text.begin(), text.end(), '.', ',');
    cell(name, std::move(text));
}

void CsvArchive::guid(std::string_view name, const Uuid& value)
{
    cell(name, uuidToText(value));
}

void CsvArchive::blob(std::string_view name, const std::vector<std::uint8_t>& value)
{
    cell(name, toBase64(value));
}

void CsvArchive::doubledTitle(
    std::string_view nameA, const std::wstring& a, std::string_view nameB, const std::wstring& b)
{
    text(nameA, a);
    text(nameB, b);
}

void CsvArchive::subsidence(std::string_view name, SubsidenceMap& values)
{
    const InTable scope(*this, name);
    const auto cellRow = [this](const std::wstring& pointName, SubsidenceCell& value) {
        text("pointName", pointName);
        fields(*this, value);
        text("title", value.title);
        endRow();
        row_ = {};
    };
    SubsidenceCell example;
    asHeading([&] { cellRow({}, example); });
    for (auto& [pointName, cells] : values) {
        for (SubsidenceCell& value : cells)
            cellRow(pointName, value);
        if (cells.empty()) {
            text("pointName", pointName);
            endRow();
            row_ = {};
        }
    }
}
