#include "core/db/JetSql.h"

#include "core/vb/RuntimeError.h"

#include <QHash>
#include <QSet>
#include <QVector>

namespace db {
namespace {

// ---------------------------------------------------------------- tokens

enum class Tok { Ident, Bracket, String, Date, Number, Op, End };

struct Token {
    Tok type = Tok::End;
    QString text; // identifier, bracket content, string content, date content, number, operator
    int pos = 0;
};

[[noreturn]] void syntaxError(const QString& what, int pos)
{
    throw RuntimeError(RuntimeError::DatabaseError,
                       QStringLiteral("Error de sintaxis en la instrucción SQL (%1, posición %2).").arg(what).arg(pos + 1));
}

bool isIdentStart(QChar c) { return c.isLetter() || c == u'_'; }
bool isIdentPart(QChar c) { return c.isLetterOrNumber() || c == u'_'; }

QVector<Token> tokenize(const QString& s)
{
    QVector<Token> out;
    out.reserve(s.size() / 4 + 4);
    const int n = s.size();
    int i = 0;
    while (i < n) {
        const QChar c = s[i];
        if (c.isSpace()) {
            ++i;
            continue;
        }
        Token t;
        t.pos = i;
        if (c == u'[') {
            const int end = s.indexOf(u']', i + 1);
            if (end < 0)
                syntaxError(QStringLiteral("falta ']'"), i);
            t.type = Tok::Bracket;
            t.text = s.mid(i + 1, end - i - 1);
            i = end + 1;
        } else if (c == u'\'' || c == u'"') {
            // A doubled quote inside stands for one quote; a lone one ends the text.
            t.type = Tok::String;
            int j = i + 1;
            for (;;) {
                if (j >= n)
                    syntaxError(QStringLiteral("falta la comilla de cierre"), i);
                if (s[j] == c) {
                    if (j + 1 < n && s[j + 1] == c) {
                        t.text += c;
                        j += 2;
                        continue;
                    }
                    break;
                }
                t.text += s[j++];
            }
            i = j + 1;
        } else if (c == u'#') {
            const int end = s.indexOf(u'#', i + 1);
            if (end < 0)
                syntaxError(QStringLiteral("falta '#'"), i);
            t.type = Tok::Date;
            t.text = s.mid(i + 1, end - i - 1).trimmed();
            i = end + 1;
        } else if (c.isDigit() || (c == u'.' && i + 1 < n && s[i + 1].isDigit())) {
            int j = i;
            while (j < n && s[j].isDigit())
                ++j;
            if (j < n && s[j] == u'.') {
                ++j;
                while (j < n && s[j].isDigit())
                    ++j;
            }
            if (j < n && (s[j] == u'E' || s[j] == u'e')) {
                int k = j + 1;
                if (k < n && (s[k] == u'+' || s[k] == u'-'))
                    ++k;
                if (k < n && s[k].isDigit()) {
                    while (k < n && s[k].isDigit())
                        ++k;
                    j = k;
                }
            }
            t.type = Tok::Number;
            t.text = s.mid(i, j - i);
            i = j;
        } else if (isIdentStart(c)) {
            int j = i + 1;
            while (j < n && isIdentPart(s[j]))
                ++j;
            t.type = Tok::Ident;
            t.text = s.mid(i, j - i);
            i = j;
        } else {
            static const QString two[] = {QStringLiteral("<>"), QStringLiteral("<="), QStringLiteral(">=")};
            t.type = Tok::Op;
            t.text = QString(c);
            for (const QString& op : two)
                if (QStringView(s).mid(i, 2) == op)
                    t.text = op;
            static const QString singles = QStringLiteral("=<>&+-*/\\^(),.!;");
            if (t.text.size() == 1 && !singles.contains(c))
                syntaxError(QStringLiteral("carácter no válido '%1'").arg(c), i);
            i += t.text.size();
        }
        out.push_back(std::move(t));
    }
    Token end;
    end.pos = n;
    out.push_back(end);
    return out;
}

// ---------------------------------------------------------------- output helpers

QString quoteIdent(const QString& name)
{
    QString q = name;
    q.replace(u'"', QStringLiteral("\"\""));
    return u'"' + q + u'"';
}

QString quoteString(const QString& text)
{
    QString q = text;
    q.replace(u'\'', QStringLiteral("''"));
    return u'\'' + q + u'\'';
}

// #yyyy/MM/dd#, #M/d/yyyy# (the engine's own order), with an optional time.
QString isoDate(const QString& text, int pos)
{
    const QStringList parts = text.split(u' ', Qt::SkipEmptyParts);
    if (parts.isEmpty() || parts.size() > 2)
        syntaxError(QStringLiteral("fecha no válida #%1#").arg(text), pos);
    QString date;
    const QStringList d = QString(parts[0]).replace(u'-', u'/').split(u'/');
    auto num = [&](const QString& p) {
        bool ok = false;
        const int v = p.toInt(&ok);
        if (!ok)
            syntaxError(QStringLiteral("fecha no válida #%1#").arg(text), pos);
        return v;
    };
    if (d.size() == 3) {
        int y, m, day;
        if (d[0].size() == 4) {
            y = num(d[0]), m = num(d[1]), day = num(d[2]);
        } else {
            m = num(d[0]), day = num(d[1]), y = num(d[2]);
        }
        date = QStringLiteral("%1-%2-%3")
                   .arg(y, 4, 10, QLatin1Char('0'))
                   .arg(m, 2, 10, QLatin1Char('0'))
                   .arg(day, 2, 10, QLatin1Char('0'));
    } else if (parts.size() == 1 && parts[0].contains(u':')) {
        return parts[0];
    } else {
        syntaxError(QStringLiteral("fecha no válida #%1#").arg(text), pos);
    }
    if (parts.size() == 2)
        date += u' ' + parts[1];
    return date;
}

const QSet<QString>& reservedWords()
{
    // Words that end an expression or a table reference.
    static const QSet<QString> words = {
        QStringLiteral("SELECT"), QStringLiteral("FROM"),    QStringLiteral("WHERE"),   QStringLiteral("GROUP"),
        QStringLiteral("BY"),     QStringLiteral("HAVING"),  QStringLiteral("ORDER"),   QStringLiteral("ASC"),
        QStringLiteral("DESC"),   QStringLiteral("AS"),      QStringLiteral("INNER"),   QStringLiteral("LEFT"),
        QStringLiteral("RIGHT"),  QStringLiteral("OUTER"),   QStringLiteral("JOIN"),    QStringLiteral("ON"),
        QStringLiteral("AND"),    QStringLiteral("OR"),      QStringLiteral("NOT"),     QStringLiteral("LIKE"),
        QStringLiteral("BETWEEN"), QStringLiteral("IS"),     QStringLiteral("IN"),      QStringLiteral("UNION"),
        QStringLiteral("PIVOT"),  QStringLiteral("TRANSFORM"), QStringLiteral("SET"),   QStringLiteral("VALUES"),
        QStringLiteral("INTO"),   QStringLiteral("MOD"),     QStringLiteral("XOR"),     QStringLiteral("DISTINCT"),
        QStringLiteral("DISTINCTROW"), QStringLiteral("TOP"), QStringLiteral("ALL"),
    };
    return words;
}

const QSet<QString>& aggregateFunctions()
{
    static const QSet<QString> names = {QStringLiteral("AVG"),   QStringLiteral("SUM"),  QStringLiteral("COUNT"),
                                        QStringLiteral("MIN"),   QStringLiteral("MAX"),  QStringLiteral("FIRST"),
                                        QStringLiteral("LAST"),  QStringLiteral("STDEV"), QStringLiteral("VAR")};
    return names;
}

// An expression as emitted, with what the callers need to know about it.
struct Expr {
    QString sql;
    bool stringLiteral = false;
    bool numberLiteral = false;
    bool columnRef = false;
    bool aggregate = false;
};

struct TableRef {
    QString name;
    QString alias;
    bool nested = false; // inside a parenthesised join: SQLite shows it as a subquery, without rowid
};

// The parts of one SELECT, kept apart so that TRANSFORM can reassemble them.
struct Select {
    bool distinct = false;
    QString top;
    QStringList items;
    QString from;
    QString where;
    QStringList groupBy;
    QString having;
    QStringList orderBy;
    QString unionTail; // " UNION [ALL] <select>" already emitted
    QVector<TableRef> tables;
    bool aggregate = false;

