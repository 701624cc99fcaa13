#include "platform/running_process.h"
#include "platform/system_text.h"

#include <array>
#include <cerrno>
#include <climits>
#include <csignal>
#include <fstream>
#include <pwd.h>
#include <sstream>
#include <unistd.h>

namespace
{

// State and start of a process as the kernel lists them; empty where there is no such list or no such
// process.
struct Listed {
    std::string state;
    std::string start; // ticks since the computer came up
};

Listed listed(std::uint64_t number)
{
    std::ifstream file("/proc/" + std::to_string(number) + "/stat");
    std::string line;
    std::getline(file, line);
    // The name stands in brackets and may hold blanks and brackets itself.
    const std::size_t name = line.rfind(')');
    if (name == std::string::npos)
        return {};
    constexpr int fieldsBetween = 18;
    std::istringstream fields(line.substr(name + 1));
    Listed process;
    fields >> process.state;
    for (int i = 0; i < fieldsBetween; ++i)
        fields >> process.start;
    fields >> process.start;
    return process;
}

// The ticks begin anew with each start of the computer.
std::string startOf(const Listed& process)
{
    if (process.start.empty())
        return {};
    std::ifstream file("/proc/sys/kernel/random/boot_id");
    std::string boot;
    std::getline(file, boot);
    return process.start + '@' + boot;
}

} // namespace

RunningProcess currentProcess()
{
    const auto number = static_cast<std::uint64_t>(::getpid());
    return {number, startOf(listed(number))};
}

bool isRunning(const RunningProcess& process)
{
    if (process.number == 0 || process.number > INT_MAX)
        return false;
    if (::kill(static_cast<pid_t>(process.number), 0) != 0 && errno != EPERM)
        return false;
    const Listed found = listed(process.number);
    // What has ended and waits for its parent to notice writes nothing any more.
    if (found.state == "Z" || found.state == "X")
        return false;
    const std::string start = startOf(found);
    return start.empty() || process.start.empty() || start == process.start;
}

std::wstring userName()
{
    const passwd* entry = ::getpwuid(::geteuid());
    std::wstring name = entry && entry->pw_name ? fromSystemText(entry->pw_name) : std::wstring();
    return name.empty() ? L"№" + std::to_wstring(::geteuid()) : name;
}

std::wstring computerName()
{
    std::array<char, 256> name{};
    if (::gethostname(name.data(), name.size() - 1) != 0 || name.front() == '\0')
        return L"localhost";
    return fromSystemText(name.data());
}
