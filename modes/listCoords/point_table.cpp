#include "listCoords/point_table.h"

#include "site/by_point.h"

#include <QHash>

#include <algorithm>
#include <iterator>
#include <set>
#include <stdexcept>

namespace
{

// By text alone: a register from another program's file may hold names that its ordering cannot read.
PointRegister::iterator findPoint(PointRegister& points, const std::wstring& name)
{
    return std::find_if(
        points.begin(), points.end(), [&](const auto& entry) { return entry.first.pointName == name; });
}

bool isNamed(const PointDraft& draft)
{
    return !draft.point.empty() && !draft.cells.contains(PointNameColumn);
}

bool isBlank(const PointDraft& draft)
{
    return draft.point.empty()
        && std::all_of(
            draft.cells.begin(), draft.cells.end(), [](const QString& cell) { return cell.isEmpty(); });
}

// The kind stands in the key, beside the name. Where another name reads the same the point would not get back
// in.
QString storeKind(PointRegister& points, PointRegister::iterator& point, std::uint8_t kind)
{
    const auto readsTheSame = [&](const auto& entry) {
        const auto less = points.key_comp();
        return &entry.first != &point->first && !less(entry.first, point->first)
            && !less(point->first, entry.first);
    };
    try {
        if (std::any_of(points.begin(), points.end(), readsTheSame))
            return QStringLiteral("Не записано: сначала переименуйте точку, другое имя читается так же.");
    } catch (const std::logic_error&) {
        return QStringLiteral(
            "Не записано: сначала исправьте имена точек, в которых нет ни числа, ни буквы.");
    }
    auto node = points.extract(point);
    node.key().pointKind = kind;
    point = points.insert(std::move(node)).position;
    return {};
}

// Puts a cell into a point of the register; the reason where it cannot be.
QString storeCell(IDBProject& project, PointRegister::iterator& point, int column, const QString& text)
{
    PointEntry edited = *point;
    if (!setPointCell(edited, column, text))
        return pointCellProblem(column);
    if (column == PointKindColumn)
        return storeKind(project.getPointRegister(), point, edited.first.pointKind);
    const bool wereAllMarked = column == PointMarkColumn && sectionWithoutMark(project).empty();
    std::swap(point->second, edited.second);
    const std::wstring section = wereAllMarked ? sectionWithoutMark(project) : std::wstring();
    if (section.empty())
        return {};
    std::swap(point->second, edited.second);
    return QStringLiteral("Не записано: по отметке этой точки открывается «%1». Введите число.")
        .arg(QString::fromStdWString(section));
}

void storeValues(IDBProject& project, PointDraft& draft, PointsChange& change)
{
    auto point = findPoint(project.getPointRegister(), draft.point);
    for (auto cell = draft.cells.begin(); cell != draft.cells.end();) {
        const int column = cell.key();
        if (column == PointNameColumn) {
            ++cell;
            continue;
        }
        const QString problem = storeCell(project, point, column, cell.value());
        if (!problem.isEmpty()) {
            draft.problems[column] = problem;
            ++cell;
            continue;
        }
        draft.problems.remove(column);
        cell = draft.cells.erase(cell);
        change.stored = true;
        change.keysChanged = change.keysChanged || column == PointKindColumn;
    }
}

bool addPoint(IDBProject& project, const std::wstring& name)
{
    try {
        return project.addPointRegisterEntry({name, 1}, {PointRow()});
    } catch (const std::logic_error&) {
        return false;
    }
}

std::vector<std::pair<std::wstring, std::vector<PointRow>>> rowsOf(
    IDBProject& project, const std::set<std::wstring>& names)
{
    std::vector<std::pair<std::wstring, std::vector<PointRow>>> rows;
    for (const std::wstring& name : names)
        if (const auto point = findPoint(project.getPointRegister(), name);
            point != project.getPointRegister().end())
            rows.emplace_back(name, point->second);
    return rows;
}

// Most rows have nothing to be noted.
void note(QVector<QString>& notes, int column, const QString& text)
{
    if (text.isEmpty())
        return;
    notes.resize(PointColumnCount);
    notes[column] = text;
}

GridRows::iterator findRow(GridRows& rows, qint64 id)
{
    return std::find_if(rows.begin(), rows.end(), [&](const GridRow& row) { return row.id == id; });
}

// Rows that are no points yet stand where they were begun; one of them may stand under another.
void showDraft(GridRows& rows, qint64 id, const PointDraft& draft)
{
    auto row = findRow(rows, id);
    if (row == rows.end()) {
        const auto above = findRow(rows, draft.below);
        const auto place = draft.below == 0 ? rows.begin() : above == rows.end() ? above : above + 1;
        row = rows.insert(place, {id, QVector<QString>(PointColumnCount)});
    }
    for (auto cell = draft.cells.cbegin(); cell != draft.cells.cend(); ++cell)
        row->cells[cell.key()] = cell.value();
    for (auto problem = draft.problems.cbegin(); problem != draft.problems.cend(); ++problem)
        note(row->problems, problem.key(), problem.value());
}

} // namespace

