#pragma once

#include <QDialog>

/// The about box: the program's name and version, and the versions of what it stands on, which
/// whoever helps a teacher asks for first.
class AboutDialog : public QDialog {
    Q_OBJECT

public:
    explicit AboutDialog(QWidget* parent = nullptr);
};
