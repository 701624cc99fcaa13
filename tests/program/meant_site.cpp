#include "program/meant_site.h"

#include <algorithm>

const MeantTable coordinates{QStringLiteral("Ведомость координат"), {0, 1, 2, 3, 4, 5, 7, 8, 9}, 0};
const MeantTable layers{QStringLiteral("Литология"), {0, 3, 4}, 0};
const MeantTable samples{QStringLiteral("Пробы"), {0, 1}, 0};
const MeantTable waters{QStringLiteral("Уровни воды"), {0, 1, 2, 3}, 0};
const MeantTable consistencies{QStringLiteral("Консистенция"), {1, 2}, 1};

static QString text(const std::wstring& wide)
{
    return QString::fromStdWString(wide);
}

QString toldInOrder(const MeantTable& table, const MeantRecords& records)
{
    QStringList lines;
    for (const MeantRecord& record : records) {
        QStringList cells;
        for (const int column : table.columns) {
            const auto cell = record.find(column);
            cells += cell == record.end() ? QString() : cell->second;
        }
        lines += cells.join(QLatin1Char('|'));
    }
    lines.sort();
    return lines.join(QLatin1Char('\n'));
}

MeantRecords pointsIn(DBProject& project)
{
    MeantRecords records;
    for (const auto& [key, rows] : project.getPointRegister()) {
        static const QStringList kinds{
            QString(), QStringLiteral("Скважина"), QStringLiteral("Шурф"), QStringLiteral("Зондирование")};
        MeantRecord record{{0, text(key.pointName)}, {1, kinds.value(key.pointKind)}};
        if (!rows.empty()) {
            const PointRow& row = rows.front();
            record.insert({{2, text(row.text0)},
                {3, text(row.text1)},
                {4, text(row.absoluteMark)},
                {5, text(row.text3)},
                {7, text(row.text4)},
                {8, text(row.text5)},
                {9, text(row.text6)}});
        }
        records.push_back(record);
    }
    return records;
}

MeantRecords layersIn(DBProject& project, const std::wstring& point)
{
    MeantRecords records;
    for (const auto& [key, layer] : project.getLithology())
        if (key.pointName == point)
            records.push_back(
                {{0, text(key.depth)}, {3, text(layer.geoIndex)}, {4, text(layer.description)}});
    return records;
}

MeantRecords samplesIn(DBProject& project, const std::wstring& point)
{
    static const std::map<int, QString> kinds = {{0, QStringLiteral("Нарушенная (Б|Н)")},
        {1, QStringLiteral("Монолит (М)")},
        {2, QStringLiteral("Валовая (В)")}};
    MeantRecords records;
    for (const auto& [key, sample] : project.getSamples())
        if (key.pointName == point)
            records.push_back({{0, text(key.depth)},
                {1, kinds.count(sample.sampleKind) ? kinds.at(sample.sampleKind) : QStringLiteral("?")}});
    return records;
}

MeantRecords watersIn(DBProject& project, const std::wstring& point)
{
    MeantRecords records;
    for (const auto& [key, level] : project.getWaterLevels()) {
        if (key.pointName != point)
            continue;
        const Date3& day = level.date;
        const QString date = day == Date3() ? QString()
                                            : QStringLiteral("%1.%2.%3")
                                                  .arg(day.day, 2, 10, QLatin1Char('0'))
                                                  .arg(day.month, 2, 10, QLatin1Char('0'))
                                                  .arg(day.year);
        records.push_back({{0, text(key.depth)},
            {1, date},
            {2, level.flagA ? QStringLiteral("1") : QString()},
            {3, level.flagB ? QStringLiteral("1") : QString()}});
    }
    return records;
}

MeantRecords consistenciesIn(DBProject& project, const std::wstring& point)
{
    static const std::map<int, QString> names = {{1, QStringLiteral("твердая")},
        {2, QStringLiteral("текучая")},
        {3, QStringLiteral("полутвердая")},
        {4, QStringLiteral("тугопластичная")},
        {5, QStringLiteral("мягкопластичная")}};
    MeantRecords records;
    for (const auto& [key, value] : project.getConsistency())
        if (key.pointName == point)
            records.push_back({{1, text(key.depth)},
                {2,
                    names.count(value.consistencyKind) ? names.at(value.consistencyKind)
                                                       : QStringLiteral("?")}});
    return records;
}
