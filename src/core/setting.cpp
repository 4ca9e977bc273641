#include "core/setting.h"

#include <QStringBuilder>

#include <algorithm>
#include <limits>

using namespace Qt::StringLiterals;

namespace setting {

QString keyOf(QStringView key) {
    return key.startsWith(Root, Qt::CaseInsensitive) ? key.toString() : QString(Root % key);
}

std::optional<qint32> NumberForm::read(const dao::Value& stored) {
    using Limits = std::numeric_limits<qint32>;
    return static_cast<qint32>(
        std::clamp<qint64>(stored.toInteger(), Limits::min(), Limits::max()));
}

std::optional<QString> TextForm::read(const dao::Value& stored) {
    return stored.isText() ? stored.toText() : stored.toText().chopped(1);
}

std::optional<bool> FlagForm::read(const dao::Value& stored) {
    return NumberForm::read(stored) == 1;
}

dao::Value TruthTextForm::written(bool isTrue) {
    return isTrue ? u"True"_s : u"False"_s;
}

std::optional<bool> TruthTextForm::read(const dao::Value& stored) {
    return stored.toText().compare(u"True", Qt::CaseInsensitive) == 0;
}

} // namespace setting
