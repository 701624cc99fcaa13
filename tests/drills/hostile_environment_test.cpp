// The whole program, with somebody working in it, where paths, rights, settings and surroundings are bad.

#include "drills/hindrances.h"
#include "program/program_test.h"
#include "support/project_bytes.h"

#include <QProcess>
#include <QSettings>

#include <fstream>
#include <map>
#include <random>
#include <unistd.h>

namespace
{

namespace fs = std::filesystem;

// What the user sees of an undisturbed day.
const std::string usualCourse = "dialog: Настройка программы\n"
                                "close: 1\n"
                                "box: Сохранить текущий проект?\n";
// Where nothing can be saved: told so twice, the window stays open until the user gives it up.
const std::string courseWithoutSaving = "dialog: Настройка программы\n"
                                        "box: Ошибка при сохранения проекта!\n"
                                        "close: 1\n"
                                        "box: Сохранить текущий проект?\n"
                                        "box: Ошибка при сохранения проекта!\n"
                                        "close: 2\n"
                                        "box: Сохранить текущий проект?\n";

fs::path pathOf(const QString& text)
{
    return text.toStdU16String();
}

QString textOf(const fs::path& path)
{
    return QString::fromStdU16String(path.u16string());
}

// A program folder of its own, with a work folder and a project to open, and one run of the program there.
struct Day {
    fs::path program;
    fs::path work = program;
    fs::path project = place();
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    QString prefix; // before the program in the shell's command, or between shell commands
    bool isBound = false; // permissions bind, also for the administrator

    // What the user saw, and how the program ended.
    std::string seen;
    int exitCode = -1;
    QString errors;

    explicit Day(const fs::path& folder)
        : program(folder)
    {
        // Looking for leaks takes longer than the day itself; other tests of the program do it.
        environment.insert(QStringLiteral("ASAN_OPTIONS"), QStringLiteral("detect_leaks=0"));
        const fs::path own = pathOf(QCoreApplication::applicationDirPath());
        fs::create_directories(program);
        link(TELLURIX_ROBOT, program / "tellurix");
        for (const auto& entry : fs::directory_iterator(own))
            if (entry.path().extension() == ".dll")
                link(entry.path(), program / entry.path().filename());
        for (const char* data : {"fonts", "hatch", "igkPreset"})
            fs::copy(own / data, program / data, fs::copy_options::recursive);
    }
    // Where the sample is saved.
    fs::path place() const { return work / u8"Проекты" / "LURGAN" / "LURGAN.TLX"; }
    // Puts the sample to where the project is to be opened.
    void putProject() const
    {
        fs::create_directories(work / u8"Проекты");
        fs::create_directories(project.parent_path());
        fs::copy_file(TELLURIX_SAMPLES "/LURGAN.TLX", project);
    }
    void writeSettings(const QByteArray& content) const
    {
        std::ofstream(program / settingsFileName.toStdString(), std::ios::binary)
            .write(content.constData(), content.size());
    }
    QByteArray settings() const { return contentOf(program / settingsFileName.toStdString()); }
    static QByteArray contentOf(const fs::path& path)
    {
        QFile file(textOf(path));
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("missing");
    }
    std::wstring savedCode() const
    {
        const QByteArray content = contentOf(place());
        const auto saved = openBytes(Bytes(content.begin(), content.end()));
        return saved->getProjectCode();
    }
    void run()
    {
        QProcess process;
        process.setProcessEnvironment(environment);
        process.setWorkingDirectory(textOf(program.parent_path()));
        QString command = QStringLiteral("%1 exec %2 \"$0\" \"$@\"");
        const bool bindsRoot = isBound && ::geteuid() == 0;
        command = command.arg(prefix, bindsRoot ? QStringLiteral("setpriv --bounding-set=-all") : QString());
        process.start(QStringLiteral("/bin/sh"),
            {QStringLiteral("-c"), command, textOf(program / "tellurix"), textOf(project)});
        const bool ended = process.waitForFinished(240'000);
        seen = process.readAllStandardOutput().toStdString();
        errors = QString::fromUtf8(process.readAllStandardError());
        exitCode = ended && process.exitStatus() == QProcess::NormalExit ? process.exitCode() : -1;
        process.kill();
        process.waitForFinished();
    }

private:
    static void link(const fs::path& from, const fs::path& to)
    {
        std::error_code failed;
        fs::create_hard_link(from, to, failed);
        if (failed)
            fs::copy_file(from, to);
    }
};

class HostileEnvironment : public testing::Test
{
protected:
    void SetUp() override
    {
        fs::remove_all(root);
        fs::create_directories(root);
    }
    void TearDown() override { fs::remove_all(root); }

