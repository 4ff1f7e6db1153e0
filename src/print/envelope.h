#pragma once

#include <QString>
#include <QStringList>
#include <vector>

namespace vorel {

struct EnvelopeSize {
    QString name;                       // "DL", "C5", "#10"
    double width = 0, height = 0;       // twips, as it lies
};
const std::vector<EnvelopeSize> &envelopeSizes();
// The kept one, else what the region uses: DL beside A4, #10 beside Letter.
const EnvelopeSize &envelopeSize();
void keepEnvelopeSize(const QString &name);

// The sender, as the lines of its address. In the configuration file it is one line, where two blanks are a line end.
QStringList returnAddress();
inline constexpr int longestReturnAddress = 255;            // characters with its line ends; the file gives no more back
void keepReturnAddress(const QString &text);

// One envelope each, the addressee's lines with the name first. Empty ones are left out; without any, says so. Shows the
// preview.
void printEnvelopes(const std::vector<QStringList> &addresses, const QStringList &sender, const EnvelopeSize &size);
// The envelope of one contact, with the kept sender on the kept size.
void printEnvelope(const QStringList &address);
// The lines of an address: the name; "PO BOX " and the number, else the street; city, state and postal code; the country.
// What is blank is left out.
struct PostalAddress {
    QString name{}, postOfficeBox{}, street{}, city{}, state{}, postalCode{}, country{};
};
QStringList addressLines(const PostalAddress &address);

}
