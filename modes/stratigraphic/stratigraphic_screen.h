#pragma once

#include "common/edit_grid_model.h"
#include "common/mode_screen.h"
#include "drawing/hatch.h"
#include "stratigraphic/column_file.h"

class DrawingView;
class EditGrid;
class QLabel;
class QLineEdit;

// A stratigraphic column of its own, without a project: its layers as a table on the left, the drawing on the
// right. What is not yet in its file is told to the shell as a modified column.
class StratigraphicScreen : public ModeScreen
{
    Q_OBJECT

public:
    StratigraphicScreen(TX_Modes mode, ITellurixController* controller, QWidget* parent = nullptr);
    ~StratigraphicScreen() override;

    const StrataColumn& column() const { return column_; }
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
    void take(const GridRows& rows);
    void showRows();
    void drawColumn();
    void setModified(bool isModified);
    bool mayDrop();
    void startNew();
    void askOpen();
    void saveAs();
    GridRow rowOf(int layer) const;
    QString hatchText(int number) const;
    int hatchNumber(const QString& text) const;

    Hatches hatches_;
    StrataColumn column_;
    QVector<qint64> ids_;
    qint64 nextId_ = 1;
    QString file_;
    bool isModified_ = false;
    QLineEdit* title_;
    QLabel* fileName_;
    EditGrid* grid_;
    DrawingView* view_;
};
