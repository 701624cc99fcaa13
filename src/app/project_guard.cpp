#include "app/project_guard.h"

#include "core/base/content_hash.h"
#include "platform/files.h"

#include <QDateTime>
#include <QMessageBox>
#include <QPushButton>

#include <vector>

static QString timeText(std::int64_t seconds)
{
    return QDateTime::fromSecsSinceEpoch(seconds).toString(QStringLiteral("dd.MM.yyyy hh:mm"));
}

static QString pathText(const std::wstring& path)
{
    return QString::fromStdWString(systemPath(path));
}

// In one line.
static QString nameOf(const LockOwner& owner)
{
    if (owner.user.empty())
        return QStringLiteral("кто именно, прочитать не удалось");
    return QStringLiteral("%1, компьютер %2, с %3")
        .arg(QString::fromStdWString(owner.user),
            QString::fromStdWString(owner.computer),
            timeText(owner.openedAt));
}

// The index of the button that was pressed, -1 for "cancel", which is the default and what Escape means.
static int ask(QWidget* parent, const QString& title, const QString& text, const QStringList& buttons)
{
    QMessageBox box(QMessageBox::Warning, title, text, QMessageBox::NoButton, parent);
    box.setTextFormat(Qt::PlainText); // there are other people's words in it
    std::vector<QAbstractButton*> made;
    for (const QString& button : buttons)
        made.push_back(box.addButton(button, QMessageBox::AcceptRole));
    QPushButton* cancel = box.addButton(QMessageBox::Cancel);
    cancel->setText(QStringLiteral("Отмена"));
    box.setDefaultButton(cancel);
    box.setEscapeButton(cancel);
    box.exec();
    for (std::size_t i = 0; i < made.size(); ++i)
        if (box.clickedButton() == made[i])
            return static_cast<int>(i);
    return -1;
}

std::optional<LockOwner> ProjectGuard::takeLock(const std::wstring& place)
{
    if (lock_ && lock_->place() == place && lock_->isStillOurs())
        return {};
    ProjectLock::Attempt attempt = ProjectLock::tryTake(place);
    if (attempt.state == ProjectLock::State::HeldByOther) {
        if (!isThisProgram(attempt.owner))
            return attempt.owner;
        // One of ours that could not be taken away: its folder was out of reach for a while.
        attempt = ProjectLock::takeOver(place);
    }
    // Where no lock can be made the program works without one: what is wrong there the save will say.
    if (attempt.lock || (lock_ && lock_->place() != place))
        lock_ = std::move(attempt.lock);
    return {};
}

bool ProjectGuard::mayOpen(const std::wstring& place, QWidget* parent)
{
    const auto owner = takeLock(place);
    if (!owner)
        return true;
    const QString text = QStringLiteral(
        "Этот проект уже открыт:\n%1.\n\n%2\n\nЕсли проект сохранят оба, останется то, что записано "
        "последним.\n\n«Открыть для просмотра» — проект откроется, а перед сохранением программа спросит "
        "ещё раз.\n«Открыть и занять» — проект перейдёт к вам; у того, кто его открыл, программа спросит "
        "перед сохранением.")
                             .arg(nameOf(*owner), pathText(place));
    switch (ask(parent,
        QStringLiteral("Проект открыт в другом месте"),
        text,
        {QStringLiteral("Открыть для просмотра"), QStringLiteral("Открыть и занять")})) {
    case 0:
        lock_.reset();
        return true;
    case 1:
        lock_ = std::move(ProjectLock::takeOver(place).lock);
        return true;
    default:
        return false;
    }
}

bool ProjectGuard::maySave(const std::wstring& place, SaveWay way, QWidget* parent)
{
    const auto owner = takeLock(place);
    const bool isChanged = changedByOthers(place);
    if (!owner && !isChanged)
        return true;
    QString what;
    if (owner)
        what = QStringLiteral("проект открыт в другом месте (%1)").arg(nameOf(*owner));
    if (isChanged)
        what += (what.isEmpty() ? QString() : QStringLiteral(", и "))
            + QStringLiteral("файл проекта изменила другая программа (%1)")
                  .arg(timeText(fileInfo(place).modified));
    if (way == SaveWay::ByTimer) {
        reason_ = QStringLiteral("Автосохранение ждёт: %1. Сохраните проект сами.").arg(what);
        return false;
    }
    const QString text = QStringLiteral("Проект ещё не сохранён: %1.\n\n%2\n\nЕсли сохранить сейчас, в файле "
                                        "будет то, что у вас; прежний файл останется "
                                        "рядом с расширением .bak.")
                             .arg(what, pathText(place));
    if (ask(parent, QStringLiteral("Сохранение проекта"), text, {QStringLiteral("Сохранить всё равно")})
        != 0) {
        reason_ = QStringLiteral("Проект не сохранён: %1.").arg(what);
        return false;
    }
    if (owner)
        lock_ = std::move(ProjectLock::takeOver(place).lock);
    return true;
}

// A file that is gone is nobody's work: the save brings it back.
bool ProjectGuard::changedByOthers(const std::wstring& place)
{
    const FileInfo now = fileInfo(place);
    if (known_.place != place || now.kind != FileKind::Regular)
        return false;
    if (known_.exists && now.size == known_.size && now.modified == known_.modified)
        return false;
    const KnownFile before = known_;
    remember(place);
    if (before.exists && known_.hash == before.hash)
        return false;
    known_ = before;
    return true;
}

void ProjectGuard::remember(const std::wstring& place)
{
    const FileInfo info = fileInfo(place);
    const bool isThere = info.kind == FileKind::Regular;
    // A share that is away for a while, or something in the file's way: it is as it was when it comes back.
    if (!isThere && known_.place == place)
        return;
    known_ = {place, isThere, info.size, info.modified};
    std::vector<std::uint8_t> bytes;
    if (known_.exists && readFile(place, bytes))
        known_.hash = contentHash(bytes);
}

void ProjectGuard::wrote(const std::wstring& place, std::uint64_t size, std::uint64_t hash)
{
    // The size is ours, not the file's: whoever else has written there since is found by it.
    known_ = {place, true, size, fileInfo(place).modified, hash};
}

void ProjectGuard::release()
{
    lock_.reset();
    known_ = {};
}

QString ProjectGuard::giveSign()
{
    if (!lock_ || lock_->refresh())
        return {};
    const auto owner = takeLock(std::wstring(lock_->place()));
    if (!owner)
        return {};
    lock_.reset();
    return QStringLiteral("Проект занял другой пользователь (%1). Перед сохранением программа спросит.")
        .arg(nameOf(*owner));
}
