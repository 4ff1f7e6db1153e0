#pragma once

#include <QString>

// The profile file: "[Section]" lines and "key=value" lines, names compared without regard to case. Damage is read
// around: unknown lines, any line ends, over-long lines. Writes replace the file in one step and keep what they do not
// understand.
namespace vorel::desktop {

// At most 255 characters of the value come back; the default (also cut to 255) if there is no file, section or key.
// Blanks around key and value are not part of them; one pair of quotes around the value is taken off.
QString GetPrivateProfileString(const QString &section, const QString &key, const QString &defaultText,
                                const QString &file);
// false if the file could not be written (read-only folder, full disk); the old file is then unchanged. Also false
// for names that such a file cannot hold. A value that the file already holds is not written again.
bool WritePrivateProfileString(const QString &section, const QString &key, const QString &value, const QString &file);

// While one lives, writes are collected and the reads see them; each file is replaced once, at the end. For a screen
// that saves dozens of keys. May be nested: the outermost writes.
class ProfileBatch {
public:
    ProfileBatch();
    ~ProfileBatch();
    ProfileBatch(const ProfileBatch &) = delete;
    ProfileBatch &operator=(const ProfileBatch &) = delete;
};

}
