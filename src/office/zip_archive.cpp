#include "office/zip_archive.h"

#include "office/zip/zip_part.h"
#include "store/engine/late_library.h"

#include <QCoreApplication>
#include <QFile>

using namespace Qt::StringLiterals;

namespace {

struct ZipModule : dao::LateLibrary {
    ZipModule()
        : LateLibrary(QFile::encodeName(QCoreApplication::applicationDirPath() +
                                        u"/../lib/liborva_zip.so"_s)
                          .constData()) {}

    ReadZipPart readPart = function("orvaReadZipPart");
};

const ZipModule& zipModule() {
    static const ZipModule module;
    return module;
}

} // namespace

bool loadZipReader() {
    return zipModule().isWhole();
}

std::optional<QByteArray> readZipPart(const QByteArray& archive, const QString& name) {
    QByteArray part;
    const auto take = [](const unsigned char* bytes, std::size_t size, void* taker) {
        *static_cast<QByteArray*>(taker) =
            QByteArray(reinterpret_cast<const char*>(bytes), static_cast<qsizetype>(size));
    };
    const bool isRead = zipModule().readPart(
        reinterpret_cast<const unsigned char*>(archive.constData()),
        static_cast<std::size_t>(archive.size()), name.toUtf8().constData(), take, &part);
    return isRead ? std::optional(part) : std::nullopt;
}
