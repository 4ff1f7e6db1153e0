#pragma once

#include <QString>
#include <memory>

namespace vorel::desktop {

// Plays sound files, built-in ones (":/...") included. Nobody waits: the sound library starts with the first sound, on a
// thread of its own. No audio device, no such file, no sound: silence.
class SoundPlayer {
public:
    SoundPlayer();
    ~SoundPlayer();
    SoundPlayer(const SoundPlayer &) = delete;
    SoundPlayer &operator=(const SoundPlayer &) = delete;

    void play(const QString &path);         // a further sound takes the place of the one that still plays
    int pending() const;                    // sounds that the thread has not loaded yet

private:
    struct Private;
    std::shared_ptr<Private> d;
};

}
