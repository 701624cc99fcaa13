#pragma once

#include <cstdint>
#include <string>

// Who works here, and whether a program that left its mark still runs.

// A process of this computer. Numbers are given out again, so the moment of its start goes with it, in a form
// of the system's own; empty where the system does not tell.
struct RunningProcess {
    std::uint64_t number = 0;
    std::string start;

    bool operator==(const RunningProcess&) const = default;
};

RunningProcess currentProcess();

// True also where the system does not let us look at it: rather a program too many than one overlooked.
bool isRunning(const RunningProcess& process);

// As the user logged in, and as the computer is called on its network. Never empty.
std::wstring userName();
std::wstring computerName();
