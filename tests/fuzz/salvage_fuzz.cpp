// Takes any bytes as a damaged database file and reads all that a repair would. Start it on copies
// of small years: build/tools/make_year makes them.

#include "store/engine/error.h"
#include "store/engine/salvage_match.h"

#include <QFile>
#include <QTemporaryDir>

using namespace Qt::StringLiterals;

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    static const QTemporaryDir folder;
    const QString path = folder.filePath(u"damaged.mdb"_s);
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly))
        return 0;
    file.write(reinterpret_cast<const char*>(data), static_cast<qint64>(size));
    file.close();
    const auto pages = dao::PageFile::plain(dao::OpenFile::acquire(path));
    if (!pages)
        return 0;
    dao::SalvageScan scan(*pages);
    for (const dao::SalvagedDefinition& definition : scan.definitions()) {
        dao::readCreateStatement(definition.statement);
        dao::profileOf(scan, scan.takeTree(definition.root));
    }
    for (dao::SalvagedTree& tree : scan.takeLooseTrees())
        dao::profileOf(scan, std::move(tree));
    return 0;
}
