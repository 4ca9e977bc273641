#pragma once

#include <QWidget>

/// A page of the settings dialog.
class SettingPage : public QWidget {
    Q_OBJECT

public:
    using QWidget::QWidget;

    /// Reads what it shows. Raises what the engine raises.
    virtual void acquire() = 0;
    /// Writes what it shows. Answers false where that failed, which has been told.
    virtual bool apply() = 0;
};
