#include "desktop/screens/late/late_services.h"

#include <QCoreApplication>
#include <QLibrary>

LateServices* lateServices() {
    static QLibrary module(QCoreApplication::applicationDirPath() +
                           QStringLiteral("/../lib/liborva_late"));
    const auto services =
        reinterpret_cast<decltype(&orvaLateServices)>(module.resolve("orvaLateServices"));
    return services ? services() : nullptr;
}
