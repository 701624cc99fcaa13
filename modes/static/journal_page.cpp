#include "static/journal_page.h"

#include "common/edit_grid.h"
#include "common/mode_screen.h"
#include "common/point_list.h"
#include "common/view_settings.h"
#include "core/base/calendar_date.h"
#include "dictionaries/report_language.h"
#include "dictionaries/sounding_captions.h"
#include "modules/isettings.h"
#include "reports/sounding_report.h"
#include "site/by_point.h"
#include "site/cells.h"
#include "static/import_dialog.h"
#include "static/journal_dialogs.h"
#include "static/readings_graph.h"
#include "static/sounding_colors.h"

#include <QComboBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QSplitter>
#include <QVBoxLayout>

#include <algorithm>

namespace
{

enum Column { DepthColumn, TipColumn, SleeveColumn, SideColumn, ElementColumn, RatioColumn, ColumnCount };

// More than a probe of the field meets: typed in kPa.
constexpr double greatestTip = 100.0;

QVector<GridColumn> journalColumns()
{
    return {
        {QStringLiteral("Глубина,\nм"), GridColumn::Number, 90},
        {QStringLiteral("qc,\nМПа"), GridColumn::Number, 90},
        {QStringLiteral("fs,\nкПа"), GridColumn::Number, 90},
        {QStringLiteral("Qs,\nкН"), GridColumn::Number, 90},
        {QStringLiteral("ИГЭ"), GridColumn::Text, 80},
        {QStringLiteral("Rf,\n%"), GridColumn::Number, 80, {}, true},
    };
}

// Numbers go into the store with a point.
std::wstring storedText(const QString& typed, int column)
{
    std::wstring text = typed.toStdWString();
    if (column != ElementColumn && readNumber(text))
        std::ranges::replace(text, L',', L'.');
    return text;
}

GridRow gridRow(const SoundingRow& row, qint64 id)
{
    GridRow made;
    made.id = id;
    made.cells = QVector<QString>(ColumnCount);
    made.cells[DepthColumn] = QString::fromStdWString(row.depth);
    for (int i = 0; i < 4; ++i)
        made.cells[i + 1] = QString::fromStdWString(row.cells[static_cast<std::size_t>(i)]);
    const Number ratio = frictionRatio(
        readNumber(row.cells[sounding_cell::Tip]), readNumber(row.cells[sounding_cell::Sleeve]));
    made.cells[RatioColumn] = QString::fromStdWString(numberText(ratio, 1));
    made.warnings = QVector<QString>(ColumnCount);
    return made;
}

SoundingRow soundingRow(const GridRow& row)
{
    SoundingRow made;
    made.depth = storedText(row.cells[DepthColumn], DepthColumn);
    for (int i = 0; i < 4; ++i)
        made.cells[static_cast<std::size_t>(i)] = storedText(row.cells[i + 1], i + 1);
    return made;
}

bool hasTipsInKilopascals(const std::vector<SoundingRow>& rows)
{
    return std::ranges::any_of(rows, [](const SoundingRow& row) {
        return readNumber(row.cells[sounding_cell::Tip]).value_or(0.0) > greatestTip;
    });
}

// A value without needless zeros behind its point.
std::wstring shortText(const Number& value)
{
    std::wstring text = numberText(value, 4);
    while (text.find(L'.') != std::wstring::npos && (text.back() == L'0' || text.back() == L'.'))
        text.pop_back();
    return text;
}

} // namespace

