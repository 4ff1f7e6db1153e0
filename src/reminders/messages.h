#pragma once

#include "platform/dao/dao.h"

#include <QString>
#include <QStringList>

// Messages between the users of one file, the line of hints, and whether a backup is due.
namespace vorel {

bool messagesWait();                        // unread ones to the current user. Engine errors
bool backupsAreDue();                       // Engine errors

// What panInfo shows: the program's name and version, with a hint in front of it when hints are on and there is one.
QString infoLine(const QString &hint);

enum class MessageView { Sent, Received, Both };
QString messageQuery(MessageView view);     // of the section's grid; Both is the section's own

// Everyone that a message can go to or come from, for the two lists. Engine errors.
QStringList messageNames();
// Adds a message from the current user, dated now to the minute, and returns its place. Engine errors leave no row.
dao::Bookmark addMessage(dao::Recordset &rows);
// Removes the message again if nobody is named in it and nothing is written. Engine errors.
void removeEmptyMessage(dao::Database &file, qint32 id);
// Over the network's message service: a system without one keeps the message in the file alone.
void SendNetMessage(const QString &to, const QString &from, const QString &message);

}
