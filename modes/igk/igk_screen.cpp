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
#include "plots/column_group.h"
#include "site/by_point.h"

#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QDesktopServices>
#include <QFormLayout>
#include <QInputDialog>
#include <QLabel>
#include <QListWidget>
#include <QMessageBox>
#include <QProgressDialog>
#include <QPushButton>
#include <QSettings>
#include <QSignalBlocker>
#include <QSplitter>
#include <QUrl>
#include <QVBoxLayout>

#include <algorithm>
#include <utility>

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
    , block_(new QComboBox)
    , strip_(new QCheckBox(QStringLiteral("Боковой штамп и «Согласовано»")))
    , several_(new QCheckBox(QStringLiteral("Несколько колонок на листе")))
    , sounding_(new QComboBox)
    , lanes_(new LaneList)
{
    if (controller->hatch())
        hatches_ = readHatches(controller->hatch()->getHatches());
    own_ = readUserPresets();
    wasFormCol_ = settings()->isFormColIgk();
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
    points_->setUniformItemSizes(true); // or each of ten thousand names is measured before the first is shown
    lanes_->setAccessibleName(QStringLiteral("Графы"));
    sounding_->setAccessibleName(QStringLiteral("Зондирование"));
    fillPresets();
    const std::pair<QComboBox*, const char*> choices[] = {
        {scale_, "igk/scale"}, {sheet_, "igk/sheet"}, {block_, "igk/block"}};
    for (const auto& [box, name] : choices)
        keepChoice(box, QLatin1String(name));
    keepChoice(landscape_, QStringLiteral("igk/landscape"));
    keepChoice(strip_, QStringLiteral("igk/strip"));
    connect(points_, &QListWidget::currentRowChanged, this, [this] { drawChosen(); });
    for (QComboBox* box : {scale_, sheet_, block_, sounding_})
        connect(box, qOverload<int>(&QComboBox::activated), this, [this] { drawChosen(); });
    for (QCheckBox* box : {landscape_, strip_, several_})
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
    block_->addItem(QStringLiteral("основной, форма 3"), static_cast<int>(TitleBlock::Drawing));
    block_->addItem(QStringLiteral("текстовый, форма 5"), static_cast<int>(TitleBlock::Text));
    block_->addItem(QStringLiteral("узкий, форма 6"), static_cast<int>(TitleBlock::Following));
    block_->addItem(QStringLiteral("без штампа"), static_cast<int>(TitleBlock::None));
    block_->setToolTip(QStringLiteral("На первом листе; на следующих — узкий"));
    auto* panel = new QWidget;
    auto* layout = new QVBoxLayout(panel);
    layout->setContentsMargins(0, 0, 0, 0);
    auto* form = new QFormLayout;
    form->addRow(QStringLiteral("Заготовка"), presets_);
    form->addRow(QStringLiteral("Масштаб"), scale_);
    form->addRow(QStringLiteral("Лист"), sheet_);
    form->addRow(QString(), landscape_);
    form->addRow(QStringLiteral("Штамп"), block_);
    form->addRow(QString(), strip_);
    several_->setObjectName(QStringLiteral("igk/several"));
    several_->setToolTip(
        QStringLiteral("Рядом, сколько задано в настройках и сколько читается на листе этой ширины"));
    form->addRow(QString(), several_);
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
    checkSeveral();
    viewSettings()->setValue(QStringLiteral("igk/preset"), name);
    drawChosen();
}

void IgkScreen::checkSeveral()
{
    const QSignalBlocker quiet(several_);
    several_->setChecked(settings()->isFormColIgk() || presetHasSeveral(presets_->currentText()));
}

// Mode 1 of a preset: columns beside each other.
bool IgkScreen::presetHasSeveral(const QString& name) const
{
    const auto own = own_.find(name);
    if (own != own_.end())
        return own->second.preset.mode == 1;
    IDBIgkPreset* library = controller()->igkPreset();
    return library && library->isMode1(name.toStdWString());
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
    changed[name] = {lanes_->preset(), lanes_->allLanes()};
    changed[name].preset.mode = several_->isChecked() ? 1 : 0;
    writeUserPresets(changed);
    own_ = std::move(changed);
    fillPresets();
    presets_->setCurrentIndex(presets_->findText(name));
    choosePreset(presets_->currentIndex());
}

void IgkScreen::removePreset()
{
    const QString name = presets_->currentText();
    if (QMessageBox::question(this,
            QStringLiteral("Удалить заготовку"),
            QStringLiteral("Удалить заготовку «%1»? Вернуть её будет нельзя.").arg(name))
        != QMessageBox::Yes)
        return;
    UserPresets changed = own_;
    changed.erase(name);
    writeUserPresets(changed);
    own_ = std::move(changed);
    presets_->setCurrentIndex(0);
    fillPresets();
}

