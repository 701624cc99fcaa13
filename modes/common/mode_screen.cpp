#include "common/mode_screen.h"

#include "core/base/mexception.h"
#include "modules/itx_undo_redo.h"
#include "modules/unsaved_cells.h"

#include <QDynamicPropertyChangeEvent>
#include <QLineEdit>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QMessageBox>
#include <QSet>
#include <QVariant>

#include <algorithm>
#include <exception>

ModeScreen::ModeScreen(TX_Modes mode, ITellurixController* controller, QWidget* parent)
    : TXWidget(parent)
    , mode_(mode)
    , controller_(controller)
    , observer_(this)
{
    connectShell();
    controller_->attach(&observer_);
}

ModeScreen::~ModeScreen()
{
    // A field gives the keyboard up while its screen goes; nobody may write by way of the screen then.
    for (QLineEdit* field : findChildren<QLineEdit*>())
        field->blockSignals(true);
    controller_->detach(&observer_);
}

void ModeScreen::connectShell()
{
    connect(this, &TXWidget::signalCloseAllEditCell, this, [this] { attempt([this] { closeEditors(); }); });
    connect(this, &TXWidget::signalUpdateDB, this, [this] {
        bool isStored = false;
        return attempt([&] {
            closeEditors();
            isStored = store();
        }) && isStored;
    });
    const std::pair<void (TXWidget::*)(), void (ModeScreen::*)()> orders[] = {
        {&TXWidget::signalAddSelectedRecord, &ModeScreen::addRecord},
        {&TXWidget::signalDelSelectedRecord, &ModeScreen::deleteRecords},
        {&TXWidget::signalCalc, &ModeScreen::calculate},
        {&TXWidget::signalClearTests, &ModeScreen::clearData},
        {&TXWidget::signalPrint, &ModeScreen::printReport},
        {&TXWidget::signalSort, &ModeScreen::sortData},
        {&TXWidget::signalSaveColumn, &ModeScreen::saveColumn},
    };
    for (const auto& [signal, order] : orders)
        connect(this, signal, this, [this, order = order] {
            attempt([&] {
                closeEditors();
                readIfStale();
                (this->*order)();
            });
        });
    for (const auto signal : {&TXWidget::signalUpdateComplexPoints, &TXWidget::signalUpdateInfo})
        connect(this, signal, this, [this] {
            observe();
            readSoon();
        });
    for (const auto signal : {&TXWidget::signalChangeLanguage, &TXWidget::signalUpdateSetup})
        connect(this, signal, this, [this] {
            settingsChanged();
            readSoon();
        });
    connect(this, &TXWidget::signalUpdateMode, this, [this] {
        observe();
        attempt([this] { becomeCurrent(); });
    });
}

void ModeScreen::Observer::update()
{
    screen_->isStale_ = true;
    if (screen_->isInView())
        screen_->readIfStale();
}

// The shell's current mode does not tell that: two screens may stand side by side, and after a close that was
// called off there is none. It tells of the project anew before it brings a screen to the front.
bool ModeScreen::isInView() const
{
    const auto* own = dynamic_cast<const QMdiSubWindow*>(parentWidget());
    const QMdiSubWindow* current = own && own->mdiArea() ? own->mdiArea()->currentSubWindow() : nullptr;
    return isVisible() && (!current || current == own || !current->isMaximized());
}

void ModeScreen::observe()
{
    controller_->detach(&observer_);
    controller_->attach(&observer_);
}

void ModeScreen::readSoon()
{
    isStale_ = true;
    if (std::exchange(readsSoon_, true))
        return;
    QMetaObject::invokeMethod(
        this,
        [this] {
            readsSoon_ = false;
            if (isVisible())
                readIfStale();
        },
        Qt::QueuedConnection);
}

void ModeScreen::readIfStale()
{
    if (!std::exchange(isStale_, false))
        return;
    attempt([this] {
        if (std::exchange(read_, project()) != project())
            forgetProject();
        readProject(project());
    });
}

void ModeScreen::showEvent(QShowEvent* event)
{
    TXWidget::showEvent(event);
    if (isStale_)
        readSoon();
}

bool ModeScreen::event(QEvent* event)
{
    if (event->type() == QEvent::DynamicPropertyChange
        && static_cast<QDynamicPropertyChangeEvent*>(event)->propertyName() == shownCellProperty)
        if (const QVariant number = property(shownCellProperty); number.isValid())
            showUnsaved(number.toInt());
    return TXWidget::event(event);
}

void ModeScreen::execute(IMCommand* command)
{
    observe();
    controller_->undoRedo()->execute(controller_->undoContext(), command);
    Q_EMIT signalUpdateMenus();
}

bool ModeScreen::attempt(const std::function<void()>& act)
{
    QString fault;
    try {
        act();
        return true;
    } catch (const MException& exception) {
        fault = QString::fromStdWString(exception.message());
    } catch (const std::exception& exception) {
        fault = QString::fromLocal8Bit(exception.what());
    }
    QMessageBox::warning(this, QStringLiteral("Tellurix"), fault);
    return false;
}

void ModeScreen::tellActions(bool canAdd, bool canDelete)
{
    Q_EMIT signalDeleteRecord(mode_, canDelete);
    Q_EMIT signalAddRecord(mode_, canAdd);
    Q_EMIT signalUpdateMenus();
}

void ModeScreen::say(const QString& text)
{
    Q_EMIT signalShowStatusMessage(text.toStdWString());
}

void ModeScreen::tellUnsaved(const QStringList& cells)
{
    const QStringList before = property(unsavedCellsProperty).toStringList();
    const QSet<QString> known(before.begin(), before.end());
    setProperty(unsavedCellsProperty, cells);
    const auto fresh =
        std::find_if(cells.begin(), cells.end(), [&](const QString& cell) { return !known.contains(cell); });
    const QString text = fresh != cells.end() ? *fresh
        : cells.contains(toldUnsaved_)        ? toldUnsaved_
                                              : cells.value(0);
    if (controller_->currentMode() == mode_ && text != toldUnsaved_)
        say(text.isEmpty() ? QStringLiteral("Готово.") : text);
    toldUnsaved_ = text;
}
