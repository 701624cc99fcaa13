#pragma once

#include "laboratory/sample_edits.h"
#include "laboratory/test_choice.h"
#include "plots/laboratory_curves.h"
#include "site/laboratory.h"

#include <QWidget>

#include <memory>
#include <optional>

class DrawingView;
class ISettings;
class SiteLaboratory;
class SoilInPlace;

// The curve of one sample's test. A point is dragged up and down: the curve follows at once, and the drop is
// one step of undo. A click on a point goes to its cell, the right button leaves the point out.
class SampleCurve : public QWidget
{
    Q_OBJECT

public:
    explicit SampleCurve(LabTest test, QWidget* parent = nullptr);
    ~SampleCurve() override;

    void showTest(IDBProject& project,
        const PointDepthKey& key,
        const LabSample& sample,
        const TestChoice& choice,
        ISettings& settings);
    void showMessage(const QString& text);
    // Layers, elements or other samples may be others now; or samples alone, as this screen changes them.
    void forgetSite();
    void forgetSamples();

    DrawingView& view() { return *view_; }

Q_SIGNALS:
    void edited(const SampleStates& before, const SampleStates& after);
    // The number of the cell that the point comes from.
    void pointChosen(int cell);

private:
    SampleResult resultOf(const LabSample& sample) const;
    CurveLook lookFor(ISettings& settings);
    void move(qint64 id, double x, double y, bool isDropped);
    void openMenu(const QPoint& at);
    void store(LabSample made);

    const LabTest test_;
    DrawingView* view_;
    IDBProject* project_ = nullptr;
    std::unique_ptr<SoilInPlace> soil_; // made when compression needs it
    std::unique_ptr<SiteLaboratory> site_; // made when all curves share a scale
    PointDepthKey key_;
    LabSample sample_;
    SampleResult result_;
    TestChoice choice_;
    CurveLook look_;
    std::optional<Chart> chart_; // as shown; its axes stay while a point is dragged
};
