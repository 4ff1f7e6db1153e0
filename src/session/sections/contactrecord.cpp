#include "session/sections/contacttree.h"
#include "session/sections/parts.h"

namespace vorel::records {

using namespace Qt::StringLiterals;
using enum FieldKind;

namespace {

// The fields of one panel, or of a group on it, in a column.
void add(std::vector<Field> &fields, const QString &panel, std::vector<Field> more, const QString &group = {}, int column = 0)
{
    for (Field &field : more) {
        field.panel = panel;
        field.group = group;
        field.column = column;
        fields.push_back(std::move(field));
    }
}

Field apostrophes(Field field)
{
    field.rules |= FieldRule::Grave;
    return field;
}

// A name that opens in an enlarged box.
Field name(const QString &control, const QString &field, const QString &label, const QString &spoken = {})
{
    return apostrophes({.control = control, .field = field, .label = label, .spoken = spoken, .action = u"&Enlarge..."_s});
}

Field address(const QString &control, const QString &field, const QString &label, const QString &action = u"&Open"_s)
{
    return {.control = control, .field = field, .label = label, .action = action};
}

void addNames(std::vector<Field> &fields)
{
    const QString panel = u"panPrivate"_s;
    add(fields, panel, {
        {.control = u"chkPrivate"_s, .field = u"PRIVATE"_s, .kind = Check, .label = u"&Private"_s},
        {.control = u"lblSortname"_s, .field = u"SORTNAME"_s, .kind = Caption, .label = u"Sort name"_s, .labelName = u"lblSortName1"_s}});
    add(fields, panel, {
        name(u"txtSurname"_s, u"LASTNAME"_s, u"La&st name"_s),
        apostrophes({.control = u"txtFirstName"_s, .field = u"FIRSTNAME"_s, .label = u"&First name"_s}),
        apostrophes({.control = u"txtMiddleName"_s, .field = u"MIDDLENAME"_s, .label = u"&Middle name"_s}),
        {.control = u"txtNickName"_s, .field = u"NICKNAME"_s, .label = u"Nickn&ame"_s},
        {.control = u"cboSalutation"_s, .field = u"TITLE"_s, .kind = List, .label = u"Salu&tation"_s},
        {.control = u"cboGender"_s, .field = u"GENDER"_s, .kind = List, .label = u"Gen&der"_s},
        {.control = u"txtSpouse"_s, .field = u"SPOUSE"_s, .label = u"Spous&e"_s},
        {.control = u"txtChildren"_s, .field = u"CHILDREN"_s, .label = u"C&hildren"_s},
        {.control = u"txtLanguage"_s, .field = u"LANGUAGE"_s, .label = u"Language"_s, .action = u"*English*"_s}}, u"fraPrivate"_s);
    add(fields, panel, {
        name(u"txtCompanyName"_s, u"COMPANYNAME"_s, u"Compan&y"_s),
        {.control = u"txtABN"_s, .field = u"GOVERNMENTIDNUMBER"_s, .label = u"Business #"_s},
        {.control = u"txtContact"_s, .field = u"CONTACT"_s, .label = u"Contact"_s},
        {.control = u"txtManager"_s, .field = u"MANAGERNAME"_s, .label = u"Manager"_s},
        {.control = u"txtAssistantName"_s, .field = u"ASSISTANTNAME"_s, .label = u"Assistant"_s}}, u"fraBusiness"_s, 1);
    add(fields, panel, {
        {.control = u"chkPrint"_s, .field = u"PRINT"_s, .kind = Check, .label = u"Print in the telephone list"_s},
        {.control = u"chkEmergency"_s, .field = u"EMERGENCY"_s, .kind = Check, .label = u"Emergency"_s},
        {.control = u"chkChristmasCard"_s, .field = u"CHRISTMASCARD"_s, .kind = Check, .label = u"Christmas Card"_s}},
        u"fraLists"_s, 1);
}

void addAddresses(std::vector<Field> &fields)
{
    int column = 0;
    for (const QString &kind : {u"Home"_s, u"Business"_s, u"Other"_s, u"Mailing"_s}) {
        const QString block = kind + u"Address"_s, of = kind == u"Mailing" ? u"Postal"_s : kind;
        add(fields, u"panAddress"_s, {
            {.control = u"txt"_s + block + u"Street"_s, .field = block + u"Street"_s, .label = u"Street"_s, .spoken = of + u" street"_s},
            {.control = u"cbo"_s + block + u"City"_s, .field = block + u"City"_s, .kind = List, .label = u"City"_s, .spoken = of + u" city"_s},
            {.control = u"cbo"_s + block + u"State"_s, .field = block + u"State"_s, .kind = List, .label = u"State"_s, .spoken = of + u" state"_s},
            {.control = u"txt"_s + block + u"PostalCode"_s, .field = block + u"PostalCode"_s, .beside = true, .label = u"Code"_s,
             .spoken = of + u" postal code"_s},
            {.control = u"cbo"_s + block + u"Country"_s, .field = block + u"Country"_s, .kind = List, .label = u"Country"_s,
             .spoken = of + u" country"_s},
            {.control = u"txt"_s + block + u"PostOfficeBox"_s, .field = block + u"PostOfficeBox"_s, .beside = true, .label = u"PO Box"_s,
             .spoken = of + u" post office box"_s},
            {.control = u"txt"_s + block, .field = block, .kind = Lines, .label = u"Full text"_s, .spoken = of + u" address"_s, .lines = 2}},
            u"fra"_s + block, column++ % 2);
    }
}

Field phone(const QString &field, const QString &label)
{
    return {.control = u"txt"_s + field, .field = field, .label = label};
}

void addPhones(std::vector<Field> &fields)
{
    add(fields, u"panPhone"_s, {
        phone(u"HomeTelephoneNumber"_s, u"&Home"_s), phone(u"Home2TelephoneNumber"_s, u"Home &2"_s), phone(u"HomeFaxNumber"_s, u"&Fax"_s),
        phone(u"MobileTelephoneNumber"_s, u"&Mobile"_s), phone(u"CarTelephoneNumber"_s, u"C&ar"_s),
        phone(u"OtherTelephoneNumber"_s, u"O&ther"_s), phone(u"OtherFaxNumber"_s, u"Other fa&x"_s),
        phone(u"PrimaryTelephoneNumber"_s, u"&Primary"_s)});
    add(fields, u"panPhone"_s, {
        phone(u"BusinessTelephoneNumber"_s, u"Bu&siness"_s), phone(u"Business2TelephoneNumber"_s, u"Other business"_s),
        phone(u"AssistantTelephoneNumber"_s, u"Assistant"_s), phone(u"CallbackTelephoneNumber"_s, u"Callback"_s),
        phone(u"RadioTelephoneNumber"_s, u"Ra&dio"_s), phone(u"PagerNumber"_s, u"Pager"_s), phone(u"TelexNumber"_s, u"T&elex"_s)}, {}, 1);
}

void addMails(std::vector<Field> &fields)
{
    for (int i = 1; i <= 4; ++i) {
        const QString of = u"Email%1"_s.arg(i);
        add(fields, u"panEmail"_s, {address(u"txt"_s + of + u"Address"_s, of + u"Address"_s, u"E-mail &%1"_s.arg(i), u"&Write an E-mail"_s)});
        add(fields, u"panEmail"_s, {{.control = u"txt"_s + of + u"DisplayName"_s, .field = of + u"DisplayName"_s, .beside = true, .label = u"Shown as"_s,
                                     .spoken = u"E-mail %1 shown as"_s.arg(i)}});
    }
}

// Two tables of six lines; the screen places them.
void addDates(std::vector<Field> &fields)
{
    const auto member = [](const QString &array, int i) { return array + u'(' + QString::number(i) + u')'; };
    for (int i = 0; i < 6; ++i) {
        const QString number = i == 0 ? QString() : QString::number(i + 1), of = u"Birthday %1, "_s.arg(i + 1);
        add(fields, u"panDates"_s, {
            {.control = member(u"txtdob"_s, i), .field = i == 0 ? u"Birthday"_s : u"DOB"_s + number, .kind = Date,
             .rules = FieldRule::DoubleClick, .button = member(u"cmdDOB"_s, i), .spoken = of + u"date"_s},
            name(member(u"txtBirthdaySurName"_s, i), u"DOBSURNAME"_s + number, {}, of + u"last name"_s),
            name(member(u"txtBirthdayOtherName"_s, i), u"DOBOTHERNAME"_s + number, {}, of + u"other names"_s),
            {.control = member(u"chkEventsDOB"_s, i), .kind = Check, .spoken = of + u"among the events"_s},
            {.control = member(u"chkAutoEmail"_s, i), .field = u"DOB%1EMAIL"_s.arg(i + 1), .kind = Check, .spoken = of + u"greeting by e-mail"_s},
            {.control = member(u"chkAutoCard"_s, i), .field = u"DOBCARD%1"_s.arg(i + 1), .kind = Check, .spoken = of + u"card"_s}},
            u"fraBirthdays"_s);
    }
    for (int i = 0; i < 6; ++i) {
        const QString number = QString::number(i + 1), of = u"Anniversary %1, "_s.arg(i + 1);
        add(fields, u"panDates"_s, {
            {.control = member(u"txtAnniversary"_s, i), .field = u"ANNIVERSARYDATE"_s + number, .kind = Date,
             .rules = FieldRule::DoubleClick, .button = member(u"cmdAnniversary"_s, i), .spoken = of + u"date"_s},
            apostrophes({.control = member(u"cboAnniversary"_s, i), .field = u"ANNIVERSARYREASON"_s + number, .kind = List, .spoken = of + u"reason"_s}),
            apostrophes({.control = member(u"txtAnnivSurName"_s, i), .field = u"ANNIVERSARYNAME"_s + number, .spoken = of + u"name"_s}),
            {.control = member(u"chkEventsAnn"_s, i), .kind = Check, .spoken = of + u"among the events"_s}}, u"fraAnniversaries"_s);
    }
}

void addOthers(std::vector<Field> &fields)
{
    add(fields, u"panOther"_s, {
        apostrophes({.control = u"cboCategory"_s, .field = u"CATEGORY"_s, .kind = List, .label = u"C&ategory"_s}),
        {.control = u"txtJobTitle"_s, .field = u"JOBTITLE"_s, .label = u"&Job title"_s},
        {.control = u"txtDepartment"_s, .field = u"DEPARTMENT"_s, .label = u"&Department"_s},
        {.control = u"txtOfficeLocation"_s, .field = u"OFFICELOCATION"_s, .label = u"O&ffice location"_s},
        {.control = u"txtProfession"_s, .field = u"PROFESSION"_s, .label = u"Profession"_s},
        {.control = u"txtHobby"_s, .field = u"HOBBY"_s, .label = u"&Hobby"_s}});
    add(fields, u"panOther"_s, {
        address(u"txtWebpage"_s, u"WEBPAGE"_s, u"W&eb page"_s), address(u"txtPersonalHomePage"_s, u"PERSONALHOMEPAGE"_s, u"Ho&me page"_s),
        address(u"txtFTPSite"_s, u"FTPSITE"_s, u"F&TP site"_s),
        {.control = u"txtISDNNumber"_s, .field = u"ISDNNUMBER"_s, .label = u"I&SDN"_s},
        {.control = u"lblPictureFile"_s, .field = u"FILENAME"_s, .kind = Path, .label = u"Picture"_s, .labelName = u"lblPicture"_s},
        {.control = u"lblLastModificationTime"_s, .field = u"LASTMODIFICATIONTIME"_s, .kind = Caption, .label = u"Last changed"_s,
         .labelName = u"lblChanged"_s},
        {.control = u"lblEntryID"_s, .field = u"ENTRYID"_s, .kind = Caption, .label = u"Mail entry"_s, .labelName = u"lblEntry"_s}}, {}, 1);
    add(fields, u"panNotes"_s, {{.control = u"txtNotes"_s, .field = u"NOTES"_s, .kind = Rich, .spoken = u"Notes"_s}});
    add(fields, {}, {{.control = u"lblIDNum"_s, .field = u"ID"_s, .kind = Hidden},
                     {.control = u"txtFullName"_s, .field = u"FULLNAME"_s, .kind = Hidden, .spoken = u"Full name"_s},
                     {.control = u"lblFileAs"_s, .field = u"FILEAS"_s, .kind = Hidden},
                     {.control = u"lblNewImport"_s, .field = u"NEWIMPORT"_s, .kind = Hidden},
                     {.control = u"lblInvisible"_s, .field = u"INVISIBLE"_s, .kind = Hidden}});
}

std::vector<Field> contactFields()
{
    std::vector<Field> fields;
    addNames(fields);
    addAddresses(fields);
    addPhones(fields);
    addMails(fields);
    addDates(fields);
    addOthers(fields);
    return fields;
}

std::vector<Choices> contactLists()
{
    const auto places = [](const QString &part) {
        Choices list;
        QStringList queries;
        for (const QString &kind : {u"Home"_s, u"Business"_s, u"Other"_s, u"Mailing"_s}) {
            list.controls.push_back(u"cbo"_s + kind + u"Address"_s + part);
            queries += u"select distinct [%1ADDRESS%2] from [CONTACTS]"_s.arg(kind.toUpper(), part.toUpper());
        }
        list.sql = queries.join(u" UNION "_s) + u';';
        list.whenUsed = true;
        return list;
    };
    Choices reasons{.controls = {}, .starts = {}, .sql = u"select * from [Subjects];"_s, .field = u"SUBJECT"_s, .file = DataFile::Main};
    for (int i = 0; i < 6; ++i)
        reasons.controls.push_back(u"cboAnniversary(%1)"_s.arg(i));
    return {{{u"cboSalutation"_s}, {u"Mr."_s, u"Mrs."_s, u"Miss."_s, u"Ms."_s, u"Mr. & Mrs."_s, u"Dr."_s, u"Sir."_s}},
            {{u"cboGender"_s}, {u"Female"_s, u"Male"_s}},
            places(u"City"_s), places(u"State"_s), places(u"Country"_s),
            {.controls = {u"cboCategory"_s}, .starts = {}, .sql = u"select distinct [CATEGORY] from [CONTACTS];"_s, .whenUsed = true},
            reasons};
}

std::vector<PageBlock> contactPage()
{
    return {{u"COMPANY NAME  :"_s, u"txtCompanyName"_s}, {u"BUSINESS #  :"_s, u"txtABN"_s}, {u"CONTACT   :"_s, u"txtContact"_s},
            {u"POSITION  :"_s, u"txtJobTitle"_s}, {u"MANAGER'S NAME:"_s, u"txtManager"_s}, {u"ASSISTANT'S NAME :"_s, u"txtAssistantName"_s},
            {u"BUSINESS   :"_s, u"txtBusinessTelephoneNumber"_s}, {u"ASSISTANT   :"_s, u"txtAssistantTelephoneNumber"_s},
            {u"OTHER BUSINESS :"_s, u"txtBusiness2TelephoneNumber"_s}, {u"HOME   :"_s, u"txtHomeTelephoneNumber"_s},
            {u"WORK   :"_s, u"txtBusinessTelephoneNumber"_s}, {u"MOBILE :"_s, u"txtMobileTelephoneNumber"_s},
            {u"OTHER   :"_s, u"txtOtherTelephoneNumber"_s}, {u"FAX    :"_s, u"txtHomeFaxNumber"_s}, {u"CAR   :"_s, u"txtCarTelephoneNumber"_s},
            {u"CALLBACK   :"_s, u"txtCallbackTelephoneNumber"_s}, {u"RADIO   :"_s, u"txtRadioTelephoneNumber"_s},
            {u"PRIMARY   :"_s, u"txtPrimaryTelephoneNumber"_s}, {u"TELEX  :"_s, u"txtTelexNumber"_s}, {u"WEB PAGE  :"_s, u"txtWebpage"_s},
            {u"PROFESSION  :"_s, u"txtProfession"_s}, {u"JOB TITLE  :"_s, u"txtJobTitle"_s}, {u"DEPARTMENT :"_s, u"txtDepartment"_s},
            {u"OFFICE LOCATION :"_s, u"txtOfficeLocation"_s}, {u"HOBBY  :"_s, u"txtHobby"_s}, {u"HOME PAGE  :"_s, u"txtPersonalHomePage"_s},
            {u"FTP  :"_s, u"txtFTPSite"_s}, {u"ISDN  :"_s, u"txtISDNNumber"_s}};
}

}

const RecordDesign &contactsRecord()
{
    static const RecordDesign design{
        .letter = u"P"_s, .screen = u"frmContacts"_s, .title = u"Contacts"_s,
        .file = DataFile::Contacts, .table = u"Contacts"_s, .rows = u"SELECT * FROM [Contacts] WHERE [INVISIBLE]=False ORDER BY [SORTNAME]"_s,
        .dataControl = u"dtaContactsData"_s,
        .colourKey = u"ContactsBackColour"_s,
        .web = u"https://www.openstreetmap.org"_s,
        .nameControl = u"lblSortname"_s, .newFocus = u"txtSurname"_s,
        .emptyNote = u"PLEASE NOTE:\nThere is no contact to show.\nNew adds one; Categories brings back those that are put away."_s,
        .pageFile = u"\\CONTACT.HTML"_s, .pageHeading = u"CONTACT"_s,
        .tabStrip = u"SSTab1"_s, .search = u"UCASE([LASTNAME]) LIKE '%1*'"_s,
        .trees = {{u"cmdAll"_s, u"All"_s, u" People and businesses "_s, readContacts, u"SORTNAME"_s, {}},
                  {u"cmdBusiness"_s, u"Business"_s, u" Businesses "_s, readBusinesses, u"COMPANYNAME"_s, {}},
                  {u"cmdPrivate"_s, u"Private"_s, u" Private contacts "_s, readPrivateContacts, u"SORTNAME"_s, {}},
                  {u"cmdCategory"_s, u"Category"_s, u" By category "_s, readContactCategories, u"CATEGORY"_s, {}}},
        .rebuild = TreeRebuild::OnEverySave, .treeAfterDelete = TreeAfterDelete::SameMode, .deleteGoesBack = true,
        .panels = {{u"panPrivate"_s, u"Name"_s, 2}, {u"panAddress"_s, u"Address"_s, 2}, {u"panPhone"_s, u"Phone"_s, 2},
                   {u"panEmail"_s, u"E-mail"_s}, {u"panDates"_s, u"Dates"_s}, {u"panOther"_s, u"Other"_s, 2}, {u"panNotes"_s, u"Notes"_s},
                   {u"picPictures"_s, u"Pictures"_s, 1, u"Pics"_s, u" Add more pictures "_s}},
        .groups = {{u"fraPrivate"_s, u"Person"_s}, {u"fraBusiness"_s, u"Business"_s}, {u"fraLists"_s, u"Lists"_s},
                   {u"fraHomeAddress"_s, u"Home"_s}, {u"fraBusinessAddress"_s, u"Business"_s}, {u"fraOtherAddress"_s, u"Other"_s},
                   {u"fraMailingAddress"_s, u"Postal"_s}, {u"fraBirthdays"_s, u"Birthdays"_s}, {u"fraAnniversaries"_s, u"Anniversaries"_s}},
        .fields = contactFields(),
        .lists = contactLists(),
        .options = {{u"chkPrivate"_s, {u"fraPrivate"_s}, true}},
        .newRow = {{u"PRINT"_s, false}, {u"PRIVATE"_s, true}, {u"LASTNAME"_s}, {u"FIRSTNAME"_s}, {u"MIDDLENAME"_s}, {u"COMPANYNAME"_s},
                   {u"CATEGORY"_s}, {u"SORTNAME"_s}, {u"FULLNAME"_s}, {u"INVISIBLE"_s, false}},
        .page = contactPage(),
        .picturePanel = u"picPictures"_s,
        // Pictures go by the name, but those of another contact of that name stay.
        .childDeletes = {u"DELETE * FROM [CONTACTDATA] where [ID]=%id"_s,
                         u"DELETE * FROM [CONTACTDATA] where [USERNAME]=%name AND [ID] NOT IN (SELECT [ID] FROM [CONTACTS])"_s},
        .keys = {{u"cmdCats"_s, u"Cate&gories..."_s, u"folder"_s, u" Categories that are shown, or put away "_s},
                 {u"cmdUCase"_s, u"&Capitals"_s, {}, u" Writes all names in capitals, or as the setting of names in capitals says "_s},
                 {u"cmdOutlook"_s, u"Mail Boo&k"_s, u"view-pim-contacts"_s, u" Shows this Contact in the mail program "_s},
                 {u"cmdRefresh"_s, {}, u"view-refresh"_s, u" Reads the contacts anew "_s}},
    };
    return design;
}

}
