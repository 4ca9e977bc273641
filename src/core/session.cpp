#include "core/session.h"

#include "core/core_settings.h"
#include "core/database_closing.h"
#include "core/password_retry.h"
#include "core/prompts.h"
#include "core/settings.h"
#include "store/engine/error.h"

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

/// A name beside an older file for its converted copy that no file has yet.
QString convertedName(const QString& path) {
    const QFileInfo info(path);
    const QString base = info.absolutePath() + u'/' + info.completeBaseName();
    QString name = base + u" (converted).mdb"_s;
    for (int number = 2; QFileInfo::exists(name); ++number)
        name = u"%1 (converted %2).mdb"_s.arg(base).arg(number);
    return name;
}

bool isInUse(int error) {
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
    FolderDefaults = ReadFolderDefaults(m_settings, AppPath);
    ShortDateFormat = QLocale().dateFormat(QLocale::ShortFormat);
    DateSeparator = separatorOf(ShortDateFormat);
}

QString Session::helpFile() const {
    return AppPath + u"ORVA.hlp"_s;
}

OpenResult Session::OpenDatabaseFile(const QString& path, const QString& password) {
    QString used = password;
    for (int failures = 0;; ++failures) {
        try {
            return openOnce(path, used);
        } catch (const std::bad_alloc&) { // a file that claims to hold more than there is memory
            clear();
            return OpenInvalid;
        } catch (const dao::EngineError& error) {
            clear();
            if (isInUse(error.number()))
                return OpenInUse;
            if (error.number() != dao::WrongPassword)
                return OpenInvalid;
        }
        if (!askForPassword(m_seams.prompts, failures, used))
            return OpenCancelled;
    }
}

OpenResult Session::openOnce(const QString& path, const QString& password) {
    CurrentDB = m_engine.OpenDatabase(path, false, false, dao::connectText(password));
    m_opening.read(*this);
    if (CurrentDB.isJetFile())
        return openConverted(path, password);
    m_opening.bringUpToDate(*this);
    DatabasePassword = password;
    emit m_notices.yearOpened();
    return OpenDone;
}

OpenResult Session::openConverted(const QString& path, const QString& password) {
    CurrentDB.Close();
    const QString copy = convertedName(path);
    const BoxAnswer answer = m_seams.prompts.msg_Box(
        u"The database :\n\n%1\n\nis in the older Jet format.\n\nA converted copy "
        "will be made beside it and opened:\n\n%2\n\nThe original file stays as it "
        "is. Do you wish to continue ?"_s.arg(ShortenPath(path), ShortenPath(copy)),
        OkCancelButtons | InformationIcon, u"Older Database"_s);
    if (answer != AnswerOk) {
        clear();
        return OpenCancelled;
    }
    try {
        m_engine.CompactDatabase(path, copy, dao::GeneralLocale.toString(), 0,
                                 dao::connectText(password));
    } catch (const dao::EngineError& error) {
        clear();
        m_seams.prompts.PlainBox(
            u"The converted copy could not be made:\n\n%1\n\nThe original file is "
            "unchanged."_s.arg(error.description()),
            OkButton | CriticalIcon, u"Older Database"_s);
        return OpenCancelled;
    }
    const OpenResult result = openOnce(copy, password);
    DatabasePath = copy;
    if (QFileInfo(m_settings.get(setting::DefaultDatabasePath)) == QFileInfo(path))
        m_settings.set(setting::DefaultDatabasePath, copy);
    return result;
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

OpenFailure openFailure(OpenResult result, const QString& path) {
    if (result == OpenInUse)
        return {u"Database already open"_s,
                u"The database : \n\n%1\n\nappears to be already open by another "
                "user.\n\nPlease retry later."_s.arg(ShortenPath(path))};
    return {u"Invalid Database"_s,
            u"The database : \n\n%1\n\nappears to be either the wrong format or "
            "corrupt!\n\nPlease choose another action."_s.arg(ShortenPath(path))};
}
