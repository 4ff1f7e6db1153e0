#include "records/viewpage.h"
#include "store/mainfile.h"

#include <QDesktopServices>
#include <QUrl>
#include <QXmlStreamReader>

namespace vorel {

using namespace Qt::StringLiterals;

namespace {

class Page : public QObject, public test::MainFileTest {
    Q_OBJECT
public:
    Page() { QDesktopServices::setUrlHandler(u"file"_s, this, "open"); }
    ~Page() override { QDesktopServices::unsetUrlHandler(u"file"_s); }

public slots:
    void open(const QUrl &url) { m_opened << url.toLocalFile(); }

protected:
    // The page's body as "name:text" of each element with text, "img:SRC WxH" for a picture.
    static QStringList elements(const records::ViewPage &page)
    {
        QString html = records::viewPageText(page);
        EXPECT_TRUE(html.startsWith(u"<!DOCTYPE html>\n"));
        html = html.mid(html.indexOf(u"<body>"));
        html = html.left(html.indexOf(u"</html>")).replace(u"alt=\"\">"_s, u"alt=\"\"/>"_s).replace(u"&nbsp;"_s, u"\u00a0"_s);
        QXmlStreamReader xml(html);     // but for the void element well-formed, so that nothing is left open
        QStringList found;
        QString element;
        while (!xml.atEnd()) {
            xml.readNext();
            if (xml.isStartElement())
                element = xml.name().toString();
            if (xml.isStartElement() && element == u"img")
                found << u"img:%1 %2x%3"_s.arg(xml.attributes().value(u"src"_s), xml.attributes().value(u"width"_s),
                                               xml.attributes().value(u"height"_s));
            if (xml.isCharacters() && !xml.text().trimmed().isEmpty())
                found << element + u':' + xml.text().toString();
            if (xml.isCharacters() && xml.text() == u"\u00a0")
                found << element + u":(blank)"_s;
        }
        EXPECT_FALSE(xml.hasError()) << xml.errorString().toStdString();
        return found;
    }

    QStringList m_opened;
};

}

TEST_F(Page, BlocksLinesAndMarks)
{
    records::ViewPage page{u"\\Book.HTML"_s, u"BOOKS"_s, {}, {}, {}};
    page.blocks = {{u"TITLE"_s, u"<b>Tom & \"Jerry\"</b>\x01 Ä\u20ac"_s},
                   {u"CATEGORY"_s, u"  "_s, true},
                   {u"AUTHOR"_s, u"Ann\r\nBob\r\n"_s, false, true},
                   {u"PUBLISHER"_s, {}, false, true},
                   {u"REVIEW"_s, u"One\n\nTwo"_s}};
    EXPECT_EQ(elements(page), (QStringList{u"h1:BOOKS"_s, u"h2:TITLE"_s, u"p:<b>Tom & \"Jerry\"</b> Ä\u20ac"_s, u"h2:AUTHOR"_s, u"p: - Ann"_s,
                                           u"p: - Bob"_s, u"h2:PUBLISHER"_s, u"h2:REVIEW"_s, u"p:One"_s, u"p:(blank)"_s, u"p:Two"_s}));
    const QString head = records::viewPageText(page).section(u"<body>"_s, 0, 0);
    EXPECT_TRUE(head.contains(u"<meta charset=\"utf-8\">"));
    EXPECT_TRUE(head.contains(u"<title>BOOKS - &lt;b&gt;Tom &amp; "));
}

TEST_F(Page, Picture)
{
    struct Case { QString picture; QSize size; QString element; };
    const Case cases[] = {{{}, {1500, 1500}, {}},
                          {m_folder.path(u"DefaultS.jpg"_s), {1500, 1500}, {}},
                          {m_folder.path(u"defaultl.JPG"_s), {1500, 1500}, {}},
                          {u":/pictures/date.svg"_s, {1500, 1500}, {}},
                          {u"/p/a b's \"c\" #1&2?.jpg"_s, {1504, 3006}, u"img:file:///p/a%20b's%20%22c%22%20%231&2%3F.jpg 150x301"_s},
                          {u"/p/DefaultS.jpg"_s, {}, u"img:file:///p/DefaultS.jpg x"_s}};
    for (const Case &c : cases) {
        const QStringList found = elements({u"\\Book.HTML"_s, u"BOOKS"_s, c.picture, c.size, {}});
        EXPECT_EQ(found, c.element.isEmpty() ? QStringList{u"h1:BOOKS"_s} : (QStringList{c.element, u"h1:BOOKS"_s})) << c.picture.toStdString();
    }
}

TEST_F(Page, IsWrittenAnewAndOpened)
{
    const QString outside = m_folder.write(u"kept/other.txt"_s, "precious");
    ASSERT_TRUE(QFile::link(outside, m_folder.path(u"book.html"_s)));
    records::ViewPage page{u"\\Book.HTML"_s, u"BOOKS"_s, {}, {}, {{u"TITLE"_s, u"Ä"_s}}};
    records::showViewPage(page);
    ASSERT_EQ(m_opened.size(), 1);
    QFile written(m_opened[0]);
    ASSERT_TRUE(written.open(QIODevice::ReadOnly));
    EXPECT_EQ(written.readAll(), records::viewPageText(page).toUtf8());
    EXPECT_EQ(m_folder.read(u"kept/other.txt"_s), "precious");
}

TEST_F(Page, CannotBeWritten)
{
    ASSERT_TRUE(QDir(m_folder.path()).mkpath(u"Book.HTML/full"_s));     // also for a user who may write everywhere
    EXPECT_EQ(test::errorOf([] { records::showViewPage({u"\\Book.HTML"_s, u"BOOKS"_s, {}, {}, {}}); }), 75);
    basic::setProgramFolder(m_folder.path(u"gone"_s));
    EXPECT_EQ(test::errorOf([] { records::showViewPage({u"\\Book.HTML"_s, u"BOOKS"_s, {}, {}, {}}); }), 75);
    EXPECT_TRUE(m_opened.isEmpty());
}

}

#include "viewpage_test.moc"
