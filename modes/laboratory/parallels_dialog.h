#pragma once

#include <QDialog>

#include <array>
#include <string>

class QComboBox;
class QLabel;
class QLineEdit;
class QCheckBox;
class QDialogButtonBox;

// Two or three determinations of a property: weighings of moistures, values of densities. Shows mean and
// whether they agree; gives the mean back as a cell has it.
class ParallelsDialog : public QDialog
{
    Q_OBJECT

public:
    explicit ParallelsDialog(QWidget* parent = nullptr);

    int property() const;
    std::wstring value() const { return value_; }

private:
    static constexpr std::size_t rows = 3;
    void work();

    QComboBox* property_;
    QCheckBox* isSand_;
    std::array<std::array<QLineEdit*, 3>, rows> masses_{};
    std::array<QLineEdit*, rows> values_{};
    std::array<QLabel*, 3> massHeads_{};
    QLabel* outcome_;
    QDialogButtonBox* buttons_;
    std::wstring value_;
};
