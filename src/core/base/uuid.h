#pragma once

// The identifier lives with its text form among the calls of the operating system.
#include "platform/uuid.h"
