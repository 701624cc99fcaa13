#include "chemistry/aggressiveness_page.h"

#include "chemistry/chemistry_setup.h"
#include "common/mode_screen.h"
#include "common/report_page.h"
#include "dictionaries/report_language.h"
#include "modules/idbproject.h"
#include "modules/isettings.h"
#include "site/chemistry.h"

#include <QComboBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QVBoxLayout>

#include <algorithm>

AggressivenessPage::AggressivenessPage(ModeScreen& screen)
    : screen_(screen)
{
    auto* choices = new QHBoxLayout;
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 8, 0, 0);
    layout->addLayout(choices);
    cement_ =
        addChoice("cement", QStringLiteral("Цемент:"), QStringLiteral("По нему берутся пределы сульфатов"));
    cover_ = addChoice("cover",
        QStringLiteral("Защитный слой:"),
        QStringLiteral("Толщина бетона над арматурой, для пределов хлоридов"));
    filtration_ = addChoice("filtration",
        QStringLiteral("Фильтрация:"),
        QStringLiteral("Коэффициент фильтрации грунта, для хлоридов воды"));
    edition_ = addChoice("edition",
        QStringLiteral("Хлориды воды:"),
        QStringLiteral("Редакция норм, по которой оценивается действие на арматуру"));
    choices->addStretch(1);
    fillChoices();
    page_ = new ReportPage(
        [this](IDBProject& project) {
            return chemistryDocument(project, knownLanguage(screen_.settings()->reportLanguage()));
        },
        QStringLiteral("Анализов нет: внесите их на страницах «Вода» и «Грунт»."),
        this);
    layout->addWidget(page_, 1);
    setFocusProxy(page_);
}

QComboBox* AggressivenessPage::addChoice(const char* name, const QString& label, const QString& tip)
{
    auto* text = new QLabel(label, this);
    auto* box = new QComboBox(this);
    box->setObjectName(QLatin1String(name));
    box->setAccessibleName(QString(label).remove(QLatin1Char(':')));
    box->setToolTip(tip);
    text->setBuddy(box);
    auto* choices = static_cast<QHBoxLayout*>(layout()->itemAt(0)->layout());
    choices->addWidget(text);
    choices->addWidget(box);
    choices->addSpacing(12);
    connect(box, QOverload<int>::of(&QComboBox::activated), this, &AggressivenessPage::choose);
    return box;
}

void AggressivenessPage::fillChoices()
{
    const AggressivenessLimits& limits = limitsInUse();
    for (const std::wstring& cement : knownCements(limits))
        cement_->addItem(QString::fromStdWString(cement), QString::fromStdWString(cement));
    const std::vector<int> inWater = knownCovers(limits, true);
    const std::vector<int> inSoil = knownCovers(limits, false);
    for (const int cover : inSoil) {
        const bool isBoth = std::find(inWater.begin(), inWater.end(), cover) != inWater.end();
        cover_->addItem(
            isBoth ? QStringLiteral("%1 мм").arg(cover) : QStringLiteral("%1 мм (только грунт)").arg(cover),
            cover);
    }
    filtration_->addItem(QStringLiteral("Кф от 0,1 м/сут"), true);
    filtration_->addItem(QStringLiteral("Кф до 0,1 м/сут"), false);
    edition_->addItem(QStringLiteral("СП 28.13330.2017"), false);
    edition_->addItem(QStringLiteral("СНиП 2.03.11-85"), true);
}

void AggressivenessPage::read(IDBProject* project)
{
    for (QComboBox* box : {cement_, cover_, filtration_, edition_})
        box->setEnabled(project);
    const ProtectionChoice choice = project ? protectionChoice(*project) : ProtectionChoice();
    const auto show = [](QComboBox* box, const QVariant& value, const QString& text) {
        // What the lists do not know stands in the project all the same.
        if (box->findData(value) < 0)
            box->addItem(text, value);
        box->setCurrentIndex(box->findData(value));
    };
    const QString cement = QString::fromStdWString(choice.cement);
    show(cement_, cement, cement);
    show(cover_, choice.coverMm, QStringLiteral("%1 мм (нет в таблицах)").arg(choice.coverMm));
    show(filtration_, choice.isFiltering, {});
    show(edition_, choice.isOldEdition, {});
    page_->read(project);
}

std::optional<Document> AggressivenessPage::report()
{
    return page_->report();
}

void AggressivenessPage::choose()
{
    IDBProject* project = screen_.project();
    if (!project)
        return;
    ProtectionChoice choice = protectionChoice(*project);
    const std::wstring before = protectionText(choice);
    choice.cement = cement_->currentData().toString().toStdWString();
    choice.coverMm = cover_->currentData().toInt();
    choice.isFiltering = filtration_->currentData().toBool();
    choice.isOldEdition = edition_->currentData().toBool();
    if (protectionText(choice) == before)
        return;
    const NumberedLinks links = project->getNumberedLinks();
    screen_.change<NumberedLinks>(
        [](IDBProject& open, const NumberedLinks& state) { open.setNumberedLinks(state); },
        links,
        withProtectionChoice(links, choice));
}
