#pragma once

#include "common/edit_grid_model.h"
#include "common/mode_screen.h"
#include "drawing/hatch.h"
#include "stratigraphic/strata_document.h"

#include <optional>

class DrawingView;
class EditGrid;
class QLabel;
class QLineEdit;

// A stratigraphic column of its own, without a project: its layers as a table on the left, the drawing on the
// right. What is not yet in its file is told to the shell as a modified column. Every edit can be undone, and
// so can the opening of another column.
class StratigraphicScreen : public ModeScreen
{
    Q_OBJECT

public:
    StratigraphicScreen(TX_Modes mode, ITellurixController* controller, QWidget* parent = nullptr);
    ~StratigraphicScreen() override;

    const StrataColumn& column() const { return document_->state.column; }
    // Opens the file; throws MException where it is no column.
    void open(const QString& file);
    // Writes it; throws MException.
    void saveTo(const QString& file);

protected:
    void readProject(IDBProject* project) override;
    void closeEditors() override;
    void becomeCurrent() override;
    void addRecord() override;
    void deleteRecords() override;
    void saveColumn() override;
    void printReport() override;
    void settingsChanged() override;

private:
    QWidget* makeEditor();
    void leave();
    void setColumn(const StrataColumn& column, const QString& file);
    void put(const StrataState& before, const StrataState& after);
    void typeTitle(const QString& text);
    void keepTitle();
    void take(const GridRows& rows);
    void showAll();
    void showRows();
    void drawColumn();
    void tellModified();
    bool mayDrop();
    void startNew();
    void askOpen();
    void saveAs();
    GridRow rowOf(int layer) const;
    QString hatchText(int number) const;
    int hatchNumber(const QString& text) const;
    int hatchOf(qint64 id) const;

    Hatches hatches_;
    std::shared_ptr<StrataDocument> document_;
    std::optional<StrataState> beforeTitle_; // while a title is being typed
    QLineEdit* title_;
    QLabel* fileName_;
    EditGrid* grid_;
    DrawingView* view_;
};