    QString assemble(const QStringList& extraItems = {}) const
    {
        QString s = QStringLiteral("SELECT ");
        if (distinct)
            s += QStringLiteral("DISTINCT ");
        s += (items + extraItems).join(QStringLiteral(", "));
        if (!from.isEmpty())
            s += QStringLiteral(" FROM ") + from;
        if (!where.isEmpty())
            s += QStringLiteral(" WHERE ") + where;
        if (!groupBy.isEmpty())
            s += QStringLiteral(" GROUP BY ") + groupBy.join(QStringLiteral(", "));
        if (!having.isEmpty())
            s += QStringLiteral(" HAVING ") + having;
        s += unionTail;
        if (!orderBy.isEmpty())
            s += QStringLiteral(" ORDER BY ") + orderBy.join(QStringLiteral(", "));
        if (!top.isEmpty())
            s += QStringLiteral(" LIMIT ") + top;
        return s;
    }
};

// ---------------------------------------------------------------- parser

class Parser {
public:
    explicit Parser(const QString& text) : toks_(tokenize(text)) {}

    Translation statement(const JetSql::Options& options)
    {
        Translation t;
        if (isWord("SELECT")) {
            Select sel = select(true);
            t.kind = Translation::Kind::Query;
            QStringList extra;
            if (options.rowids && !sel.distinct && sel.groupBy.isEmpty() && !sel.aggregate && sel.unionTail.isEmpty()) {
                QSet<QString> seen;
                for (const TableRef& tr : sel.tables) {
                    const QString key = tr.name.toLower();
                    if (tr.nested || seen.contains(key))
                        continue;
                    seen.insert(key);
                    extra << quoteIdent(tr.alias.isEmpty() ? tr.name : tr.alias) + QStringLiteral(".rowid AS ")
                                 + quoteIdent(QLatin1String(JetSql::kRowidPrefix) + tr.name);
                }
                t.rowidColumns = !extra.isEmpty();
            }
            t.sql = sel.assemble(extra);
            for (const TableRef& tr : sel.tables)
                t.baseTables << tr.name;
        } else if (isWord("TRANSFORM")) {
            t = transform();
        } else if (isWord("INSERT")) {
            t = insert();
        } else if (isWord("UPDATE")) {
            t = update();
        } else if (isWord("DELETE")) {
            t = remove();
        } else {
            syntaxError(QStringLiteral("se esperaba SELECT, INSERT, UPDATE, DELETE o TRANSFORM"), peek().pos);
        }
        acceptOp(";");
        if (peek().type != Tok::End)
            syntaxError(QStringLiteral("caracteres tras el final de la instrucción"), peek().pos);
        return t;
    }

private:
    QVector<Token> toks_;
    int p_ = 0;
    int exprCounter_ = 1000;
    int nesting_ = 0;

