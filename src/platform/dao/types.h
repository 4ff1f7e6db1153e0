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

// The engine's error numbers, DAO's own.
namespace err {
enum Number : int {
    TableExists = 3010,
    ObjectNotFound = 3011,
    FieldNotFound = 3018,
    NoEditPending = 3020,
    NoCurrentRecord = 3021,
    DuplicateValue = 3022,
    FileNotFound = 3024,
    DiskFull = 3026,
    ReadOnly = 3027,
    WrongPassword = 3031,
    NoTransaction = 3034,
    OutOfResources = 3035,
    DiskError = 3043,
    NoSuchPath = 3044,
    FileInUse = 3045,
    Damaged = 3049,
    NoPermission = 3051,
    NullInIndex = 3058,
    Canceled = 3059,
    TooFewParameters = 3061,
    DuplicateAlias = 3062,
    DuplicateDestination = 3063,
    SelectExecuted = 3065,
    UnknownNameInExpression = 3070,
    QuerySyntax = 3075,
    ExpressionSyntax = 3077,
    TableNotFound = 3078,
    AmbiguousField = 3079,
    UndefinedFunction = 3085,
    OrderConflictsWithDistinct = 3093,
    AggregateInWhere = 3096,
    CircularAlias = 3103,
    NotInAggregate = 3122,
    BadBracketing = 3126,
    UnknownInsertField = 3127,
    InvalidStatement = 3129,
    DeleteSyntax = 3130,
    FromSyntax = 3131,
    InsertSyntax = 3134,
    JoinSyntax = 3135,
    OrderBySyntax = 3138,
    SelectSyntax = 3141,
    TrailingCharacters = 3142,
    UpdateSyntax = 3144,
    BadBookmark = 3159,
    NullAssigned = 3162,
    TooLong = 3163,
    FieldLocked = 3164,
    RecordDeleted = 3167,
    DateOutOfRange = 3175,
    TooManyFields = 3190,
    FieldDefinedTwice = 3191,
    ChangedByOther = 3197,
    DatabaseExists = 3204,
    Locked = 3218,
    InvalidOperation = 3219,
    NotSupported = 3251,
    ItemNotFound = 3265,
    InvalidProperty = 3271,
    FieldInUse = 3280,
    PrimaryKeyExists = 3283,
    IndexExists = 3284,
    ConstraintSyntax = 3289,
    CreateTableSyntax = 3290,
    CreateIndexSyntax = 3291,
    FieldSyntax = 3292,
    AlterTableSyntax = 3293,
    DropSyntax = 3295,
    TooManyFieldsInSubquery = 3306,
    UnionColumnsDiffer = 3307,
    ValueRequired = 3314,
    ZeroLengthText = 3315,
    ValidationRule = 3317,
    UnknownFormat = 3343,
    ValueCountDiffers = 3346,
    NumericOverflow = 3349,
    OrderNotSelected = 3351,
    OpenedExclusively = 3356,
    TooComplex = 3360,
    NoSuchIndex = 3372,
    NoSuchTable = 3376,
    FieldExists = 3380,
    ObjectInvalid = 3420,
    Conversion = 3421,
    CriteriaMismatch = 3464
};
}

// An engine failure with DAO's number and text ("No current record." is 3021).
class EngineError : public basic::Error {
public:
    // The standard text of the number; `|` replaced by the insert.
    explicit EngineError(int number, const QString &insert = {});
    EngineError(int number, QString fullText, std::nullptr_t);
    static QString standardText(int number);
};

}
