#include "tlxtool/check_archive.h"

#include "core/base/text_number.h"
#include "platform/utf8.h"

#include <algorithm>

std::string CheckArchive::quoted(std::wstring_view text)
{
    return "«" + toUtf8(text) + "»";
}

void CheckArchive::note(std::size_t offset, std::string text)
{
    findings_.push_back({std::string(section_), offset, std::move(text)});
}

void CheckArchive::notePlace()
{
    if (places_.empty())
        return;
    const auto wanted = places_.find({std::string(section_), rowKey_});
    if (wanted == places_.end())
        return;
    wanted->second.offset = rowBegin_;
    ++wanted->second.rows;
}

std::optional<std::size_t> CheckArchive::placeOf(const std::string& section, const std::wstring& key) const
{
    const auto place = places_.find({section, key});
    if (place == places_.end() || place->second.rows != 1)
        return std::nullopt;
    return place->second.offset;
}

std::vector<Finding> CheckArchive::takeFindings()
{
    findEqualNames();
    return std::move(findings_);
}

void CheckArchive::beginRegister()
{
    insideRegister_ = true;
    registerBegin_ = position_;
    names_.clear();
    classes_.clear();
}

void CheckArchive::endRegister(std::string_view name, bool sorted)
{
    insideRegister_ = false;
    if (!sorted)
        explainOrder(registerBegin_);
    if (name != "pointRegister") {
        findUnknownPoints();
        return;
    }
    for (const auto& use : names_) {
        points_.insert(use.first);
        int number = 0;
        if (classOfName(use.first) != NameClass::lettered && tryTextToInt(use.first, number))
            pointNumbers_.insert(number);
    }
}

void CheckArchive::explainOrder(std::size_t offset)
{
    const auto lettered = classes_.find(NameClass::lettered);
    const auto number = classes_.find(NameClass::number);
    const auto zero = classes_.find(NameClass::zero);
    if (lettered != classes_.end() && number != classes_.end())
        note(offset,
            "имя " + quoted(lettered->second) + " сравнивается как текст, а имя " + quoted(number->second)
                + " как число, общего порядка у них нет: строки меняются местами и теряются при поиске; "
                  "назовите все одинаково");
    if (zero != classes_.end())
        note(offset,
            "имя " + quoted(zero->second)
                + " читается как 0: такая строка не отличается от строк других числовых имён; "
                  "переименуйте");
}

void CheckArchive::findUnknownPoints()
{
    for (const auto& [name, use] : names_) {
        int number = 0;
        const bool otherSpelling = classOfName(name) != NameClass::lettered && tryTextToInt(name, number)
            && pointNumbers_.count(number) != 0;
        // Another spelling of a point's number is found among the names that read as one number.
        if (points_.count(name) == 0 && !otherSpelling)
            note(use.offset,
                "точки " + quoted(name) + " нет в реестре точек (строк: " + std::to_string(use.rows)
                    + "); добавьте точку или исправьте имя");
    }
}

void CheckArchive::findEqualNames()
{
    section_ = {};
    for (const auto& [number, names] : namesByNumber_) {
        if (names.size() < 2)
            continue;
        std::string list;
        std::size_t last = 0;
        for (const auto& [name, offset] : names) {
            list.append(list.empty() ? "" : ", ").append(quoted(name));
            last = std::max(last, offset);
        }
        note(last,
            "имена " + list + " читаются как одно число " + std::to_string(number)
                + ": это одна точка, вторая запись отвергается; переименуйте");
    }
}

void CheckArchive::notePoint(const std::wstring& pointName, std::size_t offset)
{
    NameUse& use = names_[pointName];
    if (use.rows++ != 0)
        return;
    use.offset = offset;
    int number = 0;
    if (classOfName(pointName) != NameClass::lettered && tryTextToInt(pointName, number))
        namesByNumber_[number].try_emplace(pointName, offset);
}

void CheckArchive::noteClass(const std::wstring& name, NameClass zeroCountsAs)
{
    const NameClass found = classOfName(name);
    classes_.try_emplace(found == NameClass::zero ? zeroCountsAs : found, name);
}

void CheckArchive::noteNumber(std::string_view what, const std::wstring& text, std::size_t offset)
{
    const std::string named = std::string(what) + " " + quoted(text);
    if (!isFiniteNumber(text))
        note(offset, named + " не читается как число; введите число с точкой");
    else if (const auto comma = text.find(L','); comma != std::wstring::npos)
        note(offset,
            named + " читается до запятой, как " + quoted(text.substr(0, comma))
                + "; поставьте точку вместо запятой");
}

void CheckArchive::noteKey(const PointKey& key)
{
    noteClass(key.pointName, NameClass::number);
    notePoint(key.pointName, rowBegin_);
}

void CheckArchive::noteKey(const PointDepthKey& key)
{
    noteClass(key.pointName, NameClass::zero);
    notePoint(key.pointName, rowBegin_);
    noteNumber("глубина", key.depth, rowBegin_ + 4 + codePageLength(key.pointName));
}

void CheckArchive::noteKey(const SoundingKey& key)
{
    noteClass(key.pointName, NameClass::number);
    notePoint(key.pointName, rowBegin_);
}

void CheckArchive::noteRecord(const SoundingRow& row)
{
    noteNumber("точка " + quoted(rowKey_) + ": глубина", row.depth, position_);
}

void CheckArchive::noteRecord(const PointRow& row)
{
    // An empty mark is one that has not been measured yet.
    if (!row.absoluteMark.empty())
        noteNumber("точка " + quoted(rowKey_) + ": абсолютная отметка", row.absoluteMark, position_);
}

void CheckArchive::objects(std::string_view, const GLObjectList& values)
{
    position_ += 4;
    for (GLObjectDB* object : values)
        visitDrawing(object, [this](auto row, auto& drawing) {
            byte({}, static_cast<std::uint8_t>(row.code));
            existingObject(*this, row, drawing);
        });
}

void CheckArchive::planes(std::string_view, const GLObjectList& values)
{
    position_ += 4;
    for (GLObjectDB* object : values)
        if (auto* plane = dynamic_cast<GLPlaneDB*>(object))
            existingPlane(*this, *plane);
}

void CheckArchive::informs(std::string_view, const InformList& values)
{
    position_ += 4;
    for (const InformRecord* inform : values)
        existingRecord(*this, *inform);
}

void CheckArchive::items(std::string_view, const std::vector<PropertyGridItem*>& values)
{
    position_ += 4;
    for (const PropertyGridItem* item : values)
        existingRecord(*this, *item);
}

void CheckArchive::stem(std::string_view name, IDBProject& project)
{
    text(name, project.getFileStem());
}

void CheckArchive::doubledTitle(
    std::string_view nameA, const std::wstring& a, std::string_view nameB, const std::wstring&)
{
    text(nameA, a);
    text(nameB, a);
}

void CheckArchive::subsidence(std::string_view name, SubsidenceMap& values)
{
    beginRegister();
    position_ += 4;
    for (auto& [pointName, cells] : values) {
        notePoint(pointName, position_);
        text("pointName", pointName);
        text("title", cells.empty() ? std::wstring() : cells.front().title);
        list("cells", cells);
    }
    endRegister(name, true);
}
