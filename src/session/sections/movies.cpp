#include "session/sections/collections.h"

namespace vorel::records {

using namespace Qt::StringLiterals;
using enum FieldKind;

const RecordDesign &moviesRecord()
{
    static const RecordDesign design{
        .letter = u"V"_s, .screen = u"frmMovies"_s, .title = u"Movies"_s,
        .file = DataFile::Movies, .table = u"MOVIES"_s, .rows = u"SELECT * FROM [MOVIES] ORDER BY [TITLE]"_s, .dataControl = u"dtaMoviesData"_s,
        .colourKey = u"MovieBackColour"_s, .picture = u"\\movies.jpg"_s, .chooser = u"Movie Picture"_s, .sound = u"Movie Sound"_s,
        .web = u"https://www.themoviedb.org"_s,
        .nameControl = u"txtTitle"_s, .newFocus = u"txtTitle"_s, .emptyNote = u"No movies yet.\nNew adds the first one."_s,
        .copyCheck = u"chkOwnCopy"_s, .copyNumber = u"txtStorageID"_s, .pageFile = u"\\Movie.HTML"_s, .pageHeading = u"MOVIES"_s,
        .trees = {allButton(u"TITLE"_s), categoryButton(u"TITLE"_s)},
        .panels = {{u"picDetails"_s, u"Details"_s}, {u"picReview"_s, u"Review"_s}, {u"picLoan"_s, u"Loan"_s}, {u"picOther"_s, u"Other"_s}},
        .fields = collectionFields({
            {.control = u"txtTitle"_s, .field = u"TITLE"_s, .label = u"&Title"_s, .rules = FieldRule::Grave | FieldRule::OneLine},
            {.control = u"txtStarring"_s, .field = u"STARS"_s, .kind = Lines, .label = u"&Starring"_s, .rules = FieldRule::Grave},
            {.control = u"txtDirector"_s, .field = u"DIRECTOR"_s, .label = u"&Director"_s},
            {.control = u"txtProducer"_s, .field = u"PRODUCER"_s, .label = u"&Producer"_s},
            {.control = u"cboCategory"_s, .field = u"CATEGORY"_s, .kind = List, .label = u"&Category"_s},
            {.control = u"cboClassification"_s, .field = u"CLASSIFICATION"_s, .kind = List, .label = u"Classi&fication"_s},
            {.control = u"cboMediaType"_s, .field = u"MEDIA"_s, .kind = List, .label = u"&Media"_s},
            {.control = u"chkSeen"_s, .field = u"SEEN"_s, .kind = Check, .panel = u"picReview"_s, .label = u"S&een"_s}}, true),
        .lists = {{{u"cboMediaType"_s}, {}, u"select Distinct(MEDIA) from [MOVIES] ;"_s},
                  {{u"cboRating"_s}, {}, u"select Distinct(RATING) from [MOVIES] ;"_s},
                  {{u"cboClassification"_s}, {}, u"select Distinct(CLASSIFICATION) from [MOVIES] ;"_s},
                  {{u"cboCategory"_s}, {}, u"select Distinct(CATEGORY) from [MOVIES] WHERE [CATEGORY]<>'';"_s}},
        .options = {{u"chkOwnCopy"_s, {u"txtStorageID"_s}}, {u"chkSeen"_s, {u"cboRating"_s}}},
        .newRow = {{u"COMMENTS"_s, newRecordHint(u"movie"_s, u"movie"_s)}, {u"TITLE"_s}},
        .page = {{u"TITLE"_s, u"txtTitle"_s, false}, {u"CATEGORY"_s, u"cboCategory"_s}, {u"STARRING"_s, u"txtStarring"_s, true, true},
                 {u"DIRECTOR"_s, u"txtDirector"_s}, {u"PRODUCER"_s, u"txtProducer"_s}, {u"REVIEW"_s, u"txtComments"_s, false}},
    };
    return design;
}

}
