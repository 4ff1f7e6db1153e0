#include "platform/dao/jet/jetstore.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;
using namespace vorel::dao;
using namespace vorel::dao::jet;

namespace {

struct Errors : testing::Test {
    void SetUp() override
    {
        store.add(u"T"_s, u"ID auto, Name text 5, Day date, Cost currency, Flag boolean"_s);
        store.raw("INSERT INTO T (ID) VALUES (1)");
        store.add(u"U"_s, u"ID auto, Name text 5, Strict text 5 x, Small integer"_s);
    }
    JetStore store;
};

}

TEST_F(Errors, NumbersAndTexts)
{
    struct Case { const char *query; const char *failure; };
    const Case cases[] = {
        {"SELECT * FROM [T] WHERE [Name]='O'Brien' AND [Day]<>#01/02/2020#",
         "3075 Syntax error (missing operator) in query expression '[Name]='O'Brien' AND [Day]<>#01/02/2020#'."},
        {"SELECT * FROM [T] WHERE [Name]='O'Brien';", "3075 Syntax error (missing operator) in query expression '[Name]='O'Brien';'."},
        {"SELECT * FROM T WHERE Name='abc ORDER BY Name", "3075 Syntax error in string in query expression 'Name='abc ORDER BY Name'."},
        {"SELECT * FROM T WHERE Name= ORDER BY Name", "3075 Syntax error (missing operator) in query expression 'Name='."},
        {"SELECT * FROM T WHERE Day=## AND ID=1 ORDER BY ID;", "3075 Syntax error in date in query expression 'Day=## AND ID=1'."},
        {"SELECT * FROM T WHERE Day=#1/1/2020", "3075 Syntax error in date in query expression 'Day=#1/1/2020'."},
        {"SELECT * FROM T WHERE (ID=1 ORDER BY ID", "3075 Syntax error (missing operator) in query expression '(ID=1 ORDER BY ID'."},
        {"SELECT * FROM T WHERE (ID=1", "3075 Missing ), ], or Item in query expression '(ID=1'."},
        {"SELECT * FROM T WHERE ID=1)", "3075 Extra ) in query expression 'ID=1)'."},
        {"SELECT * FROM T WHERE ID=1,2", "3075 Syntax error (comma) in query expression 'ID=1,2'."},
        {"DELETE * FROM T WHERE ID==1", "3075 Syntax error (missing operator) in query expression 'ID==1'."},
        {"SELECT ID Name FROM T", "3075 Syntax error (missing operator) in query expression 'ID Name'."},
        {"SELECT * FROM T WHERE [Name='x'", "3126 Invalid bracketing of name 'Name='x''."},
        {"SELECT * FROM T WHERE Nmae='x' AND nmae='y' AND Other=1", "3061 Too few parameters. Expected 2."},
        {"SELECT * FROM T WHERE X.Name='x'", "3061 Too few parameters. Expected 1."},
        {"UPDATE T SET Nope=1", "3061 Too few parameters. Expected 1."},
        {"SELECT * FROM T, U WHERE Name='x'",
         "3079 The specified field 'Name' could refer to more than one table listed in the FROM clause of your SQL statement."},
        {"SELECT Foo(ID) FROM T", "3085 Undefined function 'FOO' in expression."},
        {"SELECT * FROM T; SELECT * FROM U", "3142 Characters found after end of SQL statement."},
        {"SELECT * FROM T WHERE Name=5", "3464 Data type mismatch in criteria expression."},
        {"SELECT ID*2 AS ID FROM T", "3103 Circular reference caused by alias 'ID' in query definition's SELECT list."},
        {"INSERT INTO T (ID, Nope) VALUES (1, 2)",
         "3127 The INSERT INTO statement contains the following unknown field name: 'Nope'. Make sure you have typed the name "
         "correctly, and try the operation again."},
        {"INSERT INTO T (ID, Name) VALUES (1)", "3346 Number of query values and destination fields are not the same."},
        {"INSERT INTO T (Name) VALUES ('abcdef')",
         "3163 The field is too small to accept the amount of data you attempted to add. Try inserting or pasting less data."},
        {"UPDATE T SET Name='abc' & 'def'",
         "3163 The field is too small to accept the amount of data you attempted to add. Try inserting or pasting less data."},
        {"INSERT INTO U (Strict) VALUES ('')", "3315 Field 'Strict' cannot be a zero-length string."},
        {"FETCH T", "3129 Invalid SQL statement; expected 'DELETE', 'INSERT', 'PROCEDURE', 'SELECT', or 'UPDATE'."},
        {"DELETE T", "3130 Syntax error in DELETE statement."},
        {"SELECT * FROM WHERE ID=1", "3131 Syntax error in FROM clause."},
        {"INSERT T VALUES (1)", "3134 Syntax error in INSERT INTO statement."},
        {"SELECT * FROM T ORDER ID", "3138 Syntax error in ORDER BY clause."},
        {"UPDATE T Name='x'", "3144 Syntax error in UPDATE statement."},
        {"SELECT COUNT(*), ID FROM T",
         "3122 You tried to execute a query that does not include the specified expression 'ID' as part of an aggregate function."},
        {"SELECT * FROM T WHERE COUNT(*)>1", "3096 Cannot have aggregate function in WHERE clause (COUNT(*))."},
        {"SELECT DISTINCT Name FROM T ORDER BY ID", "3093 ORDER BY clause (ID) conflicts with DISTINCT."},
        {"SELECT ID FROM T UNION SELECT ID, Name FROM U",
         "3307 The number of columns in the two selected tables or queries of a union query do not match."},
    };
    for (const Case &c : cases) {
        EXPECT_EQ(store.failure(QString::fromUtf8(c.query)).toStdString(), c.failure) << c.query;
    }
}