void PointsState::putInto(IDBProject& project) const
{
    registers.putBack(project);
    if (removal)
        removal->put(project, isRemoved);
    for (const auto& [name, pointRows] : rows)
        if (const auto point = findPoint(project.getPointRegister(), name);
            point != project.getPointRegister().end())
            point->second = pointRows;
}

qint64 PointTable::idOf(const std::wstring& pointName)
{
    qint64& id = ids_[pointName];
    if (id == 0 || points_.contains(id))
        id = ++lastId_;
    points_[id] = pointName;
    return id;
}

std::wstring PointTable::pointOf(qint64 id) const
{
    const auto point = points_.find(id);
    return point == points_.end() ? std::wstring() : point->second;
}

GridRows PointTable::rows(IDBProject& project)
{
    GridRows rows;
    points_.clear();
    rows.reserve(int(project.getPointRegister().size()) + drafts_->size());
    for (const auto* point : inReadingOrder(project.getPointRegister())) {
        const auto& [key, pointRows] = *point;
        rows.append({idOf(key.pointName), pointCells(key, pointRows)});
        note(rows.last().warnings, PointNameColumn, pointNameWarning(key.pointName));
    }
    for (auto draft = drafts_->cbegin(); draft != drafts_->cend(); ++draft)
        showDraft(rows, draft.key(), *draft);
    for (GridRow& row : rows)
        for (int column = PointKindColumn; column < PointColumnCount; ++column)
            note(row.warnings, column, pointCellWarning(column, row.cells[column]));
    return rows;
}

QVector<PointTable::OpenCell> PointTable::openCells(IDBProject& project)
{
    // What is stored has no problems, and the whole table takes a while with thousands of points.
    const bool isSound = std::all_of(
        drafts_->cbegin(), drafts_->cend(), [](const PointDraft& draft) { return draft.problems.isEmpty(); });
    QVector<OpenCell> cells;
    if (isSound)
        return cells;
    const auto columns = pointColumns();
    for (const GridRow& row : rows(project)) {
        const QString point = QString::fromStdWString(pointOf(row.id));
        for (int column = 0; column < row.problems.size(); ++column)
            if (!row.problems[column].isEmpty())
                cells.append({row.id,
                    column,
                    QStringLiteral("%1, «%2»: %3")
                        .arg(point.isEmpty() ? QStringLiteral("Новая строка")
                                             : QStringLiteral("Точка ") + point,
                            QString(columns[column].title).replace(QLatin1Char('\n'), QLatin1Char(' ')),
                            row.problems[column])});
    }
    return cells;
}

// Everything typed becomes a draft first; what can be stored leaves the drafts again at once.
void PointTable::noteRow(
    const GridRow* before, const GridRow& after, qint64 id, qint64 below, PointDrafts& drafts) const
{
    PointDraft draft = drafts.value(id);
    if (!before)
        draft.below = below;
    else
        draft.point = pointOf(id);
    for (int column = 0; column < PointColumnCount; ++column) {
        const QString text = after.cells.value(column);
        if (text == (before ? before->cells.value(column) : QString()))
            continue;
        draft.cells[column] = text;
        // The point's own name again.
        if (column == PointNameColumn && !draft.point.empty() && text.toStdWString() == draft.point) {
            draft.cells.remove(column);
            draft.problems.remove(column);
        }
    }
    if (draft.point.empty() || !draft.cells.isEmpty())
        drafts[id] = draft;
    else
        drafts.remove(id);
}

PointDrafts PointTable::noteEdits(
    const GridRows& before, const GridRows& after, std::vector<std::wstring>& removed)
{
    PointDrafts drafts = *drafts_;
    QHash<qint64, const GridRow*> old;
    for (const GridRow& row : before)
        old.insert(row.id, &row);
    qint64 above = 0;
    for (const GridRow& row : after) {
        const qint64 id = row.id ? row.id : ++lastId_;
        const GridRow* known = old.take(id);
        if (!known || known->cells != row.cells)
            noteRow(known, row, id, above, drafts);
        above = id;
    }
    for (const GridRow& row : before) {
        if (!old.contains(row.id))
            continue;
        drafts.remove(row.id);
        if (const std::wstring point = pointOf(row.id); !point.empty())
            removed.push_back(point);
    }
    return drafts;
}

