#include "session/sections/collections.h"
#include "session/sections/parts.h"

namespace vorel::records {

using namespace Qt::StringLiterals;
using enum FieldKind;

const RecordDesign &musicRecord()
{
    static const RecordDesign design{
        .letter = u"U"_s, .screen = u"frmMusic"_s, .title = u"Music"_s,
        .file = DataFile::Music, .table = u"MUSIC"_s, .rows = u"SELECT * FROM [MUSIC] ORDER BY [Title]"_s, .dataControl = u"dtaMusicData"_s,
        .colourKey = u"MusicBackColour"_s, .picture = u"\\music.jpg"_s,
        .web = u"https://musicbrainz.org"_s,
        .nameControl = u"txtTitle"_s, .newFocus = u"txtTitle"_s, .emptyNote = u"No music yet.\nNew adds the first title."_s,
        .copyCheck = u"chkOwnCopy"_s, .copyNumber = u"txtStorageID"_s, .pageFile = u"\\Music.HTML"_s, .pageHeading = u"MUSIC"_s,
        .trees = {allButton(u"TITLE"_s), categoryButton(u"TITLE"_s),
                  valueButton(u"cmdArtist"_s, u"Artist"_s, u" By artist "_s, u"ARTIST"_s)},
        .panels = {{u"picDetails"_s, u"Details"_s}, {u"picReview"_s, u"Review"_s}, {u"picLoan"_s, u"Loan"_s}, {u"picOther"_s, u"Other"_s},
                   {u"picTracks"_s, u"Tracks"_s}},
        .fields = collectionFields({
            {.control = u"txtTitle"_s, .field = u"TITLE"_s, .label = u"&Title"_s, .rules = FieldRule::Grave | FieldRule::OneLine},
            {.control = u"txtArtist"_s, .field = u"ARTIST"_s, .label = u"&Artist"_s, .rules = FieldRule::Grave},
            {.control = u"txtDistributor"_s, .field = u"DISTRIBUTOR"_s, .label = u"&Distributor"_s, .rules = FieldRule::Grave},
            {.control = u"cboType"_s, .field = u"TYPE"_s, .kind = List, .label = u"T&ype"_s},
            {.control = u"cboCategory"_s, .field = u"CATEGORY"_s, .kind = List, .label = u"&Category"_s}}, true),
        .lists = {{{u"cboType"_s}, {u"CD"_s, u"Cassette"_s, u"LP"_s}, u"select Distinct(TYPE) from [MUSIC] ;"_s},
                  {{u"cboRating"_s}, {}, u"select Distinct(RATING) from [MUSIC] ;"_s},
                  {{u"cboCategory"_s}, {}, u"select Distinct(CATEGORY) from [MUSIC] WHERE [CATEGORY]<>'';"_s}},
        .options = {{u"chkOwnCopy"_s, {u"txtStorageID"_s}}},
        .newRow = {{u"COMMENTS"_s, newRecordHint(u"music"_s, u"music title"_s)}, {u"TITLE"_s}},
        .page = {{u"TITLE"_s, u"txtTitle"_s, false}, {u"CATEGORY"_s, u"cboCategory"_s}, {u"ARTIST"_s, u"txtArtist"_s, true, true},
                 {u"DISTRIBUTOR"_s, u"txtDistributor"_s}, {u"TYPE"_s, u"cboType"_s}, {u"REVIEW"_s, u"txtComments"_s, false}},
        // The column ends 700 twips short of the grid's edge.
        .children = {{.control = u"grdTracks"_s, .dataControl = u"dtaTracks"_s, .panel = u"picTracks"_s, .spoken = u"Tracks"_s,
                      .rows = u"Select * FROM [TRACKS] WHERE [ID]="_s, .key = u"ID"_s,
                      .columns = {{.field = u"TRACK"_s, .caption = u"TRACK"_s, .margin = 700}},
                      .note = u"Type a track into the last line. The Delete key removes the selected track."_s}},
        .childDeletes = {u"DELETE * FROM [TRACKS] WHERE [ID]=%id;"_s},
    };
    return design;
}

}

namespace vorel::sections {

SectionDesign music()
{
    return {
        .id = SectionId::Music,
        .name = u"Music"_s,
        .code = u"U"_s,
        .file = DataFile::Music,
        .list = ListDesign{
            .title = u"MUSIC"_s,
            .query = u"SELECT [ID],[TITLE],[ARTIST],' ' as PBUT,[FILENAME] FROM [MUSIC] ORDER BY [TITLE],[ARTIST]"_s,
            .columns = {hidden(u"ID"_s), shown(u"TITLE"_s), shown(u"ARTIST"_s), button(), hidden(u"FILENAME"_s)},
            .rules = {pictureRule()}},
        .grid = GridDesign{.word = u"MUSIC"_s, .widths = {2000, 2500}, .styleSet = u"MUSIC"_s,
                           .colour = GridColourDesign{u"MusicGridColour"_s}, .empty = u"No music yet.\nPress New to enter the first title."_s},
        .button = ButtonDesign{11, u" Music "_s, u" Music Library "_s, u"audio-x-generic"_s, RailGroup::Collections, 2,
                               {u"MUSIC"_s, {u" Your records and discs, with their artists and tracks."_s}}},
        .feature = FeatureDesign{u"Music"_s, {u"mnuPrintMusic"_s}},
        .print = PrintDesign{u"mnuPrintMusic"_s, u"M&usic"_s,
            {.titleWord = u"MUSIC as at "_s, .file = DataFile::Music, .query = u"Select * from [MUSIC] order by [TITLE]"_s,
             .orientation = 2,
             .columns = {column(u"TITLE"_s, 1, 36), column(u"ARTIST"_s, 40, 36), column(u"MEDIA"_s, u"TYPE"_s, 80), column(u"RATING"_s, 90)}}},
        .rowTip = RowTipDesign{u"MUSIC"_s,
                               {text(u" TITLE:"_s, u"TITLE"_s), text(u" ARTIST:"_s, u"ARTIST"_s), text(u" DISTRIBUTOR:"_s, u"DISTRIBUTOR"_s),
                                text(u" TYPE:"_s, u"TYPE"_s), text(u" CATEGORY:"_s, u"CATEGORY"_s), text(u" RATING:"_s, u"RATING"_s),
                                text(u" ON LOAN TO:"_s, u"ONLOAN"_s), text(u" COMMENTS:"_s, u"COMMENTS"_s)}},
        .screen = RecordScreenDesign{.name = u"frmMusic"_s, .record = records::musicRecord},
        .pictures = PicturesDesign{u"MusicPictures"_s, {{u"Music Picture"_s}, {u"Music Sound"_s, PathKind::Sound}}},
        .help = HelpDesign{u"\\INFOMUSIC.RTF"_s},
    };
}

}
