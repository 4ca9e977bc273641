#include "store/engine/jet_sql_parser.h"

#include "store/engine/jet_sql_tokens.h"

#include <algorithm>
#include <array>
#include <utility>

using namespace Qt::StringLiterals;

namespace dao::sql {
namespace {

// Limits that keep every text, also one made to do harm, away from the end of the stack.
constexpr int MaximumNesting = 100;  ///< of brackets and signs in the text
constexpr int MaximumHeight = 200;   ///< of the tree: chains such as a + b + c grow to the left
constexpr size_t MaximumTerms = 255; ///< of an item list, FROM and ORDER BY

struct BinaryOperator {
    const char16_t* token;
    Operation operation;
};

/// The logical operators, the weakest first; each has a level of its own.
constexpr std::array LogicalOperators{
    BinaryOperator{u"IMP", Operation::Imp}, BinaryOperator{u"EQV", Operation::Eqv},
    BinaryOperator{u"XOR", Operation::Xor}, BinaryOperator{u"OR", Operation::Or},
    BinaryOperator{u"AND", Operation::And},
};
constexpr std::array Comparisons{
    BinaryOperator{u"=", Operation::Equal},        BinaryOperator{u"<>", Operation::NotEqual},
    BinaryOperator{u"<=", Operation::LessOrEqual}, BinaryOperator{u">=", Operation::GreaterOrEqual},
    BinaryOperator{u"<", Operation::Less},         BinaryOperator{u">", Operation::Greater},
};
constexpr std::array Joining{BinaryOperator{u"&", Operation::Join}};
constexpr std::array Adding{BinaryOperator{u"+", Operation::Add},
                            BinaryOperator{u"-", Operation::Subtract}};
constexpr std::array Multiplying{BinaryOperator{u"*", Operation::Multiply},
                                 BinaryOperator{u"/", Operation::Divide}};

class Parser {
public:
    explicit Parser(const QString& text) : m_tokens(tokenize(text)) {}

    Select select() {
        expect(u"SELECT");
        do
            addLimited(m_select.items, item());
        while (accept(u","));
        expect(u"FROM");
        do
            joinedTables();
        while (accept(u","));
        if (accept(u"WHERE"))
            m_select.where = expression();
        if (accept(u"ORDER")) {
            expect(u"BY");
            m_select.order = orderList();
        }
        accept(u";");
        expectEnd();
        return std::move(m_select);
    }

    Expression condition() {
        Expression parsed = expression();
        expectEnd();
        return parsed;
    }

    std::vector<OrderTerm> order() {
        std::vector<OrderTerm> parsed = orderList();
        expectEnd();
        return parsed;
    }

private:
    /// One level deeper into the text, for as long as it lives.
    class Deeper {
    public:
        explicit Deeper(Parser& parser) : m_parser(parser) {
            if (++m_parser.m_nesting > MaximumNesting)
                m_parser.fail();
        }
        ~Deeper() { --m_parser.m_nesting; }
        Q_DISABLE_COPY(Deeper)

    private:
        Parser& m_parser;
    };

    const Token& token(qsizetype ahead = 0) const {
        return m_tokens[std::min(m_place + ahead, m_tokens.size() - 1)];
    }
    [[noreturn]] void fail() const { raiseSyntaxError(token().position); }

    /// Whether a keyword or symbol comes next.
    bool comes(QStringView text, qsizetype ahead = 0) const {
        const Token& next = token(ahead);
        return (next.kind == TokenKind::Keyword || next.kind == TokenKind::Symbol) &&
               next.text == text;
    }
    bool accept(QStringView text) {
        const bool fits = comes(text);
        if (fits)
            ++m_place;
        return fits;
    }
    void expect(QStringView text) {
        if (!accept(text))
            fail();
    }
    void expectEnd() const {
        if (token().kind != TokenKind::End)
            fail();
    }
    /// The operation of the operator that comes next, if it is one of these.
    template<size_t Count>
    std::optional<Operation> acceptOne(const std::array<BinaryOperator, Count>& operators) {
        for (const BinaryOperator& candidate : operators) {
            if (accept(candidate.token))
                return candidate.operation;
        }
        return std::nullopt;
    }
    QString name() {
        if (token().kind != TokenKind::Name)
            fail();
        return m_tokens[m_place++].text;
    }

    template<typename Term>
    void addLimited(std::vector<Term>& terms, Term term) {
        terms.push_back(std::move(term));
        if (terms.size() > MaximumTerms)
            fail();
    }

    SelectItem item() {
        SelectItem parsed;
        if (accept(u"*")) {
            parsed.all = true;
            return parsed;
        }
        if (token().kind == TokenKind::Name && isDot(1) && comes(u"*", 2)) {
            parsed.all = true;
            parsed.qualifier = name();
            m_place += 2;
            return parsed;
        }
        parsed.expression = expression();
        if (accept(u"AS"))
            parsed.alias = name();
        return parsed;
    }

    void joinedTables() {
        const size_t first = m_select.tables.size();
        tableOrJoin();
        while (accept(u"INNER")) {
            expect(u"JOIN");
            tableOrJoin();
            expect(u"ON");
            Expression condition = expression();
            m_select.joins.push_back({std::move(condition), first, m_select.tables.size()});
        }
    }

