#include "core/settings.h"

#include "core/settings_format.h"
#include "store/engine/names.h"

#include <QStandardPaths>
#include <QStringBuilder>

#include <algorithm>
#include <limits>
#include <utility>

using namespace Qt::StringLiterals;

namespace {

constexpr QChar KeySeparator = u'\\';
constexpr QChar StoredSeparator = u'/';
constexpr QChar StoredNull = QChar::Null;
constexpr QStringView KeyItself = u".";
constexpr QStringView EscapedKeyItself = u"%2E";
constexpr QStringView EmptyName = u"%";
/// What would be taken for a sign of the file's form.
constexpr QStringView NameEscapes = u"%/=[\r\n";
constexpr QStringView NumberPrefix = u"dword:";
constexpr QStringView TextPrefix = u"text:";

constexpr QStringView FontName = u"FontName";
constexpr QStringView FontBold = u"FontBold";
constexpr QStringView FontItalic = u"FontItalic";
constexpr QStringView FontUnderline = u"FontUnderline";
constexpr QStringView FontSize = u"FontSize";
constexpr QStringView FontColor = u"FontColor";

QString writtenName(QStringView name) {
    if (name.isEmpty())
        return EmptyName.toString();
    return name == KeyItself ? EscapedKeyItself.toString() : percentEscaped(name, NameEscapes);
}

QString readName(const QString& stored) {
    return stored == EmptyName ? QString() : percentUnescaped(stored);
}

/// A key path with no separator too many, as the section is named.
QString writtenPath(QStringView key) {
    QStringList parts;
    for (QStringView part : key.split(KeySeparator, Qt::SkipEmptyParts))
        parts.append(percentEscaped(part, NameEscapes));
    return parts.join(KeySeparator);
}

QString storedText(const QString& text) {
    const bool ambiguous = text.startsWith(NumberPrefix, Qt::CaseInsensitive) ||
                           text.startsWith(TextPrefix, Qt::CaseInsensitive);
    return ambiguous ? QString(TextPrefix % text) : text;
}

QString storedNumber(qint32 number) {
    return NumberPrefix % u"%1"_s.arg(static_cast<quint32>(number), 8, 16, QChar(u'0'));
}

/// A text or a number; Null for what is neither.
dao::Value contentOf(const QString& text) {
    if (text.startsWith(TextPrefix, Qt::CaseInsensitive))
        return text.mid(TextPrefix.size());
    if (!text.startsWith(NumberPrefix, Qt::CaseInsensitive))
        return text;
    bool isNumber = false;
    const quint32 number = QStringView(text).mid(NumberPrefix.size()).toUInt(&isNumber, 16);
    return isNumber ? dao::Value(static_cast<qint32>(number)) : dao::Value();
}

/// The name among `names` that differs from `name` in case alone.
std::optional<QString> nameAmong(const QStringList& names, const QString& name) {
    const auto found = std::find_if(names.begin(), names.end(), [&](const QString& candidate) {
        return dao::sameName(candidate, name);
    });
    return found == names.end() ? std::nullopt : std::optional(*found);
}

/// What paths are sorted by so that a key stands straight before those below it: the separator
/// comes before every character of a name.
QString depthFirst(const QString& path) {
    return dao::folded(path).replace(KeySeparator, QChar(QChar::Null));
}

QString inSection(const QString& section, QStringView name) {
    return section % StoredSeparator % name;
}

QStringList namesIn(QSettings& store, const QString& section) {
    store.beginGroup(section);
    const QStringList names = store.childKeys();
    store.endGroup();
    return names;
}

bool isTrue(const QString& text) {
    return text.compare(u"True", Qt::CaseInsensitive) == 0;
}

QString truthText(bool value) {
    return value ? u"True"_s : u"False"_s;
}

} // namespace

QString setting::keyOf(QStringView name) {
    return Root % name;
}

Settings::Settings(const QString& file)
    : m_store(std::make_unique<QSettings>(file, settingsFormat())) {}

Settings::~Settings() = default;

QString Settings::defaultFile() {
    return QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation) +
           u"/orva/settings.ini"_s;
}

SettingStatus Settings::ReadRegistryValue(QStringView key, QStringView name) {
    m_regValue = {};
    const std::optional<QString> section = sectionOf(key);
    const std::optional<QString> stored = section ? storedName(*section, name) : std::nullopt;
    if (!stored)
        return SettingMissing;
    const dao::Value content = contentOf(m_store->value(inSection(*section, *stored)).toString());
    if (content.isNull())
        return SettingUnreadable;
    m_regValue = content.isText() ? dao::Value(content.toText() + StoredNull) : content;
    return SettingFound;
}

SettingStatus Settings::WriteRegistryValue(QStringView key, QStringView name, const QString& text) {
    return write(key, name, storedText(text));
}

SettingStatus Settings::WriteRegistryValue(QStringView key, QStringView name, qint32 number) {
    return write(key, name, storedNumber(number));
}

SettingStatus Settings::CreateRegistryKey(QStringView key) {
    QString path;
    for (const QString& part : writtenPath(key).split(KeySeparator)) {
        path = path.isEmpty() ? part : path % KeySeparator % part;
        if (const std::optional<QString> section = sectionOf(percentUnescaped(path)))
            path = *section;
        else
            m_store->setValue(inSection(path, KeyItself), QString());
    }
    return save();
}

SettingStatus Settings::DeleteRegistryValue(QStringView key, QStringView name) {
    const std::optional<QString> section = sectionOf(key);
    const std::optional<QString> stored = section ? storedName(*section, name) : std::nullopt;
    if (!stored)
        return SettingMissing;
    m_store->remove(inSection(*section, *stored));
    return save();
}

