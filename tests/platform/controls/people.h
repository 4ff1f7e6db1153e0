#pragma once

#include "platform/controls/datacontrol.h"
#include "support/testfolder.h"

// A small table that every kind of field occurs in.
namespace vorel::test {

class People {
public:
    People()
    {
        using namespace Qt::StringLiterals;
        dao::Database database = dao::DBEngine::CreateDatabase(file(), u";LANGID=0x0409;CP=1252;COUNTRY=0"_s);
        dao::TableDef design;
        design.Name = u"People"_s;
        design.Fields = {{.Name = u"ID"_s, .Type = dao::dbLong, .Size = 4, .Attributes = dao::dbAutoIncrField},
                         {.Name = u"Name"_s, .Type = dao::dbText, .Size = 20},
                         {.Name = u"Email"_s, .Type = dao::dbText, .Size = 20, .AllowZeroLength = true},
                         {.Name = u"Notes"_s, .Type = dao::dbMemo},
                         {.Name = u"Owed"_s, .Type = dao::dbCurrency, .Size = 8},
                         {.Name = u"Born"_s, .Type = dao::dbDate, .Size = 8},
                         {.Name = u"Friend"_s, .Type = dao::dbBoolean, .Size = 1},
                         {.Name = u"Age"_s, .Type = dao::dbInteger, .Size = 2}};
        design.Indexes = {{u"PrimaryKey"_s, {u"ID"_s}, true, true, true}, {u"ByName"_s, {u"Name"_s}, false, true, false}};
        database.AppendTable(design);
        for (const QString &name : {u"Ann"_s, u"Bob"_s, u"Cid"_s})
            database.Execute(u"INSERT INTO [People] ([Name],[Age]) VALUES ('%1',30)"_s.arg(name));
        database.Close();
    }

    QString file() const { return m_folder.path(QStringLiteral("people.mdb")); }
    const TestFolder &folder() const { return m_folder; }

    void open(controls::DataControl &control, const QString &sql = QStringLiteral("SELECT * FROM [People] ORDER BY [ID]")) const
    {
        control.setDatabaseName(file());
        control.setConnect(QStringLiteral("Access"));
        control.setRecordSource(sql);
        control.Refresh();
    }

    // Through a handle of its own, as any other routine would.
    void execute(const QString &sql) const
    {
        dao::Database other = dao::DBEngine::OpenDatabase(file());
        other.Execute(sql);
        other.Close();
    }
    dao::Value stored(int id, const QString &field) const
    {
        dao::Database other = dao::DBEngine::OpenDatabase(file());
        dao::Recordset rows = other.OpenRecordset(QStringLiteral("SELECT [%1] FROM [People] WHERE [ID]=%2").arg(field).arg(id),
                                                  dao::dbOpenSnapshot);
        dao::DBEngine::Idle(dao::dbRefreshCache);
        return rows.EOF_() ? dao::Value() : rows.Get(0);
    }
    QString text(int id, const QString &field) const { return stored(id, field).text(); }

private:
    TestFolder m_folder;
};

}
