#include "frame/startup.h"
#include "records/inventory.h"
#include "store/mainfile.h"

namespace vorel {

using namespace Qt::StringLiterals;
using basic::DateTime;

namespace {

using Inventory = test::MainFileTest;

}

TEST_F(Inventory, WarrantyExpiry)
{
    struct Case { const char16_t *bought, *months, *expires; };
    const Case cases[] = {{u"01/31/2005", u"1", u"2005-02-28"}, {u"01/31/2004", u"1", u"2004-02-29"},  {u"12/15/2005", u"24 months", u"2007-12-15"},
                          {u"01/31/2005", u"0", u""},           {u"01/31/2005", u"", u""},             {u"01/31/2005", u"-3", u""},
                          {u"soon", u"12", u""},                {u"", u"12", u""},                     {u"01/31/2005", u"2.5%", u""},
                          {u"01/31/2005", u"999999999999", u""}};
    for (const Case &c : cases) {
        const auto expiry = records::warrantyExpiry(QString::fromUtf16(c.bought), QString::fromUtf16(c.months));
        EXPECT_EQ(expiry ? expiry->toStored().left(10) : QString(), QString::fromUtf16(c.expires)) << QString::fromUtf16(c.months).toStdString();
    }
    setRegion(u"en_AU"_s);
    EXPECT_EQ(records::warrantyExpiry(u"01/02/2005"_s, u"1"_s), DateTime::fromParts(2005, 3, 1));
}

TEST_F(Inventory, WarrantyGoesToTheEventsOnce)
{
    const QString query = u"SELECT [DATE],[SUBJECT],[EVENT] FROM [EVENTS] ORDER BY [ID]"_s;
    const DateTime first = DateTime::fromParts(2027, 2, 28);
    EXPECT_TRUE(records::transferWarranty(first, u"Lamp Glow L1"_s));
    EXPECT_FALSE(records::transferWarranty(DateTime::fromParts(2028, 1, 1), u"LAMP glow l1"_s));     // whatever its date and case
    execute(u"UPDATE [EVENTS] SET [SUBJECT]='WARRANTY EXPIRED'"_s);
    EXPECT_FALSE(records::transferWarranty(first, u"Lamp Glow L1"_s));
    execute(u"UPDATE [EVENTS] SET [SUBJECT]='Note'"_s);
    EXPECT_TRUE(records::transferWarranty(first, u"Lamp Glow L1"_s));
    const QStringList stored{u"2027-02-28|Note|Lamp Glow L1"_s, u"2027-02-28|Warranty Expired|Lamp Glow L1"_s};
    EXPECT_EQ(rows(query), stored);
    EXPECT_EQ(test::errorOf([&] { records::transferWarranty(first, QString(251, u'x')); }), 3163);
    EXPECT_EQ(rows(query), stored);
    EXPECT_TRUE(records::transferWarranty(first, u"Ann's lamp"_s));
    EXPECT_FALSE(records::transferWarranty(first, u"Ann's lamp"_s));
}

TEST_F(Inventory, ShownDates)
{
    DetectDateOrder();
    EXPECT_EQ(records::shownDate(u"1/2/2005"_s), u"01/02/2005");
    EXPECT_EQ(records::shownDate(u"unknown"_s), u"unknown");
    EXPECT_EQ(records::shownDate({}), QString());
    EXPECT_EQ(records::shownDate(u"10:30"_s), u"10:30");
}

}
