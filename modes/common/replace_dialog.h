#pragma once

#include <QDialog>
#include <QVector>

class QCheckBox;
class QDialogButtonBox;
class QLabel;
class QLineEdit;
class QTableWidget;

// A cell in which something may be found, by the caller's numbers.
struct SearchedCell {
    int row = 0;
    int column = 0;
    QString place; // "строка 3, «Описание»"
    QString text;
    QString replaced = {}; // what becomes of it
};

// Find and replace over the given cells. Shows each cell that would change, before and after, and changes
// nothing itself: the caller takes replacements() when it is accepted, and makes one step of them.
class ReplaceDialog : public QDialog
{
    Q_OBJECT

public:
    // The selected cells are searched alone as long as the user wants that; pass none where too few are
    // selected to mean anything.
    ReplaceDialog(const QVector<SearchedCell>& all, const QVector<SearchedCell>& selected, QWidget* parent);

    const QVector<SearchedCell>& replacements() const { return found_; }

private:
    void search();

    QVector<SearchedCell> all_;
    QVector<SearchedCell> selected_;
    QVector<SearchedCell> found_;
    QLineEdit* what_;
    QLineEdit* with_;
    QCheckBox* caseMatters_;
    QCheckBox* wholeCell_;
    QCheckBox* onlySelected_;
    QTableWidget* preview_;
    QLabel* count_;
    QDialogButtonBox* buttons_;
};
