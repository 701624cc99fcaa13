#pragma once

// The whole tool: reads the arguments, runs the command, returns the exit status. Whatever fails ends in one
// line on the standard error.
int runTool(int argumentCount, const char* const* arguments);
