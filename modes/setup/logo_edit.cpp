#include "setup/logo_edit.h"

#include <QDir>
#include <QFileDialog>
#include <QFileInfo>
#include <QHBoxLayout>
#include <QLabel>
#include <QPixmap>
#include <QPushButton>

LogoEdit::LogoEdit(QWidget* parent)
    : QWidget(parent)
    , path_(new QLineEdit(this))
    , picture_(new QLabel(this))
{
    path_->setObjectName(QStringLiteral("officeLogo"));
    path_->setPlaceholderText(QStringLiteral("Файл PNG или JPEG"));
    path_->setClearButtonEnabled(true);
    picture_->setObjectName(QStringLiteral("officeLogoPicture"));
    auto* browse = new QPushButton(QStringLiteral("Обзор…"), this);
    auto* row = new QHBoxLayout;
    row->addWidget(path_, 1);
    row->addWidget(browse);
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addLayout(row);
    layout->addWidget(picture_);
    setFocusProxy(path_);
    connect(browse, &QPushButton::clicked, this, &LogoEdit::choose);
    connect(path_, &QLineEdit::textChanged, this, &LogoEdit::showPicture);
    showPicture();
}

void LogoEdit::setFile(const QString& file)
{
    path_->setText(QDir::toNativeSeparators(file));
}

void LogoEdit::choose()
{
    const QString chosen = QFileDialog::getOpenFileName(
        window(), QStringLiteral("Логотип"), file(), QStringLiteral("Рисунки (*.png *.jpg *.jpeg)"));
    if (!chosen.isEmpty())
        setFile(chosen);
}

// What documents cannot take is said here and not when a document lacks it.
void LogoEdit::showPicture()
{
    constexpr QSize greatest(260, 72);
    const QPixmap picture(file());
    picture_->setVisible(!file().isEmpty());
    if (!picture.isNull())
        picture_->setPixmap(picture.scaled(greatest, Qt::KeepAspectRatio, Qt::SmoothTransformation));
    else
        picture_->setText(QFileInfo::exists(file()) ? QStringLiteral("Этот файл — не рисунок.")
                                                    : QStringLiteral("Файла нет, или он не читается."));
}
