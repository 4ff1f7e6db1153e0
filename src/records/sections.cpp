#include "records/sections.h"

#include "platform/basic/error.h"

// The plain collections: books, movies, music.
namespace vorel::records {

using namespace Qt::StringLiterals;
using enum FieldKind;

namespace {

constexpr TreeButton allButton(QStringView field)
{
    return {u"cmdAll", u"All", u" By first character ", TreeMode::ByFirstCharacter, field};
}

constexpr TreeButton categoryButton(QStringView field)
{
    return {u"cmdCategory", u"Category", u" By category ", TreeMode::ByCategory, field};
}

// What every collection holds of its copies.
void addLoanFields(std::vector<Field> &fields)
{
    fields.insert(fields.end(), {
        {u"chkOwnCopy", u"HAVECOPY", Check, u"picLoan", u"Own &Copy"},
        {u"txtStorageID", u"STORAGEID", Line, u"picLoan", u"Libra&y #", u"lblLibrary"},
        {u"txtOnLoan", u"ONLOAN", Line, u"picLoan", u"Currently On loan &to"},
    });
}

void addKeyFields(std::vector<Field> &fields)
{
    fields.insert(fields.end(), {
        {u"lblPictureFile", u"FILENAME", Picture, u"picOther", u"Picture:", u"lblPicture"},
        {u"lblIDNum", u"ID", Hidden},
    });
}

}

const Section &booksSection()
{
    static const Section section = [] {
        Section made;
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
    return section;
}

const Section &moviesSection()
{
    static const Section section = [] {
        Section made;
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
    return section;
}

const Section &musicSection()
{
    static const Section section = [] {
        Section made;
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
    return section;
}

dao::Bookmark addRow(dao::Recordset &rows, const Section &section)
{
    constexpr int ownerSize = 20;
    rows.AddNew();
    try {
        for (const FirstValue &first : section.newRow) {
            const dao::RecordsetField &column = rows.Fields()[static_cast<std::size_t>(rows.fieldIndex(first.field))];
            const bool isText = column.Type == dao::dbText || column.Type == dao::dbMemo;
            rows.Set(first.field, first.text.isEmpty() && !isText ? dao::Value() : dao::Value(first.text.toString()));
        }
        for (const dao::RecordsetField &column : rows.Fields()) {       // the books' table tells no owner
            if (column.Name.compare(u"UsersName", Qt::CaseInsensitive) == 0)
                rows.Set(column.Name, state().settings.gUserName.left(ownerSize));
        }
        rows.Update();
    } catch (...) {
        basic::IgnoreErrors([&] { rows.CancelUpdate(); });
        throw;
    }
    return rows.LastModified();
}

namespace {

QStringList firstColumn(const QString &databasePath, const QString &sql)
{
    QStringList values;
    dao::Database file = dao::DBEngine::OpenDatabase(databasePath);
    dao::Recordset rows = file.CreateSnapshot(sql);
    for (; !rows.EOF_(); rows.MoveNext())
        values += rows.Get(0).text();
    return values;
}

}

QStringList listValues(const QString &databasePath, const Choices &list)
{
    return list.starts + firstColumn(databasePath, list.sql.toString());
}

QStringList Tracks(const QString &databasePath, qint32 id)
{
    return firstColumn(databasePath, u"Select [TRACK] from [TRACKS] WHERE [ID]="_s + QString::number(id) + u';');
}

}
