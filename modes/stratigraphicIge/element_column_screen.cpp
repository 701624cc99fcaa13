#include "stratigraphicIge/element_column_screen.h"

#include "common/column_look.h"
#include "common/drawing_view.h"
#include "common/view_settings.h"
#include "modules/idb_hatch.h"
#include "modules/isettings.h"

#include <QComboBox>
#include <QLabel>
#include <QSettings>
#include <QToolBar>
#include <QVBoxLayout>

static const QString sortedKey = QStringLiteral("stratigraphicIge/byDepth");

ElementColumnScreen::ElementColumnScreen(TX_Modes mode, ITellurixController* controller, QWidget* parent)
    : ModeScreen(mode, controller, parent)
    , view_(new DrawingView)
    , sheet_(new QComboBox)
    , isByDepth_(viewSettings()->value(sortedKey, true).toBool())
{
    if (controller->hatch())
        hatches_ = readHatches(controller->hatch()->getHatches());
    for (const SheetFormat& format : sheetFormats())
        sheet_->addItem(QString::fromWCharArray(format.name));
    view_->setObjectName(QStringLiteral("stratigraphicIge/view"));
    sheet_->setAccessibleName(QStringLiteral("Формат листа"));
    view_->bar().addSeparator();
    view_->bar().addWidget(new QLabel(QStringLiteral(" Лист: ")));
    view_->bar().addWidget(sheet_);
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(4, 4, 4, 4);
    layout->addWidget(view_);
    keepChoice(sheet_, QStringLiteral("stratigraphicIge/sheet"));
    connect(sheet_, qOverload<int>(&QComboBox::activated), this, [this] { drawElements(); });
}

void ElementColumnScreen::readProject(IDBProject*)
{
    drawElements();
}

void ElementColumnScreen::settingsChanged()
{
    drawElements();
}

void ElementColumnScreen::sortData()
{
    isByDepth_ = !isByDepth_;
    viewSettings()->setValue(sortedKey, isByDepth_);
    drawElements();
    say(isByDepth_ ? QStringLiteral("ИГЭ по глубине залегания") : QStringLiteral("ИГЭ по номерам"));
}

void ElementColumnScreen::printReport()
{
    view_->print();
}

void ElementColumnScreen::drawElements()
{
    const ColumnData elements = project() ? elementsColumn(*project(), isByDepth_) : ColumnData();
    if (elements.layers.empty()) {
        view_->setPages({}, hatches_, QString());
        view_->setMessage(
            QStringLiteral("В проекте нет ИГЭ.\nВыделите их в режиме «Инженерно-геологический элемент»."));
        return;
    }
    attempt([&] {
        const bool isUkrainian = settings()->reportLanguage() == languageUkrainian;
        ColumnLook look = columnLookOf(*controller());
        look.sheet = sheetOf(sheetFormat(sheet_->currentText().toStdWString()), false);
        look.heading = isUkrainian ? L"Зведена колонка інженерно-геологічних елементів"
                                   : L"Сводная колонка инженерно-геологических элементов";
        look.lanes = {{column_lane::Index, true},
            {column_lane::Thickness, true, 16},
            {column_lane::Strip, false, 30},
            {column_lane::Element, true, 12},
            {column_lane::Description, false}};
        view_->setPages(columnOf(elements, look), hatches_, QStringLiteral("Колонка ИГЭ"));
    });
}
