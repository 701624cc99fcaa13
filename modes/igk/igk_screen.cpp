#include "igk/igk_screen.h"

#include "common/column_look.h"
#include "common/drawing_output.h"
#include "common/drawing_view.h"
#include "common/view_settings.h"
#include "core/base/mexception.h"
#include "dictionaries/report_language.h"
#include "igk/lane_list.h"
#include "modules/idb_hatch.h"
#include "modules/idb_igk_preset.h"
#include "modules/idbproject.h"
#include "modules/isettings.h"

#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QFormLayout>
#include <QInputDialog>
#include <QLabel>
#include <QListWidget>
#include <QMessageBox>
#include <QProgressDialog>
#include <QPushButton>
#include <QSettings>
#include <QSplitter>
#include <QVBoxLayout>

#include <algorithm>

static QString fromWide(const std::wstring& text)
{
    return QString::fromStdWString(text);
}

IgkScreen::IgkScreen(TX_Modes mode, ITellurixController* controller, QWidget* parent)
    : ModeScreen(mode, controller, parent)
    , points_(new QListWidget)
    , view_(new DrawingView)
    , presets_(new QComboBox)
    , scale_(new QComboBox)
    , sheet_(new QComboBox)
    , landscape_(new QCheckBox(QStringLiteral("Поперёк")))
    , strip_(new QCheckBox(QStringLiteral("Боковой штамп")))
    , sounding_(new QComboBox)
    , lanes_(new LaneList)
{
    if (controller->hatch())
        hatches_ = readHatches(controller->hatch()->getHatches());
    own_ = readUserPresets();
    auto* splitter = new QSplitter;
    splitter->addWidget(makePoints());
    splitter->addWidget(view_);
    splitter->addWidget(makeOptions());
    splitter->setStretchFactor(1, 1);
    keepSplitter(splitter, QStringLiteral("igk/splitter"), {150, 700, 260});
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(4, 4, 4, 4);
    layout->addWidget(splitter);
    points_->setObjectName(QStringLiteral("igk/points"));
    view_->setObjectName(QStringLiteral("igk/view"));
    lanes_->setObjectName(QStringLiteral("igk/lanes"));
    scale_->setObjectName(QStringLiteral("igk/scale"));
    points_->setAccessibleName(QStringLiteral("Выработки"));
    lanes_->setAccessibleName(QStringLiteral("Графы"));
    sounding_->setAccessibleName(QStringLiteral("Зондирование"));
    fillPresets();
    connect(points_, &QListWidget::currentRowChanged, this, [this] { drawChosen(); });
    for (QComboBox* box : {scale_, sheet_, sounding_})
        connect(box, qOverload<int>(&QComboBox::activated), this, [this] { drawChosen(); });
    for (QCheckBox* box : {landscape_, strip_})
        connect(box, &QCheckBox::toggled, this, [this] { drawChosen(); });
    connect(lanes_, &LaneList::lanesChanged, this, &IgkScreen::drawChosen);
    connect(presets_, qOverload<int>(&QComboBox::activated), this, &IgkScreen::choosePreset);
    connect(view_, &DrawingView::clicked, this, &IgkScreen::tellLayer);
}

QWidget* IgkScreen::makePoints()
{
    auto* panel = new QWidget;
    auto* layout = new QVBoxLayout(panel);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(new QLabel(QStringLiteral("Выработки")));
    layout->addWidget(points_);
    auto* all = new QPushButton(QStringLiteral("Все в файл…"));
    all->setToolTip(QStringLiteral("Колонки всех выработок: один PDF или файл на лист"));
    connect(all, &QPushButton::clicked, this, [this] { attempt([this] { drawAllToFile(); }); });
    layout->addWidget(all);
    return panel;
}

