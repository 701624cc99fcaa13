#pragma once

#include "common/edit_grid_model.h"
#include "db/exact_key.h"
#include "modules/idbproject.h"

#include <any>
#include <optional>
#include <set>
#include <string>
#include <unordered_map>
#include <utility>
#include <vector>

class ISettings;

// A record of a register as screens and undo steps keep it. Only the register of its kind looks into it.
using RegisterValue = std::any;

// A row of a point as the screen keeps it: what is typed, and what of it the project has. A row that the
// project has stays in it as it last could be stored, whatever is typed over it.
struct RegisterRow {
    qint64 id = 0;
    QVector<QString> cells; // as typed, computed ones empty
    RegisterValue value;
    std::optional<std::wstring> key = {}; // the depth under which the project has it
    QVector<QString> problems = {}; // by column; a row without any is in the project as it is typed

    bool isOpen() const;
    // Nothing typed yet.
    bool isBlank() const;
};

using RegisterRows = QVector<RegisterRow>;

// The rows of one point, and those of the points that an undo step exchanges.
struct PointState {
    std::wstring point;
    RegisterRows rows;
    // Those that these take the place of when a step is undone or redone; none when they were just typed.
    // What other screens hang on a row finds the row by them.
    RegisterRows replaced = {};
};
using RegisterState = std::vector<PointState>;

struct PointFacts {
    std::wstring name;
    int kind = 0; // 1 borehole, 2 pit, 3 sounding; 0 stands in no register of points
    QString mark = {}; // absolute, as typed
    QString bottom = {}; // depth of the deepest layer, as typed
};

PointFacts pointFacts(IDBProject& project, const std::wstring& point);

// The depth as the project's registers order it: up to the first character that is no part of a number, a
// comma for one. None where they would refuse it.
std::optional<float> orderedDepth(const QString& text);

// Whether the depth is a number that is written otherwise than the registers read it.
bool isToBeMended(const std::wstring& depth);

// A register of rows by point and depth: how its rows look and read, and how they come into the project. The
// modules derive one class each from DepthRegisterOf below.
class DepthRegister
{
public:
    using DepthsAndValues = std::vector<std::pair<std::wstring, RegisterValue>>;
    using Counts = std::unordered_map<std::wstring, int>;

    virtual ~DepthRegister() = default;

    // Mode and table in the file of view settings.
    virtual QString name() const = 0;
    virtual QVector<GridColumn> columns() const = 0;
    virtual int depthColumn() const = 0;
    // What a point without rows shows.
    virtual QString emptyText() const = 0;
    virtual QVector<QString> cells(const RegisterValue& value) const = 0;
    virtual QString read(int column, const QString& text, RegisterValue& value) const = 0;
    // Fills the computed cells and the warnings of all rows of a point.
    virtual void complete(GridRows& rows, const PointFacts& point) const = 0;
    // Names come in the language of reports.
    virtual void useSettings(ISettings* settings) = 0;
    // Choices that the project gives; it is null where none is open.
    virtual void useProject(IDBProject*) { }

    // How many rows each point has.
    virtual Counts counts(IDBProject& project) const = 0;

    // The points with a depth that is to be mended: a comma for the point, blanks between the digits.
    virtual std::set<std::wstring> pointsToMend(IDBProject& project) const = 0;
    // Mends the depths of the rows, and settles them. The number of depths that changed.
    int mend(RegisterRows& rows) const;

    // The rows of a point: those of the project, with what is typed and not stored kept from before.
    RegisterRows rowsOf(IDBProject& project, const std::wstring& point, const RegisterRows& before) const;
    // Decides what of the typed rows can be stored, gives the reasons for the rest, and puts them in order.
    void settle(RegisterRows& rows) const;
    // Makes the project's rows of this point those of the state. Rows that the project refuses come back
    // without key, with the reason.
    virtual RegisterRows store(IDBProject& project, const PointState& state) const;
    GridRows shown(const RegisterRows& rows, const PointFacts& point) const;

