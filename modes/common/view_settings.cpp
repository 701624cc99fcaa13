#include "common/view_settings.h"

#include <QCoreApplication>
#include <QHeaderView>
#include <QSettings>
#include <QSplitter>
#include <QTimer>

std::unique_ptr<QSettings> viewSettings()
{
    return std::make_unique<QSettings>(
        QCoreApplication::applicationDirPath() + QStringLiteral("/tellurix19_view.ini"),
        QSettings::IniFormat);
}

// A last column that takes the rest of the width has none of its own: remembered, it would be cut off in a
// wider table, or push the others out of a narrower one.
static bool hasOwnWidth(const QHeaderView* header, int column)
{
    return !header->stretchLastSection() || column != header->count() - 1;
}

static void saveWidths(const QHeaderView* header, const QString& name)
{
    QStringList widths;
    for (int column = 0; column < header->count(); ++column)
        widths += QString::number(hasOwnWidth(header, column) ? header->sectionSize(column) : 0);
    viewSettings()->setValue(QStringLiteral("widths/") + name, widths);
}

// A drag reports every pixel; the file follows when the hand rests.
template <class Save>
static QTimer* whenHandRests(QObject* owner, Save save)
{
    auto* rest = new QTimer(owner);
    rest->setSingleShot(true);
    rest->setInterval(400);
    QObject::connect(rest, &QTimer::timeout, owner, save);
    return rest;
}

void keepColumnWidths(QHeaderView* header, const QString& name)
{
    const QStringList widths = viewSettings()->value(QStringLiteral("widths/") + name).toStringList();
    for (int column = 0; column < qMin(header->count(), widths.size()); ++column)
        if (const int width = widths[column].toInt(); width > 0 && hasOwnWidth(header, column))
            header->resizeSection(column, width);

    QTimer* rest = whenHandRests(header, [header, name] { saveWidths(header, name); });
    QObject::connect(header, &QHeaderView::sectionResized, rest, [rest] { rest->start(); });
}

void keepSplitter(QSplitter* splitter, const QString& name, const QList<int>& sizes)
{
    const QString key = QStringLiteral("splitters/") + name;
    splitter->setChildrenCollapsible(false);
    splitter->setSizes(sizes);
    splitter->restoreState(viewSettings()->value(key).toByteArray());
    QTimer* rest =
        whenHandRests(splitter, [splitter, key] { viewSettings()->setValue(key, splitter->saveState()); });
    QObject::connect(splitter, &QSplitter::splitterMoved, rest, [rest] { rest->start(); });
}
