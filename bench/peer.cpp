#include "peer.h"

#include <cstdio>
#include <fcntl.h>
#include <stdexcept>
#include <unistd.h>

void failPeer(const std::string& why)
{
    throw std::runtime_error(why);
}

static void flush(const std::string& path)
{
    const int file = ::open(path.c_str(), O_RDONLY | O_CLOEXEC);
    const bool flushed = file >= 0 && ::fsync(file) == 0;
    if (file >= 0)
        ::close(file);
    if (!flushed)
        failPeer("cannot flush " + path);
}

void flushAndReplace(const std::string& temporary, const std::string& path)
{
    flush(temporary);
    if (std::rename(temporary.c_str(), path.c_str()) != 0)
        failPeer("cannot replace " + path);
    flush(path.substr(0, path.rfind('/')));
}
