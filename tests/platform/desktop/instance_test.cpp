#include "platform/desktop/desktop.h"
#include "support/testfolder.h"

#include <sys/wait.h>
#include <unistd.h>

using namespace Qt::StringLiterals;
using namespace vorel;

namespace {

// A second process: claims a program folder on command, and dies on command. Created before the test's own
// claim, which it would inherit.
class OtherProcess {
public:
    explicit OtherProcess(const QString &folder)
    {
        int answer[2], order[2];
        if (::pipe(answer) != 0 || ::pipe(order) != 0)
            return;
        m_child = ::fork();
        if (m_child == 0) {
            ::close(order[1]);
            basic::setProgramFolder(folder);
            char any = 0;
            bool told = ::read(order[0], &any, 1) == 1;
            const char claimed = desktop::claimSingleInstance() ? 'y' : 'n';
            told = told && ::write(answer[1], &claimed, 1) == 1 && ::read(order[0], &any, 1) == 1;
            ::_exit(told ? 0 : 1);          // no destructor runs: the lock stays behind as after a kill
        }
        m_order = order[1];
        m_answer = answer[0];
        ::close(answer[1]);
        ::close(order[0]);
    }
    ~OtherProcess()
    {
        ::close(m_order);
        ::close(m_answer);
        if (m_child > 0)
            ::waitpid(m_child, nullptr, 0);
    }

    bool claims()
    {
        char claimed = 0;
        return ::write(m_order, "x", 1) == 1 && ::read(m_answer, &claimed, 1) == 1 && claimed == 'y';
    }
    void die()
    {
        EXPECT_EQ(1, ::write(m_order, "x", 1));
        ::waitpid(std::exchange(m_child, 0), nullptr, 0);
    }

private:
    pid_t m_child = 0;
    int m_order = -1;
    int m_answer = -1;
};

}

TEST(SingleInstance, OneForEachProgramFolder)
{
    const test::TestFolder folder;
    const QTemporaryDir elsewhere;
    OtherProcess second(folder.path()), stranger(elsewhere.path()), later(folder.path());
    ASSERT_TRUE(desktop::claimSingleInstance());
    EXPECT_TRUE(desktop::claimSingleInstance()) << "its own claim stands";
    EXPECT_FALSE(second.claims());
    EXPECT_TRUE(stranger.claims());
    desktop::releaseSingleInstance();
    EXPECT_TRUE(later.claims());
}

TEST(SingleInstance, LockOfDeadProcessIsTakenOver)
{
    const test::TestFolder folder;
    OtherProcess other(folder.path());
    ASSERT_TRUE(other.claims());
    EXPECT_FALSE(desktop::claimSingleInstance());
    other.die();
    EXPECT_TRUE(desktop::claimSingleInstance());
    EXPECT_EQ(desktop::lastRunNote(), desktop::runningNote);
    for (const QByteArray &note : {QByteArray("two\nlines\n"), QByteArray()}) {
        desktop::releaseSingleInstance(note);
        EXPECT_TRUE(desktop::claimSingleInstance());
        EXPECT_EQ(desktop::lastRunNote(), note);
    }
    desktop::releaseSingleInstance();
}

// Whatever lies under the lock's name ends no start; only a living process does.
TEST(SingleInstance, LockFileOfAnyOriginIsNoInstance)
{
    const struct {
        QByteArray content;
        QFile::Permissions permissions;
    } cases[] = {
        {"", QFile::ReadOwner | QFile::WriteOwner},
        {"1\nVorel2005\nanother-machine\n0123456789abcdef\n\n", QFile::ReadOwner | QFile::WriteOwner},
        {QByteArray(5000, 'x'), QFile::ReadOwner | QFile::WriteOwner},
        {"running\n", QFile::ReadOwner},
    };
    for (const auto &c : cases) {
        const test::TestFolder folder;
        OtherProcess second(folder.path());
        QFile::setPermissions(folder.write(u".vorelreminder.lock"_s, c.content), c.permissions);
        EXPECT_TRUE(desktop::claimSingleInstance()) << c.content.left(40).constData();
        EXPECT_FALSE(second.claims());
        desktop::releaseSingleInstance();
    }
    const test::TestFolder folder;
    ASSERT_TRUE(QDir(folder.path()).mkdir(u".vorelreminder.lock"_s));
    EXPECT_TRUE(desktop::claimSingleInstance());
    desktop::releaseSingleInstance();
}

TEST(SingleInstance, FolderWithoutRoomForALockIsNoOtherInstance)
{
    const test::TestFolder folder;
    basic::setProgramFolder(folder.path(u"vanished"_s));
    EXPECT_TRUE(desktop::claimSingleInstance());
    desktop::releaseSingleInstance();
}
