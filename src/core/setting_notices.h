#pragma once

#include "core/setting.h"

#include <QObject>

#include <functional>
#include <utility>

/// Tells whoever shows a setting that it has another value now. A notice comes after the change is
/// on the disk, once for all that a batch did to the value, and not where it is again what it was.
/// What another process writes into the file is not told.
class SettingNotices : public QObject {
    Q_OBJECT

public:
    /// Calls `act` after every change of a setting, as long as the receiver lives.
    template<class T, class Form>
    void onChange(const Setting<T, Form>& setting, QObject* receiver,
                  const std::function<void()>& act) {
        follow(setting.key, setting.name, receiver, act);
    }

signals:
    /// A value was written or deleted. `key` is its path without a separator at the end, both as
    /// they are spelled in the file.
    void changed(const QString& key, const QString& name);

private:
    void follow(QStringView key, QStringView name, QObject* receiver, std::function<void()> act);
};