JournalPage::JournalPage(ModeScreen& screen, std::shared_ptr<SoundingChoice> choice)
    : screen_(screen)
    , choice_(std::move(choice))
    , points_(new PointList(this))
    , grid_(new EditGrid(QStringLiteral("static/journal"), journalColumns(), this))
    , graph_(new ReadingsGraph(this))
    , title_(new QLabel(this))
    , rig_(new QLineEdit(this))
    , date_(new QLineEdit(this))
    , instrument_(new QComboBox(this))
    , probe_(new QComboBox(this))
{
    grid_->setObjectName(QStringLiteral("journal"));
    grid_->setEmptyText(QStringLiteral("В журнале нет отсчётов.\nВставьте их из таблицы (Ctrl+V), "
                                       "импортируйте файл\nили начните вводить глубины."));
    grid_->setAccessibleName(QStringLiteral("Журнал зондирования"));
    graph_->setObjectName(QStringLiteral("readings"));
    layOut();
    setFocusProxy(grid_);
    connect(points_, &PointList::chosen, this, &JournalPage::choosePoint);
    connect(points_, &PointList::entered, grid_, [this] { grid_->setFocus(); });
    connect(grid_, &EditGrid::edited, this, &JournalPage::edit);
    connect(grid_, &EditGrid::currentRowChanged, graph_, &ReadingsGraph::setCurrentRow);
    connect(graph_, &ReadingsGraph::chosen, this, [this](qint64 row) {
        grid_->showRow(row, std::max(0, grid_->currentIndex().column()));
        grid_->setFocus();
    });
    connect(rig_, &QLineEdit::editingFinished, this, &JournalPage::storeHead);
    connect(date_, &QLineEdit::editingFinished, this, &JournalPage::storeHead);
    connect(instrument_, qOverload<int>(&QComboBox::activated), this, [this](int) { storeProbe(); });
    connect(probe_, qOverload<int>(&QComboBox::activated), this, [this](int) { storeProbe(); });
}

void JournalPage::layOut()
{
    auto* right = new QWidget(this);
    auto* rightLayout = new QVBoxLayout(right);
    rightLayout->setContentsMargins(0, 0, 0, 0);
    rightLayout->addWidget(makeHead());
    auto* readings = new QSplitter(Qt::Horizontal, right);
    readings->addWidget(grid_);
    readings->addWidget(graph_);
    keepSplitter(readings, QStringLiteral("static/readings"), {560, 420});
    rightLayout->addWidget(readings, 1);
    auto* splitter = new QSplitter(Qt::Horizontal, this);
    splitter->addWidget(points_);
    splitter->addWidget(right);
    splitter->setStretchFactor(1, 1);
    splitter->setChildrenCollapsible(false);
    keepSplitter(splitter, QStringLiteral("static/journal"), {180, 800});
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 8, 0, 0);
    layout->addWidget(splitter);
}

QWidget* JournalPage::makeHead()
{
    auto* head = new QWidget(this);
    auto* layout = new QVBoxLayout(head);
    layout->setContentsMargins(0, 0, 0, 0);
    title_->setTextFormat(Qt::PlainText);
    auto* fields = new QHBoxLayout;
    const auto add = [&](const char* name, QWidget* field, int stretch) {
        auto* label = new QLabel(QString::fromUtf8(name), head);
        label->setBuddy(field);
        fields->addWidget(label);
        fields->addWidget(field, stretch);
    };
    for (int i = 0; i < 3; ++i)
        instrument_->addItem(
            QString::fromStdWString(std::wstring(soundingInstruments.at(languageRussian, i))));
    probe_->addItem(QStringLiteral("I: конус и штанги (qc, Qs)"));
    probe_->addItem(QStringLiteral("II: конус и муфта (qc, fs)"));
    probe_->addItem(QStringLiteral("III: конус и муфта (qc, fs)"));
    date_->setMaximumWidth(110);
    date_->setPlaceholderText(QStringLiteral("дд.мм.гггг"));
    add("Установка и зонд:", rig_, 2);
    add("Дата:", date_, 0);
    add("Прибор:", instrument_, 1);
    add("Тип зонда:", probe_, 1);
    auto* acts = new QHBoxLayout;
    const auto button = [&](const char* text, const char* tip, void (JournalPage::*act)()) {
        auto* made = new QPushButton(QString::fromUtf8(text), head);
        made->setToolTip(QString::fromUtf8(tip));
        connect(made, &QPushButton::clicked, this, [this, act] {
            screen_.attempt([this, act] { (this->*act)(); });
        });
        acts->addWidget(made);
    };
    acts->addWidget(title_, 1);
    button("Глубины…", "Добавить строки с глубинами через равный шаг", &JournalPage::fillDepths);
    button("Силы в сопротивления…", "Разделить усилия, кН, на площади зонда", &JournalPage::convertForces);
    button("qc: кПа в МПа",
        "Перевести все qc больше 100 из килопаскалей в мегапаскали",
        &JournalPage::divideTips);
    button("Импорт…", "Взять отсчёты из файла CSV, TXT или GEF", &JournalPage::importFile);
    layout->addLayout(acts);
    layout->addLayout(fields);
    return head;
}

