#include "session/recorddesign.h"
#include "session/sections/parts.h"

namespace vorel::sections {

// The contacts and the four lists over them, which open the same record screen.

namespace {

QString nameOf(const dao::Recordset &rows)
{
    const QString last = rows.Get(u"LASTNAME").text(), first = rows.Get(u"FIRSTNAME").text();
    if (last.trimmed().isEmpty() && first.trimmed().isEmpty())
        return rows.Get(u"SORTNAME").text();        // a business
    return last + u", "_s + first;
}

QString surnameOrBusiness(const dao::Recordset &rows)
{
    const QString last = rows.Get(u"LASTNAME").text();
    return last.trimmed().isEmpty() ? rows.Get(u"SORTNAME").text() : last;
}

QString addressOf(const dao::Recordset &rows)
{
    for (const QString &kind : {u"MAILING"_s, u"HOME"_s}) {
        QStringList parts;
        for (const QString &part : {u"STREET"_s, u"CITY"_s, u"STATE"_s, u"POSTALCODE"_s, u"COUNTRY"_s}) {
            const QString text = rows.Get(kind + u"ADDRESS"_s + part).text().trimmed();
            if (!text.isEmpty())
                parts << text;
        }
        if (!parts.isEmpty())
            return parts.join(u' ');
    }
    return {};
}

QString firstNumber(const dao::Recordset &rows)
{
    for (const QString &kind : {u"HOME"_s, u"BUSINESS"_s, u"MOBILE"_s}) {
        const QString number = rows.Get(kind + u"TELEPHONENUMBER"_s).text();
        if (!number.trimmed().isEmpty())
            return number;
    }
    return {};
}

// The line ends are inside quoted texts of the query, so that a cell shows several lines. A + blanks the label of a
// Null number, the & keeps the line end.
QString emergencyQuery()
{
    return QStringList{u"SELECT [ID],[SORTNAME],'Home: '+ [HOMETELEPHONENUMBER] & '"_s,
                       u"''Work: ' + [BUSINESSTELEPHONENUMBER] & '"_s, u"''Cell:   ' + [MOBILETELEPHONENUMBER] & '"_s,
                       u"''Pager: '+ [PAGERNUMBER] & '"_s,
                       u"' AS PHONENUM FROM [CONTACTS] WHERE [EMERGENCY]=-1 AND [INVISIBLE]=False ORDER BY [LASTNAME]"_s}
        .join(u"\r\n"_s);
}

QString christmasQuery()
{
    return QStringList{u"SELECT [ID],[SORTNAME] AS PERSON,[MAILINGADDRESSSTREET] & '"_s,
                       u"' +[MAILINGADDRESSCITY] & ' ' & [MAILINGADDRESSSTATE] & ' ' & [MAILINGADDRESSPOSTALCODE] & '"_s,
                       u"' + [MAILINGADDRESSCOUNTRY] AS ADDRESS FROM [CONTACTS] WHERE [CHRISTMASCARD]=True AND "
                       "[INVISIBLE]=False ORDER BY [SORTNAME]"_s}
        .join(u"\r\n"_s);
}

SectionColumn number(const QString &field, const QString &title)
{
    return sampled(shown(field, title), u"00 0000 0000"_s);
}

RowTipDesign tip()
{
    return {u"CONTACTS"_s,
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
             date(u"BIRTHDAY: "_s, u"Birthday"_s),
             date(u"ANNIVERSARY: "_s, u"ANNIVERSARYDATE1"_s),
             text(u"EMAIL: "_s, u"Email1Address"_s),
             text(u"WEB: "_s, u"Webpage"_s)}};
}

// What the four lists have in common.
SectionDesign contactList(SectionId id, const QString &name, const QString &code)
{
    return {
        .id = id,
        .name = name,
        .code = code,
        .file = DataFile::Contacts,
        .rowTip = tip(),
        .screen = RecordScreenDesign{.name = u"frmContacts"_s, .opensAs = SectionId::Contacts, .record = records::contactsRecord},
        .help = HelpDesign{u"\\INFOCONTACTS.RTF"_s, u"contacts"_s, u"Contacts"_s},
    };
}

}

