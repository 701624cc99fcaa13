#pragma once

#include "common/depth_register.h"

// A layer with the number of its element, which the project keeps in the numbered links; empty: none given.
struct LayerValue : LithologyValue {
    LayerValue() = default;
    explicit LayerValue(const LithologyValue& layer)
        : LithologyValue(layer)
    {
    }

    std::wstring element;
};

// The layers of a point, by the depth of their bottom, with their elements.
class LayerRegister : public DepthRegisterOf<LithologyRegister, LayerValue>
{
public:
    enum Column { Bottom, Thickness, Mark, Index, Description, Element };

    LayerRegister()
        : DepthRegisterOf(&IDBProject::getLithology, &IDBProject::addLithology)
    {
    }

    QString name() const override;
    QVector<GridColumn> columns() const override;
    int depthColumn() const override { return Bottom; }
    QString emptyText() const override;
    void complete(GridRows& rows, const PointFacts& point) const override;
    void useSettings(ISettings*) override { }
    void useProject(IDBProject* project) override;
    // A layer takes its element along, whatever number it has now. One that stood in the rows before keeps
    // what it was given meanwhile on the screen of the elements.
    RegisterRows store(IDBProject& project, const PointState& state) const override;

protected:
    QVector<QString> cellsOf(const LayerValue& layer) const override;
    QString readCell(int column, const QString& text, LayerValue& layer) const override;
    DepthsAndValues load(IDBProject& project, const std::wstring& point) const override;

private:
    QString shownElement(const std::wstring& element) const;
    void relink(IDBProject& project,
        const PointState& state,
        const DepthsAndValues& former,
        const RegisterRows& stored) const;

    std::vector<std::wstring> elements_; // of the project
};
