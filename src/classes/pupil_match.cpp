#include "classes/pupil_match.h"

#include "store/engine/names.h"
#include "store/table_names.h"

using namespace Qt::StringLiterals;

PupilMatch::PupilMatch(const dao::Database& database, const QString& classCode) {
    const QString table = classTable(classCode);
    const dao::FieldCollection fields = database.TableDefs()[table].Fields();
    m_surnameSize = fields[u"Surname"].Size;
    m_firstnameSize = fields[u"Firstname"].Size;
    dao::Recordset pupils = database.OpenRecordset(
        u"SELECT ID,Surname,Firstname FROM %1 ORDER BY ID"_s.arg(dao::writeName(table)),
        dao::RecordsetType::Snapshot);
    for (; !pupils.EOF_(); pupils.MoveNext()) {
        const QString key =
            keyOf({pupils.Collect(u"Surname").toText(), pupils.Collect(u"Firstname").toText()});
        if (!m_pupils.contains(key))
            m_pupils.insert(key, pupils.Collect(u"ID").toInteger());
    }
    pupils.Close();
}

std::optional<qint64> PupilMatch::find(const PupilName& name) const {
    const auto pupil = m_pupils.constFind(keyOf(name));
    return pupil == m_pupils.constEnd() ? std::nullopt : std::optional(*pupil);
}

QString PupilMatch::keyOf(const PupilName& name) const {
    const auto part = [](const QString& text, int size) {
        return dao::folded(text.normalized(QString::NormalizationForm_C).left(size));
    };
    return part(name.surname, m_surnameSize) + QChar(u'\0') + part(name.firstname, m_firstnameSize);
}
