#include "common/view_settings.h"

#include "common/resting_hand.h"

#include <QCoreApplication>
#include <QSettings>
#include <QSplitter>

std::unique_ptr<QSettings> viewSettings()
{
    return std::make_unique<QSettings>(
        QCoreApplication::applicationDirPath() + QStringLiteral("/tellurix19_view.ini"),
        QSettings::IniFormat);
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
