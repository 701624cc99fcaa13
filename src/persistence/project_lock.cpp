#include "persistence/project_lock.h"

#include "platform/exclusive_file.h"
#include "platform/files.h"
#include "platform/utf8.h"

#include <algorithm>
#include <charconv>
#include <chrono>
#include <cstdio>
#include <random>
#include <string_view>
#include <thread>
#include <utility>
#include <vector>

using namespace std::chrono;

namespace
{

constexpr std::int64_t staleAfter = 300; // seconds without a sign of life
// A lock that is just being written is looked at again before it is called unreadable.
constexpr int looks = 10;
constexpr auto betweenLooks = milliseconds(20);

std::wstring lockPath(const std::wstring& place)
{
    return place + std::wstring(lockSuffix);
}

std::int64_t now()
{
    return duration_cast<seconds>(system_clock::now().time_since_epoch()).count();
}

std::string timeText(std::int64_t time)
{
    const sys_seconds moment{seconds(time)};
    const auto day = floor<days>(moment);
    const year_month_day date(day);
    const hh_mm_ss clock(moment - day);
    char text[64];
    std::snprintf(text,
        sizeof text,
        "%04d-%02u-%02uT%02d:%02d:%02dZ",
        int(date.year()),
        unsigned(date.month()),
        unsigned(date.day()),
        int(clock.hours().count()),
        int(clock.minutes().count()),
        int(clock.seconds().count()));
    return text;
}

// 0 for what is no time.
std::int64_t timeFrom(const std::string& text)
{
    int y = 0;
    unsigned m = 0;
    unsigned d = 0;
    int hour = 0;
    int minute = 0;
    int second = 0;
    if (std::sscanf(text.c_str(), "%4d-%2u-%2uT%2d:%2d:%2dZ", &y, &m, &d, &hour, &minute, &second) != 6)
        return 0;
    const year_month_day date{year(y), month(m), day(d)};
    if (!date.ok())
        return 0;
    const auto moment = sys_days(date) + hours(hour) + minutes(minute) + seconds(second);
    return duration_cast<seconds>(moment.time_since_epoch()).count();
}

std::string makeToken()
{
    std::random_device random;
    std::string token;
    for (int i = 0; i < 4; ++i) {
        char word[9];
        std::snprintf(word, sizeof word, "%08x", static_cast<unsigned>(random()));
        token += word;
    }
    return token;
}

LockOwner ourselves()
{
    const std::int64_t time = now();
    return {userName(), computerName(), currentProcess(), time, time, makeToken()};
}

std::string line(std::string_view key, std::string value)
{
    value.erase(std::remove_if(value.begin(), value.end(), [](char c) { return c == '\n' || c == '\r'; }),
        value.end());
    return std::string(key) + '=' + value + '\n';
}

std::string recordText(const LockOwner& owner)
{
    return "# Проект открыт в программе Tellurix. Файл исчезнет, когда проект закроют.\n"
        + line("user", toUtf8(owner.user)) + line("computer", toUtf8(owner.computer))
        + line("process", std::to_string(owner.process.number)) + line("started", owner.process.start)
        + line("opened", timeText(owner.openedAt)) + line("alive", timeText(owner.lastSign))
        + line("token", owner.token);
}

// The value of a line; empty where there is none.
std::string valueOf(std::string_view text, std::string_view key)
{
    while (!text.empty()) {
        const std::size_t end = std::min(text.find('\n'), text.size());
        std::string_view row = text.substr(0, end);
        text.remove_prefix(std::min(end + 1, text.size()));
        if (row.ends_with('\r'))
            row.remove_suffix(1);
        if (row.starts_with(key) && row.substr(key.size()).starts_with('='))
            return std::string(row.substr(key.size() + 1));
    }
    return {};
}

// The token is the last line: without it the record is none, or not yet complete.
std::optional<LockOwner> recordFrom(std::string_view text)
{
    LockOwner owner;
    owner.token = valueOf(text, "token");
    if (owner.token.empty())
        return {};
    owner.user = fromUtf8(valueOf(text, "user")).value_or(L"?");
    owner.computer = fromUtf8(valueOf(text, "computer")).value_or(L"?");
    const std::string number = valueOf(text, "process");
    std::from_chars(number.data(), number.data() + number.size(), owner.process.number);
    owner.process.start = valueOf(text, "started");
    owner.openedAt = timeFrom(valueOf(text, "opened"));
    owner.lastSign = timeFrom(valueOf(text, "alive"));
    return owner;
}

// Clocks of two computers differ: the time of the file, which a server may have set, counts as well as the
// one in it, and a time yet to come is a sign of life.
bool isLiving(const std::optional<LockOwner>& owner, std::int64_t modified)
{
    if (owner && owner->computer == computerName())
        return isRunning(owner->process);
    const std::int64_t sign = std::max(owner ? owner->lastSign : 0, modified);
    return now() - sign < staleAfter;
}

// What stands there without a turn at it.
struct Look {
    bool exists = false;
    std::optional<LockOwner> owner;
    std::int64_t modified = 0;

