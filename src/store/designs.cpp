#include "store/designs.h"

#include "store/designfields.h"

namespace vorel::store {

using dao::TableDef;
using namespace design;
using namespace Qt::StringLiterals;

const std::vector<TableDef> &mainDesigns()
{
    // The period queries, the alerts and the roll-forward's look-up of the next occurrence all select by day, so the
    // three reminder tables get an index on it that is the store's own: the designs, which files are compared with,
    // know none.
    static const QStringList byDay = {u"DATE"_s};
    static const std::vector<TableDef> tables = {
        table(u"APPOINTMENTS"_s,
              {counter(u"ID"_s), date(u"DATE"_s), text(u"DAY"_s, 3), date(u"TIME"_s), text(u"APPTIME"_s, 11),
               text(u"APPOINTMENT"_s, 255), flag(u"MET"_s), flag(u"Delete"_s), integer(u"PeriodMonth"_s),
               integer(u"PeriodDays"_s), text(u"WeekNum"_s, 3), text(u"WeekDay"_s, 3), flag(u"TimeUpdate"_s),
               text(u"UsersName"_s, 20), longer(u"IDNUM"_s)}, {primaryKey()}, byDay),
        table(u"BILLS"_s,
              {counter(u"ID"_s), date(u"DATE"_s), text(u"DAY"_s, 3), text(u"BILL"_s, 100), money(u"AMOUNT"_s),
               text(u"OwingTo"_s, 100), flag(u"PAID"_s), integer(u"PeriodMonth"_s), integer(u"PeriodDays"_s),
               flag(u"Delete"_s), text(u"WeekNum"_s, 3), text(u"WeekDay"_s, 3), flag(u"FixedAmount"_s),
               date(u"BillingDate"_s), date(u"PaymentDate"_s), text(u"Website"_s, 200), text(u"UsersName"_s, 20),
               longer(u"IDNUM"_s)}, {}, byDay),
        table(u"EVENTS"_s,
              {counter(u"ID"_s), date(u"DATE"_s), text(u"DAY"_s, 3), text(u"SUBJECT"_s, 25), text(u"EVENT"_s, 250),
               text(u"DATETO"_s, 11), flag(u"Delete"_s), flag(u"Recurring"_s), text(u"FILENAME"_s, 100),
               text(u"MatchID"_s, 255), text(u"UsersName"_s, 20), longer(u"IDNUM"_s), flag(u"EMAIL"_s),
               text(u"EmailAddress"_s, 75), integer(u"EMAILID"_s), text(u"LastEmailDate"_s, 11), flag(u"Card"_s),
               flag(u"CardPurchased"_s), flag(u"CardSent"_s), longer(u"ContactID"_s), memo(u"FULLEVENT"_s)},
              {primaryKey()}, byDay),
        table(u"SUBJECTS"_s,
              {counter(u"ID"_s), text(u"SUBJECT"_s, 20)}, {primaryKey(), uniqueIndex(u"SUBJECT"_s, u"SUBJECT"_s)}),
        table(u"Setup"_s,
              {text(u"MailServer"_s, 70), integer(u"DeleteAfterDays"_s), integer(u"BackupAfterDays"_s),
               real(u"AdminPassword"_s), text(u"PasswordHint"_s, 255)}),
        table(u"MESSAGES"_s,
              {counter(u"ID"_s), date(u"DATE"_s), text(u"TO"_s, 30), text(u"FROM"_s, 30), memo(u"MESSAGE"_s),
               flag(u"Read"_s), flag(u"Delete"_s), text(u"UsersName"_s, 20), longer(u"IDNUM"_s)}, {primaryKey()}),
        table(u"INVENTORY"_s,
              {counter(u"ID"_s), text(u"ITEM"_s, 255), text(u"MAKE"_s, 100), text(u"MODEL"_s, 100),
               text(u"SERIALNUM"_s, 100), text(u"LOCATION"_s, 150), text(u"CATEGORY"_s, 100),
               text(u"DATEPURCHASED"_s, 11),
               text(u"PURCHASEDFROM"_s, 150), text(u"RECEIPTNUM"_s, 40), text(u"PAYMENTMETHOD"_s, 20), money(u"COST"_s),
               money(u"GST"_s), money(u"OTHERTAX"_s), text(u"DATEDISPOSED"_s, 11), text(u"DISPOSEDTO"_s, 150),
               money(u"DISPOSALCOST"_s), integer(u"WARRANTYPERIOD"_s), text(u"WARRANTYEXPIRYDATE"_s, 11),
               text(u"ONLOAN"_s, 60), flag(u"INSURED"_s), text(u"INSUREDWITH"_s, 150), text(u"POLICYNUM"_s, 40),
               text(u"INSUREDAMOUNT"_s, 10), text(u"INSURANCEEXPIRYDATE"_s, 11), text(u"FILENAME"_s, 255),
               memo(u"NOTES"_s),
               text(u"UsersName"_s, 20), longer(u"IDNUM"_s)}),
        table(u"Users"_s,
              {text(u"Name"_s, 30), text(u"Password"_s, 20), longer(u"IDNUM"_s)}),
        table(u"FILEBACKUP"_s,
              {counter(u"ID"_s), text(u"FILENAME"_s, 255), date(u"FILEDATE"_s), date(u"LASTBACKUPDATE"_s),
               integer(u"DAYS"_s), integer(u"BACKUPAFTERDAYS"_s), text(u"SOFTWARE"_s, 255), text(u"UsersName"_s, 20),
               longer(u"IDNUM"_s),
               text(u"FILECOPY"_s, 255)}),
        table(u"SHOPPING"_s,
              {counter(u"ID"_s), longer(u"IDNUM"_s), text(u"ITEM"_s, 255), integer(u"NUMBER"_s), real(u"LASTCOST"_s),
               real(u"AMOUNT"_s), real(u"TOTAL"_s), flag(u"PICK"_s), text(u"STORE"_s, 100), text(u"UsersName"_s, 20)}),
        table(u"TODO"_s,
              {counter(u"ID"_s), date(u"DATEDUE"_s), text(u"ToDo"_s, 255), text(u"Priority"_s, 25), flag(u"Actioned"_s),
               text(u"UsersName"_s, 20), longer(u"IDNUM"_s)}),
        table(u"PROFILE"_s,
              {counter(u"ID"_s), text(u"Surname"_s, 60), text(u"OtherNames"_s, 60), date(u"DOB"_s), date(u"DOP"_s),
               text(u"Category"_s, 50), text(u"FILENAME"_s, 255), memo(u"NOTES"_s), memo(u"OTHER"_s),
               text(u"UsersName"_s, 20), longer(u"IDNUM"_s)}),
        table(u"ProfileData"_s, withPictures({longer(u"ID"_s), text(u"PASSWORD"_s, 20), text(u"USERNAME"_s, 100)}, 6)),
    };
    return tables;
}

const std::vector<TableDef> &designsOf(DataFile file)
{
    switch (file) {
    case DataFile::Contacts: return contactsDesigns();
    case DataFile::Garden: return gardenDesigns();
    case DataFile::Movies: return moviesDesigns();
    case DataFile::Music: return musicDesigns();
    case DataFile::Books: return booksDesigns();
    case DataFile::Notes: return notesDesigns();
    case DataFile::HowTo: return howToDesigns();
    case DataFile::Recipe: return recipeDesigns();
    case DataFile::Sports: return sportsDesigns();
    case DataFile::Accounts: return accountsDesigns();
    case DataFile::DataP: return passwordsDesigns();
    case DataFile::DataJ: return journalDesigns();
    case DataFile::Main:
    case DataFile::Count: break;
    }
    return mainDesigns();
}

}
