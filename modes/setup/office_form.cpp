#include "setup/office_form.h"

#include "platform/files.h"
#include "setup/logo_edit.h"

#include <QCheckBox>
#include <QComboBox>
#include <QCoreApplication>
#include <QFormLayout>
#include <QGridLayout>
#include <QLabel>
#include <QLineEdit>

namespace
{

constexpr int mostPeople = 6;
constexpr int mostAgreed = 2;

QComboBox* makeWords(QWidget* parent, const QStringList& words)
{
    auto* box = new QComboBox(parent);
    box->setEditable(true);
    box->setInsertPolicy(QComboBox::NoInsert);
    box->addItems(words);
    return box;
}

} // namespace

std::wstring programFolder()
{
    return QCoreApplication::applicationDirPath().toStdWString();
}

std::wstring ownOfficePath()
{
    return officePath(programFolder());
}

OfficeForm::OfficeForm(QFormLayout* form, QWidget* parent)
    : QObject(parent)
    , company_(addText(form,
          QStringLiteral("Организация"),
          "officeCompany",
          QStringLiteral("В штампах и внизу страниц документов")))
    , city_(addText(form, QStringLiteral("Город"), "officeCity", QStringLiteral("На титульном листе отчета")))
    , logo_(new LogoEdit(parent))
    , stage_(makeWords(
          parent, {QStringLiteral("П"), QStringLiteral("Р"), QStringLiteral("ПР"), QStringLiteral("ИИ")}))
    , date_(new QLineEdit(parent))
    , signatures_(new QComboBox(parent))
    , hasFrame_(new QCheckBox(QStringLiteral("Рамка и штамп на страницах документов"), parent))
{
    logo_->setToolTip(QStringLiteral("Стоит вверху первой страницы документов"));
    form->addRow(QStringLiteral("Логотип"), logo_);
    stage_->setObjectName(QStringLiteral("officeStage"));
    stage_->setToolTip(
        QStringLiteral("Стадия проектирования в штампе: П — проектная, Р — рабочая документация"));
    form->addRow(QStringLiteral("Стадия"), stage_);
    date_->setObjectName(QStringLiteral("officeDate"));
    date_->setPlaceholderText(QStringLiteral("день вывода"));
    date_->setToolTip(QStringLiteral("Дата в графах штампа; пустая — день, когда документ выводится"));
    form->addRow(QStringLiteral("Дата в штампе"), date_);
    form->addRow(QStringLiteral("Исполнители"), makePeople(parent));
    form->addRow(QStringLiteral("Согласовано"), makeAgreed(parent));
    signatures_->setObjectName(QStringLiteral("officeSignatures"));
    signatures_->addItems({QStringLiteral("в штампе"),
        QStringLiteral("под таблицами"),
        QStringLiteral("в штампе и под таблицами"),
        QStringLiteral("нет")});
    form->addRow(QStringLiteral("Места подписей"), signatures_);
    hasFrame_->setObjectName(QStringLiteral("officeFrame"));
    hasFrame_->setToolTip(
        QStringLiteral("Форма 5 на первом листе, форма 6 на следующих; при выводе это можно "
                       "изменить для каждого документа"));
    form->addRow(QString(), hasFrame_);
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

QWidget* OfficeForm::makeAgreed(QWidget* parent)
{
    auto* box = new QWidget(parent);
    auto* grid = new QGridLayout(box);
    grid->setContentsMargins(0, 0, 0, 0);
    grid->setColumnStretch(1, 1);
    for (int row = 0; row < mostAgreed; ++row) {
        auto* role = makeWords(box,
            {QString(),
                QStringLiteral("Заказчик"),
                QStringLiteral("ГИП"),
                QStringLiteral("Гл. геолог"),
                QStringLiteral("Нач. отдела")});
        auto* name = new QLineEdit(box);
        role->setObjectName(QStringLiteral("officeAgreedRole%1").arg(row));
        role->setAccessibleName(QStringLiteral("Должность согласующего"));
        name->setObjectName(QStringLiteral("officeAgreed%1").arg(row));
        name->setAccessibleName(QStringLiteral("Фамилия согласующего"));
        grid->addWidget(role, row, 0);
        grid->addWidget(name, row, 1);
        agreed_.push_back({role, name});
    }
    return box;
}

std::vector<Office::Person> OfficeForm::peopleOf(const std::vector<PersonRow>& rows)
{
    std::vector<Office::Person> people;
    for (const PersonRow& row : rows)
        if (!row.role->currentText().isEmpty() || !row.name->text().isEmpty())
            people.push_back({row.role->currentText().toStdWString(), row.name->text().toStdWString()});
    return people;
}

void OfficeForm::showPeople(const std::vector<PersonRow>& rows, const std::vector<Office::Person>& people)
{
    for (std::size_t i = 0; i < rows.size(); ++i) {
        const bool isThere = i < people.size();
        rows[i].role->setCurrentText(isThere ? QString::fromStdWString(people[i].role) : QString());
        rows[i].name->setText(isThere ? QString::fromStdWString(people[i].name) : QString());
    }
}

Office OfficeForm::office() const
{
    Office office;
    office.company = company_->text().toStdWString();
    office.city = city_->text().toStdWString();
    office.stage = stage_->currentText().toStdWString();
    office.logo = logo_->file().toStdWString();
    office.date = date_->text().trimmed().toStdWString();
    office.hasFrame = hasFrame_->isChecked();
    office.signatures = static_cast<Office::Signatures>(signatures_->currentIndex());
    office.people = peopleOf(people_);
    office.agreed = peopleOf(agreed_);
    return office;
}

void OfficeForm::show(const Office& office)
{
    company_->setText(QString::fromStdWString(office.company));
    city_->setText(QString::fromStdWString(office.city));
    stage_->setCurrentText(QString::fromStdWString(office.stage));
    logo_->setFile(QString::fromStdWString(systemPath(office.logo)));
    date_->setText(QString::fromStdWString(office.date));
    signatures_->setCurrentIndex(office.signatures);
    hasFrame_->setChecked(office.hasFrame);
    showPeople(people_, office.people);
    showPeople(agreed_, office.agreed);
}
