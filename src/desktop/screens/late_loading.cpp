#include "desktop/screens/late/late_services.h"

#include <QCoreApplication>
#include <QLibrary>

using namespace Qt::StringLiterals;

LateServices* lateServices() {
    static QLibrary module(QCoreApplication::applicationDirPath() + u"/../lib/liborva_late"_s);
    const auto services =
        reinterpret_cast<decltype(&orvaLateServices)>(module.resolve("orvaLateServices"));
    return services ? services() : nullptr;
}
