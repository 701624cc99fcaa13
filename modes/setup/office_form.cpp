#include "setup/office_form.h"

#include <QComboBox>
#include <QCoreApplication>
#include <QFormLayout>
#include <QGridLayout>
#include <QLabel>
#include <QLineEdit>

namespace
{

constexpr int mostPeople = 6;

QComboBox* makeWords(QWidget* parent, const QStringList& words)
{
    auto* box = new QComboBox(parent);
    box->setEditable(true);
    box->setInsertPolicy(QComboBox::NoInsert);
    box->addItems(words);
    return box;
}

} // namespace

std::wstring ownOfficePath()
{
    return officePath(QCoreApplication::applicationDirPath().toStdWString());
}

OfficeForm::OfficeForm(QFormLayout* form, QWidget* parent)
    : QObject(parent)
    , company_(addText(form,
          QStringLiteral("Организация"),
          "officeCompany",
          QStringLiteral("В штампах и внизу страниц документов")))
    , city_(addText(form, QStringLiteral("Город"), "officeCity", QStringLiteral("На титульном листе отчета")))
    , stage_(makeWords(
          parent, {QStringLiteral("П"), QStringLiteral("Р"), QStringLiteral("ПР"), QStringLiteral("ИИ")}))
    , signatures_(new QComboBox(parent))
{
    stage_->setObjectName(QStringLiteral("officeStage"));
    stage_->setToolTip(
        QStringLiteral("Стадия проектирования в штампе: П — проектная, Р — рабочая документация"));
    form->addRow(QStringLiteral("Стадия"), stage_);
    form->addRow(QStringLiteral("Исполнители"), makePeople(parent));
    signatures_->setObjectName(QStringLiteral("officeSignatures"));
    signatures_->addItems({QStringLiteral("в штампе"),
        QStringLiteral("под таблицами"),
        QStringLiteral("в штампе и под таблицами"),
        QStringLiteral("нет")});
    form->addRow(QStringLiteral("Места подписей"), signatures_);
}

QLineEdit* OfficeForm::addText(QFormLayout* form, const QString& label, const char* name, const QString& tip)
{
    auto* edit = new QLineEdit(form->parentWidget());
    edit->setObjectName(QString::fromLatin1(name));
    edit->setToolTip(tip);
    form->addRow(label, edit);
    return edit;
}

QWidget* OfficeForm::makePeople(QWidget* parent)
{
    auto* box = new QWidget(parent);
    auto* grid = new QGridLayout(box);
    grid->setContentsMargins(0, 0, 0, 0);
    grid->setColumnStretch(1, 1);
    const QStringList roles{QString(),
        QStringLiteral("Разработал"),
        QStringLiteral("Выполнил"),
        QStringLiteral("Проверил"),
        QStringLiteral("Гл. геолог"),
        QStringLiteral("Нач. отдела"),
        QStringLiteral("Н. контр."),
        QStringLiteral("ГИП"),
        QStringLiteral("Утвердил")};
    for (int row = 0; row < mostPeople; ++row) {
        auto* role = makeWords(box, roles);
        auto* name = new QLineEdit(box);
        role->setObjectName(QStringLiteral("officeRole%1").arg(row));
        role->setAccessibleName(QStringLiteral("Должность"));
        name->setObjectName(QStringLiteral("officePerson%1").arg(row));
        name->setAccessibleName(QStringLiteral("Фамилия"));
        name->setPlaceholderText(row == 0 ? QStringLiteral("Фамилия И. О.") : QString());
        grid->addWidget(role, row, 0);
        grid->addWidget(name, row, 1);
        people_.push_back({role, name});
    }
    return box;
}

Office OfficeForm::office() const
{
    Office office;
    office.company = company_->text().toStdWString();
    office.city = city_->text().toStdWString();
    office.stage = stage_->currentText().toStdWString();
    office.signatures = static_cast<Office::Signatures>(signatures_->currentIndex());
    for (const PersonRow& row : people_)
        if (!row.role->currentText().isEmpty() || !row.name->text().isEmpty())
            office.people.push_back(
                {row.role->currentText().toStdWString(), row.name->text().toStdWString()});
    return office;
}

void OfficeForm::show(const Office& office)
{
    company_->setText(QString::fromStdWString(office.company));
    city_->setText(QString::fromStdWString(office.city));
    stage_->setCurrentText(QString::fromStdWString(office.stage));
    signatures_->setCurrentIndex(office.signatures);
    for (std::size_t i = 0; i < people_.size(); ++i) {
        const bool isThere = i < office.people.size();
        people_[i].role->setCurrentText(isThere ? QString::fromStdWString(office.people[i].role) : QString());
        people_[i].name->setText(isThere ? QString::fromStdWString(office.people[i].name) : QString());
    }
}