SectionDesign contacts()
{
    SectionColumn home = number(u"HomeTelephoneNumber"_s, u"HOME (1)"_s);
    home.gives = true;
    return {
        .id = SectionId::Contacts,
        .name = u"Contacts"_s,
        .code = u"P"_s,
        .file = DataFile::Contacts,
        .refreshesReminders = false,
        .list = ListDesign{
            .title = u"PHONE NUMBERS AND EMAIL ADDRESSES"_s,
            .query = u"SELECT [ID],[SORTNAME],[HomeTelephoneNumber],[BusinessTelephoneNumber],[MobileTelephoneNumber],"
                     "[Home2TelephoneNumber],[HomeFaxNumber],[Email1Address] ,' ' as PBUT,[FILENAME],[NEWIMPORT],[CONTACT] "
                     "FROM [CONTACTS] WHERE [INVISIBLE]=False ORDER BY [SORTNAME]"_s,
            .columns = {hidden(u"ID"_s), sampled(shown(u"SORTNAME"_s, u"CONTACT NAME"_s), u"WILLIAMS, Alexandra [Ann]"_s), home,
                        number(u"BusinessTelephoneNumber"_s, u"BUSINESS"_s), number(u"MobileTelephoneNumber"_s, u"MOBILE/CELL"_s),
                        number(u"Home2TelephoneNumber"_s, u"HOME (2)"_s), shown(u"HomeFaxNumber"_s, u"FAX"_s),
                        sampled(shown(u"Email1Address"_s, u"EMAIL"_s), u"someone@example.org"_s), button(), hidden(u"FILENAME"_s),
                        hidden(u"NEWIMPORT"_s), hidden(u"CONTACT"_s)},
            .growing = {u"SORTNAME"_s, u"Email1Address"_s},
            .searched = {u"SORTNAME"_s, u"HomeTelephoneNumber"_s, u"BusinessTelephoneNumber"_s, u"MobileTelephoneNumber"_s,
                         u"Home2TelephoneNumber"_s, u"HomeFaxNumber"_s},
            .rules = {pictureRule(),
                      {.kind = RowRule::Kind::Flag, .style = u"PURPLE"_s, .fields = {u"NEWIMPORT"_s}},
                      {.kind = RowRule::Kind::Joined, .fields = {u"SORTNAME"_s, u"CONTACT"_s}}}},
        .grid = GridDesign{.word = u"PHONE"_s, .widths = {2000, 2000, 1500, 1200, 1200, 1200, 1200}, .styleSet = u"PHONE"_s,
                           .colour = GridColourDesign{u"ContactsGridColour"_s},
                           .empty = u"No contacts yet.\nPress New to enter the first one."_s},
        .button = ButtonDesign{8, u"Contacts"_s, u" Contacts including Telephone Numbers and Email Addresses "_s,
                               u"view-pim-contacts"_s, RailGroup::People, 0,
                               {u"CONTACTS"_s,
                                {u" Names, telephone numbers, addresses and email addresses."_s,
                                 u" The View menu shows them as business, private and emergency numbers and as a Christmas card list."_s}}},
        .feature = FeatureDesign{u"Contacts"_s,
                                 {u"mnuPrintPhone"_s, u"mnuPrintXmasList"_s, u"mnuPrintEmergencyPhoneList"_s, u"mnuPrintLabels"_s,
                                  u"mnuPrintEnvelopes"_s, u"mnuPrintAddressBook"_s, u"mnuInfoCard"_s, u"mnuXmasList"_s, u"mnuEmergencyPhone"_s, u"mnuCatNumbers"_s,
                                  u"mnuViewPrivateNums"_s}},
        .print = PrintDesign{u"mnuPrintPhone"_s, u"&Telephone Numbers"_s,
            {.titleWord = u"TELEPHONE NUMBERS as at "_s, .file = DataFile::Contacts,
             .query = u"Select * from [Contacts] WHERE [PRINT]=True order by [Lastname]"_s, .rowLimit = 54,
             .columns = {{.heading = u"SURNAME/BUSINESS NAME"_s, .cell = surnameOrBusiness, .percent = 1, .cut = 36},
                         column(u"HOME"_s, u"HOMETELEPHONENUMBER"_s, 32), column(u"WORK"_s, u"BUSINESSTELEPHONENUMBER"_s, 49),
                         column(u"FAX"_s, u"HOMEFAXNUMBER"_s, 66), column(u"MOBILE/CELL"_s, u"MOBILETELEPHONENUMBER"_s, 83)}}},
        .rowTip = tip(),
        .screen = RecordScreenDesign{.name = u"frmContacts"_s, .record = records::contactsRecord},
        .pictures = PicturesDesign{u"ContactPictures"_s,
                                   {{u"Contact Picture"_s}},
                                   {},
                                   PictureSetDesign{u"Contact Other Picture "_s, u"select * from [CONTACTDATA] WHERE [ID]="_s,
                                                    u"DELETE * FROM [CONTACTDATA] where [ID]="_s, u"ID"_s, u"ID"_s, 6}},
        .help = HelpDesign{u"\\INFOCONTACTS.RTF"_s, u"contacts"_s},
    };
}

