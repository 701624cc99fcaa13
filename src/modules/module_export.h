#pragma once

#include <QtGlobal>

// Marks the one function that a module hands to the shell:
//
//     TELLURIX_MODULE QWidget* createWidget(const TX_Modes* mode, ITellurixController* controller)
//
// docs/modules.md says which parameters the shell passes for which mode.
#define TELLURIX_MODULE extern "C" Q_DECL_EXPORT
