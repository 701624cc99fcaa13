#include "ige/elements_page.h"

#include "common/edit_grid.h"
#include "common/mode_screen.h"
#include "core/base/mexception.h"
#include "db/exact_key.h"
#include "ige/element_dialogs.h"
#include "ige/element_look.h"
#include "ige/result_table.h"
#include "modules/idb_hatch.h"
#include "modules/idbproject.h"
#include "site/cells.h"
#include "site/element_links.h"

#include <QColorDialog>
#include <QFrame>
#include <QHBoxLayout>
#include <QInputDialog>
#include <QLabel>
#include <QPushButton>
#include <QTimer>
#include <QVBoxLayout>

#include <algorithm>
#include <utility>

namespace
{

enum Column { Name, Index, Words, Kind, Hatch, FirstValue };

constexpr const wchar_t* valueTitles[] = {L"ρн,\nг/см³",
    L"ρII,\nг/см³",
    L"ρI,\nг/см³",
    L"φн,\n°",
    L"φII,\n°",
    L"φI,\n°",
    L"cн,\nкПа",
    L"cII,\nкПа",
    L"cI,\nкПа",
    L"E,\nМПа"};

QVector<GridColumn> columns()
{
    QStringList kinds;
    for (int kind = 0; kind < elementKindCount; ++kind)
        kinds += fromWide(elementKindName(static_cast<ElementKind>(kind)));
    QVector<GridColumn> all{{QStringLiteral("ИГЭ"), GridColumn::Text, 64},
        {QStringLiteral("Геоиндекс"), GridColumn::Text, 84},
        {QStringLiteral("Наименование"), GridColumn::Text, 260},
        {QStringLiteral("Вид грунта"), GridColumn::Choice, 130, kinds},
        {QStringLiteral("Штриховка"), GridColumn::Text, 120, {}, true}};
    for (const wchar_t* title : valueTitles)
        all.append({QString::fromWCharArray(title), GridColumn::Number, 54});
    return all;
}

} // namespace

ElementsPage::ElementsPage(ModeScreen& screen, QWidget* parent)
    : Page(parent)
    , screen_(screen)
    , patterns_(screen.controller()->hatch())
    , notice_(new QFrame(this))
    , grid_(new EditGrid(QStringLiteral("ige/elements"), columns(), this))
{
    grid_->setObjectName(QStringLiteral("elements"));
    grid_->setNameColumn(0);
    grid_->setAccessibleName(QStringLiteral("Инженерно-геологические элементы"));
    grid_->setEmptyText(QStringLiteral("Элементов пока нет.\nIns — добавить, или «Предложить» на вкладке "
                                       "«Распределение» составит их по слоям."));
    makeNotice();
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 8, 0, 0);
    layout->addLayout(makeButtons());
    layout->addWidget(notice_);
    layout->addWidget(grid_, 1);
    auto* note = new QLabel(QStringLiteral(
        "Значения, введённые в таблицу, заменяют вычисленные и помечаются в сводной таблице."));
    note->setWordWrap(true);
    layout->addWidget(note);
    setFocusProxy(grid_);
    connect(grid_, &EditGrid::edited, this, &ElementsPage::edit);
}

void ElementsPage::makeNotice()
{
    notice_->setObjectName(QStringLiteral("notice"));
    notice_->setFrameShape(QFrame::StyledPanel);
    notice_->setAutoFillBackground(true);
    QPalette warm = notice_->palette();
    warm.setColor(QPalette::Window, QColor(0xff, 0xf4, 0xd6));
    notice_->setPalette(warm);
    noticeText_ = new QLabel(notice_);
    noticeText_->setWordWrap(true);
    noticeButton_ = new QPushButton(notice_);
    auto* layout = new QHBoxLayout(notice_);
    layout->addWidget(noticeText_, 1);
    layout->addWidget(noticeButton_);
    connect(noticeButton_, &QPushButton::clicked, this, [this] {
        notice_->hide();
        if (const auto accept = std::exchange(accept_, nullptr))
            accept();
    });
    notice_->hide();
}

