#pragma once

#include <QString>

#include <optional>
#include <vector>

/// The grammar of Jet SQL: a text in, a tree out. Names are not looked up here.
namespace dao::sql {

enum class Operation {
    Field,
    Number,
    Text,
    Truth,
    Null,
    Not,
    And,
    Or,
    Xor,
    Eqv,
    Imp,
    Equal,
    NotEqual,
    Less,
    Greater,
    LessOrEqual,
    GreaterOrEqual,
    Like,
    IsNull,
    Between,
    In,
    Join, ///< of texts, by `&`
    Add,
    Subtract,
    Multiply,
    Divide,
    Negate,
};

struct Expression {
    Operation operation = Operation::Null;
    /// Of a field its name, of a number its digits, of a text its characters, of a truth value
    /// empty for False.
    QString text;
    QString qualifier;    ///< of a field what stands before the dot, empty for none
    bool negated = false; ///< NOT LIKE, IS NOT NULL, NOT BETWEEN, NOT IN
    /// AND and OR have two or more (both may be grouped in any way), IN its list behind what is
    /// sought, BETWEEN three.
    std::vector<Expression> operands;
    int height = 1; ///< levels of the tree
};

/// One item between SELECT and FROM.
struct SelectItem {
    bool all = false;      ///< `*`, or `T.*` with a qualifier
    QString qualifier;     ///< of `T.*`
    Expression expression; ///< of any other item
    QString alias;         ///< behind AS, empty for none
};

struct FromTable {
    QString name;
    QString alias; ///< empty for none
};

/// The condition of a join; it may speak of the tables from `first` to before `end`.
struct JoinCondition {
    Expression condition;
    size_t first = 0;
    size_t end = 0;
};

struct OrderTerm {
    Expression expression;
    bool descending = false;
};

struct Select {
    std::vector<SelectItem> items;
    std::vector<FromTable> tables; ///< in the order of the text
    std::vector<JoinCondition> joins;
    std::optional<Expression> where;
    std::vector<OrderTerm> order;
};

/// Parses one SELECT; a semicolon may close it.
/// All three raise 3075 for a text that is anything else, or that nests deeper than a person would.
Select parseSelect(const QString& text);
Expression parseCondition(const QString& text);         ///< what may stand behind WHERE
std::vector<OrderTerm> parseOrder(const QString& text); ///< what may stand behind ORDER BY

} // namespace dao::sql
