#include "platform/code_page.h"

#include <gtest/gtest.h>

// Windows takes what looks alike for some of these; here nothing is guessed.
TEST(CodePage, NeighboursOfWhatItHoldsAreNotTakenForIt)
{
    EXPECT_EQ(toCodePage(L"\u00E9\u00A3"), "??");
    EXPECT_EQ(toCodePage(L"\u0097\u0099\u0400\u04FF\u2000\u2105\uFFFF"), "???????");
    EXPECT_FALSE(codePageHolds(L'\u0097'));
}
