#pragma once

#include "dictionaries/modes.h"

#include <QWidget>

#include <string>

class ISectionAnalysisReliefController;
class IColumnCalcController;
class ISectionCommonController;

// The screen of a mode as the shell knows it: the bus over which shell and screen speak. "To the screen" is
// emitted by the shell on the screen's widget, "to the shell" by the screen itself.
//
// Shell and modules are built apart and each compiles this class for itself; connections are resolved by the
// signal's index, 0 to 43 in the order below. Never insert, remove or reorder a signal, or change an
// argument. Across the border dynamic_cast and connections by member pointer work; qobject_cast and findChild
// do not, since each side has a meta-object of its own.
class TXWidget : public QWidget
{
    Q_OBJECT

public:
    using QWidget::QWidget;

Q_SIGNALS:
    // To the screen of the project register: fill it from the projects' folder; once, after it is made.
    void signalLoadProjects();
    // To the same: the projects' folder may have changed.
    void signalUpdateProjectsPath();
    // Both ways on the project register: show the open project; the shell makes a new one if none is open.
    void signalShowOpenProject();
    // To every screen: close the open cell editor so that its text is committed.
    void signalCloseAllEditCell();
    // To the current screen: write what was edited into the project. False says that something cannot be
    // stored; nobody connected answers false too.
    bool signalUpdateDB();
    // To the active screen: delete the selected rows.
    void signalDelSelectedRecord();
    // To the active screen: produce its report.
    void signalPrint();
    // To the screen after a change of mode: the set of points may have changed; then: read the project anew.
    void signalUpdateComplexPoints();
    void signalUpdateInfo();
    // To the active screen: add a row.
    void signalAddSelectedRecord();
    // To the shell: whether rows can be deleted, or added, in this mode now.
    void signalDeleteRecord(TX_Modes mode, bool value);
    void signalAddRecord(TX_Modes mode, bool value);
    // To the shell: work out the states of all actions anew.
    void signalUpdateMenus();
    // To the screens 7, 21, 20, 19: the language of documents may have changed.
    void signalChangeLanguage();

    // The laboratory, to the shell: whether the page's main property set is on offer.
    void signalSetDefProp(TX_Lab_Modes mode);
    void signalDropDefProp(TX_Lab_Modes mode);
    // To the laboratory: take the main property set of the page, or change to the special one.
    void signalSetCommonDefPhysProp();
    void signalChangeCommonDefPhysProp();
    void signalSetCommonDefCompProp();
    void signalChangeCommonDefCompProp();
    void signalSetCommonDefShiftProp();
    void signalChangeCommonDefShiftProp();
    void signalSetCommonDefSwellProp();
    void signalChangeCommonDefSwellProp();
    // The laboratory, to the shell: title of the page in which a sample is edited; false while one is edited;
    // the plain title of the mode again.
    void signalChangeLaboratoryTitle(TX_Lab_Modes mode);
    void signalSetAccessAllModes(bool value);
    void signalChangeTitle(TX_Modes value);
    // To the laboratory: finish editing the sample; whether it has properties of its own.
    void signalEndEditLaboratory();
    void signalSetPropertiesTest(bool value);

    // To the active screen at the end of every change of mode: it is current now.
    void signalUpdateMode();
    // To the active screen: compute; clear the data.
    void signalCalc();
    void signalClearTests();
    // To the screens 7, 8, 17, 10, 11: the settings have changed.
    void signalUpdateSetup();
    // To the shell: show or hide the hint in the status bar. The form without an argument shows it; moc makes
    // it a signal of its own, and the shell connects the other one.
    void signalUpdateShowLabel(bool value = true);
    // To the screen 22: save the stratigraphic column. To the screen 23: sort.
    void signalSaveColumn();
    void signalSort();
    // To the shell: a text for the status bar, shown until the next one.
    void signalShowStatusMessage(std::wstring value);

    // Between the screens of the section; they pass the shell unseen.
    void signalShowSectionEditor();
    void signalSetSectionCalcController(ISectionAnalysisReliefController* analysisValue,
        IColumnCalcController* columnValue,
        ISectionCommonController* commonSection);
    void signalShowSectionEditorTab();
    void signalSetCurrentSection(std::wstring value);
    void signalSetCurrentSectionCalc(ISectionAnalysisReliefController* controller,
        IColumnCalcController* columnController,
        ISectionCommonController* commonSection,
        std::wstring value);
    void signalInitializeGL();
};
