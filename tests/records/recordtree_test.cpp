#include "session/ini.h"
#include "platform/controls/colours.h"
#include "records/frmRecordTree.h"
#include "store/mainfile.h"

#include <QScrollBar>
#include <QSignalSpy>
#include <QTest>

namespace vorel {

using namespace Qt::StringLiterals;
using records::NameCase;
using records::TreeReader;

namespace {

struct Row { QString title, author, category; };

class Tree : public test::MainFileTest {
protected:
    Tree()
    {
        test::putEmptyFiles(m_folder.path());
        state().gIniFile = m_folder.path(u"test.ini"_s);
        setCapitals(false);
    }

    static void setCapitals(bool on) { PutIniValue(iniSettings, u"ContactsUpperCase"_s, on ? u"True"_s : u"False"_s); }
    QString file(const QString &name) const { return m_folder.path(name); }

    using Fields = QList<QPair<QString, QString>>;
    void add(const QString &fileName, const QString &table, const std::vector<Fields> &rows) const
    {
        dao::Database database = dao::DBEngine::OpenDatabase(file(fileName));
        dao::Transaction all(database);
        dao::Recordset set = database.OpenRecordset(table);
        for (const Fields &row : rows) {
            set.AddNew();
            for (const auto &[field, text] : row)
                set.Set(field, text);
            set.Update();
        }
        all.Commit();
    }
    void addBooks(const std::vector<Row> &rows) const
    {
        std::vector<Fields> fields;
        for (const Row &row : rows)
            fields.push_back({{u"TITLE"_s, row.title}, {u"AUTHOR"_s, row.author}, {u"CATEGORY"_s, row.category}});
        add(u"BOOKS.MDB"_s, u"BOOKS"_s, fields);
    }

