#include "core/settings.h"

#include "core/setting_notices.h"
#include "core/settings_format.h"
#include "store/engine/files.h"
#include "store/engine/names.h"

#include <QFileInfo>
#include <QStandardPaths>
#include <QStringBuilder>

#include <algorithm>
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
dao::Value parsed(const QString& text) {
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

/// The settings that make up a font, in its key.
struct FontSettings {
    Setting<QString> name;
    Setting<bool, setting::TruthTextForm> bold;
    Setting<bool, setting::TruthTextForm> italic;
    Setting<bool, setting::TruthTextForm> underline;
    Setting<qint32> size;
    Setting<qint32> colour;
};

FontSettings fontSettings(QStringView key) {
    static const FontRecord usual;
    return {.name = {key, u"FontName", usual.name},
            .bold = {key, u"FontBold", usual.bold},
            .italic = {key, u"FontItalic", usual.italic},
            .underline = {key, u"FontUnderline", usual.underline},
            .size = {key, u"FontSize", usual.size},
            .colour = {key, u"FontColor", usual.colour}};
}

} // namespace

Settings::Settings(const QString& file)
    : m_store(std::make_unique<QSettings>(file, settingsFormat()))
    , m_notices(std::make_unique<SettingNotices>()) {
    dao::makePrivate(file);
}

Settings::~Settings() = default;

QString Settings::defaultFile() {
    return QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation) +
           u"/orva/settings.ini"_s;
}

SettingStatus Settings::ReadRegistryValue(QStringView key, QStringView name) {
    m_regValue = {};
    const std::optional<QString> section = sectionOf(key);
    if (!section || !storedName(*section, name))
        return SettingMissing;
    const dao::Value content = contentOf(key, name);
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
    makeKey(key);
    return save();
}

SettingStatus Settings::DeleteRegistryValue(QStringView key, QStringView name) {
    const std::optional<QString> section = sectionOf(key);
    const std::optional<QString> stored = section ? storedName(*section, name) : std::nullopt;
    if (!stored)
        return SettingMissing;
    noteChange(*section, *stored);
    m_store->remove(inSection(*section, *stored));
    return save();
}

SettingStatus Settings::DeleteRegistryKey(QStringView key) {
    const std::optional<QString> section = sectionOf(key);
    if (!section)
        return SettingMissing;
    const QStringList below = CollectRegistrySubkeys(key);
    std::for_each(below.rbegin(), below.rend(),
                  [this](const QString& path) { removeSection(writtenPath(path)); });
    removeSection(*section);
    return save();
}

void Settings::ClearRegistryKey(QStringView key) {
    const Batch together(*this);
    DeleteRegistryKey(key);
    CreateRegistryKey(key);
}

SettingStatus Settings::FlushRegistryKey(QStringView) {
    return save();
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

SettingStatus Settings::EnumRegistryValues(QStringView key, QList<SettingEntry>& values) const {
    values.clear();
    const QFileInfo file(m_store->fileName());
    if (file.exists() && !file.isReadable())
        return SettingUnreadable;
    const std::optional<QString> section = sectionOf(key);
    if (!section)
        return SettingMissing;
    SettingStatus status = SettingFound;
    for (const QString& stored : namesIn(*m_store, *section)) {
        if (stored == KeyItself)
            continue;
        dao::Value content = parsed(m_store->value(inSection(*section, stored)).toString());
        if (content.isNull())
            status = SettingUnreadable;
        else
            values.append({readName(stored), std::move(content)});
    }
    return status;
}

FontRecord Settings::ReadFontRecord(QStringView key) const {
    const FontSettings font = fontSettings(key);
    return {.name = get(font.name),
            .bold = get(font.bold),
            .italic = get(font.italic),
            .underline = get(font.underline),
            .size = get(font.size),
            .colour = get(font.colour)};
}

void Settings::WriteFontRecord(QStringView key, const FontRecord& record) {
    const FontSettings font = fontSettings(key);
    const Batch together(*this);
    set(font.name, record.name);
    set(font.bold, record.bold);
    set(font.italic, record.italic);
    set(font.underline, record.underline);
    set(font.size, record.size);
    set(font.colour, record.colour);
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

/// What stands there, a text without the stored null; Null where nothing does that can be read.
dao::Value Settings::contentOf(QStringView key, QStringView name) const {
    const std::optional<QString> section = sectionOf(key);
    const std::optional<QString> stored = section ? storedName(*section, name) : std::nullopt;
    return stored ? parsed(m_store->value(inSection(*section, *stored)).toString()) : dao::Value();
}

/// Writes a number or a text into a key that is made where it is missing; Null deletes the value.
SettingStatus Settings::store(QStringView key, QStringView name, const dao::Value& value) {
    const QString path = setting::keyOf(key);
    if (value.isNull()) {
        const SettingStatus status = DeleteRegistryValue(path, name);
        return status == SettingMissing ? SettingFound : status;
    }
    makeKey(path);
    return write(path, name,
                 value.isText() ? storedText(value.toText())
                                : storedNumber(static_cast<qint32>(value.toInteger())));
}

SettingStatus Settings::write(QStringView key, QStringView name, const QString& stored) {
    const std::optional<QString> section = sectionOf(key);
    if (!section)
        return SettingMissing;
    const QString kept = storedName(*section, name).value_or(writtenName(name));
    noteChange(*section, kept);
    m_store->setValue(inSection(*section, kept), stored);
    return save();
}

void Settings::makeKey(QStringView key) {
    QString path;
    for (const QString& part : writtenPath(key).split(KeySeparator)) {
        path = path.isEmpty() ? part : path % KeySeparator % part;
        if (const std::optional<QString> section = sectionOf(percentUnescaped(path)))
            path = *section;
        else
            m_store->setValue(inSection(path, KeyItself), QString());
    }
}

void Settings::removeSection(const QString& section) {
    for (const QString& stored : namesIn(*m_store, section)) {
        if (stored != KeyItself)
            noteChange(section, stored);
    }
    m_store->remove(section);
}

/// Remembers what a value is before it changes for the first time since the last notices.
void Settings::noteChange(const QString& section, const QString& stored) {
    const QString place = dao::folded(inSection(section, stored));
    if (m_changes.contains(place))
        return;
    const QString key = percentUnescaped(section);
    const QString name = readName(stored);
    m_changes.insert(place, {.key = key, .name = name, .before = contentOf(key, name)});
}

/// Those who are told may change settings in their turn.
void Settings::tellChanges() {
    const QMap<QString, Change> changes = std::exchange(m_changes, {});
    for (const Change& change : changes) {
        if (contentOf(change.key, change.name) != change.before)
            emit m_notices->changed(change.key, change.name);
    }
}

/// Changes that do not reach the disk are told when they do.
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
    if (m_store->status() != QSettings::NoError)
        return SettingNotWritten;
    tellChanges();
    return SettingFound;
}
