#pragma once

#include "common/edit_grid.h"

#include <QApplication>
#include <QTest>

#include <functional>

// A grid in a window, stored by a list: every edit comes back with ids, as a screen gives it back.
class GridHost
{
public:
    explicit GridHost(const QVector<GridColumn>& columns)
        : grid(QStringLiteral("test/grid"), columns)
    {
        QObject::connect(&grid, &EditGrid::edited, &grid, [this](const GridRows& after) { store(after); });
        QObject::connect(&grid, &EditGrid::told, &grid, [this](const QString& text) { told = text; });
        grid.resize(700, 400);
        grid.show();
        grid.setFocus();
        QApplication::setActiveWindow(&grid);
    }

    void fill(const QVector<QVector<QString>>& cells)
    {
        GridRows rows;
        for (const QVector<QString>& row : cells)
            rows.append({++lastId_, row});
        grid.setRows(rows);
    }

    void select(int row, int column)
    {
        grid.selectionModel()->setCurrentIndex(
            grid.model()->index(row, column), QItemSelectionModel::ClearAndSelect);
    }

    // Keys go where a person's keys go: to the open editor, else to the grid. (keyClicks knows Latin letters
    // only.)
    void type(const QString& text)
    {
        for (const QChar& letter : text)
            QTest::sendKeyEvent(QTest::Click, focus(), Qt::Key_unknown, letter, Qt::NoModifier);
    }
    void press(int key, Qt::KeyboardModifiers modifiers = Qt::NoModifier)
    {
        QTest::keyClick(focus(), Qt::Key(key), modifiers);
    }

    QString cells() const
    {
        QStringList rows;
        for (const GridRow& row : const_cast<EditGrid&>(grid).rows().rows())
            rows += QStringList(row.cells.toList()).join(QLatin1Char('|'));
        return rows.join(QLatin1Char('\n'));
    }

    int steps = 0; // edits that came out: undo steps
    QString told;
    GridRows asTyped; // of the last edit
    std::function<void(GridRows&)> arrange = [](GridRows&) {};
    EditGrid grid;

private:
    QWidget* focus()
    {
        QWidget* focused = QApplication::focusWidget();
        return focused ? focused : &grid;
    }
    void store(GridRows after)
    {
        ++steps;
        asTyped = grid.asTyped();
        for (GridRow& row : after)
            if (row.id == 0)
                row.id = ++lastId_;
        arrange(after);
        grid.setRows(after);
    }

    qint64 lastId_ = 0;
};
