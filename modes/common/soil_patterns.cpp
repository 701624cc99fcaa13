#include "common/soil_patterns.h"

#include "modules/idb_hatch.h"

#include <QPainter>
#include <QPainterPath>

#include <algorithm>
#include <cmath>

static const QColor strokeColor(0x30, 0x30, 0x30, 0xb4);

SoilPatterns::SoilPatterns(IDBHatch* library)
{
    if (!library)
        return;
    for (const auto& [number, bytes] : library->getHatches())
        if (const std::optional<HatchPattern> pattern = HatchPattern::parse(bytes))
            patterns_.emplace(number, *pattern);
}

QString SoilPatterns::name(std::uint32_t number) const
{
    const auto found = patterns_.find(number);
    return found == patterns_.end() ? QString() : found->second.name();
}

void SoilPatterns::fill(
    QPainter& painter, const QPainterPath& area, std::uint32_t number, const QPointF& origin) const
{
    const auto found = patterns_.find(number);
    if (found == patterns_.end() || area.isEmpty())
        return;
    const double density = painter.device()->devicePixelRatioF();
    QPixmap& tile = tiles_[quint64(number) << 32U | quint64(std::lround(density * 1000))];
    if (tile.isNull()) {
        tile = found->second.picture(density, strokeColor);
        tile.setDevicePixelRatio(density);
    }
    const QRectF bounds = area.boundingRect();
    painter.save();
    painter.setClipPath(area, Qt::IntersectClip);
    const QRectF whole(
        std::floor(bounds.left()), std::floor(bounds.top()), bounds.width() + 2, bounds.height() + 2);
    painter.drawTiledPixmap(whole, tile, whole.topLeft() - origin);
    painter.restore();
}

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
    const char16_t* text; // the beginning of a word; capitals match capitals alone
    std::uint32_t hatch;
    bool isWhole = false; // the word has no other letters: "мел" is no beginning of "мелкий"
};

// What a description calls the layer.
// clang-format off
constexpr Stem stems[] = {
    {u"насыпн", Fill}, {u"насипн", Fill}, {u"техногенн", Fill}, {u"асфальт", Fill}, {u"бетон", Fill},
    {u"строительн", Fill}, {u"MADE", Fill}, {u"BITMAC", Fill}, {u"CONCRETE", Fill}, {u"TARMAC", Fill},
    {u"почв", Topsoil}, {u"растительн", Topsoil}, {u"рослинн", Topsoil}, {u"ґрунтово", Topsoil},
    {u"чернозем", Topsoil}, {u"чернозём", Topsoil}, {u"чорнозем", Topsoil}, {u"TOPSOIL", Topsoil},
    {u"торф", Peat}, {u"PEAT", Peat}, {u"заторф", Peaty},
    {u"ил", Mud, true}, {u"илы", Mud, true}, {u"мул", Mud, true}, {u"сапропел", Mud},
    {u"лёсс", Loess}, {u"лесс", Loess}, {u"лес", Loess, true},

    {u"песок", SandMedium}, {u"пески", SandMedium}, {u"пісок", SandMedium},
    {u"піски", SandMedium}, {u"SAND", SandMedium},
    {u"супес", SandyLoam}, {u"супіс", SandyLoam}, {u"SILT", SandyLoam},
    {u"суглин", Loam}, {u"глина", Clay}, {u"глины", Clay}, {u"глини", Clay, true}, {u"CLAY", Clay},
    {u"крупнообломочн", Coarse}, {u"великоуламк", Coarse},
    {u"гал", Pebble, true}, {u"гальк", Pebble}, {u"галечн", Pebble}, {u"COBBLE", Pebble},
    {u"щебен", CrushedStone}, {u"щебін", CrushedStone},
    {u"грави", Gravel}, {u"граві", Gravel}, {u"GRAVEL", Gravel},
    {u"дресв", Grus}, {u"жорств", Grus},
    {u"валун", Boulder}, {u"глыб", Boulder}, {u"глиб", Boulder}, {u"BOULDER", Boulder},

    {u"скал", Rock}, {u"скел", Rock}, {u"полускал", Rock}, {u"напівскел", Rock}, {u"ROCK", Rock},
    {u"магмат", Igneous},
    {u"перидотит", Peridotite}, {u"дунит", Peridotite}, {u"дуніт", Peridotite}, {u"пироксенит", Peridotite},
    {u"піроксеніт", Peridotite},
    {u"габбро", Gabbro}, {u"габро", Gabbro}, {u"норит", Gabbro}, {u"норіт", Gabbro}, {u"анортозит", Gabbro},
    {u"диабаз", Diabase}, {u"діабаз", Diabase}, {u"долерит", Diabase}, {u"DOLERITE", Diabase},
    {u"диорит", Diorite}, {u"діорит", Diorite}, {u"сиенит", Diorite}, {u"сієніт", Diorite},
    {u"гранит", Granite}, {u"граніт", Granite}, {u"гранодиорит", Granite}, {u"гранодіорит", Granite},
    {u"GRANITE", Granite},
    {u"базальт", Basalt}, {u"BASALT", Basalt},
    {u"андезит", Andesite}, {u"порфир", Andesite}, {u"порфір", Andesite}, {u"ортоклаз", Andesite},
    {u"трахит", Rhyolite}, {u"трахіт", Rhyolite}, {u"липарит", Rhyolite}, {u"ліпарит", Rhyolite},
    {u"дацит", Rhyolite}, {u"риолит", Rhyolite}, {u"риоліт", Rhyolite}, {u"ріоліт", Rhyolite},
    {u"вулканогенно", Tuff}, {u"туф", Tuff}, {u"обсидиан", Obsidian}, {u"обсидіан", Obsidian},

    {u"гнейс", Gneiss}, {u"слан", Schist}, {u"SCHIST", Schist}, {u"SHALE", Schist},
    {u"кварцит", Quartzite}, {u"мрамор", Marble}, {u"мармур", Marble}, {u"рогов", Hornfels},
    {u"скарн", Skarn}, {u"железн", IronOre}, {u"залізн", IronOre},

    {u"песчаник", Sandstone}, {u"пісковик", Sandstone}, {u"SANDSTONE", Sandstone},
    {u"брекч", Breccia}, {u"конгломерат", Breccia},
    {u"известняк", Limestone}, {u"вапняк", Limestone}, {u"LIMESTONE", Limestone},
    {u"доломит", Dolomite}, {u"доломіт", Dolomite},
    {u"аргиллит", Argillite}, {u"аргиліт", Argillite}, {u"аргіліт", Argillite}, {u"MUDSTONE", Argillite},
    {u"алевролит", Siltstone}, {u"алевроліт", Siltstone}, {u"SILTSTONE", Siltstone},
    {u"опок", Opoka}, {u"трепел", Diatomite}, {u"диатомит", Diatomite}, {u"діатоміт", Diatomite},
    {u"мел", Chalk, true}, {u"мела", Chalk, true}, {u"крейд", Chalk}, {u"CHALK", Chalk},
    {u"мергел", Marl}, {u"гипс", Gypsum}, {u"гіпс", Gypsum}, {u"ангидрит", Anhydrite},
    {u"ангідрит", Anhydrite}, {u"галит", Halite}, {u"галіт", Halite}, {u"соль", Halite, true},
    {u"карнолит", Carnallite}, {u"карноліт", Carnallite}, {u"карналлит", Carnallite},
};

