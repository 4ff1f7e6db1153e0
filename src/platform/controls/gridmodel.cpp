#include "platform/controls/gridmodel.h"

#include "platform/basic/convert.h"
#include "platform/basic/format.h"

#include <limits>

namespace vorel::controls {

using namespace Qt::StringLiterals;

namespace {

constexpr qsizetype keptRows = 2000;

int fieldColumn(const dao::Recordset &rows, const QString &name)
{
    if (name.isEmpty())
        return -1;
    const auto &fields = rows.Fields();
    for (std::size_t i = 0; i < fields.size(); ++i) {
        if (fields[i].Name.compare(name, Qt::CaseInsensitive) == 0)
            return static_cast<int>(i);
    }
    return -1;
}

QString formatted(const dao::Value &value, const QString &pattern)
{
    QString text;
    if (pattern.isEmpty() || basic::IgnoreErrors([&] { text = basic::Format(value, pattern); }) != 0)
        text = value.text();
    return text;
}

}

void GridModel::setControl(DataControl *data)
{
    m_data = data;
    reload();
}

void GridModel::setColumns(std::vector<GridColumn> columns)
{
    beginResetModel();
    m_columns = std::move(columns);
    m_rows = countRows();
    endResetModel();
}

void GridModel::setAllowAddNew(bool allow)
{
    if (m_allowAddNew == allow)
        return;
    beginResetModel();
    m_allowAddNew = allow;
    endResetModel();
}

void GridModel::setRowLoad(std::function<void(RowPaint &)> handler)
{
    m_rowLoad = std::move(handler);
    forgetRows();
}

void GridModel::reload()
{
    beginResetModel();
    m_rows = countRows();
    endResetModel();
}

qsizetype GridModel::countRows() const
{
    auto &self = const_cast<GridModel &>(*this);
    m_paint.clear();
    self.m_fields.assign(m_columns.size(), -1);
    qsizetype total = 0;
    basic::IgnoreErrors([&] {
        if (!m_data || !m_data->Recordset())
            return;
        const dao::Recordset &rows = m_data->Recordset();
        for (std::size_t i = 0; i < m_columns.size(); ++i)
            self.m_fields[i] = fieldColumn(rows, m_columns[i].field);
        total = std::min<qsizetype>(rows.rowTotal(), std::numeric_limits<int>::max() - 1);
    });
    return total;
}

bool GridModel::isOutdated() const
{
    qsizetype total = 0;
    basic::IgnoreErrors([&] {
        if (m_data && m_data->Recordset())
            total = m_data->Recordset().rowTotal();
    });
    return total != m_rows;
}

void GridModel::forgetRows()
{
    m_paint.clear();
    if (const int count = rowCount(); count > 0 && !m_columns.empty())
        emit dataChanged(index(0, 0), index(count - 1, columnCount() - 1));
}

dao::Value GridModel::value(qsizetype row, int column) const
{
    dao::Value found;
    if (row < 0 || row >= m_rows || column < 0 || column >= columnCount() || !m_data)
        return found;
    const int field = m_fields[static_cast<std::size_t>(column)];
    if (field >= 0)
        basic::IgnoreErrors([&] { found = m_data->Recordset().cell(row, field); });
    return found;
}

const RowPaint &GridModel::paint(qsizetype row) const
{
    if (const auto known = m_paint.constFind(row); known != m_paint.cend())
        return *known;
    if (m_paint.size() >= keptRows)
        m_paint.clear();
    RowPaint made;
    made.row = row;
    made.text.resize(m_columns.size());
    made.style.resize(m_columns.size());
    if (m_rowLoad && row >= 0 && row < m_rows) {
        m_paint.insert(row, made);                          // a handler that asks the grid for this row finds it plain
        made.cell = [this, row](int column) { return value(row, column); };
        basic::IgnoreErrors([&] { m_rowLoad(made); });      // painting has no place for a message
        made.text.resize(m_columns.size());
        made.style.resize(m_columns.size());
        made.cell = {};
    }
    return *m_paint.insert(row, std::move(made));
}

bool GridModel::isChecked(qsizetype row, int column) const
{
    const dao::Value stored = value(row, column);
    if (stored.isNumber())
        return basic::CDbl(stored) != 0;
    const QString text = stored.text().trimmed();
    return text == u"-1" || text.compare(u"True"_s, Qt::CaseInsensitive) == 0;
}

QString GridModel::shownText(qsizetype row, int column) const
{
    if (row < 0 || row >= m_rows || column < 0 || column >= columnCount())
        return {};
    if (const QString &text = paint(row).text[static_cast<std::size_t>(column)]; !text.isNull())
        return text;
    const GridColumn &design = m_columns[static_cast<std::size_t>(column)];
    if (design.style == GridColumn::Style::Check)
        return isChecked(row, column) ? u"-1"_s : u"0"_s;
    return formatted(value(row, column), design.format);
}

QString GridModel::styleName(qsizetype row, int column) const
{
    if (row < 0 || row >= m_rows || column < 0 || column >= columnCount())
        return {};
    const RowPaint &known = paint(row);
    const QString &cell = known.style[static_cast<std::size_t>(column)];
    return cell.isEmpty() ? known.rowStyle : cell;
}

StyleSet GridModel::styleSet(const QString &name) const
{
    const auto known = m_styles.find(name.toUpper());
    return known == m_styles.end() ? StyleSet() : known->second;
}

int GridModel::rowCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : static_cast<int>(m_rows) + (m_allowAddNew ? 1 : 0);
}

int GridModel::columnCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : static_cast<int>(m_columns.size());
}

QVariant GridModel::data(const QModelIndex &index, int role) const
{
    if (!index.isValid())
        return {};
    const int column = index.column();
    const GridColumn &design = m_columns[static_cast<std::size_t>(column)];
    const bool isText = design.style == GridColumn::Style::Text;
    switch (role) {
    case Qt::DisplayRole:
        return isText ? shownText(index.row(), column) : QString();
    case Qt::AccessibleTextRole:
        if (isNewRow(index.row()))
            return column == 0 ? u"New record"_s : QString();
        if (design.style == GridColumn::Style::Check)
            return isChecked(index.row(), column) ? u"Yes"_s : u"No"_s;
        if (design.style == GridColumn::Style::Button)
            return styleName(index.row(), column).compare(u"PICTURE"_s, Qt::CaseInsensitive) == 0 ? u"Picture"_s : u"More"_s;
        return shownText(index.row(), column);
    case Qt::AccessibleDescriptionRole:
        return design.caption;
    case Qt::TextAlignmentRole:
        return static_cast<int>(design.alignment | Qt::AlignVCenter);
    default:
        return {};
    }
}

QVariant GridModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (orientation == Qt::Vertical)
        return role == Qt::AccessibleTextRole ? QVariant(isNewRow(section) ? u"New record"_s : QString::number(section + 1)) : QVariant();
    if (section < 0 || section >= columnCount())
        return {};
    const GridColumn &design = m_columns[static_cast<std::size_t>(section)];
    if (role == Qt::TextAlignmentRole)
        return static_cast<int>(design.style == GridColumn::Style::Check ? Qt::AlignHCenter : design.alignment);
    return role == Qt::DisplayRole || role == Qt::AccessibleTextRole ? QVariant(design.caption) : QVariant();
}

}
