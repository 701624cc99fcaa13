#pragma once

#include "core/base/mobservable.h"
#include "listCoords/point_table.h"
#include "listCoords/project_head.h"
#include "modules/tx_widget.h"

#include <functional>
#include <optional>

class EditGrid;
class HeadPanel;
class IDBProject;
class NoticeBar;
class ITellurixController;
class PlanPane;
class QLineEdit;
class QSplitter;

// The screen of the coordinates' list: the project's head, the table of all points, the plan beside it.
class ListCoords : public TXWidget, public IMObserver
{
    Q_OBJECT

public:
    ListCoords(TX_Modes mode, ITellurixController* controller);
    ~ListCoords() override;

    // The project has changed, by an undo for instance.
    void update() override;

protected:
    void showEvent(QShowEvent* event) override;
    bool event(QEvent* event) override;

private:
    QWidget* makeTablePane();
    void keepSplitter(QSplitter* splitter);
    void connectShell();

    // The shell drops all observers whenever a project is opened or a closing is given up.
    void observe();
    bool isOnView() const;
    void reload();
    void showPlan(const GridRows& rows);
    void tellActions();
    void printRegister();
    void becomeCurrent();
    bool store();

    void edit(const GridRows& after);
    // Asks what there is to ask about the change that waits, then makes it.
    void settle();
    bool isWanted(const PointsChange& change);
    void make(const PointsChange& change);
    void removeNow(IDBProject& project, PointsChange& change);
    // The step before a change: the same as it was typed, before it was mended.
    void noteTyping(const PointsChange& typing, PointsChange& change);
    void mendNumbers();
    void showCommas(const GridRows& rows);
    // What is not stored: the lines of the head first. A row of 0 is the head.
    QVector<PointTable::OpenCell> openCells();
    void tellProblems();
    void showOpenCell(int number);
    std::function<void(const PointsState&)> putter() const;
    void editHead(const ProjectHead& after);

    void askNameOnce();
    void askName();

    TX_Modes mode_;
    ITellurixController* controller_;
    PointTable table_;
    std::optional<PointsChange> waiting_;
    IDBProject* shown_ = nullptr; // whose drafts the table holds; only compared
    IDBProject* asked_ = nullptr; // has been asked for its name; only compared
    bool stale_ = false;
    HeadPanel* head_;
    EditGrid* grid_;
    PlanPane* pane_;
    NoticeBar* commas_;
    QString toldProblem_;
};
