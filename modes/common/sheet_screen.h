#pragma once

#include "common/sheet_page.h"
#include "core/base/mobservable.h"
#include "modules/tx_widget.h"

#include <map>
#include <optional>
#include <string_view>
#include <vector>

class ITellurixController;
class QLabel;
class QLineEdit;
class QTabWidget;
class QTimer;

// By the names of the sheets that have one.
using SheetDrawings = std::map<std::string_view, MakeDrawing>;

// The screen of a mode whose data is not edited yet: its sheets behind tabs, a filter, and a line that says
// so. It reads the project when it comes into view and when something has changed, the sheet in front alone,
// and never writes to it.
class SheetScreen : public TXWidget
{
public:
    // The sheets are not copied: they stand for the whole run. So does the controller.
    SheetScreen(TX_Modes mode,
        ITellurixController* controller,
        const std::vector<Sheet>& sheets,
        const SheetDrawings& drawings = {},
        QWidget* parent = nullptr);
    ~SheetScreen() override;

protected:
    void showEvent(QShowEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    // Apart from the widget, whose own update() repaints.
    class Observer : public IMObserver
    {
    public:
        explicit Observer(SheetScreen* screen)
            : screen_(screen)
        {
        }
        void update() override { screen_->readAnew(); }

    private:
        SheetScreen* screen_;
    };

    void addPages(const std::vector<Sheet>& sheets, const SheetDrawings& drawings);
    QWidget* makeHead();
    QLabel* makeNote();
    void connectSignals();
    void addShortcuts();
    void turnPage(int by);
    void becomeCurrent();
    void reattach();
    void readAnew();
    void readSoon();
    void readIfStale();
    void filter();
    void showCount();
    SheetPage* page() const;
    std::optional<SheetSource> source() const;

    TX_Modes mode_;
    ITellurixController* controller_;
    Observer observer_;
    QLineEdit* filter_ = nullptr;
    QLabel* count_ = nullptr;
    QTimer* filterRest_ = nullptr;
    QTabWidget* tabs_ = nullptr; // null for a single sheet
    std::vector<SheetPage*> pages_;
    std::vector<bool> stale_;
    bool readsSoon_ = false;
};
