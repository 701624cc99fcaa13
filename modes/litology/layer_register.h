#pragma once

#include "common/depth_register.h"

// The layers of a point, by the depth of their bottom.
class LayerRegister : public DepthRegisterOf<LithologyRegister>
{
public:
    enum Column { Bottom, Thickness, Mark, Index, Description, ColumnCount };

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
};
