#include "db/JetSql.h"

#include "vb/RuntimeError.h"

#include <QRegularExpression>
#include <QSet>
#include <QVarLengthArray>

#include <cstring>
#include <string_view>

// The translation runs for every new statement text (the screens put keys
// and texts into their statements), so it avoids allocations: tokens are views
// into the source, keywords are recognised without building upper-case
// copies, and the output grows in one buffer. An operator that SQLite lacks
// (`&`, `/`) wraps its left operand by inserting the function name where that
// operand begins in the buffer.

namespace db {
namespace {

// ---------------------------------------------------------------- keywords

enum class Kw : quint8 {
    None,
    // words that end an expression or a table reference
    Select, From, Where, Group, By, Having, Order, Asc, Desc, As, Inner, Left, Right, Outer, Join, On, And, Or, Not,
    Like, Between, Is, In, Union, Pivot, Transform, Set, Values, Into, Mod, Xor, Distinct, DistinctRow, Top, All,
    // statement starts and constants, which are not reserved as names
    Insert, Update, Delete, True, False, Yes, No, Null
};

constexpr Kw kFirstUnreserved = Kw::Insert;

struct KeywordName {
    std::string_view text;
    Kw kw;
};

constexpr KeywordName kKeywords[] = {
    {"SELECT", Kw::Select},   {"FROM", Kw::From},       {"WHERE", Kw::Where},   {"GROUP", Kw::Group},
    {"BY", Kw::By},           {"HAVING", Kw::Having},   {"ORDER", Kw::Order},   {"ASC", Kw::Asc},
    {"DESC", Kw::Desc},       {"AS", Kw::As},           {"INNER", Kw::Inner},   {"LEFT", Kw::Left},
    {"RIGHT", Kw::Right},     {"OUTER", Kw::Outer},     {"JOIN", Kw::Join},     {"ON", Kw::On},
    {"AND", Kw::And},         {"OR", Kw::Or},           {"NOT", Kw::Not},       {"LIKE", Kw::Like},
    {"BETWEEN", Kw::Between}, {"IS", Kw::Is},           {"IN", Kw::In},         {"UNION", Kw::Union},
    {"PIVOT", Kw::Pivot},     {"TRANSFORM", Kw::Transform}, {"SET", Kw::Set},   {"VALUES", Kw::Values},
    {"INTO", Kw::Into},       {"MOD", Kw::Mod},         {"XOR", Kw::Xor},       {"DISTINCT", Kw::Distinct},
    {"DISTINCTROW", Kw::DistinctRow}, {"TOP", Kw::Top}, {"ALL", Kw::All},       {"INSERT", Kw::Insert},
    {"UPDATE", Kw::Update},   {"DELETE", Kw::Delete},   {"TRUE", Kw::True},     {"FALSE", Kw::False},
    {"YES", Kw::Yes},         {"NO", Kw::No},           {"NULL", Kw::Null},
};

// Upper-cases an ASCII word into buf; false for anything longer or not ASCII.
bool asciiUpper(QStringView w, char* buf, int size)
{
    if (w.size() >= size)
        return false;
    for (qsizetype i = 0; i < w.size(); ++i) {
        const char16_t c = w[i].unicode();
        if (c >= 0x80)
            return false;
        buf[i] = char(c >= 'a' && c <= 'z' ? c - 32 : c);
    }
    buf[w.size()] = '\0';
    return true;
}

Kw keywordOf(QStringView w)
{
    char up[16];
    if (w.size() < 2 || !asciiUpper(w, up, sizeof up))
        return Kw::None;
    const std::string_view word(up, size_t(w.size()));
    for (const KeywordName& k : kKeywords)
        if (k.text.size() == word.size() && k.text[0] == word[0] && k.text == word)
            return k.kw;
    return Kw::None;
}

// ---------------------------------------------------------------- tokens

enum class Tok : quint8 { Ident, Bracket, String, Date, Number, Op, End };

struct Token {
    Tok type = Tok::End;
    Kw kw = Kw::None;
    bool escapedQuote = false; // a String holding doubled quotes
    QChar quote;
    QStringView text;          // the word, the content between delimiters, the number or the operator
    int pos = 0;
};

[[noreturn]] void syntaxError(const QString& what, int pos)
{
    throw RuntimeError(RuntimeError::DatabaseError,
                       QStringLiteral("Error de sintaxis en la instrucción SQL (%1, posición %2).").arg(what).arg(pos + 1));
}

bool isAsciiLetter(char16_t c) { return (c >= u'a' && c <= u'z') || (c >= u'A' && c <= u'Z') || c == u'_'; }
bool isIdentStart(QChar c) { return c.unicode() < 0x80 ? isAsciiLetter(c.unicode()) : c.isLetter(); }
bool isIdentPart(QChar c)
{
    const char16_t u = c.unicode();
    return u < 0x80 ? isAsciiLetter(u) || (u >= u'0' && u <= u'9') : c.isLetterOrNumber();
}

void tokenize(QStringView s, QVarLengthArray<Token, 256>& out)
{
    const qsizetype n = s.size();
    qsizetype i = 0;
    while (i < n) {
        const QChar c = s[i];
        if (c.isSpace()) {
            ++i;
            continue;
        }
        Token t;
        t.pos = int(i);
        if (c == u'[' || c == u'#') {
            const QChar close = c == u'[' ? QChar(u']') : QChar(u'#');
            const qsizetype end = s.indexOf(close, i + 1);
            if (end < 0)
                syntaxError(QStringLiteral("falta '%1'").arg(close), int(i));
            t.type = c == u'[' ? Tok::Bracket : Tok::Date;
            t.text = s.mid(i + 1, end - i - 1);
            i = end + 1;
        } else if (c == u'\'' || c == u'"') {
            // A doubled quote inside stands for one quote; a lone one ends the text.
            qsizetype j = i + 1;
            for (;;) {
                if (j >= n)
                    syntaxError(QStringLiteral("falta la comilla de cierre"), int(i));
                if (s[j] == c) {
                    if (j + 1 < n && s[j + 1] == c) {
                        t.escapedQuote = true;
                        j += 2;
                        continue;
                    }
                    break;
                }
                ++j;
            }
            t.type = Tok::String;
            t.quote = c;
            t.text = s.mid(i + 1, j - i - 1);
            i = j + 1;
        } else if (c.isDigit() || (c == u'.' && i + 1 < n && s[i + 1].isDigit())) {
            qsizetype j = i;
            while (j < n && s[j].isDigit())
                ++j;
            if (j < n && s[j] == u'.') {
                ++j;
                while (j < n && s[j].isDigit())
                    ++j;
            }
            if (j < n && (s[j] == u'E' || s[j] == u'e')) {
                qsizetype k = j + 1;
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
            qsizetype j = i + 1;
            while (j < n && isIdentPart(s[j]))
                ++j;
            t.type = Tok::Ident;
            t.text = s.mid(i, j - i);
            t.kw = keywordOf(t.text);
            i = j;
        } else {
            t.type = Tok::Op;
            const char16_t second = i + 1 < n ? s[i + 1].unicode() : 0;
            if ((c == u'<' && (second == u'>' || second == u'=')) || (c == u'>' && second == u'=')) {
                t.text = s.mid(i, 2);
            } else if (std::char_traits<char16_t>::find(u"=<>&+-*/\\^(),.!;", 16, c.unicode())) {
                t.text = s.mid(i, 1);
            } else {
                syntaxError(QStringLiteral("carácter no válido '%1'").arg(c), int(i));
            }
            i += t.text.size();
        }
        out.push_back(t);
    }
    Token end;
    end.pos = int(n);
    out.push_back(end);
}

// ---------------------------------------------------------------- output helpers

void appendIdent(QString& out, QStringView name)
{
    out += u'"';
    qsizetype from = 0;
    for (qsizetype i = 0; i < name.size(); ++i) {
        if (name[i] == u'"') { // doubled inside the quotes
            out += name.mid(from, i - from + 1);
            from = i;
        }
    }
    out += name.mid(from);
    out += u'"';
}

bool isComparison(const Token& t)
{
    if (t.type != Tok::Op)
        return false;
    const char16_t c = t.text[0].unicode();
    return c == u'=' || c == u'<' || c == u'>';
}

// The text of a string token, with its doubled quotes made single again.
QString stringContent(const Token& t)
{
    QString s = t.text.toString();
    if (t.escapedQuote)
        s.replace(QString(2, t.quote), QString(t.quote));
    return s;
}

void appendString(QString& out, const Token& t)
{
    const QString content = stringContent(t);
    out += u'\'';
    for (QChar c : content) {
        out += c;
        if (c == u'\'')
            out += c;
    }
    out += u'\'';
}

// #yyyy/MM/dd#, #M/d/yyyy# (the engine's own order), with an optional time.
void appendDate(QString& out, QStringView text, int pos)
{
    const QString t = text.trimmed().toString();
    const QStringList parts = t.split(u' ', Qt::SkipEmptyParts);
    auto bad = [&] { syntaxError(QStringLiteral("fecha no válida #%1#").arg(t), pos); };
    if (parts.isEmpty() || parts.size() > 2)
        bad();
    const QStringList d = QString(parts[0]).replace(u'-', u'/').split(u'/');
    out += u'\'';
    if (d.size() == 3) {
        bool ok[3];
        int v[3];
        for (int i = 0; i < 3; ++i)
            v[i] = d[i].toInt(&ok[i]);
        if (!ok[0] || !ok[1] || !ok[2])
            bad();
        const bool yearFirst = d[0].size() == 4;
        const int y = yearFirst ? v[0] : v[2], m = yearFirst ? v[1] : v[0], day = yearFirst ? v[2] : v[1];
        out += QStringLiteral("%1-%2-%3")
                   .arg(y, 4, 10, QLatin1Char('0'))
                   .arg(m, 2, 10, QLatin1Char('0'))
                   .arg(day, 2, 10, QLatin1Char('0'));
        if (parts.size() == 2)
            out += u' ' + parts[1];
    } else if (parts.size() == 1 && parts[0].contains(u':')) {
        out += parts[0];
    } else {
        bad();
    }
    out += u'\'';
}

const QLatin1String kCollate(" COLLATE jet_es");

// What the callers need to know of an expression emitted at out[start...].
struct Expr {
    qsizetype start = 0;
    bool stringLiteral = false;
    bool numberLiteral = false;
    bool columnRef = false;
    bool aggregate = false;
};

struct TableRef {
    QStringView name;
    QStringView alias;
    bool nested = false; // inside a parenthesised join: SQLite shows it as a subquery, without rowid
};

// The clauses of one SELECT, kept apart so that TRANSFORM can reassemble them.
struct Select {
    bool distinct = false;
    QString top;
    int itemCount = 0;
    QString items;
    QString from;
    QString where;
    QString groupBy;
    QString groupByCollated; // the same terms with the collation, for ordering
    QString having;
    QString orderBy;
    QString unionTail;
    QVarLengthArray<TableRef, 8> tables;
    bool aggregate = false;

    void assemble(QString& s, QStringView extraItems = {}) const
    {
        auto clause = [&s](const char* word, const QString& text) {
            if (!text.isEmpty()) {
                s += QLatin1String(word);
                s += text;
            }
        };
        s += QLatin1String("SELECT ");
        if (distinct)
            s += QLatin1String("DISTINCT ");
        s += items;
        s += extraItems;
        clause(" FROM ", from);
        clause(" WHERE ", where);
        clause(" GROUP BY ", groupBy);
        clause(" HAVING ", having);
        s += unionTail;
        clause(" ORDER BY ", orderBy);
        clause(" LIMIT ", top);
    }
};

// ---------------------------------------------------------------- parser

class Parser {
public:
    explicit Parser(const QString& text) : src_(text)
    {
        tokenize(src_, toks_);
        out_.reserve(text.size() + text.size() / 2 + 64);
    }

    Translation statement(const JetSql::Options& options)
    {
        isDateColumn_ = options.isDateColumn;
        Translation t;
        switch (peek().kw) {
        case Kw::Select:
            t = query(options);
            break;
        case Kw::Transform:
            t = transform();
            break;
        case Kw::Insert:
            t = insert();
            break;
        case Kw::Update:
            t = update();
            break;
        case Kw::Delete:
            t = remove();
            break;
        default:
            syntaxError(QStringLiteral("se esperaba SELECT, INSERT, UPDATE, DELETE o TRANSFORM"), peek().pos);
        }
        acceptOp(u';');
        if (peek().type != Tok::End)
            syntaxError(QStringLiteral("caracteres tras el final de la instrucción"), peek().pos);
        return t;
    }

private:
    const QString src_;
    QVarLengthArray<Token, 256> toks_;
    int p_ = 0;
    QString out_;
    std::function<bool(const QString&, const QString&)> isDateColumn_;
    int exprCounter_ = 1000;
    int nesting_ = 0;

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
    void expect(Kw kw, const char* word)
    {
        if (!accept(kw))
            syntaxError(QStringLiteral("se esperaba %1").arg(QLatin1String(word)), peek().pos);
    }
    void expectOp(char16_t op)
    {
        if (!acceptOp(op))
            syntaxError(QStringLiteral("se esperaba '%1'").arg(QChar(op)), peek().pos);
    }
    static bool isReserved(const Token& t) { return t.kw != Kw::None && t.kw < kFirstUnreserved; }
    bool atName() const
    {
        const Token& t = peek();
        return t.type == Tok::Bracket || (t.type == Tok::Ident && !isReserved(t));
    }

    // A plain or bracketed name.
    QStringView name()
    {
        if (!atName())
            syntaxError(QStringLiteral("se esperaba un nombre"), peek().pos);
        return next().text;
    }

    // Moves what was emitted from `start` on out of the buffer.
    QString take(qsizetype start)
    {
        QString s = out_.mid(start);
        out_.truncate(start);
        return s;
    }

    // ------------------------------------------------ SELECT

    Translation query(const JetSql::Options& options)
    {
        Translation t;
        t.kind = Translation::Kind::Query;
        Select sel = select();
        QString extra;
        if (options.rowids && !sel.distinct && sel.groupBy.isEmpty() && !sel.aggregate && sel.unionTail.isEmpty()) {
            QSet<QString> seen;
            for (const TableRef& tr : sel.tables) {
                const QString key = tr.name.toString().toLower();
                if (tr.nested || seen.contains(key))
                    continue;
                seen.insert(key);
                extra += QLatin1String(", ");
                appendIdent(extra, tr.alias.isEmpty() ? tr.name : tr.alias);
                extra += QLatin1String(".rowid AS ");
                appendIdent(extra, QString(QLatin1String(JetSql::kRowidPrefix) + tr.name.toString()));
            }
            t.rowidColumns = !extra.isEmpty();
        }
        sel.assemble(t.sql, extra);
        for (const TableRef& tr : sel.tables)
            t.baseTables << tr.name.toString();
        return t;
    }

    Select select()
    {
        Select s;
        expect(Kw::Select, "SELECT");
        if (accept(Kw::Distinct) || accept(Kw::DistinctRow))
            s.distinct = true;
        else
            accept(Kw::All);
        if (accept(Kw::Top)) {
            if (peek().type != Tok::Number)
                syntaxError(QStringLiteral("TOP sin número"), peek().pos);
            s.top = next().text.toString();
        }
        const qsizetype start = out_.size();
        do {
            if (s.itemCount++)
                out_ += QLatin1String(", ");
            selectItem(s.aggregate);
        } while (acceptOp(u','));
        s.items = take(start);
        if (accept(Kw::From)) {
            fromList(s.tables);
            s.from = take(start);
        }
        if (accept(Kw::Where)) {
            expression();
            s.where = take(start);
        }
        if (accept(Kw::Group)) {
            expect(Kw::By, "BY");
            do {
                if (!s.groupBy.isEmpty()) {
                    s.groupBy += QLatin1String(", ");
                    s.groupByCollated += QLatin1String(", ");
                }
                expression();
                const QString term = take(start);
                s.groupBy += term;
                s.groupByCollated += term;
                s.groupByCollated += kCollate;
            } while (acceptOp(u','));
        }
        if (accept(Kw::Having)) {
            expression();
            s.having = take(start);
        }
        while (accept(Kw::Union)) {
            QString tail = QStringLiteral(" UNION ");
            if (accept(Kw::All))
                tail += QLatin1String("ALL ");
            select().assemble(tail);
            s.unionTail += tail;
        }
        if (accept(Kw::Order)) {
            expect(Kw::By, "BY");
            do {
                if (out_.size() > start)
                    out_ += QLatin1String(", ");
                orderItem();
            } while (acceptOp(u','));
            s.orderBy = take(start);
        }
        return s;
    }

    // A SELECT inside another statement; it assembles its own clauses apart.
    void subquery()
    {
        QString sub;
        select().assemble(sub);
        out_ += sub;
    }

    void selectItem(bool& aggregate)
    {
        if (acceptOp(u'*')) {
            out_ += u'*';
            return;
        }
        const Expr e = expression();
        aggregate = aggregate || e.aggregate;
        out_ += QLatin1String(" AS ");
        if (accept(Kw::As)) {
            appendIdent(out_, name());
        } else if (e.columnRef) {
            out_.chop(4); // a column keeps its own name
        } else {
            // The engine names an unnamed expression Expr1000, Expr1001, ...
            out_ += QLatin1String("\"Expr");
            out_ += QString::number(exprCounter_++);
            out_ += u'"';
        }
    }

    void orderItem()
    {
        const Expr e = expression();
        // A bare number is a column position; a date column sorts as stored;
        // everything else sorts as the database does: case-insensitive,
        // Spanish alphabet.
        if (!e.numberLiteral && !dateColumn(e))
            out_ += kCollate;
        if (accept(Kw::Desc))
            out_ += QLatin1String(" DESC");
        else
            accept(Kw::Asc);
    }

    // A qualified reference, "table"."column", to a column declared a date.
    bool dateColumn(const Expr& e) const
    {
        if (!e.columnRef || !isDateColumn_)
            return false;
        static const QRegularExpression qualified(QStringLiteral("^\"([^\"]+)\"\\.\"([^\"]+)\"$"));
        const auto m = qualified.match(QStringView(out_).mid(e.start));
        return m.hasMatch() && isDateColumn_(m.captured(1), m.captured(2));
    }

    template <typename Tables>
    void fromList(Tables& tables)
    {
        joinChain(tables);
        while (acceptOp(u',')) {
            out_ += QLatin1String(", ");
            joinChain(tables);
        }
    }

    template <typename Tables>
    void joinChain(Tables& tables)
    {
        fromItem(tables, true);
        for (;;) {
            if (is(Kw::Inner) && is(Kw::Join, 1)) {
                p_ += 2;
                out_ += QLatin1String(" INNER JOIN ");
            } else if (is(Kw::Left) || is(Kw::Right)) {
                out_ += next().kw == Kw::Left ? QLatin1String(" LEFT JOIN ") : QLatin1String(" RIGHT JOIN ");
                accept(Kw::Outer);
                expect(Kw::Join, "JOIN");
            } else if (accept(Kw::Join)) {
                out_ += QLatin1String(" INNER JOIN ");
            } else {
                return;
            }
            fromItem(tables, false);
            expect(Kw::On, "ON");
            out_ += QLatin1String(" ON ");
            expression();
        }
    }

    // Joins run from left to right, so a parenthesised join on the left of
    // another, "((a JOIN b ON ..) JOIN c ON ..)", means the same without its
    // parentheses; dropping them keeps its tables in the outer query, where
    // their rows can be written back. A join nested on the right keeps them.
    template <typename Tables>
    void fromItem(Tables& tables, bool leftOperand)
    {
        if (isOp(u'(') && !is(Kw::Select, 1) && leftOperand) {
            ++p_;
            joinChain(tables);
            expectOp(u')');
            return;
        }
        if (acceptOp(u'(')) {
            out_ += u'(';
            if (is(Kw::Select)) {
                subquery();
                expectOp(u')');
                out_ += u')';
                if (accept(Kw::As) || atName()) {
                    out_ += u' ';
                    appendIdent(out_, name());
                }
                return;
            }
            ++nesting_;
            joinChain(tables);
            --nesting_;
            expectOp(u')');
            out_ += u')';
            return;
        }
        TableRef tr;
        tr.nested = nesting_ > 0;
        tr.name = name();
        appendIdent(out_, tr.name);
        if (accept(Kw::As) || atName()) {
            tr.alias = name();
            out_ += u' ';
            appendIdent(out_, tr.alias);
        }
        tables.push_back(tr);
    }

    // ------------------------------------------------ TRANSFORM ... PIVOT

    Translation transform()
    {
        expect(Kw::Transform, "TRANSFORM");
        expression();
        const QString value = take(0);
        if (accept(Kw::As))
            name(); // the value's own name is not a column of the result
        Select sel = select();
        expect(Kw::Pivot, "PIVOT");
        expression();
        const QString pivot = take(0);
        Translation t;
        t.kind = Translation::Kind::Pivot;
        if (accept(Kw::In)) {
            expectOp(u'(');
            do {
                const Token& v = next();
                if (v.type != Tok::String && v.type != Tok::Number)
                    syntaxError(QStringLiteral("se esperaba un valor en PIVOT ... IN"), v.pos);
                t.pivotIn << (v.type == Tok::String ? stringContent(v) : v.text.toString());
            } while (acceptOp(u','));
            expectOp(u')');
        }
        t.pivotRowHeads = sel.itemCount;
        // Rows come out by their headings; an ORDER BY of the crosstab only
        // orders the column headings, which are put in ascending order anyway.
        sel.orderBy = sel.groupByCollated;
        sel.groupBy += (sel.groupBy.isEmpty() ? QString() : QStringLiteral(", ")) + pivot;
        sel.assemble(t.sql, QStringLiteral(", ") + pivot + QLatin1String(" AS \"__pivot\", ") + value +
                                 QLatin1String(" AS \"__value\""));
        for (const TableRef& tr : sel.tables)
            t.baseTables << tr.name.toString();
        return t;
    }

    // ------------------------------------------------ INSERT, UPDATE, DELETE

    // `t.c` or `[t]![c]` on the left of SET or in a column list: the column alone.
    void targetColumn()
    {
        QStringView col = name();
        while (acceptOp(u'.') || acceptOp(u'!'))
            col = name();
        appendIdent(out_, col);
    }

    Translation insert()
    {
        expect(Kw::Insert, "INSERT");
        expect(Kw::Into, "INTO");
        Translation t;
        const QStringView table = name();
        t.baseTables << table.toString();
        out_ += QLatin1String("INSERT INTO ");
        appendIdent(out_, table);
        if (isOp(u'(') && !is(Kw::Select, 1)) {
            ++p_;
            out_ += QLatin1String(" (");
            do {
                if (out_.back() != u'(')
                    out_ += QLatin1String(", ");
                targetColumn();
            } while (acceptOp(u','));
            expectOp(u')');
            out_ += u')';
        }
        if (accept(Kw::Values)) {
            expectOp(u'(');
            out_ += QLatin1String(" VALUES (");
            do {
                if (out_.back() != u'(')
                    out_ += QLatin1String(", ");
                expression();
            } while (acceptOp(u','));
            expectOp(u')');
            out_ += u')';
        } else if (is(Kw::Select)) {
            out_ += u' ';
            subquery();
        } else {
            syntaxError(QStringLiteral("se esperaba VALUES o SELECT"), peek().pos);
        }
        t.sql = take(0);
        return t;
    }

    Translation update()
    {
        expect(Kw::Update, "UPDATE");
        Translation t;
        const QStringView table = name();
        t.baseTables << table.toString();
        if (!accept(Kw::Set))
            syntaxError(QStringLiteral("UPDATE de varias tablas no admitido"), peek().pos);
        out_ += QLatin1String("UPDATE ");
        appendIdent(out_, table);
        out_ += QLatin1String(" SET ");
        bool first = true;
        do {
            if (!first)
                out_ += QLatin1String(", ");
            first = false;
            targetColumn();
            expectOp(u'=');
            out_ += QLatin1String(" = ");
            expression();
        } while (acceptOp(u','));
        if (accept(Kw::Where)) {
            out_ += QLatin1String(" WHERE ");
            expression();
        }
        t.sql = take(0);
        return t;
    }

    // DELETE * FROM t ..., DELETE t.*, t.c FROM t ...: what stands before FROM
    // only names the rows, which are always whole.
    Translation remove()
    {
        expect(Kw::Delete, "DELETE");
        while (!is(Kw::From)) {
            if (peek().type == Tok::End)
                syntaxError(QStringLiteral("se esperaba FROM"), peek().pos);
            ++p_;
        }
        ++p_;
        Translation t;
        const QStringView table = name();
        t.baseTables << table.toString();
        if (is(Kw::Inner) || is(Kw::Left) || is(Kw::Right) || isOp(u','))
            syntaxError(QStringLiteral("DELETE de varias tablas no admitido"), peek().pos);
        out_ += QLatin1String("DELETE FROM ");
        appendIdent(out_, table);
        if (accept(Kw::Where)) {
            out_ += QLatin1String(" WHERE ");
            expression();
        }
        t.sql = take(0);
        return t;
    }

    // ------------------------------------------------ expressions
    // Jet's precedence, loosest first: OR, AND, NOT, comparisons (= <> < > <=
    // >= LIKE BETWEEN IS IN), &, + -, MOD, \, * /, unary -, ^.

    Expr expression() { return orExpr(); }

    // The result of an operator over `e` and what followed it.
    static Expr joined(const Expr& e, bool aggregate)
    {
        Expr r;
        r.start = e.start;
        r.aggregate = e.aggregate || aggregate;
        return r;
    }

    // fn(a, b) for an operator that SQLite lacks or means otherwise: `a` is
    // already in the buffer; the name goes in front of it.
    template <typename Operand>
    Expr call2(const char* fn, const Expr& a, Operand operand)
    {
        out_ += QLatin1String(", ");
        const Expr b = (this->*operand)();
        out_ += u')';
        out_.insert(a.start, QLatin1String(fn));
        return joined(a, b.aggregate);
    }

    Expr orExpr()
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
        }
    }

