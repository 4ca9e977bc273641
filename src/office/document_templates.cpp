#include "office/document_templates.h"

#include "core/prompts.h"
#include "office/libre_office.h"
#include "richtext/rtf_template.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

using namespace Qt::StringLiterals;

namespace {

const QStringList Stock{u"IR1.dot"_s, u"STP1.dot"_s};
/// What else a word processor calls its templates and documents.
const QStringList OtherEndings{u"dotx"_s, u"docx"_s, u"doc"_s, u"ott"_s, u"odt"_s, u"rtf"_s};
const QString CancelTitle = u"Document creation cancelled"_s;

QString templatesFolder(const QString& appPath) {
    return appPath + u"Templates/"_s;
}

bool copyStock(const QString& name, const QString& folder) {
    const QString target = folder + name;
    constexpr auto forOwner = QFile::ReadOwner | QFile::WriteOwner;
    return QDir().mkpath(folder) && QFile::copy(u":/templates/"_s + name, target) &&
           QFile::setPermissions(target, forOwner); // resources are read only
}

void makeFolder(const QString& folder) {
    if (QDir(folder).exists())
        return;
    for (const QString& name : Stock)
        copyStock(name, folder);
}

/// The file of a template, whatever its ending; empty where there is none.
QString fileOf(const QString& name, const QString& folder) {
    QStringList names{name};
    const QString base = name.left(name.lastIndexOf(u'.') + 1);
    for (const QString& ending : OtherEndings)
        names += base + ending;
    for (const QString& wanted : std::as_const(names)) {
        const QStringList found = QDir(folder).entryList({wanted}, QDir::Files); // in any case
        if (!found.isEmpty())
            return folder + found.first();
    }
    return {};
}

QByteArray contentOf(const QString& path) {
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

/// Rich Text Format made of a file; empty where it can't be.
QByteArray converted(const QString& path) {
    const QTemporaryDir folder;
    if (!folder.isValid() || !ConvertByLibreOffice({path}, u"rtf"_s, folder.path()))
        return {};
    const QStringList made = QDir(folder.path()).entryList({u"*.rtf"_s}, QDir::Files);
    return made.isEmpty() ? QByteArray() : contentOf(folder.filePath(made.first()));
}

bool bringBack(Prompts& prompts, const QString& folder, const QString& webAddress,
               const DocumentTemplate& wanted) {
    QString question =
        u"To use this function ORVA requires the %1 template file to be located in "
        "the templates folder.\n\nThis file does not currently exist"_s.arg(wanted.name);
    if (webAddress.isEmpty())
        question += u'.';
    else
        question += u", the file can be downloaded manually from the following URL\n\n"_s +
                    webAddress + u"/ORVA/Templates/"_s + wanted.name;
    question += u"\n\nDo you wish to download this file now?"_s;
    if (prompts.msg_Box(question, YesNoButtons | QuestionIcon, u"Template doesn't exist"_s) !=
        AnswerYes)
        return false;
    if (!copyStock(wanted.name, folder)) {
        prompts.PlainBox(u"The template could not be written to\n\n%1"_s.arg(folder + wanted.name),
                         OkButton | CriticalIcon, CancelTitle);
        return false;
    }
    return prompts.msg_Box(wanted.createQuestion, YesNoButtons | QuestionIcon,
                           u"Download Complete"_s) == AnswerYes;
}

} // namespace

std::optional<QByteArray> ReadTemplate(const Seams& seams, const DocumentPlace& place,
                                       const DocumentTemplate& wanted) {
    const QString folder = templatesFolder(place.appPath);
    makeFolder(folder);
    if (fileOf(wanted.name, folder).isEmpty() &&
        !bringBack(seams.prompts, folder, place.webAddress, wanted))
        return {};
    const QString path = fileOf(wanted.name, folder);
    QByteArray source = contentOf(path);
    if (!richtext::RtfTemplate::isTemplate(source))
        source = converted(path);
    if (richtext::RtfTemplate::isTemplate(source))
        return source;
    seams.prompts.PlainBox(
        u"The template\n\n%1\n\ncan't be read. It has to be a file in Rich Text Format, or in "
        "another format that LibreOffice, where it is installed, can read."_s.arg(path),
        OkButton | CriticalIcon, CancelTitle);
    return {};
}
