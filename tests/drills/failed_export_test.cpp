// Papers and drawings for which the disk has no room or that may not be written: told in words, nothing half.

#include "core/base/mexception.h"
#include "document/document_file.h"
#include "document/sample_document.h"
#include "drills/hindrances.h"
#include "paint/drawing_files.h"
#include "platform/utf8.h"
#include "plots/column.h"
#include "support/temporary_folder.h"

#include <gtest/gtest.h>

#include <fstream>
#include <iterator>
#include <memory>
#include <set>

namespace
{

namespace fs = std::filesystem;

struct Paper {
    const wchar_t* name;
    void (*write)(const std::wstring& path);
};

void writeColumn(const std::wstring& path)
{
    ColumnData column;
    column.point = L"Скв-1";
    writeDrawings(path, columnOf(column, {}), {}, {}, 72);
}

const Paper papers[] = {
    {L"ведомость.xlsx",
        [](const std::wstring& path) {
            writeOfficeFile(path, documentBytes(sampleDocument(), DocumentFormat::Xlsx));
        }},
    {L"колонка.pdf", writeColumn},
    {L"колонка.dxf", writeColumn},
    {L"колонка.png", writeColumn},
};

using Holder = std::shared_ptr<void>;

struct Hindrance {
    const char* name;
    const wchar_t* advice; // what the message says among other things
    Holder (*raise)(const fs::path& target);
};

const Hindrance hindrances[] = {
    {"no room on the disk",
        L"диске нет места",
        [](const fs::path&) -> Holder { return std::make_shared<FileSizeLimit>(1000); }},
    {"the file may not be written",
        L"защищён от записи",
        [](const fs::path& target) -> Holder {
            return std::make_shared<Forbidden>(target, fs::perms::owner_read);
        }},
    {"neither the folder nor the file may be written",
        L"записи",
        [](const fs::path& target) -> Holder {
            fs::permissions(target, fs::perms::owner_read);
            return std::make_shared<Forbidden>(
                target.parent_path(), fs::perms::owner_read | fs::perms::owner_exec);
        }},
    {"the folder is gone",
        L"Папки нет",
        [](const fs::path& target) -> Holder { return std::make_shared<Away>(target.parent_path()); }},
};

std::string contentOf(const fs::path& path)
{
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

std::set<fs::path> filesIn(const fs::path& folder)
{
    return {fs::directory_iterator(folder), fs::directory_iterator()};
}

TEST(FailedExport, TellsWhatToDoAndLeavesTheOldFileWhole)
{
    for (const Paper& paper : papers)
        for (const Hindrance& hindrance : hindrances) {
            SCOPED_TRACE(testing::Message() << toUtf8(paper.name) << ": " << hindrance.name);
            const TemporaryFolder outer;
            const fs::path folder = outer.path() / "выдача";
            fs::create_directory(folder);
            const fs::path target = folder / toUtf8(paper.name);
            std::ofstream(target) << "the old one";
            {
                const Holder held = hindrance.raise(target);
                try {
                    paper.write(outer.file(L"выдача\\") + paper.name);
                    ADD_FAILURE() << "written";
                } catch (const MException& failure) {
                    EXPECT_NE(failure.message().find(paper.name), std::wstring::npos);
                    EXPECT_NE(failure.message().find(hindrance.advice), std::wstring::npos)
                        << toUtf8(failure.message());
                }
            }
            EXPECT_TRUE(contentOf(target) == "the old one");
            EXPECT_EQ(filesIn(folder), std::set<fs::path>{target});
        }
}

} // namespace
