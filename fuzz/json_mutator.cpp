#include "tlxtool/json.h"
#include "tlxtool/json_text.h"

#include <algorithm>
#include <cstdint>
#include <cstring>
#include <iterator>
#include <random>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

// Mutations of JSON that stay JSON: one text changed byte by byte hardly ever parses.

extern "C" std::size_t LLVMFuzzerMutate(std::uint8_t* data, std::size_t size, std::size_t maxSize);

namespace
{

constexpr const char* interestingTexts[] = {"",
    "1",
    "01",
    "0",
    "-1",
    "10",
    "1-1",
    "1A",
    "№5",
    "Скв-1",
    "1.5",
    "0,5",
    "nan",
    "1e39",
    "0x7fc00000",
    "0xff800000",
    "0x00000001",
    "Разрез 1-1'",
    "a:1",
    ":",
    "двa",
    "\u0098",
    "\xF0\x9F\x98\x80",
    "AAAA",
    "AA==",
    "=",
    "00000000-0000-0000-0000-000000000000",
    "ABCDEF00-0000-0000-0000-000000000001",
    "GLBlockDB",
    "GLLineDB",
    "GLPlaneDB",
    "Tellurix project"};

constexpr std::int64_t interestingIntegers[] = {0,
    1,
    -1,
    2,
    104,
    127,
    128,
    255,
    256,
    65535,
    2147483647,
    -2147483648LL,
    2147483648LL,
    4294967295LL,
    4294967296LL,
    9223372036854775807LL};

constexpr float interestingSingles[] = {
    0.0F, -0.0F, 1.5F, -1.0F, 1e-5F, 9.9e-6F, 3.4e38F, 1e-45F, 16777216.0F, 0.1F};

// Values are copied and written by recursion: what is nested deeper is left to changes of its text.
constexpr int deepest = 2000;

// A value and the name of the member that holds it, empty in arrays.
struct Node {
    Json* value;
    std::string_view name;
};

void collect(Json& value, std::string_view name, std::vector<Node>& nodes)
{
    nodes.push_back({&value, name});
    if (value.is_object()) {
        for (auto& member : value.get_ref<Json::object_t&>())
            collect(member.second, member.first, nodes);
    } else if (value.is_array()) {
        for (Json& element : value)
            collect(element, {}, nodes);
    }
}

class JsonMutation
{
public:
    JsonMutation(Json& root, std::uint32_t seed)
        : root_(root)
        , random_(seed)
    {
        collect(root_, {}, nodes_);
    }

    void change()
    {
        Json& value = *nodes_[below(nodes_.size())].value;
        if (below(30) == 0)
            value = below(2) == 0 ? Json() : Json(interestingIntegers[below(std::size(interestingIntegers))]);
        else if (value.is_array())
            changeArray(value.get_ref<Json::array_t&>());
        else if (value.is_object())
            changeObject(value);
        else if (value.is_string())
            changeText(value.get_ref<std::string&>());
        else if (value.is_boolean())
            value = !value.get<bool>();
        else
            changeNumber(value);
    }

    // A value of the other text in the place of one of the same name.
    void take(Json& other)
    {
        std::vector<Node> from;
        collect(other, {}, from);
        for (int i = 0; i < 50; ++i) {
            const Node& source = from[below(from.size())];
            const Node& target = nodes_[below(nodes_.size())];
            if (source.name != target.name || source.value->type() != target.value->type())
                continue;
            *target.value = Json(*source.value);
            return;
        }
    }

private:
    std::uint32_t below(std::size_t bound) { return static_cast<std::uint32_t>(random_() % bound); }
    template <class List>
    auto any(List& list)
    {
        return list.begin() + below(list.size());
    }