TEST_F(Errors, OfNumbersAlone)
{
    struct Case { const char *query; int number; };
    const Case cases[] = {
        {"SELECT * FROM Nope", 3078}, {"Nope", 3078}, {"DELETE * FROM [No such]", 3078}, {"UPDATE Nope SET A=1", 3078},
        {"INSERT INTO Nope VALUES (1)", 3078}, {"", 3129}, {"   ;", 3129}, {"SELECT", 3141}, {"SELECT FROM T", 3141},
        {"SELECT ID, FROM T", 3141}, {"SELECT * FROM T ORDER BY", 3138}, {"SELECT ID FROM T UNION SELECT ID FROM U ORDER BY Name", 3351},
        {"SELECT ID AS X FROM T ORDER BY X", 3061}, {"SELECT ID AS X FROM T WHERE X=1", 3061}, {"SELECT ID AS A, Name AS A FROM T", 3062},
        {"SELECT * FROM T INNER JOIN U", 3131}, {"CREATE TABLE X (A NOSUCHTYPE)", 3292}, {"DROP X", 3295},
        {"INSERT INTO U (Small) VALUES (40000)", 6}, {"INSERT INTO U (Small) VALUES ('x')", 3464},
        {"INSERT INTO T (Day) VALUES ('')", 3464}, {"INSERT INTO T (ID) SELECT ID, Name FROM U", 3346}};
    for (const Case &c : cases)
        EXPECT_EQ(store.failure(QString::fromUtf8(c.query)).section(u' ', 0, 0).toInt(), c.number) << c.query;
}

TEST_F(Errors, CriteriaHaveTheirOwn)
{
    struct Case { const char *criteria; const char *failure; };
    const Case cases[] = {
        {"Name = 'O'Brien'", "3077 Syntax error (missing operator) in expression."},
        {"Name = 'x", "3077 Syntax error in string in expression."},
        {"", "3077 Syntax error in expression."},
        {"ID = 1)", "3077 Extra ) in expression."},
        {"Label = 'x'", ""},
        {"Cost = 1", "3070 The database engine does not recognize 'Cost' as a valid field name or expression."},
        {"Name = 1", "3464 Data type mismatch in criteria expression."},
    };
    for (const Case &c : cases) {
        QString failure;
        try {
            store.raw(translateCriteria(u"SELECT ID, Name, UCase(Name) AS Label FROM T", QString::fromUtf8(c.criteria), store));
        } catch (const EngineError &error) {
            failure = QString::number(error.number()) + u' ' + error.text();
        }
        EXPECT_EQ(failure.toStdString(), c.failure) << c.criteria;
    }
}