void PointTable::storeName(
    IDBProject& project, qint64 id, PointDraft& draft, PointNames& names, PointsChange& change)
{
    const std::wstring name = draft.cells.value(PointNameColumn).toStdWString();
    QString problem = names.problem(name, draft.point);
    if (problem.isEmpty()) {
        const std::wstring refusal = !draft.point.empty() ? renamePoint(project, draft.point, name)
            : addPoint(project, name)                     ? std::wstring()
                                      : std::wstring(L"рядом с другими именами реестр его не принимает");
        if (!refusal.empty())
            problem =
                QStringLiteral("Имя не подходит: ") + QString::fromStdWString(refusal) + QLatin1Char('.');
    }
    if (!problem.isEmpty()) {
        draft.problems[PointNameColumn] = QStringLiteral("Не записано. ") + problem;
        return;
    }
    if (!draft.point.empty()) {
        names.remove(draft.point);
        change.renamed.emplace_back(draft.point, name);
    }
    names.add(name);
    ids_[name] = id;
    draft.point = name;
    draft.cells.remove(PointNameColumn);
    draft.problems.remove(PointNameColumn);
    change.stored = true;
    change.keysChanged = true;
}

void PointTable::store(IDBProject& project, PointDrafts& drafts, PointsChange& change)
{
    // A name may become free when another one changes, so they are tried until none moves any more.
    PointNames names(project.getPointRegister());
    for (std::size_t named = 0, before = 1; named != before;) {
        before = named;
        named = 0;
        for (auto draft = drafts.begin(); draft != drafts.end(); ++draft) {
            if (!isNamed(*draft) && !isBlank(*draft))
                storeName(project, draft.key(), *draft, names, change);
            named += isNamed(*draft) ? 1U : 0U;
        }
    }
    for (auto draft = drafts.begin(); draft != drafts.end();) {
        if (!draft->point.empty())
            storeValues(project, *draft, change);
        if (isBlank(*draft))
            draft->problems.clear();
        draft = draft->point.empty() || !draft->cells.isEmpty() ? std::next(draft) : drafts.erase(draft);
    }
}

PointsChange PointTable::change(
    IDBProject& project, const GridRows& before, const GridRows& after, Trial trial)
{
    PointsChange change;
    change.before.drafts = *drafts_;
    change.after.drafts = noteEdits(before, after, change.removed);
    if (!change.removed.empty()) {
        change.refusal = removalRefusal(project, change.removed);
        change.keysChanged = change.refusal.empty();
        change.uses = findPointUses(project, change.removed);
        change.isTriedOut = change.refusal.empty() && change.uses.empty();
        if (!change.isTriedOut)
            return change;
    }
    carryOut(project, change);
    if (trial == KeepValues && !change.keysChanged)
        return change;
    change.before.putInto(project);
    change.isMade = false;

    std::vector<std::wstring> moving = change.removed;
    for (const auto& [from, to] : change.renamed)
        moving.push_back(from);
    change.uses = findPointUses(project, moving);
    return change;
}

bool PointTable::carryOut(IDBProject& project, PointsChange& change, const PointsRemoval::Pace& pace)
{
    if (change.removed.empty() || !change.after.drafts.isEmpty()) {
        moveAndStore(project, change);
    } else {
        change.before.removal = PointsRemoval::prepare(project, change.removed, pace);
        if (!change.before.removal)
            return false;
        change.after.removal = change.before.removal;
        change.after.isRemoved = true;
        change.after.putInto(project);
    }
    change.isTriedOut = true;
    change.isMade = true;
    return true;
}

void PointTable::moveAndStore(IDBProject& project, PointsChange& change)
{
    std::set<std::wstring> edited;
    std::vector<std::wstring> moving = change.removed;
    for (const PointDraft& draft : change.after.drafts) {
        if (draft.point.empty())
            continue;
        edited.insert(draft.point);
        if (!isNamed(draft))
            moving.push_back(draft.point);
    }
    change.before.rows = rowsOf(project, edited);
    change.before.registers = RegistersCopy(project, moving);

    if (!change.removed.empty())
        change.refusal = removePoints(project, change.removed);
    store(project, change.after.drafts, change);
    if (change.keysChanged) {
        change.after.registers = RegistersCopy(project, change.before.registers);
        change.before.rows.clear();
    } else {
        change.before.registers = {};
        change.after.rows = rowsOf(project, edited);
    }
}
