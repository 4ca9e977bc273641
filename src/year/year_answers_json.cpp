#include "year/year_answers_json.h"

#include "calendar/term_weeks.h"
#include "classes/class_code.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

#include <cmath>
#include <limits>

namespace {

/// Reads one file; stops at its first fault by throwing it.
class AnswersReader {
public:
    YearAnswers read(const QByteArray& json);

private:
    [[noreturn]] static void refuse(const QString& field, const QString& text) {
        throw AnswerFault{field, {}, text};
    }
    static QJsonObject document(const QByteArray& json);
    static void refuseUnknownKeys(const QJsonObject& object, const QStringList& known,
                                  const QString& path);
    static QJsonValue required(const QJsonObject& object, const QString& key);
    static QString text(const QJsonValue& value, const QString& field);
    static bool truth(const QJsonValue& value, const QString& field);
    static qint64 wholeNumber(const QJsonValue& value, const QString& field, qint64 least,
                              qint64 most);
    static QJsonArray list(const QJsonValue& value, const QString& field);
    static QJsonObject object(const QJsonValue& value, const QString& field);
    static QString classCode(const QJsonValue& value, const QString& field);
    static QDate date(const QJsonValue& value, const QString& field);
    static QList<DatePeriod> terms(const QJsonArray& array);
    static QStringList classes(const QJsonArray& array);
    static QHash<QString, qint32> colours(const QJsonObject& object);
    static WeekTimetable week(const QJsonObject& object, const QString& path);
    void readTimetables(const QJsonObject& root);

