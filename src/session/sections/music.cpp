#include "session/sections/collections.h"

namespace vorel::records {

using namespace Qt::StringLiterals;
using enum FieldKind;

const RecordDesign &musicRecord()
{
    static const RecordDesign design = [] {
        RecordDesign made;
        made.letter = u"U";
        made.screen = u"frmMusic";
        made.title = u"Music";
        made.file = DataFile::Music;
        made.table = u"MUSIC";
        made.rows = u"SELECT * FROM [MUSIC] ORDER BY [Title]";
        made.dataControl = u"dtaMusicData";
        made.colourKey = u"MusicBackColour";
        made.picture = u"\\music.jpg";
        made.chooser = u"Music Picture";
        made.sound = u"Music Sound";
        made.web = u"https://musicbrainz.org";
        made.treeField = u"TITLE";
        made.nameControl = made.newFocus = u"txtTitle";
        made.emptyNote = u"No music yet.\nNew adds the first title.";
        made.copyCheck = u"chkOwnCopy";
        made.copyNumber = u"txtStorageID";
        made.pageFile = u"\\Music.HTML";
        made.pageHeading = u"MUSIC";
        made.trees = {allButton(u"TITLE"), categoryButton(u"TITLE"),
                      {u"cmdArtist", u"Artist", u" By artist ", TreeMode::ByField, u"ARTIST"}};
        made.panels = {{u"picDetails", u"Details"}, {u"picReview", u"Review"}, {u"picLoan", u"Loan"}, {u"picOther", u"Other"},
                       {u"picTracks", u"Tracks"}};
        made.fields = {
            {u"txtTitle", u"TITLE", Line, u"picDetails", u"&Title", u"", true, true},
            {u"txtArtist", u"ARTIST", Line, u"picDetails", u"&Artist", u"", true},
            {u"txtDistributor", u"DISTRIBUTOR", Line, u"picDetails", u"&Distributor", u"", true},
            {u"cboType", u"TYPE", List, u"picDetails", u"T&ype"},
            {u"cboCategory", u"CATEGORY", List, u"picDetails", u"&Category"},
            {u"cboRating", u"RATING", List, u"picReview", u"Ratin&g"},
            {u"txtComments", u"COMMENTS", Rich, u"picReview", u"Comment&s"},
        };
        addLoanFields(made.fields);
        made.fields.push_back({u"lblSoundFile", u"SOUNDFILENAME", Sound, u"picOther", u"Sound:", u"lblSound"});
        addKeyFields(made.fields);
        made.lists = {{u"cboType", {u"CD"_s, u"Cassette"_s, u"LP"_s}, u"select Distinct(TYPE) from [MUSIC] ;"},
                      {u"cboRating", {}, u"select Distinct(RATING) from [MUSIC] ;"},
                      {u"cboCategory", {}, u"select Distinct(CATEGORY) from [MUSIC] WHERE [CATEGORY]<>'';"}};
        made.options = {{u"chkOwnCopy", {u"txtStorageID"}}};
        made.newRow = {{u"COMMENTS", u"If you have the Internet connected then you may find the description of the music to "
                                     u"paste here, otherwise enter your own. You may also find a picture of the music title "
                                     u"to load into your picture box"},
                       {u"TITLE", u""}};
        made.page = {{u"TITLE", u"txtTitle", false}, {u"CATEGORY", u"cboCategory"}, {u"ARTIST", u"txtArtist", true, true},
                     {u"DISTRIBUTOR", u"txtDistributor"}, {u"TYPE", u"cboType"}, {u"REVIEW", u"txtComments", false}};
        return made;
    }();
    return design;
}

}