    Expr andExpr()
    {
        Expr e = notExpr();
        while (accept(Kw::And)) {
            out_ += QLatin1String(" AND ");
            e = joined(e, notExpr().aggregate);
        }
        return e;
    }

    Expr notExpr()
    {
        if (accept(Kw::Not)) {
            Expr e;
            e.start = out_.size();
            out_ += QLatin1String("NOT ");
            e.aggregate = notExpr().aggregate;
            return e;
        }
        return comparison();
    }

    Expr comparison()
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
        }
    }

    Expr concat()
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
        return joined(e, aggregate);
    }

    Expr additive()
    {
        Expr e = modulo();
        while (isOp(u'+') || isOp(u'-')) {
            out_ += u' ';
            out_ += next().text;
            out_ += u' ';
            e = joined(e, modulo().aggregate);
        }
        return e;
    }

    Expr modulo()
    {
        Expr e = intDivision();
        while (accept(Kw::Mod))
            e = call2("jet_mod(", e, &Parser::intDivision);
        return e;
    }

    Expr intDivision()
    {
        Expr e = multiplicative();
        while (acceptOp(u'\\'))
            e = call2("jet_idiv(", e, &Parser::multiplicative);
        return e;
    }

    Expr multiplicative()
    {
        Expr e = unary();
        for (;;) {
            if (acceptOp(u'*')) {
                out_ += QLatin1String(" * ");
                e = joined(e, unary().aggregate);
            } else if (acceptOp(u'/')) {
                // Always floating point, and a zero divisor is an error.
                e = call2("jet_div(", e, &Parser::unary);
            } else {
                return e;
            }
        }
    }

    Expr unary()
    {
        if (isOp(u'-') || isOp(u'+')) {
            Expr e;
            e.start = out_.size();
            out_ += next().text;
            e.aggregate = unary().aggregate;
            return e;
        }
        return power();
    }

    Expr power()
    {
        Expr e = primary();
        while (acceptOp(u'^'))
            e = call2("jet_pow(", e, &Parser::primary);
        return e;
    }

    Expr primary()
    {
        const Token& t = peek();
        Expr e;
        e.start = out_.size();
        switch (t.type) {
        case Tok::Number:
            ++p_;
            out_ += t.text;
            e.numberLiteral = true;
            return e;
        case Tok::String:
            ++p_;
            appendString(out_, t);
            e.stringLiteral = true;
            return e;
        case Tok::Date:
            ++p_;
            appendDate(out_, t.text, t.pos);
            return e;
        case Tok::Op:
            if (acceptOp(u'(')) {
                out_ += u'(';
                if (is(Kw::Select))
                    subquery();
                else
                    e.aggregate = expression().aggregate;
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
                return e;
            case Kw::False:
            case Kw::No:
                ++p_;
                out_ += u'0';
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
    Expr columnRef()
    {
        Expr e;
        e.start = out_.size();
        e.columnRef = true;
        appendIdent(out_, name());
        while (isOp(u'.') || isOp(u'!')) {
            ++p_;
            out_ += u'.';
            if (acceptOp(u'*')) {
                out_ += u'*';
                return e;
            }
            appendIdent(out_, name());
        }
        return e;
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
    };

    static const Shape* shapeOf(QStringView fn)
    {
        static constexpr Shape shapes[] = {
            {"IIF", "(CASE WHEN ", {" THEN ", " ELSE "}, " END)", 3, false},
            {"ISNULL", "(", {nullptr, nullptr}, " IS NULL)", 1, false},
            {"LEFT", "substr(", {", 1, ", nullptr}, ")", 2, false},
            {"RIGHT", "jet_right(", {", ", nullptr}, ")", 2, false},
            {"FIRST", "jet_first(", {nullptr, nullptr}, ")", 1, true},
            {"LAST", "jet_last(", {nullptr, nullptr}, ")", 1, true},
            {"AVG", "avg(", {nullptr, nullptr}, ")", 1, true},
            {"SUM", "sum(", {nullptr, nullptr}, ")", 1, true},
            {"COUNT", "count(", {nullptr, nullptr}, ")", 1, true},
            {"MIN", "min(", {nullptr, nullptr}, ")", 1, true},
            {"MAX", "max(", {nullptr, nullptr}, ")", 1, true},
            {"FORMAT", "jet_format(", {", ", nullptr}, ")", -1, false},
            {"STR", "jet_str(", {nullptr, nullptr}, ")", 1, false},
            {"UCASE", "jet_ucase(", {nullptr, nullptr}, ")", 1, false},
            {"LCASE", "jet_lcase(", {nullptr, nullptr}, ")", 1, false},
            {"LEN", "length(", {nullptr, nullptr}, ")", 1, false},
            {"TRIM", "trim(", {nullptr, nullptr}, ")", 1, false},
            {"LTRIM", "ltrim(", {nullptr, nullptr}, ")", 1, false},
            {"RTRIM", "rtrim(", {nullptr, nullptr}, ")", 1, false},
            {"MID", "substr(", {", ", ", "}, ")", -1, false},
            {"INT", "jet_int(", {nullptr, nullptr}, ")", 1, false},
            {"VAL", "jet_val(", {nullptr, nullptr}, ")", 1, false},
            {"NOW", "jet_now(", {nullptr, nullptr}, ")", 0, false},
            {"DATE", "jet_date(", {nullptr, nullptr}, ")", 0, false},
            {"YEAR", "jet_year(", {nullptr, nullptr}, ")", 1, false},
            {"MONTH", "jet_month(", {nullptr, nullptr}, ")", 1, false},
            {"DAY", "jet_day(", {nullptr, nullptr}, ")", 1, false},
            {"CSTR", "jet_cstr(", {nullptr, nullptr}, ")", 1, false},
            {"CINT", "jet_cint(", {nullptr, nullptr}, ")", 1, false},
            {"CLNG", "jet_clng(", {nullptr, nullptr}, ")", 1, false},
            {"CDBL", "jet_cdbl(", {nullptr, nullptr}, ")", 1, false},
            {"CSNG", "jet_csng(", {nullptr, nullptr}, ")", 1, false},
            {"ABS", "abs(", {nullptr, nullptr}, ")", 1, false},
            {"ROUND", "jet_round(", {", ", nullptr}, ")", -1, false},
        };
        char up[16];
        if (!asciiUpper(fn, up, sizeof up))
            return nullptr;
        for (const Shape& s : shapes)
            if (std::strcmp(s.name, up) == 0)
                return &s;
        return nullptr;
    }

    Expr call()
    {
        const Token& fn = next();
        Expr e;
        e.start = out_.size();
        const Shape* shape = shapeOf(fn.text);
        if (shape) {
            out_ += QLatin1String(shape->open);
        } else {
            // Anything else goes to SQLite by its own name, which fails there if unknown.
            out_ += fn.text;
            out_ += u'(';
        }
        expectOp(u'(');
        int count = 0;
        if (!isOp(u')')) {
            do {
                if (count) {
                    const char* sep = shape && count <= 2 ? shape->separators[count - 1] : ", ";
                    out_ += QLatin1String(sep ? sep : ", ");
                }
                e.aggregate = expression().aggregate || e.aggregate;
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
};

} // namespace

Translation JetSql::translate(const QString& jet, Options options)
{
    Parser parser(jet);
    return parser.statement(options);
}

} // namespace db
