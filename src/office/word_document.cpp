#include "office/word_document.h"

#include "core/program_settings.h"
#include "core/prompts.h"
#include "core/session.h"
#include "core/settings.h"
#include "core/shell.h"
#include "core/whole_file.h"
#include "office/paper.h"

#include <QDir>
#include <QFile>
#include <QImage>
#include <QSaveFile>
#include <QTemporaryDir>

#include <utility>

using namespace Qt::StringLiterals;
using richtext::TwipsPerInch;

namespace {

constexpr int WholeRow = 1000;

QString handedFolder(const QString& appPath) {
    return appPath + u"Documents/"_s;
}

richtext::Paper paperOf(const QSizeF& inches) {
    return {.size = (inches * TwipsPerInch).toSize(),
            .margins = {TwipsPerInch, TwipsPerInch, TwipsPerInch, TwipsPerInch}};
}

/// Why the bytes could not be written; empty where they stand there, for their owner alone.
QString writeFile(const QString& path, const QByteArray& bytes) {
    QSaveFile file(path);
    const bool isDone = file.open(QIODevice::WriteOnly) &&
                        file.setPermissions(QFile::ReadOwner | QFile::WriteOwner) &&
                        file.write(bytes) == bytes.size() && commitWhole(file);
    return isDone ? QString() : file.errorString();
}

/// A new folder that only the person can read, with a separator at its end; empty where none can be
/// made.
QString newFolder(const QString& appPath) {
    const QString all = handedFolder(appPath);
    constexpr auto forOwner = QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner;
    if (!QDir(all).exists() && !QDir().mkpath(all))
        return {};
    if (!QFile::setPermissions(all, forOwner))
        return {};
    QTemporaryDir folder(all + u"XXXXXX"_s);
    folder.setAutoRemove(false);
    return folder.isValid() ? folder.path() + u'/' : QString();
}

/// From parts of a row to twips, so that all rows end at the same edge.
void setWidths(richtext::TableRow& row, const richtext::Paper& paper) {
    const int usable = paper.usable().width();
    int part = 0;
    int right = 0;
    for (richtext::TableCell& cell : row.cells) {
        part += cell.width;
        cell.width = usable * part / WholeRow - right;
        right += cell.width;
    }
}

} // namespace

DocumentPlace documentPlace(const Session& session) {
    return {.appPath = session.AppPath,
            .webAddress = session.GetSettings().get(setting::UpgradeAddress)};
}

richtext::Paper usualPaper() {
    constexpr QSizeF a4(8.27, 11.69);
    constexpr QSizeF letter(8.5, 11);
    return paperOf(usesLetterPaper() ? letter : a4);
}

richtext::Paper narrowMargins(richtext::Paper paper) {
    constexpr int margin = TwipsPerInch / 2;
    paper.margins = {margin, margin, margin, margin};
    paper.headerDistance = margin / 2;
    return paper;
}

richtext::TableCell cellOf(const QString& text, int thousandths, const richtext::TextLook& look) {
    return {.text = text, .width = thousandths, .look = look};
}

WordDocument::WordDocument(const Seams& seams, DocumentPlace place, QString cancelTitle)
    : m_seams(seams)
    , m_place(std::move(place))
    , m_cancelTitle(std::move(cancelTitle))
    , m_document(usualPaper()) {}

WordDocument::~WordDocument() = default;

bool WordDocument::Word_Start() {
    m_progress = std::make_unique<ProgressWindow>(m_seams.progress, u"Exporting to Word:"_s);
    step(0, u"Starting Word Application"_s);
    if (!m_place.target.isEmpty() || m_seams.shell.HasWordProcessor())
        return true;
    m_progress.reset();
    m_seams.prompts.msg_Box(u"MS Word does not appear to be installed on this system."_s,
                            OkButton | WarningIcon, m_cancelTitle);
    return false;
}

void WordDocument::step(int percent, const QString& text) {
    m_seams.progress.UpdateProgress(percent, text);
}

void WordDocument::Word_AddTitle(const QString& text, int size, bool bold, bool centred) {
    m_document.addText(text + u'\n', {.size = size, .bold = bold, .centred = centred});
}

void WordDocument::Word_AddTable(richtext::Table table) {
    for (richtext::TableRow& row : table)
        setWidths(row, m_document.paper());
    m_document.addTable(table);
}

void WordDocument::repeatHeading(richtext::TableRow heading) {
    setWidths(heading, m_document.paper());
    m_document.setPageHeading(heading);
}

void WordDocument::addTextBox(const QRect& place, const QString& text) {
    m_document.addTextBox(place, text, {});
}

void WordDocument::Word_AddPicture(const QString& file, int top) {
    const QImage picture(file);
    if (picture.isNull()) {
        m_seams.prompts.msg_Box(u"Unable to acquire picture."_s, OkButton | WarningIcon,
                                u"Exporting to Word:"_s);
        return;
    }
    const QSize usable = m_document.paper().usable();
    const QSize room(usable.width(), usable.height() - top);
    const QSize size = picture.size().scaled(room, Qt::KeepAspectRatio);
    m_document.addPictureBox({QPoint((room.width() - size.width()) / 2, top), size}, picture);
}

bool WordDocument::Word_Finish(const QString& name) {
    return Word_Finish(name, m_document.source());
}

bool WordDocument::Word_Finish(const QString& name, const QByteArray& source) {
    const bool isKept = !m_place.target.isEmpty();
    const QString folder = isKept ? QString() : newFolder(m_place.appPath);
    const QString path = isKept ? m_place.target : folder + name + u".rtf"_s;
    const QString fault = !isKept && folder.isEmpty()
                              ? u"No folder could be made for it in %1"_s.arg(m_place.appPath)
                              : writeFile(path, source);
    m_progress.reset();
    if (!fault.isEmpty()) {
        if (!folder.isEmpty())
            QDir(folder).removeRecursively();
        m_seams.prompts.PlainBox(u"The document could not be written:\n\n%1"_s.arg(fault),
                                 OkButton | CriticalIcon, m_cancelTitle);
        return false;
    }
    if (!isKept) {
        // Who saves it in place would lose it when the folder is emptied.
        QFile::setPermissions(path, QFile::ReadOwner);
        m_seams.shell.OpenNewDocument(path);
    }
    return true;
}

void RemoveHandedDocuments(const QString& appPath) {
    QDir folder(handedFolder(appPath));
    if (folder.exists())
        folder.removeRecursively();
}
