#pragma once

#include "platform/dao/jet/ast.h"

#include <array>

// What each operator is and how SQLite writes it, in the order of the enumeration.
namespace vorel::dao::jet {

enum class OperatorKind { None, Unary, Arithmetic, Concatenation, Comparison, Like, Logical };

struct OperatorRow {
    Operator op;
    OperatorKind kind;
    const char *sign = nullptr;         // between the operands; of logical ones: of whole numbers
    const char *function = nullptr;     // of both operands, where SQLite has no sign
    const char *truth = nullptr;        // between operands that are conditions
};

inline constexpr std::array operatorRows {
    OperatorRow{Operator::None, OperatorKind::None},
    OperatorRow{Operator::Negate, OperatorKind::Unary},
    OperatorRow{Operator::Not, OperatorKind::Unary},
    OperatorRow{Operator::Power, OperatorKind::Arithmetic, nullptr, "j_pow"},
    OperatorRow{Operator::Multiply, OperatorKind::Arithmetic, "*"},
    OperatorRow{Operator::Divide, OperatorKind::Arithmetic, nullptr, "j_div"},
    OperatorRow{Operator::IntegerDivide, OperatorKind::Arithmetic, nullptr, "j_idiv"},
    OperatorRow{Operator::Modulo, OperatorKind::Arithmetic, nullptr, "j_mod"},
    OperatorRow{Operator::Add, OperatorKind::Arithmetic, "+"},
    OperatorRow{Operator::Subtract, OperatorKind::Arithmetic, "- "},       // a negative number may follow, and -- begins a comment
    OperatorRow{Operator::Concatenate, OperatorKind::Concatenation, "||"},
    OperatorRow{Operator::Equal, OperatorKind::Comparison, "="},
    OperatorRow{Operator::NotEqual, OperatorKind::Comparison, "<>"},
    OperatorRow{Operator::Less, OperatorKind::Comparison, "<"},
    OperatorRow{Operator::LessEqual, OperatorKind::Comparison, "<="},
    OperatorRow{Operator::Greater, OperatorKind::Comparison, ">"},
    OperatorRow{Operator::GreaterEqual, OperatorKind::Comparison, ">="},
    OperatorRow{Operator::Like, OperatorKind::Like},
    OperatorRow{Operator::And, OperatorKind::Logical, "&", nullptr, " AND "},
    OperatorRow{Operator::Or, OperatorKind::Logical, "|", nullptr, " OR "},
    // SQLite has no exclusive or, and (a | b) - (a & b) doubles the text at each level.
    OperatorRow{Operator::Xor, OperatorKind::Logical, nullptr, "j_xor", "<>"},
    OperatorRow{Operator::Equivalent, OperatorKind::Logical, nullptr, "~j_xor", "="},
    OperatorRow{Operator::Implies, OperatorKind::Logical}};

static_assert([] {
    for (std::size_t i = 0; i < operatorRows.size(); ++i)
        if (operatorRows[i].op != static_cast<Operator>(i))
            return false;
    return operatorRows.back().op == Operator::Implies;
}(), "a row an operator, in their order");

constexpr const OperatorRow &rowOf(Operator op)
{
    return operatorRows[static_cast<std::size_t>(op)];
}

}
