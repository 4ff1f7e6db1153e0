#include "platform/desktop/desktop.h"
#include "support/testfolder.h"

#include <QImage>

using namespace Qt::StringLiterals;
using namespace vorel;

TEST(Contents, TheProgramCarriesItsPagesHintsAndPictures)
{
    const test::TestFolder folder;
    for (const char *page : {"APPOINTS", "BILLS", "EVENTS", "BILLENTER", "BILLPAY", "INCOME", "BACKUP", "ASSET", "JOURNAL",
                             "BOOKS", "PROFILE", "MESSAGES", "NOTES", "HEALTH", "CONTACTS", "SPORT", "RECIPE", "MUSIC",
                             "MOVIES", "PASSWORDS", "HOWTO", "GARDEN", "VEHICLE", "ACCOUNTSSETUP", "INVOICE", "FILEPATH",
                             "ALL", "TODO", "SHOPPING", "CALCULATOR"}) {
        QFile file(desktop::findResource(u"\\INFO"_s + QString::fromLatin1(page) + u".RTF"_s));
        ASSERT_TRUE(file.open(QIODevice::ReadOnly)) << page;
        EXPECT_TRUE(file.readAll().startsWith("{\\rtf1")) << page;
        EXPECT_GT(file.size(), 1000) << page;
    }
    QFile hints(desktop::findResource(u"\\hints.txt"_s));
    ASSERT_TRUE(hints.open(QIODevice::ReadOnly));
    const QByteArrayList lines = hints.readAll().trimmed().split('\n');
    EXPECT_GE(lines.size(), 60);
    for (const QByteArray &line : lines)
        EXPECT_FALSE(line.trimmed().isEmpty());
    EXPECT_EQ(QImage(desktop::findResource(u"Sample-Movie.jpg"_s)).size(), QSize(640, 480));
}
