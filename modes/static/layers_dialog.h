#pragma once

#include "common/edit_grid_model.h"
#include "site/sounding_layers.h"

#include <QDialog>

class EditGrid;
class LayersCanvas;
class QDoubleSpinBox;
class QPushButton;

// The layers of one sounding: proposed by its readings, dragged on the picture or typed, each with its
// statistics. Ctrl+Z takes back the last edit. Accepted: layers() are for the journal.
class LayersDialog : public QDialog
{
    Q_OBJECT

public:
    LayersDialog(IDBProject& project,
        const SiteSounding& sounding,
        const std::vector<SoundingLayer>& shaft,
        QWidget* parent);

    const std::vector<JournalLayer>& layers() const { return layers_; }

private:
    void layOut();
    QLayout* ruleLine();
    QLayout* actsLine();
    void propose();
    void edit(const GridRows& after);
    void drag(int layer, double depth);
    void remember();
    void undo();
    // Of the current layer; act says whether it could.
    void change(bool (*act)(std::vector<JournalLayer>& layers, std::size_t current));
    void split();
    void join();
    void byBorehole();
    void showLayers();
    int currentLayer() const;

    IDBProject& project_;
    const SiteSounding& sounding_;
    const std::vector<SoundingLayer>& shaft_;
    std::vector<JournalLayer> layers_;
    std::vector<std::vector<JournalLayer>> history_;
    bool isDragging_ = false;
    LayersCanvas* canvas_;
    EditGrid* grid_;
    QDoubleSpinBox* change_;
    QDoubleSpinBox* thickness_;
    QPushButton* undo_;
};
