#pragma once

#include "document/document.h"

#include <QString>
#include <QWidget>

#include <optional>

class IDBProject;
class ITellurixController;

// One tab of a PagedScreen. It shows a part of the project, edits it by ModeScreen::change, and answers to
// the shell's actions while it is in front. Only the page in front is read and asked; the screen calls
// every operation below, a page never calls them for others.
class Page : public QWidget
{
    Q_OBJECT

public:
    using QWidget::QWidget;

    // Shows the project anew; null: none is open. Comes when the page comes to the front and something has
    // changed, and from within each ModeScreen::change that the page makes itself: it must bear that.
    virtual void read(IDBProject* project) = 0;
    // Another project, or none: what was typed and not stored is gone. Also told to pages behind.
    virtual void forget() { }
    // The first thing typed that cannot be stored, as a sentence; empty where all is in the project. Asked of
    // every page, also those behind: a text here bars the closing of the project.
    virtual QString problem() { return {}; }
    // Commits open editors; before every order below, before the page goes behind, before undo and saving.
    virtual void closeEditors() { }

    // "Расчет значений", "Очистка данных", "Удалить", "Добавить" of the shell.
    virtual void calculate() { }
    virtual void clearData() { }
    virtual void deleteRecords() { }
    virtual void addRecord() { }
    // Mode 23.
    virtual void sortData() { }
    // What "Генерация отчетной документации" makes of the page; nothing where it has no report.
    virtual std::optional<Document> report() { return std::nullopt; }

    // What the shell works the states of its actions out from; asked when the page comes to the front and
    // after each statesChanged().
    virtual bool canAdd() const { return false; }
    virtual bool canDelete() const { return false; }
    // Sets what the facade keeps of the view: setLabMode, setLabState, setCompressionView, setShearView,
    // setIgeView, setProbingView, setProbingSubView, setChemistryFlag, setEditedSample,
    // setEditedSampleName. These are the undo context too, so they must be set before the first change.
    virtual void tellView(ITellurixController&) const { }
    // The settings or the language of documents may have changed; read() comes anyway.
    virtual void settingsChanged() { }

Q_SIGNALS:
    // canAdd, canDelete or what tellView sets is another now: the shell's actions are worked out anew.
    void statesChanged();
    // A line for the user, below the pages or in the status bar; empty takes it away.
    void said(const QString& text);
};
