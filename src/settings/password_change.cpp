#include "settings/password_change.h"

#include "core/database_closing.h"
#include "core/engine_failure.h"
#include "core/prompts.h"
#include "core/session.h"
#include "store/engine/error.h"

using namespace Qt::StringLiterals;

namespace {

void tellPassword(const Session& session, int icon, const QString& title, const QString& text) {
    session.GetSeams().prompts.msg_Box(text, OkButton | icon, title);
}

void tellWrongPassword(const Session& session) {
    tellPassword(session, WarningIcon, u"Password NOT Changed"_s,
                 u"Changing the password FAILED!\n"
                 "Please make sure that you have entered the old password correctly.\n"
                 "Passwords are case sensitive."_s);
}

/// Answers whether the file has the new password, by which it can be compacted later.
bool change(Session& session, const QString& oldPassword, const QString& newPassword) {
    if (oldPassword != session.DatabasePassword) {
        tellWrongPassword(session); // before any window has to go
        return false;
    }
    if (!session.GetWindows().closeYearWindows())
        return false;
    CloseRecordsets(session.CurrentDB, session.GetSeams().prompts);
    try {
        session.CurrentDB.NewPassword(oldPassword, newPassword);
    } catch (const dao::EngineError& error) {
        if (error.number() == dao::WrongPassword)
            tellWrongPassword(session);
        else
            tellFailure(session.GetSeams().prompts, {u"Password NOT Changed"}, error);
        return false;
    }
    session.DatabasePassword = newPassword;
    emit session.GetNotices().yearMoved(); // another file has its name now
    return true;
}

} // namespace

bool RemovePassword(Session& session, const QString& oldPassword) {
    if (oldPassword.isEmpty()) {
        tellPassword(session, WarningIcon, u"Nothing to remove"_s,
                     u"You have not entered an Old Password to be removed!"_s);
        return false;
    }
    if (!change(session, oldPassword, {}))
        return false;
    tellPassword(session, InformationIcon, u"Password Removed"_s,
                 u"This Database is no longer password protected!"_s);
    return true;
}

PasswordChange SetPassword(Session& session, const QString& oldPassword, const QString& password,
                           const QString& again) {
    if (password.isEmpty() || again.isEmpty()) {
        tellPassword(session, WarningIcon, u"Missing Entry"_s,
                     u"You must enter a new Password into both fields above before attempting to "
                     "set the password."_s);
        return PasswordChange::Refused;
    }
    if (password != again) {
        tellPassword(session, WarningIcon, u"Invalid Password"_s,
                     u"You password entries do not match! Please note that passwords are case "
                     "sensitive and must be retyped identically.\nPlease try again."_s);
        return PasswordChange::Mismatch;
    }
    if (!change(session, oldPassword, password))
        return PasswordChange::Refused;
    tellPassword(session, InformationIcon, u"Password Changed"_s,
                 u"The new password has been validated!\nPlease do not forget this password."_s);
    return PasswordChange::Done;
}
