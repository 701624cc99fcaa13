#include "setup/setup_dialog.h"

#include "common/office_paper.h"
#include "common/typed_text.h"
#include "modules/isettings.h"
#include "modules/itellurix_controller.h"
#include "platform/files.h"
#include "setup/office_form.h"

#include <QComboBox>
#include <QDialogButtonBox>
#include <QDir>
#include <QEvent>
#include <QFormLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QListWidget>
#include <QMessageBox>
#include <QPushButton>
#include <QScrollArea>
#include <QStackedWidget>

#include <algorithm>

SetupDialog::SetupDialog(ITellurixController* controller)
    : controller_(controller)
    , list_(new QListWidget(this))
    , pages_(new QStackedWidget(this))
{
    setWindowTitle(QStringLiteral("Настройка программы"));
    resize(980, 620);
    for (const SettingPage& page : settingPages()) {
        list_->addItem(QString::fromStdWString(std::wstring(page.title)));
        pages_->addWidget(makePage(page));
    }
    list_->setSpacing(3);
    list_->setFixedWidth(list_->sizeHintForColumn(0) + 28);
    connect(list_, &QListWidget::currentRowChanged, pages_, &QStackedWidget::setCurrentIndex);
    list_->setCurrentRow(0);

    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel, this);
    buttons->button(QDialogButtonBox::Cancel)->setText(QStringLiteral("Отмена"));
    auto* reset = buttons->addButton(QStringLiteral("Сбросить страницу"), QDialogButtonBox::ResetRole);
    reset->setToolTip(QStringLiteral("Вернуть этой странице исходные значения"));
    connect(reset, &QPushButton::clicked, this, &SetupDialog::resetPage);
    connect(buttons, &QDialogButtonBox::accepted, this, &SetupDialog::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &SetupDialog::reject);

    auto* middle = new QHBoxLayout;
    middle->addWidget(list_);
    middle->addWidget(pages_, 1);
    auto* layout = new QVBoxLayout(this);
    layout->addLayout(middle, 1);
    layout->addWidget(buttons);
}

QWidget* SetupDialog::makePage(const SettingPage& page)
{
    ISettings& settings = *controller_->settings();
    auto* area = new QScrollArea(pages_);
    area->setWidgetResizable(true);
    area->setFrameShape(QFrame::NoFrame);
    auto* content = new QWidget(area);
    auto* form = new QFormLayout(content);
    form->setLabelAlignment(Qt::AlignLeft | Qt::AlignVCenter);
    form->setHorizontalSpacing(24);
    form->setFieldGrowthPolicy(QFormLayout::ExpandingFieldsGrow);
    for (const SettingRow& row : page.rows) {
        SettingEditor editor = makeSettingEditor(row, *accessOf(row.key), content);
        editor.show(editor.access->read(settings));
        auto* label = new QLabel(QString::fromWCharArray(row.label), content);
        label->setBuddy(editor.widget);
        label->setToolTip(editor.widget->toolTip());
        form->addRow(label, editor.widget);
        if (row.key == "typeObject")
            editor.widget->setEnabled(settings.isShowTypeObject() != 0);
        editors_.push_back(std::move(editor));
    }
    if (page.title == generalPage)
        addDecimalMark(form, content);
    if (page.title == officePage) {
        if (isOfficeOfProject(programFolder(), openProjectFolder(*controller_))) {
            auto* note = new QLabel(
                QStringLiteral("Показаны сведения, приложенные к открытому проекту. Измените их — и они "
                               "станут вашими для всех проектов."),
                content);
            note->setWordWrap(true);
            form->insertRow(0, note);
        }
        office_ = new OfficeForm(form, content);
        office_->show(officeInForce(programFolder(), openProjectFolder(*controller_)));
        shownOffice_ = office_->office();
    }
    area->setWidget(content);
    return area;
}

