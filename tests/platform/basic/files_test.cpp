#include "platform/basic/files.h"
#include "support.h"
#include "support/table.h"

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

// What is not there has no name.
TEST_F(Files, AreFoundWhateverTheirCase)
{
    vorel::test::forEachRow("text", "files", [this](const vorel::test::Row &row) {
        const QString asked = root + row["asked"];
        EXPECT_EQ(Dir(asked), row["name"]);
        if (!row["real"].isEmpty()) {
            EXPECT_EQ(realPath(asked), root + row["real"]);
        }
    });
    EXPECT_EQ(Dir(QString()), QString());
}

TEST_F(Files, ABackslashMayBePartOfAName)
{
    QFile file(root + u"/odd\\name"_s);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    EXPECT_EQ(Dir(root + u"/odd\\name"_s), u"odd\\name"_s);
}

}
