#include "db/JetSqlParser.h"

#include <cstring>

// Expressions at Jet's precedence, and the functions of the engine written
// as SQLite and the user functions have them.

namespace db::jet {
namespace {

// The result of an operator over `e` and what followed it.
Expr joined(const Expr& e, bool aggregate)
{
    Expr r;
    r.start = e.start;
    r.aggregate = e.aggregate || aggregate;
    return r;
}

// How a function of the engine is written here: the text before the
// arguments, between each pair, and after them; -1 arguments: any number.
struct Shape {
    const char* name;
    const char* open;
    const char* separators[2];
    const char* close;
    int args;
    bool aggregate;
    Kind result;
    enum Rule : quint8 {
        Plain,
        ArgumentKind, // Min, Max, First, Last: what their argument gives
        Branches,     // IIF: a date if a branch is one
        Interval,     // DateAdd, DateDiff: the first argument is an interval literal
    } rule = Plain;
};

const Shape* shapeOf(QStringView fn)
{
    constexpr Kind N = Kind::Number, T = Kind::Text, D = Kind::Date, U = Kind::Unknown;
    static constexpr Shape shapes[] = {
        {"IIF", "(CASE WHEN ", {" THEN ", " ELSE "}, " END)", 3, false, U, Shape::Branches},
        {"ISNULL", "(", {nullptr, nullptr}, " IS NULL)", 1, false, N},
        {"LEFT", "substr(", {", 1, ", nullptr}, ")", 2, false, T},
        {"RIGHT", "jet_right(", {", ", nullptr}, ")", 2, false, T},
        {"FIRST", "jet_first(", {nullptr, nullptr}, ")", 1, true, U, Shape::ArgumentKind},
        {"LAST", "jet_last(", {nullptr, nullptr}, ")", 1, true, U, Shape::ArgumentKind},
        {"AVG", "avg(", {nullptr, nullptr}, ")", 1, true, N},
        {"SUM", "sum(", {nullptr, nullptr}, ")", 1, true, N},
        {"COUNT", "count(", {nullptr, nullptr}, ")", 1, true, N},
        {"MIN", "min(", {nullptr, nullptr}, ")", 1, true, U, Shape::ArgumentKind},
        {"MAX", "max(", {nullptr, nullptr}, ")", 1, true, U, Shape::ArgumentKind},
        {"FORMAT", "jet_format(", {", ", nullptr}, ")", -1, false, T},
        {"STR", "jet_str(", {nullptr, nullptr}, ")", 1, false, T},
        {"UCASE", "jet_ucase(", {nullptr, nullptr}, ")", 1, false, T},
        {"LCASE", "jet_lcase(", {nullptr, nullptr}, ")", 1, false, T},
        {"LEN", "length(", {nullptr, nullptr}, ")", 1, false, N},
        {"TRIM", "trim(", {nullptr, nullptr}, ")", 1, false, T},
        {"LTRIM", "ltrim(", {nullptr, nullptr}, ")", 1, false, T},
        {"RTRIM", "rtrim(", {nullptr, nullptr}, ")", 1, false, T},
        {"MID", "substr(", {", ", ", "}, ")", -1, false, T},
        {"INT", "jet_int(", {nullptr, nullptr}, ")", 1, false, N},
        {"VAL", "jet_val(", {nullptr, nullptr}, ")", 1, false, N},
        {"NOW", "jet_now(", {nullptr, nullptr}, ")", 0, false, D},
        {"DATE", "jet_date(", {nullptr, nullptr}, ")", 0, false, D},
        {"YEAR", "jet_year(", {nullptr, nullptr}, ")", 1, false, N},
        {"MONTH", "jet_month(", {nullptr, nullptr}, ")", 1, false, N},
        {"DAY", "jet_day(", {nullptr, nullptr}, ")", 1, false, N},
        {"DATEADD", "jet_dateadd(", {", ", ", "}, ")", 3, false, D, Shape::Interval},
        {"DATEDIFF", "jet_datediff(", {", ", ", "}, ")", 3, false, N, Shape::Interval},
        {"CSTR", "jet_cstr(", {nullptr, nullptr}, ")", 1, false, T},
        {"CINT", "jet_cint(", {nullptr, nullptr}, ")", 1, false, N},
        {"CLNG", "jet_clng(", {nullptr, nullptr}, ")", 1, false, N},
        {"CDBL", "jet_cdbl(", {nullptr, nullptr}, ")", 1, false, N},
        {"CSNG", "jet_csng(", {nullptr, nullptr}, ")", 1, false, N},
        {"ABS", "abs(", {nullptr, nullptr}, ")", 1, false, N},
        {"ROUND", "jet_round(", {", ", nullptr}, ")", -1, false, N},
    };
    char up[16];
    if (!asciiUpper(fn, up, sizeof up))
        return nullptr;
    for (const Shape& s : shapes)
        if (std::strcmp(s.name, up) == 0)
            return &s;
    return nullptr;
}

// The intervals of DateAdd and DateDiff that jet_dateadd and jet_datediff
// know: days (d, y, w), weeks (ww), months (m), quarters (q) and years
// (yyyy). Hours, minutes and seconds are not taken.
bool isDateInterval(QStringView s)
{
    static constexpr const char* intervals[] = {"D", "Y", "W", "WW", "M", "Q", "YYYY"};
    char up[8];
    if (!asciiUpper(s, up, sizeof up))
        return false;
    for (const char* i : intervals)
        if (std::strcmp(i, up) == 0)
            return true;
    return false;
}

// An operator other than + and - on a date means nothing the screens want.
[[noreturn]] void dateOperandError(int pos)
{
    syntaxError(QStringLiteral("operación no válida con una fecha"), pos);
}

} // namespace

Expr Parser::expression()
{
    const Nesting nesting(*this);
    return orExpr();
}

Expr Parser::call2(const char* fn, const Expr& a, Expr (Parser::*operand)(), Openings& openings)
{
    const int pos = peek(-1).pos;
    out_ += QLatin1String(", ");
    const Expr b = (this->*operand)();
    if (a.kind == Kind::Date || b.kind == Kind::Date)
        dateOperandError(pos);
    out_ += u')';
    openings.append(fn);
    Expr r = joined(a, b.aggregate);
    r.kind = Kind::Number;
    return r;
}

void Parser::closeCalls(const Expr& chain, const Openings& openings)
{
    if (openings.isEmpty())
        return;
    // The last operator's call is the outermost.
    QString names;
    for (qsizetype i = openings.size() - 1; i >= 0; --i)
        names += QLatin1String(openings[i]);
    out_.insert(chain.start, names);
}

Expr Parser::orExpr()
{
    Expr e = andExpr();
    for (;;) {
        if (accept(Kw::Or))
            out_ += QLatin1String(" OR ");
        else if (accept(Kw::Xor))
            out_ += QLatin1String(" <> "); // both sides are truth values here
        else
            return e;
        e = joined(e, andExpr().aggregate);
        e.kind = Kind::Number;
    }
}

Expr Parser::andExpr()
{
    Expr e = notExpr();
    while (accept(Kw::And)) {
        out_ += QLatin1String(" AND ");
        e = joined(e, notExpr().aggregate);
        e.kind = Kind::Number;
    }
    return e;
}

Expr Parser::notExpr()
{
    if (accept(Kw::Not)) {
        const Nesting nesting(*this);
        Expr e;
        e.start = out_.size();
        e.kind = Kind::Number;
        out_ += QLatin1String("NOT ");
        e.aggregate = notExpr().aggregate;
        return e;
    }
    return comparison();
}

Expr Parser::comparison()
{
    Expr e = concat();
    for (;;) {
        const Token& t = peek();
        if (isComparison(t)) {
            out_ += u' ';
            out_ += next().text;
            out_ += u' ';
            const Expr r = concat();
            // Jet compares texts without regard to case.
            if (e.stringLiteral || r.stringLiteral)
                out_ += kCollate;
            e = joined(e, r.aggregate);
            e.kind = Kind::Number;
            continue;
        }
        const bool negated = is(Kw::Not) && (is(Kw::Like, 1) || is(Kw::Between, 1) || is(Kw::In, 1));
        if (negated)
            ++p_;
        const QLatin1String neg = negated ? QLatin1String("NOT ") : QLatin1String("");
        if (accept(Kw::Like)) {
            out_ += u' ';
            out_ += neg;
            out_ += QLatin1String("LIKE ");
            e = joined(e, concat().aggregate);
        } else if (accept(Kw::Between)) {
            out_ += u' ';
            out_ += neg;
            out_ += QLatin1String("BETWEEN ");
            const bool lo = concat().aggregate;
            expect(Kw::And, "AND");
            out_ += QLatin1String(" AND ");
            e = joined(e, concat().aggregate || lo);
        } else if (accept(Kw::In)) {
            expectOp(u'(');
            out_ += u' ';
            out_ += neg;
            out_ += QLatin1String("IN (");
            if (is(Kw::Select)) {
                subquery();
            } else {
                bool first = true;
                do {
                    if (!first)
                        out_ += QLatin1String(", ");
                    first = false;
                    concat();
                } while (acceptOp(u','));
            }
            expectOp(u')');
            out_ += u')';
            e = joined(e, false);
        } else if (accept(Kw::Is)) {
            const bool isNot = accept(Kw::Not);
            if (!accept(Kw::Null))
                syntaxError(QStringLiteral("se esperaba NULL"), peek().pos);
            out_ += isNot ? QLatin1String(" IS NOT NULL") : QLatin1String(" IS NULL");
            e = joined(e, false);
        } else {
            return e;
        }
        e.kind = Kind::Number;
    }
}

Expr Parser::concat()
{
    Expr e = additive();
    if (!isOp(u'&'))
        return e;
    bool aggregate = e.aggregate;
    while (acceptOp(u'&')) {
        out_ += QLatin1String(", ");
        aggregate = additive().aggregate || aggregate;
    }
    out_ += u')';
    out_.insert(e.start, QLatin1String("jet_concat("));
    Expr r = joined(e, aggregate);
    r.kind = Kind::Text;
    return r;
}

Expr Parser::additive()
{
    Expr e = modulo();
    while (isOp(u'+') || isOp(u'-')) {
        const bool minus = isOp(u'-');
        const int pos = peek().pos;
        const qsizetype at = out_.size();
        out_ += u' ';
        out_ += next().text;
        out_ += u' ';
        const Expr r = modulo();
        // SQLite would take an ISO date for the number of its year: a date
        // operand makes it date arithmetic.
        if ((e.kind == Kind::Date || r.kind == Kind::Date || e.ofColumn || r.ofColumn) &&
            (kindOf(e) == Kind::Date || kindOf(r) == Kind::Date)) {
            e = dateArithmetic(e, minus, at, r, pos);
            continue;
        }
        const bool numbers = e.kind == Kind::Number && r.kind == Kind::Number;
        e = joined(e, r.aggregate);
        e.kind = minus || numbers ? Kind::Number : Kind::Unknown; // Jet's + also joins texts
    }
    return e;
}

// date + n, n + date, date - n: n days later or earlier, by jet_date_add,
// which keeps a date a date and a time of day where there is one. date -
// date: the days between them. Anything else on dates is refused.
Expr Parser::dateArithmetic(const Expr& a, bool minus, qsizetype operatorAt, const Expr& b, int pos)
{
    const bool leftDate = kindOf(a) == Kind::Date, rightDate = kindOf(b) == Kind::Date;
    const QString left = out_.mid(a.start, operatorAt - a.start);
    const QString right = out_.mid(operatorAt + 3); // after " + "
    out_.truncate(a.start);
    Expr r = joined(a, b.aggregate);
    if (leftDate && rightDate) {
        if (!minus)
            dateOperandError(pos);
        out_ += QLatin1String("(julianday(") + left + QLatin1String(") - julianday(") + right + QLatin1String("))");
        r.kind = Kind::Number;
        return r;
    }
    if (!leftDate && minus)
        dateOperandError(pos);
    out_ += QLatin1String("jet_date_add(");
    out_ += leftDate ? left : right;
    out_ += QLatin1String(minus ? ", -(" : ", ");
    out_ += leftDate ? right : left;
    out_ += QLatin1String(minus ? "))" : ")");
    r.kind = Kind::Date;
    return r;
}

Expr Parser::modulo()
{
    Expr e = intDivision();
    Openings openings;
    while (accept(Kw::Mod))
        e = call2("jet_mod(", e, &Parser::intDivision, openings);
    closeCalls(e, openings);
    return e;
}

Expr Parser::intDivision()
{
    Expr e = multiplicative();
    Openings openings;
    while (acceptOp(u'\\'))
        e = call2("jet_idiv(", e, &Parser::multiplicative, openings);
    closeCalls(e, openings);
    return e;
}

Expr Parser::multiplicative()
{
    Expr e = unary();
    Openings openings;
    for (;;) {
        if (acceptOp(u'*')) {
            const int pos = peek(-1).pos;
            out_ += QLatin1String(" * ");
            const Expr r = unary();
            if (e.kind == Kind::Date || r.kind == Kind::Date)
                dateOperandError(pos);
            e = joined(e, r.aggregate);
            e.kind = Kind::Number;
        } else if (acceptOp(u'/')) {
            // Always floating point, and a zero divisor is an error.
            e = call2("jet_div(", e, &Parser::unary, openings);
        } else {
            closeCalls(e, openings);
            return e;
        }
    }
}

Expr Parser::unary()
{
    if (isOp(u'-') || isOp(u'+')) {
        const Nesting nesting(*this);
        Expr e;
        e.start = out_.size();
        e.kind = Kind::Number;
        const int pos = peek().pos;
        out_ += next().text;
        const Expr operand = unary();
        if (operand.kind == Kind::Date)
            dateOperandError(pos);
        e.aggregate = operand.aggregate;
        return e;
    }
    return power();
}

Expr Parser::power()
{
    Expr e = primary();
    Openings openings;
    while (acceptOp(u'^'))
        e = call2("jet_pow(", e, &Parser::primary, openings);
    closeCalls(e, openings);
    return e;
}

Expr Parser::primary()
{
    const Token& t = peek();
    Expr e;
    e.start = out_.size();
    switch (t.type) {
    case Tok::Number:
        ++p_;
        out_ += t.text;
        e.numberLiteral = true;
        e.kind = Kind::Number;
        return e;
    case Tok::String:
        ++p_;
        appendString(out_, t);
        e.stringLiteral = true;
        e.kind = Kind::Text;
        return e;
    case Tok::Date:
        ++p_;
        appendDate(out_, t.text, t.pos);
        e.kind = Kind::Date;
        return e;
    case Tok::Op:
        if (acceptOp(u'(')) {
            out_ += u'(';
            if (is(Kw::Select)) {
                subquery();
            } else {
                const Expr inner = expression();
                e.aggregate = inner.aggregate;
                e.kind = inner.kind;
                e.ofColumn = inner.ofColumn;
                e.qualifier = inner.qualifier;
                e.column = inner.column;
            }
            expectOp(u')');
            out_ += u')';
            return e;
        }
        if (acceptOp(u'*')) { // Count(*)
            out_ += u'*';
            return e;
        }
        syntaxError(QStringLiteral("operador inesperado '%1'").arg(t.text), t.pos);
    case Tok::Ident:
        switch (t.kw) {
        case Kw::True:
        case Kw::Yes:
            ++p_;
            out_ += u'1';
            e.kind = Kind::Number;
            return e;
        case Kw::False:
        case Kw::No:
            ++p_;
            out_ += u'0';
            e.kind = Kind::Number;
            return e;
        case Kw::Null:
            ++p_;
            out_ += QLatin1String("NULL");
            return e;
        default:
            break;
        }
        if (isOp(u'(', 1))
            return call();
        if (isReserved(t))
            syntaxError(QStringLiteral("palabra inesperada '%1'").arg(t.text), t.pos);
        return columnRef();
    case Tok::Bracket:
        return columnRef();
    case Tok::End:
        syntaxError(QStringLiteral("la instrucción termina antes de tiempo"), t.pos);
    }
    syntaxError(QStringLiteral("expresión no válida"), t.pos);
}

// name, t.c, [t]![c], t.*
Expr Parser::columnRef()
{
    Expr e;
    e.start = out_.size();
    e.columnRef = true;
    e.ofColumn = true;
    e.column = name();
    appendIdent(out_, e.column);
    int parts = 1;
    while (isOp(u'.') || isOp(u'!')) {
        ++p_;
        out_ += u'.';
        e.qualifier = parts++ == 1 ? e.column : QStringView();
        if (acceptOp(u'*')) {
            out_ += u'*';
            e.column = QStringView();
            return e;
        }
        e.column = name();
        appendIdent(out_, e.column);
    }
    return e;
}

Expr Parser::call()
{
    const Token& fn = next();
    Expr e;
    e.start = out_.size();
    const Shape* shape = shapeOf(fn.text);
    if (shape) {
        out_ += QLatin1String(shape->open);
        e.kind = shape->result;
    } else {
        // Anything else goes to SQLite by its own name, which fails there if unknown.
        out_ += fn.text;
        out_ += u'(';
    }
    expectOp(u'(');
    if (shape && shape->rule == Shape::Interval &&
        (peek().type != Tok::String || peek().escapedQuote || !isDateInterval(peek().text)))
        syntaxError(QStringLiteral("intervalo no admitido en %1").arg(fn.text), peek().pos);
    int count = 0;
    if (!isOp(u')')) {
        do {
            if (count) {
                const char* sep = shape && count <= 2 ? shape->separators[count - 1] : ", ";
                out_ += QLatin1String(sep ? sep : ", ");
            }
            const Expr arg = expression();
            e.aggregate = arg.aggregate || e.aggregate;
            if (shape && shape->rule == Shape::ArgumentKind) {
                e.kind = arg.kind;
                e.ofColumn = arg.ofColumn;
                e.qualifier = arg.qualifier;
                e.column = arg.column;
            } else if (shape && shape->rule == Shape::Branches && count > 0 && arg.kind == Kind::Date) {
                e.kind = Kind::Date;
            }
            ++count;
        } while (acceptOp(u','));
    }
    expectOp(u')');
    if (shape && shape->args >= 0 && count != shape->args)
        syntaxError(QStringLiteral("número de argumentos incorrecto en %1").arg(fn.text), fn.pos);
    out_ += shape ? QLatin1String(shape->close) : QLatin1String(")");
    e.aggregate = e.aggregate || (shape && shape->aggregate);
    return e;
}

} // namespace db::jet
