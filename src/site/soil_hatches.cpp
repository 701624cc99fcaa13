#include "site/soil_hatches.h"

#include <string>
#include <vector>

namespace
{

// Numbers as in data/hatches.json.
enum Hatch : std::uint32_t {
    Rock = 1,
    Coarse,
    SandOfCoarseGroup,
    SandOfFineGroup,
    SandyLoam,
    Loam,
    Clay,
    Peaty,
    Peat,
    Fill,
    Topsoil,
    Mud,
    Loess,
    LoessLoam,
    LoessSandyLoam,
    Pebble,
    CrushedStone,
    Gravel,
    Grus,
    Boulder,
    Sandstone,
    Limestone,
    Chalk,
    Marl,
    Argillite,
    Siltstone,
    Schist,
    Igneous,
    Gypsum,
    Halite,
    SandGravelly,
    SandCoarse,
    SandMedium,
    SandFine,
    SandSilty,
    HardClay,
    Dolomite,
    Anhydrite,
    Opoka,
    Diatomite,
    Carnallite,
    Breccia,
    Tuff,
    Granite,
    Diorite,
    Gabbro,
    Peridotite,
    Diabase,
    Basalt,
    Andesite,
    Rhyolite,
    Obsidian,
    Gneiss,
    Quartzite,
    Marble,
    Hornfels,
    Skarn,
    IronOre,
};

struct Stem {
    const wchar_t* text; // the beginning of a word; capitals match capitals alone
    std::uint32_t hatch;
    bool isWhole = false; // the word has no other letters: "мел" is no beginning of "мелкий"
};

// What a description calls the layer.
// clang-format off
constexpr Stem stems[] = {
    {L"насыпн", Fill}, {L"насипн", Fill}, {L"техногенн", Fill}, {L"асфальт", Fill}, {L"бетон", Fill},
    {L"строительн", Fill}, {L"MADE", Fill}, {L"BITMAC", Fill}, {L"CONCRETE", Fill}, {L"TARMAC", Fill},
    {L"почв", Topsoil}, {L"растительн", Topsoil}, {L"рослинн", Topsoil}, {L"ґрунтово", Topsoil},
    {L"чернозем", Topsoil}, {L"чернозём", Topsoil}, {L"чорнозем", Topsoil}, {L"TOPSOIL", Topsoil},
    {L"торф", Peat}, {L"PEAT", Peat}, {L"заторф", Peaty},
    {L"ил", Mud, true}, {L"илы", Mud, true}, {L"мул", Mud, true}, {L"сапропел", Mud},
    {L"лёсс", Loess}, {L"лесс", Loess}, {L"лес", Loess, true},

    {L"песок", SandMedium}, {L"пески", SandMedium}, {L"пісок", SandMedium},
    {L"піски", SandMedium}, {L"SAND", SandMedium},
    {L"супес", SandyLoam}, {L"супіс", SandyLoam}, {L"SILT", SandyLoam},
    {L"суглин", Loam}, {L"глина", Clay}, {L"глины", Clay}, {L"глини", Clay, true}, {L"CLAY", Clay},
    {L"крупнообломочн", Coarse}, {L"великоуламк", Coarse},
    {L"гал", Pebble, true}, {L"гальк", Pebble}, {L"галечн", Pebble}, {L"COBBLE", Pebble},
    {L"щебен", CrushedStone}, {L"щебін", CrushedStone},
    {L"грави", Gravel}, {L"граві", Gravel}, {L"GRAVEL", Gravel},
    {L"дресв", Grus}, {L"жорств", Grus},
    {L"валун", Boulder}, {L"глыб", Boulder}, {L"глиб", Boulder}, {L"BOULDER", Boulder},

    {L"скал", Rock}, {L"скел", Rock}, {L"полускал", Rock}, {L"напівскел", Rock}, {L"ROCK", Rock},
    {L"магмат", Igneous},
    {L"перидотит", Peridotite}, {L"дунит", Peridotite}, {L"дуніт", Peridotite}, {L"пироксенит", Peridotite},
    {L"піроксеніт", Peridotite},
    {L"габбро", Gabbro}, {L"габро", Gabbro}, {L"норит", Gabbro}, {L"норіт", Gabbro}, {L"анортозит", Gabbro},
    {L"диабаз", Diabase}, {L"діабаз", Diabase}, {L"долерит", Diabase}, {L"DOLERITE", Diabase},
    {L"диорит", Diorite}, {L"діорит", Diorite}, {L"сиенит", Diorite}, {L"сієніт", Diorite},
    {L"гранит", Granite}, {L"граніт", Granite}, {L"гранодиорит", Granite}, {L"гранодіорит", Granite},
    {L"GRANITE", Granite},
    {L"базальт", Basalt}, {L"BASALT", Basalt},
    {L"андезит", Andesite}, {L"порфир", Andesite}, {L"порфір", Andesite}, {L"ортоклаз", Andesite},
    {L"трахит", Rhyolite}, {L"трахіт", Rhyolite}, {L"липарит", Rhyolite}, {L"ліпарит", Rhyolite},
    {L"дацит", Rhyolite}, {L"риолит", Rhyolite}, {L"риоліт", Rhyolite}, {L"ріоліт", Rhyolite},
    {L"вулканогенно", Tuff}, {L"туф", Tuff}, {L"обсидиан", Obsidian}, {L"обсидіан", Obsidian},

    {L"гнейс", Gneiss}, {L"слан", Schist}, {L"SCHIST", Schist}, {L"SHALE", Schist},
    {L"кварцит", Quartzite}, {L"мрамор", Marble}, {L"мармур", Marble}, {L"рогов", Hornfels},
    {L"скарн", Skarn}, {L"железн", IronOre}, {L"залізн", IronOre},

    {L"песчаник", Sandstone}, {L"пісковик", Sandstone}, {L"SANDSTONE", Sandstone},
    {L"брекч", Breccia}, {L"конгломерат", Breccia},
    {L"известняк", Limestone}, {L"вапняк", Limestone}, {L"LIMESTONE", Limestone},
    {L"доломит", Dolomite}, {L"доломіт", Dolomite},
    {L"аргиллит", Argillite}, {L"аргиліт", Argillite}, {L"аргіліт", Argillite}, {L"MUDSTONE", Argillite},
    {L"алевролит", Siltstone}, {L"алевроліт", Siltstone}, {L"SILTSTONE", Siltstone},
    {L"опок", Opoka}, {L"трепел", Diatomite}, {L"диатомит", Diatomite}, {L"діатоміт", Diatomite},
    {L"мел", Chalk, true}, {L"мела", Chalk, true}, {L"крейд", Chalk}, {L"CHALK", Chalk},
    {L"мергел", Marl}, {L"гипс", Gypsum}, {L"гіпс", Gypsum}, {L"ангидрит", Anhydrite},
    {L"ангідрит", Anhydrite}, {L"галит", Halite}, {L"галіт", Halite}, {L"соль", Halite, true},
    {L"карнолит", Carnallite}, {L"карноліт", Carnallite}, {L"карналлит", Carnallite},
};

// What another word makes of it: "песок мелкий", "мелкий песок".
constexpr struct {
    std::uint32_t hatch;
    const wchar_t* text;
    std::uint32_t becomes;
} refinements[] = {
    {SandMedium, L"гравел",   SandGravelly}, {SandMedium, L"граві",   SandGravelly},
    {SandMedium, L"крупн",    SandCoarse},   {SandMedium, L"груб",    SandCoarse},
    {SandMedium, L"средн",    SandMedium},   {SandMedium, L"середн",  SandMedium},
    {SandMedium, L"мелк",     SandFine},     {SandMedium, L"мілк",    SandFine},
    {SandMedium, L"дрібн",    SandFine},     {SandMedium, L"тонк",    SandFine},
    {SandMedium, L"пылеват",  SandSilty},    {SandMedium, L"пилуват", SandSilty},
    {Loam,       L"лёссовид", LoessLoam},    {Loam,       L"лессовид", LoessLoam},
    {Loam,       L"лесоподіб", LoessLoam},
    {SandyLoam,  L"лёссовид", LoessSandyLoam}, {SandyLoam, L"лессовид", LoessSandyLoam},
    {SandyLoam,  L"лесоподіб", LoessSandyLoam},
    {Clay,       L"аргиллитоподоб", HardClay},
};

// Ranges of hatches and the ground under them.
constexpr struct {
    std::uint32_t hatch;
    std::uint32_t color; // 0xRRGGBB
} tints[] = {
    {Rock, 0xe4dde6}, {Coarse, 0xf2e6cf}, {SandOfCoarseGroup, 0xfbeeb9}, {SandOfFineGroup, 0xfdf4cd},
    {SandyLoam, 0xf6e3b4}, {Loam, 0xeed2a4}, {Clay, 0xe2bb93}, {Peaty, 0xd6c3a5}, {Peat, 0xc3a887},
    {Fill, 0xe0dcd6}, {Topsoil, 0xcbb99b}, {Mud, 0xc9d2cb}, {Loess, 0xf8ecc6}, {LoessLoam, 0xf0dcb0},
    {LoessSandyLoam, 0xf6e8c0}, {Pebble, 0xf2e6cf}, {Boulder, 0xeadfc8}, {Sandstone, 0xf3e2a8},
    {Limestone, 0xcfe4f3}, {Chalk, 0xeaf3f8}, {Marl, 0xd8e8e2}, {Argillite, 0xd8cfc4}, {Schist, 0xcfd6cf},
    {Igneous, 0xf3cfc6}, {Gypsum, 0xdfeaf5}, {SandGravelly, 0xf9e8ae}, {SandFine, 0xfdf4cd},
    {HardClay, 0xd9b393}, {Dolomite, 0xd3dcf0}, {Anhydrite, 0xdfeaf5}, {Opoka, 0xe6ecdf}, {Carnallite, 0xf2d9d4},
    {Breccia, 0xece0d0}, {Tuff, 0xdfe6cf}, {Granite, 0xf6cdc4}, {Gabbro, 0xc9d8c6}, {Basalt, 0xc8d3c6},
    {Andesite, 0xe6d3cf}, {Obsidian, 0xcfd2d6}, {Gneiss, 0xf0d3cc}, {Quartzite, 0xefe6d2}, {Marble, 0xe4e2ee},
    {Hornfels, 0xd9d2cc}, {IronOre, 0xd3b6ac},
};
// clang-format on

wchar_t smallLetter(wchar_t letter)
{
    if ((letter >= L'A' && letter <= L'Z') || (letter >= L'\u0410' && letter <= L'\u042F'))
        return static_cast<wchar_t>(letter + 0x20);
    if (letter >= L'\u0400' && letter <= L'\u040F')
        return static_cast<wchar_t>(letter + 0x50);
    return letter == L'\u0490' ? L'\u0491' : letter;
}

bool isLetter(wchar_t letter)
{
    return (letter >= L'A' && letter <= L'Z') || (letter >= L'a' && letter <= L'z')
        || (letter >= L'\u0400' && letter <= L'\u0491') || letter == L'\'';
}

std::wstring small(std::wstring text)
{
    for (wchar_t& letter : text)
        letter = smallLetter(letter);
    return text;
}

std::vector<std::wstring> wordsOf(std::wstring_view text)
{
    std::vector<std::wstring> words(1);
    for (const wchar_t letter : text) {
        if (isLetter(letter))
            words.back() += letter;
        else if (!words.back().empty())
            words.emplace_back();
    }
    if (words.back().empty())
        words.pop_back();
    return words;
}

// The longest of the stems with which a word begins.
std::uint32_t hatchOfWord(const std::wstring& word)
{
    const std::wstring lower = small(word);
    std::uint32_t hatch = 0;
    std::size_t length = 0;
    for (const Stem& stem : stems) {
        const std::wstring_view text = stem.text;
        const std::wstring& compared = smallLetter(text.front()) != text.front() ? word : lower;
        if (text.size() <= length || !compared.starts_with(text)
            || (stem.isWhole && compared.size() != text.size()))
            continue;
        hatch = stem.hatch;
        length = text.size();
    }
    return hatch;
}

std::uint32_t refined(std::uint32_t hatch, const std::wstring& word)
{
    const std::wstring lower = small(word);
    for (const auto& row : refinements)
        if (row.hatch == hatch && lower.starts_with(row.text))
            return row.becomes;
    return 0;
}

} // namespace

