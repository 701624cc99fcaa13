#include "common/view_settings.h"

#include <QCoreApplication>
#include <QEvent>
#include <QHeaderView>
#include <QSettings>
#include <QSplitter>
#include <QTimer>

#include <functional>
#include <utility>

std::unique_ptr<QSettings> viewSettings()
{
    return std::make_unique<QSettings>(
        QCoreApplication::applicationDirPath() + QStringLiteral("/tellurix19_view.ini"),
        QSettings::IniFormat);
}

// A column that takes the rest of the width has none of its own: remembered, it would be cut off in a wider
// table, or push the others out of a narrower one.
static bool hasOwnWidth(const QHeaderView* header, int column)
{
    return header->sectionResizeMode(column) == QHeaderView::Interactive
        && (!header->stretchLastSection() || column != header->count() - 1);
}

static void saveWidths(const QHeaderView* header, const QString& name)
{
    QStringList widths;
    for (int column = 0; column < header->count(); ++column)
        widths += QString::number(hasOwnWidth(header, column) ? header->sectionSize(column) : 0);
    viewSettings()->setValue(QStringLiteral("widths/") + name, widths);
}

namespace
{

// A drag reports every pixel; the file follows when the hand rests, or at once when what was dragged goes out
// of view: a closed screen is deleted before the hand has rested.
class RestingHand : public QObject
{
public:
    RestingHand(QWidget* dragged, std::function<void()> save)
        : QObject(dragged)
        , save_(std::move(save))
    {
        rest_.setSingleShot(true);
        rest_.setInterval(400);
        connect(&rest_, &QTimer::timeout, this, [this] { save_(); });
        dragged->installEventFilter(this);
    }
    void wait() { rest_.start(); }

protected:
    bool eventFilter(QObject* dragged, QEvent* event) override
    {
        if (event->type() == QEvent::Hide && rest_.isActive()) {
            rest_.stop();
            save_();
        }
        return QObject::eventFilter(dragged, event);
    }

private:
    std::function<void()> save_;
    QTimer rest_;
};

} // namespace

void keepColumnWidths(QHeaderView* header, const QString& name)
{
    const QStringList widths = viewSettings()->value(QStringLiteral("widths/") + name).toStringList();
    for (int column = 0; column < qMin(header->count(), widths.size()); ++column)
        if (const int width = widths[column].toInt(); width > 0 && hasOwnWidth(header, column))
            header->resizeSection(column, width);

    auto* hand = new RestingHand(header, [header, name] { saveWidths(header, name); });
    QObject::connect(header, &QHeaderView::sectionResized, hand, [hand] { hand->wait(); });
}

void keepSplitter(QSplitter* splitter, const QString& name, const QList<int>& sizes)
{
    const QString key = QStringLiteral("splitters/") + name;
    splitter->setChildrenCollapsible(false);
    splitter->setSizes(sizes);
    splitter->restoreState(viewSettings()->value(key).toByteArray());
    auto* hand =
        new RestingHand(splitter, [splitter, key] { viewSettings()->setValue(key, splitter->saveState()); });
    QObject::connect(splitter, &QSplitter::splitterMoved, hand, [hand] { hand->wait(); });
}
