#pragma once

#include <QProxyStyle>

/// The person's style with the program's own icons where a toolbar or menu is too long for its
/// place. The style's own are pictures, for which it would load all image formats at the start.
class FamilyStyle : public QProxyStyle {
    Q_OBJECT

public:
    using QProxyStyle::QProxyStyle;

    QIcon standardIcon(StandardPixmap standardIcon, const QStyleOption* option = nullptr,
                       const QWidget* widget = nullptr) const override;
};
