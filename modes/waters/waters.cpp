#include "common/column_register_screen.h"
#include "modules/module_export.h"

#include <QDate>
#include <QRegularExpression>

namespace
{

enum Column { Depth, Date, Appeared, Settled };

// Day, month, year as people part them; years of two digits are those of the surveys that are on file.
bool readDate(const QString& text, Date3& date)
{
    static const QRegularExpression form(
        QStringLiteral("^\\s*(\\d{1,2})[./-](\\d{1,2})[./-](\\d{2}|\\d{4})\\s*$"));
    const QRegularExpressionMatch match = form.match(text);
    if (!match.hasMatch())
        return false;
    int year = match.captured(3).toInt();
    if (match.capturedLength(3) == 2)
        year += year < 70 ? 2000 : 1900;
    const Date3 read{year, match.captured(2).toInt(), match.captured(1).toInt()};
    if (read.year == 0 || !QDate::isValid(read.year, read.month, read.day))
        return false;
    date = read;
    return true;
}

QString dateText(const Date3& date)
{
    return date.year == 0 ? QString()
                          : QStringLiteral("%1.%2.%3")
                                .arg(date.day, 2, 10, QLatin1Char('0'))
                                .arg(date.month, 2, 10, QLatin1Char('0'))
                                .arg(date.year, 4, 10, QLatin1Char('0'));
}

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

    QVector<QString> cells(const RegisterValue& value) const override
    {
        const auto& level = std::get<WaterValue>(value);
        return {QString(), dateText(level.date), flagText(level.flagA), flagText(level.flagB)};
    }

    QString read(int column, const QString& text, RegisterValue& value) const override
    {
        auto& level = std::get<WaterValue>(value);
        if (column == Date)
            return readDateCell(text, level.date);
        std::int32_t& flag = column == Appeared ? level.flagA : level.flagB;
        flag = text.isEmpty() ? 0 : 1;
        return {};
    }

    void complete(GridRows&, const PointFacts&) const override { }

private:
    static QString readDateCell(const QString& text, Date3& date)
    {
        if (text.isEmpty())
            date = {};
        else if (!readDate(text, date))
            return QStringLiteral("«%1» — не дата. Введите день, месяц и год: 31.12.2019.").arg(text);
        return {};
    }
};

} // namespace

TELLURIX_MODULE QWidget* createWidget(const TX_Modes* mode, ITellurixController* controller)
{
    return new ColumnRegisterScreen(*mode, std::make_shared<WaterLevels>(), controller, Depth, Depth);
}
