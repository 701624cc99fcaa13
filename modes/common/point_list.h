#pragma once

#include <QAbstractListModel>
#include <QVector>
#include <QWidget>

class QKeyEvent;
class QLineEdit;
class QListView;
class QSortFilterProxyModel;

// "скважина", "шурф", "зондирование"; "точка" for any other kind.
QString pointKindName(int kind);

struct ListedPoint {
    QString name;
    int kind = 0; // 1 borehole, 2 pit, 3 sounding; 0 stands in no register of points
    int rows = 0; // in the register on view
    bool hasProblem = false; // something typed there is not stored

    bool operator==(const ListedPoint&) const = default;
};

class PointListModel : public QAbstractListModel
{
public:
    enum Role { KindRole = Qt::UserRole, RowsRole, ProblemRole };

    using QAbstractListModel::QAbstractListModel;

    void setPoints(const QVector<ListedPoint>& points);
    const QVector<ListedPoint>& points() const { return points_; }

    int rowCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;

private:
    QVector<ListedPoint> points_;
};

// The points of the project, with a filter above them: the left side of the screens that show one point at a
// time. Typing filters, the arrows walk, Enter goes to the table.
class PointList : public QWidget
{
    Q_OBJECT

public:
    explicit PointList(QWidget* parent = nullptr);

    // The current point stays, where it is still there.
    void setPoints(const QVector<ListedPoint>& points);
    // Tells nobody.
    void setCurrentPoint(const QString& name);
    const QString& currentPoint() const { return current_; }

Q_SIGNALS:
    void chosen(const QString& name);
    // Enter, on the current point.
    void entered();

protected:
    bool eventFilter(QObject* object, QEvent* event) override;

private:
    bool handleKeyInFilter(const QKeyEvent& key);
    bool handleKeyInList(QKeyEvent& key);
    void addMenu();
    void showCurrent();
    void enter();

    PointListModel* model_;
    QSortFilterProxyModel* proxy_;
    QLineEdit* filter_;
    QListView* list_;
    QString current_;
    bool quiet_ = false;
};
