#pragma once

#include <string>

// A function of a library that is loaded when it is first asked for and stays loaded; null where the library
// or the function is not there, with the system's words in reason. The path is a stored one, or a bare name.
void* sharedFunction(const std::wstring& libraryPath, const char* function, std::wstring& reason);
