#pragma once

#include "modules/idbproject.h"

#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

// A point's name is the only link between the point register and every other register, and the store keeps
// no links up to date. These operations carry a new name, or the end of a point, through all of them.
//
// Where it is open whether a name is that of a point or of a geological element (soil types of soundings,
// subsidence names and groups, curves of sections), a name that an element of the project bears is taken for
// the element's and stays. What only drawing modules interpret, texts inside labels and cells, stays too.

// How many rows of a register name a point.
struct PointUse {
    std::wstring_view where;
    std::size_t rows = 0;
};

// The registers that name one of the points, in the order of the modes. The point register is not among them.
std::vector<PointUse> findPointUses(IDBProject& project, const std::vector<std::wstring>& pointNames);

// Gives the point another name everywhere. Returns an empty text, or why a register refused; then nothing has
// changed. Whether the new name is free among the points is for the caller to see first.
std::wstring renamePoint(IDBProject& project, const std::wstring& oldName, const std::wstring& newName);

// Why the points have to stay, or an empty text; looks ahead and changes nothing.
std::wstring removalRefusal(IDBProject& project, const std::vector<std::wstring>& pointNames);

// Takes the points out of every register; lines of sections lose them and go on, ends of sections are left
// open. Returns what removalRefusal says.
std::wstring removePoints(IDBProject& project, const std::vector<std::wstring>& pointNames);

// The section, if any, whose end lacks a mark and would take it from a point whose own mark is no number: a
// file with such an end does not open.
std::wstring sectionWithoutMark(IDBProject& project);

// The point register and whichever others name one of the points, copied entry by entry, so that putting
// them back restores them exactly, in orders that no insertion could make again too.
class RegistersCopy
{
public:
    RegistersCopy() = default; // nothing
    RegistersCopy(IDBProject& project, const std::vector<std::wstring>& pointNames);
    // The same registers as another copy holds, as they are now.
    RegistersCopy(IDBProject& project, const RegistersCopy& same);

    void putBack(IDBProject& project) const;

private:
    struct Maps;
    std::shared_ptr<const Maps> maps_;
};

// The removal of points as two sets of registers that change places: one is the project's, the other one
// waits here. To and fro takes no time, however large the project; making the registers without the points
// does.
class PointsRemoval
{
public:
    // The share that is done, 0 to 1; false calls it off.
    using Pace = std::function<bool(double share)>;

    // The project stays as it is. Null where it was called off. What removalRefusal says is for the caller to
    // see first.
    static std::shared_ptr<PointsRemoval> prepare(
        IDBProject& project, const std::vector<std::wstring>& pointNames, const Pace& pace = {});
    ~PointsRemoval();

    // Gives the project the registers without the points, or with them again.
    void put(IDBProject& project, bool isRemoved);

private:
    struct Maps;
    explicit PointsRemoval(std::unique_ptr<Maps> others);

    std::unique_ptr<Maps> others_; // that the project does not have now
    bool isRemoved_ = false;
};