void JournalPage::read(IDBProject* project)
{
    isReading_ = true;
    setEnabled(project != nullptr);
    if (project) {
        readPoints(*project);
        readJournal(*project);
    } else {
        points_->setPoints({});
        grid_->setRows({});
        graph_->setReadings({}, {});
        title_->clear();
    }
    isReading_ = false;
}

void JournalPage::readPoints(IDBProject& project)
{
    std::map<std::wstring, int> counts;
    for (const auto& [key, rows] : project.getSoundings())
        counts[key.pointName] = static_cast<int>(rows.size());
    QVector<ListedPoint> points;
    for (const auto* point : inReadingOrder(project.getPointRegister())) {
        const PointKey& key = point->first;
        const auto counted = counts.find(key.pointName);
        if (key.pointKind != 3 && counted == counts.end())
            continue;
        points.append({QString::fromStdWString(key.pointName),
            key.pointKind,
            counted == counts.end() ? 0 : counted->second,
            false});
        if (counted != counts.end())
            counts.erase(counted);
    }
    for (const auto& [name, rows] : counts)
        points.append({QString::fromStdWString(name), 0, rows, false});
    const bool isThere = std::ranges::any_of(
        points, [&](const ListedPoint& point) { return point.name.toStdWString() == choice_->point; });
    if (!isThere)
        choice_->point = points.isEmpty() ? std::wstring() : points.front().name.toStdWString();
    points_->setPoints(points);
    points_->setCurrentPoint(QString::fromStdWString(choice_->point));
}

void JournalPage::readJournal(IDBProject& project)
{
    const JournalState state = journalState(project, choice_->point);
    const auto count = static_cast<int>(state.rows.size());
    if (ids_.size() != count) {
        ids_.resize(count);
        for (qint64& id : ids_)
            id = ++lastId_;
    }
    Remarks remarks;
    const std::vector<SoundingReading> readings = soundingReadings(state.rows, remarks);
    GridRows rows;
    rows.reserve(count);
    for (int i = 0; i < count; ++i)
        rows.append(gridRow(state.rows[static_cast<std::size_t>(i)], ids_[i]));
    for (const Remark& remark : remarks) {
        int row = 0;
        int cell = 0;
        if (std::sscanf(remark.cell.c_str(), "sounding/%d/%d", &row, &cell) == 2 && row < count
            && cell < ColumnCount)
            rows[row].warnings[cell] = QString::fromStdWString(remark.text);
    }
    grid_->setRows(rows);
    showGraph(project, readings, rows);
    const bool isPoint = !choice_->point.empty();
    grid_->setEditingAllowed(isPoint);
    rig_->setEnabled(isPoint);
    date_->setEnabled(isPoint);
    rig_->setText(QString::fromStdWString(state.device));
    date_->setText(QString::fromStdWString(state.date));
    instrument_->setCurrentIndex(std::clamp(project.getSoundingValueA(), 0, 2));
    probe_->setCurrentIndex(std::clamp(project.getSoundingValueB(), 1, 3) - 1);
    const SiteSoundings soundings(project, choice_->point);
    const SiteSounding* sounding = soundings.find(choice_->point);
    QString title = isPoint ? QString::fromStdWString(choice_->point)
                            : QStringLiteral("В проекте нет точек зондирования");
    if (sounding && !sounding->borehole.empty())
        title += QStringLiteral(" · соседняя скважина %1")
                     .arg(QString::fromStdWString(std::wstring(sounding->borehole)));
    if (!remarks.empty())
        title += QStringLiteral(" · сомнительных ячеек: %1").arg(remarks.size());
    title_->setText(title);
}

