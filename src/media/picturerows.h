#pragma once

#include "session/state.h"

#include <vector>

// The rows of a record's picture set, in the table that the design of its section names. Error 5: the section has no such sets.
namespace vorel {

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

// One row of the table: its slots in place, pictures[i] being the slot PICFILE(i + 1) that imgOther(i) shows. An empty path
// is an empty slot.
struct PictureSet {
    dao::Bookmark row{};                // the row it was read from; not valid: a set that is still to be stored
    std::vector<PictureSlot> pictures{};
};

// The pictures of the record in the order of their numbers, empty slots left out. EngineError if the file cannot be read.
std::vector<PictureSlot> GetSlideShowFiles(const QString &section, const PictureOwner &owner);
// The record's sets, as many as it has rows, by the numbers of their slots. Each has all its slots, empty ones included.
std::vector<PictureSet> readPictureSets(const QString &section, const PictureOwner &owner);
// Stores one more set without pictures behind the others.
PictureSet addPictureSet(const QString &section, const PictureOwner &owner);
// Writes the slots, trimmed, into the set's row, or else into the record's first one, or adds one if the record has none.
// Slots that are not given become empty. The set then knows its row. EngineError 3159 if its row was deleted, 3163 if a path
// is longer than 255 characters.
void savePictureRow(const QString &section, const PictureOwner &owner, PictureSet &set);
void removePictureSet(const QString &section, const PictureOwner &owner, const PictureSet &set);
void removePictureRows(const QString &section, const PictureOwner &owner);          // all of the record's sets
// Moves the picture of a slot to another; those between shift by one, and the numbers follow the slots from 1.
void movePicture(PictureSet &set, std::size_t from, std::size_t to);

}
