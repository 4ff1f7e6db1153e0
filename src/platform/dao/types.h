#pragma once

#include "platform/basic/error.h"
#include "platform/basic/value.h"

namespace vorel::dao {

using basic::Value;

// DAO's numbers of the field types.
enum DataType : int {
    dbUnknown = 0,
    dbBoolean = 1,
    dbByte = 2,
    dbInteger = 3,      // 16 bit
    dbLong = 4,         // 32 bit
    dbCurrency = 5,
    dbSingle = 6,
    dbDouble = 7,
    dbDate = 8,
    dbText = 10,        // up to 255 characters
    dbLongBinary = 11,
    dbMemo = 12
};

inline constexpr int dbAutoIncrField = 16;      // Field.Attributes
inline constexpr int dbRefreshCache = 8;        // DBEngine.Idle
inline constexpr int dbVersion30 = 32;

enum RecordsetType : int { dbOpenTable = 1, dbOpenDynaset = 2, dbOpenSnapshot = 4 };

// An engine failure with DAO's number and text ("No current record." is 3021).
class EngineError : public basic::Error {
public:
    // The standard text of the number; `|` replaced by the insert.
    explicit EngineError(int number, const QString &insert = {});
    EngineError(int number, QString fullText, std::nullptr_t);
    static QString standardText(int number);
};

}
