#include "stratigraphic/column_file.h"

#include "core/base/mexception.h"
#include "platform/files.h"
#include "platform/safe_write.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

static const QString formatName = QStringLiteral("Tellurix stratigraphic column");
static constexpr int currentVersion = 1;

static QString key(const char* name)
{
    return QLatin1String(name);
}

static StrataLayer layerOf(const QJsonObject& object)
{
    // A program of the user's own may have written the thickness as a number.
    return {object.value(key("index")).toString(),
        object.value(key("thickness")).toVariant().toString(),
        qBound(0, object.value(key("hatch")).toInt(), 999999),
        object.value(key("description")).toString()};
}

StrataColumn readStrataColumn(const QString& file)
{
    constexpr int mostLayers = 10000;
    const std::wstring path = file.toStdWString();
    std::vector<std::uint8_t> bytes;
    if (const FileResult result = readFile(path, bytes); !result)
        throw MException(L"Колонка не открыта: " + path + L"\n" + result.reason);
    const QJsonObject object = QJsonDocument::fromJson(
        QByteArray(reinterpret_cast<const char*>(bytes.data()), static_cast<int>(bytes.size())))
                                   .object();
    if (object.value(key("format")).toString() != formatName)
        throw MException(L"Это не файл стратиграфической колонки: " + path);
    if (object.value(key("version")).toInt() > currentVersion)
        throw MException(L"Колонка записана более новой программой: " + path);
    const QJsonArray layers = object.value(key("layers")).toArray();
    if (layers.size() > mostLayers)
        throw MException(L"В колонке слишком много слоёв: " + path);
    StrataColumn column;
    column.title = object.value(key("title")).toString();
    for (const QJsonValue& layer : layers)
        column.layers.append(layerOf(layer.toObject()));
    return column;
}

void writeStrataColumn(const QString& file, const StrataColumn& column)
{
    QJsonArray layers;
    for (const StrataLayer& layer : column.layers)
        layers.append(QJsonObject{{key("index"), layer.index},
            {key("thickness"), layer.thickness},
            {key("hatch"), layer.hatch},
            {key("description"), layer.description}});
    const QByteArray text = QJsonDocument(
        QJsonObject{{key("format"), formatName},
            {key("version"), currentVersion},
            {key("title"), column.title},
            {key("layers"),
                layers}}).toJson();
    const auto* begin = reinterpret_cast<const std::uint8_t*>(text.constData());
    const FileResult result =
        replaceFile(file.toStdWString(), {begin, static_cast<std::size_t>(text.size())});
    if (!result)
        throw MException(L"Колонка не записана: " + file.toStdWString() + L"\n" + result.reason
            + L"\nПроверьте, можно ли писать в эту папку.");
}
