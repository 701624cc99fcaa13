#include "heap/counted_heap.h"
#include "persistence/file_head.h"
#include "support/project_bytes.h"
#include "support/random_project.h"

#include <algorithm>
#include <chrono>
#include <ctime>
#include <random>
#include <set>
#include <stdexcept>

// A project file that a disk, a cable or a program has damaged opens or fails with the message that the user
// knows, at once and without taking the machine's memory.

namespace
{

constexpr std::size_t largestHeap = 64U << 20U;
constexpr std::chrono::milliseconds longestTime(50);
const std::wstring givenPath = L"/тест/файл.TLX";
const std::string failureText = "Critical Error reading the file ";

// Checked builds stand still to check; what they take and what they throw is theirs to judge all the same.
#ifdef TELLURIX_SANITIZED
constexpr bool isTimed = false;
// A tenth: each opening takes some ten times as long there, and the whole would take minutes.
constexpr int damageCount = 10'000;
#else
#ifdef _WIN32
constexpr bool isTimed = false; // there std::clock goes on while others have the processor
#else
constexpr bool isTimed = true;
#endif
constexpr int damageCount = 100'000;
#endif

enum class Outcome { opened, criticalError, otherVersion, shorterThanHead };

struct Opening {
    Outcome outcome = Outcome::opened;
    std::string message;
};

// As the program opens a file: the head first, then the factory. Any other exception ends the test.
Opening openDamaged(const Bytes& bytes)
{
    std::size_t position = 0;
    try {
        if (!checkProjectHead(bytes, position))
            return {Outcome::otherVersion, {}};
    } catch (const std::out_of_range& failure) {
        return {Outcome::shorterThanHead, failure.what()};
    }
    try {
        ReadReport report;
        openBytes(bytes, report, givenPath);
        return {Outcome::opened, {}};
    } catch (const MException& failure) {
        EXPECT_EQ(failure.code(), 2);
        return {Outcome::criticalError, toUtf8(failure.message())};
    }
}

// The same under watch for time and heap; both are those of the worst opening so far.
class Watch
{
public:
    Opening open(const Bytes& bytes)
    {
        Opening opening;
        const std::size_t before = heapBytesTaken();
        auto time = timeOf([&] { opening = openDamaged(bytes); });
        heap_ = std::max(heap_, heapBytesTaken() - before);
        // A virtual machine may count what its host took away: a file that is slow is slow every time.
        for (int again = 0; again < 3 && time >= longestTime; ++again)
            time = std::min(time, timeOf([&] { openDamaged(bytes); }));
        longest_ = std::max(longest_, time);
        return opening;
    }

    void expectWithinLimits() const
    {
        EXPECT_LT(heap_, largestHeap);
        if (isTimed) {
            EXPECT_LT(longest_, longestTime);
        }
        testing::Test::RecordProperty("longestMicroseconds", static_cast<int>(longest_.count()));
        testing::Test::RecordProperty("largestHeapBytes", static_cast<int>(heap_));
    }

private:
    // Of the processor: a machine that is busy elsewhere says nothing about the file.
    template <class Work>
    static std::chrono::microseconds timeOf(Work&& work)
    {
        const std::clock_t begin = std::clock();
        work();
        const std::int64_t ticks = std::clock() - begin;
        return std::chrono::microseconds(ticks * 1'000'000 / CLOCKS_PER_SEC);
    }

    std::chrono::microseconds longest_{};
    std::size_t heap_ = 0;
};

void noteClasses(const GLObjectList& objects, std::set<std::string_view>& classes)
{
    for (GLObjectDB* object : objects)
        visitDrawing(object, [&classes](auto row, auto& drawing) {
            classes.insert(row.name);
            if constexpr (std::same_as<std::remove_reference_t<decltype(drawing)>, GLBlockDB>)
                noteClasses(drawing.data().objects, classes);
        });
}

// Every register has rows, every class of drawing object is there, and the three subsidence maps are filled.
Bytes smallFullProject()
{
    constexpr std::size_t small = 20'000;
    constexpr std::size_t drawingClasses = 9;
    for (std::uint32_t seed = 1;; ++seed) {
        const auto project = randomProject(seed, seed % 2 == 0);
        Bytes bytes = encodeProject(*project);
        std::set<std::string_view> classes;
        noteClasses(project->getTerrainGlObjectsA(), classes);
        noteClasses(project->getLongGlObjects(), classes);
        noteClasses(project->getCrossGlObjects(), classes);
        if (bytes.size() < small && classes.size() == drawingClasses)
            return bytes;
    }
}

class Damage
{
public:
    // Between one and eight damages to a copy, of the kinds that files have been seen with.
    Bytes damaged(const Bytes& sound)
    {
        Bytes bytes = sound;
        static constexpr void (Damage::*kinds[])(Bytes&) = {&Damage::flipBit,
            &Damage::flipBit,
            &Damage::replaceByte,
            &Damage::replaceByte,
            &Damage::replaceWord,
            &Damage::zeroRun,
            &Damage::randomRun,
            &Damage::repeatRun,
            &Damage::loseRun};
        const std::uint32_t many = below(2) == 0 ? 1 : 1 + below(8);
        for (std::uint32_t i = 0; i < many; ++i)
            (this->*kinds[below(std::size(kinds))])(bytes);
        return bytes;
    }

private:
    std::uint32_t below(std::size_t bound) { return static_cast<std::uint32_t>(random_() % bound); }
    std::uint8_t anyByte() { return static_cast<std::uint8_t>(below(256)); }
    Bytes::iterator place(Bytes& bytes) { return bytes.begin() + below(bytes.size()); }
    // As long as a sector at most.
    Bytes::iterator endOfRun(Bytes& bytes, Bytes::iterator begin)
    {
        return begin + std::min<std::ptrdiff_t>(1 + below(512), bytes.end() - begin);
    }