SettingStatus Settings::DeleteRegistryKey(QStringView key) {
    const std::optional<QString> section = sectionOf(key);
    if (!section)
        return SettingMissing;
    const QStringList below = CollectRegistrySubkeys(key);
    std::for_each(below.rbegin(), below.rend(),
                  [this](const QString& path) { m_store->remove(writtenPath(path)); });
    m_store->remove(*section);
    return save();
}

void Settings::ClearRegistryKey(QStringView key) {
    const Batch together(*this);
    DeleteRegistryKey(key);
    CreateRegistryKey(key);
}

void Settings::FlushRegistryKey(QStringView) {
    save();
}

QStringList Settings::CollectRegistrySubkeys(QStringView key) const {
    const std::optional<QString> section = sectionOf(key);
    if (!section)
        return {};
    QStringList paths;
    for (const QString& candidate : m_store->childGroups()) {
        if (candidate.startsWith(*section % KeySeparator, Qt::CaseInsensitive))
            paths.append(percentUnescaped(candidate));
    }
    std::sort(paths.begin(), paths.end(),
              [](const QString& a, const QString& b) { return depthFirst(a) < depthFirst(b); });
    return paths;
}

QString Settings::EnumRegistrySubkeys(QStringView key) {
    m_registrySubkeys.clear();
    const qsizetype depth = writtenPath(key).count(KeySeparator) + 1;
    for (const QString& path : CollectRegistrySubkeys(key)) {
        if (path.count(KeySeparator) == depth)
            m_registrySubkeys.append(path.section(KeySeparator, -1));
    }
    return m_registrySubkeys.isEmpty() ? u"Badkey"_s : QString();
}

bool Settings::EnumRegistryValues(QStringView key, QList<SettingEntry>& values) const {
    values.clear();
    const std::optional<QString> section = sectionOf(key);
    if (!section)
        return false;
    for (const QString& stored : namesIn(*m_store, *section)) {
        if (stored == KeyItself)
            continue;
        dao::Value content = contentOf(m_store->value(inSection(*section, stored)).toString());
        if (!content.isNull())
            values.append({readName(stored), std::move(content)});
    }
    return true;
}

QString Settings::readText(QStringView key, QStringView name, const QString& absent) {
    if (ReadRegistryValue(key, name) != SettingFound)
        return absent;
    return m_regValue.toText().chopped(1);
}

qint32 Settings::readNumber(QStringView key, QStringView name, qint32 absent) {
    if (ReadRegistryValue(key, name) != SettingFound)
        return absent;
    using Limits = std::numeric_limits<qint32>;
    return static_cast<qint32>(
        std::clamp<qint64>(m_regValue.toInteger(), Limits::min(), Limits::max()));
}

bool Settings::readFlag(QStringView key, QStringView name) {
    return readNumber(key, name) == 1;
}

FontRecord Settings::ReadFontRecord(QStringView key) {
    const FontRecord usual;
    return {.name = readText(key, FontName, usual.name),
            .bold = isTrue(readText(key, FontBold)),
            .italic = isTrue(readText(key, FontItalic)),
            .underline = isTrue(readText(key, FontUnderline)),
            .size = readNumber(key, FontSize, usual.size),
            .colour = readNumber(key, FontColor, usual.colour)};
}

void Settings::WriteFontRecord(QStringView key, const FontRecord& font) {
    const Batch together(*this);
    CreateRegistryKey(key);
    WriteRegistryValue(key, FontName, font.name);
    WriteRegistryValue(key, FontBold, truthText(font.bold));
    WriteRegistryValue(key, FontItalic, truthText(font.italic));
    WriteRegistryValue(key, FontUnderline, truthText(font.underline));
    WriteRegistryValue(key, FontSize, font.size);
    WriteRegistryValue(key, FontColor, font.colour);
}

Settings::Batch::Batch(Settings& settings) : m_settings(settings) {
    ++m_settings.m_batches;
}

Settings::Batch::~Batch() {
    --m_settings.m_batches;
    m_settings.save();
}

/// The section of a key, in the spelling it was made with; nothing when there is no such key.
std::optional<QString> Settings::sectionOf(QStringView key) const {
    const QString path = writtenPath(key);
    if (m_store->contains(inSection(path, KeyItself)))
        return path;
    return nameAmong(m_store->childGroups(), path);
}

/// The name of a value of a section, in the spelling it was first written with; nothing when there
/// is no such value.
std::optional<QString> Settings::storedName(const QString& section, QStringView name) const {
    const QString stored = writtenName(name);
    if (m_store->contains(inSection(section, stored)))
        return stored;
    return nameAmong(namesIn(*m_store, section), stored);
}

SettingStatus Settings::write(QStringView key, QStringView name, const QString& stored) {
    const std::optional<QString> section = sectionOf(key);
    if (!section)
        return SettingMissing;
    const QString kept = storedName(*section, name).value_or(writtenName(name));
    m_store->setValue(inSection(*section, kept), stored);
    return save();
}

SettingStatus Settings::save() {
    if (m_batches > 0)
        return SettingFound;
    m_store->sync();
    // The status may be that of an earlier change, since it sticks to its object. A new one takes
    // over what is still to be written.
    if (m_store->status() != QSettings::NoError) {
        m_store = std::make_unique<QSettings>(m_store->fileName(), settingsFormat());
        m_store->sync();
    }
    return m_store->status() == QSettings::NoError ? SettingFound : SettingNotWritten;
}
