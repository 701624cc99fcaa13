#include "common/column_register_screen.h"
#include "common/named_numbers.h"
#include "dictionaries/soil_names.h"
#include "modules/isettings.h"
#include "modules/module_export.h"

namespace
{

enum Column { From, To, Kind };

class Consistencies : public DepthRegisterOf<ConsistencyRegister>
{
public:
    Consistencies()
        : DepthRegisterOf(&IDBProject::getConsistency, &IDBProject::addConsistency)
    {
    }

    QString name() const override { return QStringLiteral("consistents/intervals"); }
    QString emptyText() const override
    {
        return QStringLiteral(
            "У этой точки консистенция не описана.\nIns — добавить интервал, Ctrl+V — вставить из таблицы.");
    }
    int depthColumn() const override { return To; }

    void useSettings(ISettings* settings) override
    {
        const int language = settings ? settings->reportLanguage() : languageRussian;
        kinds_ = {};
        for (const BilingualRow& row : consistencyNames)
            kinds_.add(row.number, language == languageUkrainian ? row.ukrainian : row.russian);
    }

    QVector<GridColumn> columns() const override
    {
        return {{QStringLiteral("От, м"), GridColumn::Number, 100, {}, true},
            {QStringLiteral("До, м"), GridColumn::Number, 100},
            {QStringLiteral("Консистенция"), GridColumn::Choice, 240, kinds_.names()}};
    }

    // An interval begins where the one above ends.
    void complete(GridRows& rows, const PointFacts&) const override
    {
        QString from = QStringLiteral("0");
        for (GridRow& row : rows) {
            if (!row.problems.value(To).isEmpty() || row.cells[To].isEmpty())
                continue;
            row.cells[From] = from;
            from = row.cells[To];
        }
    }

protected:
    QVector<QString> cellsOf(const ConsistencyValue& interval) const override
    {
        return {QString(), QString(), kinds_.nameOf(interval.consistencyKind)};
    }

    QString readCell(int column, const QString& text, ConsistencyValue& interval) const override
    {
        if (column != Kind || kinds_.read(text, interval.consistencyKind))
            return {};
        return QStringLiteral("Выберите консистенцию из списка.");
    }

private:
    NamedNumbers kinds_;
};

} // namespace

TELLURIX_MODULE QWidget* createWidget(const TX_Modes* mode, ITellurixController* controller)
{
    return new ColumnRegisterScreen(*mode, std::make_shared<Consistencies>(), controller, From, To);
}
