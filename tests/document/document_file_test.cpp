#include "core/base/mexception.h"
#include "document/document_file.h"
#include "document/office.h"
#include "document/sample_document.h"
#include "platform/files.h"
#include "platform/safe_write.h"
#include "support/temporary_folder.h"

#include <gtest/gtest.h>

namespace
{

std::string contentOf(const std::wstring& path)
{
    std::vector<std::uint8_t> bytes;
    EXPECT_TRUE(readFile(path, bytes));
    return {bytes.begin(), bytes.end()};
}

TEST(DocumentFile, FormatComesFromTheEndOfTheName)
{
    EXPECT_EQ(documentFormatOf(L"a/b.c.XLSX"), DocumentFormat::Xlsx);
    EXPECT_EQ(documentFormatOf(L"отчёт.Docx"), DocumentFormat::Docx);
    EXPECT_EQ(documentFormatOf(L"x.htm"), DocumentFormat::Html);
    EXPECT_EQ(documentFormatOf(L".xlsx"), std::nullopt);
    EXPECT_EQ(documentFormatOf(L"x.pdf"), std::nullopt);
}

TEST(DocumentFile, NamesAreThoseThatEverySystemTakes)
{
    EXPECT_EQ(fileNameOf(L"Разрез I–I: 1/2 <а>?"), L"Разрез I–I- 1-2 -а--");
    EXPECT_EQ(fileNameOf(L" ..имя.. "), L"имя");
    EXPECT_EQ(fileNameOf(L"\u0001 "), L"Документ");
    EXPECT_EQ(fileNameOf(std::wstring(300, L'я')).size(), 80U);
}

TEST(DocumentFile, CsvQuotesAndGuardsFormulas)
{
    TableBlock table;
    for (const wchar_t* text :
        {L"=cmd|' /C calc'!A0", L"-5.2", L"-", L"@имя", L"а;\"б\"", L"первая\nвторая"}) {
        TableCell cell;
        cell.runs = {{text}};
        table.rows.push_back({cell});
    }
    Document document;
    document.blocks = {table};
    EXPECT_EQ(toCsv(document),
        "\xEF\xBB\xBF'=cmd|' /C calc'!A0\r\n-5.2\r\n-\r\n'@имя\r\n\"а;\"\"б\"\"\"\r\n\"первая\nвторая\"\r\n");
}

TEST(DocumentFile, CsvGivesNumbersAndNoTextTheWantedMark)
{
    TableCell number;
    number.runs = {{L"-3.6"}};
    number.number = -3.6;
    TableCell text;
    text.runs = {{L"3.6"}};
    TableBlock table;
    table.rows = {{number, text}};
    Document document;
    document.blocks = {table};
    EXPECT_EQ(toCsv(document), "\xEF\xBB\xBF-3.6;3.6\r\n");
    EXPECT_EQ(toCsv(document, {}, true), "\xEF\xBB\xBF-3,6;3.6\r\n");
}

TEST(DocumentFile, FailureLeavesWhatWasThere)
{
    const TemporaryFolder folder;
    const std::wstring path = folder.file(L"a.xlsx");
    writeOfficeFile(path, "old");
    EXPECT_THROW(writeOfficeFile(folder.file(L"."), "new"), MException);
    EXPECT_THROW(writeOfficeFile(folder.file(L"нет\\a.xlsx"), "new"), MException);
    EXPECT_EQ(contentOf(path), "old");
    try {
        writeOfficeFile(folder.file(L"нет\\a.xlsx"), "new");
    } catch (const MException& failure) {
        EXPECT_NE(failure.message().find(L"другую папку"), std::wstring::npos);
    }
}

TEST(Office, ComesBackAsItWasWritten)
{
    const TemporaryFolder folder;
    const std::wstring path = folder.file(L"office.ini");
    EXPECT_EQ(readOffice(path).people.size(), 4U);
    Office office;
    office.company = L"ООО «Грунт» = №1\nи К°";
    office.city = L"Псков";
    office.stage = L"Р";
    office.people = {{L"Вып|олнил", L"Иванов | И."}, {L"", L"Петров"}};
    office.signatures = Office::InBoth;
    office.hasFrame = false;
    ASSERT_TRUE(writeOffice(path, office));
    const Office read = readOffice(path);
    EXPECT_EQ(read.company, L"ООО «Грунт» = №1 и К°");
    EXPECT_EQ(read.city, office.city);
    EXPECT_EQ(read.stage, office.stage);
    EXPECT_EQ(read.signatures, Office::InBoth);
    EXPECT_FALSE(read.hasFrame);
    ASSERT_EQ(read.people.size(), 2U);
    EXPECT_EQ(read.people[0].role, L"Вып/олнил");
    EXPECT_EQ(read.people[0].name, L"Иванов | И.");
    EXPECT_EQ(read.people[1].name, L"Петров");
}

TEST(Office, OfTheProjectHoldsUntilTheUserHasHisOwn)
{
    const TemporaryFolder program;
    const TemporaryFolder project;
    const std::wstring own = officePath(program.file(L"."));
    const std::wstring place = program.file(L".");
    const std::wstring brought = project.file(L".");
    EXPECT_EQ(officeInForce(place, brought).company, L"");
    EXPECT_FALSE(isOfficeOfProject(place, brought));
    writeOfficeFile(project.file(L"office.ini"),
        "company=Пример\nlogo=logo.png\nagreed=ГИП|Савин\nagreed=a|b\nagreed=c|d\n");
    writeOfficeFile(project.file(L"logo.png"), "picture");
    EXPECT_TRUE(isOfficeOfProject(place, brought));
    const Office example = officeInForce(place, brought);
    EXPECT_EQ(example.company, L"Пример");
    EXPECT_EQ(example.agreed.size(), 2U);
    EXPECT_EQ(contentOf(example.logo), "picture");
    EXPECT_EQ(officeInForce(place, {}).company, L"");
    Office mine;
    mine.company = L"Свои";
    mine.date = L"01.02.26";
    mine.logo = example.logo;
    mine.agreed = example.agreed;
    ASSERT_TRUE(writeOffice(own, mine));
    mine.people = emptyOffice().people;
    EXPECT_EQ(officeInForce(place, brought), mine);
    EXPECT_FALSE(isOfficeOfProject(place, brought));
}

TEST(Office, DamagedFileGivesTheUsualRoles)
{
    const TemporaryFolder folder;
    const std::wstring path = folder.file(L"office.ini");
    for (const std::string content :
        {"", "\xFF\xFE\x00", "signatures=9\nframe=x\nperson=нет черты\n=\ncompany", "person=|\r\n"}) {
        writeOfficeFile(path, content);
        EXPECT_FALSE(readOffice(path).people.empty());
        EXPECT_EQ(readOffice(path).signatures, Office::InTitleBlock);
        EXPECT_TRUE(readOffice(path).hasFrame);
    }
}

} // namespace
