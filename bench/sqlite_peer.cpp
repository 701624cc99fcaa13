#include "db/walk_order.h"
#include "peer.h"
#include "persistence/grammar/drawings.h"
#include "sqlite_database.h"

#include <array>
#include <cstdio>
#include <cstring>
#include <tuple>

// The same records in tables: a table a register with the register's key, a table a list with the row that it
// belongs to. The number of a row is its place in the register, so that reading walks every table once from
// front to back, which is the fastest there is.

namespace
{

// Without a journal and without waiting: the file is a new one beside the project and is flushed as a whole
// before it takes the project's place, so a crash finds the old project or the new one, as with the others.
constexpr const char* writing =
    "PRAGMA page_size = 16384; PRAGMA journal_mode = OFF; PRAGMA synchronous = OFF;"
    "PRAGMA locking_mode = EXCLUSIVE; PRAGMA cache_size = -262144;";
constexpr const char* reading = "PRAGMA locking_mode = EXCLUSIVE; PRAGMA mmap_size = 1073741824;";

constexpr const char* schema = R"(
CREATE TABLE points(id INTEGER PRIMARY KEY, name TEXT, kind INTEGER, UNIQUE(name));
CREATE TABLE point_rows(parent INTEGER, place INTEGER, text0 TEXT, text1 TEXT, mark TEXT, kind_a INTEGER, text3 TEXT,
    text4 TEXT, text5 TEXT, text6 TEXT, kind_b INTEGER,
    PRIMARY KEY(parent, place)) WITHOUT ROWID;
CREATE TABLE lithology(id INTEGER PRIMARY KEY, name TEXT, depth TEXT, geo_index TEXT, description TEXT,
    UNIQUE(name, depth));
CREATE TABLE samples(id INTEGER PRIMARY KEY, name TEXT, depth TEXT, kind INTEGER, UNIQUE(name, depth));
CREATE TABLE water(id INTEGER PRIMARY KEY, name TEXT, depth TEXT, year INTEGER, month INTEGER, day INTEGER,
    flag_a INTEGER, flag_b INTEGER, UNIQUE(name, depth));
CREATE TABLE lab(id INTEGER PRIMARY KEY, name TEXT, depth TEXT, number INTEGER, code TEXT, soil INTEGER,
    soil_name TEXT, UNIQUE(name, depth));
CREATE TABLE lab_physical(parent INTEGER, place INTEGER, property INTEGER, enabled INTEGER, value TEXT,
    PRIMARY KEY(parent, place)) WITHOUT ROWID;
CREATE TABLE lab_grading(parent INTEGER, place INTEGER, fraction INTEGER, percentage TEXT,
    PRIMARY KEY(parent, place)) WITHOUT ROWID;
CREATE TABLE lab_shear(parent INTEGER, place INTEGER, method INTEGER, load INTEGER, value TEXT,
    PRIMARY KEY(parent, place)) WITHOUT ROWID;
CREATE TABLE lab_compression(parent INTEGER, place INTEGER, test INTEGER, load INTEGER, a TEXT, b TEXT, c TEXT,
    PRIMARY KEY(parent, place)) WITHOUT ROWID;
CREATE TABLE soundings(id INTEGER PRIMARY KEY, name TEXT, kind INTEGER, device TEXT, date TEXT, UNIQUE(name));
CREATE TABLE sounding_rows(parent INTEGER, place INTEGER, depth TEXT, a TEXT, b TEXT, c TEXT, d TEXT,
    PRIMARY KEY(parent, place)) WITHOUT ROWID;
CREATE TABLE drawings(id INTEGER PRIMARY KEY, list INTEGER, code INTEGER, object BLOB, numbers BLOB, text TEXT);
)";

using Drawing = std::tuple<std::uint8_t, std::string, std::string, std::wstring>;

template <class Data>
std::string bytesOf(const Data& data)
{
    return {reinterpret_cast<const char*>(&data), sizeof data};
}

template <class Data>
Data dataOf(const std::string& bytes)
{
    Data data;
    std::memcpy(&data, bytes.data(), sizeof data);
    return data;
}

