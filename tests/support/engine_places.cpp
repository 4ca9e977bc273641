#include "support/engine_places.h"

using namespace Qt::StringLiterals;

namespace test {

QString testData(const QString& name) {
    return QStringLiteral(ORVA_SOURCE "/tests/data/") + name;
}

QString sample(const QString& name) {
    return QStringLiteral(ORVA_SOURCE "/samples/") + name;
}

QString docsPage(const QString& name) {
    return QStringLiteral(ORVA_SOURCE "/docs/") + name;
}

QString tool(const QString& name) {
    return built(u"tools/"_s + name);
}

QString helpPages() {
    return QStringLiteral(ORVA_SOURCE "/help");
}

QString built(const QString& name) {
    return QStringLiteral(ORVA_BINARY "/") + name;
}

} // namespace test
