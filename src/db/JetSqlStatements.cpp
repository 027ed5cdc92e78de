#include "db/JetSqlParser.h"

#include <QSet>

// Statements and their clauses: SELECT (with UNION), TRANSFORM ... PIVOT,
// INSERT, UPDATE and DELETE.

namespace db::jet {

void Select::assemble(QString& s, QStringView extraItems) const
{
    auto clause = [&s](const char* word, const QString& text) {
        if (!text.isEmpty()) {
            s += QLatin1String(word);
            s += text;
        }
    };
    s += QLatin1String("SELECT ");
    if (distinct && distinctGroups.isEmpty())
        s += QLatin1String("DISTINCT ");
    s += items;
    s += extraItems;
    clause(" FROM ", from);
    clause(" WHERE ", where);
    clause(" GROUP BY ", distinctGroups.isEmpty() ? groupBy : distinctGroups);
    clause(" HAVING ", having);
    s += unionTail;
    clause(" ORDER BY ", orderBy);
    clause(" LIMIT ", top);
}

Parser::Parser(const QString& text) : src_(text)
{
    tokenize(src_, toks_);
    out_.reserve(text.size() + text.size() / 2 + 64);
}

Translation Parser::statement(const JetSql::Options& options)
{
    isDateColumn_ = options.isDateColumn;
    tableDecl_ = options.tableDecl;
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

void Parser::expect(Kw kw, const char* word)
{
    if (!accept(kw))
        syntaxError(QStringLiteral("se esperaba %1").arg(QLatin1String(word)), peek().pos);
}

void Parser::expectOp(char16_t op)
{
    if (!acceptOp(op))
        syntaxError(QStringLiteral("se esperaba '%1'").arg(QChar(op)), peek().pos);
}

QStringView Parser::name()
{
    if (!atName())
        syntaxError(QStringLiteral("se esperaba un nombre"), peek().pos);
    return next().text;
}

QString Parser::take(qsizetype start)
{
    QString s = out_.mid(start);
    out_.truncate(start);
    return s;
}

// ---------------------------------------------------------------- SELECT

Translation Parser::query(const JetSql::Options& options)
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

Select Parser::select()
{
    const Nesting nesting(*this);
    // INSERT ... SELECT: the items of this select, not of its subqueries,
    // are written to the target columns.
    const Targets* targets = itemTargets_;
    itemTargets_ = nullptr;
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
    QVarLengthArray<bool, 16> textItems;
    do {
        if (s.itemCount)
            out_ += QLatin1String(", ");
        const Expr e = selectItem(s, targets && s.itemCount < targets->size() ? targets->at(s.itemCount) : nullptr);
        if (s.distinct)
            textItems.push_back(groupsAsText(e));
        ++s.itemCount;
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
            const bool text = groupsAsText(expression());
            const QString term = take(start);
            s.groupBy += term;
            if (text)
                s.groupBy += kGroupCollate;
            s.groupByCollated += term;
            s.groupByCollated += kCollate;
        } while (acceptOp(u','));
    }
    // DISTINCT compares each column by its own collation, which cannot be
    // given there: grouping by the item positions is the same with the
    // collation on the text ones. A row of the group stands for it.
    if (s.distinct && !s.star && !s.aggregate && s.groupBy.isEmpty()) {
        for (int i = 0; i < textItems.size(); ++i) {
            if (i)
                s.distinctGroups += QLatin1String(", ");
            s.distinctGroups += QString::number(i + 1);
            if (textItems[i])
                s.distinctGroups += kGroupCollate;
        }
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
void Parser::subquery()
{
    QString sub;
    select().assemble(sub);
    out_ += sub;
}

Expr Parser::selectItem(Select& s, const ColumnDecl* target)
{
    Expr e;
    e.start = out_.size();
    if (acceptOp(u'*')) {
        out_ += u'*';
        s.star = true;
        return e;
    }
    e = expression();
    if (e.columnRef && e.column.isEmpty())
        s.star = true; // t.*
    s.aggregate = s.aggregate || e.aggregate;
    fitToColumn(e, target);
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
    return e;
}

void Parser::orderItem()
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
bool Parser::dateColumn(const Expr& e) const
{
    if (!e.columnRef || e.qualifier.isEmpty() || e.column.isEmpty() || !isDateColumn_)
        return false;
    return isDateColumn_(e.qualifier.toString(), e.column.toString());
}

void Parser::fromList(TableRefs& tables)
{
    joinChain(tables);
    while (acceptOp(u',')) {
        out_ += QLatin1String(", ");
        joinChain(tables);
    }
}

void Parser::joinChain(TableRefs& tables)
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
void Parser::fromItem(TableRefs& tables, bool leftOperand)
{
    const Nesting nesting(*this);
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
        ++joinNesting_;
        joinChain(tables);
        --joinNesting_;
        expectOp(u')');
        out_ += u')';
        return;
    }
    TableRef tr;
    tr.nested = joinNesting_ > 0;
    tr.name = name();
    appendIdent(out_, tr.name);
    if (accept(Kw::As) || atName()) {
        tr.alias = name();
        out_ += u' ';
        appendIdent(out_, tr.alias);
    }
    tables.push_back(tr);
}

// ---------------------------------------------------------------- TRANSFORM ... PIVOT

Translation Parser::transform()
{
    expect(Kw::Transform, "TRANSFORM");
    expression();
    const QString value = take(0);
    if (accept(Kw::As))
        name(); // the value's own name is not a column of the result
    Select sel = select();
    expect(Kw::Pivot, "PIVOT");
    const bool textPivot = groupsAsText(expression());
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
    if (textPivot)
        sel.groupBy += kGroupCollate;
    sel.assemble(t.sql, QStringLiteral(", ") + pivot + QLatin1String(" AS \"__pivot\", ") + value +
                            QLatin1String(" AS \"__value\""));
    for (const TableRef& tr : sel.tables)
        t.baseTables << tr.name.toString();
    return t;
}

// ---------------------------------------------------------------- INSERT, UPDATE, DELETE

// `t.c` or `[t]![c]` on the left of SET or in a column list: the column alone.
QStringView Parser::targetColumn()
{
    QStringView col = name();
    while (acceptOp(u'.') || acceptOp(u'!'))
        col = name();
    appendIdent(out_, col);
    return col;
}

Translation Parser::insert()
{
    expect(Kw::Insert, "INSERT");
    expect(Kw::Into, "INTO");
    Translation t;
    const QStringView table = name();
    t.baseTables << table.toString();
    const TableDecl* decl = tableDecl_ ? tableDecl_(table) : nullptr;
    Targets targets; // the column each value goes to, when known
    out_ += QLatin1String("INSERT INTO ");
    appendIdent(out_, table);
    if (isOp(u'(') && !is(Kw::Select, 1)) {
        ++p_;
        out_ += QLatin1String(" (");
        do {
            if (out_.back() != u'(')
                out_ += QLatin1String(", ");
            const QStringView column = targetColumn();
            targets.push_back(decl ? decl->column(column) : nullptr);
        } while (acceptOp(u','));
        expectOp(u')');
        out_ += u')';
    } else if (decl) {
        for (const ColumnDecl& c : decl->columns)
            targets.push_back(&c);
    }
    if (accept(Kw::Values)) {
        expectOp(u'(');
        out_ += QLatin1String(" VALUES (");
        int k = 0;
        do {
            if (out_.back() != u'(')
                out_ += QLatin1String(", ");
            fitToColumn(expression(), k < targets.size() ? targets[k] : nullptr);
            ++k;
        } while (acceptOp(u','));
        expectOp(u')');
        out_ += u')';
    } else if (is(Kw::Select)) {
        out_ += u' ';
        itemTargets_ = &targets;
        subquery();
        itemTargets_ = nullptr;
    } else {
        syntaxError(QStringLiteral("se esperaba VALUES o SELECT"), peek().pos);
    }
    t.sql = take(0);
    return t;
}

Translation Parser::update()
{
    expect(Kw::Update, "UPDATE");
    Translation t;
    const QStringView table = name();
    t.baseTables << table.toString();
    if (!accept(Kw::Set))
        syntaxError(QStringLiteral("UPDATE de varias tablas no admitido"), peek().pos);
    const TableDecl* decl = tableDecl_ ? tableDecl_(table) : nullptr;
    out_ += QLatin1String("UPDATE ");
    appendIdent(out_, table);
    out_ += QLatin1String(" SET ");
    bool first = true;
    do {
        if (!first)
            out_ += QLatin1String(", ");
        first = false;
        const QStringView column = targetColumn();
        expectOp(u'=');
        out_ += QLatin1String(" = ");
        fitToColumn(expression(), decl ? decl->column(column) : nullptr);
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
Translation Parser::remove()
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

} // namespace db::jet

namespace db {

Translation JetSql::translate(const QString& jet, Options options)
{
    jet::Parser parser(jet);
    return parser.statement(options);
}

} // namespace db
