#pragma once

#include <QLineEdit>

class QLabel;

// The path of a picture, typed or chosen, with the picture below it.
class LogoEdit : public QWidget
{
public:
    explicit LogoEdit(QWidget* parent = nullptr);

    QString file() const { return path_->text().trimmed(); }
    void setFile(const QString& file);

private:
    void choose();
    void showPicture();

    QLineEdit* path_;
    QLabel* picture_;
};
