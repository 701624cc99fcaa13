#include "support/project_bytes.h"
#include "support/temporary_folder.h"

#include <gtest/gtest.h>

#include <array>
#include <cstdio>
#include <fstream>
#include <sys/wait.h>

namespace
{

struct Outcome {
    int status;
    std::string text; // of both outputs
};

// What a shell makes of the line; $T stands for the tool, $S for the samples.
Outcome shell(const std::string& line)
{
    const std::string prelude = "T='" TLXTOOL_PATH "'; S='" TELLURIX_SAMPLES "'; exec 2>&1; ";
    std::FILE* pipe = ::popen((prelude + line).c_str(), "r");
    if (!pipe)
        return {-1, "no shell"};
    std::string text;
    std::array<char, 4096> block{};
    for (std::size_t count = 0; (count = std::fread(block.data(), 1, block.size(), pipe)) > 0;)
        text.append(block.data(), count);
    const int status = ::pclose(pipe);
    return {WIFEXITED(status) ? WEXITSTATUS(status) : -1, text};
}

std::string contentOf(const std::filesystem::path& path)
{
    std::ifstream stream(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(stream), {}};
}

std::size_t lineCount(const std::string& text)
{
    return static_cast<std::size_t>(std::count(text.begin(), text.end(), '\n'));
}

} // namespace

TEST(CommandLine, StatusAndMessageOfEveryCommand)
{
    struct Row {
        const char* line;
        int status;
        const char* text; // the output contains it
    };
    const Row rows[] = {
        {"$T --help", 0, "Код завершения"},
        {"$T dump --help", 0, "Вызов: tlxtool dump"},
        {"$T", 2, "tlxtool: не указана команда"},
        {"$T frob", 2, "tlxtool --help"},
        {"$T dump", 2, "не хватает аргументов"},
        {"$T dump a b", 2, "аргумент «b»"},
        {"$T info $S/LURGAN.TLX", 0, "Lurgan FAS FC2 & FC4"},
        {"$T info /нет.TLX $S/LURGAN.TLX", 2, "Lurgan FAS FC2 & FC4"},
        {"$T info /tmp", 2, "/tmp: это не файл"},
        {"$T check $S/LURGAN.TLX", 1, "grading: Сумма фракций 99.8 %"},
        {"$T calc $S/LURGAN.TLX", 0, "\"samples\""},
        {"$T calc --language uk $S/LURGAN.TLX", 0, "напівтверда"},
        {"$T calc --language de $S/LURGAN.TLX", 2, "неизвестный язык «de»"},
        {"$T calc $S/README.md", 2, "README.md: "},
        {"$T check $S/README.md", 1, "README.md: head, байт 0: "},
        {"$T check $S/README.md /нет.TLX", 2, "README.md: head, байт 0: "},
        {"$T dump $S/README.md", 2, "README.md: head, байт 0: "},
        {"$T build $S/README.md x", 2, "это не JSON"},
        {"$T diff $S/ALLNUM.TLX $S/ALLNUM.TLX", 0, ""},
        {"$T diff $S/ALLNUM.TLX $S/ALLTEXT.TLX", 1, "lithology: добавлено"},
        {"$T diff $S/ALLNUM.TLX /нет.TLX", 2, "tlxtool: /нет.TLX: не открывается"},
        {"$T resave $S/ALLNUM.TLX /нет/x.TLX", 2, "tlxtool: /нет/x.TLX: "},
        {"$T export $S/ALLNUM.TLX", 2, "не сказано, во что выводить"},
        {"$T export $S/ALLNUM.TLX --csv /нет/нет", 2, "папка не создана"},
        {"$T dump $S/ALLNUM.TLX > /dev/full", 2, "tlxtool: вывод не записан"},
        {"$T info $S/ALLNUM.TLX > /dev/full", 2, "tlxtool: вывод не записан"},
        {"$T info $S/ALLNUM.TLX >&-", 2, "tlxtool: вывод не записан"},
        {"{ $T dump $S/PORTADOWN.TLX; echo =$? >&2; } | :", 0, "=2"},
    };
    for (const Row& row : rows) {
        const Outcome outcome = shell(row.line);
        EXPECT_EQ(outcome.status, row.status) << row.line << "\n" << outcome.text;
        EXPECT_NE(outcome.text.find(row.text), std::string::npos) << row.line << "\n" << outcome.text;
    }
}

