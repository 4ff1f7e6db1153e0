#pragma once

#include "daotest.h"
#include "support/steps.h"

#include <memory>

namespace vorel::dao::test {

// Steps in dao.tsv: most verbs are routines of the file or of the recordset; values are as valueIn() reads them.
class Script : public DaoTest {
protected:
    Script();
    void SetUp() override
    {
        m_file = create();
        m_file.AppendTable(sample());
    }
    void play(const char *table) { vorel::test::play("dao", table, m_verbs); }

    vorel::test::Verbs m_verbs;
    Database m_file;
    Recordset m_rows, m_clone;

private:
    QString where();
    Bookmark bookmark(const QString &name);
    std::vector<std::unique_ptr<Transaction>> m_transactions;
    QHash<QString, Bookmark> m_marks;
};

// 'text', #date as stored#, True, 12, 1.5, Null
Value valueIn(const QString &text);
QString shown(const Value &value);
QString columnOf(const Recordset &rows, const QString &name);

}
