#pragma once

#include "common/mode_screen.h"
#include "listCoords/point_table.h"
#include "listCoords/project_head.h"

#include <functional>
#include <optional>

class EditGrid;
class HeadPanel;
class NoticeBar;
class PlanPane;
class QLineEdit;

// The screen of the coordinates' list: the project's head, the table of all points, the plan beside it.
class ListCoords : public ModeScreen
{
    Q_OBJECT

public:
    ListCoords(TX_Modes mode, ITellurixController* controller);
    ~ListCoords() override;

protected:
    void readProject(IDBProject* project) override;
    void forgetProject() override;
    void closeEditors() override;
    bool store() override;
    void becomeCurrent() override;
    void addRecord() override;
    void deleteRecords() override;
    void printReport() override;
    void showUnsaved(int number) override;
    void showEvent(QShowEvent* event) override;

private:
    QWidget* makeTablePane();
    void connectViews();

    void showPlan(const GridRows& rows);
    void showAccess();

    void edit(const GridRows& after);
    // Asks what there is to ask about the change that waits, then makes it.
    void settle();
    bool isWanted(const PointsChange& change);
    void make(const PointsChange& change);
    void removeNow(IDBProject& project, PointsChange& change);
    // The step before a change: the same as it was typed, before it was mended.
    void noteTyping(const PointsChange& typing, PointsChange& change);
    void keep(const PointsChange& change, IMCommand* command);
    void mendNumbers();
    void showCommas(const GridRows& rows);
    // What is not stored: the lines of the head first. A row of 0 is the head.
    QVector<PointTable::OpenCell> openCells();
    void tellProblems();
    std::function<void(const PointsState&)> putter() const;
    void editHead(const ProjectHead& after);

    void askNameOnce();
    void askName();

    PointTable table_;
    std::optional<std::map<qint64, std::wstring>> shownPoints_; // by their rows
    std::optional<PointsChange> waiting_;
    IDBProject* asked_ = nullptr; // has been asked for its name; only compared
    HeadPanel* head_;
    EditGrid* grid_;
    PlanPane* pane_;
    NoticeBar* commas_;
};
