#pragma once

#include "tables/table.h"

#include <QWidget>

#include <functional>
#include <optional>

class EmptyState;
class QLabel;
class QStackedLayout;
class SheetModel;
class TableView;

// For lines beside the data: text between black and the ground, still easy to read.
QPalette quietPalette(const QPalette& palette);

// A drawing of the row chosen in a sheet, beside its tables. Shows nothing while no row is chosen; else the
// first cell of the row stands in the source.
struct SheetDrawing {
    QWidget* view = nullptr;
    std::function<void(const std::optional<TableSource>& source)> show;
};
using MakeDrawing = std::function<SheetDrawing(QWidget* parent)>;

// A sheet in view: its table, below it the table of details where the sheet has one, a sentence in place of
// either while it has no rows.
class SheetPage : public QWidget
{
    Q_OBJECT

public:
    // The project of the moment, or nothing while none is open.
    using Source = std::function<std::optional<TableSource>()>;

    // The picture stands above the sentence of a sheet without rows.
    SheetPage(const Table& sheet,
        Source source,
        const QString& picture,
        const MakeDrawing& makeDrawing = {},
        QWidget* parent = nullptr);

    // Reads the project anew. Place and selection stay while the rows are the same; the current row stays
    // near while they are not.
    void read();
    void setFilterText(const QString& text);

    int shownRows() const;
    int allRows() const;
    void focusTable();
    void exportRows();

Q_SIGNALS:
    void rowsChanged();

private:
    QWidget* makeContent();
    QWidget* besideDrawing(QWidget* tables, const MakeDrawing& makeDrawing);
    QWidget* makeDetail();
    void keepingPlace(const std::function<bool()>& change);
    void showState();
    void readChosen();
    void readDetail(const std::optional<TableSource>& source);
    void hideEmptyColumns();

    const Table& sheet_;
    Source source_;
    SheetModel* model_;
    TableView* table_;
    EmptyState* message_;
    QStackedLayout* stack_;
    SheetModel* detailModel_ = nullptr;
    QLabel* detailTitle_ = nullptr;
    SheetDrawing drawing_;
};