SectionDesign privateNumbers()
{
    SectionDesign design = contactList(SectionId::PrivateNumbers, u"Private"_s, u"T"_s);
    design.list = ListDesign{
        .title = u"PRIVATE PHONE NUMBERS"_s,
        .query = u"SELECT [ID],[SORTNAME],' ',[HOMETELEPHONENUMBER],[MOBILETELEPHONENUMBER],[HOME2TELEPHONENUMBER] "
                 "FROM [CONTACTS] WHERE [PRIVATE]=-1 AND [INVISIBLE]=False ORDER BY [SORTNAME]"_s,
        .columns = {hidden(u"ID"_s), shown(u"SORTNAME"_s, u"NAME"_s), shown(u"' '"_s, u"PHONE NUMBER/S"_s),
                    hidden(u"HOMETELEPHONENUMBER"_s), hidden(u"MOBILETELEPHONENUMBER"_s), hidden(u"HOME2TELEPHONENUMBER"_s)},
        .rules = {{.kind = RowRule::Kind::Numbers,
                   .fields = {u"' '"_s, u"HOMETELEPHONENUMBER"_s, u"HOME2TELEPHONENUMBER"_s, u"MOBILETELEPHONENUMBER"_s},
                   .label = u"H"_s}},
        .lines = 3};
    design.grid = GridDesign{.word = u"PRIVATE"_s, .widths = {2000, 2000}, .isKept = false, .styleSet = u"PHONE"_s,
                             .empty = u"No private numbers.\nThey are the contacts marked as private."_s};
    return design;
}

SectionDesign businessNumbers()
{
    SectionDesign design = contactList(SectionId::BusinessNumbers, u"Business"_s, u"D"_s);
    design.list = ListDesign{
        .title = u"BUSINESS PHONE NUMBERS"_s,
        .query = u"SELECT [ID],'',[CATEGORY],[SORTNAME],' ',[BUSINESSTELEPHONENUMBER],[BUSINESS2TELEPHONENUMBER],"
                 "[MOBILETELEPHONENUMBER] FROM [CONTACTS] WHERE [PRIVATE]=False AND [CATEGORY]<>'' AND [INVISIBLE]=False "
                 "ORDER BY [CATEGORY],[SORTNAME]"_s,
        .columns = {hidden(u"ID"_s), hidden(u"''"_s), shown(u"CATEGORY"_s), shown(u"SORTNAME"_s, u"NAME"_s),
                    shown(u"' '"_s, u"PHONE NUMBER"_s), hidden(u"BUSINESSTELEPHONENUMBER"_s), hidden(u"BUSINESS2TELEPHONENUMBER"_s),
                    hidden(u"MOBILETELEPHONENUMBER"_s)},
        .searched = {u"SORTNAME"_s},
        .rules = {{.kind = RowRule::Kind::Numbers,
                   .fields = {u"' '"_s, u"BUSINESSTELEPHONENUMBER"_s, u"BUSINESS2TELEPHONENUMBER"_s, u"MOBILETELEPHONENUMBER"_s},
                   .label = u"B"_s}},
        .lines = 3};
    design.grid = GridDesign{.word = u"BUSINESS"_s, .widths = {2500, 1100, 1100, 1500}, .rowHeightKey = u"BUSCATSROWHEIGHT"_s,
                             .styleSet = u"PHONE"_s, .empty = u"No business numbers.\nThey are the contacts with a category."_s};
    return design;
}

