#pragma once

#include "projects/project_entry.h"

#include <QAbstractTableModel>
#include <QVector>

// The register of projects as a table. The code of a project can be edited in place where the file lies where
// the program would save it.
class ProjectModel : public QAbstractTableModel
{
    Q_OBJECT

public:
    enum Column { Code, Name, File, Points, Changed, Size, SavingPlace, ColumnCount };

    using QAbstractTableModel::QAbstractTableModel;

    const QVector<ProjectEntry>& entries() const { return entries_; }
    void setEntries(const QVector<ProjectEntry>& entries);
    void setEntry(int row, const ProjectEntry& entry);
    // Codes are not edited while a project is open: reading another file would drop its undo histories.
    void setEditable(bool editable) { editable_ = editable; }

    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;
    Qt::ItemFlags flags(const QModelIndex& index) const override;
    bool setData(const QModelIndex& index, const QVariant& value, int role) override;

Q_SIGNALS:
    void codeTyped(int row, const QString& code);

private:
    QVector<ProjectEntry> entries_;
    bool editable_ = true;
};
