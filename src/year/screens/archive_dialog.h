#pragma once

#include <QDialog>

class FilePage;
class QListWidget;
class WizardButtons;
class QStackedWidget;
class Session;

/// "Archive a class": the class, then the name of the archive, then it is made. Modal, since
/// nothing else may work on the year meanwhile.
///
/// Enter goes on, Escape cancels, which it asks about.
class ArchiveDialog : public QDialog {
    Q_OBJECT

public:
    /// The class of this code is picked, if there is one. Raises what the engine raises where the
    /// year can't be read.
    explicit ArchiveDialog(Session& session, const QString& classCode, QWidget* parent = nullptr);

    void next();
    void previous();
    void reject() override;

private:
    QWidget* makeClassPage(const QString& classCode);
    QWidget* makeNamePage();
    void showPage(int page);
    void finish();
    QString pickedClass() const;

    Session& m_session;
    QStackedWidget* m_pages;
    QListWidget* m_classes = nullptr;
    FilePage* m_file = nullptr;
    WizardButtons* m_buttons;
};

/// Shows the dialog over the open year and waits for its end. A year that can't be read is told.
void showArchiveDialog(Session& session, const QString& classCode);
