#include "projects/project_model.h"

#include "platform/files.h"

#include <QColor>
#include <QDateTime>
#include <QFileInfo>

static QString text(const std::wstring& value)
{
    return QString::fromStdWString(value);
}

void ProjectModel::setEntries(const QVector<ProjectEntry>& entries)
{
    beginResetModel();
    entries_ = entries;
    endResetModel();
}

void ProjectModel::setEntry(int row, const ProjectEntry& entry)
{
    entries_[row] = entry;
    Q_EMIT dataChanged(index(row, 0), index(row, ColumnCount - 1));
}

int ProjectModel::rowCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : entries_.size();
}

int ProjectModel::columnCount(const QModelIndex&) const
{
    return ColumnCount;
}

static QString nameText(const ProjectEntry& entry)
{
    switch (entry.state) {
    case ProjectEntry::State::waiting:
        return QStringLiteral("…");
    case ProjectEntry::State::olderVersion:
        return QStringLiteral("файл другой версии");
    case ProjectEntry::State::damaged:
        return QStringLiteral("файл повреждён");
    case ProjectEntry::State::current:
        break;
    }
    return text(entry.name);
}

static QString cellText(const ProjectEntry& entry, int column)
{
    const bool isCurrent = entry.state == ProjectEntry::State::current;
    switch (column) {
    case ProjectModel::Code:
        return text(entry.code);
    case ProjectModel::Name:
        return nameText(entry);
    case ProjectModel::File:
        return QFileInfo(text(systemPath(entry.path))).fileName();
    case ProjectModel::Points:
        return isCurrent ? QString::number(entry.points) : QString();
    case ProjectModel::Changed:
        return QDateTime::fromMSecsSinceEpoch(entry.modified).toString(QStringLiteral("yyyy-MM-dd hh:mm"));
    case ProjectModel::Size:
        return QString::number(double(entry.size) / 1024, 'f', 1);
    default:
        break;
    }
    if (!isCurrent)
        return {};
    if (!entry.openedBy.empty())
        return QStringLiteral("открыт: ") + text(entry.openedBy);
    return entry.savesElsewhere ? text(systemPath(entry.savingPlace)) : QStringLiteral("этот файл");
}

static QString tip(const ProjectEntry& entry, int column)
{
    if (entry.state != ProjectEntry::State::current)
        return text(entry.problem);
    QString words = text(systemPath(entry.path));
    if (entry.savesElsewhere)
        words += QStringLiteral("\nПроект сохранится не в этот файл, а в %1")
                     .arg(text(systemPath(entry.savingPlace)));
    if (entry.placeIsTaken)
        words += QStringLiteral("\nТам уже есть другой файл: при сохранении он станет копией .bak.");
    if (!entry.openedBy.empty())
        words += QStringLiteral("\nПроект сейчас открыт в другом месте: %1").arg(text(entry.openedBy));
    else if (column == ProjectModel::Code)
        words += entry.savesElsewhere
            ? QStringLiteral("\nШифр меняется в открытом проекте: сохраняется он не "
                             "в этот файл")
            : QStringLiteral("\nF2 — изменить шифр");
    return words;
}

static QVariant colorOf(const ProjectEntry& entry, int column)
{
    if (entry.state == ProjectEntry::State::damaged)
        return QColor(176, 0, 32);
    if (entry.state != ProjectEntry::State::current)
        return QColor(Qt::darkGray);
    if (column != ProjectModel::SavingPlace)
        return {};
    if (entry.placeIsTaken || !entry.openedBy.empty())
        return QColor(176, 0, 32);
    return entry.savesElsewhere ? QColor(150, 90, 0) : QColor(Qt::darkGray);
}

QVariant ProjectModel::data(const QModelIndex& index, int role) const
{
    const ProjectEntry& entry = entries_[index.row()];
    switch (role) {
    case Qt::DisplayRole:
    case Qt::EditRole:
        return cellText(entry, index.column());
    case Qt::ToolTipRole:
        return tip(entry, index.column());
    case Qt::ForegroundRole:
        return colorOf(entry, index.column());
    case Qt::TextAlignmentRole:
        return int(Qt::AlignVCenter
            | (index.column() == Points || index.column() == Size ? Qt::AlignRight : Qt::AlignLeft));
    default:
        return {};
    }
}

QVariant ProjectModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    static const QString titles[ColumnCount] = {QStringLiteral("Шифр"),
        QStringLiteral("Наименование"),
        QStringLiteral("Файл"),
        QStringLiteral("Точек"),
        QStringLiteral("Изменён"),
        QStringLiteral("Размер, КБ"),
        QStringLiteral("Место сохранения")};
    if (orientation != Qt::Horizontal || role != Qt::DisplayRole)
        return {};
    return titles[section];
}

Qt::ItemFlags ProjectModel::flags(const QModelIndex& index) const
{
    const ProjectEntry& entry = entries_[index.row()];
    const bool isOwn =
        entry.state == ProjectEntry::State::current && !entry.savesElsewhere && entry.openedBy.empty();
    const Qt::ItemFlags base = QAbstractTableModel::flags(index);
    return editable_ && isOwn && index.column() == Code ? base | Qt::ItemIsEditable : base;
}

bool ProjectModel::setData(const QModelIndex& index, const QVariant& value, int role)
{
    if (role != Qt::EditRole || value.toString() == text(entries_[index.row()].code))
        return false;
    Q_EMIT codeTyped(index.row(), value.toString());
    return true;
}
