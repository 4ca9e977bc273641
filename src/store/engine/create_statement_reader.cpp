// Reads a table's structure back from the CREATE TABLE statement that the file keeps. What this
// program wrote is read exactly; of what other tools wrote, what has no counterpart is passed over.

#include "store/engine/names.h"
#include "store/engine/structure.h"

#include <algorithm>
#include <deque>

using namespace Qt::StringLiterals;

namespace dao {
namespace {

struct Token {
    enum Kind { Word, Name, Literal, Mark, End };
    Kind kind = End;
    QStringView text; ///< of a Name or Literal, without its quotes
};

class Tokens {
public:
    explicit Tokens(const QString& text) : m_text(text) { advance(); }

    const Token& current() const { return m_current; }
    bool atEnd() const { return m_current.kind == Token::End; }
    bool isWord(const char* word) const {
        return m_current.kind == Token::Word &&
               m_current.text.compare(QLatin1StringView(word), Qt::CaseInsensitive) == 0;
    }
    bool isMark(char16_t mark) const {
        return m_current.kind == Token::Mark && m_current.text.front() == mark;
    }
    bool takeWord(const char* word) { return isWord(word) && (advance(), true); }
    bool takeMark(char16_t mark) { return isMark(mark) && (advance(), true); }
    QString takeText() {
        QString text = m_current.text.toString();
        advance();
        return text;
    }

    void advance() {
        skipBlanksAndComments();
        if (m_at >= m_text.size()) {
            m_current = {};
            return;
        }
        const QChar first = m_text.at(m_at);
        if (first == u'"' || first == u'`' || first == u'[')
            m_current = {Token::Name, quoted(first == u'[' ? u']' : first)};
        else if (first == u'\'')
            m_current = {Token::Literal, quoted(first)};
        else if (first.isLetterOrNumber() || first == u'_' || first.unicode() > 127)
            m_current = {Token::Word, word()};
        else
            m_current = {Token::Mark, QStringView(m_text).mid(m_at++, 1)};
    }

    /// Passes over a pair of brackets with all inside; the current token is the opening one.
    QList<Token> takeBracketed() {
        QList<Token> inside;
        int depth = 0;
        while (!atEnd()) {
            depth += isMark(u'(') - isMark(u')');
            inside += m_current;
            advance();
            if (depth == 0)
                break;
        }
        return inside;
    }

private:
    void skipBlanksAndComments() {
        for (;;) {
            const QStringView rest = QStringView(m_text).mid(m_at);
            if (rest.startsWith(u"--"))
                skipBehind(u"\n");
            else if (rest.startsWith(u"/*"))
                skipBehind(u"*/");
            else if (!rest.isEmpty() && rest.front().isSpace())
                ++m_at;
            else
                return;
        }
    }
    void skipBehind(QStringView end) {
        const qsizetype found = QStringView(m_text).indexOf(end, m_at + 2);
        m_at = found < 0 ? m_text.size() : found + end.size();
    }
    QStringView quoted(QChar closing) {
        const qsizetype start = ++m_at;
        bool isDoubled = false;
        for (; m_at < m_text.size(); ++m_at) {
            if (m_text.at(m_at) != closing)
                continue;
            if (closing == u']' || m_at + 1 >= m_text.size() || m_text.at(m_at + 1) != closing)
                break;
            isDoubled = true;
            ++m_at;
        }
        const QStringView inside = QStringView(m_text).mid(start, m_at - start);
        m_at = std::min(m_at + 1, m_text.size());
        if (!isDoubled)
            return inside;
        return m_undoubled.emplace_back(
            inside.toString().replace(QString(2, closing), QString(closing)));
    }
    QStringView word() {
        const qsizetype start = m_at;
        while (m_at < m_text.size() && (m_text.at(m_at).isLetterOrNumber() ||
                                        m_text.at(m_at) == u'_' || m_text.at(m_at).unicode() > 127))
            ++m_at;
        return QStringView(m_text).mid(start, m_at - start);
    }

