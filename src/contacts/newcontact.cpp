#include "contacts/newcontact.h"

#include "platform/basic/convert.h"
#include "session/datafiles.h"
#include "session/state.h"

namespace vorel::contacts {

using namespace Qt::StringLiterals;

qint32 addContact(const NewContact &contact)
{
    constexpr int ownerSize = 20;
    dao::Database file = openDataFile(DataFile::Contacts);
    dao::Transaction all(file);
    dao::Recordset rows = file.OpenRecordset(u"select * FROM [Contacts];"_s);
    const ContactName &name = contact.name;
    dao::NewRow(rows)
        .set(u"FIRSTNAME", name.firstName)
        .set(u"LASTNAME", name.lastName)
        .set(u"COMPANYNAME", name.companyName)
        .set(u"PRIVATE", name.isPrivate)
        .set(u"FILEAS", name.fileAs)
        .set(u"SORTNAME", name.sortName)
        .set(u"GENDER", contact.gender)
        .set(u"TITLE", contact.title)
        .set(u"FULLNAME", name.fullName)
        .set(u"ASSISTANTNAME", contact.assistant)
        .set(u"GOVERNMENTIDNUMBER", contact.businessNumber)
        .set(u"CONTACT", contact.contact)
        .set(u"MIDDLENAME", name.middleName)
        .set(u"MANAGERNAME", contact.manager)
        .set(u"INVISIBLE", false)
        .set(u"USERSNAME", state().settings.gUserName.left(ownerSize))
        .save();
    rows.setBookmark(rows.LastModified());
    const qint32 id = basic::CLng(rows.Get(u"ID"));
    all.Commit();
    return id;
}

qsizetype countOfName(const QString &databasePath, const QString &fullName)
{
    dao::Database file = openDataFileAt(databasePath);
    return file.CreateSnapshot(u"SELECT [FULLNAME] FROM [Contacts] WHERE UCASE([FULLNAME]) ="_s + dao::literal(fullName.toUpper()) + u';')
        .rowTotal();
}

}
