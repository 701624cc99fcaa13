#pragma once

#include "common/page.h"
#include "common/soil_patterns.h"
#include "site/element_edits.h"

#include <QHash>

#include <functional>

class EditGrid;
class ModeScreen;
class QFrame;
class QHBoxLayout;
class QLabel;
class QPushButton;
struct GridRow;

// The elements as a table: number, index, name, kind, look, and the values typed over the computed ones.
class ElementsPage : public Page
{
public:
    explicit ElementsPage(ModeScreen& screen, QWidget* parent = nullptr);

    void read(IDBProject* project) override;
    void forget() override;
    void closeEditors() override;
    void addRecord() override;
    void deleteRecords() override;
    void tellView(ITellurixController& controller) const override;

private:
    using Act = std::function<void(ElementsState& state, IDBProject& project)>;

    void makeNotice();
    QHBoxLayout* makeButtons();
    void edit(const QVector<GridRow>& after);
    void applyRows(const QVector<GridRow>& after, ElementsState& state, IDBProject& project);
    void applyCell(ElementsState& state, const std::wstring& name, int column, const QString& text) const;
    // Makes the change one undo step; what cannot be is told and changes nothing.
    bool make(const Act& act);
    void refuse(const QString& why, const QString& offer = {}, const std::function<void()>& accept = {});
    void offerUniformNames(IDBProject& project);
    void renumber();
    void merge();
    void chooseColor();
    void chooseHatch();
    std::wstring currentElement() const;
    qint64 idOf(const QString& name);
    QVector<QString> cellsOf(
        IDBProject& project, const std::wstring& name, const StrataElement& element) const;

    ModeScreen& screen_;
    SoilPatterns patterns_;
    QFrame* notice_;
    QLabel* noticeText_;
    QPushButton* noticeButton_;
    std::function<void()> accept_;
    EditGrid* grid_;
    QHash<QString, qint64> ids_;
    qint64 lastId_ = 0;
};
