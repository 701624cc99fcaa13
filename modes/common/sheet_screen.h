#pragma once

#include "common/mode_screen.h"
#include "common/sheet_page.h"

#include <map>
#include <optional>
#include <string_view>
#include <vector>

class QLabel;
class QLineEdit;
class QTabWidget;
class QTimer;

// By the names of the sheets that have one.
using SheetDrawings = std::map<std::string_view, MakeDrawing>;

// The screen of a mode whose data is not edited yet: its sheets behind tabs, a filter, and a line that says
// so. It reads the project when it comes into view and when something has changed, the sheet in front alone,
// and never writes to it.
class SheetScreen : public ModeScreen
{
public:
    // The sheets are not copied: they stand for the whole run. So does the controller.
    SheetScreen(TX_Modes mode,
        ITellurixController* controller,
        const std::vector<Table>& sheets,
        const SheetDrawings& drawings = {},
        QWidget* parent = nullptr);

protected:
    void readProject(IDBProject*) override;
    void becomeCurrent() override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void addPages(const std::vector<Table>& sheets, const SheetDrawings& drawings);
    QWidget* makeHead();
    QLabel* makeNote();
    void connectViews();
    void addShortcuts();
    void turnPage(int by);
    void readFront();
    void filter();
    void showCount();
    SheetPage* page() const;
    std::optional<TableSource> source() const;

    QLineEdit* filter_ = nullptr;
    QLabel* count_ = nullptr;
    QTimer* filterRest_ = nullptr;
    QTabWidget* tabs_ = nullptr; // null for a single sheet
    std::vector<SheetPage*> pages_;
    std::vector<bool> stale_;
};
