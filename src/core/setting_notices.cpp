#include "core/setting_notices.h"

#include "store/engine/names.h"

void SettingNotices::follow(QStringView key, QStringView name, QObject* receiver,
                            std::function<void()> act) {
    QString path = setting::keyOf(key);
    if (path.endsWith(u'\\'))
        path.chop(1);
    connect(this, &SettingNotices::changed, receiver,
            [path, followed = name.toString(), act = std::move(act)](const QString& changedKey,
                                                                     const QString& changedName) {
                if (dao::sameName(changedKey, path) && dao::sameName(changedName, followed))
                    act();
            });
}
