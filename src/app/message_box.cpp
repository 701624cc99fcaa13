#include "app/message_box.h"

#include "core/base/mexception.h"
#include "dictionaries/modes.h"
#include "modules/program.h"
#include "platform/system_text.h"

#include <QMessageBox>

void showMessageBox(const int& key, const std::wstring& text, QWidget* parent, const int& icon)
{
    showMessageBox(key, text, std::wstring(), parent, icon);
}

void showMessageBox(
    const int& key, const std::wstring& text, const std::wstring& beside, QWidget* parent, const int& icon)
{
    const std::wstring_view* name = modeNames.find(key);
    const QString title = name ? QString::fromWCharArray(name->data(), int(name->size())) : applicationName;
    QMessageBox box(static_cast<QMessageBox::Icon>(icon),
        title,
        QString::fromStdWString(text),
        QMessageBox::Ok,
        parent,
        Qt::Dialog | Qt::MSWindowsFixedSizeDialogHint);
    box.setInformativeText(QString::fromStdWString(beside));
    box.exec();
}

void showCriticalError(const std::wstring& text)
{
    QMessageBox::critical(nullptr,
        applicationName,
        QString::fromStdWString(text) + QStringLiteral("Critical error. Application will be closed!"),
        QMessageBox::Ok);
}

std::wstring currentFailure()
{
    try {
        throw;
    } catch (const MException& failure) {
        return failure.message() + L"\r\n";
    } catch (const std::exception& failure) {
        return fromSystemText(failure.what()) + L"\r\n";
    } catch (...) {
        return L"Unknown ... error\r\n";
    }
}