    // The program came up, let the user work, and the work is on the disk.
    static void expectUsualDay(Day& run)
    {
        run.run();
        EXPECT_EQ(run.exitCode, 0) << qPrintable(run.errors);
        EXPECT_EQ(run.seen, usualCourse) << qPrintable(run.errors);
        EXPECT_EQ(run.savedCode(), L"Ж-17");
    }

    const fs::path root = pathOf(QCoreApplication::applicationDirPath()) / "hostile";
};

} // namespace

TEST_F(HostileEnvironment, FoldersOfAnyName)
{
    const std::string part(49, 'd');
    const struct {
        const char* name;
        fs::path folder;
    } rows[] = {
        {"Cyrillic and blanks", fs::path(u8" Моя программа ") / u8"Участок № 5, «Їжак»"},
#ifndef TELLURIX_SANITIZED
        // The checker's own helper takes a quote in the program's path for the path's end, and waits for
        // ever.
        {"percent signs and quotes", "100% %20 %1 %s 'a' \"b\" $HOME `c`"},
#endif
        {"250 characters", fs::path(part + '1') / (part + '2') / (part + '3') / (part + '4') / (part + '5')},
        {"255 bytes in one name", std::string(255, 'n')},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.name);
        Day beside(root / "p" / row.folder);
        beside.putProject();
        expectUsualDay(beside);

        SCOPED_TRACE("opened from elsewhere");
        Day elsewhere(root / "q");
        elsewhere.work = root / "w" / row.folder;
        elsewhere.project = root / "o" / row.folder / u8"мой 100% \"проект\".tlx";
        elsewhere.putProject();
        elsewhere.writeSettings({});
        QSettings(textOf(elsewhere.program) + QLatin1Char('/') + settingsFileName, QSettings::IniFormat)
            .setValue(QStringLiteral("projectPath"), textOf(elsewhere.work));
        expectUsualDay(elsewhere);
        fs::remove_all(root / "q");
    }
}

TEST_F(HostileEnvironment, FoldersWithoutRights)
{
    constexpr auto readOnly = fs::perms::owner_read | fs::perms::owner_exec;
    const struct {
        const char* name;
        fs::path (*what)(const Day& day);
        fs::perms left;
        bool saves;
    } rows[] = {
        {"the program's folder takes no files", [](const Day& day) { return day.program; }, readOnly, true},
        {"the settings may not be read",
            [](const Day& day) { return day.program / settingsFileName.toStdString(); },
            fs::perms::none,
            true},
        {"the settings may not be written",
            [](const Day& day) { return day.program / settingsFileName.toStdString(); },
            fs::perms::owner_read,
            true},
        {"the work folder lets nobody in", [](const Day& day) { return day.work; }, fs::perms::none, false},
        {"the folder of the projects takes no folders",
            [](const Day& day) { return day.work / u8"Проекты"; },
            readOnly,
            false},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.name);
        Day day(root / row.name / "program");
        const QByteArray settings =
            "[General]\nprojectPath=" + textOf(root / row.name / "work").toUtf8() + '\n';
        day.writeSettings(settings);
        const bool settingsAreRead = row.left != fs::perms::none || !row.saves;
        if (settingsAreRead)
            day.work = root / row.name / "work";
        day.project = root / row.name / "LURGAN.TLX";
        day.putProject();
        day.isBound = true;
        const QByteArray before = Day::contentOf(day.project);
        {
            const Forbidden forbidden(row.what(day), row.left);
            day.run();
        }
        EXPECT_EQ(day.exitCode, 0) << qPrintable(day.errors);
        EXPECT_EQ(day.seen, row.saves ? usualCourse : courseWithoutSaving) << qPrintable(day.errors);
        if (row.saves) {
            EXPECT_EQ(day.savedCode(), L"Ж-17");
        }
        EXPECT_EQ(Day::contentOf(day.project), before) << "what was opened elsewhere stays as it was";
        EXPECT_EQ(day.settings(), settings);
    }
}

