#pragma once

#include "records/frmBooks.h"
#include "records/frmInventory.h"
#include "records/frmMovies.h"
#include "records/frmMusic.h"
#include "session/ini.h"
#include "store/mainfile.h"
#include "support/screens.h"

#include <QAbstractItemModel>
#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QSet>
#include <QTabBar>
#include <QTest>
#include <QTreeView>

// A failing comparison prints its texts, not their bytes.
inline void PrintTo(const QString &text, std::ostream *out) { *out << qPrintable(text); }
inline void PrintTo(const QStringList &texts, std::ostream *out) { *out << qPrintable(texts.join(QStringLiteral(" / "))); }

namespace vorel::test {

// A real screen of a section over real files, driven by its controls' names.
class SectionScreen : public MainFileTest {
protected:
    SectionScreen()
    {
        putEmptyFiles(m_folder.path());
        state().gIniFile = m_folder.path(u"test.ini"_s);
        state().settings.gUserName = u"Rosemary"_s;
        state().settings.gDateShort = u"mm/dd/yyyy"_s;
        PutIniValue(iniSettings, u"ContactsUpperCase"_s, u"False"_s);
        for (const auto &[file, name] : {std::pair{DataFile::Books, u"BOOKS.MDB"_s}, {DataFile::Movies, u"MOVIES.MDB"_s},
                                         {DataFile::Music, u"MUSIC.MDB"_s}, {DataFile::Contacts, u"CONTACTS.MDB"_s}})
            state().path(file) = m_folder.path(name);
    }
    ~SectionScreen() override { form.reset(); }

    template <class Screen> void openScreen(const QString &letter)
    {
        state().selection.gSection = letter;
        form = std::make_unique<Screen>();
        form->show();
    }

    static void run(DataFile file, const QStringList &statements)
    {
        dao::Database database = dao::DBEngine::OpenDatabase(state().path(file));
        for (const QString &sql : statements)
            database.Execute(sql);
    }
    // The rows of a query, each with its fields parted by "|".
    static QStringList read(DataFile file, const QString &sql)
    {
        dao::Database database = dao::DBEngine::OpenDatabase(state().path(file));
        return rowsOf(database, sql);
    }

    template <class W = QWidget> W *at(const QString &name) { return control<W>(*form, name); }
    QString text(const QString &name) { return shownText(at(name)); }
    // As a user does: the panel is brought up first.
    void bringUp(QWidget *widget)
    {
        auto *tabs = form->findChild<QTabBar *>();
        for (int tab = 0; tab < tabs->count() && !widget->isVisible(); ++tab)
            tabs->setCurrentIndex(tab);
    }
    void click(const QString &name)
    {
        auto *button = at<QAbstractButton>(name);
        bringUp(button);
        ASSERT_TRUE(button->isVisible() && button->isEnabled()) << qPrintable(name);
        QTest::mouseClick(button, Qt::LeftButton, {}, qobject_cast<QPushButton *>(button) ? QPoint() : QPoint(8, button->height() / 2));
    }
    void type(const QString &name, const QString &words)
    {
        bringUp(at(name));
        typeInto(at(name), words);
    }
    // Of the controls on show.
    QStringList repeatedMnemonics()
    {
        QSet<QChar> used;
        QStringList repeated;
        for (QWidget *widget : form->findChildren<QWidget *>()) {
            const QString caption = widget->property("text").toString();
            const qsizetype at = caption.indexOf(u'&');
            if (at < 0 || !widget->isVisible() || qobject_cast<QComboBox *>(widget->parentWidget()) || qobject_cast<QLineEdit *>(widget))
                continue;
            const QChar key = caption.at(at + 1).toLower();
            if (used.contains(key))
                repeated << caption;
            used.insert(key);
        }
        return repeated;
    }
    // "D: DUNE, DUBLINERS" for each group of the tree.
    QStringList nodes()
    {
        const QAbstractItemModel *model = at<QTreeView>(u"TreeView"_s)->model();
        QStringList groups;
        for (int row = 0; row < model->rowCount(); ++row) {
            const QModelIndex group = model->index(row, 0);
            QStringList leaves;
            for (int leaf = 0; leaf < model->rowCount(group); ++leaf)
                leaves << model->index(leaf, 0, group).data().toString();
            groups << group.data().toString() + u": "_s + leaves.join(u", "_s);
        }
        return groups;
    }
    QString selectedNode() { return at<QTreeView>(u"TreeView"_s)->currentIndex().data().toString(); }
    void clickNode(const QString &words)
    {
        auto *tree = at<QTreeView>(u"TreeView"_s);
        tree->expandAll();
        const QModelIndexList found = tree->model()->match(tree->model()->index(0, 0), Qt::DisplayRole, words, 1,
                                                           Qt::MatchExactly | Qt::MatchRecursive);
        ASSERT_FALSE(found.isEmpty()) << qPrintable(words);
        tree->scrollTo(found.first());
        QTest::mouseClick(tree->viewport(), Qt::LeftButton, {}, tree->visualRect(found.first()).center());
    }

    ScriptedPrompts &user = m_prompts;
    std::unique_ptr<frmSection> form;
};

}
