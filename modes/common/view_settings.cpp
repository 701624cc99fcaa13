#include "common/view_settings.h"

#include "common/resting_hand.h"
#include "core/base/file_names.h"

#include <QCheckBox>
#include <QComboBox>
#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>
#include <QSettings>
#include <QSplitter>
#include <QStandardPaths>

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

void keepChoice(QComboBox* box, const QString& name)
{
    const QString key = QStringLiteral("choices/") + name;
    if (const int kept = box->findText(viewSettings()->value(key).toString()); kept >= 0)
        box->setCurrentIndex(kept);
    QObject::connect(box, qOverload<int>(&QComboBox::activated), box, [box, key] {
        viewSettings()->setValue(key, box->currentText());
    });
}

void keepChoice(QCheckBox* box, const QString& name)
{
    const QString key = QStringLiteral("choices/") + name;
    box->setChecked(viewSettings()->value(key, box->isChecked()).toBool());
    QObject::connect(
        box, &QCheckBox::clicked, box, [key](bool isOn) { viewSettings()->setValue(key, isOn); });
}

static QString folderKey(const QString& purpose)
{
    return purpose + QStringLiteral("/folder");
}

QString lastFolder(const QString& purpose)
{
    const QString documents = QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation);
    const QString last = viewSettings()->value(folderKey(purpose)).toString();
    for (const QString& folder : {last, documents})
        if (!folder.isEmpty() && QFileInfo(folder).isDir())
            return folder;
    return QDir::homePath();
}

void keepFolder(const QString& purpose, const QString& file)
{
    viewSettings()->setValue(folderKey(purpose), QFileInfo(file).absolutePath());
}

QString proposedFile(const QString& name)
{
    return lastFolder(QStringLiteral("export")) + QLatin1Char('/')
        + QString::fromStdWString(fileNamePart(name.toStdWString()));
}
