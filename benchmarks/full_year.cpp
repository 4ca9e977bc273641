#include "full_year.h"

#include "richtext/rtf_writer.h"
#include "sample_year.h"
#include "store/engine/engine.h"

#include <QTextDocument>

using namespace Qt::StringLiterals;

QString lessonHtml(int number) {
    QString html;
    for (int line = 0; line < 14; ++line)
        html += u"<p><b>Task %1.%2</b> Work through the examples on page <i>%3</i>, "
                "then check with <span style='color:#ff0000'>a partner</span>; "
                "fast finishers take the extension sheet.</p>"_s.arg(number)
                    .arg(line)
                    .arg(number + line);
    return html;
}

QString lessonRtf(int number) {
    QTextDocument document;
    document.setHtml(lessonHtml(number));
    return richtext::writeDocument(document);
}

QString makeFullYear(const QString& path, int periods, int fullSheets, const QStringList& fields) {
    YearAnswers answers = sampleAnswers();
    answers.periodsPerDay = periods;
    createSampleYear(path, answers);
    dao::Database year = dao::DBEngine().OpenDatabase(path);
    dao::Transaction whole(year);
    dao::Recordset rows = year.OpenRecordset(u"Planning"_s);
    for (int sheet = 0; sheet < fullSheets && !rows.EOF_(); ++sheet, rows.MoveNext()) {
        const QString lesson = lessonRtf(sheet);
        rows.Edit();
        for (const QString& field : fields)
            rows.SetCollect(field, lesson);
        rows.Update();
    }
    whole.commit();
    return path;
}
