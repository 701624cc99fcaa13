#pragma once

#include "peer.h"

#include <array>
#include <concepts>
#include <sqlite3.h>
#include <string>
#include <tuple>

// The few calls of SQLite that the comparison needs. Every failure ends the run.

class Database
{
public:
    Database(const std::string& path, int flags)
    {
        if (sqlite3_open_v2(path.c_str(), &handle_, flags, nullptr) != SQLITE_OK)
            failPeer("cannot open " + path);
    }
    ~Database() { sqlite3_close(handle_); }
    Database(const Database&) = delete;
    Database& operator=(const Database&) = delete;

    void run(const char* sql)
    {
        if (sqlite3_exec(handle_, sql, nullptr, nullptr, nullptr) != SQLITE_OK)
            failPeer(std::string(sqlite3_errmsg(handle_)) + ": " + sql);
    }
    sqlite3* handle() const { return handle_; }

private:
    sqlite3* handle_ = nullptr;
};

// A prepared statement: its parameters or columns are the arguments in their order.
class Statement
{
public:
    Statement(Database& database, const char* sql)
    {
        if (sqlite3_prepare_v3(database.handle(), sql, -1, SQLITE_PREPARE_PERSISTENT, &statement_, nullptr)
            != SQLITE_OK)
            failPeer(std::string(sqlite3_errmsg(database.handle())) + ": " + sql);
    }
    ~Statement() { sqlite3_finalize(statement_); }
    Statement(const Statement&) = delete;
    Statement& operator=(const Statement&) = delete;

    // One row inserted.
    template <class... Values>
    void insert(const Values&... values)
    {
        int index = 0;
        (bind(++index, values), ...);
        if (sqlite3_step(statement_) != SQLITE_DONE)
            failPeer("a row was not taken");
        sqlite3_reset(statement_);
    }

    // The next row into the fields; false behind the last.
    template <class... Values>
    bool next(Values&... values)
    {
        if (sqlite3_step(statement_) != SQLITE_ROW)
            return false;
        int index = 0;
        (take(index, values), ...);
        return true;
    }

private:
    template <std::integral Integer>
    void bind(int index, Integer value)
    {
        sqlite3_bind_int64(statement_, index, static_cast<sqlite3_int64>(value));
    }
    // Bound without a copy: the text in UTF-8 stays in a buffer of the parameter's until the next row.
    void bind(int index, const std::wstring& value);
    void bind(int index, const std::string& bytes)
    {
        sqlite3_bind_blob(statement_, index, bytes.data(), static_cast<int>(bytes.size()), SQLITE_STATIC);
    }

    // Each takes as many columns as the value has fields.
    template <std::integral Integer>
    void take(int& index, Integer& value)
    {
        value = static_cast<Integer>(sqlite3_column_int64(statement_, index++));
    }
    void take(int& index, std::wstring& value);
    void take(int& index, std::string& bytes)
    {
        const void* first = sqlite3_column_blob(statement_, index);
        bytes.assign(static_cast<const char*>(first),
            static_cast<std::size_t>(sqlite3_column_bytes(statement_, index++)));
    }
    template <class... Values>
    void takeAll(int& index, Values&... values)
    {
        (take(index, values), ...);
    }
    void take(int& index, PointRow& row)
    {
        takeAll(index, row.text0, row.text1, row.absoluteMark, row.kindA, row.text3);
        takeAll(index, row.text4, row.text5, row.text6, row.kindB);
    }
    void take(int& index, PropertyCell& cell) { takeAll(index, cell.id, cell.enabled, cell.value); }
    void take(int& index, ShearCell& cell) { takeAll(index, cell.id, cell.value); }
    void take(int& index, CompressionCell& cell)
    {
        takeAll(index, cell.id, cell.textA, cell.textB, cell.textC);
    }
    void take(int& index, SoundingRow& row)
    {
        takeAll(index, row.depth, row.cells[0], row.cells[1], row.cells[2], row.cells[3]);
    }

    sqlite3_stmt* statement_ = nullptr;
    std::array<std::string, 16> buffers_;
};

// Walks the rows of a table that belong to others, beside those: one pass over both, no search.
template <class... Fields>
class Children
{
public:
    Children(Database& database, const char* sql)
        : rows_(database, sql)
    {
        advance();
    }

    // Calls each(fields) for the rows of this parent, which come in the order of their parents.
    template <class Each>
    void of(sqlite3_int64 parent, Each&& each)
    {
        while (parent_ == parent) {
            std::apply(each, fields_);
            advance();
        }
    }

private:
    void advance()
    {
        const auto next = [this](auto&... fields) { return rows_.next(parent_, place_, fields...); };
        if (!std::apply(next, fields_))
            parent_ = -1;
    }

    Statement rows_;
    sqlite3_int64 parent_ = -1;
    sqlite3_int64 place_ = 0;
    std::tuple<Fields...> fields_;
};