void saveRegisters(Database& database, IDBProject& project)
{
    sqlite3_int64 id = 0;
    Statement point(database, "INSERT INTO points VALUES(?,?,?)");
    Statement row(database, "INSERT INTO point_rows VALUES(?,?,?,?,?,?,?,?,?,?,?)");
    for (const auto& [key, rows] : project.getPointRegister()) {
        point.insert(++id, key.pointName, key.pointKind);
        int place = 0;
        for (const PointRow& r : rows)
            row.insert(id,
                place++,
                r.text0,
                r.text1,
                r.absoluteMark,
                r.kindA,
                r.text3,
                r.text4,
                r.text5,
                r.text6,
                r.kindB);
    }
    Statement layer(database, "INSERT INTO lithology VALUES(?,?,?,?,?)");
    id = 0;
    for (const auto& [key, value] : project.getLithology())
        layer.insert(++id, key.pointName, key.depth, value.geoIndex, value.description);
    Statement sample(database, "INSERT INTO samples VALUES(?,?,?,?)");
    id = 0;
    for (const auto& [key, value] : project.getSamples())
        sample.insert(++id, key.pointName, key.depth, value.sampleKind);
    Statement level(database, "INSERT INTO water VALUES(?,?,?,?,?,?,?,?)");
    id = 0;
    for (const auto& [key, v] : project.getWaterLevels())
        level.insert(++id, key.pointName, key.depth, v.date.year, v.date.month, v.date.day, v.flagA, v.flagB);
}

void saveLaboratory(Database& database, IDBProject& project)
{
    sqlite3_int64 id = 0;
    Statement lab(database, "INSERT INTO lab VALUES(?,?,?,?,?,?,?)");
    Statement physical(database, "INSERT INTO lab_physical VALUES(?,?,?,?,?)");
    Statement grading(database, "INSERT INTO lab_grading VALUES(?,?,?,?)");
    Statement shear(database, "INSERT INTO lab_shear VALUES(?,?,?,?,?)");
    Statement compression(database, "INSERT INTO lab_compression VALUES(?,?,?,?,?,?,?)");
    for (const auto& [key, sample] : project.getLabSamples()) {
        lab.insert(++id,
            key.pointName,
            key.depth,
            sample.number,
            sample.code,
            sample.soilKind.code,
            sample.soilKind.text);
        int place = 0;
        for (const PropertyCell& cell : sample.physical)
            physical.insert(id, place++, cell.id, cell.enabled, cell.value);
        place = 0;
        for (const auto& [fraction, percentage] : sample.grading)
            grading.insert(id, place++, fraction, percentage);
        place = 0;
        for (const auto& [method, cells] : sample.shear)
            for (const ShearCell& cell : cells)
                shear.insert(id, place++, method, cell.id, cell.value);
        place = 0;
        for (const auto& [test, group] : sample.compression)
            for (const CompressionCell& cell : group.cells)
                compression.insert(id, place++, test, cell.id, cell.textA, cell.textB, cell.textC);
    }
}

void saveSoundings(Database& database, IDBProject& project)
{
    sqlite3_int64 id = 0;
    Statement sounding(database, "INSERT INTO soundings VALUES(?,?,?,?,?)");
    Statement row(database, "INSERT INTO sounding_rows VALUES(?,?,?,?,?,?,?)");
    for (const auto& [key, rows] : project.getSoundings()) {
        sounding.insert(++id, key.pointName, key.pointKind, key.device, key.date);
        int place = 0;
        for (const SoundingRow& r : rows)
            row.insert(id, place++, r.depth, r.cells[0], r.cells[1], r.cells[2], r.cells[3]);
    }
}

