#pragma once

#include "platform/dao/dao.h"
#include "print/envelope.h"

#include <QAbstractTableModel>
#include <map>
#include <set>

namespace vorel {

QStringList contactCategories(dao::Database &database);         // as they are stored, without the blank one

// The contacts with their postal addresses and a tick each, for labels and envelopes. Rows are read as they are shown, so
// that it opens at once however many there are.
class AddressList : public QAbstractTableModel {
    Q_OBJECT
public:
    enum Column { Name, Street, Suburb, State, Code, Country, ColumnCount };
    explicit AddressList(QObject *parent = nullptr) : QAbstractTableModel(parent) {}

    // Opens the list again, of one category or of all (""); the ticks are cleared.
    void GetContactList(dao::Database &database, const QString &category);
    PostalAddress address(int row) const;
    bool isComplete(int row) const;             // there is a street or a box, and a city
    const std::set<int> &ticked() const { return m_ticked; }
    int tickedIncomplete() const { return m_tickedIncomplete; }
    void tick(int row, bool on);
    void tickAll(bool on);

    int rowCount(const QModelIndex &parent = {}) const override;
    int columnCount(const QModelIndex & = {}) const override { return ColumnCount; }
    QVariant data(const QModelIndex &index, int role) const override;
    bool setData(const QModelIndex &index, const QVariant &value, int role) override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;
    Qt::ItemFlags flags(const QModelIndex &index) const override;

signals:
    void ticksChanged();

private:
    QString text(int row, int column) const;
    bool hasWay(int row) const;                 // a street or a box
    bool setTick(int row, bool on);

    dao::Recordset m_rows;
    std::vector<int> m_fields;                  // columns of the recordset: those on show, then the box
    std::set<int> m_ticked;
    int m_tickedIncomplete = 0;
};

}