// What another word makes of it: "песок мелкий", "мелкий песок".
constexpr struct {
    std::uint32_t hatch;
    const char16_t* text;
    std::uint32_t becomes;
} refinements[] = {
    {SandMedium, u"гравел",   SandGravelly}, {SandMedium, u"граві",   SandGravelly},
    {SandMedium, u"крупн",    SandCoarse},   {SandMedium, u"груб",    SandCoarse},
    {SandMedium, u"средн",    SandMedium},   {SandMedium, u"середн",  SandMedium},
    {SandMedium, u"мелк",     SandFine},     {SandMedium, u"мілк",    SandFine},
    {SandMedium, u"дрібн",    SandFine},     {SandMedium, u"тонк",    SandFine},
    {SandMedium, u"пылеват",  SandSilty},    {SandMedium, u"пилуват", SandSilty},
    {Loam,       u"лёссовид", LoessLoam},    {Loam,       u"лессовид", LoessLoam},
    {Loam,       u"лесоподіб", LoessLoam},
    {SandyLoam,  u"лёссовид", LoessSandyLoam}, {SandyLoam, u"лессовид", LoessSandyLoam},
    {SandyLoam,  u"лесоподіб", LoessSandyLoam},
    {Clay,       u"аргиллитоподоб", HardClay},
};

// Ranges of hatches and the ground under them.
constexpr struct {
    std::uint32_t hatch;
    QRgb color;
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

// The longest of the stems with which a word begins.
std::uint32_t hatchOfWord(const QString& word)
{
    const QString small = word.toLower();
    std::uint32_t hatch = 0;
    int length = 0;
    for (const Stem& stem : stems) {
        const QString text = QString::fromUtf16(stem.text);
        const QString& compared = text.front().isUpper() ? word : small;
        if (text.size() <= length || !compared.startsWith(text)
            || (stem.isWhole && compared.size() != text.size()))
            continue;
        hatch = stem.hatch;
        length = text.size();
    }
    return hatch;
}

std::uint32_t refined(std::uint32_t hatch, const QString& word)
{
    const QString small = word.toLower();
    for (const auto& row : refinements)
        if (row.hatch == hatch && small.startsWith(QString::fromUtf16(row.text)))
            return row.becomes;
    return 0;
}

QStringList wordsOf(const QString& text)
{
    QStringList words;
    QString word;
    for (const QChar letter : text + QLatin1Char(' ')) {
        if (letter.isLetter() || letter == QLatin1Char('\'')) {
            word += letter;
        } else if (!word.isEmpty()) {
            words.append(word);
            word.clear();
        }
    }
    return words;
}

} // namespace

std::uint32_t hatchOfDescription(const QString& description)
{
    const QStringList words = wordsOf(description);
    int named = 0;
    std::uint32_t hatch = 0;
    for (; named < words.size() && hatch == 0; ++named)
        hatch = hatchOfWord(words[named]);
    // What follows the name says more than what stands before it.
    for (const QString& word : words.mid(named) + words.mid(0, qMax(0, named - 1)))
        if (const std::uint32_t finer = refined(hatch, word))
            return finer;
    return hatch;
}

QColor tintOfHatch(std::uint32_t number)
{
    QColor tint(0xf4, 0xf4, 0xf4);
    for (const auto& row : tints)
        if (row.hatch <= number && number != 0)
            tint = QColor::fromRgb(row.color);
    return tint;
}
