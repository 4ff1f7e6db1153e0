#pragma once

#include <QString>

namespace vorel {

// How the pages of the address book look. Lengths in millimetres; colours are numbers of the sixteen colours. What stands here is a
// book without settings: sober, with a margin wide enough to be bound. The settings screen starts from other values, which use the
// paper better (addressBookStyle).
struct AddressBookStyle {
    QString font = QStringLiteral("Arial");
    double size = 10;                   // points
    int linesPerPage = 48;
    double topMargin = 5, leftMargin = 14;
    int headingColour = 0, headingFontColour = 0;
    bool operator==(const AddressBookStyle &) const = default;
};
// What the user has set; a key that is missing, no number or out of range has the default of the settings screen.
AddressBookStyle addressBookStyle();
void keepAddressBookStyle(const AddressBookStyle &style);
// The limits of the settings, also of what the screen offers.
inline constexpr int leastBookLines = 5, mostBookLines = 200, mostBookMargin = 60;
inline constexpr double leastBookSize = 5, mostBookSize = 36;

// The colour of a heading's text as it is printed (0xBBGGRR): one that cannot be read on its bar is replaced by black or white.
quint32 bookHeadingColour(const AddressBookStyle &style);

enum class BookPages {
    Filled,                             // one contact behind the other
    EachLetter                          // a new page for each first letter
};
// The contacts that are marked for the address book. doubleSided: even pages have the left margin twice. Shows the
// preview, or says that there are no records.
void PrintAddressBook(bool doubleSided, const AddressBookStyle &style = {}, BookPages pages = BookPages::Filled);

// Marks all visible contacts for the address book (true), or only those that are marked for printing: one transaction.
// Returns how many there are.
int markForAddressBook(bool all);

}
