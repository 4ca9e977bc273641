#pragma once

#include "core/progress.h"
#include "core/seams.h"
#include "richtext/rtf_document.h"

#include <QList>
#include <QString>
#include <QStringList>

#include <memory>

class Session;

/// Where documents for the word processor go, and come from.
struct DocumentPlace {
    QString appPath;     ///< the person's program folder, with a separator at its end
    QString webAddress;  ///< of the program, where templates can be had; may be empty
    QString target = {}; ///< a file to write to; where it is empty the word processor gets it
};
DocumentPlace documentPlace(const Session& session);

/// A document on its way to the person's word processor: its recipe starts it, adds to it from the
/// beginning to the end, and finishes it. It is opened as a new document, not saved yet. Given up
/// without a trace where it is not finished.
class WordDocument {
public:
    /// `cancelTitle`: of the box that says that there is no word processor.
    WordDocument(const Seams& seams, DocumentPlace place,
                 QString cancelTitle = QStringLiteral("Document creation cancelled"));
    ~WordDocument();

    /// Shows the progress and looks for the word processor. Answers false, and the person is told,
    /// where there is none.
    bool Word_Start();
    /// Moves the progress on.
    void step(int percent, const QString& text);

    /// What is added from here on goes on this paper.
    void Word_PageSetup(const richtext::Paper& paper) { m_document.setPaper(paper); }
    const richtext::Paper& paper() const { return m_document.paper(); }
    /// Lines of text with an empty one below, so that what follows stands apart.
    void Word_AddTitle(const QString& text, int size, bool bold, bool centred);
    /// The widths of the cells are parts of the paper's usable width, of which each row has 1000.
    void Word_AddTable(richtext::Table table);
    /// The same row over what of a table goes on on further pages.
    void repeatHeading(richtext::TableRow heading);
    void Word_NewPage() { m_document.newPage(); }
    /// A box with text; its place in twips from the margins.
    void addTextBox(const QRect& place, const QString& text);
    /// A picture file in a box as large as the paper has room below `top`, in the middle. One that
    /// can't be read is told, and the document goes on without it.
    void Word_AddPicture(const QString& file, int top);

    /// Takes the progress away, for a box that says why there will be no document.
    void giveUp() { m_progress.reset(); }
    /// Hands the document over under a name, which no file keeps. A failure to write is told.
    /// Answers whether it was done.
    bool Word_Finish(const QString& name);
    /// The same with a document that is there already.
    bool Word_Finish(const QString& name, const QByteArray& source);

private:
    const Seams& m_seams;
    DocumentPlace m_place;
    QString m_cancelTitle;
    std::unique_ptr<ProgressWindow> m_progress;
    richtext::RtfDocument m_document;
};

/// A sheet of the person's paper, A4 or Letter by the locale, upright, with usual margins.
richtext::Paper usualPaper();
/// The same paper with margins of half an inch.
richtext::Paper narrowMargins(richtext::Paper paper);

/// A cell with its part of the row's width, in thousandths.
richtext::TableCell cellOf(const QString& text, int thousandths,
                           const richtext::TextLook& look = {});

/// Removes what documents earlier runs of the program have handed over. For the program's start.
void RemoveHandedDocuments(const QString& appPath);
