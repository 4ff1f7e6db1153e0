#pragma once

#include "platform/dao/types.h"

#include <QStringView>

namespace vorel::dao::jet {

// How the emitter writes a call; Plain passes the arguments to the SQL function of the same catalogue row.
enum class CallForm { Plain, Left, Right, Mid, InStr, IIf, Switch, Choose, IsNull, Convert, Int, Fix, Abs, Round };

// A function of the runtime's library as a query may call it.
struct FunctionInfo {
    QStringView name;
    CallForm form;
    const char *sql;
    // One letter an argument, the optional ones after '|': T text, N number, L whole number, D date,
    // V any value followed by its type number, A as it is. Ignored where the form handles its own arguments.
    const char *parameters;
    DataType type;              // of the result; dbUnknown where it follows from the arguments
    int minimum() const;
    int maximum() const;
};

// nullptr if there is no such function. The name in capitals, without a $.
const FunctionInfo *findFunction(QStringView name);

// What reads a text field as a date where a Between sets it against date literals; no query names it.
const FunctionInfo &textAsDate();

bool isTextType(DataType type);
bool isNumericType(DataType type);      // Boolean and Currency included
bool isIntegerType(DataType type);      // Boolean included
// The type that holds values of both; dbUnknown is Null's.
DataType commonType(DataType a, DataType b);
// The type in which the operands of a comparison meet; throws 3464 where text meets a number or a date.
DataType comparisonType(DataType a, DataType b);

}