// It stands among the view settings, since it concerns other programs of this computer alone.
void SetupDialog::addDecimalMark(QFormLayout* form, QWidget* parent)
{
    decimalMark_ = new QComboBox(parent);
    decimalMark_->setObjectName(QStringLiteral("decimalMark"));
    decimalMark_->addItem(QStringLiteral("запятая: 3,6"), true);
    decimalMark_->addItem(QStringLiteral("точка: 3.6"), false);
    decimalMark_->setCurrentIndex(decimalMark_->findData(copiesDecimalComma()));
    decimalMark_->setToolTip(QStringLiteral(
        "Русская таблица принимает «3.6» за дату. Точку выбирайте, если ваша таблица ждёт её"));
    auto* label = new QLabel(QStringLiteral("Дробная часть при копировании и в CSV"), parent);
    label->setBuddy(decimalMark_);
    label->setToolTip(decimalMark_->toolTip());
    form->addRow(label, decimalMark_);
}

SettingEditor& SetupDialog::editorOf(std::string_view key)
{
    return *std::find_if(editors_.begin(), editors_.end(), [=](const SettingEditor& editor) {
        return editor.access->key == key;
    });
}

void SetupDialog::resetPage()
{
    const SettingPage& page = settingPages()[static_cast<std::size_t>(list_->currentRow())];
    for (const SettingRow& row : page.rows)
        if (SettingEditor& editor = editorOf(row.key);
            editor.access->initial.isValid() && editor.widget->isEnabled())
            editor.show(editor.access->initial);
    if (page.title == generalPage)
        decimalMark_->setCurrentIndex(0);
    if (page.title == officePage)
        office_->show(emptyOffice());
}

bool SetupDialog::makeProjectsFolder()
{
    const SettingEditor& editor = editorOf("projectPath");
    const std::wstring folder = editor.value().toString().toStdWString();
    const QString shown = QString::fromStdWString(systemPath(folder));
    QString problem = QStringLiteral("Нужен полный путь папки.");
    if (!QDir::isRelativePath(shown)) {
        const FileResult made = createFolder(folder + L"\\Проекты");
        if (made)
            return true;
        problem = QString::fromStdWString(made.reason);
    }
    // The folder may be out of reach for now; the other settings can be changed all the same.
    if (editor.value() == editor.access->read(*controller_->settings()))
        return true;
    list_->setCurrentRow(0);
    QMessageBox::warning(this,
        windowTitle(),
        QStringLiteral("В рабочей папке не создаётся папка «Проекты»:\n%1\n\n%2\n\nВыберите папку, в которую "
                       "можно записывать.")
            .arg(shown, problem));
    editor.widget->setFocus();
    return false;
}

bool SetupDialog::storeOffice()
{
    // What came with a project does not become the user's own by a look at it.
    const Office after = office_->office();
    if (after == shownOffice_)
        return true;
    const FileResult written = writeOffice(ownOfficePath(), after);
    if (written)
        return true;
    return QMessageBox::warning(this,
               windowTitle(),
               QStringLiteral("Сведения страницы «Документы» не сохраняются:\n%1\n\n%2\n\nСохранить "
                              "остальные настройки?")
                   .arg(QString::fromStdWString(ownOfficePath()), QString::fromStdWString(written.reason)),
               QMessageBox::Yes | QMessageBox::No)
        == QMessageBox::Yes;
}

void SetupDialog::accept()
{
    if (!makeProjectsFolder() || !storeOffice())
        return;
    setCopiesDecimalComma(decimalMark_->currentData().toBool());
    // All of them and in the order of the store: a background that is set blackens its colour first.
    for (const SettingAccess& access : settingAccesses()) {
        const auto editor = std::find_if(editors_.begin(),
            editors_.end(),
            [&](const SettingEditor& candidate) { return candidate.access == &access; });
        if (editor != editors_.end())
            access.write(*controller_->settings(), editor->value());
    }
    QDialog::accept();
}
