#pragma once

#include <QByteArray>
#include <QString>

namespace richtext {

/// A template in Rich Text Format, whose places to be filled are bookmarks. Everything else in it
/// stays as it is, byte for byte.
class RtfTemplate {
public:
    explicit RtfTemplate(const QByteArray& source) : m_source(QString::fromLatin1(source)) {}

    /// Whether the bytes are Rich Text Format.
    static bool isTemplate(const QByteArray& source) { return source.startsWith("{\\rtf"); }

    /// Puts a text, its lines divided by '\n', in the place of what a bookmark encloses, wherever
    /// one of that name, in any case, stands. The bookmarks, and others within, are gone then.
    /// Answers false, and changes nothing, where there is none.
    bool fillBookmark(const QString& name, const QString& text);
    /// The title that the document bears in its properties.
    void setTitle(const QString& title);

    QByteArray source() const { return m_source.toLatin1(); }

private:
    QString m_source;
};

} // namespace richtext
