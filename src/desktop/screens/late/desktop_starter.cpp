// GIO has a member called `signals`, which is a keyword of Qt's: its headers come first.
#include <gio/gdesktopappinfo.h>

#include "desktop/screens/late/desktop_starter.h"

#include <QFile>

#include <memory>

bool startDesktopFile(const QString& path) {
    const std::unique_ptr<GDesktopAppInfo, decltype(&g_object_unref)> starter(
        g_desktop_app_info_new_from_filename(QFile::encodeName(path).constData()), &g_object_unref);
    return starter && g_app_info_launch(G_APP_INFO(starter.get()), nullptr, nullptr, nullptr);
}

bool desktopOpens(const char* mimeType) {
    const std::unique_ptr<GAppInfo, decltype(&g_object_unref)> program(
        g_app_info_get_default_for_type(mimeType, FALSE), &g_object_unref);
    return program != nullptr;
}
