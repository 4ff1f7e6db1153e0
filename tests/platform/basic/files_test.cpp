#include "platform/basic/files.h"
#include "support.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

using namespace vorel::basic;
using namespace Qt::StringLiterals;

namespace {

class Files : public ::testing::Test {
protected:
    void SetUp() override
    {
        ASSERT_TRUE(m_folder.isValid());
        root = m_folder.path();
        ASSERT_TRUE(QDir(root).mkpath(u"Pictures/Cal Pic"_s));
        for (const char16_t *name : {u"VOREL.mdb", u"Pictures/Dog.JPG", u"Pictures/Cal Pic/may.svg", u"both.txt",
                                     u"BOTH.TXT", u".hidden"}) {
            QFile file(root + u'/' + QStringView(name).toString());
            ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        }
    }
    QString root;

private:
    QTemporaryDir m_folder;
};

TEST_F(Files, AreFoundWhateverTheirCase)
{
    const struct { QStringView asked; QStringView real; QStringView name; } cases[] = {
        {u"/VOREL.mdb", u"/VOREL.mdb", u"VOREL.mdb"},
        {u"/vorel.MDB", u"/VOREL.mdb", u"VOREL.mdb"},
        {u"\\vorel.mdb", u"/VOREL.mdb", u"VOREL.mdb"},
        {u"\\pictures\\cal pic\\MAY.SVG", u"/Pictures/Cal Pic/may.svg", u"may.svg"},
        {u"/PICTURES\\dog.jpg", u"/Pictures/Dog.JPG", u"Dog.JPG"},
        {u"/BOTH.TXT", u"/BOTH.TXT", u"BOTH.TXT"},
        {u"/both.txt", u"/both.txt", u"both.txt"},
        {u"/.HIDDEN", u"/.hidden", u".hidden"},
    };
    for (const auto &c : cases) {
        const QString asked = root + c.asked.toString();
        EXPECT_EQ(realPath(asked), root + c.real.toString()) << asked.toStdString();
        EXPECT_EQ(Dir(asked), c.name) << asked.toStdString();
    }
}

TEST_F(Files, WhatIsNotThereHasNoName)
{
    for (const QStringView asked : {u"/none.txt", u"\\pictures\\none.txt", u"/Pictures", u"\\pictures\\", u"/nothing/at/all"})
        EXPECT_EQ(Dir(root + asked.toString()), QString()) << asked.toString().toStdString();
    EXPECT_EQ(Dir(QString()), QString());
    EXPECT_EQ(realPath(root + u"/nothing/at/all"_s), root + u"/nothing/at/all"_s);
    // A file to be written goes into the folder that is there.
    EXPECT_EQ(realPath(root + u"\\PICTURES\\New.Jpg"_s), root + u"/Pictures/New.Jpg"_s);
}

TEST_F(Files, ABackslashMayBePartOfAName)
{
    QFile file(root + u"/odd\\name"_s);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    EXPECT_EQ(Dir(root + u"/odd\\name"_s), u"odd\\name"_s);
}

}
