#include "tlxtool/output.h"

#include "tlxtool/messages.h"
#include "tlxtool/tool_error.h"

#include <cerrno>
#include <string>

static void failWith(int error)
{
    throw ToolError("вывод не записан (" + systemReason(error)
        + "): освободите место на диске или проверьте, что принимающая программа читает всё до конца");
}

void Output::write(std::string_view text)
{
    errno = 0;
    if (std::fwrite(text.data(), 1, text.size(), stream_) != text.size())
        failWith(errno);
}

void Output::line(std::string_view text)
{
    write(text);
    write("\n");
}

void Output::finish()
{
    errno = 0;
    if (std::fflush(stream_) != 0 || std::ferror(stream_) != 0)
        failWith(errno);
}
