#pragma once

#include "core/base/reference.h"
#include "db/db_project.h"
#include "persistence/grammar/project.h"
#include "persistence/walk_archive.h"

#include <algorithm>
#include <array>
#include <bit>
#include <cstdint>
#include <random>
#include <string>
#include <string_view>

// Fills every field that a project file can hold, by the description of the file itself, so that a field that
// comes later is filled too. The same seed gives the same project on every system.
class RandomArchive : public WalkArchive<RandomArchive>
{
public:
    static constexpr bool reading = true;

    // Names are all numbers or all lettered, as the orderings need for a walk order that stays.
    RandomArchive(std::uint32_t seed, bool lettered)
        : random_(seed)
        , lettered_(lettered)
    {
    }

    template <class Integer>
    void byte(std::string_view, Integer& value)
    {
        value = static_cast<Integer>(below(256));
    }
    void flag(std::string_view, bool& value) { value = below(2) == 1; }
    void word(std::string_view, float& value) { value = static_cast<float>(below(100000)) / 64 + 1; }
    template <class Number>
    void word(std::string_view, Number& value)
    {
        value = std::bit_cast<Number>(static_cast<std::uint32_t>(random_()));
    }
    void text(std::string_view name, std::wstring& value)
    {
        if (name == "pointName" || name == "name" || name == "textA" || name == "textB")
            value = this->name();
        else if (name == "absoluteMark" || name == "depth")
            value = std::to_wstring(below(300)) + L"." + std::to_wstring(below(100));
        else if (name == "section")
            value = L"Разрез " + this->name() + L"-" + this->name() + L"'";
        else if (name == "key")
            value = this->name() + L":" + std::to_wstring(below(1000));
        else
            value = textPool[below(textPool.size())];
    }
    void elementText(std::string_view, std::wstring& value)
    {
        value.clear();
        for (std::size_t i = below(4); i > 0; --i)
            value += static_cast<wchar_t>(0x21 + below(0x5A));
    }
    void guid(std::string_view, Uuid& value)
    {
        for (std::uint32_t& word : value.words)
            word = static_cast<std::uint32_t>(random_());
    }
    void blob(std::string_view, std::vector<std::uint8_t>& value)
    {
        value.resize(below(5));
        for (std::uint8_t& each : value)
            each = static_cast<std::uint8_t>(below(256));
    }
    template <class Element>
    void list(std::string_view, std::vector<Element>& values)
    {
        values.resize(some());
        for (Element& value : values)
            element(*this, {}, value);
    }
    template <class Key, class Value, class Order>
    void map(std::string_view, const EntryNames& names, std::map<Key, Value, Order>& values)
    {
        for (std::size_t i = some(); i > 0; --i) {
            std::pair<Key, Value> entry;
            entryFields(*this, names, entry.first, entry.second);
            values.insert(std::move(entry));
        }
    }
    void objects(std::string_view, GLObjectList& values)
    {
        for (std::size_t i = some() + 6; i > 0; --i) {
            const std::uint32_t wanted = below(depth() < 3 ? 9 : 8);
            std::uint32_t row = 0;
            anyDrawingClass([&](auto drawing) {
                constexpr bool isBlock = std::same_as<typename decltype(drawing)::Object, GLBlockDB>;
                if ((isBlock && depth() >= 3) || row++ != wanted)
                    return false;
                values.push_back(readObject(*this, drawing).detach());
                return true;
            });
        }
    }
    void planes(std::string_view, GLObjectList& values)
    {
        for (std::size_t i = some(); i > 0; --i)
            values.push_back(readPlane(*this).detach());
    }
    void informs(std::string_view, InformList& values)
    {
        for (std::size_t i = depth() < 3 ? some() : 0; i > 0; --i)
            values.push_back(readInform(*this).detach());
    }
    void items(std::string_view, std::vector<PropertyGridItem*>& values)
    {
        for (std::size_t i = depth() < 3 ? some() : 0; i > 0; --i)
            values.push_back(readItem(*this).detach());
    }
    void stem(std::string_view, IDBProject& project)
    {
        project.setFilePath(L"C:\\Работа\\Участок.TLX");
        project.setFileStem(L"Участок");
    }
    void doubledTitle(std::string_view, std::wstring& a, std::string_view, std::wstring& b)
    {
        text({}, a);
        b = a;
    }
    void subsidence(std::string_view, SubsidenceMap& values)
    {
        for (std::size_t i = some(); i > 0; --i) {
            std::vector<SubsidenceCell>& cells = values[name()];
            cells.clear();
            const std::wstring title(textPool[below(textPool.size())]);
            for (std::size_t cell = below(3); cell > 0; --cell)
                cells.push_back(
                    {static_cast<std::int32_t>(10 * cell), L"0,0" + std::to_wstring(cell), title});
        }
    }

private:
    std::uint32_t below(std::size_t bound) { return static_cast<std::uint32_t>(random_() % bound); }
    std::size_t some() { return 1 + below(3); }
    std::wstring name()
    {
        const std::wstring number = std::to_wstring(1 + below(40));
        return lettered_ ? L"Скв-" + number : number;
    }

    static constexpr std::array<std::wstring_view, 8> textPool = {
        L"",
        L"Суглинок тугопластичный",
        L"12,5",
        L"ґрунт їжачий",
        L"<0.1 \"мм\"; №7",
        L"  с пробелами ",
        L"\u0098",
        L"две\nстроки",
    };
    std::mt19937 random_;
    bool lettered_;
};

inline Reference<DBProject> randomProject(std::uint32_t seed, bool lettered)
{
    auto project = makeReference<DBProject>();
    RandomArchive archive(seed, lettered);
    projectFields(archive, *project);
    return project;
}
