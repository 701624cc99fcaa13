#include "app/tx_application.h"

#include "modules/isettings.h"
#include "modules/program.h"
#include "platform/system_text.h"
#include "platform/utf8.h"

#include <QFile>

#include <array>
#include <cstdint>

TXApplication::TXApplication(int& argc, char** argv, ISettings* settings)
    : QApplication(argc, argv)
    , settings_(settings)
{
    if (settings_->isLog())
        log_.open(QFile::encodeName(applicationDirPath() + QStringLiteral("//") + logFileName).constData(),
            std::ios::out | std::ios::trunc | std::ios::binary);
}

TXApplication::~TXApplication()
{
    if (settings_->isLog())
        log_.close();
}

bool TXApplication::notify(QObject* receiver, QEvent* event)
{
    // Asked before the call: the handler may destroy the receiver.
    const char* className = receiver->metaObject()->className();
    try {
        return QApplication::notify(receiver, event);
    } catch (const std::exception& failure) {
        writeRecord(className, fromSystemText(failure.what()));
    } catch (...) {
        writeRecord("Unknown", L"Unknown");
    }
    return false;
}

// A count of bytes in 32 bits, then the text. While the stream is not open, writing does nothing.
void TXApplication::writeRecord(const std::string& className, const std::wstring& message)
{
    if (className.empty() || message.empty() || !settings_->isLog())
        return;
    const std::string record = className + ' ' + toUtf8(message) + " \r\n";
    const auto size = static_cast<std::uint32_t>(record.size());
    const std::array<char, 4> bytes{static_cast<char>(size & 0xFF),
        static_cast<char>(size >> 8 & 0xFF),
        static_cast<char>(size >> 16 & 0xFF),
        static_cast<char>(size >> 24)};
    log_.write(bytes.data(), bytes.size());
    log_.write(record.data(), static_cast<std::streamsize>(record.size()));
}