QHBoxLayout* ElementsPage::makeButtons()
{
    auto* row = new QHBoxLayout;
    const auto add = [&](const char16_t* text, const char16_t* tip, auto act) {
        auto* button = new QPushButton(QString::fromUtf16(text), this);
        button->setToolTip(QString::fromUtf16(tip));
        connect(button, &QPushButton::clicked, this, [this, act] {
            grid_->closeEditor();
            if (screen_.project())
                (this->*act)();
        });
        row->addWidget(button);
    };
    add(u"Добавить", u"Новый элемент (Ins)", &ElementsPage::addRecord);
    add(u"Удалить",
        u"Слои и отсчёты зондирования останутся без элемента (Ctrl+Del)",
        &ElementsPage::deleteRecords);
    add(u"Номера сверху вниз",
        u"Перенумеровать по глубине залегания, со всеми ссылками",
        &ElementsPage::renumber);
    add(u"Объединить…", u"Передать слои текущего элемента другому", &ElementsPage::merge);
    add(u"Разделить…", u"Часть слоёв текущего элемента — в новый элемент", &ElementsPage::split);
    add(u"Цвет…", u"Цвет текущего элемента на чертежах", &ElementsPage::chooseColor);
    add(u"Штриховка…", u"Штриховка текущего элемента на чертежах", &ElementsPage::chooseHatch);
    row->addStretch(1);
    return row;
}

qint64 ElementsPage::idOf(const std::wstring& name)
{
    qint64& id = ids_[name];
    if (id == 0)
        id = ++lastId_;
    return id;
}

QVector<QString> ElementsPage::cellsOf(
    IDBProject& project, const std::wstring& name, const StrataElement& element) const
{
    const std::uint32_t hatch = hatchNumber(element.patternA);
    QVector<QString> cells{fromWide(shortElementName(name)),
        QString::fromStdWString(element.texts[element_text::GeologicalIndex]),
        fromWide(elementName(project.getNumberedLinks(), name)),
        fromWide(elementKindName(elementKindOf(element))),
        hatch == 0 ? QStringLiteral("по виду") : patterns_.name(hatch)};
    for (std::size_t text = element_text::DensityNormative; text <= element_text::Modulus; ++text)
        cells.append(QString::fromStdWString(element.texts[text]));
    return cells;
}

void ElementsPage::read(IDBProject* project)
{
    GridRows rows;
    names_.clear();
    if (project)
        for (const auto& [name, element] : project->getStrataElements()) {
            GridRow row{idOf(name), cellsOf(*project, name, element)};
            names_.insert(row.id, name);
            row.problems.resize(row.cells.size());
            row.warnings.resize(row.cells.size());
            for (int cell = Index; cell < row.cells.size(); ++cell)
                if ((cell == Index || cell >= FirstValue) && !isElementText(row.cells[cell].toStdWString()))
                    row.warnings[cell] =
                        QString::fromStdWString(elementTextProblem(row.cells[cell].toStdWString()));
            rows.append(row);
        }
    grid_->setEditingAllowed(project != nullptr);
    grid_->setRows(rows);
    if (project)
        offerUniformNames(*project);
    Q_EMIT statesChanged();
}

void ElementsPage::forget()
{
    notice_->hide();
    ids_.clear();
    names_.clear();
}

void ElementsPage::closeEditors()
{
    grid_->closeEditor();
}

void ElementsPage::addRecord()
{
    make([](ElementsState& state, IDBProject&) { addElement(state, freeElementName(state.elements)); });
}

void ElementsPage::deleteRecords()
{
    grid_->deleteSelectedRows();
}

// Nothing is computed here.
void ElementsPage::tellView(ITellurixController& controller) const
{
    controller.setIgeView(1);
}

void ElementsPage::offerUniformNames(IDBProject& project)
{
    const auto names = uniformNames(project.getStrataElements());
    if (names.empty())
        return;
    refuse(QStringLiteral(
               "Номера элементов не имеют общего порядка (буквы и числа вместе или одно число в начале): "
               "элементы могут теряться."),
        QStringLiteral("Дать всем вид «%1»").arg(QString::fromStdWString(names.front().second)),
        [this, names] {
            make([names](ElementsState& state, IDBProject& open) { renameElements(state, open, names); });
        });
}

