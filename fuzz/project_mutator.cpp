#include "persistence/format.h"
#include "place_archive.h"
#include "platform/code_page.h"

#include <algorithm>
#include <array>
#include <cstring>
#include <iterator>
#include <optional>
#include <random>

// Mutations of project files that know their grammar: a file changed byte by byte hardly ever gets past its
// first wrong count, these get to every register.

extern "C" std::size_t LLVMFuzzerMutate(std::uint8_t* data, std::size_t size, std::size_t maxSize);

namespace
{

using Bytes = std::vector<std::uint8_t>;
using Kind = Place::Kind;

// Names, depths, marks and texts at which readers and orderings take a turn.
constexpr std::wstring_view interestingTexts[] = {L"",
    L"1",
    L"01",
    L"2",
    L"10",
    L"0",
    L"-1",
    L"+1",
    L" 1",
    L"1-1",
    L"1-2",
    L"1/4",
    L"1A",
    L"2B",
    L"№5",
    L"Скв-1",
    L"скв-1",
    L"Скв-10",
    L"12345678901",
    L"2147483647",
    L"-2147483648",
    L"1.5",
    L"0,5",
    L"-0.0",
    L"1e-40",
    L"1e39",
    L"0x1p3",
    L"nan",
    L"inf",
    L"-inf",
    L".",
    L" ",
    L"Разрез 1-1'",
    L"Разрез 2-2'",
    L"Разрез А-А'",
    L"1-1'",
    L" '",
    L"'",
    L"a:1",
    L"a:2",
    L":",
    L"a:",
    L"::1",
    L"1'-1'",
    L"C:\\П\\Участок.TLX",
    L"a.b.c/d\\e",
    L"\\",
    L"\u0098",
    L"\u0084\u009F",
    L"z{",
    L"AzZ",
    L"00000000-0000-0000-0000-000000000000"};

constexpr std::uint32_t interestingWords[] = {0,
    1,
    2,
    3,
    0x7F,
    0x80,
    0xFF,
    0x100,
    0xFFFF,
    0x10000,
    0x7FFFFFFF,
    0x80000000,
    0xFFFFFFFF,
    0xFFFFFFFE,
    0x20000000,
    0x40000000,
    0x7FC00000,
    0xFFC00000,
    0x7F800000,
    0x7F800001,
    0x3F800000,
    0xBF800000,
    0x3727C5AC,
    0x3727C5AB,
    0x00000001,
    0x4B800000,
    0x7149F2CA};

// A record with nothing in it around a list of its own sort: what stands in front of the list's elements and
// what behind. Every field is a zero byte or an empty text but a block's code and the count.
struct Wrapping {
    Place::Nesting nesting;
    std::size_t before;
    std::size_t behind;
    std::uint8_t code;
};

constexpr std::size_t emptyText = 4;
constexpr std::size_t word = 4;
constexpr Wrapping wrappings[] = {
    {Place::Nesting::block,
        1 + 3 * emptyText + word,
        0,
        static_cast<std::uint8_t>(format::DrawingCode::block)},
    {Place::Nesting::item, emptyText + 1 + word + 2 * emptyText + 1 + 2 * emptyText + word, 0, 0},
    {Place::Nesting::inform, 1 + 2 * emptyText + 1 + 4 * emptyText + word + word, word + 1, 0},
};

void putWord(Bytes& bytes, std::size_t at, std::uint32_t value)
{
    for (std::size_t i = 0; i < word; ++i)
        bytes[at + i] = static_cast<std::uint8_t>(value >> 8U * i);
}

std::uint32_t wordAt(const Bytes& bytes, std::size_t at)
{
    std::uint32_t value = 0;
    for (std::size_t i = word; i > 0; --i)
        value = value << 8U | bytes[at + i - 1];
    return value;
}

class ProjectMutation
{
public:
    ProjectMutation(Bytes& bytes, std::uint32_t seed, std::size_t maxSize)
        : bytes_(bytes)
        , random_(seed)
        , maxSize_(maxSize)
        , places_(placesOfProject(bytes))
    {
    }