std::uint32_t hatchOfDescription(std::wstring_view description)
{
    const std::vector<std::wstring> words = wordsOf(description);
    std::size_t named = 0;
    std::uint32_t hatch = 0;
    for (; named < words.size() && hatch == 0; ++named)
        hatch = hatchOfWord(words[named]);
    // What follows the name says more than what stands before it.
    for (std::size_t turn = 0; turn < words.size(); ++turn) {
        const std::size_t word = (named + turn) % words.size();
        if (word + 1 == named)
            continue;
        if (const std::uint32_t finer = refined(hatch, words[word]))
            return finer;
    }
    return hatch;
}

Color soilTint(std::uint32_t number)
{
    std::uint32_t tint = 0xf4f4f4;
    for (const auto& row : tints)
        if (row.hatch <= number && number != 0)
            tint = row.color;
    return {static_cast<std::uint8_t>(tint >> 16U),
        static_cast<std::uint8_t>(tint >> 8U),
        static_cast<std::uint8_t>(tint)};
}

SoilColor soilColorOf(std::uint32_t hatch)
{
    switch (hatch) {
    case SandOfCoarseGroup:
    case SandOfFineGroup:
    case SandGravelly:
    case SandCoarse:
    case SandMedium:
    case SandFine:
    case SandSilty:
        return SoilColor::Sand;
    case SandyLoam:
    case LoessSandyLoam:
        return SoilColor::SandyLoam;
    case Loam:
    case LoessLoam:
        return SoilColor::Loam;
    case Clay:
    case HardClay:
        return SoilColor::Clay;
    default:
        return SoilColor::None;
    }
}