QWidget* IgkScreen::makeOptions()
{
    scale_->addItem(QStringLiteral("по листу"), 0);
    for (const int scale : columnScales())
        scale_->addItem(QStringLiteral("1:%1").arg(scale), scale);
    for (const SheetFormat& format : sheetFormats())
        sheet_->addItem(QString::fromWCharArray(format.name).replace(QLatin1Char('x'), QChar(0xD7)),
            QString::fromWCharArray(format.name));
    auto* panel = new QWidget;
    auto* layout = new QVBoxLayout(panel);
    layout->setContentsMargins(0, 0, 0, 0);
    auto* form = new QFormLayout;
    form->addRow(QStringLiteral("Заготовка"), presets_);
    form->addRow(QStringLiteral("Масштаб"), scale_);
    form->addRow(QStringLiteral("Лист"), sheet_);
    form->addRow(QString(), landscape_);
    form->addRow(QString(), strip_);
    form->addRow(QStringLiteral("Зондирование"), sounding_);
    layout->addLayout(form);
    layout->addWidget(new QLabel(QStringLiteral("Графы")));
    layout->addWidget(lanes_, 1);
    auto* save = new QPushButton(QStringLiteral("Сохранить заготовку…"));
    removal_ = new QPushButton(QStringLiteral("Удалить заготовку"));
    connect(save, &QPushButton::clicked, this, [this] { attempt([this] { savePreset(); }); });
    connect(removal_, &QPushButton::clicked, this, [this] { attempt([this] { removePreset(); }); });
    layout->addWidget(save);
    layout->addWidget(removal_);
    return panel;
}

// The program's presets, then the user's.
void IgkScreen::fillPresets()
{
    const QString before = presets_->currentText();
    presets_->clear();
    QString active;
    if (IDBIgkPreset* library = controller()->igkPreset()) {
        for (const auto& [name, preset] : library->getPresets())
            presets_->addItem(fromWide(name), false);
        active = fromWide(library->getActiveName());
    }
    for (const auto& [name, preset] : own_)
        presets_->addItem(name, true);
    if (presets_->count() == 0)
        presets_->addItem(QStringLiteral("Полная"), false);
    const QString kept = viewSettings()->value(QStringLiteral("igk/preset"), active).toString();
    presets_->setCurrentIndex(qMax(0, presets_->findText(before.isEmpty() ? kept : before)));
    choosePreset(presets_->currentIndex());
}

void IgkScreen::choosePreset(int row)
{
    const QString name = presets_->itemText(row);
    const bool isOwn = presets_->itemData(row).toBool();
    IgkPreset preset;
    for (const ColumnLane& lane : usualLanes())
        preset.items.push_back({static_cast<std::uint32_t>(lane.column), true, lane.isTurned});
    IDBIgkPreset* library = controller()->igkPreset();
    if (isOwn)
        preset = own_[name].preset;
    else if (library && library->hasPreset(name.toStdWString()))
        preset = library->getPresets().at(name.toStdWString());
    lanes_->setPreset(preset, knownLanguage(settings()->reportLanguage()));
    if (isOwn)
        lanes_->setWidths(own_[name].widths);
    removal_->setEnabled(isOwn);
    viewSettings()->setValue(QStringLiteral("igk/preset"), name);
    drawChosen();
}

void IgkScreen::savePreset()
{
    const QString name = QInputDialog::getText(this,
        QStringLiteral("Сохранить заготовку"),
        QStringLiteral("Имя заготовки:"),
        QLineEdit::Normal,
        presets_->currentData().toBool() ? presets_->currentText() : QString())
                             .trimmed();
    if (name.isEmpty())
        return;
    const int taken = presets_->findText(name);
    if (taken >= 0 && !presets_->itemData(taken).toBool())
        throw MException(L"Заготовка с этим именем поставляется с программой: выберите другое имя.");
    UserPresets changed = own_;
    changed[name] = {lanes_->preset(), lanes_->lanes()};
    writeUserPresets(changed);
    own_ = std::move(changed);
    fillPresets();
    presets_->setCurrentIndex(presets_->findText(name));
    choosePreset(presets_->currentIndex());
}

void IgkScreen::removePreset()
{
    UserPresets changed = own_;
    changed.erase(presets_->currentText());
    writeUserPresets(changed);
    own_ = std::move(changed);
    presets_->setCurrentIndex(0);
    fillPresets();
}

void IgkScreen::fillSoundings(IDBProject* project)
{
    const QVariant before = sounding_->currentData();
    sounding_->clear();
    sounding_->addItem(QStringLiteral("ближайшее"), QString());
    if (project)
        for (const auto& [key, rows] : project->getSoundings())
            sounding_->addItem(fromWide(key.pointName), fromWide(key.pointName));
    sounding_->setCurrentIndex(qMax(0, sounding_->findData(before)));
}

