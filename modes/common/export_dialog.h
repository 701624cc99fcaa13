#pragma once

#include "common/office_paper.h"
#include "document/document.h"
#include "drawing/hatch.h"

#include <QDialog>

#include <functional>
#include <optional>

class QButtonGroup;
class QCheckBox;
class QComboBox;
class QLineEdit;
class TableView;

// What can be exported: a document as it is, or rows of a table, shown or all.
struct ExportSource {
    QString name; // proposed for the file
    std::function<Document(bool isAll)> make;
    int shownRows = 0;
    int allRows = 0; // the same: there is nothing to choose
    Hatches hatches = {};
    std::optional<OfficePaper> paper = {}; // the office's picture, signatures, and frames on wish
    bool isTable = false; // of a screen: without frames unless the user wants them
};

// Asks what, in which format and where to, and does it: DOCX, ODT, XLSX, HTML, CSV, PDF, or the printer. A
// failure leaves the file that was there, and the dialog open.
class ExportDialog : public QDialog
{
    Q_OBJECT

public:
    explicit ExportDialog(ExportSource source, QWidget* parent = nullptr);

    void accept() override;
    QString file() const;

private:
    QWidget* makeRows();
    QWidget* makeFile();
    void followFormat();
    void browse();
    void print();
    bool write(const QString& path);
    bool isAll() const;
    QString suffix() const;
    QString frameKey() const;
    Document documentFor(bool isPaper) const;

    ExportSource source_;
    QButtonGroup* rows_ = nullptr;
    QComboBox* format_;
    QLineEdit* file_;
    QCheckBox* frames_;
    QCheckBox* opens_;
};

// The dialog over a table of a screen; title: of the table in the document, and of the file.
void exportTable(TableView& table, const QString& title);
// The same over a document that is ready, on the office's paper. Gives back the file; empty where the user
// called it off.
QString exportDocument(
    QWidget* parent, ITellurixController& controller, const Document& document, const Hatches& hatches = {});
