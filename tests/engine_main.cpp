#include <gtest/gtest.h>

#include <clocale>
#include <cstdio>
#include <cstdlib>

int main(int argc, char** argv)
{
    const char* wanted = std::getenv("LC_ALL");
    if (!std::setlocale(LC_ALL, "")) {
        std::fprintf(stderr,
            "The locale %s is not installed: these tests would prove nothing.\n",
            wanted ? wanted : "");
        return 2;
    }
    testing::InitGoogleTest(&argc, argv);
    return RUN_ALL_TESTS();
}