// The classes that a generated site holds. The numbers of an object stand together, as its vertices would.
Drawing rowOf(GLObjectDB* object)
{
    using enum format::DrawingCode;
    if (const auto* line = dynamic_cast<GLLineDB*>(object))
        return {static_cast<std::uint8_t>(format::DrawingCode::line), {}, bytesOf(line->data()), {}};
    if (const auto* caption = dynamic_cast<GLTextDB*>(object)) {
        const std::array<Vec3, 3> numbers{
            caption->position(), caption->getColor(), {caption->height(), caption->angle(), 0}};
        return {static_cast<std::uint8_t>(format::DrawingCode::text), {}, bytesOf(numbers), caption->text()};
    }
    const auto& area = dynamic_cast<GLPolygonDB&>(*object);
    std::vector<Vec3> numbers = area.points();
    numbers.push_back(area.getColor());
    numbers.push_back({area.valueA(), area.valueB(), 0});
    return {static_cast<std::uint8_t>(polygon),
        {},
        {reinterpret_cast<const char*>(numbers.data()), numbers.size() * sizeof(Vec3)},
        {}};
}

Reference<GLObjectDB> drawingOf(const Drawing& row)
{
    const auto& [code, object, numbers, text] = row;
    const auto ids = dataOf<std::array<Uuid, 2>>(object);
    if (code == static_cast<std::uint8_t>(format::DrawingCode::line))
        return makeReference<GLLineDB>(dataOf<GLLineData>(numbers), ids[0], L"GLLineDB", ids[1]);
    if (code == static_cast<std::uint8_t>(format::DrawingCode::text)) {
        const auto places = dataOf<std::array<Vec3, 3>>(numbers);
        return makeReference<GLTextDB>(
            GLTextData{places[0], places[1], places[2].x, text, places[2].y}, ids[0], L"GLTextDB", ids[1]);
    }
    std::vector<Vec3> places(numbers.size() / sizeof(Vec3));
    std::memcpy(places.data(), numbers.data(), places.size() * sizeof(Vec3));
    const Vec3 values = places.back();
    places.pop_back();
    const Vec3 colour = places.back();
    places.pop_back();
    return makeReference<GLPolygonDB>(
        GLPolygonData{colour, std::move(places), values.x, values.y}, ids[0], L"GLPolygonDB", ids[1]);
}

std::array<GLObjectList*, 3> drawingLists(IDBProject& project)
{
    return {&project.getTerrainGlObjectsA(), &project.getLongGlObjects(), &project.getCrossGlObjects()};
}

void saveDrawings(Database& database, IDBProject& project)
{
    sqlite3_int64 id = 0;
    Statement drawing(database, "INSERT INTO drawings VALUES(?,?,?,?,?,?)");
    int list = 0;
    for (const GLObjectList* objects : drawingLists(project)) {
        for (GLObjectDB* object : *objects) {
            const auto [code, none, numbers, text] = rowOf(object);
            const std::array<Uuid, 2> ids{object->getId(), object->getLinkId()};
            drawing.insert(++id, list, code, bytesOf(ids), numbers, text);
        }
        ++list;
    }
}

void saveSqlite(const std::string& path, IDBProject& project, const std::vector<std::uint8_t>&)
{
    const std::string temporary = path + ".new";
    std::remove(temporary.c_str());
    {
        Database database(temporary, SQLITE_OPEN_READWRITE | SQLITE_OPEN_CREATE | SQLITE_OPEN_NOMUTEX);
        database.run(writing);
        database.run(schema);
        database.run("BEGIN");
        saveRegisters(database, project);
        saveLaboratory(database, project);
        saveSoundings(database, project);
        saveDrawings(database, project);
        database.run("COMMIT");
    }
    flushAndReplace(temporary, path);
}

void openRegisters(Database& database, DBProject& project)
{
    sqlite3_int64 id = 0;
    Statement points(database, "SELECT * FROM points ORDER BY id");
    Children<PointRow> rows(database, "SELECT * FROM point_rows ORDER BY parent, place");
    RowByRow pointRegister(project.getPointRegister());
    for (std::pair<PointKey, std::vector<PointRow>> e;
         points.next(id, e.first.pointName, e.first.pointKind);) {
        rows.of(id, [&](PointRow& row) { e.second.push_back(std::move(row)); });
        pointRegister.insert(std::exchange(e, {}));
    }
    Statement layers(database, "SELECT * FROM lithology ORDER BY id");
    RowByRow lithology(project.getLithology());
    for (std::pair<PointDepthKey, LithologyValue> e;
         layers.next(id, e.first.pointName, e.first.depth, e.second.geoIndex, e.second.description);)
        lithology.insert(std::exchange(e, {}));
    Statement taken(database, "SELECT * FROM samples ORDER BY id");
    RowByRow samples(project.getSamples());
    for (std::pair<PointDepthKey, SampleValue> e;
         taken.next(id, e.first.pointName, e.first.depth, e.second.sampleKind);)
        samples.insert(std::exchange(e, {}));
    Statement levels(database, "SELECT * FROM water ORDER BY id");
    RowByRow water(project.getWaterLevels());
    for (std::pair<PointDepthKey, WaterValue> e; levels.next(id,
             e.first.pointName,
             e.first.depth,
             e.second.date.year,
             e.second.date.month,
             e.second.date.day,
             e.second.flagA,
             e.second.flagB);)
        water.insert(std::exchange(e, {}));
}

