#pragma once

#if defined(__SANITIZE_ADDRESS__)
#define TELLURIX_LEAK_CHECKER 1
#elif defined(__has_feature)
#if __has_feature(address_sanitizer)
#define TELLURIX_LEAK_CHECKER 1
#endif
#endif

#ifdef TELLURIX_LEAK_CHECKER
#include <sanitizer/lsan_interface.h>
#endif

// Tells the leak checker, where one is built in, that this one object stays alive on purpose.
inline void staysAliveOnPurpose([[maybe_unused]] const void* object)
{
#ifdef TELLURIX_LEAK_CHECKER
    __lsan_ignore_object(object);
#endif
}
