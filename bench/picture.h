#pragma once

#include <map>
#include <ostream>
#include <string>
#include <utility>
#include <vector>

// A picture of curves in SVG: panels side by side, both axes logarithmic, each curve named where it ends.
struct Panel {
    std::string title;
    std::string xAxis;
    std::string yAxis;
    std::map<std::string, std::vector<std::pair<double, double>>> curves; // points in the order of x
};

void drawPicture(std::ostream& out, const std::string& title, const std::vector<Panel>& panels);
