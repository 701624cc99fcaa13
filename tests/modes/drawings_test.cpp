#include "common/section_drawing.h"
#include "common/soil_patterns.h"
#include "core/base/reference.h"
#include "db/db_project.h"
#include "dictionaries/rock_names.h"
#include "dictionaries/soil_names.h"
#include "modules/idb_hatch.h"
#include "paint/hatch_pictures.h"
#include "persistence/project_file.h"
#include "platform/utf8.h"

#include <QAction>
#include <QClipboard>
#include <QFile>
#include <QGuiApplication>
#include <QImage>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QPainter>
#include <QPainterPath>
#include <gtest/gtest.h>

namespace
{

QString fromWide(std::wstring_view text)
{
    return QString::fromWCharArray(text.data(), static_cast<int>(text.size()));
}

auto builtLibrary()
{
    return readHatchFile(*fromUtf8(TELLURIX_PROGRAM_FOLDER "/hatch/gl/hatch.dat"));
}

// The largest difference of two pictures in any part of any pixel.
int difference(const QImage& a, const QImage& b)
{
    int largest = a.size() == b.size() ? 0 : 1000;
    for (int y = 0; y < a.height() && largest < 1000; ++y)
        for (int x = 0; x < a.width(); ++x)
            largest = std::max(largest, std::abs(qAlpha(a.pixel(x, y)) - qAlpha(b.pixel(x, y))));
    return largest;
}

// A point with layers of which each is one metre thick.
DrawnPoint pointWith(const QStringList& soils)
{
    DrawnPoint point;
    for (const QString& soil : soils) {
        DrawnLayer layer;
        layer.top = point.layers.size();
        layer.bottom = layer.top + 1;
        layer.description = soil;
        layer.hatch = hatchOfDescription(soil);
        point.layers.append(layer);
    }
    return point;
}

} // namespace

TEST(SoilPatterns, DescriptionsLeadToTheirPatterns)
{
    const auto library = builtLibrary();
    const SoilPatterns patterns(library.get());
    const std::pair<const char*, const char*> cases[] = {
        {"Песок мелкий, с прослоями суглинка", "Песок мелкий"},
        {"Мелкий песок", "Песок мелкий"},
        {"Песок средней крупности", "Песок средней крупности"},
        {"пісок пилуватий", "Песок пылеватый"},
        {"Суглинок лёссовидный, макропористый", "Суглинок лёссовидный"},
        {"Суглинок с гравием и галькой", "Суглинок"},
        {"Насыпной грунт: песок, битый кирпич", "Насыпной грунт"},
        {"Галечниковый грунт с песчаным заполнителем", "Галечниковый грунт"},
        {"Мел белый", "Мел"},
        {"Ил серый", "Ил"},
        {"Firm brown sandy CLAY. Sand is fine to coarse.", "Глина"},
        {"MADE GROUND: grey angular GRAVEL", "Насыпной грунт"},
        {"Илистые отложения, мелкие", ""},
        {"ожелезненный, влажный", ""},
        {"", ""},
    };
    for (const auto& [description, name] : cases)
        EXPECT_EQ(patterns.name(hatchOfDescription(QString::fromUtf8(description))).toStdString(), name)
            << description;
    const auto drawAll = [&](const auto& names) {
        for (const BilingualRow& row : names)
            for (const std::wstring_view name : {row.russian, row.ukrainian})
                EXPECT_TRUE(patterns.has(hatchOfDescription(fromWide(name)))) << fromWide(name).toStdString();
    };
    drawAll(soilGroupNames);
    drawAll(rockNames);
}

