#include "platform/basic/files.h"
#include "print/frmPreview.h"
#include "print/lists.h"
#include "print/script.h"
#include "testdata.h"

#include <QApplication>
#include <QElapsedTimer>
#include <QTemporaryDir>
#include <QTimer>

// A list of a thousand pages: recorded and its first page on the screen; then any other page.
using namespace vorel;
using namespace Qt::StringLiterals;

static void addInventory(const QString &path, int rows)
{
    dao::Database database = dao::DBEngine::OpenDatabase(path);
    dao::Transaction all(database);
    dao::Recordset table = database.OpenRecordset(u"select * from [INVENTORY]"_s, dao::dbOpenDynaset);
    for (int row = 0; row < rows; ++row) {
        table.AddNew();
        table.Set(u"ITEM", u"Garden tool %1"_s.arg(row));
        table.Set(u"SERIALNUM", u"SN-%1"_s.arg(row));
        table.Set(u"LOCATION", u"Shed"_s);
        table.Set(u"DATEPURCHASED", u"12/03/2019"_s);
        table.Set(u"PURCHASEDFROM", u"Hardware Company"_s);
        table.Set(u"COST", basic::Currency::fromScaled(row * 1000));
        table.Update();
    }
    table.Close();
    all.Commit();
    database.Close();
}

static double since(const QElapsedTimer &timer)
{
    return static_cast<double>(timer.nsecsElapsed()) / 1e6;
}

int main(int argc, char **argv)
{
    QApplication application(argc, argv);
    QTemporaryDir folder;
    basic::setProgramFolder(folder.path());
    bench::makeMainFile(folder.filePath(u"VOREL.MDB"_s));
    addInventory(folder.filePath(u"VOREL.MDB"_s), 27 * 1000);
    PrintJob *job = nullptr;
    setPreviewMaker([&job](PrintJob &shown) {
        job = &shown;
        return std::make_unique<frmPreview>(shown);
    });
    std::vector<double> first, further;
    for (int run = 0; run < 5; ++run) {
        QElapsedTimer timer;
        timer.start();
        QTimer::singleShot(0, &application, [&] {
            auto *screen = dynamic_cast<frmPreview *>(job->player().preview());
            screen->repaint();
            first.push_back(since(timer));
            for (const int page : {999, 1, 500, 501, 250, 750, 0}) {
                timer.start();
                job->player().MovePage(4, QString::number(page + 1));
                screen->repaint();
                further.push_back(since(timer));
            }
            screen->Close();
        });
        PrintInventoryList();
    }
    bench::report(u"list of 1,000 pages, first page shown"_s, first, 1500);
    bench::report(u"any further page"_s, further, 50);
    return 0;
}
