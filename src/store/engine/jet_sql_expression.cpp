#include "store/engine/jet_sql_expression.h"

#include "store/engine/error.h"
#include "store/engine/names.h"

#include <algorithm>
#include <utility>

using namespace Qt::StringLiterals;

namespace dao::sql {
namespace {

/// What the outermost operator of a fragment is. Operands of a chain of one rank need no brackets
/// on the left, which keeps long chains off SQLite's stack.
enum class Rank { Closed, Equality, Sum, Product, Joining, And, Or, Other };

/// A piece of SQLite's language, with what it asks of SQLite.
struct Fragment {
    QString sql;
    Kind kind = Kind::Null;
    Rank rank = Rank::Closed;
    DataType type = DataType::Text; ///< of a field
    bool isField = false;
    int stack = 1; ///< entries of the parser's stack while it is read
    int depth = 1; ///< levels of the tree
};

// SQLite's own limits are 100 entries and 1000 levels; the rest is for the statement around.
constexpr int StackLimit = 70;
constexpr int DepthLimit = 900;
constexpr size_t ChainLength = 64; ///< of AND and OR before a group is made

[[noreturn]] void raiseMismatch() {
    throw EngineError(TypeMismatch, u"Data type mismatch in criteria expression."_s);
}

[[noreturn]] void raiseTooComplex() {
    throw EngineError(SyntaxError, u"The query expression is too complex."_s);
}

Fragment checked(Fragment fragment) {
    if (fragment.stack > StackLimit || fragment.depth > DepthLimit)
        raiseTooComplex();
    return fragment;
}

Fragment atom(const QString& sql, Kind kind) {
    Fragment made;
    made.sql = sql;
    made.kind = kind;
    return made;
}

Fragment closed(Fragment fragment) {
    if (fragment.rank == Rank::Closed)
        return fragment;
    fragment.sql = u'(' + fragment.sql + u')';
    fragment.rank = Rank::Closed;
    ++fragment.stack;
    return checked(std::move(fragment));
}

Fragment infix(Fragment left, QLatin1String sign, Fragment right, Kind kind, Rank rank) {
    if (rank == Rank::Other || left.rank != rank)
        left = closed(std::move(left));
    right = closed(std::move(right));
    Fragment made;
    made.sql = left.sql + u' ' + sign + u' ' + right.sql;
    made.kind = kind;
    made.rank = rank;
    made.stack = std::max(left.stack, right.stack + 2);
    made.depth = std::max(left.depth, right.depth) + 1;
    return checked(std::move(made));
}

Fragment prefix(QLatin1String sign, Fragment operand, Kind kind) {
    operand = closed(std::move(operand));
    operand.sql.prepend(sign);
    operand.kind = kind;
    operand.rank = Rank::Other;
    operand.isField = false;
    ++operand.stack;
    ++operand.depth;
    return checked(std::move(operand));
}

Fragment suffix(Fragment operand, QLatin1String sign, Kind kind) {
    operand = closed(std::move(operand));
    operand.sql += sign;
    operand.kind = kind;
    operand.rank = Rank::Other;
    operand.isField = false;
    ++operand.stack;
    ++operand.depth;
    return checked(std::move(operand));
}

/// `head(first, second, ...)`: a call, or what stands behind IN.
Fragment call(const QString& head, const std::vector<Fragment>& arguments, Kind kind) {
    Fragment made;
    made.kind = kind;
    QStringList texts;
    for (const Fragment& argument : arguments) {
        texts.append(argument.sql);
        made.stack = std::max(made.stack, argument.stack + 5);
        made.depth = std::max(made.depth, argument.depth + 1);
    }
    made.sql = head + u'(' + texts.join(QLatin1String(", ")) + u')';
    return checked(std::move(made));
}

bool isNumber(Kind kind) {
    return kind == Kind::Number || kind == Kind::Truth;
}

/// A truth value as Jet's number, a Single as it was typed: files from elsewhere hold 0.1 as the
/// Single next to it.
Fragment asValue(Fragment fragment) {
    if (fragment.isField && fragment.type == DataType::Single)
        return call(QLatin1String(SingleFunction), {std::move(fragment)}, Kind::Number);
    if (fragment.kind != Kind::Truth)
        return fragment;
    return prefix(QLatin1String("-"), std::move(fragment), Kind::Number);
}

Fragment asNumber(Fragment fragment) {
    if (fragment.kind != Kind::Null && !isNumber(fragment.kind))
        raiseMismatch();
    return asValue(std::move(fragment));
}

Fragment asTruth(Fragment fragment) {
    if (fragment.kind == Kind::Truth || fragment.kind == Kind::Null)
        return fragment;
    return infix(asNumber(std::move(fragment)), QLatin1String("<>"), atom(u"0"_s, Kind::Number),
                 Kind::Truth, Rank::Other);
}

/// Anything but bytes as a text, as `&` and LIKE take it.
Fragment asText(Fragment fragment) {
    if (fragment.kind == Kind::Binary)
        raiseMismatch();
    if (!isNumber(fragment.kind))
        return fragment;
    return call(QLatin1String(TextFunction), {asValue(std::move(fragment))}, Kind::Text);
}

Fragment collated(Fragment fragment) {
    static const QString suffixText = u" COLLATE "_s + QLatin1String(TextCollation);
    Fragment made = closed(std::move(fragment));
    made.sql += suffixText;
    made.depth += 1;
    made.stack += 1;
    return made;
}

/// The kind that two operands of a comparison have in common.
Kind commonKind(Kind a, Kind b) {
    if (a == Kind::Null || b == Kind::Null)
        return a == Kind::Null ? b : a;
    if (isNumber(a) && isNumber(b))
        return Kind::Number;
    if (a != b)
        raiseMismatch();
    return a;
}

class ExpressionTranslator {
public:
    explicit ExpressionTranslator(const ResolveField& resolve) : m_resolve(resolve) {}

