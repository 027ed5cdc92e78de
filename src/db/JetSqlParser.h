#pragma once
// Internal to the dialect layer (JetSql): the parser that rewrites a
// statement while it reads it. Statements and clauses are in
// JetSqlStatements.cpp, expressions and functions in JetSqlExpressions.cpp,
// what it knows of the columns of the schema in JetSqlColumns.cpp.
//
// The output grows in one buffer. An operator that SQLite lacks (`&`, `/`)
// wraps its left operand by inserting the function name where that operand
// begins in the buffer.
#include "db/JetSql.h"
#include "db/JetSqlLexer.h"
#include "db/SqlValue.h"

#include <QString>
#include <QVarLengthArray>

namespace db::jet {

// What an expression gives, as far as the translator can tell.
enum class Kind : quint8 { Unknown, Number, Text, Date };

// What the callers need to know of an expression emitted at out[start...].
struct Expr {
    qsizetype start = 0;
    Kind kind = Kind::Unknown; // when ofColumn: see Parser::kindOf
    bool stringLiteral = false;
    bool numberLiteral = false;
    bool columnRef = false;
    bool aggregate = false;
    bool ofColumn = false; // gives what a column holds: a reference, (c), Max(c) ...
    QStringView qualifier; // that column's table or alias, if given
    QStringView column;    // and its name; empty for t.*
};

struct TableRef {
    QStringView name;
    QStringView alias;
    bool nested = false; // inside a parenthesised join: SQLite shows it as a subquery, without rowid
};

using TableRefs = QVarLengthArray<TableRef, 8>;

// The clauses of one SELECT, kept apart so that TRANSFORM can reassemble them.
struct Select {
    bool distinct = false;
    bool star = false;      // an item is * or t.*
    QString distinctGroups; // DISTINCT as GROUP BY of the item positions, with the collation
    QString top;
    int itemCount = 0;
    QString items;
    QString from;
    QString where;
    QString groupBy;
    QString groupByCollated; // the same terms with the ORDER BY collation, for ordering
    QString having;
    QString orderBy;
    QString unionTail;
    TableRefs tables;
    bool aggregate = false;

    void assemble(QString& s, QStringView extraItems = {}) const;
};

class Parser {
public:
    explicit Parser(const QString& text);

    Translation statement(const JetSql::Options& options);

private:
    // A table named in the statement, with the alias it goes by.
    struct TableMention {
        QStringView name;
        QStringView alias;
        const TableDecl* decl = nullptr;
    };
    using Targets = QVarLengthArray<const ColumnDecl*, 32>;

    const QString src_;
    Tokens toks_;
    int p_ = 0;
    QString out_;
    std::function<bool(const QString&, const QString&)> isDateColumn_;
    std::function<const TableDecl*(QStringView)> tableDecl_;
    int exprCounter_ = 1000;
    int joinNesting_ = 0;
    int depth_ = 0;
    // The tables of the statement, found at the first question about a column.
    QVarLengthArray<TableMention, 8> mentions_;
    bool mentionsFound_ = false;
    // INSERT ... SELECT: the target column of each item of the select.
    const Targets* itemTargets_ = nullptr;

    // One level deeper into the statement; too deep is a syntax error.
    class Nesting {
    public:
        explicit Nesting(Parser& p);
        ~Nesting() { --p_.depth_; }
        Nesting(const Nesting&) = delete;
        Nesting& operator=(const Nesting&) = delete;

    private:
        Parser& p_;
    };

    // ------------------------------------------------ tokens

    const Token& peek(int ahead = 0) const { return toks_[qMin(p_ + ahead, int(toks_.size()) - 1)]; }
    const Token& next() { return toks_[p_ < toks_.size() - 1 ? p_++ : p_]; }

    bool is(Kw kw, int ahead = 0) const { return peek(ahead).kw == kw; }
    bool isOp(char16_t op, int ahead = 0) const
    {
        const Token& t = peek(ahead);
        return t.type == Tok::Op && t.text.size() == 1 && t.text[0] == op;
    }
    bool accept(Kw kw)
    {
        if (!is(kw))
            return false;
        ++p_;
        return true;
    }
    bool acceptOp(char16_t op)
    {
        if (!isOp(op))
            return false;
        ++p_;
        return true;
    }
    void expect(Kw kw, const char* word);
    void expectOp(char16_t op);
    static bool isReserved(const Token& t) { return t.kw != Kw::None && t.kw < kFirstUnreserved; }
    bool atName() const
    {
        const Token& t = peek();
        return t.type == Tok::Bracket || (t.type == Tok::Ident && !isReserved(t));
    }
    // A plain or bracketed name.
    QStringView name();
    // Moves what was emitted from `start` on out of the buffer.
    QString take(qsizetype start);

    // ------------------------------------------------ columns (JetSqlColumns.cpp)

    // The declaration of a column named in the statement; null when unknown.
    const ColumnDecl* columnDecl(QStringView qualifier, QStringView column);
    void findMentions();
    // What an expression gives; a column reference by its declaration.
    Kind kindOf(const Expr& e);
    // Text grouping terms compare without regard to case; numbers and dates
    // group as they are.
    bool groupsAsText(const Expr& e)
    {
        const Kind k = kindOf(e);
        return k == Kind::Text || k == Kind::Unknown;
    }
    // The column a value is written to: fits the value `e`, emitted from
    // e.start on, to it (Single precision, size and range checks).
    void fitToColumn(const Expr& e, const ColumnDecl* column);

    // ------------------------------------------------ statements (JetSqlStatements.cpp)

    Translation query(const JetSql::Options& options);
    Select select();
    void subquery();
    Expr selectItem(Select& s, const ColumnDecl* target);
    void orderItem();
    bool dateColumn(const Expr& e) const;
    void fromList(TableRefs& tables);
    void joinChain(TableRefs& tables);
    void fromItem(TableRefs& tables, bool leftOperand);
    Translation transform();
    QStringView targetColumn();
    Translation insert();
    Translation update();
    Translation remove();

    // ------------------------------------------------ expressions (JetSqlExpressions.cpp)
    // Jet's precedence, loosest first: OR, AND, NOT, comparisons (= <> < > <=
    // >= LIKE BETWEEN IS IN), &, + -, MOD, \, * /, unary -, ^.

    Expr expression();
    Expr orExpr();
    Expr andExpr();
    Expr notExpr();
    Expr comparison();
    Expr concat();
    Expr additive();
    Expr modulo();
    Expr intDivision();
    Expr multiplicative();
    Expr unary();
    Expr power();
    Expr primary();
    Expr columnRef();
    Expr call();
    // `a + b`, `a - b` where a side is a date: days added, or days between.
    Expr dateArithmetic(const Expr& a, bool minus, qsizetype operatorAt, const Expr& b, int pos);
    // fn(a, b) for an operator that SQLite lacks or means otherwise: `a` is
    // already in the buffer; the name goes in front of it, but only when the
    // chain of such operators ends (closeCalls): a, b, c ... become
    // fn(fn(a, b), c) with one insertion, not one copy of the chain per
    // operator.
    using Openings = QVarLengthArray<const char*, 4>;
    Expr call2(const char* fn, const Expr& a, Expr (Parser::*operand)(), Openings& openings);
    void closeCalls(const Expr& chain, const Openings& openings);
};

} // namespace db::jet
