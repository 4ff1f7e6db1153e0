#include "session/datafiles.h"

#include "platform/basic/files.h"
#include "platform/basic/prompts.h"
#include "platform/basic/text.h"
#include "session/ini.h"

#include <QDir>
#include <QFileInfo>
#include <algorithm>

using namespace Qt::StringLiterals;

namespace vorel {

namespace {

std::function<bool(DataFile)> &mender()
{
    static std::function<bool(DataFile)> installed;
    return installed;
}

bool exists(const QString &path)
{
    return !basic::Dir(path).isEmpty();
}

// A path that the configuration names, and the file of the same name in the program folder.
struct Elsewhere {
    QString key, path, here;
};

std::vector<Elsewhere> namesakes()
{
    std::vector<Elsewhere> found;
    for (const DataFileEntry &entry : dataFiles()) {
        const QString path = basic::realPath(basic::Trim(GetIniValue(iniSettings, entry.key, {})));
        if (path.isEmpty() || !exists(path) || basic::keptPath(path) != path)
            continue;
        const QString here = programFile(u'\\' + QFileInfo(basic::realPath(path)).fileName());
        if (exists(here) && QFileInfo(here).canonicalFilePath() != QFileInfo(basic::realPath(path)).canonicalFilePath())
            found.push_back({entry.key, path, here});
    }
    return found;
}

// The configuration of a copied folder names the files of the one that it was copied from.
void askForNamesakes()
{
    const QString answered = u"DataElsewhere"_s;        // the program folder in which the user said No
    const std::vector<Elsewhere> found = namesakes();
    if (found.empty() || GetIniValue(iniSettings, answered, {}) == basic::programFolder())
        return;
    QStringList paths;
    for (const Elsewhere &file : found)
        paths << QDir::toNativeSeparators(file.path);
    const bool here = basic::askYesNo(
        u"The configuration names data files in another folder:\r\n\r\n%1\r\n\r\nFiles of the same names lie in the program "
        "folder, %2. Was this folder copied or moved?\r\n\r\nYes: work with the files of this folder.\r\n"
        "No: work with the files of the other folder."_s.arg(paths.join(u"\r\n"_s), QDir::toNativeSeparators(basic::programFolder())));
    if (!here) {
        PutIniValue(iniSettings, answered, QString(basic::programFolder()));
        return;
    }
    for (const Elsewhere &file : found)
        PutIniValue(iniSettings, file.key, basic::keptPath(file.here));
}

}

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

DataPlace dataPlace(DataFile file)
{
    if (file == DataFile::DataP && !exists(state().path(file)))
        file = DataFile::Main;
    return {file, state().path(file), connectString(file)};
}

namespace {

// Opens the file; where it is damaged and somebody mends it, once more.
dao::Database openMended(DataFile file, const std::function<dao::Database()> &open, bool isProtected)
{
    try {
        return open();
    } catch (const dao::EngineError &error) {
        // Without its beginning a protected file looks like one with another password.
        const bool damaged = isDamage(error.number()) || (isProtected && error.number() == dao::err::WrongPassword);
        if (!damaged || !mendDataFile(file))
            throw;
    }
    return open();
}

}

dao::Database openDataFile(DataFile file, bool exclusive, bool readOnly)
{
    const DataPlace place = dataPlace(file);
    const auto open = [&] { return dao::DBEngine::OpenDatabase(place.path, exclusive, readOnly, place.connect); };
    return openMended(place.file, open, !place.connect.isEmpty());
}

dao::Database openDataFileAt(const QString &path, const QString &connect)
{
    const auto open = [&] { return dao::DBEngine::OpenDatabase(path, false, false, connect); };
    const auto &files = dataFiles();
    const auto entry = std::find_if(files.begin(), files.end(), [&](const DataFileEntry &known) { return state().path(known.file) == path; });
    return entry == files.end() ? open() : openMended(entry->file, open, entry->isProtected);
}

bool isDamage(int errorNumber)
{
    return errorNumber == dao::err::Damaged || errorNumber == dao::err::UnknownFormat;
}

void setDataFileMender(std::function<bool(DataFile)> installed)
{
    mender() = std::move(installed);
}

bool mendDataFile(DataFile file)
{
    return mender() && mender()(file);
}

QString programFile(const QString &name)
{
    return basic::realPath(basic::programFolder() + u'/' + name.mid(1));
}

void loadDataPaths()
{
    askForNamesakes();
    for (const DataFileEntry &entry : dataFiles()) {
        const QString kept = basic::Trim(GetIniValue(iniSettings, entry.key, {}));
        QString path = basic::realPath(kept);
        if (path.isEmpty() || !exists(path))
            path = programFile(entry.defaultName);
        if (basic::keptPath(path).compare(kept, Qt::CaseInsensitive) != 0)
            PutIniValue(iniSettings, entry.key, basic::keptPath(path));
        state().path(entry.file) = basic::realPath(path);
    }
}

}
