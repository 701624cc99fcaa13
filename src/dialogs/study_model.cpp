#include "dialogs/study_model.h"

#include "dialogs/study_controller.h"
#include "dictionaries/section_captions.h"

#include <QFont>

#include <stdexcept>

StudyModel::StudyModel(StudyController* controller, QObject* parent)
    : QAbstractTableModel(parent)
    , controller_(controller)
{
}

QModelIndex StudyModel::index(int row, int column, const QModelIndex&) const
{
    if (row < 0 || row >= rowCount() || column < 0 || column >= columnCount())
        return {};
    const auto& cells = controller_->getRows()[static_cast<std::size_t>(row)];
    return createIndex(row, column, const_cast<StudyController::Row*>(&cells));
}

int StudyModel::rowCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : static_cast<int>(controller_->getRows().size());
}

int StudyModel::columnCount(const QModelIndex&) const
{
    return StudyController::columnCount;
}

static const std::wstring& cellAt(const StudyController::Rows& rows, const QModelIndex& index)
{
    const auto row = static_cast<std::size_t>(index.row());
    const auto column = static_cast<std::size_t>(index.column());
    if (row >= rows.size() || column >= rows[row].size())
        throw std::out_of_range("invalid vector<T> subscript");
    return rows[row][column];
}

QVariant StudyModel::data(const QModelIndex& index, int role) const
{
    switch (role) {
    case Qt::DisplayRole:
    case Qt::EditRole:
        return QString::fromStdWString(cellAt(controller_->getRows(), index));
    case Qt::FontRole:
        if (index.column() >= 1 && index.column() < StudyController::columnCount)
            return QFont(QStringLiteral("Symbol"), 14, QFont::Bold);
        return {};
    case Qt::TextAlignmentRole:
        return int(Qt::AlignCenter);
    default:
        return {};
    }
}

Qt::ItemFlags StudyModel::flags(const QModelIndex& index) const
{
    return QAbstractTableModel::flags(index);
}

QVariant StudyModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (role != Qt::DisplayRole)
        return {};
    if (orientation == Qt::Vertical)
        return QString();
    const std::wstring_view title = registerColumns.at(section);
    return QString::fromWCharArray(title.data(), int(title.size()));
}