    const Token& peek(int ahead = 0) const { return toks_[qMin(p_ + ahead, toks_.size() - 1)]; }
    const Token& next() { return toks_[p_ < toks_.size() - 1 ? p_++ : p_]; }

    bool isWord(const char* w, int ahead = 0) const
    {
        const Token& t = peek(ahead);
        return t.type == Tok::Ident && t.text.compare(QLatin1String(w), Qt::CaseInsensitive) == 0;
    }
    bool isOp(const char* op, int ahead = 0) const
    {
        const Token& t = peek(ahead);
        return t.type == Tok::Op && t.text == QLatin1String(op);
    }
    bool acceptWord(const char* w)
    {
        if (!isWord(w))
            return false;
        ++p_;
        return true;
    }
    bool acceptOp(const char* op)
    {
        if (!isOp(op))
            return false;
        ++p_;
        return true;
    }
    void expectWord(const char* w)
    {
        if (!acceptWord(w))
            syntaxError(QStringLiteral("se esperaba %1").arg(QLatin1String(w)), peek().pos);
    }
    void expectOp(const char* op)
    {
        if (!acceptOp(op))
            syntaxError(QStringLiteral("se esperaba '%1'").arg(QLatin1String(op)), peek().pos);
    }
    bool isReserved(const Token& t) const
    {
        return t.type == Tok::Ident && reservedWords().contains(t.text.toUpper());
    }

    // A plain or bracketed name.
    QString name()
    {
        const Token& t = peek();
        if (t.type == Tok::Bracket || (t.type == Tok::Ident && !isReserved(t))) {
            ++p_;
            return t.text;
        }
        syntaxError(QStringLiteral("se esperaba un nombre"), t.pos);
    }

