#pragma once

#include "common/depth_register.h"

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
    QVector<QString> cells(const RegisterValue& value) const override;
    QString read(int column, const QString& text, RegisterValue& value) const override;
    void complete(GridRows& rows, const PointFacts& point) const override;
    void useSettings(ISettings*) override { }
    void useProject(IDBProject* project) override;
    // A layer takes its element along, whatever number it has now. One that stood in the rows before keeps
    // what it was given meanwhile on the screen of the elements.
    RegisterRows store(IDBProject& project, const PointState& state) const override;

protected:
    DepthsAndValues load(IDBProject& project, const std::wstring& point) const override;

private:
    QString shownElement(const std::wstring& element) const;
    void relink(IDBProject& project,
        const PointState& state,
        const DepthsAndValues& former,
        const RegisterRows& stored) const;

    std::vector<std::wstring> elements_; // of the project
};
