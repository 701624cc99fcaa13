#include "app/recovery_copy.h"

#include "core/base/content_hash.h"
#include "core/base/file_names.h"
#include "modules/isettings.h"
#include "platform/files.h"
#include "platform/safe_write.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QStandardPaths>

#include <random>
#include <utility>

using namespace std::chrono;

static const std::wstring recoveryFolder = L"Восстановление";

static QString systemText(const std::wstring& path)
{
    return QString::fromStdWString(systemPath(path));
}

std::vector<std::wstring> recoveryFolders(ISettings& settings)
{
    const QString own = QStandardPaths::writableLocation(QStandardPaths::AppLocalDataLocation);
    return {
        settings.projectPath() + L'\\' + recoveryFolder, (own + QStringLiteral("/recovery")).toStdWString()};
}

// In the work folder one level only: where that folder is out of reach, none must be made in its place.
static bool makeFolder(const std::wstring& folder, bool isUsersOwn)
{
    if (isUsersOwn)
        QDir().mkpath(systemText(folder));
    return bool(createFolder(folder));
}

// What stands in a project may hold anything; a file's name not. A number of its own tells two copies of one
// project apart.
static std::wstring fileNameFor(const std::wstring& name)
{
    constexpr std::size_t longest = 60;
    const QString number = QString::number(std::random_device{}(), 16);
    return fileNamePart(name, longest) + L'-' + number.rightJustified(8, QLatin1Char('0')).toStdWString()
        + L".TLX";
}

RecoveryCopy::~RecoveryCopy()
{
    finishWriting();
}

void RecoveryCopy::finishWriting()
{
    if (thread_.joinable())
        thread_.join();
}

void RecoveryCopy::begin(std::uint64_t savedState)
{
    finishWriting();
    copy_.reset();
    adopted_.reset();
    copiedState_.reset();
    failure_.clear();
    savedState_ = savedState;
}

void RecoveryCopy::adopt(const std::wstring& path)
{
    // One that a living program writes stays that one's.
    adopted_ = std::move(ProjectLock::tryTake(path).lock);
}

// The file first: without its lock it would be one that a crash has left. One that cannot be taken away is
// offered at the next start, with the time of the newer saved file beside it.
void RecoveryCopy::takeAway(std::optional<ProjectLock>& copy)
{
    if (copy)
        QFile::remove(systemText(copy->place()));
    copy.reset();
}

void RecoveryCopy::saved(std::uint64_t savedState)
{
    remove();
    savedState_ = savedState;
}

void RecoveryCopy::remove()
{
    finishWriting();
    takeAway(copy_);
    takeAway(adopted_);
    copiedState_.reset();
}

bool RecoveryCopy::choosePlace(const std::wstring& name, const std::vector<std::wstring>& folders)
{
    for (std::size_t i = 0; i < folders.size() && !copy_; ++i) {
        const std::size_t index = (nextFolder_ + i) % folders.size();
        if (makeFolder(folders[index], index > 0))
            copy_ = std::move(ProjectLock::tryTake(folders[index] + L'\\' + fileNameFor(name)).lock);
    }
    return copy_.has_value();
}

void RecoveryCopy::keep(ByteBlocks bytes, const std::wstring& name, const std::vector<std::wstring>& folders)
{
    finishWriting();
    isWriting_ = true;
    thread_ = std::thread([this, bytes = std::move(bytes), name, folders] {
        const auto start = steady_clock::now();
        try {
            write(bytes, name, folders);
        } catch (...) {
            failure_ = L"не хватает памяти";
        }
        writingTime_ = duration_cast<milliseconds>(steady_clock::now() - start);
        isWriting_ = false;
    });
}

void RecoveryCopy::write(
    const ByteBlocks& bytes, const std::wstring& name, const std::vector<std::wstring>& folders)
{
    failure_.clear();
    const std::uint64_t state = contentHash(bytes.parts());
    if (state == copiedState_)
        return;
    if (state == savedState_) {
        takeAway(copy_);
        copiedState_.reset();
        return;
    }
    if (!copy_ && !choosePlace(name, folders)) {
        failure_ = L"папка для копий недоступна";
        return;
    }
    if (const FileResult result = replaceFileWithParts(copy_->place(), bytes.parts()); result) {
        copiedState_ = state;
    } else {
        // The older copy, if there is one, is better than none; only a first one that failed goes elsewhere.
        failure_ = result.reason.empty() ? L"файл не пишется" : result.reason;
        if (!copiedState_) {
            takeAway(copy_);
            ++nextFolder_;
        }
    }
}

std::wstring RecoveryCopy::newFailure()
{
    if (isWriting_)
        return {};
    finishWriting();
    const bool wasTold = std::exchange(failureIsTold_, !failure_.empty());
    return wasTold ? std::wstring() : failure_;
}

void RecoveryCopy::giveSign()
{
    // A write that is under way is one.
    if (isWriting_)
        return;
    for (std::optional<ProjectLock>* copy : {&copy_, &adopted_})
        if (*copy)
            (*copy)->refresh();
}
