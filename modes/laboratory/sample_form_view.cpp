#include "laboratory/sample_form_view.h"

#include "common/edit_grid.h"
#include "laboratory/sample_marks.h"
#include "laboratory/test_head.h"
#include "site/elements.h"

#include <QVBoxLayout>

SampleFormView::SampleFormView(LabTest test, QWidget* parent)
    : QWidget(parent)
    , test_(test)
    , layout_(new QVBoxLayout(this))
{
    layout_->setContentsMargins(0, 0, 0, 0);
    if (test != LabTest::Compression && test != LabTest::Shear)
        return;
    head_ = new TestHead(test, this);
    layout_->addWidget(head_);
    connect(head_, &TestHead::told, this, &SampleFormView::told);
    connect(head_, &TestHead::edited, this, [this](const LabSample& made) {
        Q_EMIT edited({{key_, sample_}}, {{key_, made}});
    });
}

void SampleFormView::closeEditor()
{
    if (grid_)
        grid_->closeEditor();
    if (head_)
        head_->closeEditor();
}

void SampleFormView::showCell(int number)
{
    if (grid_)
        grid_->showRow(number + 1, 1);
}

void SampleFormView::makeGrid()
{
    QStringList heads;
    for (const GridColumn& column : form_.columns)
        heads.push_back(column.title);
    if (grid_ && heads == heads_)
        return;
    heads_ = heads;
    const bool hadFocus = grid_ && grid_->isAncestorOf(focusWidget());
    if (grid_) {
        // This may be the end of an edit that the old one tells of.
        grid_->hide();
        grid_->setObjectName({});
        grid_->deleteLater();
    }
    grid_ =
        new EditGrid(QStringLiteral("laboratory/form/") + QLatin1String(nameOf(test_)), form_.columns, this);
    grid_->setObjectName(QStringLiteral("form"));
    grid_->setAccessibleName(QStringLiteral("Испытание пробы"));
    grid_->setRowsGrow(form_.rowsGrow);
    connect(grid_, &EditGrid::edited, this, &SampleFormView::take);
    connect(grid_, &EditGrid::told, this, &SampleFormView::told);
    layout_->addWidget(grid_);
    grid_->show();
    setFocusProxy(grid_);
    if (hadFocus)
        grid_->setFocus();
}

void SampleFormView::mark(GridRows& rows, const SampleResult& result) const
{
    std::vector<std::string> marks;
    for (const GridRow& row : qAsConst(rows))
        marks.push_back(form_.mark(row));
    markRows(rows, 1, marks, result.remarks);
    if (!form_.isComputed)
        return;
    for (GridRow& row : rows)
        for (int column = 1; column < form_.columns.size(); ++column)
            if (form_.isComputed(row, column, result))
                row.computed |= quint64{1} << unsigned(column);
}

void SampleFormView::read(IDBProject& project,
    const PointDepthKey& key,
    const LabSample& sample,
    const TestChoice& choice,
    int language,
    bool hasAllRows)
{
    key_ = key;
    sample_ = sample;
    form_ = sampleForm(project, choice, language, hasAllRows);
    makeGrid();
    if (head_)
        head_->read(sample, project.getLabTriple(), choice.method);
    GridRows rows = form_.read(sample);
    mark(rows,
        sampleResult(
            sample, project.getLabTriple(), grainScaleOf(project).value_or(GrainScale::Above200), 0));
    grid_->setRows(rows);
}

void SampleFormView::take(const GridRows& after)
{
    LabSample made = sample_;
    form_.write(made, after);
    Q_EMIT edited({{key_, sample_}}, {{key_, std::move(made)}});
}
