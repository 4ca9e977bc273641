#pragma once

#include <QSettings>

/// The form of the settings file, UTF-8 text:
///
///     [Software\Q.R.L.\ORVA\Register]
///     .=
///     DisplayKey=dword:00000001
///
/// One section a key, `name=value` a line. Names come here escaped, so that they hold neither `=`,
/// `[`, `/` nor a line break. In values `%`, line breaks and the null character are written as `%`
/// and two hexadecimal digits. A line of another form is passed over.
///
/// QSettings' own form would do but for one thing: on a full disk it replaces the old file by one
/// that was cut off, and reports success.
QSettings::Format settingsFormat();

/// A text with each of `characters` written as `%` and two hexadecimal digits; they must lie below
/// 256 and include `%`.
QString percentEscaped(QStringView text, QStringView characters);
QString percentUnescaped(QStringView text);
