#include "own_size.h"

#include "persistence/grammar/project.h"
#include "persistence/walk_archive.h"

#include <span>

class OwnSizeArchive : public WalkArchive<OwnSizeArchive>
{
public:
    std::size_t size() const { return size_; }

    template <class Integer>
    void byte(std::string_view, const Integer&)
    {
    }
    void flag(std::string_view, bool) { }
    template <class Number>
    void word(std::string_view, const Number&)
    {
    }
    void text(std::string_view, const std::wstring& value)
    {
        // Short texts stand inside of the string.
        static const std::size_t inside = std::wstring().capacity();
        if (value.size() > inside)
            size_ += (value.size() + 1) * sizeof(wchar_t);
    }
    void guid(std::string_view, const Uuid&) { }
    void blob(std::string_view, const std::vector<std::uint8_t>& value) { size_ += value.size(); }

    template <class List>
    void list(std::string_view, List& values)
    {
        size_ += values.size() * sizeof(typename List::value_type);
        for (auto& value : values)
            element(*this, {}, value);
    }
    template <class Map>
    void map(std::string_view, const EntryNames& names, Map& values)
    {
        size_ += values.size() * sizeof(typename Map::value_type);
        for (auto& [key, value] : values)
            entryFields(*this, names, key, value);
    }
    void objects(std::string_view, const GLObjectList& values)
    {
        size_ += std::as_bytes(std::span(values)).size();
        for (GLObjectDB* object : values)
            visitDrawing(object, [this](auto row, auto& drawing) {
                size_ += sizeof drawing;
                text({}, drawing.getName());
                existingObject(*this, row, drawing);
            });
    }
    void planes(std::string_view, const GLObjectList& values) { size_ += values.size() * sizeof(GLPlaneDB); }
    void informs(std::string_view, const InformList& values)
    {
        size_ += values.size() * sizeof(InformRecord);
        for (const InformRecord* record : values)
            existingRecord(*this, *record);
    }
    void items(std::string_view, const std::vector<PropertyGridItem*>& values)
    {
        size_ += values.size() * sizeof(ProfilePropertyGridItem);
        for (const PropertyGridItem* item : values)
            existingRecord(*this, *item);
    }

    void subsidence(std::string_view name, SubsidenceMap& values) { map(name, {}, values); }

private:
    std::size_t size_ = 0;
};

std::size_t ownSize(IDBProject& project)
{
    OwnSizeArchive archive;
    projectFields(archive, project);
    return archive.size();
}
