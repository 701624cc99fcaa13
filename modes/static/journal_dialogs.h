#pragma once

#include "calc/sounding.h"

#include <optional>
#include <string>
#include <vector>

class QWidget;

// Questions of the journal.

// Depths through equal steps, below the last one; empty where the user has thought better of it.
std::vector<std::wstring> askDepths(QWidget* parent, double last);
// The areas that forces are divided by; the diameter of the cone, m, is for who wants the area by it.
std::optional<ProbeAreas> askAreas(QWidget* parent, double coneDiameter);
