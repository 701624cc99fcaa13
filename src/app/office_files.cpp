#include "app/office_files.h"

#include "app/message_box.h"
#include "dictionaries/modes.h"
#include "site/chemistry.h"
#include "site/standard_values.h"

#include <QCoreApplication>
#include <QMessageBox>

void tellOfficeFiles(QWidget* window)
{
    std::vector<TableMistake> mistakes;
    limitsBeside(QCoreApplication::applicationDirPath().toStdWString(), mistakes);
    std::wstring message = limitsMessage(mistakes);
    if (const std::wstring tables = standardTableWarning(standardTableMistakes()); !tables.empty())
        message += (message.empty() ? L"" : L"\n\n") + tables;
    if (!message.empty())
        showMessageBox(ModeNone, message, window, QMessageBox::Warning);
}
