#include "session/state.h"
#include "platform/basic/files.h"
#include "records/frmBooks.h"
#include "records/frmRecordTree.h"
#include "store/designs.h"
#include "store/rebuild.h"
#include "store/upgrade.h"
#include "testdata.h"

#include <QApplication>
#include <QTemporaryDir>

// What the user of a large collection waits for: the tree of 10,000 books, read, shown and painted.
using namespace vorel;
using namespace Qt::StringLiterals;

namespace {

constexpr int books = 10000;
constexpr double treeBudget = 100;

// Titles of some words that begin with all letters and digits, a page of comments each, as many collections have them.
void makeBooks(const QString &path)
{
    UpgradeDatabase(DataFile::Books, path, store::currentVersion);
    dao::Database database = dao::DBEngine::OpenDatabase(path);
    dao::Transaction all(database);
    dao::Recordset rows = database.OpenRecordset(u"select * from [BOOKS]"_s);
    const QString starts = u"ABCDEFGHIJKLMNOPQRSTUVWXYZ0123456789"_s;
    const QString comments = u"A long winter, an old house and a letter. "_s.repeated(20);
    for (int i = 0; i < books; ++i) {
        rows.AddNew();
        rows.Set(u"TITLE", starts[i % starts.size()] + u" book of the year number %1"_s.arg((i * 7919) % books, 5, 10, QChar(u'0')));
        rows.Set(u"AUTHOR", u"Author %1"_s.arg(i % 1500));
        rows.Set(u"CATEGORY", u"Category %1"_s.arg(i % 40));
        rows.Set(u"COMMENTS", comments);
        rows.Update();
    }
    all.Commit();
}

}

int main(int argc, char **argv)
{
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    const QApplication application(argc, argv);
    const QTemporaryDir folder;
    bench::makeMainFile(folder.filePath(u"VOREL.MDB"_s));
    state().gIniFile = folder.filePath(u"vorelreminder.ini"_s);
    const QString path = folder.filePath(u"BOOKS.MDB"_s);
    makeBooks(path);
    basic::setProgramFolder(folder.path());
    state().path(DataFile::Books) = path;

    struct Mode { QString name; records::TreeReader read; QString field; };
    const Mode modes[] = {{u"by first character"_s, records::readTreeByFirstCharacter, u"TITLE"_s},
                          {u"by category"_s, records::readTreeByCategory, u"TITLE"_s},
                          {u"by 1,500 authors"_s, records::readTreeByField, u"AUTHOR"_s}};
    RecordTree tree;
    tree.resize(300, 600);
    tree.show();
    for (const Mode &mode : modes) {
        const records::TreeRequest request{path, u"BOOKS"_s, mode.field, u"TITLE"_s};
        bench::report(u"10,000 titles "_s + mode.name + u", rows alone"_s,
                      bench::timesOf([&] {
                          std::vector<records::TreeNode> nodes;
                          mode.read(request, nodes);
                      }), treeBudget);
        bench::report(u"tree of 10,000 titles "_s + mode.name + u", painted"_s, bench::timesOf([&] {
                          FillRecordTree(tree, mode.read, request);
                          SelectTreeNode(tree, u"5000"_s);
                          tree.viewport()->repaint();
                      }), treeBudget);
    }
    bench::report(u"screen of 10,000 books, opened and painted"_s, bench::timesOf([] {
                      frmBooks opened;
                      opened.show();
                      opened.repaint();
                      QCoreApplication::processEvents();
                  }), 150);
    frmBooks screen;
    screen.show();
    bench::report(u"a book by its number, shown"_s, bench::timesOf([&] {
                      screen.dtaData().FindFirst(u"ID=9876"_s);
                      screen.dtaData().MoveFirst();
                      screen.repaint();
                  }), 100);
    bench::report(u"search of 10,000 titles, no hit"_s,
                  bench::timesOf([&] { screen.dtaData().Recordset().FindFirst(u"[TITLE] Like '*no such title*'"_s); }), 50);
    bench::report(u"row change with its node in the tree"_s, bench::timesOf([&] { SelectTreeNode(tree, u"9999"_s); SelectTreeNode(tree, u"1"_s); }), 10);
}
