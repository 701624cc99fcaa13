#pragma once

#include <QAbstractTableModel>

class StudyController;

// The rows of the controller, which is not owned, as a table to look at.
class StudyModel : public QAbstractTableModel
{
public:
    explicit StudyModel(StudyController* controller, QObject* parent = nullptr);

    QModelIndex index(int row, int column, const QModelIndex& parent = {}) const override;
    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    // Throws std::out_of_range("invalid vector<T> subscript") outside the table.
    QVariant data(const QModelIndex& index, int role) const override;
    Qt::ItemFlags flags(const QModelIndex& index) const override;
    // Throws std::out_of_range("invalid map<K, T> key") for a column that has no title.
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

private:
    StudyController* controller_;
};
