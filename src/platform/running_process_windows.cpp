#include "platform/running_process.h"

#include <windows.h>

namespace
{

std::string startOf(HANDLE process)
{
    FILETIME start = {};
    FILETIME unused = {};
    if (GetProcessTimes(process, &start, &unused, &unused, &unused) == 0)
        return {};
    return std::to_string(std::uint64_t{start.dwHighDateTime} << 32U | start.dwLowDateTime);
}

// Asks one of the system's calls for a name; the length counts its closing zero on the way in alone.
template <class Call>
std::wstring nameFrom(Call call, const wchar_t* unknown)
{
    std::wstring name(257, L'\0');
    auto length = static_cast<DWORD>(name.size());
    if (call(name.data(), &length) == 0)
        return unknown;
    name.resize(name.find(L'\0'));
    return name.empty() ? unknown : name;
}

} // namespace

RunningProcess currentProcess()
{
    return {GetCurrentProcessId(), startOf(GetCurrentProcess())};
}

bool isRunning(const RunningProcess& process)
{
    if (process.number == 0 || process.number > MAXDWORD)
        return false;
    const HANDLE handle = OpenProcess(
        PROCESS_QUERY_LIMITED_INFORMATION | SYNCHRONIZE, FALSE, static_cast<DWORD>(process.number));
    if (!handle)
        return GetLastError() == ERROR_ACCESS_DENIED;
    // A process that has ended is still found while anybody holds it.
    const bool hasEnded = WaitForSingleObject(handle, 0) == WAIT_OBJECT_0;
    const std::string start = startOf(handle);
    CloseHandle(handle);
    return !hasEnded && (start.empty() || process.start.empty() || start == process.start);
}

std::wstring userName()
{
    return nameFrom(GetUserNameW, L"?");
}

std::wstring computerName()
{
    return nameFrom(GetComputerNameW, L"?");
}
