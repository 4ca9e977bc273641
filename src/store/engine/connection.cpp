#include "store/engine/connection.h"

#include "store/engine/error.h"
#include "store/engine/jet_sql.h"
#include "store/engine/names.h"
#include "store/engine/sqlcipher.h"

#include <QFileInfo>

#include <sys/prctl.h>

#include <cerrno>

using namespace Qt::StringLiterals;

namespace dao {
namespace {

/// How long a call waits for another program (a viewer of the file, say) to let go of it.
constexpr int busyMilliseconds = 250;

bool isFullDisk(sqlite3* database, int extended) {
    if ((extended & 0xff) == SQLITE_FULL)
        return true;
    const int cause = sqlcipher().systemErrorNumber(database);
    return (extended & 0xff) == SQLITE_IOERR &&
           (cause == ENOSPC || cause == EDQUOT || cause == EFBIG);
}

/// The code of a failure. One inside a function of the library's own (the export of a copy) comes
/// as its text alone.
int causeOf(sqlite3* database) {
    const int extended = sqlcipher().extendedErrorCode(database);
    if ((extended & 0xff) != SQLITE_ERROR)
        return extended;
    const QByteArrayView message(sqlcipher().errorMessage(database));
    for (const int code : {SQLITE_FULL, SQLITE_IOERR, SQLITE_CORRUPT}) {
        if (message == QByteArrayView(sqlcipher().errorText(code)))
            return code;
    }
    return extended;
}

/// Raises 3343 where a statement that only reads has failed as if the disk were full: it was led to
/// a page that no file can have. A change that was cut off is undone by the first reading and does
/// write; the full disk then is one.
void checkReadsPages(sqlite3* database) {
    const QString journal =
        QString::fromUtf8(sqlcipher().dbFilename(database, "main")) + u"-journal"_s;
    if ((sqlcipher().extendedErrorCode(database) & 0xff) == SQLITE_FULL &&
        QFileInfo(journal).size() == 0)
        throw EngineError(DamagedDatabase, u"The file is damaged."_s);
}

EngineError constraintError(int extended) {
    switch (extended) {
    case SQLITE_CONSTRAINT_FOREIGNKEY:
        return {RelatedRecordRequired, u"The record is related to one that is not there."_s};
    case SQLITE_CONSTRAINT_NOTNULL:
        return {FieldRequired, u"A required field has no value."_s};
    case SQLITE_CONSTRAINT_CHECK:
        return {TextTooLong, u"A value does not fit the rules of its field."_s};
    default:
        return {DuplicateKey, u"The change would make a second record with the same key."_s};
    }
}

int compareCollated(void*, int leftSize, const void* left, int rightSize, const void* right) {
    return compareUtf8({static_cast<const char*>(left), leftSize},
                       {static_cast<const char*>(right), rightSize});
}

/// A value as the text that LIKE compares: a number as the engine writes it.
QString argumentText(sqlite3_value* value) {
    switch (sqlcipher().valueType(value)) {
    case SQLITE_INTEGER:
        return QString::number(sqlcipher().valueInt64(value));
    case SQLITE_FLOAT:
        return numberText(sqlcipher().valueDouble(value));
    default:
        return QString::fromUtf8(reinterpret_cast<const char*>(sqlcipher().valueText(value)),
                                 sqlcipher().valueBytes(value));
    }
}

void jetLike(sqlite3_context* context, int, sqlite3_value** arguments) {
    if (sqlcipher().valueType(arguments[0]) == SQLITE_NULL ||
        sqlcipher().valueType(arguments[1]) == SQLITE_NULL)
        return sqlcipher().resultNull(context);
    try {
        sqlcipher().resultInt(context,
                              matchesLike(argumentText(arguments[1]), argumentText(arguments[0])));
    } catch (const EngineError&) {
        sqlcipher().resultError(context, "The pattern of LIKE is not closed.", -1);
    }
}

void jetText(sqlite3_context* context, int, sqlite3_value** arguments) {
    if (sqlcipher().valueType(arguments[0]) == SQLITE_NULL)
        return sqlcipher().resultNull(context);
    const QByteArray text = argumentText(arguments[0]).toUtf8();
    sqlcipher().resultText(context, text.constData(), static_cast<int>(text.size()),
                           SQLITE_TRANSIENT);
}

void jetSingle(sqlite3_context* context, int, sqlite3_value** arguments) {
    const int type = sqlcipher().valueType(arguments[0]);
    if (type == SQLITE_INTEGER || type == SQLITE_FLOAT)
        sqlcipher().resultDouble(context, singleAsTyped(sqlcipher().valueDouble(arguments[0])));
    else
        sqlcipher().resultValue(context, arguments[0]);
}

void registerFunctions(sqlite3* database) {
    sqlcipher().createCollation(database, sql::TextCollation, SQLITE_UTF8, nullptr, compareCollated,
                                nullptr);
    sqlcipher().createFunction(database, sql::LikeFunction, 2, SQLITE_UTF8 | SQLITE_DETERMINISTIC,
                               nullptr, jetLike, nullptr, nullptr, nullptr);
    sqlcipher().createFunction(database, sql::TextFunction, 1, SQLITE_UTF8 | SQLITE_DETERMINISTIC,
                               nullptr, jetText, nullptr, nullptr, nullptr);
    sqlcipher().createFunction(database, sql::SingleFunction, 1, SQLITE_UTF8 | SQLITE_DETERMINISTIC,
                               nullptr, jetSingle, nullptr, nullptr, nullptr);
}

/// What every connection sets before its file is read. The page format of protected files is told
/// to the library in full, so that each of its versions reads and writes the same; the versions
/// that lack one of these settings have that value built in and pass over it.
constexpr const char* protectionSettings[] = {
    "PRAGMA cipher_default_compatibility = 3",
    "PRAGMA cipher_default_page_size = 1024",
    "PRAGMA cipher_default_hmac_algorithm = HMAC_SHA1",
    "PRAGMA cipher_default_kdf_algorithm = PBKDF2_HMAC_SHA1",
    "PRAGMA cipher_default_kdf_iter = 256000",
};

/// Foreign rules of a file from elsewhere (triggers) never run; foreign keys do. Sorting stays in
/// memory, for pupils' names have no place in temporary files; nor have those deleted in the free
/// room of a file.
void configure(Connection& connection) {
    for (const char* setting :
         {"PRAGMA foreign_keys = ON", "PRAGMA synchronous = FULL", "PRAGMA temp_store = MEMORY",
          "PRAGMA trusted_schema = OFF", "PRAGMA legacy_alter_table = ON",
          "PRAGMA cell_size_check = ON", "PRAGMA secure_delete = ON",
          "PRAGMA cache_size = -8192"}) // kibibytes: most years stay in memory whole
        connection.execute(QLatin1StringView(setting));
    sqlcipher().configure(connection.handle(), SQLITE_DBCONFIG_ENABLE_TRIGGER, 0, nullptr);
}

/// A register is full of texts of one letter: each is made once and shared.
QString textOf(QByteArrayView utf8) {
    static const QList<QString> letters = [] {
        QList<QString> all;
        for (char16_t letter = 0; letter < 0x80; ++letter)
            all += QString(QChar(letter));
        return all;
    }();
    const bool isLetter = utf8.size() == 1 && static_cast<unsigned char>(utf8.front()) < 0x80;
    return isLetter ? letters.at(utf8.front()) : QString::fromUtf8(utf8);
}

} // namespace

void raiseDatabaseError(sqlite3* database) {
    const int cause = causeOf(database);
    if (cause == SQLITE_READONLY_DBMOVED)
        throw EngineError(NoSuchFile,
                          u"The file has been moved, deleted or replaced while it was open."_s);
    if (isFullDisk(database, cause))
        throw EngineError(DiskFull, u"There is not enough space on the disk."_s);
    switch (cause & 0xff) {
    case SQLITE_CORRUPT:
    case SQLITE_NOTADB:
    case SQLITE_FORMAT:
        throw EngineError(DamagedDatabase,
                          u"The file is damaged or in a format that is not known."_s);
    case SQLITE_BUSY:
    case SQLITE_LOCKED:
        throw EngineError(FileInUse, u"The file is in use by another program."_s);
    case SQLITE_READONLY:
        throw EngineError(ReadOnlyDatabase, u"The database can only be read."_s);
    case SQLITE_CANTOPEN:
    case SQLITE_PERM:
    case SQLITE_AUTH:
        throw EngineError(CannotOpenFile, u"The file could not be opened."_s);
    case SQLITE_IOERR:
        throw EngineError(DiskError, u"The disk or the network reported an error."_s);
    case SQLITE_CONSTRAINT:
        throw constraintError(cause);
    case SQLITE_TOOBIG:
        throw EngineError(TextTooLong, u"The value is too long."_s);
    case SQLITE_NOMEM:
        throw std::bad_alloc();
    default:
        throw EngineError(SyntaxError, u"The statement could not be carried out: %1"_s.arg(
                                           QString::fromUtf8(sqlcipher().errorMessage(database))));
    }
}

void leaveNoImage() {
    ::prctl(PR_SET_DUMPABLE, 0);
}

void Statement::Finalize::operator()(sqlite3_stmt* statement) const {
    sqlcipher().finalize(statement);
}

Statement::Statement(Connection& connection, const QString& sql) : m_database(connection.handle()) {
    if (!m_database)
        throw EngineError(ObjectInvalid, u"The database is closed."_s);
    const QByteArray text = sql.toUtf8();
    sqlite3_stmt* statement = nullptr;
    const int result = sqlcipher().prepare(m_database, text.constData(),
                                           static_cast<int>(text.size()) + 1, &statement, nullptr);
    m_statement.reset(statement);
    if (result == SQLITE_OK)
        return;
    checkReadsPages(m_database);
    raiseDatabaseError(m_database);
}

void Statement::bind(int position, const Value& value) {
    sqlite3_stmt* statement = m_statement.get();
    int result = SQLITE_OK;
    if (value.isNull()) {
        result = sqlcipher().bindNull(statement, position);
    } else if (value.isInteger()) {
        result = sqlcipher().bindInt64(statement, position, value.toInteger());
    } else if (value.isReal()) {
        result = sqlcipher().bindDouble(statement, position, value.toDouble());
    } else if (value.isText()) {
        const QByteArray& text = m_texts.emplace_back(value.toText().toUtf8());
        result = sqlcipher().bindText64(statement, position, text.constData(),
                                        static_cast<sqlite3_uint64>(text.size()), SQLITE_STATIC,
                                        SQLITE_UTF8);
    } else {
        const QByteArray bytes = value.toBinary();
        result = bytes.isEmpty() ? sqlcipher().bindZeroblob(statement, position, 0)
                                 : sqlcipher().bindBlob64(statement, position, bytes.constData(),
                                                          static_cast<sqlite3_uint64>(bytes.size()),
                                                          SQLITE_TRANSIENT);
    }
    if (result != SQLITE_OK)
        raiseDatabaseError(m_database);
}

bool Statement::step() {
    const int result = sqlcipher().step(m_statement.get());
    if (result == SQLITE_ROW)
        return true;
    if (result == SQLITE_DONE)
        return false;
    try {
        if (sqlcipher().isReadOnly(m_statement.get()) != 0 &&
            sqlcipher().columnCount(m_statement.get()) > 0)
            checkReadsPages(m_database);
        raiseDatabaseError(m_database);
    } catch (...) {
        sqlcipher().reset(m_statement.get());
        throw;
    }
}

void Statement::reset() {
    sqlcipher().reset(m_statement.get());
    sqlcipher().clearBindings(m_statement.get());
    m_texts.clear();
}

Value Statement::column(int position, DataType type) const {
    // The value is looked up once: this is what a walk over records spends its time on.
    sqlite3_value* value = sqlcipher().columnValue(m_statement.get(), position);
    switch (sqlcipher().valueType(value)) {
    case SQLITE_INTEGER: {
        const qint64 number = sqlcipher().valueInt64(value);
        const bool hasDecimals =
            type == DataType::Single || type == DataType::Double || type == DataType::Currency;
        return hasDecimals ? Value(static_cast<double>(number)) : Value(number);
    }
    case SQLITE_FLOAT: {
        const double number = sqlcipher().valueDouble(value);
        return type == DataType::Single ? singleAsTyped(number) : number;
    }
    case SQLITE_TEXT: {
        const auto* text = reinterpret_cast<const char*>(sqlcipher().valueText(value));
        return textOf({text, sqlcipher().valueBytes(value)});
    }
    case SQLITE_BLOB: {
        const auto* bytes = static_cast<const char*>(sqlcipher().valueBlob(value));
        return QByteArray(bytes, sqlcipher().valueBytes(value));
    }
    default:
        return {};
    }
}

qint64 Statement::integer(int position) const {
    return sqlcipher().columnInt64(m_statement.get(), position);
}

QString Statement::text(int position) const {
    const unsigned char* bytes = sqlcipher().columnText(m_statement.get(), position);
    return QString::fromUtf8(reinterpret_cast<const char*>(bytes),
                             sqlcipher().columnBytes(m_statement.get(), position));
}

void Connection::Close::operator()(sqlite3* database) const {
    sqlcipher().close(database);
}

Connection::Connection(const QString& path, Mode mode, const QString& password) {
    // The program has one thread: the library's own locks against others would only cost.
    const int flags = SQLITE_OPEN_READWRITE | SQLITE_OPEN_NOMUTEX |
                      (mode == Mode::Existing ? 0 : SQLITE_OPEN_CREATE);
    const QByteArray name = mode == Mode::Memory ? QByteArray(":memory:") : path.toUtf8();
    sqlite3* database = nullptr;
    const int result = sqlcipher().open(name.constData(), &database, flags, nullptr);
    m_database.reset(database);
    if (result != SQLITE_OK)
        raiseDatabaseError(database);
    sqlcipher().extendedResultCodes(database, 1);
    sqlcipher().busyTimeout(database, busyMilliseconds);
    for (const char* setting : protectionSettings)
        execute(QLatin1StringView(setting));
    if (!password.isEmpty()) {
        leaveNoImage();
        const QByteArray key = password.toUtf8();
        sqlcipher().key(database, key.constData(), static_cast<int>(key.size()));
    }
    registerFunctions(database);
    try {
        firstInteger(u"SELECT count(*) FROM sqlite_master"_s);
    } catch (const EngineError& error) {
        if (error.number() == DamagedDatabase && !password.isEmpty())
            throw EngineError(WrongPassword, u"Not a valid password."_s);
        throw;
    }
    configure(*this);
}

void Connection::execute(const QString& sql) {
    Statement statement(*this, sql);
    while (statement.step()) {
    }
}

QString Connection::firstText(const QString& sql) {
    Statement statement(*this, sql);
    return statement.step() ? statement.text(0) : QString();
}

qint64 Connection::firstInteger(const QString& sql) {
    Statement statement(*this, sql);
    return statement.step() ? statement.integer(0) : 0;
}

int Connection::changes() const {
    return sqlcipher().changes(m_database.get());
}

qint64 Connection::lastInsertedRow() const {
    return sqlcipher().lastInsertRowid(m_database.get());
}

bool Connection::inTransaction() const {
    return sqlcipher().getAutocommit(m_database.get()) == 0;
}

void Connection::checkTransaction() const {
    if (m_depth > 0 && !inTransaction())
        throw EngineError(NoTransaction, u"The work was undone after an error."_s);
}

void Connection::begin() {
    checkTransaction();
    execute(m_depth == 0 ? u"BEGIN IMMEDIATE"_s : u"SAVEPOINT s%1"_s.arg(m_depth));
    ++m_depth;
}

void Connection::commit() {
    if (m_depth == 0)
        return;
    checkTransaction();
    execute(m_depth == 1 ? u"COMMIT"_s : u"RELEASE s%1"_s.arg(m_depth - 1));
    --m_depth;
}

void Connection::rollback() {
    if (m_depth == 0)
        return;
    --m_depth;
    if (!inTransaction())
        return; // the library has undone everything; the outer transactions learn it at their end
    if (m_depth == 0) {
        execute(u"ROLLBACK"_s);
    } else {
        execute(u"ROLLBACK TO s%1"_s.arg(m_depth));
        execute(u"RELEASE s%1"_s.arg(m_depth));
    }
}

void Connection::attach(const QString& path, const QString& schema, const QString& password) {
    if (!password.isEmpty())
        leaveNoImage();
    Statement statement(*this, u"ATTACH DATABASE ?1 AS %1 KEY ?2"_s.arg(quoteName(schema)));
    statement.bind(1, path);
    statement.bind(2, password.isNull() ? u""_s : password);
    statement.step();
}

ReadScope::ReadScope(Connection& connection)
    : m_connection(connection), m_begun(!connection.inTransaction()) {
    if (m_begun)
        m_connection.execute(u"BEGIN"_s);
}

ReadScope::~ReadScope() {
    if (m_begun)
        sqlcipher().execute(m_connection.handle(), "COMMIT", nullptr, nullptr, nullptr);
}

Savepoint::~Savepoint() {
    if (!m_open)
        return;
    try {
        m_connection.rollback();
    } catch (const std::exception&) {
        // What could not be undone now is undone by the file's journal when it is next opened.
    }
}

void Savepoint::commit() {
    m_connection.commit();
    m_open = false;
}

void Connection::checkStructure() {
    execute(u"PRAGMA ignore_check_constraints = ON"_s);
    Statement statement(*this, u"PRAGMA quick_check(100)"_s);
    while (statement.step()) {
        const QString finding = statement.text(0);
        const bool isContent = finding.startsWith(u"NULL value in");
        if (finding != u"ok" && !isContent)
            throw EngineError(DamagedDatabase, u"The file is damaged."_s);
    }
    execute(u"PRAGMA ignore_check_constraints = OFF"_s);
}

} // namespace dao