SectionDesign emergencyNumbers()
{
    SectionDesign design = contactList(SectionId::EmergencyNumbers, u"Emergency"_s, u"X"_s);
    design.list = ListDesign{
        .title = u"EMERGENCY PHONE NUMBERS"_s,
        .query = emergencyQuery(),
        .columns = {hidden(u"ID"_s), shown(u"SORTNAME"_s, u"NAME"_s), shown(u"PHONENUM"_s, u"PHONE NUMBERS"_s)},
        .rules = {{.kind = RowRule::Kind::EveryRow, .style = u"WHITE"_s},
                  {.kind = RowRule::Kind::Lines, .fields = {u"PHONENUM"_s}}},
        .lines = 4};
    design.grid = GridDesign{.word = u"EMERGENCY"_s, .widths = {1400, 1400}, .styleSet = u"WHITE"_s,
                             .empty = u"No emergency numbers.\nThey are the contacts marked for emergencies."_s};
    design.print = PrintDesign{u"mnuPrintEmergencyPhoneList"_s, u"Eme&rgency Phone Numbers"_s,
        {.titleWord = u"EMERGENCY PHONE NUMBERS as at "_s, .file = DataFile::Contacts,
         .query = u"SELECT * FROM [CONTACTS] WHERE [Emergency]=True ORDER BY [LASTNAME];"_s, .rowLimit = 47,
         .columns = {{.heading = u"NAME"_s, .cell = nameOf, .percent = 1}, {.heading = u"NUMBER"_s, .cell = firstNumber, .percent = 75}}}};
    return design;
}

SectionDesign christmasCards()
{
    SectionDesign design = contactList(SectionId::ChristmasCards, u"Christmas Cards"_s, u"C"_s);
    design.list = ListDesign{
        .title = u"CHRISTMAS CARD LIST"_s,
        .query = christmasQuery(),
        .columns = {hidden(u"ID"_s), shown(u"PERSON"_s, u"NAME"_s), shown(u"ADDRESS"_s)},
        .rules = {{.kind = RowRule::Kind::EveryRow, .style = u"XMAS"_s}, {.kind = RowRule::Kind::Lines, .fields = {u"ADDRESS"_s}}},
        .lines = 3};
    design.grid = GridDesign{.word = u"CHRISTMAS"_s, .widths = {1400, 1400}, .rowHeightKey = u"CARDSROWHEIGHT"_s,
                             .styleSet = u"XMAS"_s, .takesColour = false,
                             .empty = u"Nobody is on the card list.\nIt shows the contacts marked for a Christmas card."_s};
    design.print = PrintDesign{u"mnuPrintXmasList"_s, u"&Christmas Card List"_s,
        {.titleWord = u"CHRISTMAS CARD LIST as at "_s, .file = DataFile::Contacts,
         .query = u"SELECT * FROM [CONTACTS] WHERE [ChristmasCard]=True ORDER BY [LASTNAME];"_s, .orientation = 2,
         .columns = {{.heading = u"NAME"_s, .cell = nameOf, .percent = 1}, {.heading = u"ADDRESS"_s, .cell = addressOf, .percent = 50}}}};
    return design;
}

}