void openLaboratory(Database& database, DBProject& project)
{
    sqlite3_int64 id = 0;
    Statement lab(database, "SELECT * FROM lab ORDER BY id");
    Children<PropertyCell> physical(database, "SELECT * FROM lab_physical ORDER BY parent, place");
    Children<std::uint8_t, std::wstring> grading(
        database, "SELECT * FROM lab_grading ORDER BY parent, place");
    Children<std::uint8_t, ShearCell> shear(database, "SELECT * FROM lab_shear ORDER BY parent, place");
    Children<std::uint8_t, CompressionCell> compression(
        database, "SELECT * FROM lab_compression ORDER BY parent, place");
    RowByRow samples(project.getLabSamples());
    for (std::pair<PointDepthKey, LabSample> e; lab.next(id,
             e.first.pointName,
             e.first.depth,
             e.second.number,
             e.second.code,
             e.second.soilKind.code,
             e.second.soilKind.text);) {
        LabSample& sample = e.second;
        physical.of(id, [&](PropertyCell& cell) { sample.physical.push_back(std::move(cell)); });
        grading.of(id, [&](std::uint8_t fraction, std::wstring& percentage) {
            sample.grading.emplace_hint(sample.grading.end(), fraction, std::move(percentage));
        });
        shear.of(id,
            [&](std::uint8_t method, ShearCell& cell) { sample.shear[method].push_back(std::move(cell)); });
        compression.of(id, [&](std::uint8_t test, CompressionCell& cell) {
            sample.compression[test].cells.push_back(std::move(cell));
        });
        samples.insert(std::exchange(e, {}));
    }
}

void openSoundings(Database& database, DBProject& project)
{
    sqlite3_int64 id = 0;
    Statement soundings(database, "SELECT * FROM soundings ORDER BY id");
    Children<SoundingRow> rows(database, "SELECT * FROM sounding_rows ORDER BY parent, place");
    RowByRow journals(project.getSoundings());
    for (std::pair<SoundingKey, std::vector<SoundingRow>> e;
         soundings.next(id, e.first.pointName, e.first.pointKind, e.first.device, e.first.date);) {
        rows.of(id, [&](SoundingRow& row) { e.second.push_back(std::move(row)); });
        journals.insert(std::exchange(e, {}));
    }
}

void openDrawings(Database& database, DBProject& project)
{
    sqlite3_int64 id = 0;
    std::size_t list = 0;
    Statement drawings(database, "SELECT * FROM drawings ORDER BY id");
    const auto lists = drawingLists(project);
    for (Drawing row;
         drawings.next(id, list, std::get<0>(row), std::get<1>(row), std::get<2>(row), std::get<3>(row));)
        lists.at(list)->push_back(drawingOf(row).detach());
}

Reference<DBProject> openSqlite(const std::string& path)
{
    Database database(path, SQLITE_OPEN_READONLY | SQLITE_OPEN_NOMUTEX);
    database.run(reading);
    auto project = makeReference<DBProject>();
    openRegisters(database, *project);
    openLaboratory(database, *project);
    openSoundings(database, *project);
    openDrawings(database, *project);
    return project;
}

} // namespace

const Peer& sqlitePeer()
{
    static const Peer peer{
        "sqlite", [](const std::string& path) { return held(openSqlite(path)); }, saveSqlite, openSqlite};
    return peer;
}