    // ------------------------------------------------ SELECT

    Select select(bool outer)
    {
        Select s;
        expectWord("SELECT");
        if (acceptWord("DISTINCT") || acceptWord("DISTINCTROW"))
            s.distinct = true;
        else
            acceptWord("ALL");
        if (acceptWord("TOP")) {
            if (peek().type != Tok::Number)
                syntaxError(QStringLiteral("TOP sin número"), peek().pos);
            s.top = next().text;
        }
        do {
            s.items << selectItem(s.aggregate);
        } while (acceptOp(","));
        if (acceptWord("FROM"))
            s.from = fromList(s.tables);
        if (acceptWord("WHERE"))
            s.where = expression().sql;
        if (isWord("GROUP")) {
            ++p_;
            expectWord("BY");
            do {
                s.groupBy << expression().sql;
            } while (acceptOp(","));
        }
        if (acceptWord("HAVING")) {
            const Expr h = expression();
            s.having = h.sql;
        }
        while (isWord("UNION")) {
            ++p_;
            QString tail = QStringLiteral(" UNION ");
            if (acceptWord("ALL"))
                tail += QStringLiteral("ALL ");
            Select other = select(false);
            s.unionTail += tail + other.assemble();
        }
        if (isWord("ORDER")) {
            ++p_;
            expectWord("BY");
            do {
                s.orderBy << orderItem();
            } while (acceptOp(","));
        }
        Q_UNUSED(outer);
        return s;
    }

    QString selectItem(bool& aggregate)
    {
        if (isOp("*")) {
            ++p_;
            return QStringLiteral("*");
        }
        const Expr e = expression();
        aggregate = aggregate || e.aggregate;
        if (acceptWord("AS"))
            return e.sql + QStringLiteral(" AS ") + quoteIdent(name());
        if (e.columnRef)
            return e.sql;
        // The engine names an unnamed expression Expr1000, Expr1001, ...
        return e.sql + QStringLiteral(" AS ") + quoteIdent(QStringLiteral("Expr%1").arg(exprCounter_++));
    }

    QString orderItem()
    {
        const Expr e = expression();
        QString s = e.sql;
        // A bare number is a column position; everything else sorts as the
        // database does: case-insensitive, Spanish alphabet.
        if (!e.numberLiteral)
            s += QStringLiteral(" COLLATE ") + QLatin1String(JetSql::kCollation);
        if (acceptWord("DESC"))
            s += QStringLiteral(" DESC");
        else
            acceptWord("ASC");
        return s;
    }

    QString fromList(QVector<TableRef>& tables)
    {
        QString s = joinChain(tables);
        while (acceptOp(","))
            s += QStringLiteral(", ") + joinChain(tables);
        return s;
    }

    QString joinChain(QVector<TableRef>& tables)
    {
        QString s = fromItem(tables);
        for (;;) {
            QString kind;
            if (isWord("INNER") && isWord("JOIN", 1)) {
                p_ += 2;
                kind = QStringLiteral("INNER JOIN");
            } else if ((isWord("LEFT") || isWord("RIGHT"))) {
                kind = peek().text.toUpper();
                ++p_;
                acceptWord("OUTER");
                expectWord("JOIN");
                kind += QStringLiteral(" JOIN");
            } else if (isWord("JOIN")) {
                ++p_;
                kind = QStringLiteral("INNER JOIN");
            } else {
                break;
            }
            const QString right = fromItem(tables);
            expectWord("ON");
            s += u' ' + kind + u' ' + right + QStringLiteral(" ON ") + expression().sql;
        }
        return s;
    }

    QString fromItem(QVector<TableRef>& tables)
    {
        if (acceptOp("(")) {
            if (isWord("SELECT")) {
                QVector<TableRef> inner;
                Select sub = select(false);
                expectOp(")");
                QString s = u'(' + sub.assemble() + u')';
                if (acceptWord("AS") || (peek().type != Tok::End && !isReserved(peek()) && !isOp(")") && !isOp(",")))
                    s += u' ' + quoteIdent(name());
                return s;
            }
            ++nesting_;
            const QString s = joinChain(tables);
            --nesting_;
            expectOp(")");
            return u'(' + s + u')';
        }
        TableRef tr;
        tr.nested = nesting_ > 0;
        tr.name = name();
        QString s = quoteIdent(tr.name);
        if (acceptWord("AS")) {
            tr.alias = name();
        } else if ((peek().type == Tok::Ident && !isReserved(peek())) || peek().type == Tok::Bracket) {
            tr.alias = name();
        }
        if (!tr.alias.isEmpty())
            s += u' ' + quoteIdent(tr.alias);
        tables.push_back(tr);
        return s;
    }

