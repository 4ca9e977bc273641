#include "controls/family_style.h"

#include "controls/icons.h"

using namespace Qt::StringLiterals;

QIcon FamilyStyle::standardIcon(StandardPixmap standardIcon, const QStyleOption* option,
                                const QWidget* widget) const {
    if (standardIcon == SP_ToolBarHorizontalExtensionButton)
        return icon(u"next"_s);
    if (standardIcon == SP_ToolBarVerticalExtensionButton)
        return icon(u"down"_s);
    return QProxyStyle::standardIcon(standardIcon, option, widget);
}
