#include "common/column_register_screen.h"
#include "core/base/calendar_date.h"
#include "modules/module_export.h"

namespace
{

enum Column { Depth, Date, Appeared, Settled };

QString flagText(std::int32_t flag)
{
    return flag != 0 ? QStringLiteral("1") : QString();
}

class WaterLevels : public DepthRegisterOf<WaterRegister>
{
public:
    WaterLevels()
        : DepthRegisterOf(&IDBProject::getWaterLevels, &IDBProject::addWaterLevel)
    {
    }

    QString name() const override { return QStringLiteral("waters/levels"); }
    QString emptyText() const override
    {
        return QStringLiteral(
            "У этой точки нет замеров воды.\nIns — добавить замер, Ctrl+V — вставить из таблицы.");
    }
    int depthColumn() const override { return Depth; }
    void useSettings(ISettings*) override { }

    QVector<GridColumn> columns() const override
    {
        return {{QStringLiteral("Глубина уровня, м"), GridColumn::Number, 140},
            {QStringLiteral("Дата замера"), GridColumn::Date, 120},
            {QStringLiteral("Появление"), GridColumn::Flag, 100},
            {QStringLiteral("Установление"), GridColumn::Flag, 110}};
    }

    void complete(GridRows&, const PointFacts&) const override { }

protected:
    QVector<QString> cellsOf(const WaterValue& level) const override
    {
        return {QString(),
            QString::fromStdWString(dateText(level.date)),
            flagText(level.flagA),
            flagText(level.flagB)};
    }

    QString readCell(int column, const QString& text, WaterValue& level) const override
    {
        if (column == Date)
            return readDateCell(text, level.date);
        std::int32_t& flag = column == Appeared ? level.flagA : level.flagB;
        flag = text.isEmpty() ? 0 : 1;
        return {};
    }

private:
    static QString readDateCell(const QString& text, Date3& date)
    {
        const std::optional<Date3> read = text.isEmpty() ? Date3() : readDate(text.toStdWString());
        date = read.value_or(date);
        if (!read)
            return QStringLiteral("«%1» — не дата. Введите день, месяц и год: 31.12.2019.").arg(text);
        return {};
    }
};

} // namespace

TELLURIX_MODULE QWidget* createWidget(const TX_Modes* mode, ITellurixController* controller)
{
    return new ColumnRegisterScreen(*mode, std::make_shared<WaterLevels>(), controller, Depth, Depth);
}
