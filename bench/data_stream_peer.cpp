#include "db/walk_order.h"
#include "peer.h"
#include "peer_reader.h"

#include <QDataStream>
#include <QFile>
#include <QSaveFile>

namespace
{

class StreamSource
{
public:
    explicit StreamSource(QDataStream& stream)
        : stream_(stream)
    {
    }

    std::uint8_t byte() { return take<quint8>(); }
    std::uint32_t word() { return take<quint32>(); }
    void text(std::wstring& value) { value = take<QString>().toStdWString(); }
    void guid(Uuid& value)
    {
        for (auto& part : value.words)
            part = take<quint32>();
    }
    template <class Map>
    RowByRow<Map> rowsOf(Map& values)
    {
        return RowByRow<Map>(values);
    }

private:
    template <class Value>
    Value take()
    {
        Value value;
        stream_ >> value;
        return value;
    }

    QDataStream& stream_;
};

} // namespace

// Outside of the unnamed namespace: the grammar finds its own functions by the archive's.
class StreamWriter : public WalkArchive<StreamWriter>
{
public:
    static constexpr bool binary = true;

    explicit StreamWriter(QDataStream& stream)
        : stream_(stream)
    {
    }

    template <std::integral Integer>
    void byte(std::string_view, const Integer& value)
    {
        stream_ << static_cast<quint8>(value);
    }
    void flag(std::string_view, bool value) { stream_ << static_cast<quint8>(value); }
    template <class Number>
    void word(std::string_view, const Number& value)
    {
        stream_ << quint32{std::bit_cast<std::uint32_t>(value)};
    }
    void text(std::string_view, const std::wstring& value) { stream_ << QString::fromStdWString(value); }
    void guid(std::string_view, const Uuid& value)
    {
        for (const auto part : value.words)
            stream_ << quint32{part};
    }
    void blob(std::string_view, const std::vector<std::uint8_t>& value)
    {
        count(value.size());
        for (const std::uint8_t one : value)
            stream_ << one;
    }
    template <class List>
    void list(std::string_view, List& values)
    {
        count(values.size());
        for (auto& value : values)
            element(*this, {}, value);
    }
    template <class Map>
    void map(std::string_view, const EntryNames& names, Map& values)
    {
        count(values.size());
        for (auto& [key, value] : values)
            entryFields(*this, names, key, value);
    }
    void objects(std::string_view, const GLObjectList& values)
    {
        count(values.size());
        for (GLObjectDB* object : values)
            visitDrawing(object, [this](auto row, auto& drawing) {
                byte({}, static_cast<std::uint8_t>(row.code));
                existingObject(*this, row, drawing);
            });
    }
    // None of these three stands in a generated site.
    void planes(std::string_view, const GLObjectList&) { count(0); }
    void informs(std::string_view, const InformList&) { count(0); }
    void items(std::string_view, const std::vector<PropertyGridItem*>&) { count(0); }

    void subsidence(std::string_view name, SubsidenceMap& values) { map(name, {}, values); }

private:
    void count(std::size_t number) { stream_ << static_cast<quint32>(number); }

    QDataStream& stream_;
};

namespace
{

Reference<DBProject> openStream(const std::string& path)
{
    QFile file(QString::fromStdString(path));
    if (!file.open(QIODevice::ReadOnly))
        failPeer("cannot open " + path);
    QDataStream stream(&file);
    StreamSource source(stream);
    PeerReader reader(source);
    auto project = makeReference<DBProject>();
    projectFields(reader, *project);
    if (stream.status() != QDataStream::Ok)
        failPeer("cannot read " + path);
    return project;
}

// QSaveFile writes beside, flushes and renames.
void saveStream(const std::string& path, IDBProject& project, const std::vector<std::uint8_t>&)
{
    QSaveFile file(QString::fromStdString(path));
    if (!file.open(QIODevice::WriteOnly))
        failPeer("cannot write " + path);
    QDataStream stream(&file);
    StreamWriter writer(stream);
    projectFields(writer, project);
    if (stream.status() != QDataStream::Ok || !file.commit())
        failPeer("cannot save " + path);
}

} // namespace

const Peer& dataStreamPeer()
{
    static const Peer peer{"qdatastream",
        [](const std::string& path) { return held(openStream(path)); },
        saveStream,
        openStream};
    return peer;
}
