#include "tlxtool/terminal.h"

#include <csignal>
#include <sys/ioctl.h>
#include <unistd.h>

void prepareOutput()
{
    std::signal(SIGPIPE, SIG_IGN);
}

std::size_t terminalWidth()
{
    if (::isatty(STDOUT_FILENO) == 0)
        return 0;
    constexpr std::size_t usualWidth = 80;
    struct winsize size = {};
    if (::ioctl(STDOUT_FILENO, TIOCGWINSZ, &size) != 0 || size.ws_col == 0)
        return usualWidth;
    return size.ws_col;
}
