#include "core/session.h"

#include "core/core_settings.h"
#include "core/database_closing.h"
#include "core/password_retry.h"
#include "core/prompts.h"
#include "core/settings.h"
#include "store/engine/error.h"
#include "store/engine/files.h"

#include <QDir>
#include <QFileInfo>
#include <QLocale>

#include <algorithm>
#include <utility>

using namespace Qt::StringLiterals;

namespace {

QString withSeparator(const QString& folder) {
    return folder.endsWith(QDir::separator()) ? folder : folder + QDir::separator();
}

/// The first character between the parts of a date as this format writes it.
QString separatorOf(const QString& format) {
    const auto found = std::find_if(format.begin(), format.end(), [](QChar character) {
        return !character.isLetter() && character != u'\'';
    });
    return found == format.end() ? QString() : QString(*found);
}

/// The names for converted copies beside an older file.
struct ConvertedNames {
    QString newest; ///< of those that there are; empty for none
    QString next;   ///< the first that no file has yet
};

ConvertedNames convertedNames(const QString& path) {
    const QFileInfo info(path);
    const QString base = info.absolutePath() + u'/' + info.completeBaseName();
    ConvertedNames names{{}, base + u" (converted).mdb"_s};
    for (int number = 2; QFileInfo::exists(names.next); ++number) {
        names.newest = names.next;
        names.next = u"%1 (converted %2).mdb"_s.arg(base).arg(number);
    }
    return names;
}

/// Which converted copy the person wants.
enum class Converted { None, New, Existing };

Converted askForConverted(Prompts& prompts, const QString& path, const ConvertedNames& names) {
    const QString isOlder =
        u"The database :\n\n%1\n\nis in the older Jet format.\n\n"_s.arg(ShortenPath(path));
    const QString title = u"Older Database"_s;
    if (names.newest.isEmpty()) {
        const BoxAnswer answer = prompts.msg_Box(
            isOlder +
                u"A converted copy will be made beside it and opened:\n\n%1\n\nThe original "
                "file stays as it is. Do you wish to continue ?"_s.arg(ShortenPath(names.next)),
            OkCancelButtons | InformationIcon, title);
        return answer == AnswerOk ? Converted::New : Converted::None;
    }
    BoxLook look;
    look.captions = {u"Open that copy"_s, u"Make a new copy"_s};
    const BoxAnswer answer = prompts.msg_Box(
        isOlder + u"A converted copy of it is there already, with all that was changed in it "
                  "since:\n\n%1\n\nDo you wish to open that copy?"_s.arg(ShortenPath(names.newest)),
        YesNoCancelButtons | QuestionIcon, title, look);
    if (answer == AnswerYes)
        return Converted::Existing;
    return answer == AnswerNo ? Converted::New : Converted::None;
}

/// Whether a file can't be had now, whatever it holds.
bool isOutOfReach(int error) {
    return error == dao::FileInUse || error == dao::CannotOpenFile ||
           error == dao::OpenedExclusively;
}

/// Whether a file that opens lacks a table, a field or a record of a year.
bool isMissingPart(int error) {
    return error == dao::NoSuchTable || error == dao::NoSuchItem || error == dao::NoCurrentRecord ||
           error == dao::UnknownFieldInSql;
}

} // namespace

Session::Session(dao::DBEngine& engine, Settings& settings, const Seams& seams, YearOpening opening)
    : m_engine(engine), m_settings(settings), m_seams(seams), m_opening(std::move(opening)) {}

void Session::Start(const QString& appPath) {
    QDir().mkpath(appPath);
    AppPath = withSeparator(QDir::toNativeSeparators(appPath));
    WindowsPath = withSeparator(QDir::toNativeSeparators(QDir::homePath()));
    GradientsAvailable = true;
    GradientsEnabled = !m_settings.get(setting::DisableGradients);
    FolderDefaults = ReadFolderDefaults(m_settings);
    ShortDateFormat = QLocale().dateFormat(QLocale::ShortFormat);
    DateSeparator = separatorOf(ShortDateFormat);
}

QString Session::helpFile() const {
    return AppPath + u"ORVA.hlp"_s;
}

