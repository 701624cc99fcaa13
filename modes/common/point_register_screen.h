#pragma once

#include "common/depth_register.h"
#include "common/mode_screen.h"
#include "common/point_list.h"

#include <map>
#include <memory>

class EditGrid;
class NoticeBar;
class QLabel;
class QSplitter;

// What the user typed and the project could not take, by point. It lives as long as a screen or an undo step
// needs it, so a screen that is made anew finds it again.
struct RegisterMemory {
    const IDBProject* project = nullptr;
    std::map<std::wstring, RegisterRows> rows;
};

// The screen of a register: the points on the left, the rows of the chosen one on the right. The chosen point
// is the shell's edited sample, so every point has an undo history of its own. A row goes into the project as
// soon as it can be stored; until then it stays in the table as typed, marked, over reloads and changes of
// the point.
class PointRegisterScreen : public ModeScreen
{
    Q_OBJECT

public:
    PointRegisterScreen(TX_Modes mode,
        std::shared_ptr<DepthRegister> depthRegister,
        ITellurixController* controller,
        QWidget* parent = nullptr);

protected:
    // A view beside the table; it belongs to the screen from now on.
    void setSideView(QWidget* view);
    virtual void rowsShown(const GridRows&, const PointFacts&) { }
    EditGrid& grid() { return *grid_; }

    void readProject(IDBProject* project) override;
    void closeEditors() override;
    bool store() override;
    void becomeCurrent() override;
    void addRecord() override;
    void deleteRecords() override;
    void showUnsaved(int number) override;
    void keyPressEvent(QKeyEvent* event) override;

private:
    // A cell that the project could not take.
    struct OpenCell {
        std::wstring point;
        qint64 row = 0;
        int column = 0;
        QString text; // where and why
    };

    const std::wstring& wantedPoint() const;
    void takePoint(const QVector<ListedPoint>& points, const std::wstring& wanted);
    void connectViews();
    void layOut();
    void choosePoint(const QString& name);
    void leavePoint();
    void showPoint();
    void showAccess();
    void edit(const GridRows& after);
    ExchangeCommand<RegisterState>::Apply putter() const;
    void addStep(RegisterState before, RegisterState after);
    void exchange(const RegisterState& before, const RegisterState& after);
    void mendRegister();
    void showCommas(IDBProject* project);
    void tellProblems();
    QVector<ListedPoint> listedPoints(IDBProject& project) const;
    RegisterRows typedRows(const GridRows& typed) const;
    void clearComputed(RegisterRows& rows) const;
    // The cells that are not stored, those of the point on view first.
    QVector<OpenCell> openCells() const;
    void addOpenCells(QVector<OpenCell>& cells, const std::wstring& point, const RegisterRows& rows) const;
    void forgetOtherProject(const IDBProject* project);

    const std::shared_ptr<DepthRegister> register_;
    std::shared_ptr<RegisterMemory> memory_;
    std::wstring point_;
    RegisterRows rows_;

    PointList* points_;
    QLabel* head_;
    QLabel* emptyText_;
    NoticeBar* commas_;
    EditGrid* grid_;
    QSplitter* table_;
    QSplitter* splitter_;
};
