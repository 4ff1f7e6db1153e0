#include "session/sections/collections.h"

namespace vorel::records {

using namespace Qt::StringLiterals;
using enum FieldKind;

const RecordDesign &booksRecord()
{
    static const RecordDesign design{
        .letter = u"K"_s, .screen = u"frmBooks"_s, .title = u"Books"_s,
        .file = DataFile::Books, .table = u"BOOKS"_s, .rows = u"SELECT * FROM [BOOKS] ORDER BY [Title]"_s, .dataControl = u"dtaBookData"_s,
        .colourKey = u"BookBackColour"_s, .pictureKey = u"ShowBookPic"_s, .picture = u"\\books.jpg"_s, .chooser = u"Book Picture"_s,
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
