#pragma once

#include <QLineEdit>

// The path of a folder, typed or chosen.
class FolderEdit : public QWidget
{
public:
    explicit FolderEdit(QWidget* parent = nullptr);

    // As stored paths are, with backslashes.
    QString folder() const;
    void setFolder(const QString& folder);

private:
    void choose();

    QLineEdit* path_;
};
