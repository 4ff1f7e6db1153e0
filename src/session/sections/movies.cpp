#include "session/sections/collections.h"

namespace vorel::records {

using enum FieldKind;

const RecordDesign &moviesRecord()
{
    static const RecordDesign design = [] {
        RecordDesign made;
        made.letter = u"V";
        made.screen = u"frmMovies";
        made.title = u"Movies";
        made.file = DataFile::Movies;
        made.table = u"MOVIES";
        made.rows = u"SELECT * FROM [MOVIES] ORDER BY [TITLE]";
        made.dataControl = u"dtaMoviesData";
        made.colourKey = u"MovieBackColour";
        made.picture = u"\\movies.jpg";
        made.chooser = u"Movie Picture";
        made.sound = u"Movie Sound";
        made.web = u"https://www.themoviedb.org";
        made.treeField = u"TITLE";
        made.nameControl = made.newFocus = u"txtTitle";
        made.emptyNote = u"No movies yet.\nNew adds the first one.";
        made.copyCheck = u"chkOwnCopy";
        made.copyNumber = u"txtStorageID";
        made.pageFile = u"\\Movie.HTML";
        made.pageHeading = u"MOVIES";
        made.trees = {allButton(u"TITLE"), categoryButton(u"TITLE")};
        made.panels = {{u"picDetails", u"Details"}, {u"picReview", u"Review"}, {u"picLoan", u"Loan"}, {u"picOther", u"Other"}};
        made.fields = {
            {u"txtTitle", u"TITLE", Line, u"picDetails", u"&Title", u"", true, true},
            {u"txtStarring", u"STARS", Lines, u"picDetails", u"&Starring", u"", true},
            {u"txtDirector", u"DIRECTOR", Line, u"picDetails", u"&Director"},
            {u"txtProducer", u"PRODUCER", Line, u"picDetails", u"&Producer"},
            {u"cboCategory", u"CATEGORY", List, u"picDetails", u"&Category"},
            {u"cboClassification", u"CLASSIFICATION", List, u"picDetails", u"Classi&fication"},
            {u"cboMediaType", u"MEDIA", List, u"picDetails", u"&Media"},
            {u"chkSeen", u"SEEN", Check, u"picReview", u"S&een"},
            {u"cboRating", u"RATING", List, u"picReview", u"Ratin&g"},
            {u"txtComments", u"COMMENTS", Rich, u"picReview", u"Comment&s"},
        };
        addLoanFields(made.fields);
        made.fields.push_back({u"lblSoundFile", u"SOUNDFILENAME", Sound, u"picOther", u"Sound:", u"lblSound"});
        addKeyFields(made.fields);
        made.lists = {{u"cboMediaType", {}, u"select Distinct(MEDIA) from [MOVIES] ;"},
                      {u"cboRating", {}, u"select Distinct(RATING) from [MOVIES] ;"},
                      {u"cboClassification", {}, u"select Distinct(CLASSIFICATION) from [MOVIES] ;"},
                      {u"cboCategory", {}, u"select Distinct(CATEGORY) from [MOVIES] WHERE [CATEGORY]<>'';"}};
        made.options = {{u"chkOwnCopy", {u"txtStorageID"}}, {u"chkSeen", {u"cboRating"}}};
        made.newRow = {{u"COMMENTS", u"If you have the Internet connected then you may find the description of the movie to "
                                     u"paste here, otherwise enter your own. You may also find a picture of the movie to load "
                                     u"into your picture box"},
                       {u"TITLE", u""}};
        made.page = {{u"TITLE", u"txtTitle", false}, {u"CATEGORY", u"cboCategory"}, {u"STARRING", u"txtStarring", true, true},
                     {u"DIRECTOR", u"txtDirector"}, {u"PRODUCER", u"txtProducer"}, {u"REVIEW", u"txtComments", false}};
        return made;
    }();
    return design;
}

}
