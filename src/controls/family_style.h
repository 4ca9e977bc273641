#pragma once

#include <QProxyStyle>

/// The person's style with the program's own icons where a toolbar or menu is too long for its
/// place. The style's own are pictures, for which it would load all image formats at the start.
///
/// In Fusion it also mends what that takes for granted of a scheme: black text on the title of an
/// inactive window, white on that of the active one, icons of no family on the buttons of dialogs,
/// icons on a selected menu item that do not read there.
class FamilyStyle : public QProxyStyle {
    Q_OBJECT

public:
    using QProxyStyle::QProxyStyle;

    QIcon standardIcon(StandardPixmap standardIcon, const QStyleOption* option = nullptr,
                       const QWidget* widget = nullptr) const override;
    using QProxyStyle::polish;
    /// What an empty field shows is as readable in every scheme.
    void polish(QPalette& palette) override;
    int styleHint(StyleHint hint, const QStyleOption* option = nullptr,
                  const QWidget* widget = nullptr,
                  QStyleHintReturn* returned = nullptr) const override;
    void drawControl(ControlElement element, const QStyleOption* option, QPainter* painter,
                     const QWidget* widget = nullptr) const override;
    void drawComplexControl(ComplexControl control, const QStyleOptionComplex* option,
                            QPainter* painter, const QWidget* widget = nullptr) const override;

private:
    void drawScrollBar(const QStyleOptionComplex* option, QPainter* painter,
                       const QWidget* widget) const;
    bool isFusion() const;
};
