#pragma once

#include <QByteArray>
#include <QList>
#include <QStringView>

/// A compound file: the container of .xls, a small file system in a file. Reads any bytes; what
/// does not hang together is left out.
class CompoundFile {
public:
    explicit CompoundFile(QByteArray bytes);

    /// A stream of this name; empty where there is none, or it breaks off.
    QByteArray stream(QStringView name) const;

private:
    quint32 number(qsizetype place) const; ///< 0 beyond the end
    QByteArray sector(quint32 index) const;
    QByteArray chain(quint32 first) const;
    QByteArray ofPieces(quint32 first, qsizetype size, quint32 piecesStart) const;
    void readTable();

    QByteArray m_bytes;
    qsizetype m_sectorSize = 0;
    QList<quint32> m_next; ///< the sector that follows each
};