    Fragment translate(const Expression& expression) const {
        switch (expression.operation) {
        case Operation::Field:
            return field(expression);
        case Operation::Number:
            return atom(expression.text, Kind::Number);
        case Operation::Text:
            return atom(quoteText(expression.text), Kind::Text);
        case Operation::Truth:
            return atom(expression.text.isEmpty() ? u"0"_s : u"1"_s, Kind::Truth);
        case Operation::Null:
            return atom(u"NULL"_s, Kind::Null);
        case Operation::Not:
            return prefix(QLatin1String("NOT "), truth(expression, 0), Kind::Truth);
        case Operation::And:
            return chain(expression, QLatin1String("AND"), Rank::And);
        case Operation::Or:
            return chain(expression, QLatin1String("OR"), Rank::Or);
        // Among 1, 0 and NULL these three do what Jet's operators do.
        case Operation::Xor:
            return infix(truth(expression, 0), QLatin1String("<>"), truth(expression, 1),
                         Kind::Truth, Rank::Equality);
        case Operation::Eqv:
            return infix(truth(expression, 0), QLatin1String("="), truth(expression, 1),
                         Kind::Truth, Rank::Equality);
        case Operation::Imp:
            return infix(prefix(QLatin1String("NOT "), truth(expression, 0), Kind::Truth),
                         QLatin1String("OR"), truth(expression, 1), Kind::Truth, Rank::Or);
        case Operation::Equal:
            return comparison(expression, QLatin1String("="));
        case Operation::NotEqual:
            return comparison(expression, QLatin1String("<>"));
        case Operation::Less:
            return comparison(expression, QLatin1String("<"));
        case Operation::Greater:
            return comparison(expression, QLatin1String(">"));
        case Operation::LessOrEqual:
            return comparison(expression, QLatin1String("<="));
        case Operation::GreaterOrEqual:
            return comparison(expression, QLatin1String(">="));
        case Operation::Like:
            return negatedIf(expression.negated, like(expression));
        case Operation::IsNull:
            return suffix(operand(expression, 0),
                          expression.negated ? QLatin1String(" IS NOT NULL")
                                             : QLatin1String(" IS NULL"),
                          Kind::Truth);
        case Operation::Between:
            return negatedIf(expression.negated, between(expression));
        case Operation::In:
            return negatedIf(expression.negated, in(expression));
        case Operation::Join:
            return infix(joined(operand(expression, 0)), QLatin1String("||"),
                         joined(operand(expression, 1)), Kind::Text, Rank::Joining);
        case Operation::Add:
            return addition(expression);
        case Operation::Subtract:
            return arithmetic(expression, QLatin1String("-"), Rank::Sum);
        case Operation::Multiply:
            return arithmetic(expression, QLatin1String("*"), Rank::Product);
        case Operation::Divide:
            return arithmetic(expression, QLatin1String("* 1.0 /"), Rank::Product);
        case Operation::Negate:
            return prefix(QLatin1String("-"), asNumber(operand(expression, 0)), Kind::Number);
        }
        Q_UNREACHABLE();
    }

private:
    Fragment operand(const Expression& expression, size_t index) const {
        return translate(expression.operands[index]);
    }
    Fragment truth(const Expression& expression, size_t index) const {
        return asTruth(operand(expression, index));
    }

