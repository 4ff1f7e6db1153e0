#include "contacts/recordcase.h"

#include "contacts/contactname.h"
#include "platform/basic/convert.h"
#include "session/datafiles.h"
#include "session/recordtree.h"
#include "session/state.h"

namespace vorel::contacts {

using namespace Qt::StringLiterals;
using records::MixedCaseName;
using records::NameCase;

namespace {

// Rows whose texts stay the same are not written.
class Rewrite {
public:
    explicit Rewrite(dao::Recordset &row) : m_row(row) {}
    void set(QStringView field, const QString &text)
    {
        const dao::Value old = m_row.Get(field);
        if (old.text() == text)
            return;
        if (!std::exchange(m_editing, true))
            m_row.Edit();
        m_row.Set(field, text);
    }
    void save()
    {
        if (m_editing)
            m_row.Update();
    }

private:
    dao::Recordset &m_row;
    bool m_editing = false;
};

void convertContact(dao::Recordset &row, bool capitals)
{
    const dao::Value isPrivate = row.Get(u"PRIVATE");
    ContactName name{.isPrivate = !isPrivate.isNull() && basic::CBool(isPrivate),
                     .lastName = row.Get(u"LASTNAME").text(),
                     .firstName = MixedCaseName(row.Get(u"FIRSTNAME").text()),
                     .middleName = MixedCaseName(row.Get(u"MIDDLENAME").text()),
                     .companyName = row.Get(u"COMPANYNAME").text()};
    const ContactName ruled = applyNameRule(name, capitals);
    Rewrite write(row);
    write.set(u"FIRSTNAME", name.firstName);
    write.set(u"MIDDLENAME", name.middleName);
    write.set(u"LASTNAME", ruled.lastName);
    write.set(u"COMPANYNAME", ruled.companyName);
    write.set(u"SORTNAME", ruled.sortName);
    write.set(u"FULLNAME", ruled.fullName);
    write.set(u"FILEAS", ruled.fileAs);
    write.save();
}

void convert(DataFile file, const QString &sql, const std::function<void(dao::Recordset &)> &step)
{
    dao::Database database = openDataFile(file);
    dao::Transaction all(database);
    for (dao::Recordset rows = database.OpenRecordset(sql); !rows.EOF_(); rows.MoveNext())
        step(rows);
    all.Commit();
}

}

void ConvertRecordCase()
{
    const bool capitals = records::namesInCapitals();
    convert(DataFile::Contacts, u"SELECT * FROM [CONTACTS];"_s, [capitals](dao::Recordset &row) { convertContact(row, capitals); });
    struct Titles { DataFile file; QString sql, field; NameCase names; };
    const Titles titles[] = {{DataFile::Movies, u"SELECT * FROM [MOVIES];"_s, u"TITLE"_s, NameCase::Surnames},
                             {DataFile::Books, u"SELECT * FROM [BOOKS];"_s, u"TITLE"_s, NameCase::Surnames},
                             {DataFile::Music, u"SELECT * FROM [MUSIC];"_s, u"TITLE"_s, NameCase::Surnames},
                             {DataFile::Main, u"SELECT * FROM [INVENTORY];"_s, u"ITEM"_s, NameCase::Words},
                             {DataFile::Main, u"SELECT * FROM [EVENTS];"_s, u"SUBJECT"_s, NameCase::Surnames}};
    for (const Titles &one : titles) {
        convert(one.file, one.sql, [&](dao::Recordset &row) {
            const QString text = row.Get(one.field).text();
            Rewrite write(row);
            write.set(one.field, capitals ? text.toUpper() : MixedCaseName(text, one.names));
            write.save();
        });
    }
}

}
