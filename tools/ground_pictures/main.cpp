// The tiles of the hatches as pictures: ground_pictures HATCHES.json FOLDER.

#include "make_libraries/library_sources.h"
#include "paint/hatch_pictures.h"

#include <QFile>
#include <QGuiApplication>
#include <nlohmann/json.hpp>

#include <cstdio>
#include <exception>

// As the icons: twice the points of the screen stay sharp on a dense display.
static constexpr double density = 2;
static const QColor strokeColor(0x30, 0x30, 0x30);

static void drawPictures(const std::string& source, const QString& folder)
{
    const IDBHatch::Patterns patterns = readHatchSource(source);
    const auto hatches = nlohmann::json::parse(source);
    for (const auto& hatch : hatches.at("hatches")) {
        const auto tile = readHatchTile(patterns.at(hatch.at("number").get<std::uint32_t>()));
        const QString path = folder + QStringLiteral("/ground_")
            + QString::fromStdString(hatch.at("picture").get<std::string>()) + QStringLiteral(".png");
        if (!tile || !hatchTilePicture(*tile, density, strokeColor).save(path))
            throw std::runtime_error(path.toStdString() + " cannot be drawn");
    }
}

int main(int argc, char** argv)
{
    const QGuiApplication application(argc, argv);
    QFile file(argc == 3 ? QString::fromLocal8Bit(argv[1]) : QString());
    if (argc != 3 || !file.open(QIODevice::ReadOnly)) {
        std::fprintf(stderr, "ground_pictures HATCHES.json FOLDER\n");
        return 2;
    }
    try {
        drawPictures(file.readAll().toStdString(), QString::fromLocal8Bit(argv[2]));
    } catch (const std::exception& failure) {
        std::fprintf(stderr, "%s\n", failure.what());
        return 1;
    }
    return 0;
}
