#include "setup/folder_edit.h"

#include "platform/files.h"

#include <QFileDialog>
#include <QHBoxLayout>
#include <QPushButton>

FolderEdit::FolderEdit(QWidget* parent)
    : QWidget(parent)
    , path_(new QLineEdit(this))
{
    auto* browse = new QPushButton(QStringLiteral("Обзор…"), this);
    auto* layout = new QHBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(path_, 1);
    layout->addWidget(browse);
    setFocusProxy(path_);
    connect(browse, &QPushButton::clicked, this, &FolderEdit::choose);
}

QString FolderEdit::folder() const
{
    return QString(path_->text()).replace(QLatin1Char('/'), QLatin1Char('\\'));
}

void FolderEdit::setFolder(const QString& folder)
{
    path_->setText(QString::fromStdWString(systemPath(folder.toStdWString())));
}

void FolderEdit::choose()
{
    const QString chosen =
        QFileDialog::getExistingDirectory(window(), QStringLiteral("Рабочая папка"), path_->text());
    if (!chosen.isEmpty())
        path_->setText(chosen);
}
