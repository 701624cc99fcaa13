#include "settings/settings.h"

#include "modules/program.h"
#include "platform/safe_write.h"

#include <QCoreApplication>
#include <QFile>
#include <QSettings>
#include <QStyleFactory>

#include <algorithm>
#include <array>
#include <iterator>
#include <vector>

namespace
{

enum class ReadInto { own, nothing, rowAbove };

// A key of the file and the field behind it.
struct SettingRow {
    int saved; // position among the saved keys
    const char* group;
    const char* key;
    ReadInto into;
    QVariant (*value)(const Settings&);
    void (*take)(Settings&, const QVariant&);

    QString path() const
    {
        const QString name = QString::fromLatin1(key);
        return *group ? QString::fromLatin1(group) + QLatin1Char('/') + name : name;
    }
};

} // namespace

static QVariant toVariant(const std::wstring& value)
{
    return QString::fromStdWString(value);
}

template <class Value>
static QVariant toVariant(const Value& value)
{
    return QVariant::fromValue(value);
}

static void take(std::wstring& field, const QVariant& value)
{
    field = value.toString().toStdWString();
}

template <class Value>
static void take(Value& field, const QVariant& value)
{
    field = value.value<Value>();
}

template <std::size_t size>
static std::array<SettingRow, size> byPosition(std::array<SettingRow, size> rows)
{
    std::sort(rows.begin(), rows.end(), [](const auto& a, const auto& b) { return a.saved < b.saved; });
    return rows;
}

struct SettingRows {
#define SETTING_ROW(save, group, key, into)                                                                  \
    SettingRow{save,                                                                                         \
        group,                                                                                               \
        #key,                                                                                                \
        into,                                                                                                \
        [](const Settings& settings) { return toVariant(settings.key##_); },                                 \
        [](Settings& settings, const QVariant& value) { take(settings.key##_, value); }},
#define SETTING_PATH(save, group, key, Key) SETTING_ROW(save, group, key, ReadInto::own)
#define SETTING_STYLE(save, group, key, initial) SETTING_ROW(save, group, key, ReadInto::own)
#define SETTING_BOOL(save, group, key, Key, initial) SETTING_ROW(save, group, key, ReadInto::own)
#define SETTING_UNREAD_BOOL(save, group, key, Key, initial) SETTING_ROW(save, group, key, ReadInto::nothing)
#define SETTING_MISREAD_BOOL(save, group, key, Key, initial) SETTING_ROW(save, group, key, ReadInto::rowAbove)
#define SETTING_INT(save, group, key, Key, initial) SETTING_ROW(save, group, key, ReadInto::own)
#define SETTING_DOUBLE(save, group, key, Key, initial) SETTING_ROW(save, group, key, ReadInto::own)
#define SETTING_COLOR(save, group, key, Key, red, green, blue) SETTING_ROW(save, group, key, ReadInto::own)
#define SETTING_LAUNCH_FLAG(key)
#define SETTING_NEW_PROJECT_MODE(key, Key, initial)
    // In the order of saving.
    static const auto& sorted()
    {
        static const auto rows = byPosition(std::array{
#include "modules/setting_keys.def"
        });
        return rows;
    }
#undef SETTING_ROW

    static void load(Settings& settings)
    {
        const QString style = QString::fromStdWString(settings.visualStyleName_);
        const SettingRow* above = nullptr;
        for (const SettingRow& row : sorted()) {
            const SettingRow* target = row.into == ReadInto::rowAbove ? above : &row;
            if (row.into != ReadInto::nothing && settings.file_->contains(row.path()))
                target->take(settings, settings.file_->value(row.path()));
            above = &row;
        }
        if (!QStyleFactory::keys().contains(QString::fromStdWString(settings.visualStyleName_)))
            settings.visualStyleName_ = style.toStdWString();
        if (settings.projectPath_.empty())
            settings.projectPath_ = QCoreApplication::applicationDirPath().toStdWString();
        settings.setProjectPath(settings.projectPath_);
    }

    static void save(const Settings& settings)
    {
        for (const SettingRow& row : sorted())
            settings.file_->setValue(row.path(), row.value(settings));
        settings.file_->sync();
    }
};

// The toolkit takes a file that a full disk cut off for a whole one and puts it in the old one's place. So
// one as large is tried first.
static bool diskTakesSettings(const QString& file)
{
    constexpr std::size_t mayGrow = 16384;
    const QString trial = file + QStringLiteral(".new");
    const std::vector<std::uint8_t> bytes(static_cast<std::size_t>(QFile(file).size()) + mayGrow);
    const bool fits = bool(replaceFile(trial.toStdWString(), bytes));
    QFile::remove(trial);
    return fits;
}

Settings::Settings() = default;

Settings::~Settings() = default;

void Settings::initialise()
{
    file_ = std::make_unique<QSettings>(
        QCoreApplication::applicationDirPath() + QLatin1Char('/') + settingsFileName, QSettings::IniFormat);
    SettingRows::load(*this);
}

void Settings::save()
{
    if (file_ && diskTakesSettings(file_->fileName()))
        SettingRows::save(*this);
}

void Settings::saveVisualStyle(const QString& name)
{
    visualStyleName_ = name.toStdWString();
    if (!file_ || !diskTakesSettings(file_->fileName()))
        return;
    file_->setValue(QStringLiteral("visualStyleName"), name);
    file_->sync();
}

void Settings::setProjectPath(const std::wstring& value)
{
    std::wstring path = value;
    std::replace(path.begin(), path.end(), L'/', L'\\');
    projectPath_ = std::move(path);
}
