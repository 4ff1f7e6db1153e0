#include "session/sections/collections.h"

namespace vorel::records {

using enum FieldKind;

const RecordDesign &booksRecord()
{
    static const RecordDesign design = [] {
        RecordDesign made;
        made.letter = u"K";
        made.screen = u"frmBooks";
        made.title = u"Books";
        made.file = DataFile::Books;
        made.table = u"BOOKS";
        made.rows = u"SELECT * FROM [BOOKS] ORDER BY [Title]";
        made.dataControl = u"dtaBookData";
        made.colourKey = u"BookBackColour";
        made.pictureKey = u"ShowBookPic";
        made.picture = u"\\books.jpg";
        made.chooser = u"Book Picture";
        made.web = u"https://openlibrary.org";
        made.treeField = u"TITLE";
        made.nameControl = made.newFocus = u"txtTitle";
        made.emptyNote = u"No books yet.\nNew adds the first one.";
        made.copyCheck = u"chkOwnCopy";
        made.copyNumber = u"txtStorageID";
        made.pageFile = u"\\Book.HTML";
        made.pageHeading = u"BOOKS";
        made.trees = {allButton(u"TITLE"), categoryButton(u"TITLE"),
                      {u"cmdAuthor", u"Author", u" By author ", TreeMode::ByField, u"AUTHOR"}};
        made.panels = {{u"picDetails", u"Details"}, {u"picReview", u"Review"}, {u"picLoan", u"Loan"}, {u"picOther", u"Other"}};
        made.fields = {
            {u"txtTitle", u"TITLE", Line, u"picDetails", u"&Title", u"", true, true},
            {u"txtAuthor", u"AUTHOR", Lines, u"picDetails", u"&Author", u"", true},
            {u"txtPublisher", u"PUBLISHER", Lines, u"picDetails", u"&Publisher"},
            {u"cboCategory", u"CATEGORY", List, u"picDetails", u"&Category"},
            {u"cboRating", u"RATING", List, u"picReview", u"Ratin&g"},
            {u"txtComments", u"COMMENTS", Rich, u"picReview", u"Comment&s"},
        };
        addLoanFields(made.fields);
        addKeyFields(made.fields);
        made.lists = {{u"cboRating", {}, u"select Distinct(RATING) from [BOOKS] ;"},
                      {u"cboCategory", {}, u"select Distinct(CATEGORY) from [BOOKS] WHERE [CATEGORY]<>'';"}};
        made.options = {{u"chkOwnCopy", {u"txtStorageID"}}};
        made.newRow = {{u"COMMENTS", u"If you have the Internet connected then you may find the description of the book to "
                                     u"paste here, otherwise enter your own. You may also find a picture of the book to load "
                                     u"into your picture box"},
                       {u"TITLE", u""}};
        made.page = {{u"TITLE", u"txtTitle", false}, {u"CATEGORY", u"cboCategory"}, {u"AUTHOR", u"txtAuthor", false, true},
                     {u"PUBLISHER", u"txtPublisher", false, true}, {u"REVIEW", u"txtComments", false}};
        return made;
    }();
    return design;
}

}
