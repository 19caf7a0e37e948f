#include "core/screens/help.h"

#include <QDir>
#include <QFile>
#include <QRegularExpression>
#include <QSet>
#include <QStringList>
#include <QUrl>
#include <gtest/gtest.h>

// The user guide as compiled into the program: every page reachable from the index, every link
// and picture pointing at something that is there.

namespace guide_test {

QStringList guidePages() {
    return QDir(QStringLiteral(":/guide")).entryList({QStringLiteral("*.html")}, QDir::Files, QDir::Name);
}

QString pageText(const QString& page) {
    QFile file(QStringLiteral(":/guide/") + page);
    if (!file.open(QIODevice::ReadOnly))
        return QString();
    return QString::fromUtf8(file.readAll());
}

// The targets of a page's attribute (href or src) that point inside the guide.
QStringList localTargets(const QString& text, const QString& attribute) {
    QStringList out;
    const QRegularExpression re(attribute + QStringLiteral(R"re(\s*=\s*"([^"]*)")re"),
                                QRegularExpression::CaseInsensitiveOption);
    for (auto it = re.globalMatch(text); it.hasNext();) {
        const QString target = it.next().captured(1);
        const QUrl url(target);
        if (!url.scheme().isEmpty() || target.startsWith(QLatin1Char('#')))
            continue;
        out << url.path();
    }
    return out;
}

TEST(Guide, EveryPageIsReachableFromTheIndex) {
    const QStringList pages = guidePages();
    ASSERT_TRUE(pages.contains(QStringLiteral("index.html")));
    QSet<QString> reached{QStringLiteral("index.html")};
    QStringList queue{QStringLiteral("index.html")};
    while (!queue.isEmpty()) {
        const QString page = queue.takeFirst();
        for (const QString& target : localTargets(pageText(page), QStringLiteral("href"))) {
            if (target.endsWith(QStringLiteral(".html")) && !reached.contains(target)) {
                reached.insert(target);
                queue << target;
            }
        }
    }
    for (const QString& page : pages)
        EXPECT_TRUE(reached.contains(page)) << page.toStdString() << " cannot be reached from the index";
}

TEST(Guide, TheIndexLinksFirstToYourFirstBotMatch) {
    const QStringList targets = localTargets(pageText(QStringLiteral("index.html")), QStringLiteral("href"));
    ASSERT_FALSE(targets.isEmpty());
    EXPECT_EQ(targets.first(), QStringLiteral("first-match.html"));
    EXPECT_TRUE(pageText(QStringLiteral("first-match.html"))
                    .contains(QStringLiteral("<title>Your first bot match</title>")));
}

TEST(Guide, EveryLinkResolves) {
    for (const QString& page : guidePages()) {
        for (const QString& target : localTargets(pageText(page), QStringLiteral("href")))
            EXPECT_TRUE(QFile::exists(QStringLiteral(":/guide/") + target))
                << page.toStdString() << " links to the missing " << target.toStdString();
    }
}

TEST(Guide, EveryPictureAPageNamesExists) {
    for (const QString& page : guidePages()) {
        for (const QString& target : localTargets(pageText(page), QStringLiteral("src")))
            EXPECT_TRUE(QFile::exists(QStringLiteral(":/guide/") + target))
                << page.toStdString() << " shows the missing picture " << target.toStdString();
    }
}

TEST(Guide, EveryPageHasATitleAndALinkBackToTheContents) {
    for (const QString& page : guidePages()) {
        const QString text = pageText(page);
        EXPECT_TRUE(text.contains(QRegularExpression(QStringLiteral("<title>[^<]+</title>"))))
            << page.toStdString() << " has no title";
        if (page != QStringLiteral("index.html")) {
            EXPECT_TRUE(localTargets(text, QStringLiteral("href")).contains(QStringLiteral("index.html")))
                << page.toStdString() << " has no link back to the contents";
        }
    }
}

} // namespace guide_test
