#include "common/replace_dialog.h"

#include <QCheckBox>
#include <QDialogButtonBox>
#include <QFormLayout>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTableWidget>
#include <QVBoxLayout>

#include <algorithm>

static constexpr int mostShown = 500; // lines of the preview; all are replaced

ReplaceDialog::ReplaceDialog(
    const QVector<SearchedCell>& all, const QVector<SearchedCell>& selected, QWidget* parent)
    : QDialog(parent)
    , all_(all)
    , selected_(selected)
    , what_(new QLineEdit(this))
    , with_(new QLineEdit(this))
    , caseMatters_(new QCheckBox(QStringLiteral("С учётом &регистра"), this))
    , wholeCell_(new QCheckBox(QStringLiteral("Ячейка &целиком"), this))
    , onlySelected_(new QCheckBox(QStringLiteral("Только в &выделенном"), this))
    , preview_(new QTableWidget(0, 3, this))
    , count_(new QLabel(this))
    , buttons_(new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel, this))
{
    setWindowTitle(QStringLiteral("Замена"));
    what_->setObjectName(QStringLiteral("replaceWhat"));
    with_->setObjectName(QStringLiteral("replaceWith"));
    onlySelected_->setVisible(!selected_.isEmpty());
    onlySelected_->setChecked(!selected_.isEmpty());
    preview_->setHorizontalHeaderLabels(
        {QStringLiteral("Где"), QStringLiteral("Сейчас"), QStringLiteral("Будет")});
    preview_->horizontalHeader()->setSectionResizeMode(QHeaderView::Stretch);
    preview_->verticalHeader()->hide();
    preview_->setEditTriggers(QTableWidget::NoEditTriggers);
    preview_->setFocusPolicy(Qt::NoFocus);
    buttons_->button(QDialogButtonBox::Ok)->setText(QStringLiteral("Заменить всё"));
    buttons_->button(QDialogButtonBox::Cancel)->setText(QStringLiteral("Отмена"));

    auto* lines = new QFormLayout;
    lines->addRow(QStringLiteral("&Найти:"), what_);
    lines->addRow(QStringLiteral("&Заменить на:"), with_);
    auto* layout = new QVBoxLayout(this);
    layout->addLayout(lines);
    for (QCheckBox* box : {caseMatters_, wholeCell_, onlySelected_}) {
        layout->addWidget(box);
        connect(box, &QCheckBox::toggled, this, &ReplaceDialog::search);
    }
    layout->addWidget(preview_, 1);
    layout->addWidget(count_);
    layout->addWidget(buttons_);
    connect(what_, &QLineEdit::textChanged, this, &ReplaceDialog::search);
    connect(with_, &QLineEdit::textChanged, this, &ReplaceDialog::search);
    connect(buttons_, &QDialogButtonBox::accepted, this, &QDialog::accept);
    connect(buttons_, &QDialogButtonBox::rejected, this, &QDialog::reject);
    resize(620, 460);
    search();
}

void ReplaceDialog::search()
{
    const Qt::CaseSensitivity sensitivity =
        caseMatters_->isChecked() ? Qt::CaseSensitive : Qt::CaseInsensitive;
    const QString what = what_->text();
    found_.clear();
    // Nothing, as the whole cell: fills the empty ones.
    if (!what.isEmpty() || wholeCell_->isChecked())
        for (SearchedCell cell : onlySelected_->isChecked() ? selected_ : all_) {
            cell.replaced = cell.text;
            if (!wholeCell_->isChecked())
                cell.replaced.replace(what, with_->text(), sensitivity);
            else if (cell.text.compare(what, sensitivity) == 0)
                cell.replaced = with_->text();
            if (cell.replaced != cell.text)
                found_.append(cell);
        }
    const int shown = std::min(found_.size(), mostShown);
    preview_->setRowCount(shown);
    for (int row = 0; row < shown; ++row) {
        preview_->setItem(row, 0, new QTableWidgetItem(found_[row].place));
        preview_->setItem(row, 1, new QTableWidgetItem(found_[row].text));
        preview_->setItem(row, 2, new QTableWidgetItem(found_[row].replaced));
    }
    count_->setText(found_.isEmpty() ? QStringLiteral("Ничего не изменится.")
            : found_.size() > mostShown
            ? QStringLiteral("Изменится ячеек: %1; показаны первые %2.").arg(found_.size()).arg(mostShown)
            : QStringLiteral("Изменится ячеек: %1.").arg(found_.size()));
    buttons_->button(QDialogButtonBox::Ok)->setEnabled(!found_.isEmpty());
}