TEST_F(HostileEnvironment, SurroundingsThatAreOdd)
{
    const struct {
        const char* name;
        std::vector<std::pair<const char*, const char*>> variables; // null: not there
        const char* prefix;
    } rows[] = {
        {"no home and no folder for temporary files",
            {{"HOME", nullptr}, {"TMPDIR", nullptr}, {"XDG_RUNTIME_DIR", nullptr}, {"USER", nullptr}},
            ""},
        {"folders that are not there",
            {{"HOME", "/no/such"}, {"TMPDIR", "/no/such"}, {"XDG_RUNTIME_DIR", "/no/such"}},
            ""},
        {"the plain locale", {{"LC_ALL", "C"}}, ""},
        {"a locale that nobody knows", {{"LC_ALL", "xx_YY.KOI-7"}, {"LANG", "?"}}, ""},
        {"no time zone of this world", {{"TZ", ":/no/such Ж"}}, ""},
        {"no input", {}, "exec <&-;"},
        {"nobody hears the errors", {}, "exec 2>&-;"},
        {"few files at a time", {}, "ulimit -n 40;"},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.name);
        Day day(root / fs::path(u8"Программа") / row.name);
        for (const auto& [variable, value] : row.variables)
            value ? day.environment.insert(QLatin1String(variable), QString::fromUtf8(value))
                  : day.environment.remove(QLatin1String(variable));
        day.prefix = QLatin1String(row.prefix);
        day.putProject();
        expectUsualDay(day);
    }
}

namespace
{

// A settings file with the same nonsense behind every key but the work folder's.
QByteArray settingsOf(const QByteArray& value)
{
    std::map<std::string, QByteArray> groups;
#define SETTING_ANY(group, key) groups[group] += #key "=" + value + "\r\n";
#define SETTING_PATH(save, group, key, Key)
#define SETTING_STYLE(save, group, key, initial) SETTING_ANY(group, key)
#define SETTING_BOOL(save, group, key, Key, initial) SETTING_ANY(group, key)
#define SETTING_INT(save, group, key, Key, initial) SETTING_ANY(group, key)
#define SETTING_DOUBLE(save, group, key, Key, initial) SETTING_ANY(group, key)
#define SETTING_COLOR(save, group, key, Key, red, green, blue) SETTING_ANY(group, key)
#define SETTING_LAUNCH_FLAG(key)
#define SETTING_NEW_PROJECT_MODE(key, Key, initial) SETTING_ANY("", key)
#include "modules/setting_keys.def"
#undef SETTING_ANY
    QByteArray content;
    for (const auto& [group, lines] : groups)
        content += '[' + QByteArray(group.empty() ? "General" : group.c_str()) + "]\r\n" + lines;
    return content;
}

QByteArray largeSettings()
{
    QByteArray content("[General]\n");
    for (int i = 0; content.size() < 5'000'000; ++i)
        content += "key" + QByteArray::number(i) + "=" + QByteArray(40, 'x') + '\n';
    return content;
}

QByteArray noise(int size)
{
    std::mt19937 random(7);
    QByteArray content(size, '\0');
    for (char& each : content)
        each = static_cast<char>(random());
    return content;
}

} // namespace

