#include "platform/posix_support.h"
#include "platform/shared_function.h"
#include "platform/system_text.h"

#include <dlfcn.h>

void* sharedFunction(const std::wstring& libraryPath, const char* function, std::wstring& reason)
{
    void* const library = dlopen(posixPath(libraryPath).c_str(), RTLD_NOW | RTLD_LOCAL);
    void* const found = library ? dlsym(library, function) : nullptr;
    if (!found)
        reason = fromSystemText(dlerror());
    return found;
}
