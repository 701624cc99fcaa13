#pragma once

#include "common/page.h"
#include "common/soil_patterns.h"
#include "site/element_edits.h"

#include <QHash>

#include <functional>
#include <map>
#include <string_view>

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
    bool canAdd() const override { return true; }
    bool canDelete() const override { return true; }
    void tellView(ITellurixController& controller) const override;

private:
    using Act = std::function<void(ElementsState& state, IDBProject& project)>;
    using NameForm = std::function<std::wstring(std::wstring_view name)>;

    void makeNotice();
    QHBoxLayout* makeButtons();
    void edit(const QVector<GridRow>& after);
    // Where some names have letters and others none, offers to give all of them one form.
    void take(const QVector<GridRow>& after, const NameForm& form);
    void applyRows(
        const QVector<GridRow>& after, ElementsState& state, IDBProject& project, const NameForm& form);
    // The name that is meant by what stands in a cell: names of the one form are shown short.
    std::wstring typedName(const QString& cell) const;
    void applyCell(ElementsState& state, const std::wstring& name, int column, const QString& text) const;
    // Makes the change one undo step; what cannot be is told and changes nothing.
    bool make(const Act& act);
    void refuse(const QString& why, const QString& offer = {}, const std::function<void()>& accept = {});
    void offerUniformNames(IDBProject& project);
    void renumber();
    void merge();
    void split();
    void chooseColor();
    void chooseHatch();
    std::wstring currentElement() const;
    qint64 idOf(const std::wstring& name);
    QVector<QString> cellsOf(
        IDBProject& project, const std::wstring& name, const StrataElement& element) const;

    ModeScreen& screen_;
    SoilPatterns patterns_;
    QFrame* notice_;
    QLabel* noticeText_;
    QPushButton* noticeButton_;
    std::function<void()> accept_;
    EditGrid* grid_;
    std::map<std::wstring, qint64> ids_;
    QHash<qint64, std::wstring> names_; // of the rows
    qint64 lastId_ = 0;
};
