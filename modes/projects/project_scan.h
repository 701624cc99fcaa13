#pragma once

#include "projects/project_entry.h"

#include <QObject>
#include <QPointer>
#include <QProgressBar>
#include <QVector>

#include <functional>
#include <future>

// Finds the project files below a folder and reads them, one after the other and beside the event loop, which
// large files would hold up, with the shell's progress bar. A file whose size and time have not changed since
// it was read is not read again. It stops by itself as soon as nobody wants the files any more.
class ProjectScan : public QObject
{
    Q_OBJECT

public:
    ProjectScan(QProgressBar* progress, std::function<bool()> isWanted, QObject* parent);
    ~ProjectScan() override;

    // Looks through the folder of projects, made where it is missing; false where it cannot be made.
    bool start(const std::wstring& workFolder);
    void stop();
    // The file of a row as it was read by somebody else.
    void setEntry(int row, const ProjectEntry& entry);

Q_SIGNALS:
    // Every file that is there, read or waiting; then each that has been read.
    void found(const QVector<ProjectEntry>& entries);
    void read(int row, const ProjectEntry& entry);
    void finished();

private:
    void readNext();
    void take(const ProjectEntry& entry);

    QPointer<QProgressBar> progress_; // dies with the main window
    std::function<bool()> isWanted_;
    std::wstring workFolder_;
    QVector<ProjectEntry> entries_;
    int next_ = 0;
    bool isRunning_ = false;
    bool isReading_ = false;
    std::future<void> reading_; // the last member: waited for before anything else goes
};
