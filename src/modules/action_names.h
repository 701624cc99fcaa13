#pragma once

// Actions of the shell that a screen may trigger, by their object names among the main window's children.

// Closes the project, or the stratigraphic column, with the questions that belong to it, and shows the
// projects.
constexpr const char closeActionName[] = "actClose";
