#include "classes/grade_layout.h"

#include "classes/class_settings.h"
#include "core/settings.h"

#include <QStringBuilder>

#include <array>

using namespace Qt::StringLiterals;

namespace {

const QString HiddenPrefix = u"Hide_"_s;

/// What is kept of a class's grades, in the key of the class.
class KeptLayout {
public:
    explicit KeptLayout(const QString& classCode) : m_key(setting::GradeCols % classCode) {}

    QString key() const { return setting::keyOf(m_key); }
    Setting<qint32, setting::NumberTextForm> rowHeight(LayoutKind kind) const {
        const bool isGrades = kind == LayoutKind::Grades;
        return {m_key, isGrades ? u"GridCellHeight" : u"NotesCellHeight", LowestRow};
    }
    Setting<qint32, setting::NumberTextForm> width(QStringView field) const {
        return {m_key, field, 0};
    }
    Setting<bool, setting::ExistenceForm> isHidden(QStringView hideName) const {
        return {m_key, hideName};
    }

private:
    QString m_key;
};

bool isName(const QString& field) {
    return field == u"ID" || field == u"Firstname" || field == u"Surname";
}

} // namespace

void saveColumns(Settings& settings, const QString& classCode, const QList<ColumnLayout>& columns) {
    const Settings::Batch batch(settings);
    const KeptLayout kept(classCode);
    // The rows' heights are kept apart from the columns, though in the same key.
    const std::array heights{settings.find(kept.rowHeight(LayoutKind::Grades)),
                             settings.find(kept.rowHeight(LayoutKind::Notes))};
    settings.ClearRegistryKey(kept.key());
    for (const LayoutKind kind : {LayoutKind::Grades, LayoutKind::Notes}) {
        if (const int height = heights.at(static_cast<size_t>(kind)).value_or(0); height > 0)
            settings.set(kept.rowHeight(kind), height);
    }
    for (const ColumnLayout& column : columns) {
        if (!isName(column.field))
            settings.set(kept.width(column.field), column.width);
    }
    for (const ColumnLayout& column : columns) {
        if (!isName(column.field) && column.isHidden)
            settings.set(kept.isHidden(HiddenPrefix + column.field), true);
    }
}

QList<ColumnLayout> loadColumns(const Settings& settings, const QString& classCode,
                                const QStringList& fields) {
    const KeptLayout kept(classCode);
    QList<ColumnLayout> columns;
    for (const QString& field : fields)
        columns.append({field, settings.get(kept.width(field)),
                        settings.get(kept.isHidden(HiddenPrefix + field))});
    return columns;
}

int loadRowHeight(const Settings& settings, const QString& classCode, LayoutKind kind) {
    return qMax(LowestRow, settings.get(KeptLayout(classCode).rowHeight(kind)));
}

int saveRowHeight(Settings& settings, const QString& classCode, LayoutKind kind, int height) {
    const int raised = qMax(LowestRow, height);
    settings.set(KeptLayout(classCode).rowHeight(kind), raised);
    return raised;
}