    YearAnswers m_answers;
};

QJsonObject AnswersReader::document(const QByteArray& json) {
    const QString file = QStringLiteral("file");
    QJsonParseError error{};
    const QJsonDocument document = QJsonDocument::fromJson(json, &error);
    if (error.error != QJsonParseError::NoError)
        refuse(file, QStringLiteral("This is no JSON: %1 (at byte %2).")
                         .arg(error.errorString())
                         .arg(error.offset));
    if (!document.isObject())
        refuse(file, QStringLiteral("The answers must be a JSON object."));
    return document.object();
}

void AnswersReader::refuseUnknownKeys(const QJsonObject& object, const QStringList& known,
                                      const QString& path) {
    for (const QString& key : object.keys())
        if (!known.contains(key))
            refuse(path + key, QStringLiteral("There is no such answer."));
}

QJsonValue AnswersReader::required(const QJsonObject& object, const QString& key) {
    if (!object.contains(key))
        refuse(key, QStringLiteral("This answer is missing."));
    return object.value(key);
}

QString AnswersReader::text(const QJsonValue& value, const QString& field) {
    if (!value.isString())
        refuse(field, QStringLiteral("This must be a text."));
    return value.toString();
}

bool AnswersReader::truth(const QJsonValue& value, const QString& field) {
    if (!value.isBool())
        refuse(field, QStringLiteral("This must be true or false."));
    return value.toBool();
}

qint64 AnswersReader::wholeNumber(const QJsonValue& value, const QString& field, qint64 least,
                                  qint64 most) {
    const double number = value.toDouble();
    const bool isWhole = value.isDouble() && number == std::floor(number) &&
                         number >= static_cast<double>(least) &&
                         number <= static_cast<double>(most);
    if (!isWhole)
        refuse(field,
               QStringLiteral("This must be a whole number from %1 to %2.").arg(least).arg(most));
    return static_cast<qint64>(number);
}

QJsonArray AnswersReader::list(const QJsonValue& value, const QString& field) {
    if (!value.isArray())
        refuse(field, QStringLiteral("This must be a list."));
    return value.toArray();
}

QJsonObject AnswersReader::object(const QJsonValue& value, const QString& field) {
    if (!value.isObject())
        refuse(field, QStringLiteral("This must be an object."));
    return value.toObject();
}

QString AnswersReader::classCode(const QJsonValue& value, const QString& field) {
    return text(value, field).toUpper();
}

QDate AnswersReader::date(const QJsonValue& value, const QString& field) {
    const QString written = text(value, field);
    const QDate date = QDate::fromString(written, QStringLiteral("yyyy-MM-dd"));
    if (!date.isValid() || written.size() != 10)
        refuse(field, QStringLiteral("\"%1\" is no date of the form yyyy-mm-dd.").arg(written));
    return date;
}

QList<DatePeriod> AnswersReader::terms(const QJsonArray& array) {
    QList<DatePeriod> terms;
    for (qsizetype i = 0; i < array.size(); ++i) {
        const QString field = QStringLiteral("terms[%1]").arg(i);
        const QJsonArray pair = list(array.at(i), field);
        if (pair.size() != 2)
            refuse(field, QStringLiteral("A teaching period must be two dates, its first day and "
                                         "its last."));
        terms.append({date(pair.at(0), field), date(pair.at(1), field)});
    }
    return terms;
}

QStringList AnswersReader::classes(const QJsonArray& array) {
    QStringList codes;
    for (qsizetype i = 0; i < array.size(); ++i)
        codes.append(classCode(array.at(i), QStringLiteral("classes[%1]").arg(i)));
    sortClasses(codes);
    return codes;
}

QHash<QString, qint32> AnswersReader::colours(const QJsonObject& object) {
    // A colour is 32 bits; one with the highest bit set may be written with or without a sign.
    constexpr qint64 least = std::numeric_limits<qint32>::min();
    constexpr qint64 most = std::numeric_limits<quint32>::max();
    QHash<QString, qint32> colours;
    for (auto each = object.begin(); each != object.end(); ++each) {
        const qint64 colour =
            wholeNumber(each.value(), QStringLiteral("colours.") + each.key(), least, most);
        const QString code = each.key().toUpper();
        if (colours.contains(code))
            refuse(QStringLiteral("colours.") + each.key(),
                   QStringLiteral("This class has two colours."));
        colours.insert(code, static_cast<qint32>(static_cast<quint32>(colour)));
    }
    return colours;
}

WeekTimetable AnswersReader::week(const QJsonObject& object, const QString& path) {
    WeekTimetable week;
    QStringList days;
    for (int weekday = Monday; weekday <= Friday; ++weekday)
        days.append(timetableField(weekday, u'A'));
    refuseUnknownKeys(object, days, path);
    for (qsizetype day = 0; day < days.size(); ++day) {
        if (!object.contains(days[day]))
            continue;
        const QString field = path + days[day];
        const QJsonArray periods = list(object.value(days[day]), field);
        for (qsizetype i = 0; i < periods.size(); ++i)
            week[static_cast<size_t>(day)].append(
                classCode(periods.at(i), QStringLiteral("%1[%2]").arg(field).arg(i)));
    }
    return week;
}

void AnswersReader::readTimetables(const QJsonObject& root) {
    const QString key = QStringLiteral("timetable");
    const QString onlyWithTwoWeeks =
        QStringLiteral("This answer is for a timetable of two weeks only.");
    const QJsonObject timetable = object(required(root, key), key);
    refuseUnknownKeys(timetable, {QStringLiteral("A"), QStringLiteral("B")}, key + u'.');
    for (const QString& letter : {QStringLiteral("A"), QStringLiteral("B")}) {
        const QString field = key + u'.' + letter;
        const bool isB = letter == QLatin1String("B");
        if (isB && !m_answers.twoWeeks && timetable.contains(letter))
            refuse(field, onlyWithTwoWeeks);
        if (isB && !m_answers.twoWeeks)
            continue;
        if (!timetable.contains(letter))
            refuse(field, QStringLiteral("This answer is missing."));
        (isB ? m_answers.weekB : m_answers.weekA) =
            week(object(timetable.value(letter), field), field + u'.');
    }
    const QString startWeek = QStringLiteral("startWeek");
    if (m_answers.twoWeeks)
        m_answers.startWeek = text(required(root, startWeek), startWeek);
    else if (root.contains(startWeek))
        refuse(startWeek, onlyWithTwoWeeks);
}

YearAnswers AnswersReader::read(const QByteArray& json) {
    const QString title = QStringLiteral("title");
    const QString name = QStringLiteral("name");
    const QString year = QStringLiteral("year");
    const QString periods = QStringLiteral("periodsPerDay");
    const QString twoWeeks = QStringLiteral("twoWeeks");
    const QString termsKey = QStringLiteral("terms");
    const QString classesKey = QStringLiteral("classes");
    const QString coloursKey = QStringLiteral("colours");

    const QJsonObject root = document(json);
    refuseUnknownKeys(root,
                      {title, name, year, periods, twoWeeks, QStringLiteral("startWeek"), termsKey,
                       classesKey, coloursKey, QStringLiteral("timetable")},
                      {});
    m_answers.title = text(required(root, title), title);
    m_answers.name = text(required(root, name), name);
    m_answers.year = text(required(root, year), year);
    m_answers.periodsPerDay =
        static_cast<int>(wholeNumber(required(root, periods), periods, 1, MaximumPeriods));
    m_answers.twoWeeks = truth(required(root, twoWeeks), twoWeeks);
    m_answers.classes = classes(list(required(root, classesKey), classesKey));
    if (root.contains(coloursKey))
        m_answers.colours = colours(object(root.value(coloursKey), coloursKey));
    readTimetables(root);
    m_answers.terms = terms(list(required(root, termsKey), termsKey));
    return m_answers;
}

} // namespace

ReadAnswers readYearAnswers(const QByteArray& json, const QLocale& locale) {
    ReadAnswers result;
    try {
        result.answers = AnswersReader().read(json);
        result.fault = checkAnswers(result.answers, locale);
    } catch (const AnswerFault& fault) {
        result.fault = fault;
    }
    return result;
}