// The pictures in the resources are the tiles of the library, and no line breaks off where tiles meet: the
// strokes drawn half a tile away look as the tiles laid there do.
TEST(SoilPatterns, PicturesAreTheTilesAndSeamless)
{
    Q_INIT_RESOURCE(tellurix);
    const auto library = builtLibrary();
    QFile source(QStringLiteral(TELLURIX_SAMPLES "/../data/hatches.json"));
    ASSERT_TRUE(source.open(QIODevice::ReadOnly));
    const QJsonArray hatches =
        QJsonDocument::fromJson(source.readAll()).object().value(QStringLiteral("hatches")).toArray();
    ASSERT_EQ(hatches.size(), int(library->getHatches().size()));
    for (const QJsonValue hatch : hatches) {
        const QString name = hatch[QStringLiteral("picture")].toString();
        SCOPED_TRACE(name.toStdString());
        const auto hatchTile =
            readHatchTile(library->getHatches().at(std::uint32_t(hatch[QStringLiteral("number")].toInt())));
        ASSERT_TRUE(hatchTile);
        const QImage picture(QStringLiteral(":/images/ground_%1.png").arg(name));
        const QImage tile = picture.convertToFormat(QImage::Format_ARGB32);
        const QColor ink(0x30, 0x30, 0x30);
        EXPECT_LE(difference(tile,
                      hatchTilePicture(*hatchTile, 2, ink).toImage().convertToFormat(QImage::Format_ARGB32)),
            2)
            << "tools/render_pictures.sh has not been run";

        QImage shifted(tile.size(), QImage::Format_ARGB32);
        shifted.fill(Qt::transparent);
        QPainter painter(&shifted);
        painter.setRenderHint(QPainter::Antialiasing);
        const QPoint half(tile.width() / 2, tile.height() / 2);
        painter.translate(half + QPointF(0.5, 0.5));
        painter.scale(2, 2);
        paintHatchTile(painter, *hatchTile, ink);
        painter.end();
        QImage laid(tile.size(), QImage::Format_ARGB32);
        for (int y = 0; y < laid.height(); ++y)
            for (int x = 0; x < laid.width(); ++x)
                laid.setPixel(
                    (x + half.x()) % laid.width(), (y + half.y()) % laid.height(), tile.pixel(x, y));
        EXPECT_LE(difference(laid, shifted), 3);
    }
}

// Neighbours that share a soil run into each other at the same height whatever their own tops are, and a
// library that is missing leaves the ground alone.
TEST(SoilPatterns, AreasAreFilledInsideOnly)
{
    const auto library = builtLibrary();
    const auto drawn = [](IDBHatch* hatches) {
        QImage image(60, 60, QImage::Format_ARGB32);
        image.fill(Qt::white);
        QPainter painter(&image);
        QPainterPath area;
        area.addRect(10, 10, 40, 40);
        SoilPatterns(hatches).fill(painter, area, hatchOfDescription(QStringLiteral("Глина")));
        painter.end();
        return image;
    };
    const QImage image = drawn(library.get());
    int inside = 0;
    int outside = 0;
    for (int y = 0; y < 60; ++y)
        for (int x = 0; x < 60; ++x)
            if (image.pixel(x, y) != qRgb(255, 255, 255))
                ++(x >= 10 && x < 50 && y >= 10 && y < 50 ? inside : outside);
    EXPECT_EQ(inside, 40 * 5) << "a line of 40 in every eight";
    EXPECT_EQ(outside, 0);
    QImage blank(60, 60, QImage::Format_ARGB32);
    blank.fill(Qt::white);
    EXPECT_EQ(drawn(nullptr), blank);
}

