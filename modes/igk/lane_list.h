#pragma once

#include "modules/idb_igk_preset.h"
#include "plots/column.h"

#include <QListWidget>

#include <vector>

// The columns of the drawing: a tick shows one, dragging moves it, the menu turns its caption. Double click
// on one asks its width. By keys: blank, Ctrl+Up and Ctrl+Down, F2.
class LaneList : public QListWidget
{
    Q_OBJECT

public:
    explicit LaneList(QWidget* parent = nullptr);

    // All columns, those of the preset first and in its order.
    void setPreset(const IgkPreset& preset, int language);
    // As the file of presets keeps it; widths are kept beside.
    IgkPreset preset() const;
    // The shown ones.
    std::vector<ColumnLane> lanes() const;
    // The hidden ones too: their widths are worth keeping.
    std::vector<ColumnLane> allLanes() const;
    void setWidths(const std::vector<ColumnLane>& lanes);
    // Of the captions.
    void setLanguage(int language);

Q_SIGNALS:
    void lanesChanged();

protected:
    void keyPressEvent(QKeyEvent* event) override;

private:
    static ColumnLane laneOf(const QListWidgetItem* item);
    void move(int by);
    void showMenu(const QPoint& place);
    void askWidth(QListWidgetItem* item);
    void describe(QListWidgetItem* item) const;

    int language_ = 0;
    bool isFilling_ = false;
};
