#pragma once

#include "common/drawing_canvas.h"

#include <QString>

#include <vector>

class QAction;
class QComboBox;
class QLabel;
class QToolBar;

// The sheets of a drawing with all that one does to them: leaf through, zoom, copy, save in every format,
// print. The screens put their own actions before those of the view.
class DrawingView : public QWidget
{
    Q_OBJECT

public:
    explicit DrawingView(QWidget* parent = nullptr);

    // The sheets, and under which name a file of them is proposed. The shown sheet keeps its number where it
    // can.
    void setPages(std::vector<Drawing> pages, const Hatches& hatches, const QString& fileName);
    const std::vector<Drawing>& pages() const { return pages_; }
    const Hatches& hatches() const { return hatches_; }
    int page() const { return page_; }
    void showPage(int page);
    // On which the user has to act, in the place of sheets; empty: none.
    void setMessage(const QString& text);

    DrawingCanvas& canvas() { return *canvas_; }
    QToolBar& bar() { return *bar_; }

    void copy();
    void saveAs();
    void print();

Q_SIGNALS:
    // 0: nothing has an id there.
    void hovered(qint64 id);
    void clicked(qint64 id);
    void pageShown(int page);

private:
    QAction* addAction(const QString& text, const QString& tip, void (DrawingView::*act)());
    void fit();
    void showRealSize();
    void showNext();
    void showBefore();

    std::vector<Drawing> pages_;
    Hatches hatches_;
    QString fileName_;
    int page_ = 0;
    QToolBar* bar_;
    QComboBox* pageChoice_;
    QAction* before_ = nullptr;
    QAction* next_ = nullptr;
    QLabel* zoom_;
    QLabel* message_;
    DrawingCanvas* canvas_;
};
