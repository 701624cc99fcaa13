#include "common/column_register_screen.h"
#include "common/named_numbers.h"
#include "dictionaries/laboratory_vocabulary.h"
#include "modules/module_export.h"

namespace
{

enum Column { Depth, Kind };

class Samples : public DepthRegisterOf<SampleRegister>
{
public:
    Samples()
        : DepthRegisterOf(&IDBProject::getSamples, &IDBProject::addSample)
    {
        for (const auto& [number, name] : sampleKinds)
            kinds_.add(number, name);
    }

    QString name() const override { return QStringLiteral("tests/samples"); }
    QString emptyText() const override
    {
        return QStringLiteral("У этой точки нет проб.\nIns — добавить пробу, Ctrl+V — вставить из таблицы.");
    }
    int depthColumn() const override { return Depth; }
    void useSettings(ISettings*) override { }

    QVector<GridColumn> columns() const override
    {
        return {{QStringLiteral("Глубина отбора, м"), GridColumn::Number, 140},
            {QStringLiteral("Вид пробы"), GridColumn::Choice, 220, kinds_.names()}};
    }

    void complete(GridRows&, const PointFacts&) const override { }

protected:
    QVector<QString> cellsOf(const SampleValue& sample) const override
    {
        return {QString(), kinds_.nameOf(sample.sampleKind)};
    }

    QString readCell(int, const QString& text, SampleValue& sample) const override
    {
        return kinds_.read(text, sample.sampleKind) ? QString()
                                                    : QStringLiteral("Выберите вид пробы из списка.");
    }

private:
    NamedNumbers kinds_;
};

} // namespace

TELLURIX_MODULE QWidget* createWidget(const TX_Modes* mode, ITellurixController* controller)
{
    return new ColumnRegisterScreen(*mode, std::make_shared<Samples>(), controller, Depth, Depth);
}