TEST(CommandLine, AFailureIsOneLine)
{
    for (const char* line :
        {"$T", "$T dump a b", "$T dump /нет.TLX", "$T dump $S/README.md", "$T build $S/README.md x"})
        EXPECT_EQ(lineCount(shell(line).text), 1U) << line;
}

TEST(CommandLine, DumpBuildAndResaveGiveTheSameFile)
{
    const TemporaryFolder folder;
    const std::string enter = "cd '" + folder.path().string() + "' && ";
    const Outcome outcome = shell(enter
        + "for f in ALLNUM ALLTEXT LURGAN PORTADOWN; do $T dump $S/$f.TLX > ж.json && $T build ж.json б.TLX "
          "&& cmp $S/$f.TLX б.TLX && $T resave $S/$f.TLX р.TLX && cmp $S/$f.TLX р.TLX || exit 9; done");
    EXPECT_EQ(outcome.status, 0);
    EXPECT_EQ(outcome.text, "");
}

TEST(CommandLine, BuildWarnsOfLossesAndSpoilsNothingWhenItFails)
{
    const TemporaryFolder folder;
    const std::string enter = "cd '" + folder.path().string() + "' && ";
    const std::string edit = "$T dump $S/ALLNUM.TLX > a.json && sed 's/";
    Outcome outcome = shell(enter + edit
        + "\"projectName\": .*/\"projectName\": \"≥\",/' a.json > b.json && "
          "$T build b.json b.TLX");
    EXPECT_EQ(outcome.status, 0) << outcome.text;
    EXPECT_NE(outcome.text.find("не вернётся после открытия: Проект, наименование"), std::string::npos)
        << outcome.text;
    outcome = shell(enter + edit
        + "\"typeObject\": .*/\"typeObject\": 999,/' a.json > c.json && "
          "cp b.TLX c.TLX; $T build c.json c.TLX; echo =$?; cmp b.TLX c.TLX");
    EXPECT_EQ(outcome.status, 0) << outcome.text;
    EXPECT_NE(outcome.text.find("tlxtool: c.json: project.typeObject: "), std::string::npos) << outcome.text;
    EXPECT_NE(outcome.text.find("=2"), std::string::npos) << outcome.text;
}

TEST(CommandLine, ExportMakesItsFolderAndAFilePerRegister)
{
    const TemporaryFolder folder;
    const Outcome outcome = shell("$T export $S/LURGAN.TLX --csv '" + folder.path().string() + "/таблицы'");
    ASSERT_EQ(outcome.status, 0) << outcome.text;
    const auto tables = folder.path() / u8"таблицы";
    const std::string lithology = contentOf(tables / "lithology.csv");
    EXPECT_EQ(lithology.find("\xEF\xBB\xBFpointName;depth;geoIndex;description\r\nFC2-BH01;"), 0U);
    EXPECT_EQ(lineCount(lithology), 112U);
    EXPECT_EQ(lineCount(contentOf(tables / "chemistry.csv")), 20U);
    EXPECT_TRUE(std::filesystem::exists(tables / "labSamples.physical.csv"));
}

// In SVG texts stand as they are; those of a table of HTML too.
TEST(CommandLine, PapersNameTheOfficeBesideTheProject)
{
    const TemporaryFolder folder;
    const std::string enter = "cd '" + folder.path().string() + "' && ";
    const Outcome outcome = shell(enter
        + "cp $S/LURGAN.TLX a.TLX && cp $S/sources/office/office.ini . && "
          "$T draw a.TLX column --point FC2-BH01 --out a.svg && $T export a.TLX --html a.html && rm "
          "office.ini && "
          "$T draw a.TLX column --point FC2-BH01 --out b.svg");
    ASSERT_EQ(outcome.status, 0) << outcome.text;
    const auto names = [&](const char* file, const char* text) {
        return contentOf(folder.path() / file).find(text) != std::string::npos;
    };
    EXPECT_TRUE(names("a.svg", "Волкова А. С."));
    EXPECT_TRUE(names("a.svg", "Терраса"));
    EXPECT_TRUE(names("a.html", "Терраса-Изыскания"));
    EXPECT_FALSE(names("b.svg", "Волкова"));
    EXPECT_TRUE(names("b.svg", "Разработал"));
}