void ElementsPage::refuse(const QString& why, const QString& offer, const std::function<void()>& accept)
{
    noticeText_->setText(why);
    noticeButton_->setText(offer.isEmpty() ? QStringLiteral("Понятно") : offer);
    accept_ = accept;
    notice_->show();
}

bool ElementsPage::make(const Act& act)
{
    IDBProject* project = screen_.project();
    if (!project)
        return false;
    ElementsState after = elementsOf(*project);
    try {
        act(after, *project);
    } catch (const MException& exception) {
        read(project);
        refuse(QString::fromStdWString(exception.message()));
        return false;
    }
    notice_->hide();
    screen_.change<ElementsState>(putElements, replacedBy(*project, after), after);
    return true;
}

void ElementsPage::edit(const GridRows& after)
{
    for (const GridRow& row : after)
        for (int column = Index; column < row.cells.size(); ++column) {
            const std::wstring text = row.cells[column].toStdWString();
            const GridRows& shown = grid_->rows().rows();
            const int known = row.id == 0 ? -1 : grid_->rows().rowOf(row.id);
            const bool isChanged = known < 0 || shown[known].cells[column] != row.cells[column];
            if ((column != Index && column < FirstValue) || !isChanged || isElementText(text))
                continue;
            const auto latin = latinLookAlike(text);
            GridRows mended = after;
            mended[int(&row - after.constData())].cells[column] =
                latin ? QString::fromStdWString(*latin) : QString();
            if (screen_.project())
                read(screen_.project());
            refuse(QString::fromStdWString(elementTextProblem(text)),
                latin ? QStringLiteral("Записать «%1»").arg(QString::fromStdWString(*latin)) : QString(),
                latin ? std::function<void()>([this, mended] { edit(mended); }) : nullptr);
            return;
        }
    take(after, [](std::wstring_view name) { return std::wstring(name); });
}

void ElementsPage::take(const GridRows& after, const NameForm& form)
{
    std::wstring offered;
    make([&](ElementsState& state, IDBProject& project) {
        try {
            applyRows(after, state, project, form);
        } catch (const MixedElementNames&) {
            for (const GridRow& row : after)
                if (!row.cells[Name].isEmpty())
                    offered = uniformElementName(row.cells[Name].toStdWString());
            throw;
        }
    });
    if (!offered.empty())
        refuse(noticeText_->text(),
            QStringLiteral("Дать всем вид «%1»").arg(QString::fromStdWString(offered)),
            [this, after] { take(after, uniformElementName); });
}

std::wstring ElementsPage::typedName(const QString& cell) const
{
    const std::wstring text = cell.toStdWString();
    const bool isUniform = std::any_of(names_.begin(), names_.end(), [](const std::wstring& name) {
        return shortElementName(name) != name;
    });
    return isUniform && !text.empty() ? uniformElementName(text) : text;
}

