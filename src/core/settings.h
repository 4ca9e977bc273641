#pragma once

#include "core/font_record.h"
#include "core/setting.h"
#include "store/engine/value.h"

#include <QList>
#include <QMap>
#include <QString>
#include <QStringList>

#include <memory>
#include <optional>
#include <type_traits>

class QSettings;
class SettingNotices;

/// What an operation of the settings answers; 0 is success. Known by number.
enum SettingStatus {
    SettingFound = 0,
    SettingMissing = 2,     ///< no such key or value
    SettingNotWritten = 5,  ///< the file could not be written
    SettingUnreadable = 13, ///< a value of neither type
};

struct SettingEntry {
    QString name;
    dao::Value content; ///< a text, without the stored null, or a number
};

/// The person's settings: a tree of keys with named values, each a text or a 32-bit number. Key
/// paths are joined by backslashes. Names of keys and values match without regard to case and may
/// hold any character, a key's name all but the backslash. A value that was never written is
/// absent; no reader ever fails for it.
///
/// The program's own settings are declared with type and default (setting.h); get(), find() and
/// set() are the way to them. Below those stand the operations on keys and values as such.
///
/// The tree is one file (settings_format.h). A number is written as dword:0000002a, a text as
/// itself; a text that begins with "dword:" or "text:" has "text:" in front. `.=` stands for the
/// key itself, so that empty keys last. In names `%`, `/`, `=`, `[` and line breaks are written as
/// `%` and two hexadecimal digits, so is a value's name `.`, and an empty name is `%`. A missing or
/// unreadable file reads as an empty tree, a damaged one as far as it can be read.
///
/// Every change is on disk when its operation returns, written beside the file and renamed.
class Settings {
public:
    /// Opens the settings kept in a file; it need not exist.
    explicit Settings(const QString& file = defaultFile());
    ~Settings();

    /// The file in the person's own configuration folder.
    static QString defaultFile();

    /// What a setting is set to: its default where it is absent or can't be read. Reading in this
    /// way leaves RegValue as it is.
    template<class T, class Form>
    T get(const Setting<T, Form>& setting) const {
        return find(setting).value_or(setting.absentValue());
    }
    /// The same, but nothing in place of the default: for those that have none.
    template<class T, class Form>
    std::optional<T> find(const Setting<T, Form>& setting) const {
        const dao::Value stored = contentOf(setting::keyOf(setting.key), setting.name);
        return stored.isNull() ? std::nullopt : Form::read(stored);
    }
    /// Stores a setting, in its key, which is made where it is missing.
    template<class T, class Form>
    SettingStatus set(const Setting<T, Form>& setting, const std::type_identity_t<T>& value) {
        return store(setting.key, setting.name, Form::written(value));
    }
    /// Leaves a setting absent, also where it was so before.
    template<class T, class Form>
    SettingStatus remove(const Setting<T, Form>& setting) {
        return store(setting.key, setting.name, {});
    }

    /// Where to hear of changes.
    SettingNotices& notices() const { return *m_notices; }

    /// Reads a value into RegValue. When the answer is not 0, RegValue is empty.
    SettingStatus ReadRegistryValue(QStringView key, QStringView name);
    /// The last value read: empty (Null), a number, or a text with its stored null still behind it.
    const dao::Value& RegValue() const { return m_regValue; }

    /// Writes a value. The key must exist: its writer calls CreateRegistryKey first.
    SettingStatus WriteRegistryValue(QStringView key, QStringView name, const QString& text);
    SettingStatus WriteRegistryValue(QStringView key, QStringView name, qint32 number);
    /// A truth value is a number (0 or 1) or a text ("True" or "False"), as its reader expects.
    SettingStatus WriteRegistryValue(QStringView key, QStringView name, bool) = delete;
    /// Makes a key with those above it; one that exists is left as it is.
    SettingStatus CreateRegistryKey(QStringView key);
    SettingStatus DeleteRegistryValue(QStringView key, QStringView name);
    /// Deletes a key with all values and keys below it.
    SettingStatus DeleteRegistryKey(QStringView key);
    /// Leaves the key with nothing in it, whether it existed or not.
    void ClearRegistryKey(QStringView key);
    /// Writes what has not reached the disk yet.
    SettingStatus FlushRegistryKey(QStringView key);

    /// The full paths of all keys below a key, depth first, a key before those below it.
    QStringList CollectRegistrySubkeys(QStringView key) const;
    /// Fills RegistrySubkeys with the names of the keys straight below a key. Answers "Badkey" when
    /// there is no such key or nothing below it, else an empty text.
    QString EnumRegistrySubkeys(QStringView key);
    const QStringList& RegistrySubkeys() const { return m_registrySubkeys; }
    /// Fills `values` with what a key holds. SettingUnreadable where one of its values, or the
    /// file, can't be read; the others are there all the same.
    SettingStatus EnumRegistryValues(QStringView key, QList<SettingEntry>& values) const;

    /// The font kept in a key; what is absent is as in a new FontRecord.
    FontRecord ReadFontRecord(QStringView key) const;
    /// Writes the font into a key, made where missing. The three flags are texts.
    void WriteFontRecord(QStringView key, const FontRecord& font);

    /// While one lives, changes gather and reach the disk together when it ends, all or none of
    /// them: for what must not be half written, and for many values at once. Operations then answer
    /// whether the change was taken, not whether it was written.
    class Batch {
    public:
        explicit Batch(Settings& settings);
        ~Batch();
        Batch(const Batch&) = delete;
        Batch& operator=(const Batch&) = delete;

    private:
        Settings& m_settings;
    };

private:
    /// A value that has been written or deleted since the last notices.
    struct Change {
        QString key;
        QString name;
        dao::Value before;
    };

    std::unique_ptr<QSettings> m_store;
    std::unique_ptr<SettingNotices> m_notices;
    int m_batches = 0;
    QMap<QString, Change> m_changes; ///< by their folded place in the store
    dao::Value m_regValue;
    QStringList m_registrySubkeys;

    std::optional<QString> sectionOf(QStringView key) const;
    std::optional<QString> storedName(const QString& section, QStringView name) const;
    dao::Value contentOf(QStringView key, QStringView name) const;
    SettingStatus store(QStringView key, QStringView name, const dao::Value& value);
    SettingStatus write(QStringView key, QStringView name, const QString& stored);
    void makeKey(QStringView key);
    void removeSection(const QString& section);
    void noteChange(const QString& section, const QString& stored);
    void tellChanges();
    SettingStatus save();
};