void IgkScreen::fillSoundings(IDBProject* project)
{
    QStringList names;
    if (project)
        for (const auto* sounding : inReadingOrder(project->getSoundings()))
            names.append(fromWide(sounding->first.pointName));
    if (sounding_->count() > 0 && names == soundingNames_)
        return;
    soundingNames_ = names;
    const QVariant before = sounding_->currentData();
    sounding_->clear();
    sounding_->addItem(QStringLiteral("ближайшее"), QString());
    for (const QString& name : names)
        sounding_->addItem(name, name);
    sounding_->setCurrentIndex(qMax(0, sounding_->findData(before)));
}

// Mostly there are the same points as before, and the chosen one stays.
void IgkScreen::fillPoints(IDBProject* project)
{
    QStringList names;
    if (project)
        for (const std::wstring& name : columnPoints(*project))
            names.append(fromWide(name));
    if (names == pointNames_)
        return;
    const QString before = points_->currentItem() ? points_->currentItem()->text() : QString();
    pointNames_ = names;
    points_->clear();
    points_->addItems(names);
    points_->setCurrentRow(qMax(0, names.indexOf(before)));
}

void IgkScreen::readProject(IDBProject* project)
{
    isReading_ = true;
    fillPoints(project);
    fillSoundings(project);
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
    // The columns as the user has them now, with or without a preset.
    lanes_->setLanguage(knownLanguage(settings()->reportLanguage()));
    if (settings()->isFormColIgk() != wasFormCol_)
        checkSeveral();
    wasFormCol_ = settings()->isFormColIgk();
    drawChosen();
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
    ColumnLook look = columnLookOf(*controller());
    look.sheet =
        sheetOf(sheetFormat(sheet_->currentData().toString().toStdWString()), landscape_->isChecked());
    look.scale = scale_->currentData().toInt();
    look.lanes = lanes_->lanes();
    look.firstBlock = static_cast<TitleBlock>(block_->currentData().toInt());
    look.nextBlock = look.firstBlock == TitleBlock::None ? TitleBlock::None : TitleBlock::Following;
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
        const int row = points_->currentRow();
        const int count =
            several_->isChecked() ? columnsOnSheet(look(), settings()->formColNumberColIgk()) : 1;
        const QString name = count > 1 ? QStringLiteral("Колонки с %1").arg(fromWide(point))
                                       : QStringLiteral("Колонка %1").arg(fromWide(point));
        view_->setPages(sheetsOf(row, qMin(count, points_->count() - row), {}), hatches_, name);
    });
}

std::vector<Drawing> IgkScreen::sheetsOf(
    int firstRow, int count, const std::function<bool(int done)>& goesOn) const
{
    const std::wstring sounding = sounding_->currentData().toString().toStdWString();
    const ColumnLook wanted = look();
    const int perSheet = settings()->formColNumberColIgk();
    const bool isGroup = several_->isChecked() && columnsOnSheet(wanted, perSheet) > 1;
    std::vector<ColumnData> columns;
    std::vector<Drawing> sheets;
    for (int row = firstRow; row < firstRow + count; ++row) {
        if (goesOn && !goesOn(row))
            return {};
        columns.push_back(columnData(*project(), points_->item(row)->text().toStdWString(), sounding));
        if (isGroup)
            continue;
        for (Drawing& sheet : columnOf(columns.back(), wanted))
            sheets.push_back(std::move(sheet));
    }
    return isGroup ? columnsSideBySide(columns, wanted, perSheet) : sheets;
}

void IgkScreen::drawAllToFile()
{
    if (!project() || points_->count() == 0 || lanes_->lanes().empty())
        return say(QStringLiteral("Выводить нечего: нет выработок или не отмечена ни одна графа."));
    constexpr int appearsAfter = 500; // ms
    QProgressDialog progress(
        QStringLiteral("Построение колонок…"), QStringLiteral("Прервать"), 0, points_->count(), this);
    progress.setWindowTitle(QStringLiteral("Колонки"));
    progress.setWindowModality(Qt::WindowModal);
    progress.setMinimumDuration(appearsAfter);
    const std::vector<Drawing> sheets = sheetsOf(0, points_->count(), [&progress](int done) {
        progress.setValue(done);
        return !progress.wasCanceled();
    });
    progress.reset();
    if (sheets.empty())
        return;
    const QString file = saveDrawings(this, sheets, 0, hatches_, QStringLiteral("Колонки"));
    // The file stays open for the user unless he has it closed.
    if (!file.isEmpty() && !settings()->isCloseFileIgk())
        QDesktopServices::openUrl(QUrl::fromLocalFile(file));
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
