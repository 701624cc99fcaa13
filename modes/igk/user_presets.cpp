#include "igk/user_presets.h"

#include "core/base/mexception.h"
#include "platform/files.h"
#include "platform/safe_write.h"

#include <QCoreApplication>
#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

static QString presetsFile()
{
    return QCoreApplication::applicationDirPath() + QStringLiteral("/igkPreset/user_presets.json");
}

UserPresets readUserPresets()
{
    UserPresets presets;
    std::vector<std::uint8_t> bytes;
    if (!readFile(presetsFile().toStdWString(), bytes))
        return presets;
    const QJsonDocument document = QJsonDocument::fromJson(
        QByteArray(reinterpret_cast<const char*>(bytes.data()), static_cast<int>(bytes.size())));
    if (!document.isObject()) {
        QFile::rename(presetsFile(), presetsFile() + QStringLiteral(".bad"));
        return presets;
    }
    const QJsonObject all = document.object();
    for (auto named = all.begin(); named != all.end(); ++named) {
        UserPreset preset;
        // Those of earlier versions are lists of columns alone.
        const QJsonObject whole = named.value().toObject();
        preset.preset.mode = whole.value(QStringLiteral("several")).toBool() ? 1 : 0;
        const QJsonArray columns = named.value().isArray() ? named.value().toArray()
                                                           : whole.value(QStringLiteral("columns")).toArray();
        for (const QJsonValue& value : columns) {
            const QJsonObject lane = value.toObject();
            const int column = lane.value(QStringLiteral("column")).toInt();
            const bool isTurned = lane.value(QStringLiteral("turned")).toBool();
            preset.preset.items.push_back(
                {static_cast<std::uint32_t>(column), lane.value(QStringLiteral("shown")).toBool(), isTurned});
            preset.widths.push_back({column, isTurned, lane.value(QStringLiteral("width")).toDouble()});
        }
        presets.emplace(named.key(), std::move(preset));
    }
    return presets;
}

void writeUserPresets(const UserPresets& presets)
{
    QJsonObject all;
    for (const auto& [name, preset] : presets) {
        QJsonArray lanes;
        for (const IgkPresetItem& item : preset.preset.items) {
            double width = 0;
            for (const ColumnLane& lane : preset.widths)
                if (lane.column == static_cast<std::int32_t>(item.id))
                    width = lane.width;
            lanes.append(QJsonObject{{QStringLiteral("column"), static_cast<int>(item.id)},
                {QStringLiteral("shown"), item.flagA},
                {QStringLiteral("turned"), item.flagB},
                {QStringLiteral("width"), width}});
        }
        all.insert(name,
            QJsonObject{
                {QStringLiteral("several"), preset.preset.mode == 1}, {QStringLiteral("columns"), lanes}});
    }
    const QByteArray text = QJsonDocument(all).toJson();
    const auto* begin = reinterpret_cast<const std::uint8_t*>(text.constData());
    const FileResult result =
        replaceFile(presetsFile().toStdWString(), {begin, static_cast<std::size_t>(text.size())});
    if (!result)
        throw MException(L"Заготовка не записана: " + presetsFile().toStdWString() + L"\n" + result.reason);
}
