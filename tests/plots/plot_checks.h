#pragma once

#include "drawing/drawing.h"
#include "drawing/hit_test.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

struct PlacedText {
    const Text* text;
    Extent extent;
};

inline std::vector<PlacedText> placedTexts(const Drawing& drawing)
{
    std::vector<PlacedText> texts;
    for (const Item& item : drawing.items)
        if (const auto* text = std::get_if<Text>(&item.shape))
            texts.push_back({text, *extentOf(item)});
    return texts;
}

// No text stands on another one, or outside the sheet.
inline ::testing::AssertionResult textsAreApart(const Drawing& drawing)
{
    constexpr double touch = 0.02;
    const std::vector<PlacedText> texts = placedTexts(drawing);
    for (std::size_t one = 0; one < texts.size(); ++one) {
        const Extent& a = texts[one].extent;
        if (a.left < 0 || a.top < 0 || a.right > drawing.width || a.bottom > drawing.height)
            return ::testing::AssertionFailure()
                << "outside: " << ::testing::PrintToString(texts[one].text->text);
        for (std::size_t other = one + 1; other < texts.size(); ++other) {
            const Extent& b = texts[other].extent;
            if (a.left < b.right - touch && b.left < a.right - touch && a.top < b.bottom - touch
                && b.top < a.bottom - touch)
                return ::testing::AssertionFailure()
                    << ::testing::PrintToString(texts[one].text->text) << " stands on "
                    << ::testing::PrintToString(texts[other].text->text) << " at " << a.left << ", " << a.top;
        }
    }
    return ::testing::AssertionSuccess();
}

inline bool hasText(const Drawing& drawing, const std::wstring& wanted)
{
    for (const PlacedText& text : placedTexts(drawing))
        if (text.text->text == wanted)
            return true;
    return false;
}
