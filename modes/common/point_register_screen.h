#pragma once

#include "common/exchange_command.h"
#include "common/mode_screen.h"
#include "common/register_memory.h"

#include <memory>

class EditGrid;
class NoticeBar;
class QLabel;
class QSplitter;

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
    const std::wstring& wantedPoint() const;
    void takePoint(const QVector<ListedPoint>& points, const std::wstring& wanted);
    void connectViews();
    void layOut();
    void choosePoint(const QString& name);
    void showPoint();
    void showAccess();
    void edit(const GridRows& after);
    ExchangeCommand<RegisterState>::Apply putter() const;
    void addStep(RegisterState before, RegisterState after);
    void exchange(const RegisterState& before, const RegisterState& after);
    void mendRegister();
    void showCommas(IDBProject* project);
    void tellProblems();
    void forgetOtherProject();

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
