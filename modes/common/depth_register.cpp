#include "common/depth_register.h"

#include "common/number_sort_proxy.h"
#include "common/typed_text.h"
#include "core/base/text_number.h"

#include <algorithm>
#include <cmath>
#include <exception>
#include <iterator>
#include <map>

bool RegisterRow::isOpen() const
{
    return std::any_of(
        problems.begin(), problems.end(), [](const QString& problem) { return !problem.isEmpty(); });
}

bool RegisterRow::isBlank() const
{
    return !key
        && std::all_of(cells.begin(), cells.end(), [](const QString& cell) { return cell.isEmpty(); });
}

std::optional<float> orderedDepth(const QString& text)
{
    float depth = 0;
    if (!tryTextToFloat(text.toStdWString(), depth) || !std::isfinite(depth))
        return std::nullopt;
    return depth;
}

PointFacts pointFacts(IDBProject& project, const std::wstring& point)
{
    PointFacts facts{point};
    const PointRegister& points = project.getPointRegister();
    const auto found = std::find_if(
        points.begin(), points.end(), [&](const auto& entry) { return entry.first.pointName == point; });
    if (found != points.end()) {
        facts.kind = found->first.pointKind;
        if (!found->second.empty())
            facts.mark = QString::fromStdWString(found->second.front().absoluteMark);
    }
    double deepest = 0;
    for (const auto& [key, layer] : project.getLithology()) {
        if (key.pointName != point)
            continue;
        const QString text = QString::fromStdWString(key.depth);
        if (double bottom = 0; readNumber(text, bottom) && bottom > deepest) {
            deepest = bottom;
            facts.bottom = text;
        }
    }
    return facts;
}

bool isToBeMended(const std::wstring& depth)
{
    // Nearly all are digits and a point.
    const auto isPlain = [](wchar_t c) { return (c >= L'0' && c <= L'9') || c == L'.'; };
    if (std::all_of(depth.begin(), depth.end(), isPlain))
        return false;
    const QString text = QString::fromStdWString(depth);
    return mendedNumber(text) != text;
}

int DepthRegister::mend(RegisterRows& rows) const
{
    int changed = 0;
    for (RegisterRow& row : rows)
        if (const QString depth = mendedNumber(row.cells[depthColumn()]); depth != row.cells[depthColumn()]) {
            row.cells[depthColumn()] = depth;
            ++changed;
        }
    settle(rows);
    return changed;
}

qint64 DepthRegister::nextId()
{
    static qint64 last = 0;
    return ++last;
}

static const RegisterRow* rowById(const RegisterRows& rows, qint64 id)
{
    const auto found =
        std::find_if(rows.begin(), rows.end(), [id](const RegisterRow& row) { return row.id == id; });
    return found != rows.end() ? &*found : nullptr;
}

RegisterRows DepthRegister::typedRows(const RegisterRows& known, const GridRows& typed) const
{
    const QVector<GridColumn> columns = this->columns();
    RegisterRows rows;
    for (const GridRow& row : typed) {
        const RegisterRow* old = rowById(known, row.id);
        RegisterRow next = old ? *old : newRow();
        next.cells = row.cells;
        for (int column = 0; column < next.cells.size(); ++column)
            if (columns[column].readOnly)
                next.cells[column].clear();
        rows.append(next);
    }
    return rows;
}

bool DepthRegister::hasPlace(const RegisterRow& row) const
{
    return row.key && row.problems.value(depthColumn()).isEmpty();
}

// Rows without a place of their own stay below the row that they stood below.
void DepthRegister::placeTheRest(RegisterRows& placed, const RegisterRows& original) const
{
    for (int i = 0; i < original.size(); ++i) {
        if (hasPlace(original[i]))
            continue;
        const RegisterRow* above = i > 0 ? rowById(placed, original[i - 1].id) : nullptr;
        const int place = above ? int(above - placed.constData()) + 1 : i > 0 ? placed.size() : 0;
        placed.insert(place, original[i]);
    }
}