void IgkScreen::readProject(IDBProject* project)
{
    isReading_ = true;
    const QString before = points_->currentItem() ? points_->currentItem()->text() : QString();
    points_->clear();
    if (project)
        for (const std::wstring& name : columnPoints(*project))
            points_->addItem(fromWide(name));
    fillSoundings(project);
    const QList<QListWidgetItem*> same = points_->findItems(before, Qt::MatchExactly);
    points_->setCurrentRow(same.isEmpty() ? 0 : points_->row(same.front()));
    isReading_ = false;
    drawChosen();
}

void IgkScreen::becomeCurrent()
{
    tellActions(false, false);
    readIfStale();
    points_->setFocus();
}

void IgkScreen::settingsChanged()
{
    choosePreset(presets_->currentIndex());
}

void IgkScreen::printReport()
{
    view_->print();
}

std::wstring IgkScreen::chosenPoint() const
{
    return points_->currentItem() ? points_->currentItem()->text().toStdWString() : std::wstring();
}

ColumnLook IgkScreen::look() const
{
    ColumnLook look = columnLookOf(*settings(), project());
    look.sheet =
        sheetOf(sheetFormat(sheet_->currentData().toString().toStdWString()), landscape_->isChecked());
    look.scale = scale_->currentData().toInt();
    look.lanes = lanes_->lanes();
    look.hasSideStrip = strip_->isChecked();
    return look;
}

void IgkScreen::drawChosen()
{
    if (isReading_)
        return;
    const std::wstring point = chosenPoint();
    if (!project() || point.empty()) {
        view_->setPages({}, hatches_, QString());
        view_->setMessage(project()
                ? QStringLiteral("В проекте нет выработок.\nДобавьте точку в режиме «Ведомость "
                                 "координат» и опишите её слои.")
                : QStringLiteral("Проект не открыт."));
        return;
    }
    if (lanes_->lanes().empty()) {
        view_->setPages({}, hatches_, QString());
        view_->setMessage(QStringLiteral("Отметьте хотя бы одну графу."));
        return;
    }
    attempt([&] {
        const Color paper = columnPaper(*settings());
        view_->canvas().setPaper({paper.red, paper.green, paper.blue});
        const std::wstring sounding = sounding_->currentData().toString().toStdWString();
        view_->setPages(columnOf(columnData(*project(), point, sounding), look()),
            hatches_,
            QStringLiteral("Колонка %1").arg(fromWide(point)));
    });
}

void IgkScreen::drawAllToFile()
{
    IDBProject* open = project();
    if (!open)
        return;
    constexpr int appearsAfter = 500; // ms
    QProgressDialog progress(
        QStringLiteral("Построение колонок…"), QStringLiteral("Прервать"), 0, points_->count(), this);
    progress.setWindowTitle(QStringLiteral("Колонки"));
    progress.setWindowModality(Qt::WindowModal);
    progress.setMinimumDuration(appearsAfter);
    const std::wstring sounding = sounding_->currentData().toString().toStdWString();
    std::vector<Drawing> sheets;
    for (int row = 0; row < points_->count(); ++row) {
        progress.setValue(row);
        if (progress.wasCanceled())
            return;
        const std::wstring point = points_->item(row)->text().toStdWString();
        for (Drawing& sheet : columnOf(columnData(*open, point, sounding), look()))
            sheets.push_back(std::move(sheet));
    }
    progress.reset();
    if (!sheets.empty())
        saveDrawings(this, sheets, 0, hatches_, QStringLiteral("Колонки"));
}

void IgkScreen::tellLayer(qint64 id)
{
    view_->canvas().setCurrent(id);
    if (id == 0 || !project())
        return;
    for (const ColumnLayer& layer : columnData(*project(), chosenPoint()).layers)
        if (layer.id == id)
            say(QStringLiteral("Слой %1: до %2 м, %3")
                    .arg(id)
                    .arg(fromWide(layer.bottomText), fromWide(layer.description)));
}
