#include "app/shell_actions.h"

#include <QIcon>
#include <QPixmap>
#include <gtest/gtest.h>

TEST(Pictures, EveryActionHasItsOwnAlsoFromTheTheme)
{
    Q_INIT_RESOURCE(tellurix);
    const QStringList paths = QIcon::themeSearchPaths();
    const QString name = QIcon::themeName();
    QIcon::setThemeSearchPaths({QStringLiteral(":/icons")});
    QIcon::setThemeName(QStringLiteral("tellurix"));
    for (const ActionRow& row : actionRows()) {
        if (row.icon) {
            EXPECT_EQ(
                QPixmap(QStringLiteral(":/images/") + QString::fromLatin1(row.icon)).size(), QSize(48, 48))
                << row.icon;
        }
        if (row.theme) {
            EXPECT_EQ(QIcon::fromTheme(QString::fromLatin1(row.theme)).pixmap(24, 24).size(), QSize(24, 24))
                << row.theme;
        }
    }
    QIcon::setThemeSearchPaths(paths);
    QIcon::setThemeName(name);
}

TEST(Pictures, WindowIconAndSplashes)
{
    Q_INIT_RESOURCE(tellurix);
    EXPECT_TRUE(QIcon(QStringLiteral(":/images/tellurix.ico")).availableSizes().contains(QSize(32, 32)));
    EXPECT_EQ(QPixmap(QStringLiteral(":/images/logo.png")).size(), QSize(640, 400));
    EXPECT_EQ(QPixmap(QStringLiteral(":/images/static.png")).size(), QSize(680, 200));
}
