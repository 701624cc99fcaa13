#include "core/base/mexception.h"
#include "persistence/format.h"
#include "section/gl_block.h"
#include "support/opening.h"
#include "support/project_bytes.h"
#include "support/random_project.h"

#include <gtest/gtest.h>

#include <random>
#include <stdexcept>

// However many threads read or write a project, and wherever that divides a register: the same project, the
// same bytes, the same report, and in a damaged file the same failure at the same place.

namespace
{

const WorkSharing alone{1};

// Rows with letters, so that every number of them is taken, and one text with a zero byte near the end. Long
// rows are divided among all threads, short ones are one thread's.
Reference<DBProject> layers(int count, std::size_t length)
{
    auto project = makeReference<DBProject>();
    for (int i = 0; i < count; ++i)
        project->addLithology({L"Скв-" + std::to_wstring(i), L"1.5"}, {L"aQ4", std::wstring(length, L'ж')});
    if (count > 2)
        std::next(project->getLithology().begin(), count - 2)->second.description = std::wstring(L"а\0б", 3);
    return project;
}

} // namespace

TEST(WorkSharing, ThreadsChangeNothingInSamplesAndGeneratedProjects)
{
    std::vector<Bytes> files;
    for (const char* name : {"ALLNUM.TLX", "ALLTEXT.TLX", "LURGAN.TLX", "PORTADOWN.TLX"})
        files.push_back(sampleBytes(name));
    for (std::uint32_t seed = 1; seed <= 10; ++seed)
        files.push_back(encodeProject(*randomProject(seed, seed % 2 == 0)));
    for (const int count : {1, 2, 3, 63, 64, 65, 66, 67, 200})
        for (const std::size_t length : {8U, 400U})
            files.push_back(encodeProject(*layers(count, length)));
    for (const Bytes& bytes : files)
        for (const std::size_t threads : {2U, 3U, 4U}) {
            const WorkSharing sharing{threads, 0, 0};
            const Opening expected = Opening(bytes, alone);
            EXPECT_EQ(Opening(bytes, sharing), expected);
            EXPECT_EQ(encodeProject(*openBytes(bytes), sharing), encodeProject(*openBytes(bytes), alone));
        }
}

TEST(WorkSharing, PiecesHandedOverMeanwhileAreTheFile)
{
    for (const std::size_t length : {8U, 2000U})
        for (const std::size_t threads : {1U, 2U, 4U}) {
            const auto project = layers(3000, length);
            const Bytes expected = encodeProject(*project, alone);
            Bytes handed;
            int pieces = 0;
            encodeProjectInPieces(
                *project,
                [&](std::span<const std::span<const std::uint8_t>> parts) {
                    ++pieces;
                    for (const auto part : parts)
                        handed.insert(handed.end(), part.begin(), part.end());
                },
                WorkSharing{threads, 0, 0});
            EXPECT_TRUE(handed == expected) << length << ' ' << threads;
            EXPECT_GE(pieces, length > 1000 ? 2 : 1);
        }
}

TEST(WorkSharing, AFailureOnEitherSideReachesTheCaller)
{
    const auto fine = layers(3000, 2000);
    EXPECT_THROW(
        encodeProjectInPieces(*fine, [](auto) { throw std::runtime_error("no room"); }), std::runtime_error);
    const auto deep = layers(3000, 2000);
    Reference<GLObjectDB> object = makeReference<GLBlockDB>(GLBlockData(), Uuid(), L"0", Uuid());
    for (int level = 0; level < 2 * format::nestingLimit; ++level)
        object = makeReference<GLBlockDB>(GLBlockData{{object.detach()}}, Uuid(), L"1", Uuid());
    deep->setLongGlObjects({object.detach()});
    EXPECT_THROW(encodeProjectInPieces(*deep, [](auto) {}), MException);
}

TEST(WorkSharing, DamagedFilesFailAlike)
{
    const Bytes whole = sampleBytes("PORTADOWN.TLX");
    const WorkSharing sharing{3, 0, 0};
    std::mt19937 random(5);
    int failures = 0;
    int reports = 0;
    for (int i = 0; i < 300; ++i) {
        Bytes bytes = whole;
        bytes[16 + random() % (bytes.size() - 16)] = static_cast<std::uint8_t>(random() % 4);
        if (i % 3 == 0)
            bytes.resize(100 + random() % bytes.size());
        const Opening expected = Opening(bytes, alone);
        ASSERT_EQ(Opening(bytes, sharing).report, expected.report) << "damage " << i;
        ASSERT_EQ(Opening(bytes, sharing).content, expected.content) << "damage " << i;
        failures += expected.report.find("subscript") != std::string::npos ? 1 : 0;
        reports += expected.report.find("dropped") != std::string::npos ? 1 : 0;
    }
    EXPECT_GT(failures, 20);
    EXPECT_GT(reports, 20);
}
