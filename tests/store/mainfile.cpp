#include "store/mainfile.h"

#include "frame/startup.h"
#include "session/datafiles.h"
#include "store/designs.h"
#include "store/rebuild.h"

#include <QTemporaryDir>

namespace vorel::test {

MainFileTest::MainFileTest()
{
    setRegion(u"en_US"_s);
    state() = State{};
    state().path(DataFile::Main) = m_folder.path(u"VOREL.MDB"_s);
    UpgradeDatabase(DataFile::Main, path(), store::currentVersion);
    UpgradeAllDatabases();
}

MainFileTest::~MainFileTest()
{
    state() = State{};
}

void MainFileTest::setToday(const QString &isoDate)
{
    m_clock.set(QDate::fromString(isoDate, Qt::ISODate), QTime(12, 0));
}

void MainFileTest::setRegion(const QString &name)
{
    basic::setRegional(basic::regionalFor(name));
}

void MainFileTest::execute(const QString &sql) const
{
    dao::Database database = open();
    database.Execute(sql);
    database.Close();
}

QStringList MainFileTest::rows(const QString &sql) const
{
    dao::Database database = open();
    QStringList lines = rowsOf(database, sql);
    database.Close();
    return lines;
}

QStringList MainFileTest::rowsOf(dao::Database &database, const QString &sql)
{
    dao::Recordset set = database.OpenRecordset(sql, dao::dbOpenSnapshot);
    QStringList lines;
    for (; !set.EOF_(); set.MoveNext()) {
        QStringList cells;
        for (int column = 0; column < static_cast<int>(set.Fields().size()); ++column)
            cells << shown(set.Get(column));
        lines << cells.join(u'|');
    }
    set.Close();
    return lines;
}

qsizetype MainFileTest::count(const QString &table) const
{
    return rows(u"SELECT COUNT(*) FROM ["_s + table + u']').value(0).toInt();
}

QByteArray MainFileTest::bytes() const
{
    return m_folder.read(u"VOREL.MDB"_s);
}

// Made once and copied: the keys of the protected ones take their time.
void putEmptyFiles(const QString &folder)
{
    static const QTemporaryDir made;
    static const bool ready = [] {
        const State before = std::exchange(state(), State{});
        for (const DataFileEntry &entry : dataFiles()) {
            state().path(entry.file) = made.filePath(entry.defaultName.mid(1));
            UpgradeDatabase(entry.file, state().path(entry.file), store::currentVersion);
        }
        UpgradeAllDatabases();
        state() = before;
        return true;
    }();
    ASSERT_TRUE(ready);
    for (const DataFileEntry &entry : dataFiles()) {
        const QString name = entry.defaultName.mid(1);
        ASSERT_TRUE(QFile::exists(folder + u'/' + name) || QFile::copy(made.filePath(name), folder + u'/' + name));
    }
}

QString shown(const basic::Value &value)
{
    if (value.isNull())
        return u"Null"_s;
    if (!value.isDate())
        return value.text();
    const QString stored = value.get<basic::DateTime>().toStored();
    return stored.endsWith(u" 00:00:00") ? stored.left(10) : stored;
}

int errorOf(const std::function<void()> &step)
{
    return basic::IgnoreErrors(step);
}

}
