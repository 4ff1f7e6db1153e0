#include "frame/rowtips.h"

#include "platform/basic/convert.h"
#include "platform/basic/error.h"
#include "platform/basic/format.h"
#include "platform/basic/text.h"
#include "session/state.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace vorel {

using basic::Value;

namespace {

enum class Show { Text, Day, Date, Money };

// One line of a tip; several fields stand on it behind one another.
struct TipLine {
    QString label;
    QStringList fields;
    Show show = Show::Text;
};

struct SectionTip {
    QString codes;          // blank-separated
    QString query;          // up to the number
    std::vector<TipLine> lines;
};

constexpr int lineLength = 72;
constexpr int mostLines = 6;        // of one field: a tip is no reading room

std::vector<SectionTip> reminderTips()
{
    return {
        {u"A"_s, u"select * from [APPOINTMENTS] WHERE [ID]="_s,
         {{u" DATE:"_s, {u"DATE"_s}, Show::Day}, {u" TIME:"_s, {u"APPTIME"_s}}, {u" APPOINTMENT:"_s, {u"APPOINTMENT"_s}}}},
        {u"B"_s, u"select * from [BILLS] WHERE [ID]="_s,
         {{u" DATE:"_s, {u"DATE"_s}, Show::Day},
          {u" BILL:"_s, {u"BILL"_s}},
          {u" AMOUNT:"_s, {u"AMOUNT"_s}, Show::Money},
          {u" OWING TO:"_s, {u"OwingTo"_s}},
          {u" WEB:"_s, {u"Website"_s}}}},
        {u"E"_s, u"select * from [EVENTS] WHERE [ID]="_s,
         {{u" DATE:"_s, {u"DATE"_s}, Show::Date},
          {u" TO:"_s, {u"DATETO"_s}, Show::Date},
          {u" SUBJECT:"_s, {u"SUBJECT"_s}},
          {u" EVENT:"_s, {u"EVENT"_s}},
          {u" EMAIL:"_s, {u"EmailAddress"_s}}}},
        {u"G"_s, u"select * from [TODO] WHERE [ID]="_s,
         {{u" TO DO:"_s, {u"ToDo"_s}}, {u" PRIORITY:"_s, {u"Priority"_s}}, {u" DUE:"_s, {u"DATEDUE"_s}, Show::Date}}},
        {u"M"_s, u"select * from [MESSAGES] WHERE [ID]="_s,
         {{u" DATE:"_s, {u"DATE"_s}, Show::Day},
          {u" FROM:"_s, {u"FROM"_s}},
          {u" TO:"_s, {u"TO"_s}},
          {u" MESSAGE:"_s, {u"MESSAGE"_s}}}},
        {u"F"_s, u"select * from [FILEBACKUP] WHERE [ID]="_s,
         {{u" FILE NAME:"_s, {u"FILENAME"_s}},
          {u" FILE DATE:"_s, {u"FILEDATE"_s}, Show::Date},
          {u" LAST BACKUP:"_s, {u"LASTBACKUPDATE"_s}, Show::Day},
          {u" REMIND AFTER DAYS:"_s, {u"BACKUPAFTERDAYS"_s}},
          {u" COPY:"_s, {u"FILECOPY"_s}},
          {u" SOFTWARE:"_s, {u"SOFTWARE"_s}}}},
        {u"H"_s, u"select * from [SHOPPING] WHERE [ID]="_s,
         {{u" ITEM:"_s, {u"ITEM"_s}},
          {u" STORE:"_s, {u"STORE"_s}},
          {u" NUMBER:"_s, {u"NUMBER"_s}},
          {u" LAST COST:"_s, {u"LASTCOST"_s}, Show::Money},
          {u" AMOUNT:"_s, {u"AMOUNT"_s}, Show::Money},
          {u" TOTAL:"_s, {u"TOTAL"_s}, Show::Money}}},
    };
}

std::vector<SectionTip> textTips()
{
    return {
        {u"P T D X C"_s, u"select * from [CONTACTS] WHERE [ID]="_s,
         {{{}, {u"SORTNAME"_s}},
          {u"CONTACT: "_s, {u"CONTACT"_s}},
          {{}, {u"HomeAddressStreet"_s}},
          {{}, {u"HomeAddressCity"_s, u"HomeAddressState"_s, u"HomeAddressPostalCode"_s}},
          {{}, {u"HomeAddressCountry"_s}},
          {u"BUSINESS ADDRESS: "_s,
           {u"BusinessAddressStreet"_s, u"BusinessAddressCity"_s, u"BusinessAddressState"_s, u"BusinessAddressPostalCode"_s}},
          {u"POSTAL ADDRESS: "_s,
           {u"MailingAddressStreet"_s, u"MailingAddressCity"_s, u"MailingAddressState"_s, u"MailingAddressPostalCode"_s}},
          {u"HOME: "_s, {u"HomeTelephoneNumber"_s, u"Home2TelephoneNumber"_s}},
          {u"MOBILE: "_s, {u"MobileTelephoneNumber"_s}},
          {u"BUSINESS: "_s, {u"BusinessTelephoneNumber"_s, u"Business2TelephoneNumber"_s}},
          {u"BUSINESS FAX: "_s, {u"BusinessFaxNumber"_s}},
          {u"HOME FAX: "_s, {u"HomeFaxNumber"_s}},
          {u"BIRTHDAY: "_s, {u"Birthday"_s}, Show::Date},
          {u"ANNIVERSARY: "_s, {u"ANNIVERSARYDATE1"_s}, Show::Date},
          {u"EMAIL: "_s, {u"Email1Address"_s}},
          {u"WEB: "_s, {u"Webpage"_s}}}},
        // The password itself stands in the row, where the user has asked for it.
        {u"W"_s, u"select * from [PASSWORDS] WHERE [ID]="_s,
         {{u" ORGANISATION:"_s, {u"ORGANISATION"_s}},
          {u" USERNAME:"_s, {u"USERNAME"_s}},
          {u" WEB:"_s, {u"Website"_s}},
          {u" REGISTRATION:"_s, {u"REGONUMBER"_s}},
          {u" OTHER:"_s, {u"OTHER"_s}}}},
        {u"J"_s, u"select * from [JOURNAL] WHERE [ID]="_s,
         {{u" DATE:"_s, {u"DATE"_s}, Show::Day}, {u" NOTES:"_s, {u"NOTESDISPLAY"_s}}}},
        {u"N"_s, u"select * from [NOTES] WHERE [ID]="_s,
         {{u" DATE:"_s, {u"DATE"_s}, Show::Day}, {u" NAME:"_s, {u"NAME"_s}}, {u" NOTES:"_s, {u"NOTES"_s}}}},
        {u"Y"_s, u"select * from [HowTo] WHERE [ID]="_s,
         {{u" SUBJECT:"_s, {u"SUBJECT"_s}}, {u" HOW TO:"_s, {u"HOWTO"_s}}, {u" SOLUTION:"_s, {u"SOLUTION"_s}}}},
    };
}

std::vector<SectionTip> libraryTips()
{
    return {
        {u"I"_s, u"select * from [INVENTORY] WHERE [ID]="_s,
         {{u" ITEM:"_s, {u"ITEM"_s}},
          {u" MAKE:"_s, {u"MAKE"_s}},
          {u" MODEL:"_s, {u"MODEL"_s}},
          {u" SERIAL #:"_s, {u"SERIALNUM"_s}},
          {u" LOCATION:"_s, {u"LOCATION"_s}},
          {u" CATEGORY:"_s, {u"CATEGORY"_s}},
          {u" PURCHASED:"_s, {u"DATEPURCHASED"_s}, Show::Date},
          {u" FROM:"_s, {u"PURCHASEDFROM"_s}},
          {u" COST:"_s, {u"COST"_s}, Show::Money},
          {u" WARRANTY UNTIL:"_s, {u"WARRANTYEXPIRYDATE"_s}, Show::Date},
          {u" ON LOAN TO:"_s, {u"ONLOAN"_s}},
          {u" NOTES:"_s, {u"NOTES"_s}}}},
        {u"K"_s, u"select * from [BOOKS] WHERE [ID]="_s,
         {{u" TITLE:"_s, {u"TITLE"_s}},
          {u" AUTHOR:"_s, {u"AUTHOR"_s}},
          {u" PUBLISHER:"_s, {u"PUBLISHER"_s}},
          {u" CATEGORY:"_s, {u"CATEGORY"_s}},
          {u" RATING:"_s, {u"RATING"_s}},
          {u" DATE READ:"_s, {u"DATEREAD"_s}, Show::Date},
          {u" ON LOAN TO:"_s, {u"ONLOAN"_s}},
          {u" COMMENTS:"_s, {u"COMMENTS"_s}}}},
        {u"V"_s, u"select * from [MOVIES] WHERE [ID]="_s,
         {{u" TITLE:"_s, {u"TITLE"_s}},
          {u" STARS:"_s, {u"STARS"_s}},
          {u" DIRECTOR:"_s, {u"DIRECTOR"_s}},
          {u" CLASSIFICATION:"_s, {u"CLASSIFICATION"_s}},
          {u" CATEGORY:"_s, {u"CATEGORY"_s}},
          {u" RATING:"_s, {u"RATING"_s}},
          {u" DATE SEEN:"_s, {u"DATESEEN"_s}, Show::Date},
          {u" ON LOAN TO:"_s, {u"ONLOAN"_s}},
          {u" COMMENTS:"_s, {u"COMMENTS"_s}}}},
        {u"U"_s, u"select * from [MUSIC] WHERE [ID]="_s,
         {{u" TITLE:"_s, {u"TITLE"_s}},
          {u" ARTIST:"_s, {u"ARTIST"_s}},
          {u" DISTRIBUTOR:"_s, {u"DISTRIBUTOR"_s}},
          {u" TYPE:"_s, {u"TYPE"_s}},
          {u" CATEGORY:"_s, {u"CATEGORY"_s}},
          {u" RATING:"_s, {u"RATING"_s}},
          {u" ON LOAN TO:"_s, {u"ONLOAN"_s}},
          {u" COMMENTS:"_s, {u"COMMENTS"_s}}}},
        {u"Z"_s, u"select * from [GARDEN] WHERE [ID]="_s,
         {{u" PLANT NAME:"_s, {u"PlantName"_s}},
          {u" BOTANICAL NAME:"_s, {u"BotanicalName"_s}},
          {u" CATEGORY:"_s, {u"Category"_s}},
          {u" PLANTING TIME:"_s, {u"PlantTime"_s}},
          {u" WEB:"_s, {u"Website"_s}},
          {u" NOTES:"_s, {u"Notes"_s}}}},
        {u"R"_s, u"select * from [RECIPE] WHERE [ID]="_s,
         {{u" RECIPE:"_s, {u"TITLE"_s}},
          {u" CATEGORY:"_s, {u"CATEGORY"_s}},
          {u" SOURCE:"_s, {u"SOURCE"_s}},
          {u" PREPARATION:"_s, {u"PrepTime"_s}},
          {u" COOKING:"_s, {u"CookTime"_s}},
          {u" YIELD:"_s, {u"Yield"_s}},
          {u" NOTES:"_s, {u"NOTES"_s}}}},
    };
}

std::vector<SectionTip> personalTips()
{
    return {
        {u"MV"_s, u"select * from [MOTORVEHICLE] WHERE [ID]="_s,
         {{u" MAKE:"_s, {u"VEHICLEMAKE"_s}},
          {u" MODEL:"_s, {u"VEHICLEMODEL"_s}},
          {u" YEAR:"_s, {u"YEAR"_s}},
          {u" COLOUR:"_s, {u"COLOUR"_s}},
          {u" LICENCE:"_s, {u"LICENCENO"_s}},
          {u" REGISTERED UNTIL:"_s, {u"REGISTRATIONEXPIRYDATE"_s}, Show::Date},
          {u" INSURED UNTIL:"_s, {u"INSURANCEEXPIRYDATE"_s}, Show::Date},
          {u" NEXT SERVICE:"_s, {u"NEXTSERVICEDATE"_s}, Show::Date},
          {u" NOTES:"_s, {u"NOTES"_s}}}},
        {u"O"_s, u"select * from [HEALTH] WHERE [ID]="_s,
         {{u" DATE:"_s, {u"DATE"_s}, Show::Day}, {u" NAME:"_s, {u"USERNAME"_s}}, {u" NOTES:"_s, {u"NOTES"_s}}}},
        {u"Q"_s, u"select * from [GENERAL] WHERE [ID]="_s,
         {{u" DATE:"_s, {u"DATE"_s}, Show::Day},
          {u" NAME:"_s, {u"USERNAME"_s}},
          {u" CLUB:"_s, {u"CLUB"_s}},
          {u" HANDICAP:"_s, {u"HANDICAP"_s}},
          {u" NOTES:"_s, {u"NOTES"_s}}}},
        {u"L"_s, u"select * from [PROFILE] WHERE [ID]="_s,
         {{u" NAME:"_s, {u"SURNAME"_s}},
          {u" OTHER NAMES:"_s, {u"OTHERNAMES"_s}},
          {u" BORN:"_s, {u"DOB"_s}, Show::Date},
          {u" CATEGORY:"_s, {u"CATEGORY"_s}},
          {u" NOTES:"_s, {u"NOTES"_s}}}},
    };
}

const SectionTip *tipOf(const QString &code)
{
    static const std::vector<SectionTip> table = [] {
        std::vector<SectionTip> all;
        for (const auto &part : {reminderTips(), textTips(), libraryTips(), personalTips()})
            all.insert(all.end(), part.begin(), part.end());
        return all;
    }();
    const auto found = std::find_if(table.begin(), table.end(),
                                    [&](const SectionTip &tip) { return tip.codes.split(u' ').contains(code); });
    return code.isEmpty() || found == table.end() ? nullptr : &*found;
}

QString shown(const Value &value, Show show)
{
    const QString text = basic::Trim(value.text());
    if (text.isEmpty())
        return {};
    if (show == Show::Money)
        return basic::CDbl(value) == 0 ? QString() : basic::Format(value, state().settings.gNumberFormat);
    if (show == Show::Text)
        return text;
    if (isNoDate(value))
        return {};
    if (!basic::IsDate(value))
        return text;
    const Value date(basic::CDate(value));
    return show == Show::Day ? basic::Format(date, u"dddd ") + displayDate(date) : displayDate(date);
}

// Long texts go over several lines, so that the tip stays on the screen.
QString folded(const QString &text)
{
    QString plain = text;
    plain.replace(u"\r\n"_s, u"\n"_s).replace(u'\r', u'\n');
    QStringList lines;
    for (QString rest : plain.split(u'\n')) {
        while (rest.size() > lineLength) {
            const qsizetype blank = rest.lastIndexOf(u' ', lineLength);
            const qsizetype end = blank > 0 ? blank : lineLength;
            lines << rest.left(end);
            rest = rest.mid(blank > 0 ? end + 1 : end);
        }
        lines << rest;
    }
    if (lines.size() > mostLines) {
        lines.resize(mostLines);
        lines.last() += u" ..."_s;
    }
    return lines.join(u'\n');
}

bool hasField(const dao::Recordset &row, const QString &name)
{
    const auto &fields = row.Fields();
    return std::any_of(fields.begin(), fields.end(), [&](const dao::RecordsetField &field) {
        return field.Name.compare(name, Qt::CaseInsensitive) == 0;
    });
}

QString lineOf(const dao::Recordset &row, const TipLine &line)
{
    QStringList parts;
    for (const QString &field : line.fields) {
        QString text;
        // A field that an old file lacks, or that cannot be read, says nothing.
        basic::IgnoreErrors([&] { text = shown(row.Get(field), line.show); });
        if (!text.isEmpty())
            parts << text;
    }
    if (parts.isEmpty())
        return {};
    const QString label = line.label.isEmpty() || line.label.endsWith(u' ') ? line.label : line.label + u' ';
    return folded(label + parts.join(u' '));
}

}

bool isNoDate(const Value &date)
{
    const QString text = basic::Trim(date.text());
    for (const QStringView none : {u"01/01/1900", u"01/01/4501", u"1/1/4501"})
        if (text == none)
            return true;
    const basic::DateTime *day = date.tryGet<basic::DateTime>();
    return day && (day->date() == QDate(1900, 1, 1) || day->date() == QDate(4501, 1, 1));
}

QString SetToolTip(dao::Database database, const QString &sectionCode, qint32 id)
{
    const SectionTip *tip = tipOf(sectionCode);
    if (!tip || id == 0)
        return {};
    QStringList lines;
    basic::IgnoreErrors([&] {
        dao::Recordset row = database.OpenRecordset(tip->query + QString::number(id), dao::dbOpenSnapshot);
        if (row.EOF_())
            return;
        if (sectionCode != u"W" && hasField(row, u"PASSWORD"_s) && !basic::Trim(row.Get(u"PASSWORD").text()).isEmpty())
            return;
        for (const TipLine &line : tip->lines)
            if (const QString text = lineOf(row, line); !text.isEmpty())
                lines << text;
    });
    return lines.join(u'\n');
}

}
