#include "tlxtool/terminal.h"

#include <cstdio>
#include <fcntl.h>
#include <io.h>
#include <windows.h>

void prepareOutput()
{
    SetConsoleOutputCP(CP_UTF8);
    _setmode(_fileno(stdout), _O_BINARY);
}

std::size_t terminalWidth()
{
    CONSOLE_SCREEN_BUFFER_INFO info;
    if (!GetConsoleScreenBufferInfo(GetStdHandle(STD_OUTPUT_HANDLE), &info))
        return 0;
    return static_cast<std::size_t>(info.srWindow.Right - info.srWindow.Left + 1);
}
