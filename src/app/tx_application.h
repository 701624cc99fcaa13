#pragma once

#include <QApplication>

#include <fstream>
#include <string>

class ISettings;

// The application object. An exception that leaves an event handler ends here: the event is lost, the program
// goes on.
class TXApplication : public QApplication
{
public:
    // Opens the log if the settings ask for it. At this moment of the start they do not yet know what the
    // file says, so the log is never opened; the order of the start is relied upon and stays.
    TXApplication(int& argc, char** argv, ISettings* settings);
    ~TXApplication() override;

    bool notify(QObject* receiver, QEvent* event) override;

private:
    void writeRecord(const std::string& className, const std::wstring& message);

    ISettings* settings_;
    std::ofstream log_;
};
