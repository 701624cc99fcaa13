#pragma once

#include "projects/project_entry.h"

#include <QObject>
#include <QTimer>
#include <QVector>

class QProgressBar;

// Finds the project files below a folder and reads them, one at a turn of the event loop, with the shell's
// progress bar. A file whose size and time have not changed since it was read is not read again.
class ProjectScan : public QObject
{
    Q_OBJECT

public:
    ProjectScan(QProgressBar* progress, QObject* parent);

    // Looks through the folder of projects, made where it is missing; false where it cannot be made.
    bool start(const std::wstring& workFolder);
    void stop();
    bool isRunning() const { return timer_.isActive(); }

Q_SIGNALS:
    // Every file that is there, read or waiting; then each that has been read.
    void found(const QVector<ProjectEntry>& entries);
    void read(int row, const ProjectEntry& entry);

private:
    void readNext();

    QProgressBar* progress_;
    QTimer timer_;
    std::wstring workFolder_;
    QVector<ProjectEntry> entries_;
    int next_ = 0;
};
