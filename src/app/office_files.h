#pragma once

class QWidget;

// A box where a file that an office may correct beside the program is not accepted: which, the line and why,
// and that what is built in rules.
void tellOfficeFiles(QWidget* window);
