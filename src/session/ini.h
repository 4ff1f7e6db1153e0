#pragma once

#include <QString>
#include <cstdint>
#include <optional>

// The configuration file, one place for all settings of the machine and the screens.
namespace vorel {

// At most 255 characters of the value come back.
QString GetIniValue(const QString &section, const QString &key, const QString &defaultText);
// Each carriage return and each line feed of the value becomes one blank, also in the caller's variable.
// A value that cannot be written (read-only folder, full disk) raises an error with the file's name in its text.
void PutIniValue(const QString &section, const QString &key, QString &value);
void PutIniValue(const QString &section, const QString &key, QString &&value);
// For what the program merely remembers: false where it cannot be written.
bool tryPutIniValue(const QString &section, const QString &key, const QString &value);
// A colour number (0xBBGGRR as decimal or &H text) of "Settings", passed through the hidden colour label: a text that
// is not a colour leaves the colour that the label held before.
quint32 GetIniColour(const QString &key, quint32 defaultColour);
// Booleans travel as text: "True", "true", "1", "-1" are true.
bool iniBoolean(const QString &text);
// The number at the head of the text, rounded and kept within 16 bits; 0 if there is none.
std::int16_t iniInteger(const QString &text);
// What a label takes as its colour: 0 to 0xFFFFFF and the system colours from 0x80000000 on; nothing for other texts.
std::optional<quint32> colourNumber(const QString &text);

inline const QString iniSettings = QStringLiteral("Settings");
inline const QString iniFeatures = QStringLiteral("Features");

}
