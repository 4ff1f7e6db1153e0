#include "session/sectiondesign.h"

#include "platform/desktop/desktop.h"
#include "session/datafiles.h"
#include "session/recorddesign.h"
#include "store/designs.h"
#include "store/mainfile.h"
#include "utilities/hints.h"
#include "utilities/infopages.h"

#include <algorithm>
#include <map>
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
    static bool hasField(const dao::Recordset &rows, const QString &name)
    {
        return std::any_of(rows.Fields().begin(), rows.Fields().end(),
                           [&](const auto &one) { return one.Name.compare(name, Qt::CaseInsensitive) == 0; });
    }
    static bool isFeature(const QString &tag)
    {
        return std::any_of(features().begin(), features().end(), [&](const Feature &one) { return one.tag == tag; });
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
    std::set<QString> folders, captions;
    for (const SectionDesign &one : sectionDesigns()) {
        SCOPED_TRACE(one.name.toStdString());
        if (one.help) {
            EXPECT_FALSE(findInfoPage(one.help->page).isEmpty()) << qPrintable(one.help->page);
            EXPECT_TRUE(one.help->needs.isEmpty() || isFeature(one.help->needs)) << qPrintable(one.help->needs);
            EXPECT_FALSE(one.screen && one.screen->record && isInfoPageAhead(one.code)) << "its screen exists";
        }
        if (!one.pictures)
            continue;
        EXPECT_TRUE(folders.insert(one.pictures->folder.toLower()).second);
        for (const ChooserDesign &chooser : one.pictures->choosers)
            EXPECT_TRUE(captions.insert(chooser.caption).second) << qPrintable(chooser.caption);
        if (!one.pictures->defaultPicture.isEmpty()) {
            EXPECT_FALSE(desktop::findResource(one.pictures->defaultPicture).isEmpty()) << qPrintable(one.pictures->defaultPicture);
        }
        if (const auto &set = one.pictures->set) {
            EXPECT_TRUE(captions.insert(set->chooser).second && set->chooser.endsWith(u' '));
            dao::Database database = open(one.file);
            const dao::Recordset rows = database.OpenRecordset(set->select + (set->readKey == u"USERNAME" ? u"'x'"_s : u"1"_s));
            for (const QString &name : {set->readKey, set->ownKey, u"PICFILE%1"_s.arg(set->slotCount)})
                EXPECT_TRUE(hasField(rows, name)) << qPrintable(name);
            EXPECT_FALSE(hasField(rows, u"PICFILE%1"_s.arg(set->slotCount + 1)));
            database.Execute(set->remove + u'1');
        }
    }
}

// The sections whose records open on a screen of fields.
class RecordDesigns : public SectionDesigns {
protected:
    static std::vector<const SectionDesign *> all()
    {
        std::vector<const SectionDesign *> found;
        for (const SectionDesign &one : sectionDesigns())
            if (one.screen && one.screen->record && !one.screen->opensAs)
                found.push_back(&one);
        return found;
    }
    // Whether the table can keep what such a control gives.
    static bool fits(const records::Field &entry, const dao::FieldDef &stored)
    {
        using enum records::FieldKind;
        const bool isText = stored.Type == dao::dbText || stored.Type == dao::dbMemo;
        switch (entry.kind) {
        case Check:
            return stored.Type == dao::dbBoolean;
        case Rich:
            return stored.Type == dao::dbMemo;
        case Date:                          // mm/dd/yyyy
            return stored.Type == dao::dbDate || stored.Type == dao::dbMemo || (stored.Type == dao::dbText && stored.Size >= 10);
        case Path:                          // less would refuse most pictures
            return stored.Type == dao::dbMemo || (stored.Type == dao::dbText && stored.Size >= 100);
        case Amount:
        case Digits:
            return stored.Type != dao::dbBoolean && stored.Type != dao::dbDate;
        case Hidden:
            return true;
        default:
            return isText || stored.Type == dao::dbDate;
        }
    }
    static bool fits(const QString &text, const dao::FieldDef &stored)
    {
        return stored.Type != dao::dbText || text.size() <= stored.Size;
    }
};

