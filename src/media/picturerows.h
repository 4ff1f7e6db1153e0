#pragma once

#include "session/state.h"

#include <vector>

// The rows of a record's picture set, six slots or ten, in the table of its section.
namespace vorel {

struct PictureTable {
    QStringView section;                // "P", "L", "MV", "O", "Q", "Z"
    DataFile file;
    QStringView select, remove;         // the query texts up to the key
    QStringView readKey, ownKey;        // the field that the select asks for; the field of the record's number
    int slotCount;
};
// nullptr for a section whose records have no picture set.
const PictureTable *pictureTableOf(const QString &section);

// Whose set it is. id: the record's number; user: the name, which finds the set where the numbers do not.
struct PictureOwner {
    qint32 id = 0;
    QString user{};
};

struct PictureSlot {
    QString path{};
    QString caption{};
    double sortNumber = 0;
};

// The pictures of the record in the order of their numbers, empty slots left out. EngineError if the file cannot be read.
std::vector<PictureSlot> GetSlideShowFiles(const QString &section, const PictureOwner &owner);
// Writes the slots, trimmed, into the record's row; adds one if it has none. Slots that are not given become empty.
void savePictureRow(const QString &section, const PictureOwner &owner, const std::vector<PictureSlot> &pictures);
void removePictureRows(const QString &section, const PictureOwner &owner);

}
