#include "records/sectionscreen.h"

#include <QMenu>
#include <QToolButton>

// What the frame offers and the four sections do not use: a small section of the test's own.
namespace vorel {

using namespace Qt::StringLiterals;

namespace {

using records::FieldKind;

dao::Value today() { return basic::DateTime::fromParts(2026, 11, 23); }

void readPeople(const records::TreeRequest &request, std::vector<records::TreeNode> &nodes)
{
    dao::Database file = dao::DBEngine::OpenDatabase(request.path);
    dao::Recordset rows = file.OpenRecordset(u"SELECT * FROM [PROFILE] ORDER BY [SURNAME]"_s);
    for (; !rows.EOF_(); rows.MoveNext())
        nodes.push_back({rows.Get(u"ID").text().toInt(), rows.Get(u"SURNAME").text() + u", "_s + rows.Get(u"OTHERNAMES").text()});
}

records::RecordDesign personDesign()
{
    return {
        .letter = u"L"_s, .screen = u"frmTest"_s, .title = u"People"_s, .table = u"PROFILE"_s,
        .rows = u"SELECT * FROM [PROFILE] ORDER BY [Surname]"_s, .dataControl = u"dtaTest"_s, .colourKey = u"TestColour"_s,
        .nameControl = u"txtName(0)"_s, .newFocus = u"txtName(0)"_s, .search = u"UCASE([SURNAME]) LIKE '%1*'"_s,
        .trees = {{u"cmdAll"_s, u"All"_s, {}, readPeople, {}, {}}},
        .rebuild = records::TreeRebuild::OnEverySave,
        .treeAfterDelete = records::TreeAfterDelete::SameMode,
        .deleteGoesBack = true,
        .panels = {{u"panNames"_s, u"Names"_s, 2}, {u"picPictures"_s, u"Pictures"_s, 1, u"Pics"_s, u" Add more pictures "_s}},
        .fields = {{.control = u"txtName(0)"_s, .field = u"SURNAME"_s, .panel = u"panNames"_s, .label = u"&Name"_s},
                   {.control = u"txtName(1)"_s, .field = u"OTHERNAMES"_s, .panel = u"panNames"_s, .beside = true, .spoken = u"Other names"_s},
                   {.control = u"chkNote"_s, .kind = FieldKind::Check, .panel = u"panNames"_s, .column = 1, .label = u"N&ote"_s},
                   {.control = u"cboCategory"_s, .field = u"CATEGORY"_s, .kind = FieldKind::List, .panel = u"panNames"_s, .column = 1,
                    .label = u"&Category"_s},
                   {.control = u"cboOther"_s, .kind = FieldKind::List, .panel = u"panNames"_s, .column = 1, .label = u"O&ther"_s},
                   {.control = u"txtBorn"_s, .field = u"DOB"_s, .kind = FieldKind::Date, .panel = u"panNames"_s, .label = u"&Born"_s},
                   {.control = u"lblPictureFile"_s, .field = u"FILENAME"_s, .kind = FieldKind::Hidden},
                   {.control = u"lblIDNum"_s, .field = u"ID"_s, .kind = FieldKind::Hidden}},
        .lists = {{{u"cboCategory"_s, u"cboOther"_s}, {u"Friend"_s}, u"select distinct [CATEGORY] from [PROFILE];"_s}},
        .newRow = {{u"SURNAME"_s}, {u"DOB"_s, today}, {u"NoSuchField"_s, true}},
        .picturePanel = u"picPictures"_s,
        .childDeletes = {u"DELETE * FROM [PROFILEDATA] WHERE [USERNAME]=%name AND [ID]=%id"_s},
        .keys = {{u"cmdPrint"_s, u"Print"_s}, {u"cmdEnvelope"_s, u"Envelope"_s}, {u"cmdSlides"_s, u"A key with a long caption"_s}},
    };
}

class frmTest : public frmSection {
public:
    explicit frmTest(const records::RecordDesign &design) : frmSection(design, nullptr) { Load(); }

