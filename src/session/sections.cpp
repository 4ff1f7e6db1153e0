#include "session/sections.h"

#include <algorithm>
#include <initializer_list>

using namespace Qt::StringLiterals;

namespace vorel {

namespace {

using Role = SectionColumn::Role;

// The columns of one query, built in the order of its fields. Widths are numbered from the first shown column.
class Columns {
public:
    Columns &hidden(const QString &field)
    {
        m_columns.push_back({field, {}, Role::Hidden, 0});
        return *this;
    }
    Columns &shown(const QString &field, const QString &title)
    {
        m_columns.push_back({field, title, Role::Shown, ++m_widths});
        return *this;
    }
    // A column given no title keeps its field's name.
    Columns &shown(const QString &field) { return shown(field, field); }
    Columns &button() { return button(0); }
    // Its width has a number of its own.
    Columns &numberedButton() { return button(++m_widths); }
    std::vector<SectionColumn> done() const { return m_columns; }

private:
    Columns &button(int width)
    {
        m_columns.push_back({u"PBUT"_s, {}, Role::Button, width});
        return *this;
    }

    std::vector<SectionColumn> m_columns;
    int m_widths = 0;
};

// The line ends stand inside quoted texts of the query, so that a cell shows several lines. A + blanks the label of a
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

void addReminders(std::vector<Section> &table)
{
    struct Row {
        QString name, code, printMenu, styleSet, layoutWord;
        bool a, b, e;
    };
    const Row rows[] = {
        {u"Appointments"_s, u"A"_s, u"mnuPrintAppointments"_s, u"APPOINTMENTS"_s, u"APPS"_s, true, false, false},
        {u"Bills"_s, u"B"_s, u"mnuPrintBills"_s, u"BILLS"_s, u"BILLS"_s, false, true, false},
        {u"Events"_s, u"E"_s, u"mnuPrintEvents"_s, u"EVENTS"_s, u"EVENTS"_s, false, false, true},
        {u"All"_s, u"All"_s, {}, {}, {}, true, true, true},
        {u"AB"_s, u"AB"_s, {}, {}, {}, true, true, false},
        {u"AE"_s, u"AE"_s, {}, {}, {}, true, false, true},
        {u"BE"_s, u"BE"_s, {}, {}, {}, false, true, true},
    };
    for (const Row &row : rows) {
        Section section{row.name, row.code, SectionKind::Reminder, DataFile::Main, {}, {}, {}, row.printMenu,
                        row.styleSet, row.layoutWord, {row.a, row.b, row.e}};
        table.push_back(section);
    }
}

void addActions(std::vector<Section> &table)
{
    const std::pair<QString, QString> actions[] = {
        {u"Calculator"_s, {}}, {u"Calendar"_s, {}}, {u"Expenses"_s, u"EX"_s}, {u"Income"_s, u"IN"_s}, {u"Help"_s, {}}};
    for (const auto &[name, code] : actions) {
        Section section;
        section.name = name;
        section.code = code;
        section.kind = SectionKind::Action;
        table.push_back(section);
    }
}

void addLibraries(std::vector<Section> &table)
{
    table.push_back({u"Inventory"_s, u"I"_s, SectionKind::Grid, DataFile::Main,
        u"SELECT [ID],[Item],[SerialNum],[Location],' ' as PBUT,[FILENAME] FROM [Inventory] ORDER BY [Item]"_s,
        u"INVENTORY"_s, {u"ID"_s, u"ITEM"_s, u"SERIAL #"_s, u"LOCATION"_s, {}}, u"mnuPrintInventory"_s, u"INVENTORY"_s,
        u"INVENTORY"_s, {},
        Columns().hidden(u"ID"_s).shown(u"Item"_s, u"ITEM"_s).shown(u"SerialNum"_s, u"SERIAL #"_s)
            .shown(u"Location"_s, u"LOCATION"_s).button().hidden(u"FILENAME"_s).done()});
    table.push_back({u"Books"_s, u"K"_s, SectionKind::Grid, DataFile::Books,
        u"SELECT [ID],[Title],[Read],[Author],' ' as PBUT,[FILENAME] FROM [Books] ORDER BY [Title]"_s,
        u"BOOKS"_s, {u"ID"_s, u"TITLE"_s, u"READ"_s, u"AUTHOR"_s, {}}, u"mnuPrintBooks"_s, u"BOOKS"_s, u"BOOKS"_s, {},
        Columns().hidden(u"ID"_s).shown(u"Title"_s, u"TITLE"_s).shown(u"Read"_s, u"READ"_s)
            .shown(u"Author"_s, u"AUTHOR"_s).button().hidden(u"FILENAME"_s).done()});
    table.push_back({u"Music"_s, u"U"_s, SectionKind::Grid, DataFile::Music,
        u"SELECT [ID],[TITLE],[ARTIST],' ' as PBUT,[FILENAME] FROM [MUSIC] ORDER BY [TITLE],[ARTIST]"_s,
        u"MUSIC"_s, {u"ID"_s, u"TITLE"_s, u"ARTIST"_s, {}}, u"mnuPrintMusic"_s, u"MUSIC"_s, u"MUSIC"_s, {},
        Columns().hidden(u"ID"_s).shown(u"TITLE"_s).shown(u"ARTIST"_s).button().hidden(u"FILENAME"_s).done()});
    table.push_back({u"Movies"_s, u"V"_s, SectionKind::Grid, DataFile::Movies,
        u"SELECT [ID],[Title],[Seen],[Stars],' ' as PBUT,[FILENAME] FROM [Movies] ORDER BY [Title]"_s,
        u"MOVIES"_s, {u"ID"_s, u"TITLE"_s, u"SEEN"_s, u"STARS"_s, {}}, u"mnuPrintMovies"_s, u"MOVIES"_s, u"MOVIES"_s, {},
        Columns().hidden(u"ID"_s).shown(u"Title"_s, u"TITLE"_s).shown(u"Seen"_s, u"SEEN"_s)
            .shown(u"Stars"_s, u"STARS"_s).button().hidden(u"FILENAME"_s).done()});
    table.push_back({u"Gardening"_s, u"Z"_s, SectionKind::Grid, DataFile::Garden,
        u"SELECT [ID],'',[CATEGORY],[PLANTNAME],' ' as PBUT,[FILENAME] FROM [GARDEN] ORDER BY [CATEGORY],[PLANTNAME]"_s,
        u"GARDENING"_s, {u"ID"_s, u"CATEGORY"_s, u"PLANT NAME"_s, {}, {}}, {}, {}, u"GARDEN"_s, {},
        Columns().hidden(u"ID"_s).hidden(u"''"_s).shown(u"CATEGORY"_s).shown(u"PLANTNAME"_s, u"PLANT NAME"_s)
            .numberedButton().hidden(u"FILENAME"_s).done()});
    table.push_back({u"RECIPES"_s, u"R"_s, SectionKind::Grid, DataFile::Recipe,
        u"SELECT [ID],'',[CATEGORY],[TITLE],' ' as PBUT,[FILENAME] FROM [RECIPE] ORDER BY [CATEGORY],[TITLE]"_s,
        u"RECIPES"_s, {u"ID"_s, u"CATEGORY"_s, u"TITLE"_s, {}, {}}, {}, {}, u"RECIPE"_s, {},
        Columns().hidden(u"ID"_s).hidden(u"''"_s).shown(u"CATEGORY"_s).shown(u"TITLE"_s).numberedButton()
            .hidden(u"FILENAME"_s).done()});
    table.push_back({u"Vehicle"_s, u"MV"_s, SectionKind::Grid, DataFile::HowTo,
        u"SELECT [ID],[VEHICLEMAKE],[VEHICLEMODEL],[YEAR],' ' as PBUT,[FILENAME] FROM [MOTORVEHICLE] "
        "ORDER BY [VEHICLEMAKE],[VEHICLEMODEL],[YEAR]"_s,
        u"MOTOR VEHICLE"_s, {u"MAKE"_s, u"MODEL"_s, {}}, {}, u"VEHICLE"_s, u"VEHICLE"_s, {},
        Columns().hidden(u"ID"_s).shown(u"VEHICLEMAKE"_s, u"MAKE"_s).shown(u"VEHICLEMODEL"_s, u"MODEL"_s)
            .shown(u"YEAR"_s).button().hidden(u"FILENAME"_s).done()});
}

void addTexts(std::vector<Section> &table)
{
    table.push_back({u"Passwords"_s, u"W"_s, SectionKind::Grid, DataFile::DataP,
        u"SELECT [ID],[Organisation],[Username],[Password] FROM [Passwords] ORDER BY [Organisation]"_s,
        u"PASSWORDS"_s, {u"ID"_s, u"ORGANISATION"_s, u"USERNAME"_s, u"PASSWORD"_s}, u"mnuPrintPasswords"_s,
        u"PASSWORDS"_s, u"PASSWORDS"_s, {},
        Columns().hidden(u"ID"_s).shown(u"Organisation"_s, u"ORGANISATION"_s).shown(u"Username"_s, u"USERNAME"_s)
            .shown(u"Password"_s, u"PASSWORD"_s).done()});
    table.push_back({u"Journal"_s, u"J"_s, SectionKind::Grid, DataFile::DataJ,
        u"SELECT [ID],[DATE],[NOTESDISPLAY] FROM [JOURNAL] ORDER BY [DATE]"_s,
        u"JOURNAL"_s, {u"DATE"_s, u"NOTES"_s}, u"mnuPrintJournal"_s, u"JOURNAL"_s, u"JOURNAL"_s, {},
        Columns().hidden(u"ID"_s).shown(u"DATE"_s).shown(u"NOTESDISPLAY"_s, u"NOTES"_s).done()});
    table.push_back({u"To Do"_s, u"G"_s, SectionKind::Grid, DataFile::Main,
        u"SELECT [ID],[TODO],[PRIORITY],[ACTIONED] FROM [TODO] ORDER BY [PRIORITY],[TODO]"_s,
        u"To Do's"_s, {u"ID"_s, u"To Do"_s, u"PRIORITY"_s, u"ACT"_s}, u"mnuPrintToDo"_s, u"TODO"_s, u"TODO"_s, {},
        Columns().hidden(u"ID"_s).shown(u"TODO"_s, u"To Do"_s).shown(u"PRIORITY"_s).shown(u"ACTIONED"_s, u"ACT"_s).done()});
    table.push_back({u"Messages"_s, u"M"_s, SectionKind::Grid, DataFile::Main,
        u"SELECT [ID],[Date],[From],[To],[Message],[Read] FROM [Messages] ORDER BY [DATE],[FROM]"_s,
        u"MESSAGES"_s, {u"ID"_s, u"DATE"_s, u"FROM"_s, u"TO"_s, u"MESSAGE"_s, u"READ"_s}, {}, u"MESSAGES"_s,
        u"MESSAGES"_s, {},
        Columns().hidden(u"ID"_s).shown(u"Date"_s, u"DATE"_s).shown(u"From"_s, u"FROM"_s).shown(u"To"_s, u"TO"_s)
            .shown(u"Message"_s, u"MESSAGE"_s).shown(u"Read"_s, u"READ"_s).done()});
    table.push_back({u"File Backup"_s, u"F"_s, SectionKind::Grid, DataFile::Main,
        u"SELECT * FROM [FILEBACKUP] ORDER BY [FILENAME],[FILEDATE],[DAYS]"_s,
        u"FILE BACKUP"_s, {u"FILE NAME"_s, u"FILE DATE"_s, u"LAST B/UP"_s, u"DAYS"_s}, u"mnuPrintFiles"_s, u"BACKUP"_s,
        u"BACKUP"_s, {},
        Columns().hidden(u"ID"_s).shown(u"FILENAME"_s, u"FILE NAME"_s).shown(u"FILEDATE"_s, u"FILE DATE"_s)
            .shown(u"LASTBACKUPDATE"_s, u"LAST B/UP"_s).shown(u"DAYS"_s).hidden(u"BACKUPAFTERDAYS"_s)
            .hidden(u"SOFTWARE"_s).hidden(u"UsersName"_s).hidden(u"IDNUM"_s).hidden(u"FILECOPY"_s).done()});
    table.push_back({u"Shopping"_s, u"H"_s, SectionKind::Grid, DataFile::Main,
        u"SELECT [ID],[ITEM],[STORE],[NUMBER],[LASTCOST],[AMOUNT],[TOTAL],[PICK] FROM [SHOPPING] ORDER BY [ITEM]"_s,
        u"SHOPPING LIST"_s,
        {u"ID"_s, u"ITEM"_s, u"STORE"_s, u"NO."_s, u"LAST"_s, u"AMT"_s, u"TOTAL"_s, u"BUY"_s},
        u"mnuPrintShoppingList"_s, u"SHOPPING"_s, u"SHOPPING"_s, {},
        Columns().hidden(u"ID"_s).shown(u"ITEM"_s).shown(u"STORE"_s).shown(u"NUMBER"_s, u"NO."_s)
            .shown(u"LASTCOST"_s, u"LAST"_s).shown(u"AMOUNT"_s, u"AMT"_s).shown(u"TOTAL"_s)
            .shown(u"PICK"_s, u"BUY"_s).done()});
    table.push_back({u"Notes"_s, u"N"_s, SectionKind::Grid, DataFile::Notes,
        u"SELECT [ID],[DATE],[NAME],[NOTES] FROM [NOTES] ORDER BY [DATE]"_s,
        u"NOTES"_s, {u"ID"_s}, u"mnuPrintNotes"_s, u"NOTES"_s, u"NOTES"_s, {},
        Columns().hidden(u"ID"_s).shown(u"DATE"_s).shown(u"NAME"_s).shown(u"NOTES"_s).done()});
    table.push_back({u"HOW TO"_s, u"Y"_s, SectionKind::Grid, DataFile::HowTo,
        u"SELECT [ID],[SUBJECT],[HOWTO],[SOLUTION] FROM [HowTo] ORDER BY [SUBJECT],[HOWTO]"_s,
        u"HOW TO"_s, {u"SUBJECT"_s, u"HOW TO"_s, u"SOLUTION"_s}, u"mnuPrintHowTo"_s, {}, u"HOWTO"_s, {},
        Columns().hidden(u"ID"_s).shown(u"SUBJECT"_s).shown(u"HOWTO"_s, u"HOW TO"_s).shown(u"SOLUTION"_s).done()});
}

void addContacts(std::vector<Section> &table)
{
    table.push_back({u"Contacts"_s, u"P"_s, SectionKind::Grid, DataFile::Contacts,
        u"SELECT [ID],[SORTNAME],[HomeTelephoneNumber],[BusinessTelephoneNumber],[MobileTelephoneNumber],"
        "[Home2TelephoneNumber],[HomeFaxNumber],[Email1Address] ,' ' as PBUT,[FILENAME],[NEWIMPORT],[CONTACT] "
        "FROM [CONTACTS] WHERE [INVISIBLE]=False ORDER BY [SORTNAME]"_s,
        u"PHONE NUMBERS AND EMAIL ADDRESSES"_s,
        {u"ID"_s, u"CONTACT NAME"_s, u"HOME (1)"_s, u"BUSINESS"_s, u"MOBILE/CELL"_s, u"HOME (2)"_s, u"FAX"_s,
         u"EMAIL"_s, {}},
        u"mnuPrintPhone"_s, u"PHONE"_s, u"PHONE"_s, {},
        Columns().hidden(u"ID"_s).shown(u"SORTNAME"_s, u"CONTACT NAME"_s).shown(u"HomeTelephoneNumber"_s, u"HOME (1)"_s)
            .shown(u"BusinessTelephoneNumber"_s, u"BUSINESS"_s).shown(u"MobileTelephoneNumber"_s, u"MOBILE/CELL"_s)
            .shown(u"Home2TelephoneNumber"_s, u"HOME (2)"_s).shown(u"HomeFaxNumber"_s, u"FAX"_s)
            .shown(u"Email1Address"_s, u"EMAIL"_s).button().hidden(u"FILENAME"_s).hidden(u"NEWIMPORT"_s)
            .hidden(u"CONTACT"_s).done()});
    table.push_back({u"Private"_s, u"T"_s, SectionKind::Grid, DataFile::Contacts,
        u"SELECT [ID],[SORTNAME],' ',[HOMETELEPHONENUMBER],[MOBILETELEPHONENUMBER],[HOME2TELEPHONENUMBER] "
        "FROM [CONTACTS] WHERE [PRIVATE]=-1 AND [INVISIBLE]=False ORDER BY [SORTNAME]"_s,
        u"PRIVATE PHONE NUMBERS"_s, {u"ID"_s, u"NAME"_s, u"PHONE NUMBER/S"_s}, {}, u"PHONE"_s, u"PRIVATE"_s, {},
        Columns().hidden(u"ID"_s).shown(u"SORTNAME"_s, u"NAME"_s).shown(u"' '"_s, u"PHONE NUMBER/S"_s)
            .hidden(u"HOMETELEPHONENUMBER"_s).hidden(u"MOBILETELEPHONENUMBER"_s).hidden(u"HOME2TELEPHONENUMBER"_s).done()});
    table.push_back({u"Business"_s, u"D"_s, SectionKind::Grid, DataFile::Contacts,
        u"SELECT [ID],'',[CATEGORY],[SORTNAME],' ',[BUSINESSTELEPHONENUMBER],[BUSINESS2TELEPHONENUMBER],"
        "[MOBILETELEPHONENUMBER] FROM [CONTACTS] WHERE [PRIVATE]=False AND [CATEGORY]<>'' AND [INVISIBLE]=False "
        "ORDER BY [CATEGORY],[SORTNAME]"_s,
        u"BUSINESS PHONE NUMBERS"_s, {u"ID"_s, u"CATEGORY"_s, u"NAME"_s, u"PHONE NUMBER"_s}, {}, u"PHONE"_s,
        u"BUSINESS"_s, {},
        Columns().hidden(u"ID"_s).hidden(u"''"_s).shown(u"CATEGORY"_s).shown(u"SORTNAME"_s, u"NAME"_s)
            .shown(u"' '"_s, u"PHONE NUMBER"_s).hidden(u"BUSINESSTELEPHONENUMBER"_s).hidden(u"BUSINESS2TELEPHONENUMBER"_s)
            .hidden(u"MOBILETELEPHONENUMBER"_s).done()});
    table.push_back({u"Emergency"_s, u"X"_s, SectionKind::Grid, DataFile::Contacts, emergencyQuery(),
        u"EMERGENCY PHONE NUMBERS"_s, {u"ID"_s, u"NAME"_s, u"PHONE NUMBERS"_s}, u"mnuPrintEmergencyPhoneList"_s,
        u"WHITE"_s, u"EMERGENCY"_s, {},
        Columns().hidden(u"ID"_s).shown(u"SORTNAME"_s, u"NAME"_s).shown(u"PHONENUM"_s, u"PHONE NUMBERS"_s).done()});
    table.push_back({u"Christmas Cards"_s, u"C"_s, SectionKind::Grid, DataFile::Contacts, christmasQuery(),
        u"CHRISTMAS CARD LIST"_s, {u"ID"_s, u"NAME"_s, u"ADDRESS"_s}, u"mnuPrintXmasList"_s, u"XMAS"_s, u"CHRISTMAS"_s, {},
        Columns().hidden(u"ID"_s).shown(u"PERSON"_s, u"NAME"_s).shown(u"ADDRESS"_s).done()});
}

void addPersonal(std::vector<Section> &table)
{
    table.push_back({u"Health"_s, u"O"_s, SectionKind::Grid, DataFile::HowTo,
        u"SELECT [ID],[DATE],[USERNAME],' ' as PBUT,[FILENAME] FROM [HEALTH] ORDER BY [DATE]"_s,
        u"HEALTH"_s, {u"ID"_s, u"NAME"_s, {}}, {}, u"HEALTH"_s, u"HEALTH"_s, {},
        Columns().hidden(u"ID"_s).shown(u"DATE"_s).shown(u"USERNAME"_s, u"NAME"_s).button().hidden(u"FILENAME"_s).done()});
    table.push_back({u"Golf"_s, u"Q"_s, SectionKind::Grid, DataFile::Sports,
        u"SELECT [ID],[DATE],[USERNAME],' ' as PBUT,[FILENAME] FROM [GENERAL] ORDER BY [DATE]"_s,
        u"SPORT - GOLF"_s, {u"ID"_s, u"NAME"_s, {}}, {}, u"SPORT"_s, u"SPORT"_s, {},
        Columns().hidden(u"ID"_s).shown(u"DATE"_s).shown(u"USERNAME"_s, u"NAME"_s).button().hidden(u"FILENAME"_s).done()});
    table.push_back({u"Profile"_s, u"L"_s, SectionKind::Grid, DataFile::Main,
        u"SELECT [ID],[SURNAME],[OTHERNAMES],' ' as PBUT,[FILENAME] FROM [PROFILE] ORDER BY [SURNAME],[OTHERNAMES]"_s,
        u"PROFILE"_s, {u"ID"_s, u"NAME"_s, u"OTHER NAMES"_s, {}}, {}, u"PROFILE"_s, u"PROFILE"_s, {},
        Columns().hidden(u"ID"_s).shown(u"SURNAME"_s, u"NAME"_s).shown(u"OTHERNAMES"_s, u"OTHER NAMES"_s).button()
            .hidden(u"FILENAME"_s).done()});
}

std::vector<Section> buildTable()
{
    std::vector<Section> table;
    addReminders(table);
    addLibraries(table);
    addTexts(table);
    addContacts(table);
    addPersonal(table);
    addActions(table);
    return table;
}

}

const std::vector<Section> &sectionTable()
{
    static const std::vector<Section> table = buildTable();
    return table;
}

const Section *sectionByName(const QString &name)
{
    const auto &table = sectionTable();
    const auto found = std::find_if(table.begin(), table.end(), [&](const Section &s) {
        return s.name.compare(name, Qt::CaseInsensitive) == 0;
    });
    return found == table.end() ? nullptr : &*found;
}

const Section *sectionByCode(const QString &code)
{
    const auto &table = sectionTable();
    const auto found = std::find_if(table.begin(), table.end(), [&](const Section &s) {
        return !code.isEmpty() && s.code == code;
    });
    return found == table.end() ? nullptr : &*found;
}

QStringList printMenusOf(const Section &section)
{
    if (!section.printMenu.isEmpty())
        return {section.printMenu};
    static const QStringList ofGrids{u"mnuPrintAppointments"_s, u"mnuPrintBills"_s, u"mnuPrintEvents"_s};
    QStringList menus;
    for (int grid = 0; grid < ofGrids.size(); ++grid) {
        if (section.grids[grid])
            menus << ofGrids[grid];
    }
    return menus;
}

QString SectionName()
{
    // Only these give their name back; the other codes return as they are, which DisplayCategory does not know, so the
    // screen stays as it stands.
    static const QStringList named{u"A"_s, u"B"_s, u"E"_s, u"F"_s, u"G"_s, u"H"_s, u"I"_s, u"M"_s, u"N"_s, u"P"_s, u"Y"_s};
    const QString &code = state().selection.gSection;
    const Section *section = named.contains(code) ? sectionByCode(code) : nullptr;
    return section ? section->name : code;
}

}
