#include "contacts/frmContacts.h"
#include "platform/basic/files.h"
#include "records/frmRecordTree.h"
#include "session/sections/contacttree.h"
#include "store/designs.h"
#include "store/rebuild.h"
#include "store/upgrade.h"
#include "testdata.h"

#include <QApplication>
#include <QLineEdit>
#include <QTemporaryDir>

// What the user of a large address book waits for: 100,000 contacts, a third of them businesses.
using namespace vorel;
using namespace Qt::StringLiterals;

namespace {

constexpr int contacts = 100000;

void makeContacts(const QString &path)
{
    UpgradeDatabase(DataFile::Contacts, path, store::currentVersion);
    dao::Database database = dao::DBEngine::OpenDatabase(path);
    dao::Transaction all(database);
    dao::Recordset rows = database.OpenRecordset(u"select * from [CONTACTS]"_s);
    const QString starts = u"ABCDEFGHIJKLMNOPQRSTUVWXYZ"_s;
    for (int i = 0; i < contacts; ++i) {
        const bool isPrivate = i % 3 != 0;
        const QString last = starts[i % starts.size()] + u"amily%1"_s.arg((i * 7919LL) % contacts, 5, 10, QChar(u'0'));
        const QString sort = isPrivate ? last + u", Jo"_s : last;
        dao::NewRow(rows)
            .set(u"SORTNAME", sort).set(u"FULLNAME", sort).set(u"FILEAS", sort).set(u"LASTNAME", last)
            .set(u"FIRSTNAME", isPrivate ? u"Jo"_s : QString()).set(u"COMPANYNAME", isPrivate ? QString() : last)
            .set(u"CONTACT", i % 9 == 0 ? u"Person %1"_s.arg(i) : QString()).set(u"PRIVATE", isPrivate).set(u"INVISIBLE", false)
            .set(u"CATEGORY", u"Category %1"_s.arg(i % 20)).set(u"HOMEADDRESSCITY", u"City %1"_s.arg(i % 300))
            .set(u"HOMETELEPHONENUMBER", u"555 %1"_s.arg(i)).set(u"EMAIL1ADDRESS", u"someone%1@example.org"_s.arg(i)).save();
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
    basic::setProgramFolder(folder.path());
    const QString path = folder.filePath(u"CONTACTS.MDB"_s);
    state().path(DataFile::Contacts) = path;
    makeContacts(path);

    RecordTree tree;
    tree.resize(300, 600);
    tree.show();
    const records::TreeRequest request{path, u"Contacts"_s, {}, {}, records::NameCase::Surnames};
    struct Mode { QString name; records::TreeReader read; };
    const Mode modes[] = {{u"all by letter"_s, records::readContacts}, {u"businesses by letter"_s, records::readBusinesses},
                          {u"private ones by letter"_s, records::readPrivateContacts}, {u"by category"_s, records::readContactCategories}};
    for (const Mode &mode : modes) {
        bench::report(u"tree of 100,000 contacts, "_s + mode.name, bench::timesOf([&] {
                          FillRecordTree(tree, mode.read, request);
                          SelectTreeNode(tree, u"50001"_s);
                          tree.viewport()->repaint();
                      }), 300);
    }
    bench::report(u"screen of 100,000 contacts, opened and painted"_s, bench::timesOf([] {
                      frmContacts opened;
                      opened.show();
                      opened.repaint();         // its tree follows
                  }), 250);
    frmContacts screen;
    screen.show();
    auto *search = screen.findChild<QLineEdit *>(u"txtSearch"_s);
    const auto type = [&](const QString &words) {
        return bench::timesOf([&, words] {
            screen.dtaData().MoveFirst();
            search->setText(words);
            emit search->textEdited(words);
            screen.repaint();
        });
    };
    bench::report(u"a key of the search, found"_s, type(u"Z"_s), 50);
    bench::report(u"a key of the search, no hit"_s, type(u"no such name"_s), 50);
    bench::report(u"the next contact, shown"_s, bench::timesOf([&] {
                      screen.dtaData().MoveNext();
                      screen.repaint();
                  }), 50);
}
