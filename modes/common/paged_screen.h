#pragma once

#include "common/mode_screen.h"

#include <vector>

struct Document;
class Page;
class QLabel;
class QTabWidget;

// A mode's screen of several pages behind tabs (one page: no tabs). It keeps which page was in front, reads
// the page in front alone, and passes the shell's orders to it. Ctrl+PgUp and Ctrl+PgDn turn the pages.
//
//     class LaboratoryScreen : public PagedScreen {
//         LaboratoryScreen(TX_Modes mode, ITellurixController* controller)
//             : PagedScreen(mode, controller, QStringLiteral("laboratory"))
//         {
//             addPage(new SamplesPage(*this), QStringLiteral("Пробы"));
//             ...
//             start();
//         }
//     };
class PagedScreen : public ModeScreen
{
public:
    // The name: of the screen in the file of view settings.
    PagedScreen(
        TX_Modes mode, ITellurixController* controller, const QString& name, QWidget* parent = nullptr);
    ~PagedScreen() override;

    // Below the pages where the shell does not listen to the mode.
    void say(const QString& text) override;
    Page* page() const; // in front; null before start()
    void showPage(Page* page);

protected:
    // The page belongs to the screen from now on.
    void addPage(Page* page, const QString& title);
    // What stands above all pages: the choice of a sample, of a point.
    void setHead(QWidget* head);
    // After the last page: lays out, shows the page that was in front the last time.
    void start();

    void readProject(IDBProject*) override;
    void forgetProject() override;
    void closeEditors() override;
    bool store() override;
    void becomeCurrent() override;
    void addRecord() override;
    void deleteRecords() override;
    void calculate() override;
    void clearData() override;
    void sortData() override;
    void printReport() override;
    void settingsChanged() override;
    // Gives the page's report to the user: asks where to and in which format.
    virtual void handOver(const Document& document);

private:
    void turnPage(int by);
    void focusFront();
    void pageTurned();
    void readFront();
    void tellStates();

    const QString name_;
    QWidget* head_ = nullptr;
    QTabWidget* tabs_;
    QLabel* line_;
    std::vector<Page*> pages_;
    std::vector<bool> isStale_;
    Page* front_ = nullptr;
};
