#pragma once

#include <QString>

class Session;

/// The password of the open year. The file is built anew beside its place and put there at once;
/// the windows of the year close before. Whatever goes wrong is told, and the file is as it was.

/// Takes the password away. Answers whether it is gone.
bool RemovePassword(Session& session, const QString& oldPassword);

enum class PasswordChange {
    Done,
    Mismatch, ///< the two new ones differ: both are to be typed again
    Refused,
};

/// Sets or changes it. `oldPassword` is empty where the file has none.
PasswordChange SetPassword(Session& session, const QString& oldPassword, const QString& password,
                           const QString& again);

/// The most characters that can be typed for one.
inline constexpr int LongestPassword = 14;