    // The known rows with the texts of the table's, by their ids; rows that nobody knows are new.
    RegisterRows typedRows(const RegisterRows& known, const GridRows& typed) const;

protected:
    virtual RegisterValue blankValue() const = 0;
    virtual DepthsAndValues load(IDBProject& project, const std::wstring& point) const = 0;
    virtual void replace(IDBProject& project, const PointDepthKey& key, const RegisterValue& value) const = 0;
    virtual bool add(IDBProject& project, const PointDepthKey& key, const RegisterValue& value) const = 0;
    virtual void erase(IDBProject& project, const PointDepthKey& key) const = 0;

private:
    RegisterRow newRow() const { return {nextId(), {}, blankValue()}; }
    static qint64 nextId();
    // Whether the depth of the row is the one that the project has.
    bool hasPlace(const RegisterRow& row) const;
    void placeTheRest(RegisterRows& placed, const RegisterRows& original) const;
    // By the depths that the project has, as its registers walk them.
    void arrange(RegisterRows& rows) const;
    void keepTyped(RegisterRow& row, const RegisterRow& old) const;
    void readCells(RegisterRow& row) const;
    const QString& depthCell(const RegisterRow& row) const { return row.cells[depthColumn()]; }
    // The holder is the row that has the number already, null where there is no number.
    QString depthProblem(const RegisterRow& row, const RegisterRow* holder) const;
    QString depthWarning(const QString& depth) const;
    void addNew(IDBProject& project, const std::wstring& point, RegisterRow& row) const;
};

// The register that this getter and this operation of the project give. Kept is the project's value, or what
// the screen adds to it.
template <class Map, class Kept = typename Map::mapped_type>
class DepthRegisterOf : public DepthRegister
{
public:
    using Value = typename Map::mapped_type;
    using Getter = Map& (IDBProject::*)();
    using Adder = bool (IDBProject::*)(const PointDepthKey&, const Value&);

    DepthRegisterOf(Getter getter, Adder adder)
        : getter_(getter)
        , adder_(adder)
    {
    }

    QVector<QString> cells(const RegisterValue& value) const final
    {
        return cellsOf(std::any_cast<const Kept&>(value));
    }
    QString read(int column, const QString& text, RegisterValue& value) const final
    {
        return readCell(column, text, std::any_cast<Kept&>(value));
    }

    Counts counts(IDBProject& project) const override
    {
        Counts counts;
        auto count = counts.end();
        for (const auto& [key, value] : (project.*getter_)()) {
            // The rows of a point stand together: one look-up for all of them.
            if (count == counts.end() || count->first != key.pointName)
                count = counts.emplace(key.pointName, 0).first;
            ++count->second;
        }
        return counts;
    }

    std::set<std::wstring> pointsToMend(IDBProject& project) const override
    {
        std::set<std::wstring> points;
        for (const auto& [key, value] : (project.*getter_)())
            if (isToBeMended(key.depth))
                points.insert(key.pointName);
        return points;
    }

protected:
    // The cells of a record, depth and computed ones empty.
    virtual QVector<QString> cellsOf(const Kept& value) const = 0;
    // Reads what was typed into a cell; the reason why not, or nothing.
    virtual QString readCell(int column, const QString& text, Kept& value) const = 0;

    RegisterValue blankValue() const override { return Kept(); }
    // A walk, not a search: the ordering may part the rows of a point whose name it cannot tell from others.
    DepthsAndValues load(IDBProject& project, const std::wstring& point) const override
    {
        DepthsAndValues rows;
        for (const auto& [key, value] : (project.*getter_)())
            if (key.pointName == point)
                rows.emplace_back(key.depth, Kept(value));
        return rows;
    }
    void replace(IDBProject& project, const PointDepthKey& key, const RegisterValue& value) const override
    {
        Map& map = (project.*getter_)();
        if (const auto found = findExact(map, key); found != map.end())
            found->second = std::any_cast<const Kept&>(value);
    }
    bool add(IDBProject& project, const PointDepthKey& key, const RegisterValue& value) const override
    {
        return (project.*adder_)(key, std::any_cast<const Kept&>(value));
    }
    void erase(IDBProject& project, const PointDepthKey& key) const override
    {
        eraseExact((project.*getter_)(), key);
    }

private:
    Getter getter_;
    Adder adder_;
};