    // "A: Ant(3), Asp(1)"
    static QStringList shownRows(const std::vector<records::TreeNode> &groups)
    {
        QStringList all;
        for (const records::TreeNode &group : groups) {
            QStringList leaves;
            for (const records::TreeNode &leaf : group.children)
                leaves << u"%1(%2)"_s.arg(leaf.text).arg(leaf.id);
            all << group.text + u": "_s + leaves.join(u", ");
        }
        return all;
    }
    static std::vector<records::TreeNode> nodesOf(TreeReader read, const records::TreeRequest &request)
    {
        std::vector<records::TreeNode> nodes;
        read(request, nodes);
        return nodes;
    }
    records::TreeRequest ofBooks(const QString &field = u"TITLE"_s) const { return {file(u"BOOKS.MDB"_s), u"BOOKS"_s, field, u"TITLE"_s}; }
    QStringList books(TreeReader read, const QString &field = u"TITLE"_s) const { return shownRows(nodesOf(read, ofBooks(field))); }
};

const std::vector<Row> library = {{u"the mcdonald papers"_s, u"Ann O`brien"_s, u"History"_s},
                                  {u"1984"_s, u"George Orwell"_s, u"Novel"_s},
                                  {u"(untold)"_s, u"George Orwell"_s, u"Novel"_s},
                                  {u""_s, u""_s, u""_s},
                                  {u"TALES"_s, u"Zoe Adams"_s, u""_s},
                                  {u"7 days"_s, u""_s, u"history"_s}};

}

TEST_F(Tree, GroupsAndOrderOfEachMode)
{
    addBooks(library);
    // A title that is empty or begins with a mark has no leaf by first character, a row without a category none by it.
    EXPECT_EQ(books(records::readTreeByFirstCharacter),
              (QStringList{u"1: 1984(2)"_s, u"7: 7 Days(6)"_s, u"T: Tales(5), The McDonald Papers(1)"_s}));
    EXPECT_EQ(books(records::readTreeByCategory), (QStringList{u"History: 7 Days(6), The McDonald Papers(1)"_s, u"Novel: (untold)(3), 1984(2)"_s}));
    EXPECT_EQ(books(records::readTreeByField, u"AUTHOR"_s),
              (QStringList{u"Ann O`brien: The McDonald Papers(1)"_s, u"George Orwell: (untold)(3), 1984(2)"_s, u"Zoe Adams: Tales(5)"_s}));
    // A leaf may be called by the field that groups.
    records::TreeRequest called = ofBooks(u"AUTHOR"_s);
    called.leaf.clear();
    EXPECT_EQ(shownRows(nodesOf(records::readTreeByField, called)).value(0), u"Ann O`brien: Ann O`Brien(1)");
    setCapitals(true);
    EXPECT_EQ(books(records::readTreeByFirstCharacter).value(2), u"T: TALES(5), THE MCDONALD PAPERS(1)");
}

// Many groups are read in another way than one by one; each holds what its own query finds.
TEST_F(Tree, ManyGroupsHoldWhatTheirQueriesFind)
{
    const QStringList authors{u"anna"_s, u"Anna "_s, u"ANNA"_s, u"An-na"_s, u"Émile"_s, u"Emile"_s, u"émile"_s, u"co-op"_s, u"coop"_s, u"O`Hara"_s};
    std::vector<Row> rows;
    for (int i = 0; i < 60; ++i)
        rows.push_back({QString(QChar(u'z' - i % 26)) + QString::number(i % 7), i % 3 ? authors[i % 10] : u"Author %1"_s.arg(i % 20), {}});
    addBooks(rows);
    const auto groups = nodesOf(records::readTreeByField, ofBooks(u"AUTHOR"_s));
    EXPECT_GT(groups.size(), 16U);
    qsizetype leaves = 0;
    dao::Database database = dao::DBEngine::OpenDatabase(file(u"BOOKS.MDB"_s));
    for (const records::TreeNode &group : groups) {
        QStringList found, shownIds;
        dao::Recordset set = database.OpenRecordset(u"SELECT * FROM [BOOKS] WHERE [AUTHOR]='"_s + group.text + u"' ORDER BY [TITLE];"_s);
        for (; !set.EOF_(); set.MoveNext())
            found << set.Get(u"ID").text();
        for (const records::TreeNode &leaf : group.children)
            shownIds << QString::number(leaf.id);
        EXPECT_EQ(shownIds, found) << group.text.toStdString();
        leaves += found.size();
    }
    EXPECT_EQ(leaves, 60);

    // A value with an apostrophe has no group, whichever way the others are read; they are all there.
    addBooks({{u"Last"_s, u"B'Elanna"_s, {}}});
    std::vector<records::TreeNode> others;
    EXPECT_EQ(test::errorOf([&] { records::readTreeByField(ofBooks(u"AUTHOR"_s), others); }), 3075);
    EXPECT_EQ(shownRows(others), shownRows(groups));
}

TEST_F(Tree, InventoryShowsItsItemsByLettersAlone)
{
    for (const QString &item : {u"mcintosh lamp"_s, u"4 chairs"_s, u"armchair"_s})
        add(u"VOREL.MDB"_s, u"INVENTORY"_s, {{{u"ITEM"_s, item}, {u"CATEGORY"_s, u"House"_s}}});
    const records::TreeRequest request{path(), u"INVENTORY"_s, u"ITEM"_s, u"ITEM"_s, NameCase::Words};
    EXPECT_EQ(shownRows(nodesOf(records::readTreeByFirstLetter, request)),
              (QStringList{u"A: Armchair(3)"_s, u"M: Mcintosh Lamp(1)"_s}));
    EXPECT_EQ(shownRows(nodesOf(records::readTreeByCategory, request)),
              QStringList{u"House: 4 Chairs(2), Armchair(3), Mcintosh Lamp(1)"_s});
}

TEST_F(Tree, MixedCaseNames)
{
    struct Case { const char16_t *text, *books, *inventory; };
    const Case cases[] = {{u"", u"", u""},
                          {u"JEAN-LUC o'neil MCKAY", u"Jean-Luc O'Neil McKay", u"Jean-luc O'neil Mckay"},
                          {u"a-b-c mcx mcy", u"A-B-c McX Mcy", u"A-b-c Mcx Mcy"},
                          {u"macbeth o`hara", u"MacBeth O`Hara", u"Macbeth O`hara"},
                          {u"tarmac mc", u"Tarmac Mc", u"Tarmac Mc"},
                          {u"smith-", u"Smith-", u"Smith-"}};
    for (const Case &c : cases) {
        EXPECT_EQ(records::MixedCaseName(QString::fromUtf16(c.text)), QString::fromUtf16(c.books));
        EXPECT_EQ(records::MixedCaseName(QString::fromUtf16(c.text), NameCase::Words), QString::fromUtf16(c.inventory));
    }
}

TEST_F(Tree, AnApostropheInACategoryHindersItsOwnGroupAlone)
{
    addBooks({{u"Ants"_s, {}, u"Animals"_s}, {u"Birds"_s, {}, u"Children's"_s}, {u"Cats"_s, {}, u"Zoo"_s}});
    const QByteArray before = m_folder.read(u"BOOKS.MDB"_s);
    RecordTree tree;
    m_prompts.expect(u"The tree cannot show the records of \"Children's\""_s);
    FillRecordTree(tree, records::readTreeByCategory, ofBooks());
    EXPECT_TRUE(m_prompts.isDone());
    ASSERT_EQ(tree.model()->rowCount(), 2);
    EXPECT_EQ(tree.model()->index(1, 0).data().toString(), u"Zoo");
    EXPECT_TRUE(tree.updatesEnabled());
    EXPECT_EQ(m_folder.read(u"BOOKS.MDB"_s), before);

    m_prompts.expect({});       // the file is gone
    ASSERT_TRUE(QFile::remove(file(u"BOOKS.MDB"_s)));
    FillRecordTree(tree, records::readTreeByFirstCharacter, ofBooks());
    EXPECT_TRUE(tree.isEmpty());
}

TEST_F(Tree, SelectsTheRecordOrElseTheFirstNode)
{
    RecordTree tree;
    SelectTreeNode(tree, u"1"_s);
    EXPECT_FALSE(tree.currentIndex().isValid());
    addBooks(library);
    const QSignalSpy clicks(&tree, &RecordTree::NodeClicked);
    FillRecordTree(tree, records::readTreeByFirstCharacter, ofBooks());
    struct Case { const char16_t *id, *text; };
    const Case cases[] = {{u"5", u"Tales"}, {u"2", u"1984"}, {u"3", u"1"}, {u"05", u"1"}, {u"", u"1"}, {u"1", u"The McDonald Papers"}};
    for (const Case &c : cases) {
        SelectTreeNode(tree, QString::fromUtf16(c.id));
        EXPECT_EQ(tree.currentIndex().data().toString(), QString::fromUtf16(c.text)) << QString::fromUtf16(c.id).toStdString();
    }
    EXPECT_EQ(clicks.count(), 0);       // code moved, no user
    EXPECT_EQ(tree.currentIndex().data(Qt::UserRole).toString(), u"1");
    const QModelIndex group = tree.currentIndex().parent();
    EXPECT_EQ(group.data(Qt::UserRole).toString(), QString());
    EXPECT_TRUE(group.data(Qt::FontRole).value<QFont>().bold());
    EXPECT_FALSE(tree.currentIndex().data(Qt::FontRole).isValid());
    EXPECT_EQ(group.data(Qt::ForegroundRole).value<QBrush>().color(), QColor(Qt::red));
    QPalette dark = tree.palette();
    dark.setColor(QPalette::Base, QColor(0x1b, 0x1e, 0x20));
    tree.setPalette(dark);
    const QColor red = group.data(Qt::ForegroundRole).value<QBrush>().color();
    EXPECT_GE(controls::contrast(red, QColor(0x1b, 0x1e, 0x20)), 4.5);
    EXPECT_GT(red.red(), red.blue() + 60);
}

// Nodes to any depth, some marked; several lines of a value are one line of the tree.
TEST_F(Tree, ShowsFurtherLevelsAndMarkedNodes)
{
    const auto read = [](const records::TreeRequest &, std::vector<records::TreeNode> &nodes) {
        nodes.push_back({0, u"Ann\r\nBea"_s, false, {{7, u"Mill Ltd"_s, true, {{8, u"-   Carl"_s}}}, {9, u"Ox"_s}}});
    };
    RecordTree tree;
    FillRecordTree(tree, read, {});
    const QModelIndex group = tree.model()->index(0, 0);
    EXPECT_EQ(group.data().toString(), u"Ann, Bea");
    EXPECT_EQ(group.data(Qt::ToolTipRole).toString(), u"Ann, Bea");
    SelectTreeNode(tree, u"8"_s);
    EXPECT_EQ(tree.currentIndex().data().toString(), u"-   Carl");
    const QModelIndex firm = tree.currentIndex().parent();
    EXPECT_EQ(firm.data(Qt::UserRole).toString(), u"7");
    EXPECT_EQ(firm.parent(), group);
    EXPECT_TRUE(firm.data(Qt::ForegroundRole).isValid());
    EXPECT_EQ(firm.siblingAtRow(1).data().toString(), u"Ox");
    EXPECT_FALSE(firm.siblingAtRow(1).data(Qt::ForegroundRole).isValid());
}

TEST_F(Tree, UserMovesAreReported)
{
    addBooks(library);
    RecordTree tree;
    tree.resize(300, 300);
    tree.show();
    FillRecordTree(tree, records::readTreeByFirstCharacter, ofBooks());
    SelectTreeNode(tree, u"2"_s);
    const QSignalSpy clicks(&tree, &RecordTree::NodeClicked);
    const auto told = [&](const auto &step) {
        const qsizetype before = clicks.count();
        step();
        return clicks.count() == before ? -1 : clicks.last().at(0).toInt();
    };
    const auto click = [&](const QModelIndex &index) {
        return [&tree, index] { QTest::mouseClick(tree.viewport(), Qt::LeftButton, {}, tree.visualRect(index).center()); };
    };
    const auto key = [&](Qt::Key which) { return [&tree, which] { QTest::keyClick(&tree, which); }; };
    const QModelIndex seven = tree.model()->index(1, 0);
    EXPECT_EQ(told(click(seven)), 0);
    EXPECT_EQ(told(key(Qt::Key_Down)), 6);
    EXPECT_EQ(told(click(tree.currentIndex())), 6);     // also where it is current already
    EXPECT_EQ(told(key(Qt::Key_Return)), 6);
    EXPECT_EQ(told(key(Qt::Key_End)), 1);
    EXPECT_EQ(told(key(Qt::Key_Down)), -1);             // the end: nothing moved
    EXPECT_EQ(clicks.count(), 5);
}

TEST_F(Tree, RebuiltTreeStaysWhereItIs)
{
    std::vector<Row> many;
    for (int i = 0; i < 300; ++i)
        many.push_back({QChar(u'A' + i % 20) + u" title %1"_s.arg(i, 3, 10, QChar(u'0')), {}, {}});
    addBooks(many);
    RecordTree tree;
    tree.resize(300, 200);
    tree.show();
    const auto fill = [&] { FillRecordTree(tree, records::readTreeByFirstCharacter, ofBooks()); };
    fill();
    EXPECT_FALSE(tree.isExpanded(tree.model()->index(3, 0)));
    SelectTreeNode(tree, u"144"_s);         // "D title 143"
    EXPECT_TRUE(tree.viewport()->rect().contains(tree.visualRect(tree.currentIndex())));
    tree.expand(tree.model()->index(7, 0));
    const int place = tree.verticalScrollBar()->value() + 1;
    tree.verticalScrollBar()->setValue(place);
    fill();
    SelectTreeNode(tree, u"144"_s);
    EXPECT_EQ(tree.verticalScrollBar()->value(), place);
    EXPECT_TRUE(tree.isExpanded(tree.model()->index(7, 0)));
    EXPECT_FALSE(tree.isExpanded(tree.model()->index(8, 0)));
}

}
