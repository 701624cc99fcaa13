#pragma once

#include "db/key_text.h"
#include "modules/idbproject.h"
#include "persistence/grammar/drawings.h"
#include "persistence/grammar/grammar.h"
#include "persistence/grammar/informs.h"
#include "persistence/grammar/strata.h"
#include "persistence/walk_archive.h"
#include "platform/utf8.h"
#include "tlxtool/json.h"

#include <concepts>
#include <cstdint>
#include <functional>
#include <map>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

// Turns the fields of a project into the members of a JSON object. Maps become arrays of objects in walk
// order, raw bytes base64, identifiers their text.
class JsonDumpArchive : public WalkArchive<JsonDumpArchive>
{
public:
    // The keys of the entries of each register of the project, as a person reads them, in walk order.
    using RegisterKeys = std::map<std::string, std::vector<std::string>, std::less<>>;

    explicit JsonDumpArchive(Json& project);

    const RegisterKeys& registerKeys() const { return registerKeys_; }

    template <std::integral Integer>
    void byte(std::string_view name, const Integer& value)
    {
        add(name, value);
    }
    void flag(std::string_view name, bool value) { add(name, value); }

    template <std::integral Number>
    void word(std::string_view name, const Number& value)
    {
        add(name, value);
    }
    void word(std::string_view name, float value);
    void text(std::string_view name, const std::wstring& value) { add(name, toUtf8(value)); }
    void guid(std::string_view name, const Uuid& value);
    void blob(std::string_view name, const std::vector<std::uint8_t>& value);

    template <class List>
    void list(std::string_view name, List& values)
    {
        inside(add(name, Json::array()), [&] {
            for (auto& value : values)
                element(*this, {}, value);
        });
    }

    template <class Array, class Each>
    void array(std::string_view name, Array& values, Each&& each)
    {
        inside(add(name, Json::array()), [&] {
            for (auto& value : values)
                each(value);
        });
    }

    template <class Map>
    void map(std::string_view name, const EntryNames& names, Map& values)
    {
        std::vector<std::string>* keys = target_ == root_ ? &registerKeys_[std::string(name)] : nullptr;
        inside(add(name, Json::array()), [&] {
            for (auto& [key, value] : values) {
                if (keys)
                    keys->push_back(toUtf8(keyText(key)));
                inside(add({}, Json::object()), [&, &entryKey = key, &entryValue = value] {
                    entryFields(*this, names, entryKey, entryValue);
                });
            }
        });
    }

    template <class Record>
    void record(std::string_view name, Record& value)
    {
        inside(add(name, Json::object()), [&] { fields(*this, value); });
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
    // Appends a member to the object or an element to the array that is being filled.
    Json& add(std::string_view name, Json value);
    // Fills the given object or array.
    template <class Body>
    void inside(Json& value, Body&& body)
    {
        Json* const outer = std::exchange(target_, &value);
        body();
        target_ = outer;
    }
    template <class Record>
    void records(std::string_view name, const std::vector<Record*>& values);

    Json* root_;
    Json* target_;
    RegisterKeys registerKeys_;
};
