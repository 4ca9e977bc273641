#include "core/settings_format.h"

#include <QFileDevice>
#include <QStringBuilder>

using namespace Qt::StringLiterals;

namespace {

constexpr QStringView ValueEscapes(u"%\r\n\0", 4); ///< the null character too
constexpr QChar SectionEnd = u'/';                 ///< in the keys of QSettings

bool readFile(QIODevice& device, QSettings::SettingsMap& map) {
    const QString text = QString::fromUtf8(device.readAll());
    QStringView section;
    for (QStringView line : QStringView(text).split(u'\n')) {
        if (line.endsWith(u'\r'))
            line.chop(1);
        const qsizetype sign = line.indexOf(u'=');
        if (line.startsWith(u'[') && line.endsWith(u']'))
            section = line.mid(1, line.size() - 2);
        else if (sign > 0 && !section.isEmpty())
            map.insert(section % SectionEnd % line.left(sign),
                       percentUnescaped(line.mid(sign + 1)));
    }
    return true;
}

bool writeFile(QIODevice& device, const QSettings::SettingsMap& map) {
    QString text;
    QString section;
    for (auto entry = map.begin(); entry != map.end(); ++entry) {
        const qsizetype end = entry.key().indexOf(SectionEnd);
        if (entry.key().left(end) != section) {
            text += section.isEmpty() ? u""_s : u"\n"_s;
            section = entry.key().left(end);
            text += u'[' % section % u"]\n"_s;
        }
        text += QStringView(entry.key()).mid(end + 1) % u'=' %
                percentEscaped(entry.value().toString(), ValueEscapes) % u'\n';
    }
    const QByteArray bytes = text.toUtf8();
    // Before there is anything in it: paths and names are nobody else's business.
    auto* file = qobject_cast<QFileDevice*>(&device);
    if (file)
        file->setPermissions(file->permissions() &
                             (QFileDevice::ReadOwner | QFileDevice::WriteOwner));
    if (device.write(bytes) != bytes.size())
        return false;
    return !file || file->flush();
}

} // namespace

QSettings::Format settingsFormat() {
    static const QSettings::Format format =
        QSettings::registerFormat(u"ini"_s, readFile, writeFile, Qt::CaseSensitive);
    return format;
}

QString percentEscaped(QStringView text, QStringView characters) {
    QString escaped;
    escaped.reserve(text.size());
    for (const QChar character : text) {
        if (characters.contains(character))
            escaped += u"%%1"_s.arg(character.unicode(), 2, 16, QChar(u'0')).toUpper();
        else
            escaped += character;
    }
    return escaped;
}

QString percentUnescaped(QStringView text) {
    QString unescaped;
    unescaped.reserve(text.size());
    for (qsizetype i = 0; i < text.size(); ++i) {
        bool isEscape = false;
        const ushort code =
            text.at(i) == u'%' ? text.mid(i + 1, 2).toUShort(&isEscape, 16) : ushort(0);
        unescaped += isEscape ? QChar(code) : text.at(i);
        if (isEscape)
            i += 2;
    }
    return unescaped;
}
