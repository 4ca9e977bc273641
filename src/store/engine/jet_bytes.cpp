#include "store/engine/jet_bytes.h"

#include "store/engine/error.h"

#include <QDateTime>
#include <QUuid>

#include <cmath>

using namespace Qt::StringLiterals;

namespace dao {
namespace {

/// What code page 1252 has at 0x80 to 0x9F; its five unused places stand for themselves.
constexpr char16_t Windows1252[] = {0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021,
                                    0x02C6, 0x2030, 0x0160, 0x2039, 0x0152, 0x008D, 0x017D, 0x008F,
                                    0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022, 0x2013, 0x2014,
                                    0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178};

QString ansiText(JetBytes bytes) {
    QString text = QString::fromLatin1(bytes.data(), bytes.size());
    for (QChar& character : text) {
        if (character.unicode() >= 0x80 && character.unicode() < 0xA0)
            character = Windows1252[character.unicode() - 0x80];
    }
    return text;
}

QString compressedText(JetBytes bytes) {
    QString text;
    bool compressed = true;
    for (qsizetype at = 0; at < bytes.size();) {
        if (bytes.number<quint8>(at) == 0) {
            compressed = !compressed;
            ++at;
        } else if (compressed) {
            text += QLatin1Char(bytes.number<char>(at));
            ++at;
        } else {
            text += QChar(bytes.number<quint16>(at));
            at += 2;
        }
    }
    return text;
}

} // namespace

void raiseDamaged() {
    throw EngineError(DamagedDatabase, u"The file is damaged or not whole."_s);
}

QString jetText(JetBytes bytes, JetFormat format) {
    if (format == JetFormat::Jet3)
        return ansiText(bytes);
    if (bytes.size() >= 2 && bytes.number<quint16>(0) == 0xFEFF)
        return compressedText(bytes.from(2));
    QString text;
    for (qsizetype at = 0; at + 1 < bytes.size(); at += 2)
        text += QChar(bytes.number<quint16>(at));
    return text;
}

QString jetDate(double days) {
    constexpr double firstDay = -657434; // 1 January 100
    constexpr double lastDay = 2958466;  // 1 January 10000
    if (!(days > firstDay - 1 && days < lastDay))
        raiseDamaged();
    // The fraction is the time of day also where the day is before the first one, and negative.
    const double day = std::trunc(days);
    const qint64 seconds = std::llround(std::abs(days - day) * 86400);
    const QDateTime base(QDate(1899, 12, 30), QTime(0, 0), Qt::UTC);
    const QDateTime date = base.addDays(static_cast<qint64>(day)).addSecs(seconds);
    return date.toString(u"yyyy-MM-dd HH:mm:ss"_s);
}

QString jetGuid(JetBytes bytes) {
    QUuid guid(bytes.number<quint32>(0), bytes.number<quint16>(4), bytes.number<quint16>(6), 0, 0,
               0, 0, 0, 0, 0, 0);
    for (int i = 0; i < 8; ++i)
        guid.data4[i] = bytes.number<quint8>(8 + i);
    return guid.toString().toUpper();
}

} // namespace dao
