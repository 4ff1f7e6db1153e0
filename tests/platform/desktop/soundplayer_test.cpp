#include "platform/desktop/soundplayer.h"
#include "support/testfolder.h"

#include <QTest>

using namespace Qt::StringLiterals;
using namespace vorel;

namespace {

// No audio server and no card can be reached; what the sound library writes about it on stderr is not the program's fault.
class NoAudio {
public:
    NoAudio() : m_before(qInstallMessageHandler([](QtMsgType, const QMessageLogContext &, const QString &) {}))
    {
        qputenv("PULSE_SERVER", "unix:/nowhere/pulse");
        qputenv("ALSA_CONFIG_PATH", "/nowhere/alsa.conf");
    }
    ~NoAudio()
    {
        qunsetenv("PULSE_SERVER");
        qunsetenv("ALSA_CONFIG_PATH");
        qInstallMessageHandler(m_before);
    }

private:
    QtMessageHandler m_before;
};

}

// Nor does it warn about files that are not sounds, or when it ends while sounds are still being loaded.
TEST(Sound, WithoutADeviceItIsSilent)
{
    const NoAudio none;
    const test::TestFolder folder;
    const QString damaged = folder.write(u"damaged.wav"_s, "RIFF\xff\xff\xff\x7fWAVEfmt ");
    const QStringList sounds{damaged, u":/beep.wav"_s, folder.path(u"missing.wav"_s), folder.path(u"missing.mp3"_s), QString()};
    desktop::SoundPlayer player;
    for (const QString &path : sounds)
        player.play(path);
    EXPECT_TRUE(QTest::qWaitFor([&] { return player.pending() == 0; }, 60000));
    desktop::SoundPlayer hurried;
    for (const QString &path : sounds)
        hurried.play(path);
}
