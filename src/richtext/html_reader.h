#pragma once

#include <QColor>
#include <QImage>
#include <QString>

namespace richtext {

/// What HTML is put on.
struct HtmlGround {
    QString family;     ///< of text that tells no font
    double points = 10; ///< and no size
    QColor paper = Qt::white;
    QImage picture; ///< what a page that is one picture shows, if it is known from elsewhere
};

/// HTML, as other programs hand it on, as a rich text of the program's own dialect, which can be
/// read back without loss: fonts, sizes, colours, highlights, paragraphs and lists. What the
/// dialect lacks becomes text: the cells of a table row are divided by tabs, behind a link stands
/// its address, and so does the number of an item where its list does not start with 1. Pictures
/// come in where the page carries them itself or they lie in a file; otherwise the text that
/// stands for them. Nothing is fetched from the network. Text that could not be told from the
/// paper takes the automatic colour.
QString rtfOfHtml(const QString& html, const HtmlGround& ground);

} // namespace richtext
