#pragma once

#include "common/edit_grid_model.h"
#include "common/page.h"

class EditGrid;
class ModeScreen;
class SiteSoundings;

// What the soundings say of the soils: each layer of each sounding, and each element over all of them.
class SoilsPage : public Page
{
    Q_OBJECT

public:
    explicit SoilsPage(ModeScreen& screen);

    void read(IDBProject* project) override;
    void calculate() override;
    void tellView(ITellurixController& controller) const override;

private:
    void editLayers();

    ModeScreen& screen_;
    class QComboBox* points_;
    EditGrid* layers_;
    EditGrid* elements_;
};
