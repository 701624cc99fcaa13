#pragma once

#include "stratigraphic/column_file.h"

#include <QMap>

#include <memory>

class ITellurixController;

// What one step of undo exchanges: opening a file is a step too, so a column that was left without saving
// comes back.
struct StrataState {
    StrataColumn column;
    QVector<qint64> ids; // of the layers, for the table
    QString file; // empty: a new column
};

// The column that the screen shows. It outlives the screen as long as there are steps to undo, and a screen
// that is made anew goes on with it.
struct StrataDocument {
    // The one of the program.
    static std::shared_ptr<StrataDocument> of(const ITellurixController* controller);

    bool isModified() const { return state.column != inFile.value(state.file); }
    StrataState stateOf(const StrataColumn& column, const QString& file);
    // Unsaved changes are given up.
    void drop() { state = stateOf(inFile.value(state.file), state.file); }

    StrataState state;
    QMap<QString, StrataColumn> inFile; // what the files hold that were opened or written
    qint64 nextId = 1;
};
