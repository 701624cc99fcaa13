#include "platform/shared_function.h"
#include "platform/windows_support.h"

#include <windows.h>

void* sharedFunction(const std::wstring& libraryPath, const char* function, std::wstring& reason)
{
    const HMODULE library = LoadLibraryW(windowsPath(libraryPath).c_str());
    const FARPROC found = library ? GetProcAddress(library, function) : nullptr;
    if (!found)
        reason = failedWithLastError(FileStep::Open).reason;
    return reinterpret_cast<void*>(found);
}
