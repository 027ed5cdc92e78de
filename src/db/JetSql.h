#pragma once
// The dialect layer: the statements of the screens are written in the Jet
// dialect (`[t]![c]`, `&`, `#dates#`, `DELETE * FROM`, IIF, FORMAT,
// TRANSFORM ... PIVOT ...) and are rewritten here into SQLite text that calls
// the user functions registered by Connection (see SqlFunctions.h).
//
// The rewrite works on tokens and an expression parser, never on raw text, so
// strings and dates pass through untouched and operator precedence is Jet's.
#include <QString>
#include <QStringList>

#include <functional>

namespace db {

struct TableDecl;

struct Translation {
    enum class Kind { Query, Command, Pivot };

    Kind kind = Kind::Command;
    QString sql;               // the SQLite text (for a pivot: the grouped select)
    QStringList baseTables;    // tables of the outer FROM (UPDATE/DELETE/INSERT: the target)
    bool rowidColumns = false; // hidden "__rowid_<table>" columns were added
    int pivotRowHeads = 0;     // pivot: the leading row-heading columns
    QStringList pivotIn;       // pivot: fixed column headings of PIVOT ... IN (...)
};

class JetSql {
public:
    struct Options {
        // Add hidden rowid columns per base table to plain selects, so that a
        // recordset can write its edits back. Ignored where rows are not
        // single table rows (GROUP BY, DISTINCT, aggregates, UNION).
        bool rowids = false;
        // Whether table.column is declared a date. Dates are kept as ISO
        // text, whose plain order is already the order of the dates, so an
        // ORDER BY on such a column goes without the collation and can walk
        // an index of the column. Without it every ORDER BY term is collated.
        std::function<bool(const QString& table, const QString& column)> isDateColumn;
        // The declared columns of a table, null when unknown. With it, what
        // INSERT and UPDATE write is fitted to the target column (a Single
        // column keeps the nearest single-precision number; a longer text,
        // or a whole number outside the range of a Byte, Integer or Long
        // column, fails the statement), text grouping terms are told from
        // number and date ones, and `date + n` knows its dates.
        std::function<const TableDecl*(QStringView table)> tableDecl;
    };

    // Throws RuntimeError (syntax) when the text is not a statement of the dialect.
    static Translation translate(const QString& jet, Options options);
    static Translation translate(const QString& jet) { return translate(jet, Options{}); }

    // Name of the collation added to text ORDER BY terms and text comparisons.
    static constexpr const char* kCollation = "jet_es";
    // Name of the collation added to text GROUP BY terms, to the columns of
    // a DISTINCT and to a PIVOT column: case-insensitive, accents apart.
    static constexpr const char* kGroupCollation = "jet_nocase";
    // Nesting of expressions, subqueries and joins allowed in a statement;
    // deeper is a syntax error. The parser recurses, some 2 KB of stack a
    // level, so the cap keeps any thread's stack safe; SQLite's own parser
    // stops sooner (near 100 parentheses).
    static constexpr int kMaxNesting = 256;
    // Prefix of the hidden key columns.
    static constexpr const char* kRowidPrefix = "__rowid_";
};

} // namespace db
