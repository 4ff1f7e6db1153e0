#include "session/sectiondesign.h"

#include "platform/desktop/desktop.h"
#include "session/datafiles.h"
#include "session/recorddesign.h"
#include "store/designs.h"
#include "store/mainfile.h"
#include "utilities/infopages.h"

#include <set>

namespace vorel {

using namespace Qt::StringLiterals;

// Every name of every design is one that the store, the resources or the other designs know.
class SectionDesigns : public test::MainFileTest {
protected:
    SectionDesigns()
    {
        for (const DataFileEntry &entry : dataFiles())
            state().path(entry.file) = m_folder.path(entry.defaultName.mid(1));
        test::putEmptyFiles(m_folder.path());
    }
    static dao::Database open(DataFile file)
    {
        const QString password = dataFileEntry(file).isProtected ? protectedConnect() : QString();
        return dao::DBEngine::OpenDatabase(state().path(file), false, false, password);
    }
    static const dao::TableDef *table(DataFile file, QStringView name)
    {
        for (const dao::TableDef &one : store::designsOf(file))
            if (name.compare(one.Name, Qt::CaseInsensitive) == 0)
                return &one;
        return nullptr;
    }
    static const dao::FieldDef *field(const dao::TableDef &in, QStringView name)
    {
        for (const dao::FieldDef &one : in.Fields)
            if (name.compare(one.Name, Qt::CaseInsensitive) == 0)
                return &one;
        return nullptr;
    }
};

TEST_F(SectionDesigns, idsNamesAndCodesAreUnique)
{
    std::set<QString> names, codes, words;
    for (const SectionDesign &one : sectionDesigns()) {
        EXPECT_EQ(&sectionDesign(one.id), &one) << qPrintable(one.name);
        EXPECT_TRUE(names.insert(one.name.toLower()).second) << qPrintable(one.name);
        EXPECT_TRUE(one.code.isEmpty() || codes.insert(one.code).second) << qPrintable(one.name);
        EXPECT_TRUE(!one.grid || words.insert(one.grid->word).second) << qPrintable(one.name);
        EXPECT_EQ(sectionByName(one.name.toUpper()), &one);
        EXPECT_EQ(one.kind == SectionKind::Grid, one.list.has_value()) << qPrintable(one.name);
        EXPECT_TRUE(!one.list || one.grid) << qPrintable(one.name);
        // A list is edited in its cells or on a screen.
        EXPECT_TRUE(!one.list || one.list->isEditedInCells != one.screen.has_value()) << qPrintable(one.name);
    }
    EXPECT_EQ(sectionByName(u"Nothing"_s), nullptr);
    EXPECT_EQ(sectionByCode({}), nullptr);
}

TEST_F(SectionDesigns, everyListMatchesItsQuery)
{
    for (const SectionDesign &one : sectionDesigns()) {
        if (!one.list)
            continue;
        SCOPED_TRACE(one.name.toStdString());
        const ListDesign &list = *one.list;
        const dao::Recordset rows = open(one.file).OpenRecordset(list.query, dao::dbOpenSnapshot);
        ASSERT_EQ(rows.Fields().size(), list.columns.size());
        QStringList fields;
        std::size_t numbered = 0;
        for (std::size_t i = 0; i < list.columns.size(); ++i) {
            const SectionColumn &column = list.columns[i];
            fields << column.field;
            numbered += column.isNumbered;
            const bool isUnnamed = column.field.startsWith(u'\'');
            EXPECT_TRUE(isUnnamed || rows.Fields()[i].Name.compare(column.field, Qt::CaseInsensitive) == 0) << qPrintable(column.field);
            EXPECT_EQ(column.role == SectionColumn::Role::Shown, !column.title.isEmpty()) << qPrintable(column.field);
            EXPECT_EQ(column.role == SectionColumn::Role::Button, column.field == u"PBUT") << qPrintable(column.field);
        }
        EXPECT_EQ(fields.front(), u"ID"_s);
        EXPECT_LE(numbered, one.grid->widths.size());
        QStringList named = list.growing + list.searched;
        for (const RowRule &rule : list.rules)
            named << rule.fields;
        for (const QString &name : named)
            EXPECT_TRUE(fields.contains(name)) << qPrintable(name);
    }
}

TEST_F(SectionDesigns, everyTipNamesFieldsOfItsTable)
{
    for (const SectionDesign &one : sectionDesigns()) {
        EXPECT_TRUE(!one.grid || one.rowTip) << qPrintable(one.name);
        if (!one.rowTip)
            continue;
        const dao::TableDef *in = table(one.file, one.rowTip->table);
        ASSERT_NE(in, nullptr) << qPrintable(one.name);
        for (const TipLine &line : one.rowTip->lines)
            for (const QString &name : line.fields)
                EXPECT_NE(field(*in, name), nullptr) << qPrintable(one.name + u' ' + name);
    }
}

TEST_F(SectionDesigns, everyReportOpensAndReadsEachOfItsColumns)
{
    for (const SectionDesign &one : sectionDesigns()) {
        if (!one.print)
            continue;
        SCOPED_TRACE(one.name.toStdString());
        const ListReport &report = one.print->report;
        EXPECT_EQ(report.file, one.file);
        dao::Database database = open(report.file);
        if (!report.query.isEmpty())
            database.OpenRecordset(report.query);
        dao::Recordset rows = database.OpenRecordset(u"SELECT * FROM [%1]"_s.arg(one.rowTip->table));
        rows.AddNew();
        rows.Update();
        rows.MoveFirst();
        double last = -1;
        for (const ListColumn &column : report.columns) {
            EXPECT_EQ(test::errorOf([&] { column.cell(rows); }), 0) << qPrintable(column.heading);
            EXPECT_TRUE(!report.isTable || (column.percent > last && column.percent < 100)) << qPrintable(column.heading);
            last = column.percent;
        }
        if (report.total) {
            EXPECT_EQ(test::errorOf([&] { report.total(rows); }), 0);
            EXPECT_LT(static_cast<std::size_t>(report.totalColumn), report.columns.size());
        }
    }
}

TEST_F(SectionDesigns, everyHelpPageAndPictureIsCarried)
{
    for (const SectionDesign &one : sectionDesigns()) {
        SCOPED_TRACE(one.name.toStdString());
        if (!one.helpPage.isEmpty()) {
            EXPECT_FALSE(findInfoPage(one.helpPage).isEmpty()) << qPrintable(one.helpPage);
        }
        if (!one.pictures)
            continue;
        EXPECT_TRUE(one.screen && one.list);
        EXPECT_FALSE(one.pictures->choosers.empty());
        if (!one.pictures->defaultPicture.isEmpty()) {
            EXPECT_FALSE(desktop::findResource(one.pictures->defaultPicture).isEmpty()) << qPrintable(one.pictures->defaultPicture);
        }
        if (const auto &set = one.pictures->set) {
            dao::Database database = open(set->file);
            const bool isText = set->select.endsWith(u'\'');
            const dao::Recordset rows = database.OpenRecordset(set->select + (isText ? u"x'"_s : u"1"_s));
            EXPECT_TRUE(rows.fieldIndex(set->ownKey) >= 0 && rows.fieldIndex(u"PICFILE%1"_s.arg(set->slotCount)) >= 0);
            database.Execute(set->remove + u'1');
        }
    }
}

TEST_F(SectionDesigns, everyFieldOfARecordScreenFitsItsTable)
{
    using records::FieldKind;
    for (const SectionDesign &one : sectionDesigns()) {
        if (!one.screen || !one.screen->record)
            continue;
        const records::RecordDesign &record = one.screen->record();
        SCOPED_TRACE(one.name.toStdString());
        EXPECT_EQ(record.letter, one.code);
        EXPECT_EQ(record.screen, one.screen->name);
        EXPECT_EQ(record.file, one.file);
        const dao::TableDef *in = table(record.file, record.table);
        ASSERT_NE(in, nullptr);
        EXPECT_NO_THROW(open(record.file).OpenRecordset(record.rows));
        std::set<QString> controls;
        for (const records::Field &entry : record.fields) {
            const dao::FieldDef *stored = field(*in, entry.field);
            EXPECT_TRUE(controls.insert(entry.control).second) << qPrintable(entry.control);
            ASSERT_NE(stored, nullptr) << qPrintable(entry.field);
            const bool isText = stored->Type == dao::dbText || stored->Type == dao::dbMemo;
            const bool fits = entry.kind == FieldKind::Check    ? stored->Type == dao::dbBoolean
                              : entry.kind == FieldKind::Rich   ? stored->Type == dao::dbMemo
                              : entry.kind == FieldKind::Hidden ? true
                              : entry.kind == FieldKind::Amount || entry.kind == FieldKind::Digits
                                  ? stored->Type != dao::dbBoolean
                                  : isText || stored->Type == dao::dbDate;
            EXPECT_TRUE(fits) << qPrintable(entry.field);
        }
        for (const records::FirstValue &value : record.newRow)
            EXPECT_NE(field(*in, value.field), nullptr) << qPrintable(value.field);
        for (const records::Choices &list : record.lists)
            for (const QString &name : list.controls)
                EXPECT_TRUE(controls.contains(name)) << qPrintable(name);
        for (const records::PageBlock &block : record.page)
            EXPECT_TRUE(controls.contains(block.control)) << qPrintable(block.control);
        for (const QString &name : {record.nameControl, record.newFocus})
            EXPECT_TRUE(controls.contains(name)) << qPrintable(name);
    }
}

}
