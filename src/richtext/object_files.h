#pragma once

#include "richtext/objects.h"

#include <QLockFile>
#include <QObject>
#include <QTemporaryDir>

#include <memory>

namespace richtext {

/// The files of packages that were opened: copies in a folder of this process that nobody else can
/// read, for other programs to show. They are gone with it, at the latest when the program ends;
/// what a process that was killed left behind goes with removeLeftovers.
class ObjectFiles : public QObject {
public:
    /// `place` is the folder that holds the folder: the person's program folder.
    explicit ObjectFiles(QString place, QObject* parent = nullptr);
    ~ObjectFiles() override;

    /// The one of this process, which the application object takes down with it.
    static ObjectFiles& ofProcess(const QString& place);

    /// Removes what processes that were killed have left in the place. What one that runs has there
    /// stays.
    static void removeLeftovers(const QString& place);

    /// Writes the packaged file and answers its path; empty where the disk did not take it. The
    /// file is read only, since a change would not come back into the document.
    QString write(const EmbeddedObject& package);

private:
    bool makeFolder();

    QString m_place;
    std::unique_ptr<QTemporaryDir> m_folder; ///< made with the first file
    std::unique_ptr<QLockFile> m_lock;       ///< tells other processes that the folder is in use
    int m_count = 0;
};

} // namespace richtext
