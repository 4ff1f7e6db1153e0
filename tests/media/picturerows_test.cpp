#include "media/picturerows.h"
#include "store/mainfile.h"

#include "frame/startup.h"
#include "session/datafiles.h"
#include "session/sectiondesign.h"

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
        const std::size_t last = static_cast<std::size_t>(sectionByCode(section)->pictures->set->slotCount) - 1;
        PictureSet first;
        std::vector<PictureSlot> &set = first.pictures;
        set.resize(last + 1);
        set[0] = {u" a.jpg "_s, u" third "_s, 10};
        set[1] = {u"b.jpg"_s, u"first"_s, 1};
        set[2] = {u"  "_s, u"no picture"_s, 0};
        set[last] = {u"c.jpg"_s, u"second"_s, 9};
        savePictureRow(section, owner, first);
        PictureSet others{{}, {{u"z.jpg"_s, {}, 1}}};
        savePictureRow(section, other, others);
        EXPECT_EQ(paths(section, owner), u"b.jpg=first|c.jpg=second|a.jpg=third"_s) << qPrintable(section);

        PictureSet rewritten{{}, {{u"new.jpg"_s, u"one"_s, 1}}};
        savePictureRow(section, owner, rewritten);
        EXPECT_EQ(rewritten.row, first.row) << qPrintable(section);
        EXPECT_EQ(paths(section, owner), u"new.jpg=one"_s) << qPrintable(section) << ": one row, rewritten";
        removePictureRows(section, owner);
        EXPECT_EQ(paths(section, owner), QString()) << qPrintable(section);
        EXPECT_EQ(paths(section, other), u"z.jpg="_s) << qPrintable(section);
    }
}

TEST_F(PictureRows, ARecordKeepsSeveralSetsWithItsPicturesInTheirSlots)
{
    const PictureOwner owner{7, u"Rose"_s};
    const auto slotsOf = [&](const QString &section) {
        QStringList sets;
        for (const PictureSet &set : readPictureSets(section, owner)) {
            QString line;
            for (const PictureSlot &slot : set.pictures)
                line += (slot.path.isEmpty() ? u"-"_s : slot.path) + (slot.sortNumber > 0 ? QString::number(slot.sortNumber) : QString());
            sets << line;
        }
        return sets.join(u'|');
    };
    for (const QString &section : {u"P"_s, u"L"_s, u"MV"_s, u"O"_s, u"Q"_s, u"Z"_s}) {
        SCOPED_TRACE(qPrintable(section));
        const QString tail = sectionByCode(section)->pictures->set->slotCount == 10 ? u"----"_s : QString();
        PictureSet first = addPictureSet(section, owner), second = addPictureSet(section, owner);
        second.pictures[5] = {u"f"_s, {}, 2};
        savePictureRow(section, owner, second);
        first.pictures[1] = {u"b"_s, {}, 1};
        first.pictures[3] = {u"d"_s, {}, 2};
        savePictureRow(section, owner, first);
        EXPECT_EQ(slotsOf(section), u"-----f2"_s + tail + u"|-b1-d2--"_s + tail) << "by the numbers, slot after slot";

        movePicture(first, 3, 0);
        savePictureRow(section, owner, first);
        movePicture(second, 5, 99);
        EXPECT_EQ(slotsOf(section), u"-----f2"_s + tail + u"|d1-b2---"_s + tail);

        PictureSet tooLong = first;
        tooLong.pictures[0].path = QString(256, u'x');
        EXPECT_EQ(test::errorOf([&] { savePictureRow(section, owner, tooLong); }), 3163);
        removePictureSet(section, owner, first);
        EXPECT_EQ(test::errorOf([&] { savePictureRow(section, owner, first); }), 3159) << "its row has gone";
        EXPECT_EQ(slotsOf(section), u"-----f2"_s + tail);
        removePictureRows(section, owner);
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