TEST_F(RecordDesigns, everyFieldFitsItsTable)
{
    ASSERT_GE(all().size(), 4u);
    for (const SectionDesign *one : all()) {
        const records::RecordDesign &record = one->screen->record();
        SCOPED_TRACE(one->name.toStdString());
        EXPECT_EQ(record.letter, one->code);
        EXPECT_EQ(record.screen, one->screen->name);
        EXPECT_EQ(record.file, one->file);
        const dao::TableDef *in = table(record.file, record.table);
        ASSERT_NE(in, nullptr);
        std::map<QString, const dao::FieldDef *> bound;
        for (const records::Field &entry : record.fields) {
            const dao::FieldDef *stored = entry.field.isEmpty() ? nullptr : field(*in, entry.field);
            bound[entry.control] = stored;
            if (entry.field.isEmpty())
                continue;
            ASSERT_NE(stored, nullptr) << qPrintable(entry.field);
            EXPECT_TRUE(fits(entry, *stored)) << qPrintable(entry.field);
        }
        for (const records::Choices &list : record.lists)
            for (const QString &name : list.controls)
                for (const QString &start : list.starts)
                    EXPECT_TRUE(!bound[name] || fits(start, *bound[name])) << qPrintable(start);
        for (const records::FirstValue &first : record.newRow) {
            const dao::FieldDef *stored = field(*in, first.field);
            const auto *value = std::get_if<dao::Value>(&first.value);
            ASSERT_NE(stored, nullptr) << qPrintable(first.field);
            EXPECT_TRUE(!value || fits(value->text(), *stored)) << qPrintable(first.field);
        }
        for (const records::TreeButton &tree : record.trees)
            for (const QString &name : {tree.field, tree.leaf})
                EXPECT_TRUE(name.isEmpty() || field(*in, name)) << qPrintable(name);
    }
}

TEST_F(RecordDesigns, everyQueryOpens)
{
    for (const SectionDesign *one : all()) {
        const records::RecordDesign &record = one->screen->record();
        SCOPED_TRACE(one->name.toStdString());
        dao::Database database = open(record.file);
        dao::Recordset rows = database.OpenRecordset(record.rows);
        if (!record.search.isEmpty())
            rows.FindFirst(QString(record.search).replace(u"%1"_s, u"X"_s));
        for (const records::Choices &list : record.lists) {
            if (!list.sql.isEmpty()) {
                const dao::Recordset values = open(list.file.value_or(record.file)).OpenRecordset(list.sql);
                EXPECT_TRUE(list.field.isEmpty() ? values.Fields().size() == 1u : hasField(values, list.field)) << qPrintable(list.sql);
            }
        }
        for (const records::ChildGrid &child : record.children) {
            const dao::Recordset found = database.OpenRecordset(child.rows + u"1 "_s + child.order);
            EXPECT_TRUE(hasField(found, child.key)) << qPrintable(child.key);
            for (const records::ChildColumn &column : child.columns)
                EXPECT_TRUE(hasField(found, column.field)) << qPrintable(column.field);
        }
        for (QString sql : record.childDeletes)
            database.Execute(sql.replace(u"%id"_s, u"1"_s).replace(u"%name"_s, u"'x'"_s));
    }
}

TEST_F(RecordDesigns, everyNameIsAControlOfTheScreen)
{
    for (const SectionDesign *one : all()) {
        const records::RecordDesign &record = one->screen->record();
        SCOPED_TRACE(one->name.toStdString());
        std::map<QString, records::FieldKind> fields;
        std::set<QString> panels, groups, all;
        for (const records::Panel &panel : record.panels)
            EXPECT_TRUE(panels.insert(panel.name).second) << qPrintable(panel.name);
        for (const records::Group &group : record.groups)
            groups.insert(group.name);
        all.insert(groups.begin(), groups.end());
        const auto known = [](const std::set<QString> &names, const QString &name) { return name.isEmpty() || names.contains(name); };
        for (const records::Field &entry : record.fields) {
            EXPECT_TRUE(fields.emplace(entry.control, entry.kind).second) << qPrintable(entry.control);
            all.insert(entry.control);
            EXPECT_TRUE(known(panels, entry.panel) && known(groups, entry.group)) << qPrintable(entry.control);
        }
        QStringList named{record.nameControl, record.newFocus, record.copyCheck, record.copyNumber};
        for (const records::Choices &list : record.lists)
            named << QStringList(list.controls.begin(), list.controls.end());
        for (const records::PageBlock &block : record.page)
            named << block.control;
        for (const records::Option &option : record.options) {
            named << option.check << QStringList(option.controls.begin(), option.controls.end());
            EXPECT_EQ(fields[option.check], records::FieldKind::Check) << qPrintable(option.check);
        }
        for (const records::ChildGrid &child : record.children) {
            named << child.keyControl;
            EXPECT_TRUE(panels.contains(child.panel)) << qPrintable(child.panel);
        }
        for (const QString &name : named)
            EXPECT_TRUE(known(all, name)) << qPrintable(name);
        for (const records::Choices &list : record.lists)
            for (const QString &name : list.controls)
                EXPECT_TRUE(fields[name] == records::FieldKind::List || fields[name] == records::FieldKind::Choice) << qPrintable(name);
        // The choosers that the screen opens are those of the section.
        EXPECT_EQ(sectionByCode(record.letter), one);
        EXPECT_FALSE(chooserOf(*one, PathKind::Picture).isEmpty());
        EXPECT_EQ(fields.contains(u"lblSoundFile"_s), !chooserOf(*one, PathKind::Sound).isEmpty());
        EXPECT_TRUE(known(panels, record.picturePanel));
        EXPECT_TRUE(record.picturePanel.isEmpty() || one->pictures->set);
    }
}

}
