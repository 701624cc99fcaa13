#include "stratigraphic/stratigraphic_screen.h"

#include "common/column_look.h"
#include "common/drawing_view.h"
#include "common/edit_grid.h"
#include "common/exchange_command.h"
#include "common/view_settings.h"
#include "core/base/mexception.h"
#include "core/base/typed_number.h"
#include "modules/action_names.h"
#include "modules/idb_hatch.h"
#include "modules/isettings.h"
#include "site/soil_hatches.h"

#include <QAction>
#include <QFileDialog>
#include <QFileInfo>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QMessageBox>
#include <QPushButton>
#include <QSplitter>
#include <QToolBar>
#include <QVBoxLayout>

#include <algorithm>
#include <utility>

namespace
{

enum Cell { Index, Thickness, Hatch, Description };

const QString fileFilter = QStringLiteral("Стратиграфическая колонка (*.json)");

QVector<GridColumn> gridColumns(const Hatches& hatches)
{
    QStringList names;
    for (const auto& [number, tile] : hatches)
        names.append(QStringLiteral("%1 %2").arg(number).arg(QString::fromStdWString(tile.name)));
    return {{QStringLiteral("Индекс"), GridColumn::Text, 70},
        {QStringLiteral("Мощность,\nм"), GridColumn::Number, 80},
        {QStringLiteral("Штриховка"), GridColumn::Choice, 130, names},
        {QStringLiteral("Описание"), GridColumn::Text, 260, {}, false, true}};
}

// Where the dialogs of files begin.
QString placeOf(const QString& file, const QString& nameOfNew)
{
    return file.isEmpty() ? lastFolder(QStringLiteral("column")) + nameOfNew : file;
}

Number thicknessOf(const StrataLayer& layer)
{
    const Number thickness = readNumber(layer.thickness.toStdWString());
    return thickness && *thickness > 0 ? thickness : std::nullopt;
}

} // namespace

StratigraphicScreen::StratigraphicScreen(TX_Modes mode, ITellurixController* controller, QWidget* parent)
    : ModeScreen(mode, controller, parent)
    , document_(StrataDocument::of(controller))
    , title_(new QLineEdit)
    , fileName_(new QLabel)
    , view_(new DrawingView)
{
    if (controller->hatch())
        hatches_ = readHatches(controller->hatch()->getHatches());
    grid_ = new EditGrid(QStringLiteral("stratigraphic/layers"), gridColumns(hatches_));
    grid_->setEmptyText(QStringLiteral("Слоёв нет.\nНачните вводить верхний слой."));
    title_->setAccessibleName(QStringLiteral("Заголовок колонки"));
    grid_->setAccessibleName(QStringLiteral("Слои колонки"));
    title_->setObjectName(QStringLiteral("stratigraphic/title"));
    view_->setObjectName(QStringLiteral("stratigraphic/view"));
    auto* splitter = new QSplitter;
    splitter->addWidget(makeEditor());
    splitter->addWidget(view_);
    splitter->setStretchFactor(1, 1);
    keepSplitter(splitter, QStringLiteral("stratigraphic/splitter"), {520, 600});
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(4, 4, 4, 4);
    layout->addWidget(splitter);
    connect(grid_, &EditGrid::edited, this, &StratigraphicScreen::take);
    connect(grid_, &EditGrid::told, this, &StratigraphicScreen::say);
    connect(grid_, &EditGrid::currentRowChanged, this, [this](qint64 id) {
        view_->canvas().setCurrent(document_->state.ids.indexOf(id) + 1);
    });
    connect(view_, &DrawingView::clicked, this, [this](qint64 layer) {
        if (const QVector<qint64>& ids = document_->state.ids; layer > 0 && layer <= ids.size())
            grid_->showRow(ids[static_cast<int>(layer) - 1]);
    });
    connect(title_, &QLineEdit::textEdited, this, &StratigraphicScreen::typeTitle);
    connect(title_, &QLineEdit::editingFinished, this, [this] { attempt([this] { keepTitle(); }); });
    showAll();
}

StratigraphicScreen::~StratigraphicScreen()
{
    // Who closes it has been asked.
    document_->drop();
    controller()->setColumnModified(false);
}

QWidget* StratigraphicScreen::makeEditor()
{
    auto* bar = new QToolBar;
    // As the shell's orders, with what stands in the open cell.
    const auto addAct = [this, bar](const QString& text, void (StratigraphicScreen::*act)()) {
        bar->addAction(text, this, [this, act] {
            attempt([this, act] {
                closeEditors();
                (this->*act)();
            });
        });
    };
    addAct(QStringLiteral("Новая"), &StratigraphicScreen::startNew);
    addAct(QStringLiteral("Открыть…"), &StratigraphicScreen::askOpen);
    addAct(QStringLiteral("Сохранить"), &StratigraphicScreen::saveColumn);
    addAct(QStringLiteral("Сохранить как…"), &StratigraphicScreen::saveAs);
    auto* editor = new QWidget;
    auto* layout = new QVBoxLayout(editor);
    layout->setContentsMargins(0, 0, 0, 0);
    auto* back = new QPushButton(QStringLiteral("К проектам"));
    back->setToolTip(QStringLiteral("Закрыть колонку и вернуться к списку проектов"));
    connect(back, &QPushButton::clicked, this, &StratigraphicScreen::leave);
    auto* file = new QHBoxLayout;
    file->addWidget(fileName_, 1);
    file->addWidget(back);
    layout->addWidget(bar);
    layout->addLayout(file);
    title_->setPlaceholderText(QStringLiteral("Заголовок колонки"));
    layout->addWidget(title_);
    layout->addWidget(grid_, 1);
    return editor;
}