// Of probe I there is the force on the side, of the others the friction.
void JournalPage::showGraph(
    IDBProject& project, const std::vector<SoundingReading>& readings, const GridRows& rows)
{
    const bool isSideForce = project.getSoundingValueB() == 1;
    QVector<ReadingsGraph::Reading> shown;
    shown.reserve(static_cast<int>(readings.size()));
    for (const SoundingReading& reading : readings) {
        const GridRow& row = rows[static_cast<int>(reading.row)];
        const bool isDoubtful = std::any_of(row.warnings.begin(),
            row.warnings.end(),
            [](const QString& warning) { return !warning.isEmpty(); });
        shown.append(
            {row.id, reading.depth, reading.tip, isSideForce ? reading.side : reading.sleeve, isDoubtful});
    }
    const auto shownColor = [](const Color& color) { return QColor(color.red, color.green, color.blue); };
    graph_->setReadings(shown,
        {isSideForce ? QStringLiteral("Qs, кН") : QStringLiteral("fs, кПа"),
            shownColor(soundingTipColor(*screen_.settings())),
            shownColor(soundingSideColor(*screen_.settings()))});
    graph_->setCurrentRow(grid_->currentRow());
}

void JournalPage::closeEditors()
{
    grid_->closeEditor();
    if (rig_->isModified() || date_->isModified())
        storeHead();
}

void JournalPage::deleteRecords()
{
    grid_->deleteSelectedRows();
}

void JournalPage::addRecord()
{
    grid_->addRow();
}

bool JournalPage::canAdd() const
{
    return !choice_->point.empty();
}

void JournalPage::tellView(ITellurixController& controller) const
{
    controller.setProbingView(1);
    controller.setProbingSubView(1);
    controller.setEditedSample(choice_->point);
}

std::optional<Document> JournalPage::report()
{
    IDBProject* project = screen_.project();
    if (!project || project->getSoundings().empty())
        return std::nullopt;
    return soundingJournals(
        *project, SiteSoundings(*project), {}, knownLanguage(screen_.settings()->reportLanguage()));
}

void JournalPage::choosePoint(const QString& name)
{
    if (isReading_ || name.toStdWString() == choice_->point)
        return;
    closeEditors();
    choice_->point = name.toStdWString();
    ids_.clear();
    read(screen_.project());
    Q_EMIT statesChanged();
}

void JournalPage::store(JournalState after)
{
    IDBProject* project = screen_.project();
    if (!project || after.point.empty())
        return;
    JournalState before = journalState(*project, after.point);
    if (!before.exists) {
        const SoundingKey key{after.point, after.kind, {}, {}};
        if (project->getSoundings().find(key) != project->getSoundings().end()) {
            Q_EMIT said(QStringLiteral(
                "Имя «%1» читается как то же число, что у другой точки: журнал для неё завести нельзя.")
                            .arg(QString::fromStdWString(after.point)));
            readJournal(*project);
            return;
        }
    }
    after.exists = true;
    screen_.change<JournalState>(putJournal, std::move(before), std::move(after));
}

void JournalPage::edit(const GridRows& after)
{
    IDBProject* project = screen_.project();
    if (!project)
        return;
    JournalState state = journalState(*project, choice_->point);
    const bool wasKilopascals = hasTipsInKilopascals(state.rows);
    state.rows.clear();
    ids_.clear();
    for (const GridRow& row : after) {
        state.rows.push_back(soundingRow(row));
        ids_.append(row.id > 0 ? row.id : ++lastId_);
        lastId_ = std::max(lastId_, ids_.back());
    }
    const bool asks = !wasKilopascals && hasTipsInKilopascals(state.rows);
    store(std::move(state));
    if (asks)
        Q_EMIT said(QStringLiteral(
            "Есть qc больше 100 МПа. Если они введены в килопаскалях, нажмите «qc: кПа в МПа»."));
}

