#include "support/project_bytes.h"

#include <gtest/gtest.h>

#include <fstream>
#include <sstream>

namespace
{

// The bytes of the example on the page about the project file: "54 65 00*8   what it is".
Bytes bytesOfPage(const std::string& path)
{
    std::ifstream page(path);
    Bytes bytes;
    bool inside = false;
    for (std::string line; std::getline(page, line);) {
        if (line.starts_with("```")) {
            inside = line == "```hex";
            continue;
        }
        std::istringstream tokens(inside ? line.substr(0, line.find("   ")) : std::string());
        for (std::string token; tokens >> token;) {
            const auto star = token.find('*');
            const auto value = static_cast<std::uint8_t>(std::stoi(token.substr(0, star), nullptr, 16));
            const std::size_t times = star == std::string::npos ? 1 : std::stoul(token.substr(star + 1));
            bytes.insert(bytes.end(), times, value);
        }
    }
    return bytes;
}

} // namespace

TEST(FormatPage, ItsExampleIsAProject)
{
    const Bytes bytes = bytesOfPage(TELLURIX_DOCS "/project_file.md");
    ReadReport report;
    const auto project = openBytes(bytes, report);
    EXPECT_EQ(report.position, bytes.size());
    EXPECT_EQ(project->getProjectName(), L"Мост");
    EXPECT_EQ(project->getPointRegister().begin()->second.front().absoluteMark, L"101.5");
    EXPECT_EQ(project->getLithology().begin()->second.description, L"Песок");
    EXPECT_EQ(encodeProject(*project), bytes);
}