    // ------------------------------------------------ TRANSFORM ... PIVOT

    Translation transform()
    {
        expectWord("TRANSFORM");
        Expr value = expression();
        if (acceptWord("AS"))
            name(); // the value's own name is not a column of the result
        Select sel = select(true);
        expectWord("PIVOT");
        const Expr pivot = expression();
        Translation t;
        t.kind = Translation::Kind::Pivot;
        if (acceptWord("IN")) {
            expectOp("(");
            do {
                const Token& v = next();
                if (v.type != Tok::String && v.type != Tok::Number)
                    syntaxError(QStringLiteral("se esperaba un valor en PIVOT ... IN"), v.pos);
                t.pivotIn << v.text;
            } while (acceptOp(","));
            expectOp(")");
        }
        t.pivotRowHeads = sel.items.size();
        // Rows come out by their headings; an ORDER BY of the crosstab only
        // orders the column headings, which are put in ascending order anyway.
        QStringList order;
        for (const QString& g : sel.groupBy)
            order << g + QStringLiteral(" COLLATE ") + QLatin1String(JetSql::kCollation);
        sel.groupBy << pivot.sql;
        sel.orderBy = order;
        t.sql = sel.assemble({pivot.sql + QStringLiteral(" AS \"__pivot\""), value.sql + QStringLiteral(" AS \"__value\"")});
        for (const TableRef& tr : sel.tables)
            t.baseTables << tr.name;
        return t;
    }

    // ------------------------------------------------ INSERT, UPDATE, DELETE

    // `t.c` or `[t]![c]` on the left of SET or in a column list: the column alone.
    QString targetColumn()
    {
        QString col = name();
        while (isOp(".") || isOp("!")) {
            ++p_;
            col = name();
        }
        return quoteIdent(col);
    }

    Translation insert()
    {
        expectWord("INSERT");
        expectWord("INTO");
        Translation t;
        t.kind = Translation::Kind::Command;
        const QString table = name();
        t.baseTables << table;
        QString s = QStringLiteral("INSERT INTO ") + quoteIdent(table);
        if (isOp("(") && !isWord("SELECT", 1)) {
            ++p_;
            QStringList cols;
            do {
                cols << targetColumn();
            } while (acceptOp(","));
            expectOp(")");
            s += QStringLiteral(" (") + cols.join(QStringLiteral(", ")) + u')';
        }
        if (acceptWord("VALUES")) {
            expectOp("(");
            QStringList vals;
            do {
                vals << expression().sql;
            } while (acceptOp(","));
            expectOp(")");
            s += QStringLiteral(" VALUES (") + vals.join(QStringLiteral(", ")) + u')';
        } else if (isWord("SELECT")) {
            s += u' ' + select(false).assemble();
        } else {
            syntaxError(QStringLiteral("se esperaba VALUES o SELECT"), peek().pos);
        }
        t.sql = s;
        return t;
    }

    Translation update()
    {
        expectWord("UPDATE");
        Translation t;
        const QString table = name();
        t.baseTables << table;
        if (!isWord("SET"))
            syntaxError(QStringLiteral("UPDATE de varias tablas no admitido"), peek().pos);
        ++p_;
        QStringList sets;
        do {
            const QString col = targetColumn();
            expectOp("=");
            sets << col + QStringLiteral(" = ") + expression().sql;
        } while (acceptOp(","));
        t.sql = QStringLiteral("UPDATE ") + quoteIdent(table) + QStringLiteral(" SET ") + sets.join(QStringLiteral(", "));
        if (acceptWord("WHERE"))
            t.sql += QStringLiteral(" WHERE ") + expression().sql;
        return t;
    }

