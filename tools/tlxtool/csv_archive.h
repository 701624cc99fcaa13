#pragma once

#include "modules/idbproject.h"
#include "persistence/grammar/drawings.h"
#include "persistence/grammar/grammar.h"
#include "persistence/grammar/informs.h"
#include "persistence/grammar/strata.h"
#include "persistence/walk_archive.h"
#include "platform/utf8.h"

#include <concepts>
#include <cstddef>
#include <cstdint>
#include <list>
#include <map>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

// One table of an export; its name is that of the file without ".csv".
struct CsvTable {
    std::string name;
    std::vector<std::string> columns;
    std::vector<std::vector<std::string>> rows;
};

// Turns the registers of a project into tables. Every map and list becomes one: a row an entry, columns named
// as the fields. A list inside an entry becomes a table of its own, "labSamples.physical", a row an element,
// with the key of the entry repeated in front; where the entry is nothing but its list, the two are one
// table. Single fields stand in the table "project". Drawing objects and records along profiles are no
// registers and are left out.
class CsvArchive : public WalkArchive<CsvArchive>
{
public:
    CsvArchive();

    const std::list<CsvTable>& tables() const { return tables_; }

    template <std::integral Integer>
    void byte(std::string_view name, const Integer& value)
    {
        cell(name, std::to_string(value));
    }
    void flag(std::string_view name, bool value) { cell(name, value ? "1" : "0"); }
    template <std::integral Number>
    void word(std::string_view name, const Number& value)
    {
        cell(name, std::to_string(value));
    }
    // With a comma, as spreadsheets under a Russian system read numbers; texts stay as they were typed.
    void word(std::string_view name, float value);
    void text(std::string_view name, const std::wstring& value) { cell(name, toUtf8(value)); }
    void guid(std::string_view name, const Uuid& value);
    void blob(std::string_view name, const std::vector<std::uint8_t>& value);

    template <class Element>
    void list(std::string_view name, std::vector<Element>& values)
    {
        const InTable scope(*this, name);
        if (table_->columns.empty())
            asHeading([&] {
                auto example = exampleOf<std::vector<Element>>();
                elementRows(name, example);
            });
        elementRows(name, values);
    }
    // The values of a fixed array are columns: "cells1", "cells2".
    template <class Array, class Each>
    void array(std::string_view name, Array& values, Each&& each)
    {
        const std::string outer = std::exchange(arrayName_, std::string(name));
        arrayNumber_ = 0;
        for (auto& value : values) {
            ++arrayNumber_;
            each(value);
        }
        arrayName_ = outer;
    }
    template <class Key, class Value, class Order>
    void map(std::string_view name, const EntryNames& names, std::map<Key, Value, Order>& values)
    {
        const InTable scope(*this, name);
        if (table_->columns.empty())
            asHeading([&] {
                auto example = exampleOf<Value>();
                entryRows(names, Key{}, example);
            });
        for (auto& [key, value] : values)
            entryRows(names, key, value);
    }
    template <class Record>
    void record(std::string_view name, Record& value)
    {
        const std::string outer = prefix_;
        if (!name.empty())
            prefix_.append(name).append(".");
        fields(*this, value);
        prefix_ = outer;
    }

    void objects(std::string_view, const GLObjectList&) { }
    void planes(std::string_view, const GLObjectList&) { }
    void informs(std::string_view, const InformList&) { }
    void items(std::string_view, const std::vector<PropertyGridItem*>&) { }
    void doubledTitle(
        std::string_view nameA, const std::wstring& a, std::string_view nameB, const std::wstring& b);
    void subsidence(std::string_view name, SubsidenceMap& values);

private:
    // The row that is being filled. Its first cells are the key, which the rows of lists inside it repeat.
    struct Row {
        std::vector<std::string> columns; // collected only for the heading
        std::vector<std::string> cells;
        std::size_t keyCells = 0;
    };

    // Fills the table of that name, below the one of the row that is being filled, for as long as it lives.
    class InTable
    {
    public:
        InTable(CsvArchive& archive, std::string_view name);
        ~InTable();
        InTable(const InTable&) = delete;
        InTable& operator=(const InTable&) = delete;

    private:
        CsvArchive& archive_;
        CsvTable* table_;
        Row row_;
        std::string prefix_;
    };

    // The first row of a table is one of empty values, of which only the names of the columns stay: so they
    // are there where the register is empty.
    template <class Body>
    void asHeading(Body&& body)
    {
        const bool outer = std::exchange(heading_, true);
        body();
        heading_ = outer;
    }
    template <class Value>
    static Value exampleOf()
    {
        Value value{};
        if constexpr (isVector<Value>)
            value.push_back(exampleOf<typename Value::value_type>());
        return value;
    }

    template <class Element>
    void elementRows(std::string_view name, std::vector<Element>& values)
    {
        const Row key = row_;
        std::size_t number = 0;
        for (Element& value : values) {
            ++number;
            if constexpr (isVector<Element>) {
                cell(std::string(name) + "Number", std::to_string(number));
                elementRows(name, value);
            } else {
                constexpr bool isText = std::same_as<Element, std::wstring>;
                element(*this, isText ? name : std::string_view(), value);
                endRow();
            }
            row_ = key;
        }
    }
    template <class Key, class Value>
    void entryRows(const EntryNames& names, const Key& key, Value& value)
    {
        const Row outer = row_;
        entryHalf(*this, names.key, key);
        row_.keyCells = row_.cells.size();
        if constexpr (isVector<Value>) {
            elementRows(names.value, value);
            if (value.empty())
                endRow();
        } else {
            entryHalf(*this, names.value, value);
            endRow();
        }
        row_ = outer;
    }

    void cell(std::string_view name, std::string value);
    void endRow();

    std::list<CsvTable> tables_;
    CsvTable* table_;
    Row row_;
    bool heading_ = false;
    std::string prefix_;
    std::string arrayName_;
    std::size_t arrayNumber_ = 0;
};
