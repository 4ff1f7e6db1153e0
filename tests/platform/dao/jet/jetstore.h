#pragma once

#include "platform/dao/jet/translator.h"

#include <QHash>
#include <QList>
#include <QStringList>
#include <memory>

struct sqlite3;

// Designs as data, and a database in memory that keeps them: what the translated statements run against.
class JetStore : public vorel::dao::jet::Schema {
public:
    JetStore();
    ~JetStore() override;
    JetStore(const JetStore &) = delete;
    JetStore &operator=(const JetStore &) = delete;

    void add(const vorel::dao::jet::TableDesign &design);
    // "ID auto, Name text 20, Cost currency": each field's type by its DAO name without "db".
    void add(const QString &table, const QString &fields);
    const vorel::dao::jet::TableDesign *table(QStringView name) const override;
    QStringList names() const;

    using Rows = QList<QStringList>;        // cells as SQLite shows them, Null as "<null>"
    Rows run(const QString &text);          // translated
    Rows raw(const QByteArray &sql, std::initializer_list<qint64> bound = {});
    int changes() const;
    vorel::dao::jet::Translation translated(const QString &text) const;
    // The number and text of the failure: "3078 The database engine ...", or "" without a failure.
    QString failure(const QString &text);

private:
    sqlite3 *m_connection = nullptr;
    QHash<QString, std::shared_ptr<vorel::dao::jet::TableDesign>> m_tables;
};

QList<QStringList> readTable(const QString &name);      // a tab-separated file beside the tests, without its head

// One store for each file that designs.tsv names, each table with a few rows.
QHash<QString, std::shared_ptr<JetStore>> designedStores();