    // One change; false where the file offered none.
    bool change()
    {
        static constexpr bool (ProjectMutation::*changes[])() = {
            &ProjectMutation::changeCount,
            &ProjectMutation::removeElement,
            &ProjectMutation::repeatElement,
            &ProjectMutation::repeatElement,
            &ProjectMutation::addElement,
            &ProjectMutation::addElement,
            &ProjectMutation::addElement,
            &ProjectMutation::swapElements,
            &ProjectMutation::wrapElement,
            &ProjectMutation::replaceText,
            &ProjectMutation::replaceText,
            &ProjectMutation::replaceText,
            &ProjectMutation::editText,
            &ProjectMutation::copyText,
            &ProjectMutation::changeLength,
            &ProjectMutation::replaceWord,
            &ProjectMutation::replaceByte,
            &ProjectMutation::replaceCode,
            &ProjectMutation::replaceGuid,
            &ProjectMutation::cutFile,
        };
        return (this->*changes[below(std::size(changes))])();
    }

    // One element of a list of the other file into a list of the same sort.
    bool takeElement(const Bytes& other)
    {
        const std::vector<Place> places = placesOfProject(other);
        for (int i = 0; i < 20; ++i) {
            const Place* from = any(places, [](const Place& place) { return place.elements.size() > 1; });
            if (!from)
                return false;
            const Place* to = any(places_, [from](const Place& place) { return place.make == from->make; });
            if (!to)
                continue;
            const std::size_t which = below(from->elements.size() - 1);
            return insertElement(*to,
                Bytes(other.begin() + at(from->elements[which]),
                    other.begin() + at(from->elements[which + 1])));
        }
        return false;
    }

private:
    std::uint32_t below(std::size_t bound) { return static_cast<std::uint32_t>(random_() % bound); }
    std::uint32_t anyWord() { return static_cast<std::uint32_t>(random_()) * 2654435761U; }
    static std::ptrdiff_t at(std::size_t offset) { return static_cast<std::ptrdiff_t>(offset); }

    template <class Condition>
    const Place* any(const std::vector<Place>& places, Condition&& condition)
    {
        const auto many = static_cast<std::size_t>(std::count_if(places.begin(), places.end(), condition));
        if (many == 0)
            return nullptr;
        std::size_t before = below(many);
        return &*std::find_if(places.begin(), places.end(), [&](const Place& place) {
            return condition(place) && before-- == 0;
        });
    }
    const Place* anyOf(Kind kind)
    {
        return any(places_, [kind](const Place& place) { return place.kind == kind; });
    }
    const Place* anyList(std::size_t elements)
    {
        return any(places_, [elements](const Place& place) { return place.elements.size() > elements; });
    }

    bool replace(std::size_t begin, std::size_t end, const Bytes& by)
    {
        if (bytes_.size() - (end - begin) + by.size() > maxSize_)
            return false;
        const auto gap = bytes_.erase(bytes_.begin() + at(begin), bytes_.begin() + at(end));
        bytes_.insert(gap, by.begin(), by.end());
        return true;
    }
    void addToCount(const Place& list, std::uint32_t change)
    {
        putWord(bytes_, list.begin, wordAt(bytes_, list.begin) + change);
    }
    bool insertElement(const Place& list, const Bytes& element)
    {
        const std::size_t where =
            list.elements.empty() ? list.end : list.elements[below(list.elements.size())];
        if (!replace(where, where, element))
            return false;
        addToCount(list, 1);
        return true;
    }
    bool setText(const Place& place, const Bytes& text)
    {
        Bytes field(word);
        putWord(field, 0, static_cast<std::uint32_t>(text.size()));
        field.insert(field.end(), text.begin(), text.end());
        return replace(place.begin, place.end, field);
    }

