#include "contacts/addresslist.h"

#include "platform/basic/error.h"
#include "session/shared.h"

#include <QFont>

namespace vorel {

using namespace Qt::StringLiterals;

QStringList contactCategories(dao::Database &database)
{
    dao::Recordset rows = database.OpenRecordset(u"select distinct [CATEGORY] from [CONTACTS];"_s);
    QStringList names;
    for (; !rows.EOF_(); rows.MoveNext()) {
        if (const QString name = rows.Get(0).text(); !name.trimmed().isEmpty())
            names << name;
    }
    return names;
}

void AddressList::GetContactList(dao::Database &database, const QString &category)
{
    beginResetModel();
    m_ticked.clear();
    m_tickedIncomplete = 0;
    m_fields.clear();
    m_rows = database.OpenRecordset(
        category.isEmpty() ? u"SELECT * FROM [CONTACTS] ORDER BY [SORTNAME];"_s
                           : u"SELECT * FROM [CONTACTS] WHERE [CATEGORY]="_s + dao::literal(category) + u" ORDER BY [SORTNAME];"_s);
    for (const QString &field : {u"SORTNAME"_s, u"MAILINGADDRESSSTREET"_s, u"MAILINGADDRESSCITY"_s, u"MAILINGADDRESSSTATE"_s,
                                 u"MAILINGADDRESSPOSTALCODE"_s, u"MAILINGADDRESSCOUNTRY"_s, u"MAILINGADDRESSPOSTOFFICEBOX"_s})
        m_fields.push_back(m_rows.fieldIndex(field));
    endResetModel();
    emit ticksChanged();
}

QString AddressList::text(int row, int column) const
{
    QString text;
    // A row that is locked for the moment shows as blank; it is read again with the next painting.
    basic::IgnoreErrors([&] { text = m_rows.cell(row, m_fields[static_cast<std::size_t>(column)]).text(); });
    return shownApostrophes(text).trimmed();
}

PostalAddress AddressList::address(int row) const
{
    return {text(row, Name), text(row, ColumnCount), text(row, Street), text(row, Suburb), text(row, State), text(row, Code),
            text(row, Country)};
}

bool AddressList::isComplete(int row) const
{
    return hasWay(row) && !text(row, Suburb).isEmpty();
}

bool AddressList::hasWay(int row) const
{
    return !(text(row, Street) + text(row, ColumnCount)).isEmpty();
}

bool AddressList::setTick(int row, bool on)
{
    if (on ? !m_ticked.insert(row).second : m_ticked.erase(row) == 0)
        return false;
    if (!isComplete(row))
        m_tickedIncomplete += on ? 1 : -1;
    return true;
}

void AddressList::tick(int row, bool on)
{
    if (row < 0 || row >= rowCount() || !setTick(row, on))
        return;
    emit dataChanged(index(row, 0), index(row, 0), {Qt::CheckStateRole});
    emit ticksChanged();
}

void AddressList::tickAll(bool on)
{
    if (rowCount() == 0)
        return;
    for (int row = 0; row < rowCount(); ++row)
        setTick(row, on);
    emit dataChanged(index(0, 0), index(rowCount() - 1, 0), {Qt::CheckStateRole});
    emit ticksChanged();
}

int AddressList::rowCount(const QModelIndex &parent) const
{
    return parent.isValid() || !m_rows ? 0 : static_cast<int>(m_rows.rowTotal());
}

QVariant AddressList::data(const QModelIndex &index, int role) const
{
    const int row = index.row();
    switch (role) {
    case Qt::DisplayRole: {
        const QString shown = text(row, index.column());
        if (index.column() == Street && shown.isEmpty())
            return hasWay(row) ? addressLines({.postOfficeBox = text(row, ColumnCount)}).value(0) : u"no postal address"_s;
        return shown.simplified();
    }
    case Qt::FontRole: {
        QFont slanted;
        slanted.setItalic(true);
        return index.column() == Street && !hasWay(row) ? QVariant(slanted) : QVariant();
    }
    case Qt::ToolTipRole:
        return isComplete(row) ? QVariant() : u"The postal address is missing or incomplete."_s;
    case Qt::CheckStateRole:
        return index.column() == Name ? QVariant(m_ticked.count(row) ? Qt::Checked : Qt::Unchecked) : QVariant();
    default:
        return {};
    }
}

bool AddressList::setData(const QModelIndex &index, const QVariant &value, int role)
{
    if (role != Qt::CheckStateRole || index.column() != Name)
        return false;
    tick(index.row(), value.toInt() == Qt::Checked);
    return true;
}

QVariant AddressList::headerData(int section, Qt::Orientation orientation, int role) const
{
    static const QStringList titles{u"NAME"_s, u"STREET"_s, u"SUBURB"_s, u"STATE"_s, u"CODE"_s, u"COUNTRY"_s};
    return orientation == Qt::Horizontal && role == Qt::DisplayRole ? QVariant(titles.value(section)) : QVariant();
}

Qt::ItemFlags AddressList::flags(const QModelIndex &index) const
{
    const Qt::ItemFlags usual = QAbstractTableModel::flags(index);
    return index.column() == Name ? usual | Qt::ItemIsUserCheckable : usual;
}

}
