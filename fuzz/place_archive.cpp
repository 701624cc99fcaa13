#include "place_archive.h"

#include "persistence/format.h"

std::uint32_t PlaceArchive::peekWord() const
{
    if (bytes_.size() - position_ < 4)
        throw std::out_of_range("end of the file");
    std::uint32_t word = 0;
    for (std::size_t i = 4; i > 0; --i)
        word = word << 8U | bytes_[position_ + i - 1];
    return word;
}

void PlaceArchive::skip(std::size_t count)
{
    if (count > bytes_.size() - position_)
        throw std::out_of_range("end of the file");
    position_ += count;
}

void PlaceArchive::note(Place::Kind kind, std::string_view name, std::size_t size)
{
    const std::size_t begin = position_;
    skip(size);
    places_.push_back({kind, name, begin, position_});
}

void PlaceArchive::noteBytes(Place::Kind kind, std::string_view name)
{
    note(kind, name, std::size_t{4} + peekWord());
}

namespace
{

// Made without children: what is nested is made by wrapping.
class ChildlessArchive
{
public:
    explicit ChildlessArchive(std::uint32_t seed)
        : random(seed, seed % 2 == 0)
    {
    }

    RandomArchive random;

private:
    NestingLevel levels_[3] = {random.enter(), random.enter(), random.enter()};
};

std::vector<std::uint8_t> makeObject(const EntryNames&, std::uint32_t seed)
{
    ChildlessArchive childless(seed);
    WriteArchive writer;
    std::uint32_t before = seed / 2 % 9;
    anyDrawingClass([&](auto row) {
        if (before-- != 0)
            return false;
        writer.byte({}, static_cast<std::uint8_t>(row.code));
        // A block makes its own objects, and they would make blocks without end.
        if constexpr (std::same_as<typename decltype(row)::Object, GLBlockDB>) {
            const auto block = makeReference<GLBlockDB>(GLBlockData{}, Uuid{}, L"Блок", Uuid{});
            existingObject(writer, row, *block);
        } else {
            existingObject(writer, row, *readObject(childless.random, row));
        }
        return true;
    });
    return writer.takeBytes();
}

std::vector<std::uint8_t> makePlane(const EntryNames&, std::uint32_t seed)
{
    RandomArchive random(seed, false);
    WriteArchive writer;
    existingPlane(writer, *readPlane(random));
    return writer.takeBytes();
}

std::vector<std::uint8_t> makeInform(const EntryNames&, std::uint32_t seed)
{
    ChildlessArchive childless(seed);
    WriteArchive writer;
    existingRecord(writer, *readInform(childless.random));
    return writer.takeBytes();
}

std::vector<std::uint8_t> makeItem(const EntryNames&, std::uint32_t seed)
{
    ChildlessArchive childless(seed);
    WriteArchive writer;
    existingRecord(writer, *readItem(childless.random));
    return writer.takeBytes();
}

std::vector<std::uint8_t> makeSubsidence(const EntryNames&, std::uint32_t seed)
{
    RandomArchive random(seed, seed % 2 == 0);
    SubsidenceMap values;
    random.subsidence({}, values);
    values.erase(std::next(values.begin()), values.end());
    WriteArchive writer;
    writer.subsidence({}, values);
    std::vector<std::uint8_t> bytes = writer.takeBytes();
    bytes.erase(bytes.begin(), bytes.begin() + 4);
    return bytes;
}

} // namespace

void PlaceArchive::objects(std::string_view name, const GLObjectList&)
{
    elements(name, {}, Place::Nesting::block, makeObject, [this] {
        note(Place::Kind::code, "code", 1);
        const std::uint8_t code = bytes_[position_ - 1];
        anyDrawingClass([&](auto row) {
            using Row = decltype(row);
            if (static_cast<std::uint8_t>(row.code) != code)
                return false;
            ObjectHead head;
            typename Row::Fields data;
            objectHead(*this, head, std::same_as<typename Row::Object, GLBlockDB>);
            fields(*this, data);
            return true;
        });
    });
}

void PlaceArchive::planes(std::string_view name, const GLObjectList&)
{
    elements(name, {}, Place::Nesting::none, makePlane, [this] {
        GLPlaneData data;
        guid("id", {});
        fields(*this, data);
    });
}

void PlaceArchive::informs(std::string_view name, const InformList&)
{
    elements(name, {}, Place::Nesting::inform, makeInform, [this] {
        InformFields inform;
        fields(*this, inform);
    });
}

void PlaceArchive::items(std::string_view name, const std::vector<PropertyGridItem*>&)
{
    elements(name, {}, Place::Nesting::item, makeItem, [this] {
        ItemFields item;
        fields(*this, item);
    });
}

void PlaceArchive::subsidence(std::string_view name, SubsidenceMap& values)
{
    // The two maps behind this one stand in the file where this one has rows.
    if (peekWord() != 0)
        values.insert({L"row", {}});
    elements(name, {}, Place::Nesting::none, makeSubsidence, [this] {
        text("pointName", {});
        text("title", {});
        list("cells", std::vector<SubsidenceCell>());
    });
}

std::vector<Place> placesOfProject(std::span<const std::uint8_t> bytes)
{
    std::vector<Place> places;
    if (bytes.size() < format::projectHead.contentOffset)
        return places;
    PlaceArchive archive(bytes, format::projectHead.contentOffset, places);
    const auto project = makeReference<DBProject>();
    try {
        projectFields(archive, *project);
    } catch (const std::exception&) {
        // What was found before the end, or above the depth that can be read, is enough.
        return places;
    }
    return places;
}