    bool changeCount()
    {
        const Place* list = anyOf(Kind::count);
        if (!list)
            return false;
        constexpr std::uint32_t steps[] = {1, 0xFFFFFFFF, 2, 16, 0xFFFFFFFE};
        if (below(2) == 0)
            addToCount(*list, steps[below(std::size(steps))]);
        else
            putWord(bytes_, list->begin, interestingWords[below(std::size(interestingWords))]);
        return true;
    }
    bool removeElement()
    {
        const Place* list = anyList(1);
        if (!list)
            return false;
        const std::size_t first = below(list->elements.size() - 1);
        // One of them or all of them from there on.
        const std::size_t last = below(4) == 0 ? list->elements.size() - 1 : first + 1;
        replace(list->elements[first], list->elements[last], {});
        addToCount(*list, static_cast<std::uint32_t>(first - last));
        return true;
    }
    bool repeatElement()
    {
        const Place* list = anyList(1);
        if (!list)
            return false;
        const std::size_t which = below(list->elements.size() - 1);
        const Bytes element(
            bytes_.begin() + at(list->elements[which]), bytes_.begin() + at(list->elements[which + 1]));
        const Place* to = any(places_, [list](const Place& place) { return place.make == list->make; });
        return insertElement(*to, element);
    }
    bool addElement()
    {
        const Place* list = anyOf(Kind::count);
        return list && insertElement(*list, list->make(list->names, anyWord()));
    }
    bool swapElements()
    {
        const Place* list = anyList(2);
        if (!list)
            return false;
        const std::size_t middle = 1 + below(list->elements.size() - 2);
        std::rotate(bytes_.begin() + at(list->elements[middle - 1]),
            bytes_.begin() + at(list->elements[middle]),
            bytes_.begin() + at(list->elements[middle + 1]));
        return true;
    }
    bool wrapElement()
    {
        const Place* list = any(places_, [](const Place& place) {
            return place.nesting != Place::Nesting::none && place.elements.size() > 1;
        });
        if (!list)
            return false;
        const Wrapping& wrapping = *std::find_if(std::begin(wrappings),
            std::end(wrappings),
            [list](const Wrapping& row) { return row.nesting == list->nesting; });
        // Mostly shallow, else around the depth at which reading ends.
        const std::size_t levels = below(8) == 0 ? format::nestingLimit - 3 + below(5) : 1 + below(3);
        Bytes before(wrapping.before);
        before.front() = wrapping.code;
        before[wrapping.before - word] = 1;
        const std::size_t which = below(list->elements.size() - 1);
        Bytes wrapped;
        for (std::size_t i = 0; i < levels; ++i)
            wrapped.insert(wrapped.end(), before.begin(), before.end());
        wrapped.insert(wrapped.end(),
            bytes_.begin() + at(list->elements[which]),
            bytes_.begin() + at(list->elements[which + 1]));
        wrapped.insert(wrapped.end(), levels * wrapping.behind, 0);
        return replace(list->elements[which], list->elements[which + 1], wrapped);
    }