    Fragment field(const Expression& expression) const {
        FieldSql found;
        if (!m_resolve(expression.qualifier, expression.text, found))
            throw EngineError(UnknownFieldInSql, u"Too few parameters. Expected 1."_s);
        Fragment made = atom(found.sql, kindOf(found.type));
        made.type = found.type;
        made.isField = true;
        return made;
    }

    static Fragment negatedIf(bool negated, Fragment fragment) {
        return negated ? prefix(QLatin1String("NOT "), std::move(fragment), Kind::Truth) : fragment;
    }

    /// A chain of AND or OR; a long one in groups, since each link is a level of SQLite's tree.
    Fragment chain(const Expression& expression, QLatin1String sign, Rank rank) const {
        std::vector<Fragment> links;
        for (size_t i = 0; i < expression.operands.size(); ++i)
            links.push_back(truth(expression, i));
        while (links.size() > 1) {
            std::vector<Fragment> groups;
            for (size_t i = 0; i < links.size(); ++i) {
                if (i % ChainLength == 0)
                    groups.push_back(closed(std::move(links[i])));
                else
                    groups.back() = infix(std::move(groups.back()), sign, std::move(links[i]),
                                          Kind::Truth, rank);
            }
            links = std::move(groups);
        }
        return std::move(links.front());
    }

    Fragment comparison(const Expression& expression, QLatin1String sign) const {
        Fragment left = operand(expression, 0);
        Fragment right = operand(expression, 1);
        const bool isText = commonKind(left.kind, right.kind) == Kind::Text;
        right = asValue(std::move(right));
        if (isText)
            right = collated(std::move(right));
        return infix(asValue(std::move(left)), sign, std::move(right), Kind::Truth, Rank::Other);
    }

    Fragment like(const Expression& expression) const {
        const Expression& pattern = expression.operands[1];
        if (pattern.operation == Operation::Text)
            matchesLike(QStringView(), pattern.text); // refuses an open bracket
        return call(QLatin1String(LikeFunction),
                    {asText(operand(expression, 1)), asText(operand(expression, 0))}, Kind::Truth);
    }

    /// The first operand and those it is compared with, of one kind; the first carries the
    /// collation, which SQLite then uses for all.
    std::vector<Fragment> comparable(const Expression& expression) const {
        std::vector<Fragment> operands;
        Kind kind = Kind::Null;
        for (const Expression& each : expression.operands) {
            Fragment translated = translate(each);
            kind = commonKind(kind, translated.kind);
            operands.push_back(closed(asValue(std::move(translated))));
        }
        if (kind == Kind::Text)
            operands.front() = collated(std::move(operands.front()));
        return operands;
    }

