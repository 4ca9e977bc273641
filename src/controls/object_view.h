#pragma once

#include <QCache>
#include <QImage>
#include <QObject>
#include <QTextObjectInterface>

class QAbstractTextDocumentLayout;
class QTextEdit;

/// Shows the objects and pictures of a box's document: an object as an icon with its name, a
/// picture as itself, no wider than the box.
class ObjectView : public QObject, public QTextObjectInterface {
    Q_OBJECT
    Q_INTERFACES(QTextObjectInterface)

public:
    explicit ObjectView(QTextEdit& box);

    void registerWith(QAbstractTextDocumentLayout& layout);

    QSizeF intrinsicSize(QTextDocument* document, int position, const QTextFormat& format) override;
    void drawObject(QPainter* painter, const QRectF& rect, QTextDocument* document, int position,
                    const QTextFormat& format) override;

private:
    /// What is shown of an object; made once.
    struct Face {
        QString source; ///< the key, kept so that its memory is not used again
        QString icon;
        QString name;
        QImage picture;
        QSizeF size;
    };
    const Face& faceOf(const QTextFormat& format);
    Face pictureFace(const QString& source) const;
    Face objectFace(const QString& source) const;

    QTextEdit& m_box;
    QCache<const QChar*, Face> m_faces;
};