    bool replaceText()
    {
        const Place* place = anyOf(Kind::text);
        if (!place)
            return false;
        Bytes text;
        appendCodePage(interestingTexts[below(std::size(interestingTexts))], text);
        return setText(*place, text);
    }
    bool editText()
    {
        const Place* place = anyOf(below(4) == 0 ? Kind::blob : Kind::text);
        if (!place)
            return false;
        constexpr std::size_t longest = 64;
        Bytes text(bytes_.begin() + at(place->begin + word), bytes_.begin() + at(place->end));
        const std::size_t size = std::min(text.size(), longest);
        text.resize(longest);
        text.resize(LLVMFuzzerMutate(text.data(), size, longest));
        return setText(*place, text);
    }
    // The same name or depth in a second place, preferably in a field of the same name.
    bool copyText()
    {
        const Place* from = anyOf(Kind::text);
        if (!from)
            return false;
        const bool sameName = below(4) != 0;
        const Place* to = any(places_, [from, sameName](const Place& place) {
            return place.kind == Kind::text && (!sameName || place.name == from->name);
        });
        const Bytes field(bytes_.begin() + at(from->begin), bytes_.begin() + at(from->end));
        return replace(to->begin, to->end, field);
    }
    bool changeLength()
    {
        const Place* place = any(places_, [](const Place& each) {
            return each.kind == Kind::text || each.kind == Kind::guid || each.kind == Kind::blob;
        });
        if (!place)
            return false;
        putWord(bytes_,
            place->begin,
            below(2) == 0 ? wordAt(bytes_, place->begin) + 3 - 2 * below(4)
                          : interestingWords[below(std::size(interestingWords))]);
        return true;
    }
    bool replaceWord()
    {
        const Place* place = anyOf(Kind::word);
        if (!place)
            return false;
        putWord(bytes_,
            place->begin,
            below(4) == 0 ? anyWord() : interestingWords[below(std::size(interestingWords))]);
        return true;
    }
    bool replaceByte()
    {
        const Place* place = anyOf(below(2) == 0 ? Kind::byte : Kind::flag);
        if (!place)
            return false;
        bytes_[place->begin] = static_cast<std::uint8_t>(below(2) == 0 ? below(4) : random_());
        return true;
    }
    bool replaceCode()
    {
        const Place* place = anyOf(Kind::code);
        if (!place)
            return false;
        bytes_[place->begin] = static_cast<std::uint8_t>(below(16));
        return true;
    }
    bool replaceGuid()
    {
        const Place* place = anyOf(Kind::guid);
        if (!place)
            return false;
        constexpr std::string_view ids[] = {"",
            "12345678-9ABC-DEF0-1234-56789abcdef0",
            "{2345678-9abc-def0-1234-56789abcdef}",
            "12345678-9abc-def0-1234-56789abcdef",
            "12345678-9abc-def0-1234-56789abcdefg"};
        const std::string_view id = ids[below(std::size(ids))];
        return setText(*place, Bytes(id.begin(), id.end()));
    }
    bool cutFile()
    {
        if (places_.empty() || below(8) != 0)
            return false;
        const Place& place = places_[below(places_.size())];
        bytes_.resize(below(2) == 0 ? place.begin : place.end);
        return true;
    }

    Bytes& bytes_;
    std::minstd_rand random_;
    std::size_t maxSize_;
    std::vector<Place> places_;
};

void repairHead(Bytes& bytes)
{
    constexpr format::Head head = format::projectHead;
    bytes.resize(std::max(bytes.size(), head.contentOffset));
    std::copy(head.signature.begin(), head.signature.end(), bytes.begin());
    putWord(bytes, head.versionOffset, head.version);
}

std::size_t give(const Bytes& bytes, std::uint8_t* data)
{
    std::copy(bytes.begin(), bytes.end(), data);
    return bytes.size();
}

} // namespace

// Called by the fuzzer by these names.
// NOLINTBEGIN(readability-identifier-naming)
extern "C" std::size_t LLVMFuzzerCustomMutator(
    std::uint8_t* data, std::size_t size, std::size_t maxSize, unsigned seed)
{
    std::minstd_rand random(seed);
    if (random() % 6 == 0 || maxSize < format::projectHead.contentOffset)
        return LLVMFuzzerMutate(data, size, maxSize);
    Bytes bytes(data, data + size);
    repairHead(bytes);
    ProjectMutation mutation(bytes, static_cast<std::uint32_t>(random()), maxSize);
    for (int i = 0; i < 5; ++i)
        if (mutation.change())
            return give(bytes, data);
    return LLVMFuzzerMutate(data, size, maxSize);
}

extern "C" std::size_t LLVMFuzzerCustomCrossOver(const std::uint8_t* first,
    std::size_t firstSize,
    const std::uint8_t* second,
    std::size_t secondSize,
    std::uint8_t* out,
    std::size_t maxSize,
    unsigned seed)
{
    Bytes bytes(first, first + std::min(firstSize, maxSize));
    ProjectMutation mutation(bytes, seed, maxSize);
    mutation.takeElement(Bytes(second, second + secondSize));
    return give(bytes, out);
}
// NOLINTEND(readability-identifier-naming)