    void changeArray(Json::array_t& array)
    {
        if (array.empty())
            return;
        switch (below(4)) {
        case 0:
            array.erase(any(array));
            break;
        case 1:
            std::iter_swap(any(array), any(array));
            break;
        case 2:
            wrap(array);
            break;
        default: {
            Json copy = *any(array);
            array.insert(any(array), std::move(copy));
        }
        }
    }
    // One of the elements into the list of children of a copy of itself, some times over.
    void wrap(Json::array_t& array)
    {
        Json& element = *any(array);
        constexpr int longest = 3;
        for (std::uint32_t i = below(longest) + 1; i > 0 && element.is_object(); --i)
            for (const char* children : {"objects", "children"})
                if (element.contains(children) && element[children].is_array()) {
                    Json copy = element;
                    element[children] = Json::array({std::move(copy)});
                }
    }
    void changeObject(Json& value)
    {
        auto& members = value.get_ref<Json::object_t&>();
        if (below(4) != 0 || members.empty())
            return;
        if (below(2) == 0)
            members.erase(any(members));
        else
            members.emplace_back("field", Json(1));
    }
    void changeText(std::string& text)
    {
        if (below(3) != 0) {
            text = interestingTexts[below(std::size(interestingTexts))];
            return;
        }
        // Another text of the same document: keys that repeat are refused in their own ways.
        const Json& other = *nodes_[below(nodes_.size())].value;
        if (other.is_string()) {
            text = std::string(other.get_ref<const std::string&>());
            return;
        }
        constexpr std::size_t longest = 32;
        const std::size_t size = std::min(text.size(), longest);
        text.resize(longest);
        text.resize(LLVMFuzzerMutate(reinterpret_cast<std::uint8_t*>(text.data()), size, longest));
    }
    void changeNumber(Json& value)
    {
        if (below(3) == 0)
            value = interestingSingles[below(std::size(interestingSingles))];
        else
            value = interestingIntegers[below(std::size(interestingIntegers))];
    }

    Json& root_;
    std::minstd_rand random_;
    std::vector<Node> nodes_;
};

bool isTooDeep(const std::uint8_t* data, std::size_t size)
{
    int depth = 0;
    for (const std::uint8_t* at = data; at != data + size && depth <= deepest; ++at)
        depth += *at == '[' || *at == '{' ? 1 : *at == ']' || *at == '}' ? -1 : 0;
    return depth > deepest;
}

// Discarded where the text is no JSON or is nested too deep.
Json parse(const std::uint8_t* data, std::size_t size)
{
    if (isTooDeep(data, size))
        return Json(Json::value_t::discarded);
    return Json::parse(data, data + size, nullptr, false);
}

// What does not fit is not taken.
std::size_t give(const Json& value, std::uint8_t* data, std::size_t size, std::size_t maxSize)
{
    const std::string text = jsonText(value, true);
    if (text.size() > maxSize)
        return size;
    std::copy(text.begin(), text.end(), data);
    return text.size();
}

} // namespace

// Called by the fuzzer by these names.
// NOLINTBEGIN(readability-identifier-naming)
extern "C" std::size_t LLVMFuzzerCustomMutator(
    std::uint8_t* data, std::size_t size, std::size_t maxSize, unsigned seed)
{
    Json root = parse(data, size);
    if (root.is_discarded() || seed % 8 == 0)
        return LLVMFuzzerMutate(data, size, maxSize);
    JsonMutation mutation(root, seed);
    mutation.change();
    return give(root, data, size, maxSize);
}

extern "C" std::size_t LLVMFuzzerCustomCrossOver(const std::uint8_t* first,
    std::size_t firstSize,
    const std::uint8_t* second,
    std::size_t secondSize,
    std::uint8_t* out,
    std::size_t maxSize,
    unsigned seed)
{
    std::memcpy(out, first, std::min(firstSize, maxSize));
    Json root = parse(first, firstSize);
    Json other = parse(second, secondSize);
    if (root.is_discarded() || other.is_discarded())
        return std::min(firstSize, maxSize);
    JsonMutation mutation(root, seed);
    mutation.take(other);
    return give(root, out, std::min(firstSize, maxSize), maxSize);
}
// NOLINTEND(readability-identifier-naming)
