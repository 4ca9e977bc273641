#include "year/year_answers_json.h"

#include "calendar/term_weeks.h"
#include "classes/class_code.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

#include <cmath>
#include <limits>

using namespace Qt::StringLiterals;

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
    const QString file = u"file"_s;
    QJsonParseError error{};
    const QJsonDocument document = QJsonDocument::fromJson(json, &error);
    if (error.error != QJsonParseError::NoError)
        refuse(file,
               u"This is no JSON: %1 (at byte %2)."_s.arg(error.errorString()).arg(error.offset));
    if (!document.isObject())
        refuse(file, u"The answers must be a JSON object."_s);
    return document.object();
}

void AnswersReader::refuseUnknownKeys(const QJsonObject& object, const QStringList& known,
                                      const QString& path) {
    for (const QString& key : object.keys())
        if (!known.contains(key))
            refuse(path + key, u"There is no such answer."_s);
}

QJsonValue AnswersReader::required(const QJsonObject& object, const QString& key) {
    if (!object.contains(key))
        refuse(key, u"This answer is missing."_s);
    return object.value(key);
}

QString AnswersReader::text(const QJsonValue& value, const QString& field) {
    if (!value.isString())
        refuse(field, u"This must be a text."_s);
    return value.toString();
}

bool AnswersReader::truth(const QJsonValue& value, const QString& field) {
    if (!value.isBool())
        refuse(field, u"This must be true or false."_s);
    return value.toBool();
}

qint64 AnswersReader::wholeNumber(const QJsonValue& value, const QString& field, qint64 least,
                                  qint64 most) {
    const double number = value.toDouble();
    const bool isWhole = value.isDouble() && number == std::floor(number) &&
                         number >= static_cast<double>(least) &&
                         number <= static_cast<double>(most);
    if (!isWhole)
        refuse(field, u"This must be a whole number from %1 to %2."_s.arg(least).arg(most));
    return static_cast<qint64>(number);
}

QJsonArray AnswersReader::list(const QJsonValue& value, const QString& field) {
    if (!value.isArray())
        refuse(field, u"This must be a list."_s);
    return value.toArray();
}

QJsonObject AnswersReader::object(const QJsonValue& value, const QString& field) {
    if (!value.isObject())
        refuse(field, u"This must be an object."_s);
    return value.toObject();
}

QString AnswersReader::classCode(const QJsonValue& value, const QString& field) {
    return text(value, field).toUpper();
}

QDate AnswersReader::date(const QJsonValue& value, const QString& field) {
    const QString written = text(value, field);
    const QDate date = QDate::fromString(written, u"yyyy-MM-dd"_s);
    if (!date.isValid() || written.size() != 10)
        refuse(field, u"\"%1\" is no date of the form yyyy-mm-dd."_s.arg(written));
    return date;
}

QList<DatePeriod> AnswersReader::terms(const QJsonArray& array) {
    QList<DatePeriod> terms;
    for (qsizetype i = 0; i < array.size(); ++i) {
        const QString field = u"terms[%1]"_s.arg(i);
        const QJsonArray pair = list(array.at(i), field);
        if (pair.size() != 2)
            refuse(field, u"A teaching period must be two dates, its first day and "
                          "its last."_s);
        terms.append({date(pair.at(0), field), date(pair.at(1), field)});
    }
    return terms;
}

QStringList AnswersReader::classes(const QJsonArray& array) {
    QStringList codes;
    for (qsizetype i = 0; i < array.size(); ++i)
        codes.append(classCode(array.at(i), u"classes[%1]"_s.arg(i)));
    sortClasses(codes);
    return codes;
}

QHash<QString, qint32> AnswersReader::colours(const QJsonObject& object) {
    // A colour is 32 bits; one with the highest bit set may be written with or without a sign.
    constexpr qint64 least = std::numeric_limits<qint32>::min();
    constexpr qint64 most = std::numeric_limits<quint32>::max();
    QHash<QString, qint32> colours;
    for (auto each = object.begin(); each != object.end(); ++each) {
        const qint64 colour = wholeNumber(each.value(), u"colours."_s + each.key(), least, most);
        const QString code = each.key().toUpper();
        if (colours.contains(code))
            refuse(u"colours."_s + each.key(), u"This class has two colours."_s);
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
                classCode(periods.at(i), u"%1[%2]"_s.arg(field).arg(i)));
    }
    return week;
}

void AnswersReader::readTimetables(const QJsonObject& root) {
    const QString key = u"timetable"_s;
    const QString onlyWithTwoWeeks = u"This answer is for a timetable of two weeks only."_s;
    const QJsonObject timetable = object(required(root, key), key);
    refuseUnknownKeys(timetable, {u"A"_s, u"B"_s}, key + u'.');
    for (const QString& letter : {u"A"_s, u"B"_s}) {
        const QString field = key + u'.' + letter;
        const bool isB = letter == QLatin1String("B");
        if (isB && !m_answers.twoWeeks && timetable.contains(letter))
            refuse(field, onlyWithTwoWeeks);
        if (isB && !m_answers.twoWeeks)
            continue;
        if (!timetable.contains(letter))
            refuse(field, u"This answer is missing."_s);
        (isB ? m_answers.weekB : m_answers.weekA) =
            week(object(timetable.value(letter), field), field + u'.');
    }
    const QString startWeek = u"startWeek"_s;
    if (m_answers.twoWeeks)
        m_answers.startWeek = text(required(root, startWeek), startWeek);
    else if (root.contains(startWeek))
        refuse(startWeek, onlyWithTwoWeeks);
}

YearAnswers AnswersReader::read(const QByteArray& json) {
    const QString title = u"title"_s;
    const QString name = u"name"_s;
    const QString year = u"year"_s;
    const QString periods = u"periodsPerDay"_s;
    const QString twoWeeks = u"twoWeeks"_s;
    const QString termsKey = u"terms"_s;
    const QString classesKey = u"classes"_s;
    const QString coloursKey = u"colours"_s;

    const QJsonObject root = document(json);
    refuseUnknownKeys(root,
                      {title, name, year, periods, twoWeeks, u"startWeek"_s, termsKey, classesKey,
                       coloursKey, u"timetable"_s},
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