void DepthRegister::arrange(RegisterRows& rows) const
{
    RegisterRows placed;
    std::copy_if(rows.begin(), rows.end(), std::back_inserter(placed), [this](const RegisterRow& row) {
        return hasPlace(row);
    });
    std::stable_sort(placed.begin(), placed.end(), [](const RegisterRow& a, const RegisterRow& b) {
        return orderedDepth(QString::fromStdWString(*a.key)) < orderedDepth(QString::fromStdWString(*b.key));
    });
    placeTheRest(placed, rows);
    rows = placed;
}

RegisterRows DepthRegister::rowsOf(
    IDBProject& project, const std::wstring& point, const RegisterRows& before) const
{
    RegisterRows known = before;
    std::map<std::wstring, RegisterRow*> byKey;
    for (RegisterRow& row : known)
        if (row.key)
            byKey.emplace(*row.key, &row);
    RegisterRows rows;
    for (const auto& [depth, value] : load(project, point)) {
        RegisterRow row{nextId(), cells(value), value, depth};
        row.cells[depthColumn()] = QString::fromStdWString(depth);
        if (const auto old = byKey.find(depth); old != byKey.end()) {
            keepTyped(row, *old->second);
            *old->second = row;
            byKey.erase(old);
        }
        if (hasPlace(row))
            rows.append(row);
    }
    // What another screen has deleted meanwhile is gone, but for what was typed here and not stored.
    for (const auto& [depth, row] : byKey)
        row->key.reset();
    known.erase(std::remove_if(known.begin(),
                    known.end(),
                    [](const RegisterRow& row) { return !row.key && !row.isOpen() && !row.isBlank(); }),
        known.end());
    placeTheRest(rows, known);
    return rows;
}

void DepthRegister::keepTyped(RegisterRow& row, const RegisterRow& old) const
{
    row.id = old.id;
    row.problems = old.problems;
    for (int column = 0; column < old.problems.size(); ++column)
        if (!old.problems[column].isEmpty())
            row.cells[column] = old.cells[column];
}

void DepthRegister::readCells(RegisterRow& row) const
{
    row.problems.fill({}, row.cells.size());
    if (row.isBlank())
        return;
    const QVector<QString> known = cells(row.value);
    for (int column = 0; column < row.cells.size(); ++column)
        if (column != depthColumn() && (row.cells[column] != known[column] || !row.key))
            row.problems[column] = read(column, row.cells[column], row.value);
}

QString DepthRegister::depthProblem(const RegisterRow& row, const RegisterRow* holder) const
{
    const QString& depth = depthCell(row);
    const QString kept = row.key
        ? QStringLiteral(" Пока в проекте остаётся глубина %1.").arg(QString::fromStdWString(*row.key))
        : QString();
    if (depth.isEmpty())
        return QStringLiteral("Введите глубину: без неё строка не записывается.") + kept;
    if (!holder)
        return QStringLiteral("«%1» — не число. Введите глубину в метрах, например 3.5.").arg(depth) + kept;
    if (depthCell(*holder) == depth)
        return QStringLiteral("Глубина %1 у этой точки уже есть. Исправьте её или удалите строку (Ctrl+Del).")
                   .arg(depth)
            + kept;
    const bool hasComma = depth.contains(QLatin1Char(',')) || depthCell(*holder).contains(QLatin1Char(','));
    return QStringLiteral("«%1» и «%2» читаются как одно число %3.%4")
               .arg(depth, depthCell(*holder))
               .arg(double(*orderedDepth(depth)))
               .arg(hasComma ? QStringLiteral(" Отделяйте дробь точкой, не запятой.") : QString())
        + kept;
}

