#include "platform/system_text.h"

#include <gtest/gtest.h>

TEST(SystemText, IsUtf8WhereTheBytesAreAndElseOfTheLocale)
{
    EXPECT_EQ(fromSystemText("/home/\xD0\x98\xD0\xB2\xD0\xB0\xD0\xBD/1.TLX"), L"/home/Иван/1.TLX");
    // No locale of the tests has an encoding with bytes like these: what can be read stays.
    EXPECT_EQ(fromSystemText("a\xFF\xFE"
                             "b"),
        L"a\uFFFD\uFFFDb");
}
