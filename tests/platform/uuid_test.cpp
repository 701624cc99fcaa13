#include "platform/uuid.h"

#include <gtest/gtest.h>

#include <string>

TEST(Uuid, TextShowsTheGroupsOfTheSystemsStructure)
{
    // In memory: 33 22 11 00 | 55 44 77 66 | 88 99 aa bb | cc dd ee ff.
    const Uuid uuid{{0x00112233U, 0x66774455U, 0xBBAA9988U, 0xFFEEDDCCU}};
    EXPECT_EQ(uuidToText(uuid), "00112233-4455-6677-8899-aabbccddeeff");
    EXPECT_EQ(uuidFromText("00112233-4455-6677-8899-aabbccddeeff"), uuid);
    EXPECT_EQ(uuidFromText("00112233-4455-6677-8899-AABBCCDDEEFF"), uuid);
    EXPECT_EQ(uuidToText(Uuid{}), "00000000-0000-0000-0000-000000000000");
}

TEST(Uuid, AnyOtherTextIsNone)
{
    const std::string broken[] = {
        "",
        "00112233-4455-6677-8899-aabbccddeef",
        "00112233-4455-6677-8899-aabbccddeeff0",
        "{00112233-4455-6677-8899-aabbccddeeff}",
        "00112233445566778899aabbccddeeff",
        "0011223-34455-6677-8899-aabbccddeeff",
        "00112233 4455-6677-8899-aabbccddeeff",
        "00112233-4455-6677-8899-aabbccddeef\xFF",
        std::string("00112233-4455-6677-8899-aabbccddee\0f", 36),
    };
    for (const std::string& text : broken)
        EXPECT_EQ(uuidFromText(text), Uuid{}) << text;
}
