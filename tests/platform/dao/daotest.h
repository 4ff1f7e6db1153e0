#pragma once

#include "platform/dao/dao.h"

#include <gtest/gtest.h>

#include <QByteArray>
#include <QFile>
#include <QTemporaryDir>
#include <sys/stat.h>
#include <unistd.h>

namespace vorel::dao::test {

using namespace Qt::StringLiterals;

inline const QString protectedConnect = u";pwd=SECRETWORD"_s;
inline const QString plainLocale = u";LANGID=0x0409;CP=1252;COUNTRY=0"_s;

// The number of the engine error that the step ends with, 0 if it passes.
template <class Step> int errorOf(const Step &step)
{
    try {
        step();
    } catch (const basic::Error &error) {
        return error.number();
    }
    return 0;
}

// A privileged user may do everything, so the test steps down for as long.
class SteppedDown {
public:
    SteppedDown() { EXPECT_TRUE(!m_privileged || ::seteuid(65534) == 0); }
    ~SteppedDown() { EXPECT_TRUE(!m_privileged || ::seteuid(0) == 0); }

private:
    const bool m_privileged = ::geteuid() == 0;
};
inline void setMode(const QString &what, mode_t bits)
{
    ASSERT_EQ(::chmod(what.toLocal8Bit().constData(), bits), 0);
}

class DaoTest : public ::testing::Test {
protected:
    QString path(const QString &name = u"DATA.MDB"_s) const { return m_folder.filePath(name); }
    QString folder() const { return m_folder.path(); }

    Database create(const QString &name = u"DATA.MDB"_s, const QString &more = {})
    {
        return DBEngine::CreateDatabase(path(name), plainLocale + more);
    }
    static QByteArray contentOf(const QString &file)
    {
        QFile opened(file);
        return opened.open(QIODevice::ReadOnly) ? opened.readAll() : QByteArray();
    }
    static void write(const QString &file, const QByteArray &content)
    {
        QFile opened(file);
        ASSERT_TRUE(opened.open(QIODevice::WriteOnly));
        ASSERT_EQ(opened.write(content), content.size());
    }

private:
    QTemporaryDir m_folder;
};

inline FieldDef counter(const QString &name)
{
    return { .Name = name, .Type = dbLong, .Size = 4, .Attributes = dbAutoIncrField };
}
inline FieldDef text(const QString &name, int size)
{
    return { .Name = name, .Type = dbText, .Size = size, .AllowZeroLength = true };
}
inline FieldDef field(const QString &name, DataType type, int size, const QString &start = {})
{
    return { .Name = name, .Type = type, .Size = size, .DefaultValue = start };
}
inline IndexDef primaryKey()
{
    return { .Name = u"PrimaryKey"_s, .Fields = { u"ID"_s }, .Primary = true, .Unique = true, .Required = true };
}

// A table with a field of every kind.
inline TableDef sample(const QString &name = u"SAMPLE"_s)
{
    return { .Name = name,
             .Fields = { counter(u"ID"_s), text(u"NAME"_s, 20), field(u"DAY"_s, dbDate, 8),
                         field(u"PRICE"_s, dbCurrency, 8, u"0"_s), field(u"FLAG"_s, dbBoolean, 1),
                         field(u"SMALL"_s, dbInteger, 2, u"0"_s), field(u"LARGE"_s, dbLong, 4, u"0"_s),
                         field(u"TINY"_s, dbByte, 1, u"0"_s), field(u"HALF"_s, dbSingle, 4, u"0"_s),
                         field(u"WHOLE"_s, dbDouble, 8, u"0"_s),
                         { .Name = u"NOTE"_s, .Type = dbMemo, .AllowZeroLength = true },
                         { .Name = u"PICTURE"_s, .Type = dbLongBinary } },
             .Indexes = { primaryKey() } };
}

// One with a unique index.
inline TableDef subjects()
{
    return { .Name = u"SUBJECTS"_s, .Fields = { counter(u"ID"_s), text(u"SUBJECT"_s, 20) },
             .Indexes = { primaryKey(), { u"SUBJECT"_s, { u"SUBJECT"_s }, false, true, false } },
             .Helpers = { u"SUBJECT"_s } };
}

using Values = std::initializer_list<std::pair<QStringView, Value>>;
inline void set(Recordset &rows, Values values)
{
    for (const auto &[name, value] : values)
        rows.Set(name, value);
    rows.Update();
}
inline void add(Recordset &rows, Values values = {})
{
    rows.AddNew();
    set(rows, values);
}
inline void edit(Recordset &rows, Values values)
{
    rows.Edit();
    set(rows, values);
}

// A file with the sample table and rows whose NAME is given and whose LARGE is the row's number from 1.
inline void addRows(Database &database, const QStringList &names)
{
    Transaction all(database);
    Recordset rows = database.OpenRecordset(u"SAMPLE"_s);
    for (qsizetype i = 0; i < names.size(); ++i)
        add(rows, { { u"NAME", names[i] }, { u"LARGE", static_cast<int>(i) + 1 } });
    rows.Close();
    all.Commit();
}

}
