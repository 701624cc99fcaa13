#pragma once

#include "modules/tx_widget.h"
#include "projects/project_model.h"
#include "projects/project_scan.h"

class IMainController;
class QLabel;
class QLineEdit;
class QPushButton;
class QStackedLayout;
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
    bool isOnView() const;
    void watchActivation();
    // Lists the folder if it may, now or as soon as the open project has been closed.
    void list();
    void showFound(const QVector<ProjectEntry>& entries);
    void openCurrent();
    void openAnyFile();
    void storeCode(int row, const QString& code);

    IMainController* controller_;
    ProjectModel* model_;
    ProjectScan* scan_;
    TableView* table_;
    QLineEdit* filter_;
    QLabel* folder_;
    QLabel* empty_;
    QStackedLayout* stack_;
};