TEST(Sections, LayersAreJoinedInOrderAndEndWhereTheirKindDoes)
{
    using Pairs = QVector<std::pair<int, int>>;
    const auto joined = [](const QStringList& left, const QStringList& right) {
        return joinedLayers(pointWith(left), pointWith(right));
    };
    const QString sand = QStringLiteral("Песок мелкий");
    const QString loam = QStringLiteral("Суглинок тугопластичный");
    const QString clay = QStringLiteral("Глина");
    EXPECT_EQ(joined({sand, loam, clay}, {sand, QStringLiteral("Суглинок мягкопластичный"), clay}),
        (Pairs{{0, 0}, {1, 1}, {2, 2}}));
    EXPECT_EQ(joined({sand, loam, clay}, {sand, clay}), (Pairs{{0, 0}, {1, -1}, {2, 1}}));
    EXPECT_EQ(joined({clay}, {sand, loam, clay}), (Pairs{{-1, 0}, {-1, 1}, {0, 2}}));
    EXPECT_EQ(joined({sand, clay}, {sand, loam}), (Pairs{{0, 0}})) << "what is below is not known";
    EXPECT_EQ(joined({sand}, {loam}), Pairs());
    EXPECT_EQ(joined({}, {loam}), Pairs());
}

TEST(Sections, DistancesMarksAndPointsThatCannotBePlaced)
{
    const auto project = makeReference<DBProject>();
    const auto add = [&](const wchar_t* name, const wchar_t* x, const wchar_t* y, const wchar_t* mark) {
        PointRow row;
        row.text0 = x;
        row.text1 = y;
        row.absoluteMark = mark;
        project->addPointRegisterEntry({name, 1}, {row});
        project->addLithology({name, L"2.5"}, {L"aQ", L"Песок мелкий"});
        project->addLithology({name, L"4"}, {L"gQ", L"Глина"});
    };
    add(L"С-1", L"100", L"200", L"10.5");
    add(L"С-2", L"103", L"204", L"11");
    add(L"С-3", L"100", L"190,5", L"12");
    add(L"С-4", L"100", L"", L"12");
    const DrawnSection line = sectionOfLine(*project, {L"С-3", L"С-4", L"С-1", L"С-2", L"С-9"});
    ASSERT_EQ(line.points.size(), 3);
    EXPECT_DOUBLE_EQ(line.points[1].distance, 9.5);
    EXPECT_DOUBLE_EQ(line.points[2].distance, 14.5);
    EXPECT_DOUBLE_EQ(line.points[2].mark, 11);
    EXPECT_DOUBLE_EQ(line.points[2].depth(), 4);
    EXPECT_EQ(line.leftOut, QStringList({QStringLiteral("С-4"), QStringLiteral("С-9")}));
    const DrawnSection north = sectionAlongAxis(*project, false);
    const DrawnSection east = sectionAlongAxis(*project, true);
    ASSERT_EQ(east.points.size(), 3);
    EXPECT_EQ(east.points.first().name, QStringLiteral("С-3"));
    EXPECT_DOUBLE_EQ(east.points.last().distance, 13.5);
    EXPECT_DOUBLE_EQ(north.points.last().distance, 3);
}

TEST(Sections, DrawingIsCopiedAsAPicture)
{
    const auto library = builtLibrary();
    SectionDrawing drawing(library.get());
    drawing.resize(500, 400);
    DrawnSection section;
    section.points = {pointWith({QStringLiteral("Песок мелкий"), QStringLiteral("Глина")}),
        pointWith({QStringLiteral("Песок мелкий"), QStringLiteral("Глина")})};
    section.points[1].distance = 20;
    drawing.setSection(section);
    drawing.actions().front()->trigger();
    const QImage picture = QGuiApplication::clipboard()->image();
    EXPECT_EQ(picture.size(), QSize(1000, 800));
    // Between the columns, half way down the first layer and the second one: the ground or a stroke on it.
    const auto holds = [&](const QColor& ground) {
        for (int y = 0; y < picture.height(); ++y)
            if (picture.pixelColor(picture.width() / 2 + 90, y) == ground)
                return true;
        return false;
    };
    EXPECT_TRUE(holds(tintOfHatch(hatchOfDescription(QStringLiteral("Песок мелкий")))));
    EXPECT_TRUE(holds(tintOfHatch(hatchOfDescription(QStringLiteral("Глина")))));
    EXPECT_FALSE(holds(tintOfHatch(hatchOfDescription(QStringLiteral("Торф")))));
}