void DepthRegister::settle(RegisterRows& rows) const
{
    std::map<float, const RegisterRow*> taken;
    const auto keepsDepth = [this](const RegisterRow& row) {
        return row.key && QString::fromStdWString(*row.key) == depthCell(row);
    };
    for (RegisterRow& row : rows) {
        readCells(row);
        if (const auto depth = orderedDepth(depthCell(row)); depth && keepsDepth(row))
            taken.emplace(*depth, &row);
    }
    std::vector<std::pair<RegisterRow*, const RegisterRow*>> refused; // with the holder of the number
    std::vector<std::pair<float, RegisterRow*>> waiting; // for another cell, a kind
    for (RegisterRow& row : rows) {
        const bool isNewAndUnread = !row.key && row.isOpen();
        if (keepsDepth(row) || row.isBlank())
            continue;
        // "4.2 / туго" would go in as 4.2, and the rest of it would be nobody's.
        double typed = 0;
        const std::optional<float> depth =
            readNumber(depthCell(row), typed) ? orderedDepth(depthCell(row)) : std::nullopt;
        const auto holder = depth ? taken.find(*depth) : taken.end();
        if (!depth || holder != taken.end()) {
            refused.emplace_back(&row, holder != taken.end() ? holder->second : nullptr);
        } else if (isNewAndUnread) {
            waiting.emplace_back(*depth, &row);
        } else {
            taken.emplace(*depth, &row);
            row.key = depthCell(row).toStdWString();
        }
    }
    // Only one of them can be stored, whichever gets its kind first: said before that.
    std::map<float, const RegisterRow*> wanted = taken;
    for (const auto& [depth, row] : waiting)
        if (const auto [holder, isFirst] = wanted.emplace(depth, row); !isFirst)
            refused.emplace_back(row, holder->second);
    for (const auto& [row, holder] : refused) {
        // It holds its old depth, unless another row has taken that meanwhile.
        const auto old = row->key ? orderedDepth(QString::fromStdWString(*row->key)) : std::nullopt;
        if (old && !taken.emplace(*old, row).second)
            row->key.reset();
        row->problems[depthColumn()] = depthProblem(*row, holder);
    }
    arrange(rows);
}

RegisterRows DepthRegister::store(IDBProject& project, const PointState& state) const
{
    RegisterRows rows = state.rows;
    std::map<std::wstring, RegisterRow*> missing;
    for (RegisterRow& row : rows)
        if (row.key)
            missing.emplace(*row.key, &row);
    for (const auto& [depth, value] : load(project, state.point)) {
        const auto wanted = missing.find(depth);
        if (wanted == missing.end()) {
            erase(project, {state.point, depth});
        } else {
            replace(project, {state.point, depth}, wanted->second->value);
            missing.erase(wanted);
        }
    }
    for (const auto& [depth, row] : missing)
        addNew(project, state.point, *row);
    return rows;
}

// Two points can have names that the registers cannot tell apart, and a name can be none that they order by.
void DepthRegister::addNew(IDBProject& project, const std::wstring& point, RegisterRow& row) const
{
    try {
        if (add(project, {point, *row.key}, row.value))
            return;
        row.problems[depthColumn()] =
            QStringLiteral("Строка не записана: имя точки читается как число, по которому её не отличить от"
                           " другой точки. Переименуйте точку.");
    } catch (const std::exception&) {
        row.problems[depthColumn()] =
            QStringLiteral("Строка не записана: в имени точки нужна буква или число. Переименуйте точку.");
    }
    row.key.reset();
}

QString DepthRegister::depthWarning(const QString& depth) const
{
    const std::optional<float> ordered = orderedDepth(depth);
    if (!ordered)
        return QStringLiteral("«%1» — не число: после сохранения строка не откроется.").arg(depth);
    double read = 0;
    if (readNumber(depth, read) && std::fabs(read - double(*ordered)) < 1e-4 * std::fabs(read) + 1e-6)
        return {};
    return QStringLiteral("Разрезы и расчёты прочтут «%1» как %2. %3")
        .arg(depth)
        .arg(double(*ordered))
        .arg(depth.contains(QLatin1Char(','))
                ? QStringLiteral("Отделяйте дробь точкой, не запятой.")
                : QStringLiteral("Оставьте здесь одно число, остальное впишите в описание."));
}

GridRows DepthRegister::shown(const RegisterRows& rows, const PointFacts& point) const
{
    GridRows shown;
    for (const RegisterRow& row : rows) {
        shown.append({row.id, row.cells, row.problems, QVector<QString>(row.cells.size())});
        if (row.key && row.problems.value(depthColumn()).isEmpty())
            shown.last().warnings[depthColumn()] = depthWarning(depthCell(row));
    }
    complete(shown, point);
    return shown;
}