void ElementsPage::applyRows(
    const GridRows& after, ElementsState& state, IDBProject& project, const NameForm& form)
{
    const GridRows shown = grid_->rows().rows();
    const auto rowWith = [](const GridRows& rows, qint64 id) {
        const auto found =
            std::find_if(rows.begin(), rows.end(), [id](const GridRow& row) { return row.id == id; });
        return found == rows.end() ? nullptr : &*found;
    };
    for (const GridRow& row : shown)
        if (!rowWith(after, row.id))
            deleteElement(state, project, names_[row.id]);
    std::vector<std::pair<std::wstring, std::wstring>> renamed;
    for (const GridRow& row : after)
        if (const GridRow* known = row.id == 0 ? nullptr : rowWith(shown, row.id)) {
            const std::wstring& old = names_[row.id];
            const std::wstring name =
                form(known->cells[Name] == row.cells[Name] ? old : typedName(row.cells[Name]));
            if (name != old)
                renamed.emplace_back(old, name);
        }
    if (!renamed.empty())
        renameElements(state, project, renamed);
    const std::map<std::wstring, std::wstring> nameNow(renamed.begin(), renamed.end());
    for (const GridRow& row : after) {
        const GridRow* known = row.id == 0 ? nullptr : rowWith(shown, row.id);
        std::wstring name;
        if (known) {
            const auto found = nameNow.find(names_[row.id]);
            name = found == nameNow.end() ? names_[row.id] : found->second;
        } else {
            name = row.cells[Name].isEmpty() ? freeElementName(state.elements)
                                             : form(typedName(row.cells[Name]));
            addElement(state, name);
        }
        for (int column = Index; column < row.cells.size(); ++column)
            if (known ? known->cells[column] != row.cells[column] : !row.cells[column].isEmpty())
                applyCell(state, name, column, row.cells[column]);
    }
    std::map<std::wstring, qint64> ids = ids_;
    for (const auto& [old, name] : renamed)
        ids[name] = ids_[old];
    ids_ = std::move(ids);
}

void ElementsPage::applyCell(
    ElementsState& state, const std::wstring& name, int column, const QString& text) const
{
    const auto element = findExact(state.elements, name);
    if (element == state.elements.end() || column == Hatch)
        return;
    if (column == Words)
        setElementName(state.links, name, text.toStdWString());
    else if (column == Kind)
        element->second.code = static_cast<std::int32_t>(elementKindNamed(text.toStdWString()));
    else if (column == Index)
        element->second.texts[element_text::GeologicalIndex] = text.toStdWString();
    else
        element->second
            .texts[static_cast<std::size_t>(column - FirstValue) + element_text::DensityNormative] =
            text.toStdWString();
}

std::wstring ElementsPage::currentElement() const
{
    return names_.value(grid_->currentRow());
}

void ElementsPage::renumber()
{
    const auto names = numbersFromAbove(*screen_.project());
    make([&](ElementsState& state, IDBProject& project) { renameElements(state, project, names); });
}

void ElementsPage::merge()
{
    const std::wstring name = currentElement();
    QStringList others;
    for (const auto& [other, element] : screen_.project()->getStrataElements())
        if (other != name)
            others += QString::fromStdWString(other);
    if (name.empty() || others.isEmpty()) {
        refuse(QStringLiteral(
            "Чтобы объединить, нужны два элемента: поставьте курсор на тот, который исчезнет."));
        return;
    }
    bool isChosen = false;
    const QString into = QInputDialog::getItem(this,
        QStringLiteral("Объединить элементы"),
        QStringLiteral("Слои элемента %1 отдать элементу:").arg(QString::fromStdWString(name)),
        others,
        0,
        false,
        &isChosen);
    if (isChosen)
        make([&](ElementsState& state, IDBProject& project) {
            mergeElements(state, project, name, into.toStdWString());
        });
}

void ElementsPage::split()
{
    const std::wstring name = currentElement();
    if (name.empty())
        return;
    const auto layers = askLayersToSplit(this, *screen_.project(), name);
    if (!layers.empty())
        make([&](ElementsState& state, IDBProject&) {
            splitElement(state, name, freeElementName(state.elements), layers);
        });
}

void ElementsPage::chooseColor()
{
    const std::wstring name = currentElement();
    if (name.empty())
        return;
    const auto& element = findExact(screen_.project()->getStrataElements(), name)->second;
    const QColor color = QColorDialog::getColor(colorOf(element), this, QStringLiteral("Цвет элемента"));
    if (color.isValid())
        make([&](ElementsState& state, IDBProject&) {
            findExact(state.elements, name)->second.valueB = storedColor(color);
        });
}

void ElementsPage::chooseHatch()
{
    const std::wstring name = currentElement();
    IDBHatch* library = screen_.controller()->hatch();
    if (name.empty() || !library)
        return;
    if (const auto number = askHatch(this, *library, patterns_))
        make([&](ElementsState& state, IDBProject&) {
            findExact(state.elements, name)->second.patternA = hatchBytes(*number);
        });
}