// By the shell's own action, which asks about an unsaved column, closes it and brings the projects up. A
// column without changes it leaves where it is.
void StratigraphicScreen::leave()
{
    QWidget* shell = window();
    closeEditors();
    const bool isKept = !document_->isModified();
    if (auto* close = shell->findChild<QAction*>(QLatin1String(closeActionName)))
        close->trigger();
    if (!isKept || !parentWidget())
        return;
    // The title names the screen behind two dashes.
    shell->setWindowTitle(shell->windowTitle().section(QStringLiteral(" - "), 0, 1));
    parentWidget()->close();
    Q_EMIT signalUpdateMenus();
}

void StratigraphicScreen::setColumn(const StrataColumn& column, const QString& file)
{
    put(document_->state, document_->stateOf(column, file));
}

void StratigraphicScreen::put(const StrataState& before, const StrataState& after)
{
    if (before.column == after.column && before.file == after.file)
        return showAll();
    const auto apply = [controller = controller(), document = document_](const StrataState& state) {
        document->state = state;
        controller->notify();
    };
    const auto command = makeReference<ExchangeCommand<StrataState>>(apply, before, after);
    execute(command.get());
}

// The drawing follows letter by letter; the title as a whole is one step.
void StratigraphicScreen::typeTitle(const QString& text)
{
    if (!beforeTitle_)
        beforeTitle_ = document_->state;
    document_->state.column.title = text;
    tellModified();
    drawColumn();
}

void StratigraphicScreen::keepTitle()
{
    if (const auto before = std::exchange(beforeTitle_, std::nullopt))
        put(*before, document_->state);
}

void StratigraphicScreen::showAll()
{
    const StrataState& state = document_->state;
    if (title_->text() != state.column.title)
        title_->setText(state.column.title);
    tellModified();
    showRows();
    drawColumn();
}

void StratigraphicScreen::tellModified()
{
    const bool isModified = document_->isModified();
    const QString& file = document_->state.file;
    controller()->setColumnModified(isModified);
    const QString name = file.isEmpty() ? QStringLiteral("Новая колонка") : QFileInfo(file).fileName();
    fileName_->setText(isModified ? name + QStringLiteral(" — не сохранена") : name);
    fileName_->setToolTip(file);
    Q_EMIT signalUpdateMenus();
}

QString StratigraphicScreen::hatchText(int number) const
{
    const auto found = hatches_.find(static_cast<std::uint32_t>(number));
    if (number == 0 || found == hatches_.end())
        return number == 0 ? QString() : QString::number(number);
    return QStringLiteral("%1 %2").arg(number).arg(QString::fromStdWString(found->second.name));
}

// By the number in front; a name alone is looked for.
int StratigraphicScreen::hatchNumber(const QString& text) const
{
    const int number = text.section(QLatin1Char(' '), 0, 0).toInt();
    if (number > 0)
        return number;
    for (const auto& [known, tile] : hatches_)
        if (QString::fromStdWString(tile.name).compare(text.trimmed(), Qt::CaseInsensitive) == 0)
            return static_cast<int>(known);
    return 0;
}

int StratigraphicScreen::hatchOf(qint64 id) const
{
    const int layer = document_->state.ids.indexOf(id);
    return layer < 0 ? 0 : column().layers[layer].hatch;
}

GridRow StratigraphicScreen::rowOf(int layer) const
{
    const StrataLayer& stored = column().layers[layer];
    GridRow row;
    row.id = document_->state.ids[layer];
    row.cells = {stored.index, stored.thickness, hatchText(stored.hatch), stored.description};
    row.warnings = QVector<QString>(row.cells.size());
    if (!thicknessOf(stored))
        row.warnings[Thickness] = QStringLiteral(
            "Мощность — число больше нуля, в метрах. Пока её нет, слой чертится высотой в 1 м.");
    return row;
}

void StratigraphicScreen::showRows()
{
    GridRows rows;
    for (int layer = 0; layer < column().layers.size(); ++layer)
        rows.append(rowOf(layer));
    grid_->setRows(rows);
}

