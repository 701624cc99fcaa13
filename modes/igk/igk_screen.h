#pragma once

#include "common/mode_screen.h"
#include "drawing/hatch.h"
#include "igk/user_presets.h"

#include <functional>

class DrawingView;
class LaneList;
class QCheckBox;
class QComboBox;
class QListWidget;
class QPushButton;

// The engineering-geological column: points on the left, the sheets of the chosen one in the middle, on the
// right what is drawn and how.
class IgkScreen : public ModeScreen
{
    Q_OBJECT

public:
    IgkScreen(TX_Modes mode, ITellurixController* controller, QWidget* parent = nullptr);

protected:
    void readProject(IDBProject* project) override;
    void becomeCurrent() override;
    void printReport() override;
    void settingsChanged() override;

private:
    QWidget* makeOptions();
    QWidget* makePoints();
    void fillPresets();
    void choosePreset(int row);
    void savePreset();
    void removePreset();
    void fillPoints(IDBProject* project);
    void fillSoundings(IDBProject* project);
    void drawChosen();
    void drawAllToFile();
    ColumnLook look() const;
    void checkSeveral();
    bool presetHasSeveral(const QString& name) const;
    // Points from the chosen one on, or all; as many beside each other as the settings say.
    std::vector<Drawing> sheetsOf(int firstRow, int count, const std::function<bool(int done)>& goesOn) const;
    std::wstring chosenPoint() const;
    void tellLayer(qint64 id);

    Hatches hatches_;
    UserPresets own_;
    QStringList pointNames_; // as listed
    QStringList soundingNames_;
    QListWidget* points_;
    DrawingView* view_;
    QComboBox* presets_;
    QPushButton* removal_ = nullptr;
    QComboBox* scale_;
    QComboBox* sheet_;
    QCheckBox* landscape_;
    QComboBox* block_;
    QCheckBox* strip_;
    QCheckBox* several_;
    QComboBox* sounding_;
    LaneList* lanes_;
    bool isReading_ = false;
    bool wasFormCol_ = false; // the setting, as last seen
};
