#include "richtext/formula.h"

#include <QHash>

using namespace Qt::StringLiterals;

namespace richtext {

namespace {

const QHash<QString, QChar>& signsByName() {
    static const QHash<QString, QChar> signs = {
        {u"alpha"_s, QChar(0x3B1)},  {u"beta"_s, QChar(0x3B2)},       {u"gamma"_s, QChar(0x3B3)},
        {u"delta"_s, QChar(0x3B4)},  {u"epsilon"_s, QChar(0x3B5)},    {u"eta"_s, QChar(0x3B7)},
        {u"theta"_s, QChar(0x3B8)},  {u"lambda"_s, QChar(0x3BB)},     {u"mu"_s, QChar(0x3BC)},
        {u"pi"_s, QChar(0x3C0)},     {u"rho"_s, QChar(0x3C1)},        {u"sigma"_s, QChar(0x3C3)},
        {u"phi"_s, QChar(0x3C6)},    {u"omega"_s, QChar(0x3C9)},      {u"Gamma"_s, QChar(0x393)},
        {u"Delta"_s, QChar(0x394)},  {u"Theta"_s, QChar(0x398)},      {u"Lambda"_s, QChar(0x39B)},
        {u"Pi"_s, QChar(0x3A0)},     {u"Sigma"_s, QChar(0x3A3)},      {u"Phi"_s, QChar(0x3A6)},
        {u"Omega"_s, QChar(0x3A9)},  {u"sqrt"_s, QChar(0x221A)},      {u"sum"_s, QChar(0x2211)},
        {u"int"_s, QChar(0x222B)},   {u"infinity"_s, QChar(0x221E)},  {u"times"_s, QChar(0xD7)},
        {u"div"_s, QChar(0xF7)},     {u"cdot"_s, QChar(0x22C5)},      {u"degrees"_s, QChar(0xB0)},
        {u"angle"_s, QChar(0x2220)}, {u"therefore"_s, QChar(0x2234)}, {u"approx"_s, QChar(0x2248)},
    };
    return signs;
}

struct TypedSign {
    QStringView typed;
    QChar sign;
};

/// The longer ones first.
constexpr TypedSign typedSigns[] = {
    {u"<->", QChar(0x2194)}, {u"<=", QChar(0x2264)}, {u">=", QChar(0x2265)},
    {u"<>", QChar(0x2260)},  {u"!=", QChar(0x2260)}, {u"+-", QChar(0xB1)},
    {u"->", QChar(0x2192)},  {u"=>", QChar(0x21D2)}, {u"*", QChar(0xD7)},
};

QChar raised(QChar digit) {
    switch (digit.unicode()) {
    case u'1':
        return QChar(0xB9);
    case u'2':
        return QChar(0xB2);
    case u'3':
        return QChar(0xB3);
    default:
        return QChar(0x2070 + digit.digitValue());
    }
}

bool isDigit(QChar c) {
    return c >= u'0' && c <= u'9';
}

/// One small number behind "^" or "_"; answers where it ends, `at` where there is none.
qsizetype takeSmallNumber(const QString& typed, qsizetype at, QString& shown) {
    const bool up = typed[at] == u'^';
    qsizetype to = at + 1;
    const bool minus = to < typed.size() && typed[to] == u'-';
    if (minus)
        ++to;
    if (to >= typed.size() || !isDigit(typed[to]))
        return at;
    if (minus)
        shown += up ? QChar(0x207B) : QChar(0x208B);
    for (; to < typed.size() && isDigit(typed[to]); ++to)
        shown += up ? raised(typed[to]) : QChar(0x2080 + typed[to].digitValue());
    return to;
}

qsizetype takeWord(const QString& typed, qsizetype at, QString& shown) {
    qsizetype to = at;
    while (to < typed.size() && typed[to].isLetter())
        ++to;
    const QString word = typed.mid(at, to - at);
    const auto sign = signsByName().constFind(word);
    shown += sign == signsByName().constEnd() ? word : QString(sign.value());
    return to;
}

qsizetype takeSign(const QString& typed, qsizetype at, QString& shown) {
    for (const TypedSign& sign : typedSigns) {
        if (QStringView(typed).mid(at).startsWith(sign.typed)) {
            shown += sign.sign;
            return at + sign.typed.size();
        }
    }
    shown += typed[at];
    return at + 1;
}

} // namespace

QString formulaText(const QString& typed) {
    QString shown;
    for (qsizetype at = 0; at < typed.size();) {
        qsizetype next = at;
        if (typed[at].isLetter())
            next = takeWord(typed, at, shown);
        else if (typed[at] == u'^' || typed[at] == u'_')
            next = takeSmallNumber(typed, at, shown);
        at = next > at ? next : takeSign(typed, at, shown);
    }
    return shown;
}

} // namespace richtext
