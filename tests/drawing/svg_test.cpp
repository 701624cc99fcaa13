#include "drawing/number_output.h"
#include "drawing/svg.h"

#include <gtest/gtest.h>

#include <limits>

TEST(NumberOutput, HasAPointAndNothingTooMuch)
{
    const std::pair<double, const char*> rows[] = {{0, "0"},
        {-0.0001, "0"},
        {1.5, "1.5"},
        {-12.3456, "-12.346"},
        {100, "100"},
        {0.1 + 0.2, "0.3"},
        {std::numeric_limits<double>::quiet_NaN(), "0"},
        {std::numeric_limits<double>::infinity(), "0"}};
    for (const auto& [value, text] : rows) {
        std::string out;
        appendNumber(out, value);
        EXPECT_EQ(out, text);
    }
}

TEST(Svg, IsTheDrawingInMillimetres)
{
    Drawing drawing;
    drawing.width = 100;
    drawing.height = 50;
    drawing.title = L"Скв. <1> & \"2\"";
    drawing.items.push_back(
        {Layer::Frame, 0, Line{{{1, 2}, {3.5, 4}}, {0.5, {255, 0, 0}, Dash::Dashed}, true}});
    drawing.items.push_back({Layer::Frame, 0, Circle{{5, 6}, 2, {}, true}});
    Text text;
    text.text = L"а<б";
    text.at = {10, 20};
    text.angle = 90;
    text.align = Align::Right;
    drawing.items.push_back({Layer::Text, 0, text});
    EXPECT_EQ(toSvg(drawing, {}),
        "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"
        "<svg xmlns=\"http://www.w3.org/2000/svg\" version=\"1.1\" width=\"100mm\" height=\"50mm\" "
        "viewBox=\"0 0 "
        "100 50\">\n"
        "<title>Скв. &lt;1&gt; &amp; \"2\"</title>\n"
        "<rect width=\"100%\" height=\"100%\" fill=\"#ffffff\"/>\n"
        "<g class=\"FRAME\">\n"
        "<path fill=\"none\" stroke=\"#ff0000\" stroke-width=\"0.5\" stroke-dasharray=\"3 1.5\" d=\"M1 2L3.5 "
        "4Z\"/>\n"
        "<circle cx=\"5\" cy=\"6\" r=\"2\" stroke=\"#000000\" stroke-width=\"0.25\" fill=\"#000000\"/>\n"
        "</g>\n<g class=\"TEXT\">\n"
        "<text font-family=\"'Liberation Sans',Arial,sans-serif\" text-anchor=\"end\" font-size=\"3.634\" "
        "fill=\"#000000\" x=\"10\" y=\"20\" transform=\"rotate(-90 10 20)\" textLength=\"6.225\" "
        "lengthAdjust=\"spacingAndGlyphs\" xml:space=\"preserve\">а&lt;б</text>\n"
        "</g>\n</svg>\n");
}
