#pragma once

#include "db/key_text.h"
#include "db/walk_order.h"
#include "modules/idbproject.h"
#include "persistence/grammar/drawings.h"
#include "persistence/grammar/grammar.h"
#include "persistence/grammar/informs.h"
#include "persistence/grammar/strata.h"
#include "persistence/read_failure.h"
#include "persistence/walk_archive.h"
#include "platform/code_page.h"
#include "tlxtool/messages.h"

#include <concepts>
#include <cstddef>
#include <cstdint>
#include <map>
#include <optional>
#include <set>
#include <stdexcept>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

// Walks the fields of a project as the writer does, counts the bytes that it would write, and notes names and
// depths that will bite later.
class CheckArchive : public WalkArchive<CheckArchive>
{
public:
    static constexpr bool binary = true;

    // Begins behind the head of the file. The offsets of the findings count bytes as a save would write them.
    explicit CheckArchive(std::size_t position)
        : position_(position)
    {
    }

    // To be asked before the walk: where the row of that key stands will be wanted.
    void wantPlace(const std::string& section, const std::wstring& key) { places_[{section, key}] = {}; }
    // After the walk; nothing where the section has no such row, or several.
    std::optional<std::size_t> placeOf(const std::string& section, const std::wstring& key) const;
    // After the walk: everything found, names of points that read as the same number last.
    std::vector<Finding> takeFindings();

    void section(std::string_view name) { section_ = name; }

    template <class Integer>
    void byte(std::string_view, const Integer&)
    {
        position_ += 1;
    }
    void flag(std::string_view, bool) { position_ += 1; }
    template <class Number>
    void word(std::string_view, const Number&)
    {
        position_ += 4;
    }
    void text(std::string_view, const std::wstring& value) { position_ += 4 + codePageLength(value); }
    void guid(std::string_view, const Uuid&) { position_ += 4 + 36; }
    void blob(std::string_view, const std::vector<std::uint8_t>& value) { position_ += 4 + value.size(); }

    template <class List>
    void list(std::string_view, List& values)
    {
        position_ += 4;
        for (auto& value : values)
            element(*this, {}, value);
    }
    template <class Map>
    void map(std::string_view name, const EntryNames& names, Map& values)
    {
        // Only the registers of the project are looked at, not the maps inside a laboratory sample.
        if (insideRegister_) {
            entries(names, values, [](const auto&) {});
            return;
        }
        beginRegister();
        WalkOrder order;
        bool sorted = true;
        entries(names, values, [&](const auto& key) {
            rowBegin_ = position_;
            rowKey_ = keyText(key);
            notePlace();
            if (refusedByOrdering(values.key_comp(), key))
                return;
            noteKey(key);
            if constexpr (std::same_as<typename Map::key_compare, NumericTextOrder>)
                noteClass(key, NameClass::lettered);
            sorted = order.admitsNext<Map>(key) && sorted;
        });
        endRegister(name, sorted);
    }
    template <class Record>
    void record(std::string_view, Record& value)
    {
        noteRecord(value);
        fields(*this, value);
    }

    void objects(std::string_view name, const GLObjectList& values);
    void planes(std::string_view name, const GLObjectList& values);
    void informs(std::string_view name, const InformList& values);
    void items(std::string_view name, const std::vector<PropertyGridItem*>& values);
    void stem(std::string_view name, IDBProject& project);
    void doubledTitle(
        std::string_view nameA, const std::wstring& a, std::string_view nameB, const std::wstring& b);
    void subsidence(std::string_view name, SubsidenceMap& values);

private:
    // How often a register names a point, and where first.
    struct NameUse {
        std::size_t rows = 0;
        std::size_t offset = 0;
    };
    struct RowPlace {
        std::size_t offset = 0;
        std::size_t rows = 0;
    };

    template <class Map, class Note>
    void entries(const EntryNames& names, Map& values, Note&& note)
    {
        position_ += 4;
        for (auto& [key, value] : values) {
            note(key);
            entryFields(*this, names, key, value);
        }
    }

    // A row that is alone in its register got there without a comparison.
    template <class Order, class Key>
    bool refusedByOrdering(const Order& order, const Key& key)
    {
        try {
            static_cast<void>(order(key, key));
            return false;
        } catch (const std::logic_error& failure) {
            note(rowBegin_, quoted(rowKey_) + ": " + describeReadFailure(failure.what()));
            return true;
        }
    }

    void noteKey(const PointKey& key);
    void noteKey(const PointDepthKey& key);
    void noteKey(const SoundingKey& key);
    template <class Key>
    void noteKey(const Key&)
    {
    }
    void noteRecord(const SoundingRow& row);
    void noteRecord(const PointRow& row);
    void noteRecord(const SectionRef& point) { notePoint(point.name, position_); }
    template <class Record>
    void noteRecord(const Record&)
    {
    }
    void notePoint(const std::wstring& pointName, std::size_t offset);
    // Orderings differ in what a name that reads as 0 is to them.
    void noteClass(const std::wstring& name, NameClass zeroCountsAs);
    void noteNumber(std::string_view what, const std::wstring& text, std::size_t offset);
    void notePlace();
    void note(std::size_t offset, std::string text);

    void beginRegister();
    void endRegister(std::string_view name, bool sorted);
    void explainOrder(std::size_t offset);
    void findUnknownPoints();
    void findEqualNames();

    static std::string quoted(std::wstring_view text);

    std::vector<Finding> findings_;
    std::string_view section_;
    std::size_t position_;

    bool insideRegister_ = false;
    std::size_t registerBegin_ = 0;
    std::size_t rowBegin_ = 0;
    std::wstring rowKey_;
    // The points that the register names, and one of its names of each class.
    std::map<std::wstring, NameUse> names_;
    std::map<NameClass, std::wstring> classes_;
    std::map<std::pair<std::string, std::wstring>, RowPlace> places_;

    // The names of the point register, and every name of a point by the number that it reads as.
    std::set<std::wstring> points_;
    std::set<int> pointNumbers_;
    std::map<int, std::map<std::wstring, std::size_t>> namesByNumber_;
};
