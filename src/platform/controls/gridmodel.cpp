#include "platform/controls/gridmodel.h"

#include "platform/basic/convert.h"
#include "platform/basic/dates.h"
#include "platform/basic/format.h"

#include <limits>

namespace vorel::controls {

using namespace Qt::StringLiterals;

namespace {

constexpr qsizetype keptRows = 2000;    // painted rows in memory: several screens full, whatever the number of rows

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

// The value that a typed text means in a field; a text without a meaning stays a text.
dao::Value typed(const QString &text, dao::DataType type)
{
    const auto valueOr = [&](const auto &converted) { return converted ? dao::Value(*converted) : dao::Value(text); };
    if (type == dao::dbDate)
        return basic::IsDate(text) ? valueOr(basic::tryDate(text)) : dao::Value(text);
    if (type == dao::dbBoolean)
        return text == u"-1";
    if (type == dao::dbText || type == dao::dbMemo || !basic::IsNumeric(text))
        return text;
    return type == dao::dbCurrency ? valueOr(basic::tryCurrency(text)) : valueOr(basic::tryDouble(text));
}

QString formatted(const dao::Value &value, const QString &pattern)
{
    return pattern.isEmpty() ? value.text() : basic::formatOr(value, pattern);
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
    m_allowAddNew = allow;
    reload();
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
    placeDraft();
    endResetModel();
}

void GridModel::setEdits(std::vector<CellEdit> edits)
{
    m_edits = std::move(edits);
    forgetRows();
}

const CellEdit *GridModel::edit(int column) const
{
    if (column < 0 || column >= columnCount() || fieldName(column).isEmpty())
        return nullptr;
    for (const CellEdit &edit : m_edits) {
        if (edit.field.compare(fieldName(column), Qt::CaseInsensitive) == 0)
            return &edit;
    }
    return nullptr;
}

bool GridModel::canChange(qsizetype row, int column) const
{
    const bool there = (row >= 0 && row < m_rows) || isNewRow(row);
    return there && m_isUpdatable && edit(column) && m_fields[static_cast<std::size_t>(column)] >= 0;
}

dao::DataType GridModel::fieldType(int column) const
{
    const int field = m_fields[static_cast<std::size_t>(column)];
    if (field < 0 || !m_data || !m_data->Recordset().isOpen())
        return dao::dbText;
    return m_data->Recordset().Fields()[static_cast<std::size_t>(field)].Type;
}

const dao::Value *GridModel::drafted(qsizetype row, int column) const
{
    if (row < 0 || row != m_draft.row)
        return nullptr;
    const auto found = m_draft.cells.find(column);
    return found == m_draft.cells.end() ? nullptr : &found->second;
}

void GridModel::putDraft(qsizetype row, int column, const dao::Value &value)
{
    if (row != m_draft.row) {
        m_draft = {row, {}, {}};
        if (row < m_rows)
            m_draft.mark = m_data->Recordset().bookmarkAt(row);
    }
    m_draft.cells[column] = value;
    forgetRow(row);
}

void GridModel::dropDraft()
{
    const qsizetype row = std::exchange(m_draft, {}).row;
    if (row >= 0)
        forgetRow(row);
}

void GridModel::retakeDraft(const RowDraft &draft)
{
    m_draft = draft;
    placeDraft();
    forgetRow(m_draft.row);
}

void GridModel::draftStored()
{
    const bool isNew = isNewRow(m_draft.row);
    if (isNew) {
        beginInsertRows({}, static_cast<int>(m_rows) + 1, static_cast<int>(m_rows) + 1);
        ++m_rows;
    }
    const qsizetype row = std::exchange(m_draft, {}).row;
    if (isNew)
        endInsertRows();
    forgetRow(row);
}

// The rows were read again: what was typed stays with its row, and is dropped if the row no longer exists.
void GridModel::placeDraft()
{
    if (!m_draft.isOpen())
        return;
    qsizetype row = m_draft.mark.isValid() ? -1 : m_rows;
    if (m_draft.mark.isValid() && m_rows > 0)
        row = m_data->Recordset().positionOf(m_draft.mark);
    m_draft.row = row;
    if (row < 0 || (row == m_rows && !m_hasNewLine))
        m_draft = {};
}

void GridModel::forgetRow(qsizetype row)
{
    m_paint.remove(row);
    if (row >= 0 && row < rowCount() && !m_columns.empty())
        emit dataChanged(index(static_cast<int>(row), 0), index(static_cast<int>(row), columnCount() - 1));
}

qsizetype GridModel::countRows() const
{
    auto &self = const_cast<GridModel &>(*this);
    m_paint.clear();
    self.m_fields.assign(m_columns.size(), -1);
    self.m_isUpdatable = false;
    self.m_hasNewLine = m_allowAddNew;
    if (!m_data || !m_data->Recordset().isOpen())
        return 0;
    const dao::Recordset &rows = m_data->Recordset();
    self.m_isUpdatable = rows.Updatable();
    self.m_hasNewLine = m_allowAddNew && rows.Updatable();
    for (std::size_t i = 0; i < m_columns.size(); ++i)
        self.m_fields[i] = fieldColumn(rows, m_columns[i].field);
    return std::min<qsizetype>(rows.rowTotal(), std::numeric_limits<int>::max() - 1);
}

bool GridModel::isOutdated() const
{
    return (m_data ? m_data->Recordset().rowTotal() : 0) != m_rows;
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
    if (const dao::Value *changed = drafted(row, column))
        return changed->isText() ? typed(changed->text(), fieldType(column)) : *changed;
    if (row < 0 || row >= m_rows || column < 0 || column >= columnCount() || !m_data)
        return found;
    const int field = m_fields[static_cast<std::size_t>(column)];
    if (field >= 0)
        try {
            found = m_data->Recordset().cell(row, field);
        } catch (const dao::EngineError &e) {       // painting has no place for a message
            if (e.number() == dao::err::Damaged)
                m_data->reportLater(e.number(), e.text());
        }
    return found;
}

const RowPaint &GridModel::paint(qsizetype row) const
{
    if (const auto known = m_paint.constFind(row); known != m_paint.cend())
        return *known;
    if (m_paint.size() >= keptRows)
        m_paint.clear();
    RowPaint paint;
    paint.row = row;
    paint.text.resize(m_columns.size());
    paint.style.resize(m_columns.size());
    if (m_rowLoad && row >= 0 && row < m_rows) {
        m_paint.insert(row, paint);                          // a handler that asks the grid for this row finds it plain
        paint.cell = [this, row](int column) { return value(row, column); };
        basic::IgnoreErrors([&] { m_rowLoad(paint); });      // painting has no place for a message
        paint.text.resize(m_columns.size());
        paint.style.resize(m_columns.size());
        paint.cell = {};
    }
    return *m_paint.insert(row, std::move(paint));
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
    if (isNewRow(row) && drafted(row, column))
        return editText(row, column);
    if (row < 0 || row >= m_rows || column < 0 || column >= columnCount())
        return {};
    if (const QString &text = paint(row).text[static_cast<std::size_t>(column)]; !text.isNull())
        return text;
    return editText(row, column);
}

QString GridModel::editText(qsizetype row, int column) const
{
    if (row < 0 || row > m_rows || column < 0 || column >= columnCount())
        return {};
    const GridColumn &design = m_columns[static_cast<std::size_t>(column)];
    if (design.style == GridColumn::Style::Check)
        return isChecked(row, column) ? u"-1"_s : u"0"_s;
    const dao::Value shown = value(row, column);
    const bool isTyped = drafted(row, column) != nullptr;
    return isTyped && shown.isText() ? shown.text() : formatted(shown, design.format);
}

QString GridModel::styleName(qsizetype row, int column) const
{
    if (row < 0 || row >= m_rows || column < 0 || column >= columnCount())
        return {};
    const RowPaint &known = paint(row);
    const QString &cell = known.style[static_cast<std::size_t>(column)];
    return cell.isEmpty() ? known.rowStyle : cell;
}

QString GridModel::rowStyleName(qsizetype row) const
{
    return row < 0 || row >= m_rows ? QString() : paint(row).rowStyle;
}

StyleSet GridModel::styleSet(const QString &name) const
{
    const auto known = m_styles.find(name.toUpper());
    return known == m_styles.end() ? StyleSet() : known->second;
}

int GridModel::rowCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : static_cast<int>(m_rows) + (m_hasNewLine ? 1 : 0);
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
    case Qt::EditRole:
        return editText(index.row(), column);
    case Qt::DisplayRole:
        return isText ? shownText(index.row(), column) : QString();
    case Qt::AccessibleTextRole:
        if (isNewRow(index.row()) && m_draft.row != index.row())
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

Qt::ItemFlags GridModel::flags(const QModelIndex &index) const
{
    const Qt::ItemFlags plain = QAbstractTableModel::flags(index);
    const bool isTyped = index.isValid() && m_columns[static_cast<std::size_t>(index.column())].style == GridColumn::Style::Text;
    return isTyped && canChange(index.row(), index.column()) ? plain | Qt::ItemIsEditable : plain;
}

bool GridModel::setData(const QModelIndex &index, const QVariant &value, int role)
{
    return role == Qt::EditRole && index.isValid() && m_taker && m_taker(index, value.toString());
}

}