void Session::OpenAhead(const QString& path) {
    m_aheadPath = path;
    try {
        if (m_engine.OpensAtOnce(path))
            m_ahead = m_engine.OpenDatabase(path);
    } catch (const std::exception&) { // so that it is not open
    }
}

/// Lets go of what was opened ahead; answers it if it is the file at the path.
dao::Database Session::openedAhead(const QString& path) {
    dao::Database ahead = std::exchange(m_ahead, {});
    return ahead.isOpen() && path == m_aheadPath && ahead.IsInPlace() ? ahead : dao::Database();
}

OpenResult Session::OpenDatabaseFile(const QString& path, const QString& password) {
    QString used = password;
    m_fault = {};
    for (int failures = 0;; ++failures) {
        try {
            return openOnce(path, used);
        } catch (const std::bad_alloc&) { // a file that claims to hold more than there is memory
            clear();
            m_fault = {0, u"There is not enough memory for it."_s, used};
            return OpenInvalid;
        } catch (const dao::EngineError& error) {
            clear();
            m_fault = {error.number(), error.description(), used};
            if (isOutOfReach(error.number()))
                return OpenInUse;
            if (error.number() != dao::WrongPassword)
                return OpenInvalid;
        }
        if (!askForPassword(m_seams.prompts, failures, used))
            return OpenCancelled;
    }
}

OpenResult Session::openOnce(const QString& path, const QString& password) {
    CurrentDB = openedAhead(path);
    if (!CurrentDB.isOpen())
        CurrentDB = m_engine.OpenDatabase(path, false, false, dao::connectText(password));
    m_opening.read(*this);
    if (CurrentDB.isJetFile())
        return openConverted(path, password);
    dao::makePrivate(CurrentDB.Name());
    warnOfOtherNames();
    m_opening.bringUpToDate(*this);
    DatabasePassword = password;
    emit m_notices.yearOpened();
    return OpenDone;
}

OpenResult Session::openConverted(const QString& path, const QString& password) {
    clear();
    const ConvertedNames names = convertedNames(path);
    switch (askForConverted(m_seams.prompts, path, names)) {
    case Converted::New:
        return makeConverted(path, names.next, password);
    case Converted::Existing:
        return openExistingCopy(path, names.newest, password);
    default:
        return OpenCancelled;
    }
}

OpenResult Session::makeConverted(const QString& path, const QString& copy,
                                  const QString& password) {
    try {
        m_engine.CompactDatabase(path, copy, dao::GeneralLocale.toString(), 0,
                                 dao::connectText(password));
    } catch (const dao::EngineError& error) {
        m_seams.prompts.PlainBox(
            u"The converted copy could not be made:\n\n%1\n\nThe original file is "
            "unchanged."_s.arg(error.description()),
            OkButton | CriticalIcon, u"Older Database"_s);
        return OpenCancelled;
    }
    const OpenResult result = openOnce(copy, password);
    useCopy(path, copy);
    return result;
}

/// It may have a password of its own by now; what keeps it from opening is told under its name.
OpenResult Session::openExistingCopy(const QString& path, const QString& copy,
                                     const QString& password) {
    const OpenResult result = OpenDatabaseFile(copy, password);
    if (result == OpenDone)
        useCopy(path, copy);
    if (result == OpenDone || result == OpenCancelled)
        return result;
    const OpenFailure failure = openFailure(m_fault, copy);
    m_seams.prompts.PlainBox(failure.text, OkButton | WarningIcon, failure.title);
    return OpenCancelled;
}

/// The copy takes the place of the original, for the next start too.
void Session::useCopy(const QString& original, const QString& copy) {
    DatabasePath = copy;
    if (QFileInfo(m_settings.get(setting::DefaultDatabasePath)) == QFileInfo(original))
        m_settings.set(setting::DefaultDatabasePath, copy);
}

