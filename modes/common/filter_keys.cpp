#include "common/filter_keys.h"

#include <QKeyEvent>
#include <QLineEdit>

namespace
{

class FilterKeys : public QObject
{
public:
    FilterKeys(QLineEdit* filter, const std::function<QWidget*()>& table)
        : QObject(filter)
        , filter_(filter)
        , table_(table)
    {
    }

protected:
    bool eventFilter(QObject*, QEvent* event) override
    {
        if (event->type() != QEvent::KeyPress)
            return false;
        switch (static_cast<const QKeyEvent&>(*event).key()) {
        case Qt::Key_Escape:
            filter_->clear();
            break;
        case Qt::Key_Up:
        case Qt::Key_Down:
        case Qt::Key_Return:
        case Qt::Key_Enter:
            break;
        default:
            return false;
        }
        table_()->setFocus();
        return true;
    }

private:
    QLineEdit* filter_;
    std::function<QWidget*()> table_;
};

} // namespace

void leadFilterToTable(QLineEdit* filter, const std::function<QWidget*()>& table)
{
    filter->installEventFilter(new FilterKeys(filter, table));
}
