#pragma once

#include "db/key_text.h"
#include "db/walk_order.h"
#include "modules/idbproject.h"
#include "persistence/grammar/drawings.h"
#include "persistence/grammar/grammar.h"
#include "persistence/grammar/informs.h"
#include "persistence/save_losses.h"
#include "persistence/stored_texts.h"
#include "persistence/walk_archive.h"

#include <concepts>
#include <cstdint>
#include <stdexcept>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

// Walks the fields of a project as the writer does and notes what of them the file cannot keep.
class LossArchive : public WalkArchive<LossArchive>
{
public:
    explicit LossArchive(std::size_t limit)
        : limit_(limit)
    {
    }

    // What was found, at most as many as the limit, those first that keep the file from opening.
    std::vector<SaveLoss> takeLosses();

    void section(std::string_view name) { section_ = name; }

    template <std::integral Integer>
    void byte(std::string_view name, const Integer& value)
    {
        if (!std::in_range<std::uint8_t>(value))
            note(SaveLoss::Kind::byteCut, name);
    }
    void flag(std::string_view, bool) { }
    template <class Number>
    void word(std::string_view, const Number&)
    {
    }
    void text(std::string_view name, const std::wstring& value);
    void elementText(std::string_view name, const std::wstring& value);
    void guid(std::string_view, const Uuid&) { }
    void blob(std::string_view, const std::vector<std::uint8_t>&) { }

    template <class Key, class Value, class Order>
    void map(std::string_view name, const EntryNames& names, std::map<Key, Value, Order>& values)
    {
        keys(name, values);
        const RowKey outer = key_;
        for (auto& [key, value] : values) {
            if (outer.isNone())
                key_ = RowKey(key);
            entryFields(*this, names, key, value);
        }
        key_ = outer;
    }

    void objects(std::string_view name, const GLObjectList& values);
    void planes(std::string_view name, const GLObjectList& values);
    void informs(std::string_view name, const InformList& values);
    void items(std::string_view name, const std::vector<PropertyGridItem*>& values);
    void stem(std::string_view name, IDBProject& project);
    void doubledTitle(
        std::string_view nameA, const std::wstring& a, std::string_view nameB, const std::wstring& b);
    void subsidence(std::string_view name, SubsidenceMap& values);
    void note(SaveLoss::Kind kind, std::string_view field);
    void note(SaveLoss::Kind kind, std::string_view field, const std::wstring& key);

private:
    // The key of the register's row that is being walked, spelt only where something is to be said of it.
    class RowKey
    {
    public:
        RowKey() = default;
        template <class Key>
        explicit RowKey(const Key& key)
            : key_(&key)
            , spell_([](const void* of) { return keyText(*static_cast<const Key*>(of)); })
        {
        }
        bool isNone() const { return !spell_; }
        std::wstring text() const { return spell_ ? spell_(key_) : std::wstring(); }

    private:
        const void* key_ = nullptr;
        std::wstring (*spell_)(const void*) = nullptr;
    };

    template <class Map>
    void keys(std::string_view name, const Map& values)
    {
        if (!comeBackInOrder(values))
            insertAgain(name, values);
    }
    // Puts the keys into a register of the same ordering, as a reader will find them and in the same order.
    template <class Map>
    void insertAgain(std::string_view name, const Map& values)
    {
        using Key = typename Map::key_type;
        std::map<Key, char, typename Map::key_compare> again;
        RowByRow rows(again);
        for (const auto& entry : values) {
            try {
                if (!rows.insert(std::pair<Key, char>(storedKey(entry.first), 0)))
                    note(SaveLoss::Kind::rowRefused, name, keyText(entry.first));
            } catch (const std::logic_error&) {
                note(SaveLoss::Kind::keyUnread, name, keyText(entry.first));
            }
        }
    }

    std::size_t limit_;
    // Apart, so that however many of the others never crowd out the one that matters.
    std::vector<SaveLoss> unreadable_;
    std::vector<SaveLoss> others_;
    std::string_view section_;
    RowKey key_;
};
