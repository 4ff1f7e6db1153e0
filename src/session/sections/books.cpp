#include "session/sections/collections.h"
#include "session/sections/parts.h"

namespace vorel::records {

using namespace Qt::StringLiterals;
using enum FieldKind;

const RecordDesign &booksRecord()
{
    static const RecordDesign design{
        .letter = u"K"_s, .screen = u"frmBooks"_s, .title = u"Books"_s,
        .file = DataFile::Books, .table = u"BOOKS"_s, .rows = u"SELECT * FROM [BOOKS] ORDER BY [Title]"_s, .dataControl = u"dtaBookData"_s,
        .colourKey = u"BookBackColour"_s, .pictureKey = u"ShowBookPic"_s, .picture = u"\\books.jpg"_s,
        .web = u"https://openlibrary.org"_s,
        .nameControl = u"txtTitle"_s, .newFocus = u"txtTitle"_s, .emptyNote = u"No books yet.\nNew adds the first one."_s,
        .copyCheck = u"chkOwnCopy"_s, .copyNumber = u"txtStorageID"_s, .pageFile = u"\\Book.HTML"_s, .pageHeading = u"BOOKS"_s,
        .trees = {allButton(u"TITLE"_s), categoryButton(u"TITLE"_s),
                  valueButton(u"cmdAuthor"_s, u"Author"_s, u" By author "_s, u"AUTHOR"_s)},
        .panels = {{u"picDetails"_s, u"Details"_s}, {u"picReview"_s, u"Review"_s}, {u"picLoan"_s, u"Loan"_s}, {u"picOther"_s, u"Other"_s}},
        .fields = collectionFields({
            {.control = u"txtTitle"_s, .field = u"TITLE"_s, .label = u"&Title"_s, .rules = FieldRule::Grave | FieldRule::OneLine},
            {.control = u"txtAuthor"_s, .field = u"AUTHOR"_s, .kind = Lines, .label = u"&Author"_s, .rules = FieldRule::Grave},
            {.control = u"txtPublisher"_s, .field = u"PUBLISHER"_s, .kind = Lines, .label = u"&Publisher"_s},
            {.control = u"cboCategory"_s, .field = u"CATEGORY"_s, .kind = List, .label = u"&Category"_s}}, false),
        .lists = {{{u"cboRating"_s}, {}, u"select Distinct(RATING) from [BOOKS] ;"_s},
                  {{u"cboCategory"_s}, {}, u"select Distinct(CATEGORY) from [BOOKS] WHERE [CATEGORY]<>'';"_s}},
        .options = {{u"chkOwnCopy"_s, {u"txtStorageID"_s}}},
        .newRow = {{u"COMMENTS"_s, newRecordHint(u"book"_s, u"book"_s)}, {u"TITLE"_s}},
        .page = {{u"TITLE"_s, u"txtTitle"_s, false}, {u"CATEGORY"_s, u"cboCategory"_s}, {u"AUTHOR"_s, u"txtAuthor"_s, false, true},
                 {u"PUBLISHER"_s, u"txtPublisher"_s, false, true}, {u"REVIEW"_s, u"txtComments"_s, false}},
    };
    return design;
}

}

namespace vorel::sections {

SectionDesign books()
{
    return {
        .id = SectionId::Books,
        .name = u"Books"_s,
        .code = u"K"_s,
        .file = DataFile::Books,
        .list = ListDesign{
            .title = u"BOOKS"_s,
            .query = u"SELECT [ID],[Title],[Read],[Author],' ' as PBUT,[FILENAME] FROM [Books] ORDER BY [Title]"_s,
            .columns = {hidden(u"ID"_s), shown(u"Title"_s, u"TITLE"_s), shown(u"Read"_s, u"READ"_s), shown(u"Author"_s, u"AUTHOR"_s),
                        button(), hidden(u"FILENAME"_s)},
            .rules = {pictureRule()}},
        .grid = GridDesign{.word = u"BOOKS"_s, .widths = {2000, 600, 2500}, .styleSet = u"BOOKS"_s,
                           .colour = GridColourDesign{u"BooksGridColour"_s}, .empty = u"No books yet.\nPress New to enter the first one."_s},
        .button = ButtonDesign{9, u" Books "_s, u" Book Library "_s, u"folder-book"_s, RailGroup::Collections, 0,
                               {u"BOOKS"_s, {u" Your library: who wrote each book, whether you have read it, and who has borrowed it."_s}}},
        .feature = FeatureDesign{u"Books"_s, {u"mnuPrintBooks"_s}},
        .print = PrintDesign{u"mnuPrintBooks"_s, u"Boo&ks"_s,
            {.titleWord = u"BOOKS as at "_s, .file = DataFile::Books, .query = u"Select * from [BOOKS] order by [TITLE]"_s,
             .orientation = 2, .heightTest = false,
             .columns = {column(u"TITLE"_s, 1, 36), column(u"DATE READ"_s, u"READ"_s, 40), column(u"AUTHOR"_s, 50, 30),
                         column(u"PUBLISHER"_s, 75, 30), column(u"RATING"_s, 90, 30)}}},
        .rowTip = RowTipDesign{u"BOOKS"_s,
                               {text(u" TITLE:"_s, u"TITLE"_s), text(u" AUTHOR:"_s, u"AUTHOR"_s), text(u" PUBLISHER:"_s, u"PUBLISHER"_s),
                                text(u" CATEGORY:"_s, u"CATEGORY"_s), text(u" RATING:"_s, u"RATING"_s),
                                date(u" DATE READ:"_s, u"DATEREAD"_s), text(u" ON LOAN TO:"_s, u"ONLOAN"_s),
                                text(u" COMMENTS:"_s, u"COMMENTS"_s)}},
        .screen = RecordScreenDesign{.name = u"frmBooks"_s, .record = records::booksRecord},
        .pictures = PicturesDesign{u"BookPictures"_s, {{u"Book Picture"_s}}, u"\\DefaultPicE.jpg"_s},
        .help = HelpDesign{u"\\INFOBOOKS.RTF"_s},
    };
}

}