    void tableOrJoin() {
        if (accept(u"(")) {
            const Deeper deeper(*this);
            joinedTables();
            expect(u")");
            return;
        }
        FromTable table;
        table.name = name();
        if (accept(u"AS"))
            table.alias = name();
        addLimited(m_select.tables, std::move(table));
    }

    std::vector<OrderTerm> orderList() {
        std::vector<OrderTerm> terms;
        do {
            OrderTerm term;
            term.expression = expression();
            term.descending = accept(u"DESC");
            if (!term.descending)
                accept(u"ASC");
            addLimited(terms, std::move(term));
        } while (accept(u","));
        return terms;
    }

    template<typename... Operands>
    Expression node(Operation operation, Operands... operands) {
        Expression made;
        made.operation = operation;
        (addOperand(made, std::move(operands)), ...);
        return made;
    }
    void addOperand(Expression& to, Expression operand) {
        to.height = std::max(to.height, operand.height + 1);
        if (to.height > MaximumHeight)
            fail();
        to.operands.push_back(std::move(operand));
    }

    Expression expression() {
        const Deeper deeper(*this);
        return logical(0);
    }

    Expression logical(size_t level) {
        if (level == LogicalOperators.size())
            return negation();
        const Operation operation = LogicalOperators[level].operation;
        Expression left = logical(level + 1);
        while (accept(LogicalOperators[level].token)) {
            Expression right = logical(level + 1);
            if (left.operation == operation &&
                (operation == Operation::And || operation == Operation::Or))
                addOperand(left, std::move(right));
            else
                left = node(operation, std::move(left), std::move(right));
        }
        return left;
    }

    Expression negation() {
        if (!accept(u"NOT"))
            return comparison();
        const Deeper deeper(*this);
        return node(Operation::Not, negation());
    }

    Expression comparison() {
        Expression left = joining();
        while (true) {
            if (const auto operation = acceptOne(Comparisons)) {
                left = node(*operation, std::move(left), joining());
            } else if (accept(u"IS")) {
                const bool negated = accept(u"NOT");
                expect(u"NULL");
                left = node(Operation::IsNull, std::move(left));
                left.negated = negated;
            } else if (comes(u"LIKE") || comes(u"BETWEEN") || comes(u"IN") || comes(u"NOT")) {
                const bool negated = accept(u"NOT");
                left = wordComparison(std::move(left));
                left.negated = negated;
            } else {
                return left;
            }
        }
    }

    Expression wordComparison(Expression left) {
        if (accept(u"LIKE"))
            return node(Operation::Like, std::move(left), joining());
        if (accept(u"BETWEEN")) {
            Expression low = joining();
            expect(u"AND");
            return node(Operation::Between, std::move(left), std::move(low), joining());
        }
        expect(u"IN");
        expect(u"(");
        Expression parsed = node(Operation::In, std::move(left));
        do
            addOperand(parsed, expression());
        while (accept(u","));
        expect(u")");
        return parsed;
    }

    Expression joining() { return leftToRight(Joining, &Parser::sum); }
    Expression sum() { return leftToRight(Adding, &Parser::product); }
    Expression product() { return leftToRight(Multiplying, &Parser::signedOperand); }

    template<size_t Count>
    Expression leftToRight(const std::array<BinaryOperator, Count>& operators,
                           Expression (Parser::*operand)()) {
        Expression left = (this->*operand)();
        while (const auto operation = acceptOne(operators))
            left = node(*operation, std::move(left), (this->*operand)());
        return left;
    }

    Expression signedOperand() {
        if (!accept(u"-"))
            return operand();
        const Deeper deeper(*this);
        return node(Operation::Negate, signedOperand());
    }

    Expression operand() {
        if (accept(u"(")) {
            Expression inner = expression();
            expect(u")");
            return inner;
        }
        if (accept(u"NULL"))
            return {};
        switch (token().kind) {
        case TokenKind::Name:
            return field();
        case TokenKind::Number:
            return literal(Operation::Number, m_tokens[m_place++].text);
        case TokenKind::Text:
            return literal(Operation::Text, m_tokens[m_place++].text);
        default:
            if (accept(u"TRUE"))
                return literal(Operation::Truth, u"True"_s);
            if (accept(u"FALSE"))
                return literal(Operation::Truth, QString());
            fail();
        }
    }

    static Expression literal(Operation operation, const QString& text) {
        Expression made;
        made.operation = operation;
        made.text = text;
        return made;
    }

    bool isDot(qsizetype ahead = 0) const { return comes(u".", ahead) || comes(u"!", ahead); }

    Expression field() {
        Expression made = literal(Operation::Field, name());
        if (isDot()) {
            ++m_place;
            made.qualifier = std::exchange(made.text, name());
        }
        return made;
    }

    const QList<Token> m_tokens;
    qsizetype m_place = 0;
    int m_nesting = 0;
    Select m_select;
};

} // namespace

Select parseSelect(const QString& text) {
    return Parser(text).select();
}

Expression parseCondition(const QString& text) {
    return Parser(text).condition();
}

std::vector<OrderTerm> parseOrder(const QString& text) {
    return Parser(text).order();
}

} // namespace dao::sql