    // DELETE * FROM t ..., DELETE t.*, t.c FROM t ...: what stands before FROM
    // only names the rows, which are always whole.
    Translation remove()
    {
        expectWord("DELETE");
        while (!isWord("FROM")) {
            if (peek().type == Tok::End)
                syntaxError(QStringLiteral("se esperaba FROM"), peek().pos);
            ++p_;
        }
        ++p_;
        Translation t;
        const QString table = name();
        t.baseTables << table;
        if (isWord("INNER") || isWord("LEFT") || isWord("RIGHT") || isOp(","))
            syntaxError(QStringLiteral("DELETE de varias tablas no admitido"), peek().pos);
        t.sql = QStringLiteral("DELETE FROM ") + quoteIdent(table);
        if (acceptWord("WHERE"))
            t.sql += QStringLiteral(" WHERE ") + expression().sql;
        return t;
    }

    // ------------------------------------------------ expressions
    // Jet's precedence, loosest first: OR, AND, NOT, comparisons (= <> < > <=
    // >= LIKE BETWEEN IS IN), &, + -, MOD, \, * /, unary -, ^.

    Expr expression() { return orExpr(); }

    // fn(a, b): the operators SQLite lacks or means otherwise.
    static Expr call2(const char* fn, const Expr& a, const Expr& b)
    {
        Expr e;
        e.sql = QLatin1String(fn) + u'(' + a.sql + QStringLiteral(", ") + b.sql + u')';
        e.aggregate = a.aggregate || b.aggregate;
        return e;
    }

    static Expr combine(const Expr& a, const QString& op, const Expr& b)
    {
        Expr e;
        e.sql = a.sql + op + b.sql;
        e.aggregate = a.aggregate || b.aggregate;
        return e;
    }

    Expr orExpr()
    {
        Expr e = andExpr();
        while (true) {
            if (acceptWord("OR"))
                e = combine(e, QStringLiteral(" OR "), andExpr());
            else if (acceptWord("XOR"))
                e = combine(e, QStringLiteral(" <> "), andExpr()); // both sides are truth values here
            else
                return e;
        }
    }

    Expr andExpr()
    {
        Expr e = notExpr();
        while (acceptWord("AND"))
            e = combine(e, QStringLiteral(" AND "), notExpr());
        return e;
    }

    Expr notExpr()
    {
        if (acceptWord("NOT")) {
            Expr e = notExpr();
            e.sql = QStringLiteral("NOT ") + e.sql;
            e.stringLiteral = e.numberLiteral = e.columnRef = false;
            return e;
        }
        return comparison();
    }

    static QString collateIfText(const Expr& a, const Expr& b)
    {
        // Jet compares texts without regard to case.
        if (a.stringLiteral || b.stringLiteral)
            return QStringLiteral(" COLLATE ") + QLatin1String(JetSql::kCollation);
        return {};
    }

    Expr comparison()
    {
        Expr e = concat();
        for (;;) {
            const Token& t = peek();
            if (t.type == Tok::Op
                && (t.text == u'=' || t.text == QLatin1String("<>") || t.text == u'<' || t.text == u'>'
                    || t.text == QLatin1String("<=") || t.text == QLatin1String(">="))) {
                const QString op = next().text;
                const Expr r = concat();
                e = combine(e, u' ' + op + u' ', r);
                e.sql += collateIfText(e, r);
                continue;
            }
            bool negated = false;
            if (isWord("NOT") && (isWord("LIKE", 1) || isWord("BETWEEN", 1) || isWord("IN", 1))) {
                negated = true;
                ++p_;
            }
            const QString neg = negated ? QStringLiteral("NOT ") : QString();
            if (acceptWord("LIKE")) {
                e = combine(e, u' ' + neg + QStringLiteral("LIKE "), concat());
            } else if (acceptWord("BETWEEN")) {
                const Expr lo = concat();
                expectWord("AND");
                const Expr hi = concat();
                e = combine(combine(e, u' ' + neg + QStringLiteral("BETWEEN "), lo), QStringLiteral(" AND "), hi);
            } else if (acceptWord("IN")) {
                expectOp("(");
                QString list;
                if (isWord("SELECT")) {
                    list = select(false).assemble();
                } else {
                    QStringList items;
                    do {
                        items << concat().sql;
                    } while (acceptOp(","));
                    list = items.join(QStringLiteral(", "));
                }
                expectOp(")");
                e.sql += u' ' + neg + QStringLiteral("IN (") + list + u')';
            } else if (acceptWord("IS")) {
                const bool isNot = acceptWord("NOT");
                if (!acceptWord("NULL"))
                    syntaxError(QStringLiteral("se esperaba NULL"), peek().pos);
                e.sql += isNot ? QStringLiteral(" IS NOT NULL") : QStringLiteral(" IS NULL");
            } else {
                return e;
            }
            e.stringLiteral = e.numberLiteral = e.columnRef = false;
        }
    }

