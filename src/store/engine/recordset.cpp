#include "store/engine/recordset.h"

#include "store/engine/error.h"
#include "store/engine/recordset_core.h"

#include <utility>

using namespace Qt::StringLiterals;

namespace dao {
namespace {

RecordsetCore& opened(const std::shared_ptr<RecordsetCore>& core) {
    if (!core || !core->isOpen())
        throw EngineError(ObjectInvalid, u"The recordset is closed."_s);
    return *core;
}

} // namespace

RecordsetField::RecordsetField(std::shared_ptr<RecordsetCore> core, int column)
    : m_core(std::move(core)), m_column(column) {}

const QString& RecordsetField::Name() const {
    return m_core->column(m_column).name;
}

DataType RecordsetField::Type() const {
    return m_core->column(m_column).field.Type;
}

int RecordsetField::Size() const {
    return m_core->column(m_column).field.Size;
}

QString RecordsetField::SourceTable() const {
    const int source = m_core->column(m_column).source;
    return source < 0 ? QString() : m_core->query.sources.at(source).table->name;
}

QString RecordsetField::SourceField() const {
    return m_core->column(m_column).field.Name;
}

Value RecordsetField::value() const {
    return opened(m_core).value(m_column);
}

void RecordsetField::setValue(const Value& value) const {
    opened(m_core).setValue(m_column, value);
}

const RecordsetField& RecordsetField::operator=(const Value& value) const {
    setValue(value);
    return *this;
}

qsizetype RecordsetField::FieldSize() const {
    const Value present = value();
    return present.isBinary() ? present.toBinary().size() : present.toText().size();
}

QByteArray RecordsetField::GetChunk(qsizetype offset, qsizetype count) const {
    const Value present = value();
    return present.isBinary() ? present.toBinary().mid(offset, count)
                              : present.toText().mid(offset, count).toUtf8();
}

void RecordsetField::AppendChunk(const QByteArray& bytes) const {
    opened(m_core).appendChunk(m_column, bytes);
}

Recordset::Recordset(std::shared_ptr<RecordsetCore> core) : m_core(std::move(core)) {}

RecordsetCore& Recordset::core() const {
    return opened(m_core);
}

bool Recordset::isOpen() const {
    return m_core && m_core->isOpen();
}

QString Recordset::Name() const {
    return core().name;
}

RecordsetType Recordset::Type() const {
    return core().type;
}

bool Recordset::BOF() const {
    return core().atStart();
}

bool Recordset::EOF_() const {
    return core().atEnd();
}

int Recordset::RecordCount() const {
    return core().count();
}

int Recordset::AbsolutePosition() const {
    return core().absolutePosition();
}

void Recordset::SetAbsolutePosition(int position) {
    core().setAbsolutePosition(position);
}

Bookmark Recordset::Bookmark() const {
    return dao::Bookmark(core().bookmark());
}

void Recordset::SetBookmark(const dao::Bookmark& bookmark) {
    core().setBookmark(bookmark.m_entry);
}

Bookmark Recordset::LastModified() const {
    return dao::Bookmark(core().lastModified);
}

void Recordset::MoveFirst() {
    core().moveFirst();
}

void Recordset::MoveLast() {
    core().moveLast();
}

void Recordset::MoveNext() {
    core().moveNext();
}

void Recordset::MovePrevious() {
    core().movePrevious();
}

void Recordset::FindFirst(const QString& criteria) {
    core().findFirst(criteria);
}

bool Recordset::NoMatch() const {
    return core().noMatch;
}

EditMode Recordset::EditMode() const {
    return core().editMode();
}

void Recordset::AddNew() {
    core().addNew();
}

void Recordset::Edit() {
    core().edit();
}

void Recordset::Update() {
    core().update();
}

void Recordset::CancelUpdate() {
    core().cancelUpdate();
}

void Recordset::Delete() {
    core().deleteRecord();
}

int Recordset::FieldCount() const {
    return static_cast<int>(core().query.columns.size());
}

RecordsetField Recordset::Fields(int column) const {
    if (column < 0 || column >= FieldCount())
        throw EngineError(NoSuchItem, u"There is no field %1."_s.arg(column));
    return RecordsetField(m_core, column);
}

RecordsetField Recordset::Fields(QStringView name) const {
    const int column = core().columnIndex(name);
    if (column < 0)
        throw EngineError(NoSuchItem, u"There is no field '%1'."_s.arg(name));
    return RecordsetField(m_core, column);
}

bool Recordset::HasField(QStringView name) const {
    return core().columnIndex(name) >= 0;
}

Value Recordset::Collect(QStringView name) const {
    return Fields(name).value();
}

Value Recordset::Collect(int column) const {
    RecordsetCore& records = core();
    if (column < 0 || column >= records.query.columns.size())
        throw EngineError(NoSuchItem, u"There is no field %1."_s.arg(column));
    return records.value(column);
}

void Recordset::SetCollect(QStringView name, const Value& value) {
    Fields(name).setValue(value);
}

void Recordset::SetCollect(int column, const Value& value) {
    Fields(column).setValue(value);
}

void Recordset::SetSort(const QString& order) {
    core().sort = order;
}

QString Recordset::Sort() const {
    return core().sort;
}

Recordset Recordset::OpenRecordset() const {
    auto sorted = std::make_shared<RecordsetCore>(core(), core().sort);
    core().database()->addRecordset(sorted);
    return Recordset(std::move(sorted));
}

Recordset Recordset::Clone() const {
    auto clone = std::make_shared<RecordsetCore>(core());
    core().database()->addRecordset(clone);
    return Recordset(std::move(clone));
}

void Recordset::Close() {
    if (m_core)
        m_core->close();
}

} // namespace dao
