#include "laboratory/sample_curve.h"

#include "common/drawing_view.h"
#include "laboratory/curve_points.h"
#include "laboratory/sample_cells.h"
#include "modules/isettings.h"
#include "site/elements.h"
#include "site/soil_in_place.h"

#include <QMenu>
#include <QVBoxLayout>

static constexpr CurveSize sizeOnScreen = {150, 100};

SampleCurve::SampleCurve(LabTest test, QWidget* parent)
    : QWidget(parent)
    , test_(test)
    , view_(new DrawingView(this))
{
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(view_);
    DrawingCanvas& canvas = view_->canvas();
    canvas.setMovable([](std::int64_t id) { return id > 0; });
    canvas.setContextMenuPolicy(Qt::CustomContextMenu);
    canvas.setToolTip(QStringLiteral("Точку можно тянуть мышью; правая кнопка — исключить ее из расчета."));
    connect(&canvas, &DrawingCanvas::moved, this, &SampleCurve::move);
    connect(&canvas, &QWidget::customContextMenuRequested, this, &SampleCurve::openMenu);
    connect(view_, &DrawingView::clicked, this, [this](qint64 id) {
        if (const int cell = cellOfPoint(sample_, choice_, id); cell >= 0)
            Q_EMIT pointChosen(cell);
    });
}

SampleCurve::~SampleCurve() = default;

void SampleCurve::forgetSite()
{
    soil_.reset();
    forgetSamples();
}

void SampleCurve::forgetSamples()
{
    site_.reset();
}

void SampleCurve::showMessage(const QString& text)
{
    chart_.reset();
    view_->setMessage(text);
}

// The kind of the element stands in for the plasticity, the stress in place for a typed one; other curves
// need neither.
SampleResult SampleCurve::resultOf(const LabSample& sample) const
{
    const bool needsSoil = test_ == LabTest::Compression && soil_;
    SampleResult result = sampleResult(sample,
        project_->getLabTriple(),
        grainScaleOf(*project_).value_or(GrainScale::Above200),
        needsSoil ? soil_->kindAt(key_) : 0);
    if (needsSoil)
        addCollapse(result, soil_->stressAt(key_));
    return result;
}

CurveLook SampleCurve::lookFor(ISettings& settings)
{
    const LabCurveSettings wanted{settings.isSmoothingGranLaboratory() != 0,
        settings.isSmoothingSwellingLaboratory() != 0,
        settings.isScaleGranGraphLaboratory() != 0,
        settings.isActiveSameScaleCompressGraphLabotatory() != 0};
    CurveLook look = lookOfTest(labModeOf(test_), wanted, sizeOnScreen);
    const bool isShared = test_ == LabTest::Grading ? wanted.oneScaleOfGrading : wanted.oneScaleOfCompression;
    if (isShared && (test_ == LabTest::Grading || test_ == LabTest::Compression)) {
        if (!site_)
            site_ = std::make_unique<SiteLaboratory>(*project_, 0);
        shareScale(look, labModeOf(test_), *site_);
    }
    return look;
}

void SampleCurve::showTest(IDBProject& project,
    const PointDepthKey& key,
    const LabSample& sample,
    const TestChoice& choice,
    ISettings& settings)
{
    project_ = &project;
    key_ = key;
    sample_ = sample;
    choice_ = choice;
    if (test_ == LabTest::Compression && !soil_)
        soil_ = std::make_unique<SoilInPlace>(project);
    look_ = lookFor(settings);
    result_ = resultOf(sample_);
    chart_ = chartOfTest(result_, labModeOf(test_), choice_.method, look_);
    if (!chart_) {
        view_->setMessage(QStringLiteral("%1, %2 м: испытание не проводилось.")
                              .arg(qText(key.pointName), qText(key.depth)));
        return;
    }
    view_->setPages({drawChart(*chart_)},
        {},
        QStringLiteral("%1-%2-%3").arg(qText(key.pointName), qText(key.depth), QLatin1String(nameOf(test_))));
}

void SampleCurve::move(qint64 id, double x, double y, bool isDropped)
{
    if (!chart_)
        return;
    LabSample made = sample_;
    if (!movePoint(made, result_, choice_, id, chartValueAt(*chart_, {x, y}).y))
        return;
    if (isDropped)
        return store(std::move(made));
    std::optional<Chart> chart = chartOfTest(resultOf(made), labModeOf(test_), choice_.method, look_);
    if (!chart)
        return;
    chart->x = chart_->x;
    chart->y = chart_->y;
    view_->canvas().setDrawing(drawChart(*chart), {});
}

void SampleCurve::openMenu(const QPoint& at)
{
    const std::int64_t id = view_->canvas().hoveredId();
    if (!chart_ || id == 0 || !canLeaveOut(choice_))
        return;
    const bool isOut = isLeftOut(sample_, choice_, id);
    QMenu menu(this);
    menu.addAction(isOut ? QStringLiteral("Вернуть точку в расчет") : QStringLiteral("Исключить точку"),
        this,
        [this, id, isOut] {
            LabSample made = sample_;
            leaveOut(made, choice_, id, !isOut);
            store(std::move(made));
        });
    menu.exec(view_->canvas().mapToGlobal(at));
}

void SampleCurve::store(LabSample made)
{
    Q_EMIT edited({{key_, sample_}}, {{key_, std::move(made)}});
}
