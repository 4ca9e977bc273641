#include "classes/grade_layout.h"

#include "classes/pupil_sheet.h"
#include "core/prompts.h"
#include "core/settings.h"

#include <array>

using namespace Qt::StringLiterals;

namespace {

const QString HiddenPrefix = u"Hide_"_s;
const QString LineEnd = u"\r\n"_s;

QString layoutKey(const QString& classCode) {
    return setting::keyOf(u"Register\\GradeCols\\"_s + classCode);
}

QStringView heightName(LayoutKind kind) {
    return kind == LayoutKind::Grades ? u"GridCellHeight" : u"NotesCellHeight";
}

bool isName(const QString& field) {
    return field == u"ID" || field == u"Firstname" || field == u"Surname";
}

bool hasValue(Settings& settings, const QString& key, const QString& name) {
    return settings.ReadRegistryValue(key, name) == SettingFound;
}

void writeHeight(Settings& settings, const QString& key, LayoutKind kind, int height) {
    settings.CreateRegistryKey(key);
    settings.WriteRegistryValue(key, heightName(kind), QString::number(height));
}

} // namespace

void saveColumns(Settings& settings, const QString& classCode, const QList<ColumnLayout>& columns) {
    const Settings::Batch batch(settings);
    const QString key = layoutKey(classCode);
    // The rows' heights are kept apart from the columns, though in the same key.
    const std::array heights{settings.readNumber(key, heightName(LayoutKind::Grades)),
                             settings.readNumber(key, heightName(LayoutKind::Notes))};
    settings.ClearRegistryKey(key);
    for (const LayoutKind kind : {LayoutKind::Grades, LayoutKind::Notes}) {
        if (const int height = heights.at(static_cast<size_t>(kind)); height > 0)
            writeHeight(settings, key, kind, height);
    }
    for (const ColumnLayout& column : columns) {
        if (!isName(column.field))
            settings.WriteRegistryValue(key, column.field, QString::number(column.width));
    }
    for (const ColumnLayout& column : columns) {
        if (!isName(column.field) && column.isHidden)
            settings.WriteRegistryValue(key, HiddenPrefix + column.field, 1);
    }
}

QList<ColumnLayout> loadColumns(Settings& settings, const QString& classCode,
                                const QStringList& fields) {
    const QString key = layoutKey(classCode);
    QList<ColumnLayout> columns;
    for (const QString& field : fields)
        columns.append({field, settings.readNumber(key, field),
                        hasValue(settings, key, HiddenPrefix + field)});
    return columns;
}

int loadRowHeight(Settings& settings, const QString& classCode, LayoutKind kind) {
    return qMax(LowestRow, settings.readNumber(layoutKey(classCode), heightName(kind), LowestRow));
}

int saveRowHeight(Settings& settings, const QString& classCode, LayoutKind kind, int height) {
    const int kept = qMax(LowestRow, height);
    writeHeight(settings, layoutKey(classCode), kind, kept);
    return kept;
}

QString studentNames(const PupilSheet& sheet) {
    QString text;
    for (int row = 0; row < sheet.rowCount(); ++row)
        text += sheet.text(row, PupilSheet::FirstnameColumn) + u' ' +
                sheet.text(row, PupilSheet::SurnameColumn) + LineEnd;
    return text;
}

void showDataCopied(Prompts& prompts) {
    prompts.PlainBox(
        u"This data has been copied to the clipboard. You may paste this data into another\n"
        "application such as Excel although you may need to use Paste Special (Text)."_s,
        OkButton | InformationIcon, u"Data copied"_s);
}

QString allData(const PupilSheet& sheet, const std::function<bool(int column)>& isVisible) {
    QString text;
    const auto addLine = [&](const std::function<QString(int column)>& cell) {
        for (int column = 0; column < sheet.columnCount(); ++column) {
            if (column > PupilSheet::FirstnameColumn && !isVisible(column))
                continue;
            text += cell(column);
            text += column == sheet.columnCount() - 1 ? LineEnd : u"\t"_s;
        }
    };
    addLine([&](int column) { return sheet.columns()[column]; });
    for (int row = 0; row < sheet.rowCount(); ++row)
        addLine([&](int column) { return sheet.text(row, column); });
    return text;
}
