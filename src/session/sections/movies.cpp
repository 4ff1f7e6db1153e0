#include "session/sections/collections.h"
#include "session/sections/parts.h"

namespace vorel::records {

using namespace Qt::StringLiterals;
using enum FieldKind;

const RecordDesign &moviesRecord()
{
    static const RecordDesign design{
        .letter = u"V"_s, .screen = u"frmMovies"_s, .title = u"Movies"_s,
        .file = DataFile::Movies, .table = u"MOVIES"_s, .rows = u"SELECT * FROM [MOVIES] ORDER BY [TITLE]"_s, .dataControl = u"dtaMoviesData"_s,
        .colourKey = u"MovieBackColour"_s, .picture = u"\\movies.jpg"_s,
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

namespace vorel::sections {

SectionDesign movies()
{
    return {
        .id = SectionId::Movies,
        .name = u"Movies"_s,
        .code = u"V"_s,
        .file = DataFile::Movies,
        .list = ListDesign{
            .title = u"MOVIES"_s,
            .query = u"SELECT [ID],[Title],[Seen],[Stars],' ' as PBUT,[FILENAME] FROM [Movies] ORDER BY [Title]"_s,
            .columns = {hidden(u"ID"_s), shown(u"Title"_s, u"TITLE"_s), shown(u"Seen"_s, u"SEEN"_s), shown(u"Stars"_s, u"STARS"_s),
                        button(), hidden(u"FILENAME"_s)},
            .rules = {pictureRule()}},
        .grid = GridDesign{.word = u"MOVIES"_s, .widths = {2000, 600, 2500}, .styleSet = u"MOVIES"_s,
                           .colour = GridColourDesign{u"MoviesGridColour"_s}, .empty = u"No movies yet.\nPress New to enter the first one."_s},
        .button = ButtonDesign{10, u" Movies "_s, u" Movie Library "_s, u"video-x-generic"_s, RailGroup::Collections, 1,
                               {u"MOVIES"_s, {u" Your movies: the stars, whether you have seen them, and who has borrowed them."_s}}},
        .feature = FeatureDesign{u"Movies"_s, {u"mnuPrintMovies"_s}},
        .print = PrintDesign{u"mnuPrintMovies"_s, u"Mo&vies"_s,
            {.titleWord = u"MOVIES as at "_s, .file = DataFile::Movies, .query = u"Select * from [MOVIES] order by [TITLE]"_s,
             .orientation = 2, .rowLimit = 20,
             .columns = {column(u"TITLE"_s, 1, 36), wrapped(u"STARS"_s, u"STARS"_s, 30, 36), wrapped(u"PRODUCER"_s, u"PRODUCER"_s, 50, 36),
                         wrapped(u"DIRECTOR"_s, u"DIRECTOR"_s, 65, 36), column(u"SEEN"_s, 80), column(u"RATING"_s, 90)}}},
        .rowTip = RowTipDesign{u"MOVIES"_s,
                               {text(u" TITLE:"_s, u"TITLE"_s), text(u" STARS:"_s, u"STARS"_s), text(u" DIRECTOR:"_s, u"DIRECTOR"_s),
                                text(u" CLASSIFICATION:"_s, u"CLASSIFICATION"_s), text(u" CATEGORY:"_s, u"CATEGORY"_s),
                                text(u" RATING:"_s, u"RATING"_s), date(u" DATE SEEN:"_s, u"DATESEEN"_s),
                                text(u" ON LOAN TO:"_s, u"ONLOAN"_s), text(u" COMMENTS:"_s, u"COMMENTS"_s)}},
        .screen = RecordScreenDesign{.name = u"frmMovies"_s, .record = records::moviesRecord},
        .pictures = PicturesDesign{u"MoviePictures"_s, {{u"Movie Picture"_s}, {u"Movie Sound"_s, PathKind::Sound}}},
        .help = HelpDesign{u"\\INFOMOVIES.RTF"_s},
    };
}

}
