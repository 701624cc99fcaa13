#include "core/base/reference.h"
#include "modules/program.h"
#include "settings/settings.h"

#include <QCoreApplication>
#include <QFile>
#include <QSettings>
#include <QStyleFactory>
#include <gtest/gtest.h>

namespace
{

class SettingsFile : public testing::Test
{
protected:
    void SetUp() override { QFile::remove(path()); }
    void TearDown() override { QFile::remove(path()); }

    static QString path()
    {
        return QCoreApplication::applicationDirPath() + QLatin1Char('/') + settingsFileName;
    }
    static void write(const char* key, const QVariant& value)
    {
        QSettings(path(), QSettings::IniFormat).setValue(QString::fromLatin1(key), value);
    }
    static Reference<Settings> loaded()
    {
        auto settings = makeReference<Settings>();
        settings->initialise();
        return settings;
    }
};

} // namespace

TEST_F(SettingsFile, AbsentLeavesTheInitialValues)
{
    const auto fresh = makeReference<Settings>();
    EXPECT_EQ(fresh->projectPath(), L"");
    const auto settings = loaded();
    EXPECT_EQ(settings->reportLanguage(), 0);
    EXPECT_EQ(settings->visualStyleName(), L"Fusion");
    EXPECT_EQ(settings->timer(), 10);
    EXPECT_EQ(settings->typeObject(), 1);
    EXPECT_EQ(QString::fromStdWString(settings->projectPath()),
        QCoreApplication::applicationDirPath().replace(QLatin1Char('/'), QLatin1Char('\\')));
    EXPECT_FALSE(QFile::exists(path())) << "loading writes nothing";
}

TEST_F(SettingsFile, GivesBackEveryKindThatWasSaved)
{
    {
        const auto settings = loaded();
        settings->setProjectPath(L"D:/Работа/2026");
        settings->setReportLanguage(1);
        settings->setIsSetTimer(true);
        settings->setPowerSectionEditor(0.25);
        settings->setPatternIgkColorClay(1, 2, 3);
        settings->setIsSmoothingGraphSubsidence(false);
        settings->setNewProjectMode(7);
        settings->save();
    }
    const auto settings = loaded();
    EXPECT_EQ(settings->projectPath(), L"D:\\Работа\\2026");
    EXPECT_EQ(settings->reportLanguage(), 1);
    EXPECT_TRUE(settings->isSetTimer());
    EXPECT_DOUBLE_EQ(settings->powerSectionEditor(), 0.25);
    EXPECT_EQ(settings->patternIgkColorClayRed(), 1);
    EXPECT_EQ(settings->patternIgkColorClayGreen(), 2);
    EXPECT_EQ(settings->patternIgkColorClayBlue(), 3);
    EXPECT_FALSE(settings->isSmoothingGraphSubsidence());
    EXPECT_EQ(settings->newProjectMode(), 1) << "has no key";
    QSettings file(path(), QSettings::IniFormat);
    EXPECT_EQ(file.allKeys().size(), 93);
}

TEST_F(SettingsFile, IsReadAndSavedUnevenlyInTwoPlaces)
{
    {
        const auto settings = loaded();
        settings->setIsShowTypeObject(false);
        settings->setIsGranCurveSplainIge(true);
        settings->setIsGenManualValuesCheckIge(false);
        settings->save();
    }
    QSettings file(path(), QSettings::IniFormat);
    EXPECT_FALSE(file.value(QStringLiteral("isShowTypeObject")).toBool());
    EXPECT_TRUE(file.value(QStringLiteral("Ige/isGranCurveSplainIge")).toBool());
    EXPECT_FALSE(file.value(QStringLiteral("Ige/isGenManualValuesCheckIge")).toBool());
    const auto settings = loaded();
    EXPECT_TRUE(settings->isShowTypeObject());
    EXPECT_FALSE(settings->isGranCurveSplainIge());
    EXPECT_TRUE(settings->isGenManualValuesCheckIge());
}

TEST_F(SettingsFile, TakesOnlyAStyleThatThisSystemHas)
{
    write("visualStyleName", QStringLiteral("windowsvista of old"));
    EXPECT_EQ(loaded()->visualStyleName(), L"Fusion");
    for (const QString& style : QStyleFactory::keys()) {
        write("visualStyleName", style);
        EXPECT_EQ(loaded()->visualStyleName(), style.toStdWString());
        write("visualStyleName", style.toUpper() + QLatin1Char('x'));
        EXPECT_EQ(loaded()->visualStyleName(), L"Fusion");
    }
}

TEST_F(SettingsFile, ChosenStyleIsWrittenAtOnceAndAlone)
{
    const auto settings = loaded();
    settings->setTimer(99);
    settings->saveVisualStyle(QStringLiteral("Windows"));
    QSettings file(path(), QSettings::IniFormat);
    EXPECT_EQ(file.allKeys(), QStringList{QStringLiteral("visualStyleName")});
}

TEST_F(SettingsFile, ValuesOfAnotherKindAreConverted)
{
    write("timer", QStringLiteral("many"));
    write("isLog", QStringLiteral("true"));
    write("Section/staticGraphColorSideColor", QStringLiteral("#010203"));
    write("Section/distanceSectionEditor", QStringLiteral("2.5"));
    const auto settings = loaded();
    EXPECT_EQ(settings->timer(), 0);
    EXPECT_TRUE(settings->isLog());
    EXPECT_EQ(settings->staticGraphColorSideColorBlue(), 3);
    EXPECT_DOUBLE_EQ(settings->distanceSectionEditor(), 2.5);
}

TEST_F(SettingsFile, BackgroundOfZeroBlackensItsColour)
{
    const auto settings = loaded();
    settings->setBackgroundSection(1);
    EXPECT_EQ(settings->chooseBackgroundSectionColorRed(), 255);
    settings->setBackgroundSection(0);
    EXPECT_EQ(settings->chooseBackgroundSectionColorRed(), 0);
    settings->setBackgroundSectionEditor(0);
    EXPECT_EQ(settings->chooseBackgroundSectionEditorColorGreen(), 0);
    settings->setBackgroundIgk(0);
    EXPECT_EQ(settings->chooseBackgroundIgkColorBlue(), 0);
}
