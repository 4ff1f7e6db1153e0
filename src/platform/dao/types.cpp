#include "platform/dao/types.h"

#include <algorithm>
#include <iterator>

namespace vorel::dao {

namespace {

struct Text {
    int number;
    const char16_t *text;
};

// In ascending order of the numbers; `|` marks the place of the insert.
constexpr Text texts[] = {
    { 3010, u"Table '|' already exists." },
    { 3011, u"The database engine could not find the object '|'. Make sure the object exists and that you spell its name and "
            u"the path name correctly." },
    { 3012, u"Object '|' already exists." },
    { 3015, u"'|' is not an index in this table." },
    { 3018, u"Could not find field '|'." },
    { 3020, u"Update or CancelUpdate without AddNew or Edit." },
    { 3021, u"No current record." },
    { 3022, u"The changes you requested to the table were not successful because they would create duplicate values in the "
            u"index, primary key, or relationship. Change the data in the field or fields that contain duplicate data, remove "
            u"the index, or redefine the index to permit duplicate entries and try again." },
    { 3024, u"Could not find file '|'." },
    { 3026, u"Not enough space on disk." },
    { 3027, u"Cannot update. Database or object is read-only." },
    { 3031, u"Not a valid password." },
    { 3034, u"You tried to commit or roll back a transaction without first using BeginTrans." },
    { 3035, u"System resource exceeded." },
    { 3043, u"Disk or network error." },
    { 3044, u"'|' is not a valid path. Make sure that the path name is spelled correctly and that you are connected to the "
            u"server on which the file resides." },
    { 3045, u"Could not use '|'; file already in use." },
    { 3049, u"Cannot open database '|'. It may not be a database that your application recognizes, or the file may be "
            u"corrupt." },
    { 3051, u"The database engine cannot open the file '|'. It is already opened exclusively by another user, or you need "
            u"permission to view its data." },
    { 3058, u"Index or primary key cannot contain a Null value." },
    { 3059, u"Operation canceled by user." },
    { 3061, u"Too few parameters. Expected |." },
    { 3062, u"Duplicate output alias '|'." },
    { 3063, u"Duplicate output destination '|'." },
    { 3065, u"Cannot execute a select query." },
    { 3067, u"Query input must contain at least one table or query." },
    { 3070, u"The database engine does not recognize '|' as a valid field name or expression." },
    { 3075, u"Syntax error in query expression '|'." },
    { 3077, u"Syntax error in expression." },
    { 3078, u"The database engine cannot find the input table or query '|'. Make sure it exists and that its name is spelled "
            u"correctly." },
    { 3079, u"The specified field '|' could refer to more than one table listed in the FROM clause of your SQL statement." },
    { 3082, u"JOIN operation '|' refers to a field that is not in one of the joined tables." },
    { 3085, u"Undefined function '|' in expression." },
    { 3093, u"ORDER BY clause (|) conflicts with DISTINCT." },
    { 3095, u"Cannot have aggregate function in expression (|)." },
    { 3096, u"Cannot have aggregate function in WHERE clause (|)." },
    { 3103, u"Circular reference caused by alias '|' in query definition's SELECT list." },
    { 3122, u"You tried to execute a query that does not include the specified expression '|' as part of an aggregate "
            u"function." },
    { 3126, u"Invalid bracketing of name '|'." },
    { 3127, u"The INSERT INTO statement contains the following unknown field name: '|'. Make sure you have typed the name "
            u"correctly, and try the operation again." },
    { 3129, u"Invalid SQL statement; expected 'DELETE', 'INSERT', 'PROCEDURE', 'SELECT', or 'UPDATE'." },
    { 3130, u"Syntax error in DELETE statement." },
    { 3131, u"Syntax error in FROM clause." },
    { 3134, u"Syntax error in INSERT INTO statement." },
    { 3135, u"Syntax error in JOIN operation." },
    { 3138, u"Syntax error in ORDER BY clause." },
    { 3141, u"The SELECT statement includes a reserved word or an argument name that is misspelled or missing, or the "
            u"punctuation is incorrect." },
    { 3142, u"Characters found after end of SQL statement." },
    { 3144, u"Syntax error in UPDATE statement." },
    { 3145, u"Syntax error in WHERE clause." },
    { 3159, u"Not a valid bookmark." },
    { 3162, u"You tried to assign the Null value to a variable that is not a Variant data type." },
    { 3163, u"The field is too small to accept the amount of data you attempted to add. Try inserting or pasting less data." },
    { 3164, u"The field cannot be updated because another user or process has locked the corresponding record or table." },
    { 3167, u"Record is deleted." },
    { 3175, u"Date is out of range or is in an invalid format." },
    { 3187, u"Could not read; currently locked by another user or process." },
    { 3190, u"Too many fields defined." },
    { 3191, u"Cannot define field more than once." },
    { 3196, u"The database '|' is already in use by another person or process. When the database is available, try the "
            u"operation again." },
    { 3197, u"The database engine stopped the process because you and another user are attempting to change the same data at "
            u"the same time." },
    { 3200, u"The record cannot be deleted or changed because table '|' includes related records." },
    { 3201, u"You cannot add or change a record because a related record is required in table '|'." },
    { 3204, u"Database already exists." },
    { 3211, u"The database engine could not lock table '|' because it is already in use by another person or process." },
    { 3218, u"Could not update; currently locked." },
    { 3219, u"Invalid operation." },
    { 3251, u"Operation is not supported for this type of object." },
    { 3265, u"Item not found in this collection." },
    { 3270, u"Property not found." },
    { 3271, u"Invalid property value." },
    { 3280, u"Cannot delete a field that is part of an index or is needed by the system." },
    { 3283, u"Primary key already exists." },
    { 3284, u"Index already exists." },
    { 3289, u"Syntax error in CONSTRAINT clause." },
    { 3290, u"Syntax error in CREATE TABLE statement." },
    { 3291, u"Syntax error in CREATE INDEX statement." },
    { 3292, u"Syntax error in field definition." },
    { 3293, u"Syntax error in ALTER TABLE statement." },
    { 3294, u"Syntax error in DROP INDEX statement." },
    { 3295, u"Syntax error in DROP TABLE or DROP INDEX." },
    { 3306, u"You have written a subquery that can return more than one field without using the EXISTS reserved word in the "
            u"main query's FROM clause. Revise the SELECT statement of the subquery to request only one field." },
    { 3307, u"The number of columns in the two selected tables or queries of a union query do not match." },
    { 3314, u"The field '|' cannot contain a Null value because the Required property for this field is set to True. Enter a "
            u"value in this field." },
    { 3315, u"Field '|' cannot be a zero-length string." },
    { 3317, u"One or more values are prohibited by the validation rule '|'." },
    { 3326, u"This Recordset is not updatable." },
    { 3343, u"Unrecognized database format '|'." },
    { 3346, u"Number of query values and destination fields are not the same." },
    { 3349, u"Numeric field overflow." },
    { 3351, u"The ORDER BY expression (|) includes fields that are not selected by the query. Only those fields requested in "
            u"the first query can be included in an ORDER BY expression." },
    { 3356, u"The database '|' is already opened exclusively by another user or process. Try again when the database is "
            u"available." },
    { 3360, u"Query is too complex." },
    { 3372, u"No such index '|'." },
    { 3376, u"Table '|' does not exist." },
    { 3380, u"Field '|' already exists in table." },
    { 3420, u"Object is invalid or no longer set." },
    { 3421, u"Data type conversion error." },
    { 3464, u"Data type mismatch in criteria expression." },
};

}

QString EngineError::standardText(int number)
{
    const auto found = std::lower_bound(std::begin(texts), std::end(texts), number,
                                        [](const Text &entry, int wanted) { return entry.number < wanted; });
    if (found != std::end(texts) && found->number == number)
        return QString::fromUtf16(found->text);
    if (number < 3000)
        return basic::BasicError::standardText(number);
    return QStringLiteral("The database engine reported error %1.").arg(number);
}

EngineError::EngineError(int number, const QString &insert)
    : Error(number, standardText(number).replace(u'|', insert))
{
}

EngineError::EngineError(int number, QString fullText, std::nullptr_t) : Error(number, std::move(fullText)) {}

}