    Expr concat()
    {
        Expr first = additive();
        if (!isOp("&"))
            return first;
        Expr e;
        e.sql = QStringLiteral("jet_concat(") + first.sql;
        e.aggregate = first.aggregate;
        while (acceptOp("&")) {
            const Expr r = additive();
            e.sql += QStringLiteral(", ") + r.sql;
            e.aggregate = e.aggregate || r.aggregate;
        }
        e.sql += u')';
        return e;
    }

    Expr additive()
    {
        Expr e = modulo();
        while (isOp("+") || isOp("-")) {
            const QString op = next().text;
            e = combine(e, u' ' + op + u' ', modulo());
        }
        return e;
    }

    Expr modulo()
    {
        Expr e = intDivision();
        while (acceptWord("MOD"))
            e = call2("jet_mod", e, intDivision());
        return e;
    }

    Expr intDivision()
    {
        Expr e = multiplicative();
        while (acceptOp("\\"))
            e = call2("jet_idiv", e, multiplicative());
        return e;
    }

    Expr multiplicative()
    {
        Expr e = unary();
        for (;;) {
            if (acceptOp("*")) {
                e = combine(e, QStringLiteral(" * "), unary());
            } else if (acceptOp("/")) {
                // Always floating point, and a zero divisor is an error.
                e = call2("jet_div", e, unary());
            } else {
                return e;
            }
        }
    }

    Expr unary()
    {
        if (isOp("-") || isOp("+")) {
            const QString op = next().text;
            Expr e = unary();
            e.sql = op + e.sql;
            e.stringLiteral = e.columnRef = false;
            return e;
        }
        return power();
    }

    Expr power()
    {
        Expr e = primary();
        while (acceptOp("^"))
            e = call2("jet_pow", e, primary());
        return e;
    }

    Expr primary()
    {
        const Token& t = peek();
        Expr e;
        switch (t.type) {
        case Tok::Number:
            ++p_;
            e.sql = t.text;
            e.numberLiteral = true;
            return e;
        case Tok::String:
            ++p_;
            e.sql = quoteString(t.text);
            e.stringLiteral = true;
            return e;
        case Tok::Date:
            ++p_;
            e.sql = quoteString(isoDate(t.text, t.pos));
            return e;
        case Tok::Op:
            if (t.text == u'(') {
                ++p_;
                if (isWord("SELECT")) {
                    e.sql = u'(' + select(false).assemble() + u')';
                } else {
                    const Expr inner = expression();
                    e.sql = u'(' + inner.sql + u')';
                    e.aggregate = inner.aggregate;
                }
                expectOp(")");
                return e;
            }
            if (t.text == u'*') { // Count(*)
                ++p_;
                e.sql = QStringLiteral("*");
                return e;
            }
            syntaxError(QStringLiteral("operador inesperado '%1'").arg(t.text), t.pos);
        case Tok::Ident: {
            const QString up = t.text.toUpper();
            if (up == QLatin1String("TRUE") || up == QLatin1String("YES")) {
                ++p_;
                e.sql = QStringLiteral("1");
                return e;
            }
            if (up == QLatin1String("FALSE") || up == QLatin1String("NO")) {
                ++p_;
                e.sql = QStringLiteral("0");
                return e;
            }
            if (up == QLatin1String("NULL")) {
                ++p_;
                e.sql = QStringLiteral("NULL");
                return e;
            }
            if (isOp("(", 1))
                return call();
            if (isReserved(t))
                syntaxError(QStringLiteral("palabra inesperada '%1'").arg(t.text), t.pos);
            return columnRef();
        }
        case Tok::Bracket:
            return columnRef();
        case Tok::End:
            syntaxError(QStringLiteral("la instrucción termina antes de tiempo"), t.pos);
        }
        syntaxError(QStringLiteral("expresión no válida"), t.pos);
    }

    // name, t.c, [t]![c], t.*
    Expr columnRef()
    {
        Expr e;
        e.columnRef = true;
        e.sql = quoteIdent(name());
        while (isOp(".") || isOp("!")) {
            ++p_;
            if (acceptOp("*")) {
                e.sql += QStringLiteral(".*");
                e.columnRef = true;
                return e;
            }
            e.sql += u'.' + quoteIdent(name());
        }
        return e;
    }

