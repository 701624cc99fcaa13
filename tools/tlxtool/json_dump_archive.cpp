#include "tlxtool/json_dump_archive.h"

#include "tlxtool/base64.h"
#include "tlxtool/json_words.h"

JsonDumpArchive::JsonDumpArchive(Json& project)
    : root_(&project)
    , target_(&project)
{
    project = Json::object();
}

Json& JsonDumpArchive::add(std::string_view name, Json value)
{
    if (target_->is_array()) {
        target_->push_back(std::move(value));
        return target_->back();
    }
    // Not by the object's own insertion, which compares the name with every member that is there.
    return target_->get_ref<Json::object_t&>().emplace_back(std::string(name), std::move(value)).second;
}

void JsonDumpArchive::word(std::string_view name, float value)
{
    add(name, singleToJson(value));
}

void JsonDumpArchive::guid(std::string_view name, const Uuid& value)
{
    add(name, uuidToText(value));
}

void JsonDumpArchive::blob(std::string_view name, const std::vector<std::uint8_t>& value)
{
    add(name, toBase64(value));
}

void JsonDumpArchive::objects(std::string_view name, const GLObjectList& values)
{
    inside(add(name, Json::array()), [&] {
        for (GLObjectDB* object : values) {
            // An object of no listed class stays null: it has no place in a file either.
            Json& entry = add({}, Json());
            visitDrawing(object, [&](auto row, auto& drawing) {
                entry = Json::object();
                inside(entry, [&] {
                    add("class", std::string(row.name));
                    existingObject(*this, row, drawing);
                });
            });
        }
    });
}

void JsonDumpArchive::planes(std::string_view name, const GLObjectList& values)
{
    inside(add(name, Json::array()), [&] {
        for (GLObjectDB* object : values) {
            Json& entry = add({}, Json());
            if (auto* plane = dynamic_cast<GLPlaneDB*>(object)) {
                entry = Json::object();
                inside(entry, [&] { existingPlane(*this, *plane); });
            }
        }
    });
}

template <class Record>
void JsonDumpArchive::records(std::string_view name, const std::vector<Record*>& values)
{
    inside(add(name, Json::array()), [&] {
        for (const Record* value : values)
            inside(add({}, Json::object()), [&] { existingRecord(*this, *value); });
    });
}

void JsonDumpArchive::informs(std::string_view name, const InformList& values)
{
    records(name, values);
}

void JsonDumpArchive::items(std::string_view name, const std::vector<PropertyGridItem*>& values)
{
    records(name, values);
}

void JsonDumpArchive::stem(std::string_view name, IDBProject& project)
{
    text(name, project.getFileStem());
}

void JsonDumpArchive::doubledTitle(
    std::string_view nameA, const std::wstring& a, std::string_view nameB, const std::wstring& b)
{
    text(nameA, a);
    text(nameB, b);
}

void JsonDumpArchive::subsidence(std::string_view name, SubsidenceMap& values)
{
    const auto cellFields = [this](SubsidenceCell& cell) {
        fields(*this, cell);
        text("title", cell.title);
    };
    std::vector<std::string>& keys = registerKeys_[std::string(name)];
    inside(add(name, Json::array()), [&] {
        for (auto& row : values) {
            keys.push_back(toUtf8(row.first));
            inside(add({}, Json::object()), [&] {
                text("pointName", row.first);
                inside(add("cells", Json::array()), [&] {
                    for (SubsidenceCell& cell : row.second)
                        inside(add({}, Json::object()), [&] { cellFields(cell); });
                });
            });
        }
    });
}
