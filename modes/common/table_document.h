#pragma once

#include "document/document.h"

class QAbstractItemModel;
class QString;
class QTableView;

// Rows without the spare one at the end.
int recordCount(const QAbstractItemModel& model);

// The table as a user sees it: its columns in their order without the hidden ones, heads with their breaks,
// numbers of right-aligned cells as numbers. The rows are those of the model, which may be the one behind
// sorting and filter; it must stand while the document is written.
TableBlock tableBlockOf(const QTableView& view, const QAbstractItemModel& model, const QString& title);

// A document of this table alone, upright or across as its width wants it.
Document tableDocument(TableBlock table, const QString& header);