void Session::warnOfOtherNames() {
    if (CurrentDB.HasOtherNames())
        m_seams.prompts.PlainBox(
            u"The database : \n\n%1\n\nhas another name on the disk as well (a hard link). When it "
            "is compacted this name gets a new file, and the other one keeps the former.\n\nPlease "
            "work with one of the names alone."_s.arg(ShortenPath(CurrentDB.Name())),
            OkButton | WarningIcon, u"Database with two names"_s);
}

void Session::OpenToRead(const QString& path, const QString& password) {
    try {
        CurrentDB = m_engine.OpenDatabase(path, false, true, dao::connectText(password));
        m_opening.read(*this);
    } catch (const dao::EngineError& error) {
        clear();
        if (isMissingPart(error.number()))
            throw dao::EngineError(dao::NoSuchItem,
                                   u"The file is not a year's: "_s + error.description());
        throw;
    }
    DatabasePath = path;
    DatabasePassword = password;
    emit m_notices.yearOpened();
}

void Session::clear() {
    CurrentDB.Close();
    CurrentDB = {};
    DatabasePassword.clear();
    AcademicYear.clear();
    TeacherName.clear();
    StartWeek.clear();
    CurrentClass.clear();
    CurrentDate.clear();
    EarlierSearches.clear();
    PeriodsPerDay = TTweekly = TermCount = 0;
    ClassColours.clear();
}

QString Session::ChooseDatabaseFile(const QString& title, int flags) {
    return m_seams.prompts.OpenFileDialog(
        title.isEmpty() ? u" Select the database to open:"_s : title, {{u"*.mdb"_s, u"*.mdb"_s}},
        FolderDefaults[OpenFolder].folder, flags, false);
}

void Session::MoveDatabase(const QString& path) {
    const QString former = CurrentDB.Name();
    CurrentDB.MoveTo(path);
    const QString byDefault = m_settings.get(setting::DefaultDatabasePath);
    if (byDefault == DatabasePath || byDefault == former)
        m_settings.set(setting::DefaultDatabasePath, path);
    DatabasePath = path;
    emit m_notices.yearMoved();
}

void Session::CloseAllDatabases() {
    if (CurrentDB.isOpen())
        emit m_notices.yearClosing();
    ::CloseAllDatabases(m_engine.Workspaces(0), m_seams.prompts);
    clear();
}

bool Session::IsDBOpen() {
    try {
        m_engine.OpenDatabase(DatabasePath, true, true, dao::connectText(DatabasePassword)).Close();
    } catch (const dao::EngineError& error) {
        if (error.number() == dao::OpenedExclusively || error.number() == dao::FileInUse) {
            m_seams.prompts.PlainBox(
                u"The database is already open and couldn't be closed!\n\nThis "
                "action has been canceled.\n\nPlease try restarting this "
                "application."_s,
                OkButton | WarningIcon, u"Action canceled"_s);
            return true;
        }
    }
    return false;
}

bool isInUse(const OpenFault& fault) {
    return fault.number == dao::FileInUse || fault.number == dao::OpenedExclusively;
}

QString openFaultText(const OpenFault& fault) {
    switch (fault.number) {
    case dao::DiskFull:
        return u"can't be opened, for the disk is full!"_s;
    case dao::CannotOpenFile:
    case dao::ReadOnlyDatabase:
        return u"can't be opened for writing!"_s;
    case dao::NoSuchFile:
        return u"is not there any more!"_s;
    default:
        return u"appears to be either the wrong format or corrupt!"_s;
    }
}

OpenFailure openFailure(const OpenFault& fault, const QString& path) {
    if (isInUse(fault))
        return {u"Database already open"_s,
                u"The database : \n\n%1\n\nappears to be already open by another "
                "user.\n\nPlease retry later.\n\n%2"_s.arg(ShortenPath(path), fault.sentence)};
    QString title = u"Invalid Database"_s;
    if (fault.number == dao::DiskFull)
        title = u"Disk full"_s;
    else if (fault.number == dao::CannotOpenFile || fault.number == dao::ReadOnlyDatabase)
        title = u"Database can't be written"_s;
    return {title, u"The database : \n\n%1\n\n%2\n\nPlease choose another action.\n\n%3"_s.arg(
                       ShortenPath(path), openFaultText(fault), fault.sentence)};
}
