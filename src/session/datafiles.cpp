#include "session/datafiles.h"

#include "platform/basic/files.h"
#include "platform/basic/text.h"
#include "session/ini.h"

using namespace Qt::StringLiterals;

namespace vorel {

const std::array<DataFileEntry, static_cast<std::size_t>(DataFile::Count)> &dataFiles()
{
    static const std::array<DataFileEntry, static_cast<std::size_t>(DataFile::Count)> files{{
        {DataFile::Main, u"DataPath"_s, u"\\VOREL.MDB"_s, false},
        {DataFile::Contacts, u"ContactsDBPath"_s, u"\\CONTACTS.MDB"_s, false},
        {DataFile::Garden, u"GardenDBPath"_s, u"\\GARDEN.MDB"_s, false},
        {DataFile::Movies, u"MovieDBPath"_s, u"\\MOVIES.MDB"_s, false},
        {DataFile::Music, u"MusicDBPath"_s, u"\\MUSIC.MDB"_s, false},
        {DataFile::Books, u"BooksDBPath"_s, u"\\BOOKS.MDB"_s, false},
        {DataFile::Notes, u"NotesDBPath"_s, u"\\NOTES.MDB"_s, false},
        {DataFile::HowTo, u"HowToDBPath"_s, u"\\HOWTO.MDB"_s, false},
        {DataFile::Recipe, u"RecipeDBPath"_s, u"\\RECIPE.MDB"_s, false},
        {DataFile::Sports, u"SportsDBPath"_s, u"\\SPORTS.MDB"_s, false},
        {DataFile::Accounts, u"AccountsDBPath"_s, u"\\ACCOUNTS.MDB"_s, false},
        {DataFile::DataP, u"DataPDBPath"_s, u"\\DATAP.MDB"_s, true},
        {DataFile::DataJ, u"DataJDBPath"_s, u"\\DATAJ.MDB"_s, true},
    }};
    return files;
}

const DataFileEntry &dataFileEntry(DataFile file)
{
    return dataFiles()[static_cast<std::size_t>(file)];
}

QString protectedConnect()
{
    return u";pwd=KARVELOT"_s;
}

QString connectString(DataFile file)
{
    return dataFileEntry(file).isProtected ? protectedConnect() : QString();
}

dao::Database openDataFile(DataFile file, bool exclusive, bool readOnly)
{
    return dao::DBEngine::OpenDatabase(state().path(file), exclusive, readOnly, connectString(file));
}

QString programFile(const QString &name)
{
    return basic::realPath(basic::programFolder() + u'/' + name.mid(1));
}

void loadDataPaths()
{
    for (const DataFileEntry &entry : dataFiles()) {
        QString path = basic::Trim(GetIniValue(iniSettings, entry.key, {}));
        if (path.isEmpty() || basic::Dir(path).isEmpty()) {
            path = programFile(entry.defaultName);
            PutIniValue(iniSettings, entry.key, path);
        }
        state().path(entry.file) = basic::realPath(path);
    }
}

}
