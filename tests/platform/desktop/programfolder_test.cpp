#include "platform/desktop/desktop.h"
#include "support/testfolder.h"

#include <QCoreApplication>

using namespace Qt::StringLiterals;
using namespace vorel;

namespace {

class Environment {
public:
    Environment(const char *name, const QString &value) : m_name(name), m_before(qgetenv(name)), m_wasSet(qEnvironmentVariableIsSet(name))
    {
        qputenv(name, value.toUtf8());
    }
    ~Environment()
    {
        if (m_wasSet)
            qputenv(m_name, m_before);
        else
            qunsetenv(m_name);
    }

private:
    const char *m_name;
    QByteArray m_before;
    bool m_wasSet;
};

}

TEST(ProgramFolder, IsDecidedInOrder)
{
    const QTemporaryDir root;
    const Environment home("XDG_DATA_HOME", root.filePath(u"data"_s));
    const QString shared = root.filePath(u"data/VorelReminder"_s);
    {
        const Environment none("VOREL_FOLDER", u""_s);
        EXPECT_EQ(shared, desktop::decideProgramFolder());
        EXPECT_TRUE(QDir(shared).exists());
        const auto others = QFile::ReadGroup | QFile::WriteGroup | QFile::ExeGroup | QFile::ReadOther | QFile::WriteOther | QFile::ExeOther;
        EXPECT_FALSE(QFile::permissions(shared) & others) << "private records";

        const QString marker = QCoreApplication::applicationDirPath() + u"/VorelReminder.INI"_s;    // a portable copy
        QFile ini(marker);
        ASSERT_TRUE(ini.open(QIODevice::WriteOnly));
        EXPECT_EQ(QCoreApplication::applicationDirPath(), desktop::decideProgramFolder());
        ini.remove();
        EXPECT_EQ(shared, desktop::decideProgramFolder());
    }
    const QString own = root.filePath(u"my own/folder"_s);
    const Environment set("VOREL_FOLDER", own + u"/."_s);
    EXPECT_EQ(own, desktop::decideProgramFolder());
    EXPECT_TRUE(QDir(own).exists());
}

TEST(Resources, UsersOwnFileComesFirst)
{
    const test::TestFolder folder;
    EXPECT_EQ(u":/Paper.jpg"_s, desktop::findResource(u"\\Paper.jpg"_s));
    const QString mine = folder.write(u"PAPER.JPG"_s, "x");
    for (const QString &name : {u"Paper.jpg"_s, u"\\Paper.jpg"_s, u"/paper.JPG"_s})
        EXPECT_EQ(mine, desktop::findResource(name)) << name.toStdString();
    const QString inner = folder.write(u"Icons/Bill.svg"_s, "x");
    EXPECT_EQ(inner, desktop::findResource(u"\\icons\\bill.svg"_s));
    QDir(folder.path()).mkdir(u"sounds"_s);
    for (const QString &name : {u""_s, u"\\"_s, u"sounds"_s, u"missing.wav"_s})
        EXPECT_EQ(QString(), desktop::findResource(name)) << name.toStdString();
}
