#pragma once

#include "modules/tx_widget.h"
#include "projects/project_model.h"
#include "projects/project_scan.h"

#include <QTimer>

class IMainController;
class QLabel;
class QLineEdit;
class QPushButton;
class QStackedLayout;
class StartPanel;
class TableView;

// The register of projects: what lies in the work folder, and the way to open it. It reads the files itself,
// while it is on view and no project is open.
class ProjectsScreen : public TXWidget
{
    Q_OBJECT

public:
    ProjectsScreen(IMainController* controller, QProgressBar* progress);

    // Opens the file after a look at it, or says why it cannot be opened.
    void open(const std::wstring& path);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    QLayout* makeHead();
    QWidget* makeTable();
    QWidget* makeStart();
    QWidget* makeHint();
    bool isOnView() const;
    bool isEditing() const;
    void watchActivation();
    // Lists the folder if it may, now or as soon as the open project or cell has been closed.
    void list();
    void showFound(const QVector<ProjectEntry>& entries);
    void showRead(int row, const ProjectEntry& entry);
    // Filters and sorts anew, and puts words where no row is left.
    void arrange();
    void openCurrent();
    void openAnyFile();
    void openFrom(const QString& folder);
    void makeNewProject();
    void storeCode(int row, const QString& code);
    // Whether no project is open; else the user is asked to close it.
    bool mayOpen(const QString& title);
    void warn(const QString& title, const QString& words);

    IMainController* controller_;
    ProjectModel* model_;
    ProjectScan* scan_;
    TableView* table_;
    QLineEdit* filter_;
    QLabel* folder_;
    QLabel* empty_;
    QLabel* hint_;
    QPushButton* openFile_;
    QPushButton* newProject_;
    StartPanel* start_;
    QStackedLayout* stack_;
    QTimer again_;
    QString folderWords_; // for a folder without projects
};
