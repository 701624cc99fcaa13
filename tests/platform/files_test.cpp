#include "platform/files.h"
#include "platform/safe_write.h"
#include "support/temporary_folder.h"

#include <gtest/gtest.h>

#include <chrono>
#include <string>
#include <vector>

using Bytes = std::vector<std::uint8_t>;

TEST(Files, ContentGoesAndComesBack)
{
    const TemporaryFolder folder;
    const std::wstring path = folder.file(L"Площадка №1.TLX");
    Bytes large(3'000'001);
    for (std::size_t i = 0; i < large.size(); ++i)
        large[i] = static_cast<std::uint8_t>(i * 7 / 3);
    for (const Bytes& content : {large, Bytes{}, Bytes{0, 26, 13, 10, 255}}) {
        ASSERT_TRUE(replaceFile(path, content));
        Bytes read = {1, 2, 3};
        ASSERT_TRUE(readFile(path, read));
        EXPECT_TRUE(read == content);
        const std::span<const std::uint8_t> whole(content);
        const std::span<const std::uint8_t> parts[] = {
            whole.first(whole.size() / 3), {}, whole.subspan(whole.size() / 3)};
        ASSERT_TRUE(replaceFileWithParts(path, parts));
        ASSERT_TRUE(readFile(path, read));
        EXPECT_TRUE(read == content);
    }
    EXPECT_EQ(folder.content(), std::vector<std::wstring>{L"Площадка №1.TLX"});
}

TEST(Files, WhatIsNotFinishedLeavesTheOldFileAlone)
{
    const TemporaryFolder folder;
    const std::wstring path = folder.file(L"a.TLX");
    const Bytes old = {1, 2, 3};
    const Bytes half(3'000'000, 7);
    const std::span<const std::uint8_t> part(half);
    Bytes read;
    ASSERT_TRUE(replaceFile(path, old));
    {
        FileReplacement file(path);
        file.add(FileParts(&part, 1));
        EXPECT_EQ(folder.content().size(), 2U) << "the disk is at it already";
        ASSERT_TRUE(readFile(path, read));
        EXPECT_EQ(read, old);
    }
    EXPECT_EQ(folder.content(), std::vector<std::wstring>{L"a.TLX"});
    ASSERT_TRUE(readFile(path, read));
    EXPECT_EQ(read, old);
}

TEST(Files, InfoTellsKindSizeAndTime)
{
    const TemporaryFolder folder;
    const std::wstring path = folder.file(L"a.TLX");
    EXPECT_EQ(fileInfo(path).kind, FileKind::Missing);
    ASSERT_TRUE(replaceFile(path, Bytes(1234)));
    const FileInfo info = fileInfo(path);
    EXPECT_EQ(info.kind, FileKind::Regular);
    EXPECT_EQ(info.size, 1234U);
    EXPECT_TRUE(info.writable);
    const auto now =
        std::chrono::duration_cast<std::chrono::seconds>(std::chrono::system_clock::now().time_since_epoch());
    EXPECT_NEAR(static_cast<double>(info.modified), static_cast<double>(now.count()), 60.0);

    EXPECT_EQ(fileKind(folder.file(L"")), FileKind::Folder);
    EXPECT_EQ(fileKind(executablePath()), FileKind::Regular);
    EXPECT_EQ(fileKind(path + std::wstring(1, L'\0') + L".TLX"), FileKind::Missing);
    EXPECT_EQ(fileInfo(folder.file(L"?.TLX")).kind, FileKind::Missing);
}

TEST(Files, CreateFolderMakesOneLevel)
{
    const TemporaryFolder folder;
    const std::wstring path = folder.file(L"Проекты");
    EXPECT_TRUE(createFolder(path));
    EXPECT_TRUE(createFolder(path)) << "one that stands there is fine";
    EXPECT_EQ(fileKind(path), FileKind::Folder);
    EXPECT_EQ(createFolder(folder.file(L"нет\\TLX")).step, FileStep::CreateFolder);
    ASSERT_TRUE(replaceFile(folder.file(L"файл"), {}));
    EXPECT_EQ(createFolder(folder.file(L"файл")).step, FileStep::CreateFolder);
    EXPECT_EQ(folder.content().size(), 2U);
}

TEST(Files, FailuresTellTheStepAndTheReason)
{
    const TemporaryFolder folder;
    Bytes bytes = {1};
    const FileResult missing = readFile(folder.file(L"нет.TLX"), bytes);
    EXPECT_EQ(missing.step, FileStep::Open);
    EXPECT_FALSE(missing.reason.empty());
    EXPECT_TRUE(bytes.empty());

    ASSERT_TRUE(createFolder(folder.file(L"f.TLX")));
    EXPECT_EQ(readFile(folder.file(L"f.TLX"), bytes).step, FileStep::NotARegularFile);
    EXPECT_EQ(replaceFile(folder.file(L"f.TLX"), Bytes{1}).step, FileStep::NotARegularFile);
    EXPECT_EQ(copyFile(folder.file(L"f.TLX"), folder.file(L"f.bak")).step, FileStep::NotARegularFile);
    const FileResult noFolder = replaceFile(folder.file(L"нет\\a.TLX"), Bytes{1});
    EXPECT_EQ(noFolder.step, FileStep::CreateTemporary);
    EXPECT_FALSE(noFolder.reason.empty());
    EXPECT_FALSE(replaceFile(L"", Bytes{1}));
    EXPECT_EQ(folder.content(), std::vector<std::wstring>{L"f.TLX"});
}

TEST(Files, ACopyReplacesAnOlderOne)
{
    const TemporaryFolder folder;
    const std::wstring from = folder.file(L"a.TLX");
    const std::wstring to = folder.file(L"a.bak");
    EXPECT_EQ(copyFile(from, to).step, FileStep::Open);
    EXPECT_EQ(fileKind(to), FileKind::Missing);
    Bytes read;
    for (const Bytes& content : {Bytes(3'000'000, 7), Bytes{1, 2}}) {
        ASSERT_TRUE(replaceFile(from, content));
        ASSERT_TRUE(copyFile(from, to));
        ASSERT_TRUE(readFile(to, read));
        EXPECT_TRUE(read == content);
    }
    EXPECT_EQ(folder.content().size(), 2U);
}
