#pragma once

#include <QString>
#include <QWidget>

class Prompts;
class QLabel;
class RestrictedEdit;

/// What a FilePage is called in the window that it stands in.
struct FilePageNames {
    QString name;     ///< object name of the box for the file's name
    QString location; ///< of the text that shows the folder
    QString change;   ///< of the button that asks for another
    QString caption;  ///< of the box, with its access key
    QString file;     ///< the file in words: "database file"
};

/// The name and the folder of a file that is going to be made.
class FilePage : public QWidget {
    Q_OBJECT

public:
    /// `folder` has a separator at its end.
    FilePage(const QString& folder, const FilePageNames& names, Prompts& prompts);
    /// Proposes a name, as long as the person has not typed one.
    void propose(const QString& name);
    QString name() const;
    QString folder() const { return m_folder; }

private:
    void chooseFolder();
    void showFolder(const QString& folder);

    Prompts& m_prompts;
    RestrictedEdit* m_name;
    QLabel* m_location;
    QString m_folder;
    bool m_hasTypedName = false;
};