TEST_F(HostileEnvironment, SettingsThatMakeNoSense)
{
    const struct {
        const char* name;
        QByteArray content;
    } rows[] = {
        {"nothing behind the keys", settingsOf("")},
        {"letters", settingsOf("abc")},
        {"a number that is too large", settingsOf("99999999999999999999")},
        {"the largest number", settingsOf("2147483647")},
        {"the smallest number", settingsOf("-2147483648")},
        {"zero", settingsOf("0")},
        {"no number", settingsOf("nan")},
        {"a list", settingsOf("1, 2, abc")},
        {"bytes", settingsOf("@ByteArray(\\0\\x1\\xff)")},
        {"half a value", settingsOf("@Variant(\\0\\0\\0\\x43\\x1\\xff")},
        {"a value of an unknown kind", settingsOf("@Variant(\\x7f\\xff\\xff\\xff\\0)")},
        {"a rectangle", settingsOf("@Rect(1 2 3")},
        {"broken UTF-8", settingsOf("\xff\xfe\xd0\x80")},
        {"5 MB of other keys", largeSettings()},
        {"5 MB of noise", noise(5'000'000)},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.name);
        Day day(root / "program");
        day.putProject();
        day.writeSettings(row.content);
        expectUsualDay(day);
        EXPECT_EQ(day.settings(), row.content) << "nothing was set";
        fs::remove_all(root / "program");
    }
}

TEST_F(HostileEnvironment, SettingsThatAreAFolder)
{
    Day day(root / "program");
    day.putProject();
    fs::create_directory(day.program / settingsFileName.toStdString());
    fs::create_directory(day.program / "tellurix19_view.ini");
    expectUsualDay(day);
}

TEST_F(HostileEnvironment, FoldersThatAreNoWorkFolder)
{
    for (const QByteArray value : {"abc", "-1", "@ByteArray(\\x1\\xff)", "\xff\xfe", "/dev/null", "/proc"}) {
        SCOPED_TRACE(value.constData());
        Day day(root / "program");
        day.project = root / "LURGAN.TLX";
        day.putProject();
        day.writeSettings("[General]\nprojectPath=" + value + '\n');
        day.run();
        EXPECT_EQ(day.exitCode, 0) << qPrintable(day.errors);
        EXPECT_EQ(day.seen, courseWithoutSaving) << qPrintable(day.errors);
        fs::remove_all(root / "program");
        fs::remove(day.project);
    }
}

TEST_F(HostileEnvironment, ScreensWhoseLooksMakeNoSense)
{
    Day day(root / "program");
    day.putProject();
    expectUsualDay(day);
    const QString looks = textOf(day.program / "tellurix19_view.ini");
    // What a day without the mouse leaves there, and what is there when columns and splitters have been
    // dragged.
    QStringList keys = QSettings(looks, QSettings::IniFormat).allKeys();
    for (const char* table : {"projects/register",
             "listCoords/points",
             "litology/layers",
             "tests/samples",
             "waters/levels",
             "consistents/intervals",
             "laboratory/register",
             "ige/summary",
             "static/journal"})
        keys.append(QStringLiteral("widths/") + QLatin1String(table));
    for (const char* splitter : {"listCoords", "litology/layers/points", "static/readings", "ige/statistics"})
        keys.append(QStringLiteral("splitters/") + QLatin1String(splitter));
    for (const QVariant& value : {QVariant(),
             QVariant(QStringLiteral("abc")),
             QVariant(-5),
             QVariant(2147483647),
             QVariant(QByteArray(2000, '\xff')),
             QVariant(QStringLiteral("99999999 ").repeated(50).split(QLatin1Char(' ')))}) {
        SCOPED_TRACE(value.typeName() ? value.typeName() : "nothing");
        for (const QString& key : keys)
            QSettings(looks, QSettings::IniFormat).setValue(key, value);
        expectUsualDay(day);
    }
}
