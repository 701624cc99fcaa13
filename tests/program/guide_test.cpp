#include "app/shell_actions.h"
#include "dictionaries/modes.h"
#include "platform/utf8.h"

#include <QDir>
#include <QFile>
#include <QRegularExpression>
#include <QUrl>
#include <gtest/gtest.h>

// The pages that F1 opens, as the build made them.

namespace
{

QDir guide()
{
    return QDir(QStringLiteral(TELLURIX_GUIDE));
}

QString contentOf(const QString& page)
{
    QFile file(guide().filePath(page));
    EXPECT_TRUE(file.open(QIODevice::ReadOnly)) << qPrintable(page);
    return QString::fromUtf8(file.readAll());
}

void expectTarget(const QString& page, const QString& link)
{
    const QString file = link.section(QLatin1Char('#'), 0, 0);
    const QString target = file.isEmpty() ? page : file;
    EXPECT_TRUE(guide().exists(target)) << qPrintable(page + QStringLiteral(": ") + link);
    const QString anchor = QUrl::fromPercentEncoding(link.section(QLatin1Char('#'), 1).toUtf8());
    if (!anchor.isEmpty()) {
        EXPECT_TRUE(contentOf(target).contains(QStringLiteral(" id=\"%1\"").arg(anchor)))
            << qPrintable(page + QStringLiteral(": ") + link);
    }
}

} // namespace

TEST(Guide, EveryLinkAndPictureIsThere)
{
    static const QRegularExpression reference(QStringLiteral("(?:href|src)=\"([^\"]*)\""));
    const QStringList pages = guide().entryList({QStringLiteral("*.html")});
    EXPECT_GE(pages.size(), 10);
    QStringList shown;
    for (const QString& page : pages)
        for (auto found = reference.globalMatch(contentOf(page)); found.hasNext();) {
            const QString link = found.next().captured(1);
            shown.append(link);
            if (!link.startsWith(QStringLiteral("https://")))
                expectTarget(page, link);
        }
    const QStringList pictures = QDir(guide().filePath(QStringLiteral("pictures"))).entryList(QDir::Files);
    for (const QString& picture : pictures)
        EXPECT_TRUE(shown.contains(QStringLiteral("pictures/") + picture))
            << qPrintable(picture) << " is shown nowhere";
}

TEST(Guide, TellsOfEveryActionAndScreen)
{
    const QString actions = contentOf(QStringLiteral("actions.html"));
    for (const ActionRow& row : actionRows()) {
        const QString text = QString::fromWCharArray(row.text).toHtmlEscaped();
        EXPECT_TRUE(actions.contains(QStringLiteral("<td>%1</td>").arg(text))
            || actions.contains(QStringLiteral("«%1»").arg(text)))
            << row.name;
    }
    const QString screens = contentOf(QStringLiteral("screens.html"));
    for (const ModeRow& mode : modeRows) {
        // The others have no screen of their own.
        if (mode.moduleFile.empty() || mode.name.empty())
            continue;
        const QString heading = QString::fromStdWString(std::wstring(mode.name)) + QStringLiteral("</h2>");
        EXPECT_TRUE(screens.contains(heading)) << toUtf8(mode.name);
    }
}
