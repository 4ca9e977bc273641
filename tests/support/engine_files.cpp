#include "support/engine_files.h"

dao::Database EngineFiles::pupilsFile(const QString& name) {
    dao::Database database = engine.CreateDatabase(path(name), dao::GeneralLocale.toString());
    appendTable(database, u"Pupils"_s,
                {numberingField(),
                 dao::TableDef::CreateField(u"Surname"_s, dao::DataType::Text, 20),
                 dao::TableDef::CreateField(u"Mark"_s, dao::DataType::Integer),
                 emptyableField(u"Notes"_s, dao::DataType::Memo)});
    return database;
}

void appendTable(const dao::Database& database, const QString& name,
                 const QList<dao::Field>& fields) {
    dao::TableDef table = database.CreateTableDef(name);
    for (const dao::Field& field : fields)
        table.Fields().Append(field);
    database.TableDefs().Append(table);
}

dao::Field numberingField(const QString& name) {
    dao::Field field = dao::TableDef::CreateField(name, dao::DataType::Long);
    field.Attributes = dao::AutoIncrement;
    return field;
}

dao::Field emptyableField(const QString& name, dao::DataType type, int size) {
    dao::Field field = dao::TableDef::CreateField(name, type, size);
    field.AllowZeroLength = true;
    return field;
}

QStringList fieldNames(const dao::Database& database, const QString& table) {
    QStringList names;
    for (const dao::Field& field : database.TableDefs()[table].Fields())
        names += field.Name;
    return names;
}

void addRecord(const dao::Database& database, const QString& table,
               const QList<dao::Value>& values) {
    dao::Recordset records = database.OpenRecordset(table);
    records.AddNew();
    for (int i = 0; i < values.size(); ++i)
        records.SetCollect(i + 1, values.at(i));
    records.Update();
}

void changeRecord(const dao::Database& database, const QString& source, const QString& field,
                  const dao::Value& value) {
    dao::Recordset records = database.OpenRecordset(source);
    records.Edit();
    records.SetCollect(field, value);
    records.Update();
}

QStringList rowsOf(const dao::Database& database, const QString& source) {
    QStringList rows;
    dao::Recordset records = database.OpenRecordset(source);
    for (; !records.EOF_(); records.MoveNext()) {
        QStringList row;
        for (int i = 0; i < records.FieldCount(); ++i) {
            const dao::Value value = records.Collect(i);
            row += value.isNull() ? u"~"_s : value.toText();
        }
        rows += row.join(u'|');
    }
    return rows;
}

QString writeFile(const QString& path, const QByteArray& bytes) {
    QFile file(path);
    EXPECT_TRUE(file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size())
        << qPrintable(path);
    return path;
}

QByteArray bytesOf(const QString& path) {
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

int errorOf(const std::function<void()>& work) {
    try {
        work();
    } catch (const dao::EngineError& error) {
        return error.number();
    }
    return 0;
}

FileSizeLimit::FileSizeLimit(qint64 bytes) {
    getrlimit(RLIMIT_FSIZE, &m_before);
    rlimit limited = m_before;
    limited.rlim_cur = static_cast<rlim_t>(bytes);
    setrlimit(RLIMIT_FSIZE, &limited);
}

FileSizeLimit::~FileSizeLimit() {
    setrlimit(RLIMIT_FSIZE, &m_before);
}
