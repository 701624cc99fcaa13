#pragma once

#include "listCoords/point_cascade.h"
#include "listCoords/point_cells.h"
#include "listCoords/point_names.h"

#include <QMap>

#include <map>
#include <memory>
#include <string>
#include <utility>
#include <vector>

// What was typed into a row and cannot be stored yet: a name that the registers refuse, the cells of a row
// that has no name. It stays here until it is right; nothing typed is lost.
struct PointDraft {
    std::wstring point; // the point whose row it is; empty for a row that is no point yet
    qint64 below = 0; // the row under which such a row stands, 0 for the top
    QMap<int, QString> cells; // by column, as typed
    QMap<int, QString> problems; // by column, why it cannot be stored

    bool operator==(const PointDraft&) const = default;
};

using PointDrafts = QMap<qint64, PointDraft>; // by the row's id

// The points as they are before or after an act of the user: the drafts, and of the project what the act
// touches.
struct PointsState {
    PointDrafts drafts;
    std::vector<std::pair<std::wstring, std::vector<PointRow>>> rows; // of points that keep their names
    RegistersCopy registers; // where names or kinds change
    std::shared_ptr<PointsRemoval> removal; // where points go and nothing else changes
    bool isRemoved = false;

    void putInto(IDBProject& project) const;
};

// An act of the user, tried out: what it does.
struct PointsChange {
    PointsState before;
    PointsState after;
    std::vector<std::pair<std::wstring, std::wstring>> renamed; // from, to
    std::vector<std::wstring> removed;
    std::vector<PointUse> uses; // rows of other registers that go along
    std::wstring refusal; // why rows that should go have to stay; nothing is changed then
    bool isTriedOut = true; // false: the project is as before, and what comes after is not known yet
    bool stored = false; // some cell or name has gone into the project
    bool keysChanged = false; // points have come, gone or changed their names or kinds
    bool isMade = false; // the project has it already

    bool isEmpty() const { return before.drafts == after.drafts && removed.empty() && !stored; }
};

// The table of points: the register and the drafts as rows of cells, and the way back.
class PointTable
{
public:
    GridRows rows(IDBProject& project);

    // What the user did when the table that looked like `before` shall look like `after`, tried out. It is
    // taken back again: names and kinds move rows of other registers, about which he may have to be asked.
    // Where nothing but values of points changes, it may be left in the project. Not even tried out is it
    // where points go for good whose rows he is asked about first: that question must not wait for all of a
    // large project to be copied.
    enum Trial { TakeBack, KeepValues };
    PointsChange change(IDBProject& project, const GridRows& before, const GridRows& after, Trial trial);
    // Makes up for it, and leaves the project as it is afterwards. False where pace called it off: then
    // nothing has changed. It is asked where points go by the thousand.
    bool carryOut(IDBProject& project, PointsChange& change, const PointsRemoval::Pace& pace = {});

    std::shared_ptr<PointDrafts> drafts() const { return drafts_; }
    // The point in a row, as given out last; empty where it is none yet. All of them by their rows.
    std::wstring pointOf(qint64 id) const;
    const std::map<qint64, std::wstring>& points() const { return points_; }
    // An id for a row that has none yet.
    qint64 newId() { return ++lastId_; }
    // The cells that are not stored: where, and why.
    struct OpenCell {
        qint64 row = 0;
        int column = 0;
        QString text;
    };
    QVector<OpenCell> openCells(IDBProject& project);

private:
    PointDrafts noteEdits(const GridRows& before, const GridRows& after, std::vector<std::wstring>& removed);
    void noteRow(
        const GridRow* before, const GridRow& after, qint64 id, qint64 below, PointDrafts& drafts) const;
    void moveAndStore(IDBProject& project, PointsChange& change);
    void store(IDBProject& project, PointDrafts& drafts, PointsChange& change);
    void storeName(
        IDBProject& project, qint64 id, PointDraft& draft, PointNames& names, PointsChange& change);
    qint64 idOf(const std::wstring& pointName);

    std::shared_ptr<PointDrafts> drafts_ = std::make_shared<PointDrafts>();
    std::map<std::wstring, qint64> ids_; // a renamed point keeps its row's id under both names
    std::map<qint64, std::wstring> points_; // of the rows as given out last
    qint64 lastId_ = 0;
};