    const QString& m_text;
    std::deque<QString> m_undoubled; ///< what tokens show that does not stand in the text like that
    qsizetype m_at = 0;
    Token m_current;
};

bool startsConstraint(const Tokens& tokens) {
    for (const char* word : {"CONSTRAINT", "PRIMARY", "NOT", "NULL", "UNIQUE", "CHECK", "DEFAULT",
                             "COLLATE", "REFERENCES", "GENERATED", "AS", "FOREIGN"}) {
        if (tokens.isWord(word))
            return true;
    }
    return false;
}

QStringList takeNameList(Tokens& tokens) {
    QStringList names;
    if (!tokens.takeMark(u'('))
        return names;
    while (!tokens.atEnd() && !tokens.takeMark(u')')) {
        if (tokens.current().kind == Token::Mark)
            tokens.advance();
        else
            names += tokens.takeText();
    }
    return names;
}

/// Whether the tokens of a CHECK are those of `("field" <> '')`.
bool refusesZeroLength(const QList<Token>& check, const QString& field) {
    return check.size() == 6 && sameName(check.at(1).text, field) && check.at(2).text == u'<' &&
           check.at(3).text == u'>' && check.at(4).kind == Token::Literal &&
           check.at(4).text.isEmpty();
}

void skipToNextPart(Tokens& tokens) {
    while (!tokens.atEnd() && !tokens.isMark(u',') && !tokens.isMark(u')')) {
        if (tokens.isMark(u'('))
            tokens.takeBracketed();
        else
            tokens.advance();
    }
}

void readColumn(Tokens& tokens, TableStructure& table) {
    Field field;
    field.Name = tokens.takeText();
    field.OrdinalPosition = static_cast<int>(table.fields.size());
    QString declaration;
    while (!tokens.atEnd() && !tokens.isMark(u',') && !tokens.isMark(u')') &&
           !startsConstraint(tokens)) {
        if (tokens.isMark(u'(')) {
            for (const Token& token : tokens.takeBracketed())
                declaration += token.text;
        } else {
            declaration += (declaration.isEmpty() ? QString() : u" "_s) + tokens.takeText();
        }
    }
    readDeclaredType(declaration, field);
    field.AllowZeroLength = field.Type == DataType::Text || field.Type == DataType::Memo;

    QString constraintName;
    while (!tokens.atEnd() && !tokens.isMark(u',') && !tokens.isMark(u')')) {
        if (tokens.takeWord("CONSTRAINT")) {
            constraintName = tokens.takeText();
        } else if (tokens.takeWord("PRIMARY")) {
            tokens.takeWord("KEY");
            if (declaration.compare(u"INTEGER", Qt::CaseInsensitive) == 0)
                field.Attributes = AutoIncrement;
            if (!constraintName.isEmpty())
                table.indexes += Index{constraintName, true, true, {field.Name}};
        } else if (tokens.takeWord("NOT")) {
            field.Required = tokens.takeWord("NULL");
        } else if (tokens.takeWord("CHECK")) {
            if (refusesZeroLength(tokens.takeBracketed(), field.Name))
                field.AllowZeroLength = false;
        } else if (tokens.isMark(u'(')) {
            tokens.takeBracketed();
        } else {
            tokens.advance();
        }
    }
    table.fields += field;
}

void readRelation(Tokens& tokens, const QString& name, TableStructure& table) {
    Relation relation;
    relation.Name = name;
    relation.ForeignTable = table.name;
    const QStringList own = takeNameList(tokens);
    if (!tokens.takeWord("REFERENCES"))
        return;
    relation.Table = tokens.takeText();
    const QStringList others = takeNameList(tokens);
    for (qsizetype i = 0; i < own.size() && i < others.size(); ++i)
        relation.Fields += {others.at(i), own.at(i)};
    while (tokens.takeWord("ON")) {
        const bool update = tokens.isWord("UPDATE");
        tokens.advance();
        if (tokens.takeWord("CASCADE"))
            relation.Attributes |= update ? RelationUpdateCascade : RelationDeleteCascade;
        else
            tokens.advance();
    }
    table.relations += relation;
}

void readTableConstraint(Tokens& tokens, TableStructure& table) {
    QString name;
    if (tokens.takeWord("CONSTRAINT"))
        name = tokens.takeText();
    if (tokens.takeWord("PRIMARY")) {
        tokens.takeWord("KEY");
        table.indexes += Index{name, true, true, takeNameList(tokens)};
    } else if (tokens.takeWord("FOREIGN")) {
        tokens.takeWord("KEY");
        readRelation(tokens, name, table);
    }
    skipToNextPart(tokens);
}

} // namespace

TableStructure readCreateStatement(const QString& statement) {
    TableStructure table;
    Tokens tokens(statement);
    while (!tokens.atEnd() && !tokens.takeWord("TABLE"))
        tokens.advance();
    if (tokens.takeWord("IF")) {
        tokens.takeWord("NOT");
        tokens.takeWord("EXISTS");
    }
    table.name = tokens.takeText();
    if (tokens.takeMark(u'.'))
        table.name = tokens.takeText();
    if (!tokens.takeMark(u'('))
        return table;
    while (!tokens.atEnd()) {
        if (tokens.current().kind == Token::Word && startsConstraint(tokens))
            readTableConstraint(tokens, table);
        else
            readColumn(tokens, table);
        if (!tokens.takeMark(u','))
            break;
    }
    return table;
}

} // namespace dao
