#pragma once

#include "common/page.h"
#include "plots/sounding_graph.h"
#include "static/sounding_choice.h"

#include <memory>

class DrawingView;
class ModeScreen;
class QComboBox;
class QListWidget;
class QSpinBox;

// Graphs: the chosen sounding, the ticked ones over each other, or all one after the other, in the scales
// that the project keeps.
class GraphPage : public Page
{
    Q_OBJECT

public:
    GraphPage(ModeScreen& screen, std::shared_ptr<SoundingChoice> choice);

    void read(IDBProject* project) override;
    std::optional<Document> report() override;
    void tellView(ITellurixController& controller) const override;
    void settingsChanged() override { }

private:
    enum Mode { OnePoint, Ticked, All };

    void layOut();
    void readPoints(IDBProject& project);
    void readScales(IDBProject& project);
    void storeScales();
    void draw();
    SoundingGraphLook look() const;
    std::vector<Drawing> drawings(IDBProject& project) const;

    ModeScreen& screen_;
    const std::shared_ptr<SoundingChoice> choice_;
    QListWidget* points_;
    QComboBox* mode_;
    QSpinBox* vertical_;
    QSpinBox* tip_;
    QSpinBox* sleeve_;
    DrawingView* view_;
    bool isReading_ = false;
};
