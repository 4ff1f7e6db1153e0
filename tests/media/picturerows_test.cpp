#include "media/picturerows.h"
#include "store/mainfile.h"

#include "frame/startup.h"
#include "session/datafiles.h"

using namespace Qt::StringLiterals;

namespace vorel {

namespace {

class PictureRows : public test::MainFileTest {
protected:
    PictureRows()
    {
        test::putEmptyFiles(m_folder.path());
        for (const DataFileEntry &entry : dataFiles())
            state().path(entry.file) = m_folder.path(entry.defaultName.mid(1));
    }
    static QString paths(const QString &section, const PictureOwner &owner)
    {
        QStringList shown;
        for (const PictureSlot &slot : GetSlideShowFiles(section, owner))
            shown << slot.path + u'=' + slot.caption;
        return shown.join(u'|');
    }
};

}

TEST_F(PictureRows, EachSectionKeepsASetInTheOrderOfItsNumbers)
{
    const PictureOwner owner{7, u"O'Hara"_s}, other{8, u"Smith"_s};
    for (const QString &section : {u"P"_s, u"L"_s, u"MV"_s, u"O"_s, u"Q"_s, u"Z"_s}) {
        const std::size_t last = static_cast<std::size_t>(pictureTableOf(section)->slotCount) - 1;
        std::vector<PictureSlot> set(last + 1);
        set[0] = {u" a.jpg "_s, u" third "_s, 10};
        set[1] = {u"b.jpg"_s, u"first"_s, 1};
        set[2] = {u"  "_s, u"no picture"_s, 0};
        set[last] = {u"c.jpg"_s, u"second"_s, 9};
        savePictureRow(section, owner, set);
        savePictureRow(section, other, {{u"z.jpg"_s, {}, 1}});
        EXPECT_EQ(paths(section, owner), u"b.jpg=first|c.jpg=second|a.jpg=third"_s) << qPrintable(section);

        savePictureRow(section, owner, {{u"new.jpg"_s, u"one"_s, 1}});
        EXPECT_EQ(paths(section, owner), u"new.jpg=one"_s) << qPrintable(section) << ": one row, rewritten";
        removePictureRows(section, owner);
        EXPECT_EQ(paths(section, owner), QString()) << qPrintable(section);
        EXPECT_EQ(paths(section, other), u"z.jpg="_s) << qPrintable(section);
    }
}

TEST_F(PictureRows, RowsPlayInTheOrderOfTheirNumbers)
{
    dao::Database file = dao::DBEngine::OpenDatabase(state().path(DataFile::Contacts));
    for (const auto &[path, number] : {std::pair{u"a.jpg"_s, 3}, {u"b.jpg"_s, 1}, {u"c.jpg"_s, 2}, {u"d.jpg"_s, 10}}) {
        file.Execute(u"INSERT INTO [CONTACTDATA] ([ID],[PICFILE1],[PIC1SORTNUM]) VALUES (5,'%1',%2)"_s.arg(path).arg(number));
    }
    file.Execute(u"INSERT INTO [CONTACTDATA] ([ID],[PICFILE2]) VALUES (5,'unnumbered.jpg')"_s);
    file.Close();
    EXPECT_TRUE(paths(u"P"_s, {5, {}}).contains(u"b.jpg=|c.jpg=|a.jpg=|d.jpg="_s));
    EXPECT_TRUE(paths(u"P"_s, {5, {}}).contains(u"unnumbered.jpg"_s));
    EXPECT_EQ(test::errorOf([] { GetSlideShowFiles(u"K"_s, {}); }), 5);
    QFile::remove(state().path(DataFile::Garden));
    EXPECT_EQ(test::errorOf([] { GetSlideShowFiles(u"Z"_s, {1, {}}); }), 3024);
}

}
