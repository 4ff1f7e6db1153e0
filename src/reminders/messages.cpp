#include "reminders/messages.h"

#include "platform/basic/clock.h"
#include "platform/basic/convert.h"
#include "platform/basic/dates.h"
#include "platform/basic/error.h"
#include "session/datafiles.h"
#include "session/sectiondesign.h"
#include "session/shared.h"
#include "session/state.h"

namespace vorel {

using namespace Qt::StringLiterals;
using basic::Value;

namespace {

constexpr qsizetype nameSize = 30, ownerSize = 20;      // of FROM, of UsersName

// Strictly more days than set since the last backup, and the file has changed since.
bool isDue(const dao::Recordset &files)
{
    const Value last = files.Get(u"LASTBACKUPDATE");
    if (last.isNull() || !basic::IsDate(last))
        return false;
    return basic::DateDiff(u"d", basic::CDate(last), basic::Date()) > basic::valOr(files.Get(u"BACKUPAFTERDAYS").text(), 0)
        && files.Get(u"FILEDATE").text() != last.text();
}

}

bool messagesWait()
{
    if (!state().gMainDb)
        return false;
    dao::Recordset waiting = state().gMainDb.CreateSnapshot(
        u"select * FROM [Messages] WHERE [Read]=False AND [To]="_s + dao::literal(state().settings.gUserName) + u';');
    dao::DBEngine::Idle(dao::dbRefreshCache);
    const bool any = waiting.rowTotal() > 0;
    waiting.Close();
    return any;
}

bool backupsAreDue()
{
    if (!state().gMainDb)
        return false;
    dao::Recordset files = state().gMainDb.CreateSnapshot(u"select * from [FILEBACKUP];"_s);
    bool due = false;
    for (; !files.EOF_() && !due; files.MoveNext())
        due = isDue(files);
    files.Close();
    return due;
}

QString infoLine(const QString &hint)
{
    const QString program = state().gProductTitle + u"  Version "_s + QStringLiteral(VOREL_VERSION);
    return !state().settings.gTips || hint.isEmpty() ? program : hint + u" ........... "_s + program;
}

QString messageQuery(MessageView view)
{
    const QString own = sectionDesign(SectionId::Messages).list->query;
    if (view == MessageView::Both)
        return own;
    const QString field = view == MessageView::Sent ? u"FROM"_s : u"TO"_s;
    return u"SELECT [ID],[Date],[From],[To],[Message],[Read] FROM [Messages] WHERE [%1]="_s.arg(field)
        + dao::literal(state().settings.gUserName) + u" ORDER BY [DATE],[FROM]"_s;
}

QStringList messageNames()
{
    dao::Database file = openDataFile(DataFile::Main);
    dao::Recordset found = file.CreateSnapshot(
        u"select distinct [Name] from [Users] UNION SELECT DISTINCT [TO] FROM [MESSAGES] UNION SELECT DISTINCT [FROM] FROM [MESSAGES];"_s);
    QStringList names;
    for (; !found.EOF_(); found.MoveNext())
        if (const QString name = found.Get(0).text(); !name.trimmed().isEmpty())
            names << name;
    found.Close();
    file.Close();
    return names;
}

dao::Bookmark addMessage(dao::Recordset &rows)
{
    const basic::DateTime now = basic::Now();
    const QTime time = now.time();
    dao::NewRow row(rows);
    row.set(u"Date", basic::DateTime::fromParts(now.year(), now.month(), now.day(), time.hour(), time.minute()));
    row.set(u"From", state().settings.gUserName.left(nameSize)).set(u"UsersName", state().settings.gUserName.left(ownerSize));
    row.save();
    return rows.LastModified();
}

void removeEmptyMessage(dao::Database &file, qint32 id)
{
    file.Execute(u"DELETE * FROM [MESSAGES] WHERE [ID]="_s + dao::literal(id)
                 + u" AND ([TO] IS NULL OR [TO]='') AND ([MESSAGE] IS NULL OR [MESSAGE]='')"_s);
}

void SendNetMessage(const QString &to, const QString &from, const QString &message)
{
    NetSend(to, u"From: "_s + from + u' ' + message);
}

}
