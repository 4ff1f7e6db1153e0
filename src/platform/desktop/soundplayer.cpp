#include "platform/desktop/soundplayer.h"

#include <QAudioDevice>
#include <QAudioOutput>
#include <QMediaDevices>
#include <QMediaPlayer>
#include <QSoundEffect>
#include <QThread>
#include <QUrl>
#include <atomic>

namespace vorel::desktop {

using namespace Qt::StringLiterals;

namespace {

constexpr unsigned long patience = 500;     // ms for the sound library to finish at the end

// Lives on the sound thread.
class Speaker : public QObject {
public:
    void play(const QString &path)
    {
        m_effect.reset();
        m_player.reset();
        if (QMediaDevices::defaultAudioOutput().isNull())
            return;
        const QUrl source = path.startsWith(u":/"_s) ? QUrl(u"qrc"_s + path) : QUrl::fromLocalFile(path);
        if (!path.endsWith(u".wav"_s, Qt::CaseInsensitive))
            return playMedia(source);
        m_effect = std::make_unique<QSoundEffect>();
        // Some .wav files hold what only the media player reads.
        connect(m_effect.get(), &QSoundEffect::statusChanged, this, [this, source] {
            if (m_effect && m_effect->status() == QSoundEffect::Error)
                playMedia(source);
        });
        m_effect->setSource(source);
        m_effect->play();
    }

private:
    void playMedia(const QUrl &source)
    {
        m_output = std::make_unique<QAudioOutput>();
        m_player = std::make_unique<QMediaPlayer>();
        m_player->setAudioOutput(m_output.get());
        m_player->setSource(source);
        m_player->play();
    }

    std::unique_ptr<QSoundEffect> m_effect;
    std::unique_ptr<QAudioOutput> m_output;
    std::unique_ptr<QMediaPlayer> m_player;
};

}

struct SoundPlayer::Private {
    QThread *thread = nullptr;
    Speaker *speaker = nullptr;
    std::atomic<int> pending = 0;
};

SoundPlayer::SoundPlayer() : d(std::make_shared<Private>()) {}

// A sound service that hangs holds the thread: then the end of the program does not wait, and leaves it behind.
SoundPlayer::~SoundPlayer()
{
    if (!d->thread)
        return;
    d->thread->quit();
    if (d->thread->wait(patience))
        delete d->thread;
}

void SoundPlayer::play(const QString &path)
{
    if (path.isEmpty())
        return;
    if (!d->thread) {
        d->thread = new QThread;
        d->thread->setObjectName(u"sound"_s);
        d->speaker = new Speaker;
        d->speaker->moveToThread(d->thread);
        QObject::connect(d->thread, &QThread::finished, d->speaker, &QObject::deleteLater);
        d->thread->start(QThread::LowPriority);
    }
    ++d->pending;
    const auto start = [shared = d, path] {
        shared->speaker->play(path);
        --shared->pending;
    };
    QMetaObject::invokeMethod(d->speaker, start, Qt::QueuedConnection);
}

int SoundPlayer::pending() const
{
    return d->pending;
}

}
