#include "script.h"

namespace vorel::dao::test {

Value valueIn(const QString &text)
{
    if (text.startsWith(u'\''))
        return text.mid(1).chopped(1);
    if (text.startsWith(u'#'))
        return basic::DateTime::fromStored(text.mid(1).chopped(1));
    if (text == u"True" || text == u"False")
        return text == u"True";
    if (text == u"Null")
        return {};
    return text.contains(u'.') ? Value(text.toDouble()) : Value(text.toInt());
}

QString shown(const Value &value)
{
    if (value.isNull())
        return u"Null"_s;
    if (value.isDate())
        return u'#' + value.get<basic::DateTime>().toStored() + u'#';
    return value.isText() ? u'\'' + value.text() + u'\'' : value.text();
}

QString columnOf(const Recordset &rows, const QString &name)
{
    QStringList list;
    for (qsizetype i = 0; i < rows.rowTotal(); ++i) {
        const Value cell = rows.cell(i, rows.fieldIndex(name));
        list << (cell.isNull() ? u"Null"_s : cell.text());
    }
    return list.join(u',');
}

Script::Script()
{
    const auto act = [this](const QString &name, const std::function<void(const QString &)> &step) {
        m_verbs[name] = [step](const QString &rest) { step(rest); return QString(); };
    };
    const auto tell = [this](const QString &name, const std::function<Value(const QString &)> &question) {
        m_verbs[name] = [question](const QString &rest) { return shown(question(rest)); };
    };
    act(u"rows"_s, [this](const QString &names) { addRows(m_file, names.split(u',')); });
    act(u"sql"_s, [this](const QString &sql) { m_file.Execute(sql); });
    tell(u"affected"_s, [this](const QString &) { return Value(static_cast<int>(m_file.RecordsAffected())); });
    tell(u"has"_s, [this](const QString &table) { return m_file.hasTable(table); });
    tell(u"count"_s, [this](const QString &source) { return Value(static_cast<int>(m_file.OpenRecordset(source).rowTotal())); });
    act(u"open"_s, [this](const QString &sql) { m_rows = m_file.OpenRecordset(sql); });
    act(u"snapshot"_s, [this](const QString &sql) { m_rows = m_file.CreateSnapshot(sql); });
    act(u"reopen"_s, [this](const QString &) { m_rows = m_rows.OpenRecordset(); });
    m_verbs[u"reopened"_s] = [this](const QString &name) { return columnOf(m_rows.OpenRecordset(), name); };
    m_verbs[u"column"_s] = [this](const QString &name) { return columnOf(m_rows, name); };
    m_verbs[u"where"_s] = [this](const QString &) { return where(); };
    act(u"clone"_s, [this](const QString &) { m_clone = m_rows.Clone(); });
    act(u"swap"_s, [this](const QString &) { std::swap(m_rows, m_clone); });
    act(u"mark"_s, [this](const QString &name) { m_marks[name] = m_rows.Bookmark(); });
    act(u"goto"_s, [this](const QString &name) { m_rows.setBookmark(bookmark(name)); });
    tell(u"modified"_s, [this](const QString &name) { return m_rows.LastModified() == m_marks.value(name); });
    tell(u"Get"_s, [this](const QString &field) { return m_rows.Get(field); });
    act(u"Set"_s, [this](const QString &rest) { m_rows.Set(rest.section(u' ', 0, 0), valueIn(rest.section(u' ', 1))); });
    act(u"Sort"_s, [this](const QString &sort) { m_rows.setSort(sort); });
    act(u"Filter"_s, [this](const QString &filter) { m_rows.setFilter(filter); });
    act(u"begin"_s, [this](const QString &) { m_transactions.push_back(std::make_unique<Transaction>(m_file)); });
    act(u"commit"_s, [this](const QString &) { m_transactions.back()->Commit(); });
    act(u"end"_s, [this](const QString &) { m_transactions.pop_back(); });
    tell(u"total"_s, [this](const QString &) { return Value(static_cast<int>(m_rows.rowTotal())); });
    tell(u"RecordCount"_s, [this](const QString &) { return Value(static_cast<int>(m_rows.RecordCount())); });
    tell(u"AbsolutePosition"_s, [this](const QString &) { return Value(static_cast<int>(m_rows.AbsolutePosition())); });
    const std::pair<const char *, bool (Recordset::*)() const> flags[] = {
        { "BOF", &Recordset::BOF }, { "EOF", &Recordset::EOF_ }, { "Updatable", &Recordset::Updatable }, { "editPending", &Recordset::editPending } };
    for (const auto &[name, flag] : flags)
        tell(QString::fromLatin1(name), [this, flag = flag](const QString &) { return (m_rows.*flag)(); });
    const std::pair<const char *, void (Recordset::*)()> routines[] = {
        { "MoveFirst", &Recordset::MoveFirst }, { "MoveLast", &Recordset::MoveLast }, { "MoveNext", &Recordset::MoveNext },
        { "MovePrevious", &Recordset::MovePrevious }, { "AddNew", &Recordset::AddNew }, { "Edit", &Recordset::Edit },
        { "Update", &Recordset::Update }, { "CancelUpdate", &Recordset::CancelUpdate }, { "Delete", &Recordset::Delete },
        { "Requery", &Recordset::Requery }, { "Close", &Recordset::Close } };
    for (const auto &[name, routine] : routines)
        act(QString::fromLatin1(name), [this, routine = routine](const QString &) { (m_rows.*routine)(); });
    const std::pair<const char *, void (Recordset::*)(QStringView)> finders[] = {
        { "FindFirst", &Recordset::FindFirst }, { "FindLast", &Recordset::FindLast }, { "FindNext", &Recordset::FindNext },
        { "FindPrevious", &Recordset::FindPrevious } };
    for (const auto &[name, find] : finders) {      // LARGE of the row that is current afterwards
        m_verbs[QString::fromLatin1(name)] = [this, find = find](const QString &criteria) {
            (m_rows.*find)(criteria);
            return (m_rows.NoMatch() ? u"none, at "_s : QString()) + m_rows.Get(u"LARGE").text();
        };
    }
}

// Outside of the rows, or the rows visited, the place and the name there.
QString Script::where()
{
    const QString outside = m_rows.BOF() ? u"BOF"_s : m_rows.EOF_() ? u"EOF"_s : QString();
    EXPECT_EQ(!outside.isEmpty(), errorOf([&] { m_rows.Get(u"NAME"); }) == 3021);
    EXPECT_EQ(!outside.isEmpty(), m_rows.AbsolutePosition() == -1);
    return !outside.isEmpty() ? outside
        : u"%1 %2 %3"_s.arg(m_rows.RecordCount()).arg(m_rows.AbsolutePosition()).arg(m_rows.Get(u"NAME").text());
}

Bookmark Script::bookmark(const QString &name)
{
    return name == u"modified" ? m_rows.LastModified() : name == u"999" ? Bookmark(999) : m_marks.value(name);
}

}