    bool refuses = false;
    int deleted = 0;
    QList<int> tabs;
    using RecordForm::control;
    using RecordForm::text;

protected:
    bool prepareSave() override { return !refuses; }
    void tidyRow(bool changed) override
    {
        if (changed && text(u"cboCategory"_s).isEmpty())
            setText(u"cboCategory"_s, u"UNCATEGORIZED"_s);
    }
    void afterDelete(qint32 id) override { deleted = id; }
    void tabShown(int tab) override { tabs += tab; }
};

class Design : public test::SectionScreen {
protected:
    Design()
    {
        for (const QString &name : {u"Ash"_s, u"Birch"_s, u"O'Elm"_s})
            run(DataFile::Main, {u"INSERT INTO [PROFILE] (SURNAME,OTHERNAMES) VALUES("_s + dao::literal(name) + u",'Jo')"_s});
    }
    ~Design() override { form.reset(); }        // before its design
    frmTest &open()
    {
        auto own = std::make_unique<frmTest>(m_design);
        frmTest &screen = *own;
        form = std::move(own);
        form->show();
        return screen;
    }
    records::RecordDesign m_design = personDesign();
};

}

TEST_F(Design, ArraysUnboundFieldsColumnsAndSharedLists)
{
    frmTest &screen = open();
    EXPECT_EQ(screen.control<QLineEdit>(u"txtName"_s, 1)->text(), u"Jo"_s);
    EXPECT_EQ(at(u"txtName(0)"_s)->parentWidget(), at(u"txtName(1)"_s)->parentWidget()) << "on one line";
    EXPECT_GT(at(u"chkNote"_s)->mapTo(form.get(), QPoint()).x(), at(u"txtName(1)"_s)->mapTo(form.get(), QPoint()).x());
    click(u"chkNote"_s);
    EXPECT_FALSE(form->isWindowModified()) << "not bound";
    EXPECT_EQ(at<QComboBox>(u"cboOther"_s)->itemText(0), u"Friend"_s);
    EXPECT_EQ(test::errorOf([&] { screen.text(u"txtNmae"_s); }), 424);
    EXPECT_EQ(test::errorOf([&] { screen.control<QComboBox>(u"txtName(0)"_s); }), 424) << "of another type";

    QTest::keyClicks(at(u"txtSearch"_s), u"bi"_s);
    EXPECT_EQ(text(u"txtName(0)"_s), u"Birch"_s);
}

TEST_F(Design, HooksOfSavingLeavingAndDeleting)
{
    frmTest &screen = open();
    type(u"txtName(1)"_s, u"Joe"_s);
    screen.refuses = true;
    click(u"cmdUpdate"_s);
    EXPECT_EQ(read(DataFile::Main, u"select [OTHERNAMES] from [PROFILE] where [ID]=1"_s), QStringList{u"Jo"_s});
    screen.refuses = false;
    form->dtaData().MoveNext();             // every way of leaving tidies the row, cmdUpdate or not
    EXPECT_EQ(read(DataFile::Main, u"select [OTHERNAMES],[CATEGORY] from [PROFILE] where [ID]=1"_s), QStringList{u"Joe|UNCATEGORIZED"_s});
    form->dtaData().MoveNext();
    EXPECT_EQ(read(DataFile::Main, u"select [CATEGORY] from [PROFILE] where [ID]=2"_s), QStringList{u"Null"_s}) << "looked at alone";

    type(u"txtName(1)"_s, u"Kim"_s);        // rebuilt on each save
    click(u"cmdUpdate"_s);
    EXPECT_TRUE(nodes().contains(u"O'Elm, Kim: "_s)) << qPrintable(nodes().join(u' '));

    run(DataFile::Main, {u"INSERT INTO [PROFILEDATA] ([ID],[USERNAME]) VALUES(3,'O''Elm')"_s,
                         u"INSERT INTO [PROFILEDATA] ([ID],[USERNAME]) VALUES(1,'Ash')"_s});
    user.expect(u"Do you want to Delete this Record ?"_s, basic::Answer::Yes);
    click(u"cmdDelete"_s);
    EXPECT_EQ(screen.deleted, 3);
    EXPECT_EQ(text(u"txtName(0)"_s), u"Birch"_s) << "the one before";
    EXPECT_EQ(read(DataFile::Main, u"select [ID] from [PROFILEDATA]"_s), QStringList{u"1"_s});

    click(u"cmdNew"_s);
    EXPECT_EQ(read(DataFile::Main, u"select [DOB],[UsersName] from [PROFILE] where [ID]=4"_s), QStringList{u"2026-11-23|Rosemary"_s});
}

TEST_F(Design, ADeleteThatFailsHalfWayTakesNothing)
{
    m_design.childDeletes << u"DELETE * FROM [Gone]"_s;
    run(DataFile::Main, {u"INSERT INTO [PROFILEDATA] ([ID],[USERNAME]) VALUES(1,'Ash')"_s});
    frmTest &screen = open();
    user.expect(u"Do you want to Delete this Record ?"_s, basic::Answer::Yes);
    user.expect(u"Gone"_s);
    click(u"cmdDelete"_s);
    EXPECT_TRUE(user.isDone());
    EXPECT_EQ(screen.deleted, 0);
    EXPECT_EQ(read(DataFile::Main, u"select [ID] from [PROFILEDATA]"_s), QStringList{u"1"_s});
    type(u"txtName(1)"_s, u"Kim"_s);
    click(u"cmdUpdate"_s);
    EXPECT_EQ(read(DataFile::Main, u"select [SURNAME],[OTHERNAMES] from [PROFILE] where [ID]=1"_s), QStringList{u"Ash|Kim"_s});
}

TEST_F(Design, PictureSetsAreTypedAddedAndStoredWithTheRecord)
{
    frmTest &screen = open();
    at<QTabBar>(u"TabStrip1"_s)->setCurrentIndex(1);
    EXPECT_EQ(screen.tabs.last(), 2);
    EXPECT_EQ(at<QPushButton>(u"cmdNew"_s)->text(), u"Pics"_s);
    click(u"cmdNew"_s);
    click(u"cmdNew"_s);
    EXPECT_EQ(text(u"lblSet"_s), u"Set 2 of 2"_s);
    EXPECT_EQ(read(DataFile::Main, u"select [ID] from [PROFILE]"_s).size(), 3) << "no new record";
    type(u"txtCaption(0)"_s, u"At sea"_s);
    click(u"cmdPreviousSet"_s);
    EXPECT_EQ(text(u"txtCaption(0)"_s), u""_s);
    type(u"txtCaption(5)"_s, u"On shore"_s);
    form->dtaData().MoveNext();
    EXPECT_EQ(text(u"lblSet"_s), u"No pictures yet"_s);
    EXPECT_EQ(read(DataFile::Main, u"select [PICFILE1CAPTION],[PICFILE6CAPTION] from [PROFILEDATA] where [ID]=1"_s).join(u'/'),
              u"|On shore/At sea|"_s);
}

TEST_F(Design, SurplusButtonsGoIntoAMenuThatClicksThem)
{
    open();
    form->resize(700, 600);
    QCoreApplication::processEvents();
    auto *more = at<QToolButton>(u"cmdMore"_s);
    ASSERT_TRUE(more->isVisible());
    EXPECT_TRUE(at(u"cmdClose"_s)->isVisible() && !at(u"cmdInfo"_s)->isVisible());
    emit more->menu()->aboutToShow();
    const QList<QAction *> actions = more->menu()->actions();
    ASSERT_FALSE(actions.isEmpty());
    user.expectColour(std::nullopt);
    for (QAction *action : actions) {
        if (action->text().startsWith(u"Colou"_s))
            action->trigger();
    }
    EXPECT_TRUE(user.isDone());
    form->resize(1400, 600);
    QCoreApplication::processEvents();
    EXPECT_TRUE(at(u"cmdInfo"_s)->isVisible() && !more->isVisible());
}

TEST_F(Design, AScreenOverAnotherLeavesItsOutcomeAlone)
{
    frmTest &below = open();
    below.dtaData().MoveNext();
    frmTest above(m_design);
    above.show();
    above.dtaData().MoveLast();
    above.close();
    EXPECT_EQ(above.outcome().lastId, 3);
    below.close();
    EXPECT_EQ(below.outcome().lastId, 2);
}

TEST_F(Design, AScreenWithoutATree)
{
    m_design.trees.clear();
    open();
    EXPECT_FALSE(form->findChild<QTreeView *>());
    EXPECT_EQ(text(u"txtName(0)"_s), u"Ash"_s);
    click(u"cmdNew"_s);
    click(u"cmdUpdate"_s);
    user.expect({}, basic::Answer::Yes);
    click(u"cmdDelete"_s);
    EXPECT_EQ(text(u"txtName(0)"_s), u"O'Elm"_s);
}

}
