#pragma once

#include <QAbstractTableModel>
#include <QFont>
#include <QList>
#include <QString>

/// A range of characters that belong together.
struct CharacterGroup {
    QString name;
    char16_t first;
    char16_t last;
};

/// The groups to choose from; the first is all characters.
const QList<CharacterGroup>& characterGroups();

/// The characters of a group that a font has, in rows of sixteen. Those beyond the first 65,536 are
/// left out, so that each is one character of a text.
class CharacterModel : public QAbstractTableModel {
    Q_OBJECT

public:
    using QAbstractTableModel::QAbstractTableModel;

    void show(const QFont& font, const CharacterGroup& group);
    /// The character of a cell; a null one behind the last.
    QChar characterAt(const QModelIndex& index) const;
    QModelIndex indexOf(QChar character) const;

    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    Qt::ItemFlags flags(const QModelIndex& index) const override;

private:
    QList<QChar> m_characters;
};

/// "U+03A9".
QString codeText(QChar character);
