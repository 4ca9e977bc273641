#include "controls/character_model.h"

#include <QRawFont>

using namespace Qt::StringLiterals;

namespace {

constexpr int columns = 16;

bool isShown(QChar c) {
    return c.isPrint() && !c.isSpace() && !c.isSurrogate() && !c.isMark() &&
           c.category() != QChar::Other_PrivateUse;
}

} // namespace

const QList<CharacterGroup>& characterGroups() {
    static const QList<CharacterGroup> groups = {
        {u"All characters"_s, 0x21, 0xFFFD},
        {u"Latin letters"_s, 0x21, 0x24F},
        {u"Greek"_s, 0x370, 0x3FF},
        {u"Cyrillic"_s, 0x400, 0x52F},
        {u"Punctuation and currency"_s, 0x2010, 0x20CF},
        {u"Letter-like signs and fractions"_s, 0x2100, 0x218F},
        {u"Arrows"_s, 0x2190, 0x21FF},
        {u"Mathematics"_s, 0x2200, 0x22FF},
        {u"Technical signs"_s, 0x2300, 0x23FF},
        {u"Lines and shapes"_s, 0x2500, 0x25FF},
        {u"Symbols"_s, 0x2600, 0x27BF},
    };
    return groups;
}

void CharacterModel::show(const QFont& font, const CharacterGroup& group) {
    beginResetModel();
    m_characters.clear();
    const QRawFont raw = QRawFont::fromFont(font);
    for (uint code = group.first; code <= group.last; ++code) {
        const QChar c(static_cast<char16_t>(code));
        if (isShown(c) && raw.supportsCharacter(c))
            m_characters += c;
    }
    endResetModel();
}

QChar CharacterModel::characterAt(const QModelIndex& index) const {
    return m_characters.value(qsizetype{index.row()} * columns + index.column());
}

QModelIndex CharacterModel::indexOf(QChar character) const {
    const auto place = static_cast<int>(m_characters.indexOf(character));
    return place < 0 ? QModelIndex() : index(place / columns, place % columns);
}

int CharacterModel::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : static_cast<int>((m_characters.size() + columns - 1) / columns);
}

int CharacterModel::columnCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : columns;
}

QVariant CharacterModel::data(const QModelIndex& index, int role) const {
    const QChar character = characterAt(index);
    if (character.isNull())
        return {};
    switch (role) {
    case Qt::DisplayRole:
        return QString(character);
    case Qt::ToolTipRole:
        return codeText(character);
    case Qt::AccessibleTextRole:
        return u"%1, %2"_s.arg(QString(character), codeText(character));
    case Qt::TextAlignmentRole:
        return QVariant::fromValue(Qt::Alignment(Qt::AlignCenter));
    default:
        return {};
    }
}

Qt::ItemFlags CharacterModel::flags(const QModelIndex& index) const {
    return characterAt(index).isNull() ? Qt::NoItemFlags : Qt::ItemIsEnabled | Qt::ItemIsSelectable;
}

QString codeText(QChar character) {
    return u"U+%1"_s.arg(uint{character.unicode()}, 4, 16, QLatin1Char('0')).toUpper();
}
