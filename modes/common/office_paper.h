#pragma once

#include "reports/office_pages.h"

#include <optional>

class ITellurixController;
class QWidget;

// What the user's office puts on the papers of the open project.
struct OfficePaper {
    Office office;
    TitleBlockTexts texts;
    std::optional<Drawing> logo = {};
};
OfficePaper officePaper(ITellurixController& controller);
// Where the open project is kept; empty where none is.
std::wstring openProjectFolder(ITellurixController& controller);
// Of the screen that the widget stands on; null where there is none.
ITellurixController* controllerOf(const QWidget* widget);
