#include "projects/project_scan.h"

#include "platform/files.h"

#include <QDir>
#include <QFileInfo>

#include <utility>

ProjectScan::ProjectScan(QProgressBar* progress, std::function<bool()> isWanted, QObject* parent)
    : QObject(parent)
    , progress_(progress)
    , isWanted_(std::move(isWanted))
{
    progress_->hide();
}

ProjectScan::~ProjectScan()
{
    stop();
}

// Files of the folder itself and of the folders in it.
static QVector<ProjectEntry> filesBelow(const QString& folder)
{
    const QStringList pattern{QStringLiteral("*.TLX")};
    QFileInfoList files = QDir(folder).entryInfoList(pattern, QDir::Files, QDir::Name);
    for (const QFileInfo& below : QDir(folder).entryInfoList(QDir::Dirs | QDir::NoDotAndDotDot, QDir::Name))
        files += QDir(below.filePath()).entryInfoList(pattern, QDir::Files, QDir::Name);
    QVector<ProjectEntry> entries;
    for (const QFileInfo& file : qAsConst(files)) {
        ProjectEntry entry;
        entry.path = file.filePath().toStdWString();
        lookAtFile(entry);
        entries.append(entry);
    }
    return entries;
}

bool ProjectScan::start(const std::wstring& workFolder)
{
    const std::wstring folder = projectsFolderOf(workFolder);
    const bool isThere = bool(createFolder(folder));
    const bool sameFolder = workFolder == workFolder_;
    workFolder_ = workFolder;
    QVector<ProjectEntry> entries =
        isThere ? filesBelow(QString::fromStdWString(systemPath(folder))) : QVector<ProjectEntry>();
    for (ProjectEntry& entry : entries)
        for (const ProjectEntry& known : qAsConst(entries_))
            if (sameFolder && known.path == entry.path && known.size == entry.size
                && known.modified == entry.modified)
                entry = known;
    for (ProjectEntry& entry : entries)
        lookAtSavingPlace(entry);
    entries_ = entries;
    next_ = 0;
    Q_EMIT found(entries_);
    if (progress_) {
        progress_->setRange(0, qMax(1, entries_.size()));
        progress_->setValue(0);
        progress_->setVisible(!entries_.isEmpty());
    }
    isRunning_ = true;
    QMetaObject::invokeMethod(this, &ProjectScan::readNext, Qt::QueuedConnection);
    return isThere;
}

void ProjectScan::stop()
{
    isRunning_ = false;
    if (progress_)
        progress_->hide();
}

void ProjectScan::setEntry(int row, const ProjectEntry& entry)
{
    entries_[row] = entry;
    Q_EMIT read(row, entry);
}

void ProjectScan::readNext()
{
    if (!isRunning_ || isReading_)
        return;
    if (!isWanted_()) {
        stop();
        return;
    }
    while (next_ < entries_.size() && entries_[next_].state != ProjectEntry::State::waiting)
        ++next_;
    if (next_ >= entries_.size()) {
        stop();
        Q_EMIT finished();
        return;
    }
    reading_ =
        std::async(std::launch::async, [this, entry = entries_[next_], folder = workFolder_]() mutable {
            readProjectEntry(entry, folder);
            QMetaObject::invokeMethod(
                this, [this, read = std::move(entry)] { take(read); }, Qt::QueuedConnection);
        });
    isReading_ = true;
}

// The folder may have been looked through anew meanwhile, or the file read by somebody else.
void ProjectScan::take(const ProjectEntry& entry)
{
    isReading_ = false;
    for (int row = 0; row < entries_.size(); ++row) {
        const ProjectEntry& waiting = entries_[row];
        if (waiting.path == entry.path && waiting.size == entry.size && waiting.modified == entry.modified
            && waiting.state == ProjectEntry::State::waiting)
            setEntry(row, entry);
    }
    if (progress_)
        progress_->setValue(next_ + 1);
    readNext();
}