    void flipBit(Bytes& bytes) { *place(bytes) ^= static_cast<std::uint8_t>(1U << below(8)); }
    void replaceByte(Bytes& bytes) { *place(bytes) = anyByte(); }
    // Values at which counts, lengths and singles turn over.
    void replaceWord(Bytes& bytes)
    {
        static constexpr std::uint32_t words[] = {0,
            1,
            0x7FFFFFFF,
            0x80000000,
            0xFFFFFFFF,
            0xFFFFFFFE,
            0x10000,
            0x00FFFFFF,
            0x7FC00000,
            0x20000000};
        auto at = place(bytes);
        for (std::uint32_t word = words[below(std::size(words))], i = 0; i < 4 && at != bytes.end(); ++i)
            *at++ = static_cast<std::uint8_t>(word >> 8 * i);
    }
    void zeroRun(Bytes& bytes)
    {
        const auto begin = place(bytes);
        std::fill(begin, endOfRun(bytes, begin), std::uint8_t{0});
    }
    void randomRun(Bytes& bytes)
    {
        const auto begin = place(bytes);
        std::generate(begin, endOfRun(bytes, begin), [this] { return anyByte(); });
    }
    void repeatRun(Bytes& bytes)
    {
        const auto begin = place(bytes);
        const Bytes run(begin, endOfRun(bytes, begin));
        bytes.insert(place(bytes), run.begin(), run.end());
    }
    void loseRun(Bytes& bytes)
    {
        const auto begin = place(bytes);
        if (begin != bytes.begin())
            bytes.erase(begin, endOfRun(bytes, begin));
    }

    std::mt19937 random_{20240517};
};

} // namespace

TEST(DamageDrill, EveryTruncationFailsWithItsMessage)
{
    const Bytes whole = smallFullProject();
    const std::wstring stored = openBytes(whole)->getFilePath();
    const std::size_t headEnd = format::projectHead.contentOffset;
    // The two bytes and the path that stand behind the head.
    const std::size_t pathEnd = headEnd + 2 + 4 + stored.size();
    Watch watch;
    for (std::size_t size = 0; size < whole.size(); ++size) {
        const Opening opening =
            watch.open(Bytes(whole.begin(), whole.begin() + static_cast<std::ptrdiff_t>(size)));
        if (size < headEnd) {
            ASSERT_EQ(opening.outcome, Outcome::shorterThanHead) << size;
            ASSERT_EQ(opening.message, "invalid vector<T> subscript") << size;
        } else {
            ASSERT_EQ(opening.outcome, Outcome::criticalError) << size;
            ASSERT_EQ(opening.message, failureText + toUtf8(size < pathEnd ? givenPath : stored)) << size;
        }
    }
    EXPECT_EQ(watch.open(whole).outcome, Outcome::opened);
    watch.expectWithinLimits();
}

TEST(DamageDrill, RandomDamageOpensOrFailsWithItsMessage)
{
    const Bytes whole = smallFullProject();
    Damage damage;
    Watch watch;
    int opened = 0;
    int failed = 0;
    for (int i = 0; i < damageCount; ++i) {
        const Opening opening = watch.open(damage.damaged(whole));
        opened += opening.outcome == Outcome::opened ? 1 : 0;
        if (opening.outcome == Outcome::criticalError) {
            ++failed;
            ASSERT_EQ(opening.message.substr(0, failureText.size()), failureText) << "damage " << i;
        }
    }
    watch.expectWithinLimits();
    // Damage of both sorts was there, so that neither way out went untried.
    EXPECT_GT(opened, damageCount / 10);
    EXPECT_GT(failed, damageCount / 10);
    RecordProperty("opened", opened);
    RecordProperty("failed", failed);
}
