#pragma once

#include <QHash>
#include <QObject>
#include <QSet>
#include <QString>
#include <QTimer>

class QHeaderView;
class QTableView;

// The widths of a table's columns. What the user has dragged is kept under the table's name; the others begin
// with the width that the table gives them, and where their texts are cut they take the room that no column
// uses. Numbers are never cut while nobody wants it so.
class ColumnWidths : public QObject
{
public:
    // Once the columns stand; they get the widths that were kept.
    ColumnWidths(QTableView* table, const QString& name);

    // In pixels, of a column that the user has not dragged; its title has room in any case.
    void setFirst(int column, int width);
    // Widens the columns, from the first of them, whose titles would be cut off.
    void makeRoomForTitles(int first = 0);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    enum class Share { Anew, GrowOnly };

    bool hasOwnWidth(int column) const;
    void keep() const;
    void follow(int column);
    void share(Share how);
    int textWidth(int column) const;
    void resize(int column, int width);

    QTableView* table_;
    QHeaderView* header_;
    QString key_;
    QSet<int> dragged_;
    QHash<int, int> given_; // what a column had before it got more
    QTimer later_;
    bool resizing_ = false;
};