    bool isLiving() const { return exists && ::isLiving(owner, modified); }
};

Look lookAt(const std::wstring& place)
{
    const std::wstring path = lockPath(place);
    Look look;
    for (int i = 0; i < looks; ++i) {
        const FileInfo info = fileInfo(path);
        look = {info.kind != FileKind::Missing, {}, info.modified};
        std::vector<std::uint8_t> bytes;
        if (look.exists && readFile(path, bytes))
            look.owner = recordFrom({reinterpret_cast<const char*>(bytes.data()), bytes.size()});
        // An old one will not change any more.
        if (!look.exists || look.owner || !look.isLiving())
            break;
        std::this_thread::sleep_for(betweenLooks);
    }
    return look;
}

} // namespace

ProjectLock::ProjectLock(std::wstring place, LockOwner owner)
    : place_(std::move(place))
    , owner_(std::move(owner))
{
}

ProjectLock::ProjectLock(ProjectLock&& other) noexcept
    : place_(std::move(other.place_))
    , owner_(std::exchange(other.owner_, std::nullopt))
{
}

ProjectLock& ProjectLock::operator=(ProjectLock&& other) noexcept
{
    std::swap(place_, other.place_);
    std::swap(owner_, other.owner_);
    return *this;
}

ProjectLock::~ProjectLock()
{
    release();
}

ProjectLock::Attempt ProjectLock::tryTake(const std::wstring& place)
{
    return take(place, false);
}

ProjectLock::Attempt ProjectLock::takeOver(const std::wstring& place)
{
    return take(place, true);
}

// Everybody reads the record, judges it and writes his own within one turn at the file, so of two programs
// that find the same stale lock the second one finds the first one's record, and a sign of life is never
// written over a record that has come since.
ProjectLock::Attempt ProjectLock::take(const std::wstring& place, bool fromTheLiving)
{
    for (int look = 1;; ++look) {
        ExclusiveFile file(lockPath(place), ExclusiveFile::IfMissing::Create);
        if (!file.result())
            break;
        const auto owner = file.isNew() ? std::nullopt : recordFrom(file.read());
        if (file.isNew() || fromTheLiving || !isLiving(owner, fileInfo(lockPath(place)).modified)) {
            const LockOwner own = ourselves();
            if (file.write(recordText(own)))
                return {State::Held, ProjectLock(place, own), {}};
            file.remove();
            return {};
        }
        if (owner || look == looks)
            return {State::HeldByOther, {}, owner.value_or(LockOwner{})};
        // Made by one who has not had his turn yet.
        file.close();
        std::this_thread::sleep_for(betweenLooks);
    }
    // Nothing can be written there; it may be another one's without rights for us.
    const Look look = lookAt(place);
    if (look.isLiving() && !fromTheLiving)
        return {State::HeldByOther, {}, look.owner.value_or(LockOwner{})};
    return {};
}

bool ProjectLock::isStillOurs() const
{
    const Look look = lookAt(place_);
    return owner_ && look.owner && look.owner->token == owner_->token;
}

bool ProjectLock::refresh()
{
    ExclusiveFile file(lockPath(place_), ExclusiveFile::IfMissing::Fail);
    if (!owner_ || !file.result())
        return false;
    const auto found = recordFrom(file.read());
    if (!found || found->token != owner_->token)
        return false;
    owner_->lastSign = now();
    return bool(file.write(recordText(*owner_)));
}

void ProjectLock::release()
{
    if (!owner_)
        return;
    ExclusiveFile file(lockPath(place_), ExclusiveFile::IfMissing::Fail);
    if (!file.result())
        return;
    const auto found = recordFrom(file.read());
    if (found && found->token == owner_->token)
        file.remove();
    owner_.reset();
}

bool isThisProgram(const LockOwner& owner)
{
    return owner.computer == computerName() && owner.process == currentProcess();
}

std::optional<LockOwner> livingOwner(const std::wstring& place)
{
    const Look look = lookAt(place);
    if (!look.isLiving())
        return {};
    return look.owner.value_or(LockOwner{});
}

std::optional<LockOwner> foreignOwner(const std::wstring& place)
{
    auto owner = livingOwner(place);
    if (owner && isThisProgram(*owner))
        owner.reset();
    return owner;
}

std::optional<LockOwner> lockRecord(const std::wstring& place)
{
    return lookAt(place).owner;
}
