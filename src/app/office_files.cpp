#include "app/office_files.h"

#include "app/message_box.h"
#include "dictionaries/modes.h"
#include "site/chemistry.h"
#include "site/standard_values.h"

#include <QMessageBox>

void tellOfficeFiles(QWidget* window)
{
    std::wstring message = limitsMessage(limitMistakes());
    if (const std::wstring tables = standardTableWarning(standardTableMistakes()); !tables.empty())
        message += (message.empty() ? L"" : L"\n\n") + tables;
    if (!message.empty())
        showMessageBox(ModeNone, message, window, QMessageBox::Warning);
}
