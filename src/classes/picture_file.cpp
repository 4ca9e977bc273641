#include "classes/picture_file.h"

#include <QFile>
#include <QFileInfo>
#include <QImageReader>
#include <QtEndian>

using namespace Qt::StringLiterals;

namespace {

PictureFile unreadable() {
    return {{}, u"This file can't be read as a picture. The photo stays as it was."_s};
}

PictureFile damaged() {
    return {{}, u"This picture is damaged, a part of it is missing. The photo stays as it was."_s};
}

PictureFile tooLarge() {
    return {{}, u"This picture is too large to be read. The photo stays as it was."_s};
}

/// A bitmap that has been cut off reads as one whose rows below are black.
bool isWholeBitmap(QFile& file) {
    constexpr int headSize = 54;
    constexpr quint32 oldHeadSize = 12;
    const QByteArray head = file.read(headSize);
    if (head.size() < headSize)
        return false;
    const auto number = [&head](int place) {
        return qFromLittleEndian<quint32>(head.constData() + place);
    };
    const auto half = [&head](int place) {
        return qFromLittleEndian<quint16>(head.constData() + place);
    };
    const bool isOld = number(14) == oldHeadSize;
    const qint64 width = isOld ? half(18) : number(18);
    const qint64 height = isOld ? half(20) : qAbs<qint64>(static_cast<qint32>(number(22)));
    const qint64 rowSize = (width * (isOld ? half(24) : half(28)) + 31) / 32 * 4;
    const quint32 compression = isOld ? 0 : number(30);
    const bool isPacked = compression == 1 || compression == 2;
    return file.size() >= number(10) + (isPacked ? number(34) : rowSize * height);
}

/// So much of the end that nothing but what some writers fill up with stands behind.
QByteArray endOf(QFile& file) {
    constexpr qint64 enough = 256;
    file.seek(qMax<qint64>(0, file.size() - enough));
    return file.readAll();
}

bool isWholeGif(QFile& file) {
    QByteArray end = endOf(file);
    while (end.endsWith('\0'))
        end.chop(1);
    return end.endsWith(';');
}

/// The picture is a list in the language C, which a brace closes.
bool isWholeXbm(QFile& file) {
    return endOf(file).contains('}');
}

/// Hears what the toolkit's reader of photographs only warns of: it fills up with grey what is
/// missing of one, and with noise what is broken.
class DamageHeard {
public:
    DamageHeard() {
        isHeard = false;
        previous = qInstallMessageHandler(hear);
    }
    ~DamageHeard() { qInstallMessageHandler(previous); }
    DamageHeard(const DamageHeard&) = delete;
    DamageHeard& operator=(const DamageHeard&) = delete;

    explicit operator bool() const { return isHeard; }

private:
    static void hear(QtMsgType type, const QMessageLogContext& context, const QString& message) {
        if (qstrcmp(context.category, "qt.gui.imageio.jpeg") != 0)
            previous(type, context, message);
        else if (!message.contains(u"extraneous bytes")) // which cameras leave in whole pictures
            isHeard |= message.startsWith(u"Corrupt JPEG data") || message.startsWith(u"Premature");
    }
    static inline bool isHeard = false;
    static inline QtMessageHandler previous = nullptr;
};

/// The toolkit's readers of the other formats find out by themselves.
bool isWhole(const QString& path, const QByteArray& format) {
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return false;
    if (format == "bmp")
        return isWholeBitmap(file);
    if (format == "gif")
        return isWholeGif(file);
    return format != "xbm" || isWholeXbm(file);
}

/// What the toolkit allows a picture in memory; it keeps four bytes a pixel.
bool exceedsMemory(qint64 pixels) {
    constexpr qint64 megabyte = 1 << 20;
    return QImageReader::allocationLimit() > 0 &&
           pixels * 4 > QImageReader::allocationLimit() * megabyte;
}

/// A picture on its side is turned after it is read, so both sides have to be long enough.
QSize smallerSize(QSize size, QSize enough) {
    const int longest = qMax(enough.width(), enough.height());
    const QSize smaller = size.scaled(longest, longest, Qt::KeepAspectRatioByExpanding);
    return smaller.width() < size.width() ? smaller : QSize();
}

} // namespace

PictureFile readPictureFile(const QString& path, QSize enough) {
    if (!QFileInfo(path).isFile())
        return unreadable(); // a pipe or a device would never end
    QImageReader reader(path);
    reader.setDecideFormatFromContent(true);
    reader.setAutoTransform(true);
    const QSize size = reader.size();
    const qint64 pixels = size.isValid() ? qint64(size.width()) * size.height() : 0;
    if (pixels > MostPicturePixels)
        return tooLarge();
    if (pixels > 0 && enough.isValid())
        reader.setScaledSize(smallerSize(size, enough));
    const QByteArray format = reader.format(); // the reader forgets it
    const DamageHeard damage;
    QImage picture = reader.read();
    if (picture.isNull())
        return exceedsMemory(pixels) ? tooLarge() : unreadable();
    if (damage || !isWhole(path, format))
        return damaged();
    picture.setDevicePixelRatio(1); // of a file named NAME@2x too: its pixels count
    return {picture, {}};
}