void StratigraphicScreen::take(const GridRows& rows)
{
    StrataState after{{column().title, {}}, {}, document_->state.file};
    QString unknown;
    for (const GridRow& row : rows) {
        const auto cell = [&row](int number) { return row.cells.value(number); };
        int hatch = hatchNumber(cell(Hatch));
        if (hatch == 0 && !cell(Hatch).trimmed().isEmpty()) {
            unknown = cell(Hatch);
            hatch = hatchOf(row.id);
        }
        after.column.layers.append({cell(Index), cell(Thickness), hatch, cell(Description)});
        after.ids.append(row.id ? row.id : document_->nextId++);
    }
    put(document_->state, after);
    if (!unknown.isEmpty())
        say(QStringLiteral("Штриховки «%1» нет: выберите из списка или введите её номер.").arg(unknown));
}

void StratigraphicScreen::drawColumn()
{
    const StrataColumn& shown = column();
    if (shown.layers.isEmpty()) {
        view_->setPages({}, hatches_, QString());
        view_->setMessage(
            QStringLiteral("Введите слои колонки слева: сверху вниз, с мощностью и описанием."));
        return;
    }
    ColumnData drawn;
    double top = 0;
    for (const StrataLayer& stored : shown.layers) {
        ColumnLayer layer;
        layer.id = static_cast<std::int64_t>(drawn.layers.size()) + 1;
        layer.top = top;
        layer.bottom = top + thicknessOf(stored).value_or(1);
        layer.thickness = stored.thickness.toStdWString();
        layer.index = stored.index.toStdWString();
        layer.description = stored.description.toStdWString();
        layer.hatch = stored.hatch != 0 ? static_cast<std::uint32_t>(stored.hatch)
                                        : hatchOfDescription(std::wstring_view(layer.description));
        top = layer.bottom;
        drawn.layers.push_back(std::move(layer));
    }
    drawn.depth = top;
    attempt([&] {
        ColumnLook look = columnLookOf(*controller());
        look.heading = shown.title.isEmpty() ? L"Стратиграфическая колонка" : shown.title.toStdWString();
        look.lanes = {{column_lane::Index, true, 16},
            {column_lane::Strip, false, 30},
            {column_lane::Thickness, true, 16},
            {column_lane::Description, false}};
        view_->setPages(columnOf(drawn, look),
            hatches_,
            document_->state.file.isEmpty() ? QStringLiteral("Стратиграфическая колонка")
                                            : QFileInfo(document_->state.file).completeBaseName());
    });
}

void StratigraphicScreen::readProject(IDBProject*)
{
    showAll();
}

void StratigraphicScreen::settingsChanged()
{
    drawColumn();
}

void StratigraphicScreen::closeEditors()
{
    grid_->closeEditor();
    keepTitle();
}

void StratigraphicScreen::becomeCurrent()
{
    tellActions(true, true);
    grid_->setFocus();
}

void StratigraphicScreen::addRecord()
{
    grid_->addRow();
}

void StratigraphicScreen::deleteRecords()
{
    grid_->deleteSelectedRows();
}

void StratigraphicScreen::printReport()
{
    view_->print();
}

void StratigraphicScreen::open(const QString& file)
{
    const StrataColumn column = readStrataColumn(file);
    document_->inFile[file] = column;
    keepFolder(QStringLiteral("column"), file);
    setColumn(column, file);
}

void StratigraphicScreen::saveTo(const QString& file)
{
    writeStrataColumn(file, column());
    document_->inFile[file] = column();
    keepFolder(QStringLiteral("column"), file);
    document_->state.file = file;
    tellModified();
}

void StratigraphicScreen::saveColumn()
{
    if (document_->state.file.isEmpty())
        saveAs();
    else
        saveTo(document_->state.file);
}

void StratigraphicScreen::saveAs()
{
    QString file = QFileDialog::getSaveFileName(this,
        QStringLiteral("Сохранить колонку"),
        placeOf(document_->state.file, QStringLiteral("/Колонка.json")),
        fileFilter);
    if (file.isEmpty())
        return;
    if (QFileInfo(file).suffix().isEmpty())
        file += QStringLiteral(".json");
    saveTo(file);
}

// Whether what is not in its file may be lost.
bool StratigraphicScreen::mayDrop()
{
    if (!document_->isModified())
        return true;
    const int answer = QMessageBox::question(this,
        QStringLiteral("Стратиграфическая колонка"),
        QStringLiteral("Сохранить текущую колонку?"),
        QMessageBox::Yes | QMessageBox::No | QMessageBox::Cancel);
    if (answer == QMessageBox::Yes)
        saveColumn();
    return answer == QMessageBox::No || (answer == QMessageBox::Yes && !document_->isModified());
}

void StratigraphicScreen::startNew()
{
    if (mayDrop())
        setColumn({}, QString());
}

void StratigraphicScreen::askOpen()
{
    if (!mayDrop())
        return;
    const QString file = QFileDialog::getOpenFileName(
        this, QStringLiteral("Открыть колонку"), placeOf(document_->state.file, {}), fileFilter);
    if (!file.isEmpty())
        open(file);
}
