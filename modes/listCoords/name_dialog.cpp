#include "listCoords/name_dialog.h"

#include <QDialogButtonBox>
#include <QFormLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>

NameDialog::NameDialog(const ProjectHead& present, ISettings* settings, QWidget* parent)
    : QDialog(parent)
    , present_(present)
    , settings_(settings)
    , code_(new QLineEdit)
    , title_(new QLineEdit)
    , file_(new QLineEdit)
    , problem_(new QLabel)
    , accept_(new QPushButton(QStringLiteral("Назвать")))
{
    setWindowTitle(QStringLiteral("Новый проект"));
    setMinimumWidth(460);
    code_->setObjectName(QStringLiteral("newProjectCode"));
    title_->setObjectName(QStringLiteral("newProjectTitle"));
    file_->setObjectName(QStringLiteral("newProjectFile"));
    code_->setPlaceholderText(QString::fromStdWString(present.code));
    title_->setPlaceholderText(QString::fromStdWString(present.title));
    problem_->setWordWrap(true);
    problem_->setStyleSheet(QStringLiteral("color: #8a2b16;"));
    // Two lines are kept free, so that the dialog does not jump while a name is typed.
    problem_->setMinimumHeight(2 * fontMetrics().height());
    problem_->setAlignment(Qt::AlignTop);

    auto* layout = new QFormLayout(this);
    layout->addRow(new QLabel(QStringLiteral("Назовите проект, чтобы сохранить его на своём месте.")));
    layout->addRow(QStringLiteral("&Шифр:"), code_);
    layout->addRow(QStringLiteral("&Наименование:"), title_);
    layout->addRow(QStringLiteral("&Файл:"), file_);
    layout->addRow(problem_);
    auto* buttons = new QDialogButtonBox;
    buttons->addButton(accept_, QDialogButtonBox::AcceptRole);
    buttons->addButton(QStringLiteral("Позже"), QDialogButtonBox::RejectRole);
    layout->addRow(buttons);
    accept_->setDefault(true);

    connect(code_, &QLineEdit::textEdited, this, &NameDialog::followCode);
    connect(file_, &QLineEdit::textEdited, this, &NameDialog::check);
    connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    check();
}

ProjectHead NameDialog::head() const
{
    ProjectHead head = present_;
    if (!code_->text().isEmpty())
        head.code = code_->text().toStdWString();
    if (!title_->text().isEmpty())
        head.title = title_->text().toStdWString();
    head.file = withProjectSuffix(file_->text()).toStdWString();
    return head;
}

void NameDialog::followCode()
{
    if (!file_->isModified())
        file_->setText(proposedFileName(code_->text()));
    check();
}

void NameDialog::check()
{
    const QString problem = file_->text().isEmpty() && !file_->isModified()
        ? QStringLiteral("Введите шифр: имя файла получится из него.")
        : fileNameProblem(withProjectSuffix(file_->text()), present_, *settings_);
    problem_->setText(problem);
    accept_->setEnabled(problem.isEmpty());
}