    QList<Expr> arguments()
    {
        QList<Expr> args;
        expectOp("(");
        if (!isOp(")")) {
            do {
                args << expression();
            } while (acceptOp(","));
        }
        expectOp(")");
        return args;
    }

    Expr call()
    {
        const Token& fn = next();
        const QString up = fn.text.toUpper();
        QList<Expr> args = arguments();
        Expr e;
        for (const Expr& a : args)
            e.aggregate = e.aggregate || a.aggregate;
        auto joined = [&]() {
            QStringList list;
            for (const Expr& a : args)
                list << a.sql;
            return list.join(QStringLiteral(", "));
        };
        auto need = [&](int n) {
            if (args.size() != n)
                syntaxError(QStringLiteral("número de argumentos incorrecto en %1").arg(fn.text), fn.pos);
        };
        if (up == QLatin1String("IIF")) {
            need(3);
            e.sql = QStringLiteral("(CASE WHEN ") + args[0].sql + QStringLiteral(" THEN ") + args[1].sql
                    + QStringLiteral(" ELSE ") + args[2].sql + QStringLiteral(" END)");
            return e;
        }
        if (up == QLatin1String("ISNULL")) {
            need(1);
            e.sql = u'(' + args[0].sql + QStringLiteral(" IS NULL)");
            return e;
        }
        if (aggregateFunctions().contains(up)) {
            e.aggregate = true;
            static const QHash<QString, QString> own = {{QStringLiteral("FIRST"), QStringLiteral("jet_first")},
                                                        {QStringLiteral("LAST"), QStringLiteral("jet_last")}};
            e.sql = own.value(up, up.toLower()) + u'(' + joined() + u')';
            return e;
        }
        // The engine's own functions that SQLite lacks or spells differently.
        static const QHash<QString, QString> mapped = {
            {QStringLiteral("FORMAT"), QStringLiteral("jet_format")}, {QStringLiteral("STR"), QStringLiteral("jet_str")},
            {QStringLiteral("UCASE"), QStringLiteral("jet_ucase")},   {QStringLiteral("LCASE"), QStringLiteral("jet_lcase")},
            {QStringLiteral("LEN"), QStringLiteral("length")},        {QStringLiteral("TRIM"), QStringLiteral("trim")},
            {QStringLiteral("LTRIM"), QStringLiteral("ltrim")},       {QStringLiteral("RTRIM"), QStringLiteral("rtrim")},
            {QStringLiteral("MID"), QStringLiteral("substr")},        {QStringLiteral("INT"), QStringLiteral("jet_int")},
            {QStringLiteral("VAL"), QStringLiteral("jet_val")},       {QStringLiteral("NOW"), QStringLiteral("jet_now")},
            {QStringLiteral("DATE"), QStringLiteral("jet_date")},     {QStringLiteral("YEAR"), QStringLiteral("jet_year")},
            {QStringLiteral("MONTH"), QStringLiteral("jet_month")},   {QStringLiteral("DAY"), QStringLiteral("jet_day")},
            {QStringLiteral("CSTR"), QStringLiteral("jet_cstr")},     {QStringLiteral("CINT"), QStringLiteral("jet_cint")},
            {QStringLiteral("CLNG"), QStringLiteral("jet_clng")},     {QStringLiteral("CDBL"), QStringLiteral("jet_cdbl")},
            {QStringLiteral("CSNG"), QStringLiteral("jet_csng")},     {QStringLiteral("ABS"), QStringLiteral("abs")},
            {QStringLiteral("ROUND"), QStringLiteral("jet_round")},
        };
        if (up == QLatin1String("LEFT")) {
            need(2);
            e.sql = QStringLiteral("substr(") + args[0].sql + QStringLiteral(", 1, ") + args[1].sql + u')';
            return e;
        }
        if (up == QLatin1String("RIGHT")) {
            need(2);
            e.sql = QStringLiteral("jet_right(") + joined() + u')';
            return e;
        }
        e.sql = mapped.value(up, fn.text) + u'(' + joined() + u')';
        return e;
    }
};

} // namespace

Translation JetSql::translate(const QString& jet, Options options)
{
    Parser parser(jet);
    return parser.statement(options);
}

} // namespace db