void JournalPage::storeHead()
{
    IDBProject* project = screen_.project();
    if (isReading_ || !project || choice_->point.empty())
        return;
    rig_->setModified(false);
    date_->setModified(false);
    JournalState state = journalState(*project, choice_->point);
    std::wstring date = date_->text().toStdWString();
    if (const auto read = readDate(date))
        date = dateText(*read);
    else if (!date.empty())
        Q_EMIT said(QStringLiteral("Дата «%1» не читается: ожидается дд.мм.гггг.").arg(date_->text()));
    const std::wstring device = rig_->text().toStdWString();
    if (device == state.device && date == state.date)
        return;
    state.device = device;
    state.date = date;
    store(std::move(state));
}

void JournalPage::storeProbe()
{
    IDBProject* project = screen_.project();
    if (isReading_ || !project)
        return;
    const PileState before = pileState(*project);
    PileState after = before;
    after.instrument = instrument_->currentIndex();
    after.probe = probe_->currentIndex() + 1;
    screen_.change<PileState>(putPile, before, after);
}

void JournalPage::fillDepths()
{
    IDBProject* project = screen_.project();
    if (!project || choice_->point.empty())
        return;
    JournalState state = journalState(*project, choice_->point);
    Number last;
    for (const SoundingRow& row : state.rows)
        if (const Number depth = readNumber(row.depth))
            last = std::max(last.value_or(0.0), *depth);
    const std::vector<std::wstring> depths = askDepths(this, last.value_or(0.0));
    for (const std::wstring& depth : depths)
        state.rows.push_back({depth, {}});
    if (!depths.empty())
        store(std::move(state));
}

void JournalPage::convertForces()
{
    IDBProject* project = screen_.project();
    if (!project || choice_->point.empty())
        return;
    const std::optional<ProbeAreas> areas = askAreas(this, static_cast<double>(project->getSoundingRatioA()));
    if (!areas)
        return;
    JournalState state = journalState(*project, choice_->point);
    for (SoundingRow& row : state.rows) {
        if (const Number force = readNumber(row.cells[sounding_cell::Tip]))
            row.cells[sounding_cell::Tip] = shortText(coneResistanceMPa(*force, areas->cone));
        if (const Number force = readNumber(row.cells[sounding_cell::Sleeve]))
            row.cells[sounding_cell::Sleeve] = shortText(sleeveResistanceKPa(*force, areas->sleeve));
    }
    store(std::move(state));
}

void JournalPage::divideTips()
{
    IDBProject* project = screen_.project();
    if (!project || choice_->point.empty())
        return;
    JournalState state = journalState(*project, choice_->point);
    int count = 0;
    for (SoundingRow& row : state.rows)
        if (const Number tip = readNumber(row.cells[sounding_cell::Tip]); tip && *tip > greatestTip) {
            row.cells[sounding_cell::Tip] = shortText(*tip / 1000.0);
            ++count;
        }
    if (count > 0)
        store(std::move(state));
    Q_EMIT said(count > 0 ? QStringLiteral("Переведено значений: %1.").arg(count)
                          : QStringLiteral("Значений qc больше 100 нет."));
}

void JournalPage::importFile()
{
    IDBProject* project = screen_.project();
    if (!project || choice_->point.empty())
        return;
    const std::optional<ImportedJournal> imported = askImport(this);
    if (!imported)
        return;
    JournalState state = journalState(*project, choice_->point);
    state.rows.clear();
    for (const ImportedReading& reading : imported->readings)
        state.rows.push_back({shortText(reading.depth),
            {shortText(reading.tip), shortText(reading.sleeve), shortText(reading.side), L""}});
    if (state.date.empty())
        state.date = imported->date;
    const std::size_t count = state.rows.size();
    store(std::move(state));
    Q_EMIT said(QStringLiteral("Импортировано отсчётов: %1.").arg(count));
}
