#pragma once

#include <QString>

#include <exception>

namespace dao {

/// The numbers a failure can carry, as the logic above knows them by value. Do not change them.
enum ErrorNumber {
    InvalidArgument = 3001,
    TableExists = 3010,
    NoSuchTableToChange = 3011,
    EditNotBegun = 3020,
    NoCurrentRecord = 3021,
    DuplicateKey = 3022,
    NoSuchFile = 3024,
    ReadOnlyDatabase = 3027,
    WrongPassword = 3031,
    DiskError = 3043,
    FileInUse = 3045,
    NotADatabase = 3049,
    CannotOpenFile = 3051,
    UnknownFieldInSql = 3061,
    SyntaxError = 3075,
    NoSuchTable = 3078,
    AmbiguousField = 3079,
    InvalidName = 3125,
    TextTooLong = 3163,
    RecordDeleted = 3167,
    DiskFull = 3182,
    TooManyFields = 3190,
    FieldExists = 3191,
    RelatedRecordRequired = 3201,
    NoTransaction = 3034,
    FileExists = 3204,
    TableInUse = 3211,
    InvalidOperation = 3219,
    NotSupported = 3251,
    NoSuchItem = 3265,
    TableInRelation = 3281,
    ItemExists = 3367,
    FieldRequired = 3314,
    ZeroLengthNotAllowed = 3315,
    DamagedDatabase = 3343,
    OpenedExclusively = 3356,
    ObjectInvalid = 3420,
    ConversionError = 3421,
    TypeMismatch = 3464,
};

/// The one failure of the engine: a number of the list above and a sentence in plain words. The
/// sentence names tables and fields, never the content of a record.
class EngineError : public std::exception {
public:
    EngineError(int number, QString description);

    int number() const { return m_number; }
    const QString& description() const { return m_description; }
    const char* what() const noexcept override { return m_what.constData(); }

private:
    int m_number;
    QString m_description;
    QByteArray m_what;
};

} // namespace dao