    Fragment between(const Expression& expression) const {
        std::vector<Fragment> operands = comparable(expression);
        Fragment made = infix(std::move(operands[0]), QLatin1String("BETWEEN"),
                              std::move(operands[1]), Kind::Truth, Rank::Other);
        made.sql += QLatin1String(" AND ") + operands[2].sql;
        made.stack = std::max(made.stack, operands[2].stack + 4);
        made.depth = std::max(made.depth, operands[2].depth + 1);
        return checked(std::move(made));
    }

    Fragment in(const Expression& expression) const {
        std::vector<Fragment> operands = comparable(expression);
        Fragment sought = std::move(operands.front());
        operands.erase(operands.begin());
        Fragment made = call(sought.sql + QLatin1String(" IN "), operands, Kind::Truth);
        made.rank = Rank::Other;
        made.stack = std::max(made.stack, sought.stack);
        made.depth = std::max(made.depth, sought.depth + 1);
        return made;
    }

    /// An operand of `&`, for which Null is the empty text.
    static Fragment joined(Fragment fragment) {
        if (fragment.rank == Rank::Joining)
            return fragment;
        return call(u"ifnull"_s,
                    {asText(std::move(fragment)), atom(quoteText(QString()), Kind::Text)},
                    Kind::Text);
    }

    /// `+` joins two texts, and Null makes the whole Null.
    Fragment addition(const Expression& expression) const {
        Fragment left = operand(expression, 0);
        Fragment right = operand(expression, 1);
        if (commonKind(left.kind, right.kind) == Kind::Text)
            return infix(std::move(left), QLatin1String("||"), std::move(right), Kind::Text,
                         Rank::Other);
        return infix(asNumber(std::move(left)), QLatin1String("+"), asNumber(std::move(right)),
                     Kind::Number, Rank::Sum);
    }

    Fragment arithmetic(const Expression& expression, QLatin1String sign, Rank rank) const {
        return infix(asNumber(operand(expression, 0)), sign, asNumber(operand(expression, 1)),
                     Kind::Number, rank);
    }

    const ResolveField& m_resolve;
};

DataType widest(Kind kind) {
    switch (kind) {
    case Kind::Number:
        return DataType::Double;
    case Kind::Truth:
        return DataType::Boolean;
    case Kind::Binary:
        return DataType::LongBinary;
    case Kind::Null:
    case Kind::Text:
        break;
    }
    return DataType::Memo;
}

} // namespace

Kind kindOf(DataType type) {
    if (isNumeric(type))
        return Kind::Number;
    return isTextual(type) ? Kind::Text : Kind::Binary;
}

Translated translateValue(const Expression& expression, const ResolveField& resolve) {
    Fragment fragment = ExpressionTranslator(resolve).translate(expression);
    const bool isField = fragment.isField;
    const DataType type = isField ? fragment.type : widest(fragment.kind);
    fragment = closed(isField ? std::move(fragment) : asValue(std::move(fragment)));
    return {fragment.sql, fragment.kind, type, isField};
}

QString translateTruth(const Expression& expression, const ResolveField& resolve) {
    return closed(asTruth(ExpressionTranslator(resolve).translate(expression))).sql;
}

QString orderTerm(const Translated& value, bool descending) {
    QString term = value.sql;
    if (value.kind == Kind::Text)
        term += QLatin1String(" COLLATE ") + QLatin1String(TextCollation);
    else if (value.kind == Kind::Number && !value.isField)
        term += QLatin1String(" + 0"); // a bare number would be the position of a column
    return term + (descending ? QLatin1String(" DESC") : QLatin1String(" ASC"));
}

QString quoteText(const QString& text) {
    QString doubled = text;
    doubled.replace(u'\'', QLatin1String("''"));
    return u'\'' + doubled + u'\'';
}

} // namespace dao::sql
