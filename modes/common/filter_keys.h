#pragma once

#include <functional>

class QLineEdit;
class QWidget;

// In the line above a table that filters it: Escape takes the filter away, and leads to the table as the
// arrows and Enter do.
void leadFilterToTable(QLineEdit* filter, const std::function<QWidget*()>& table);
