#include "db/JetSqlParser.h"

#include <QDate>
#include <QDateTime>

#include <cmath>
#include <cstdio>

// What the parser knows of the columns a statement names: their declared
// types (from JetSql::Options::tableDecl), by which values written to them
// are fitted, grouping terms are told apart and date arithmetic is found.

namespace db::jet {

namespace {

// A quoted date of the forms a date column holds ('2024-10-15', what a
// #2024/10/15# literal becomes), which needs no conversion.
bool isIsoDateLiteral(QStringView emitted)
{
    if (emitted.size() < 2 || emitted.front() != u'\'' || emitted.back() != u'\'')
        return false;
    const QStringView text = emitted.mid(1, emitted.size() - 2);
    if (text.size() == 10)
        return QDate::fromString(text.toString(), Qt::ISODate).isValid();
    if (text.size() == 19 && text[10] == u' ')
        return QDateTime::fromString(text.toString(), QStringLiteral("yyyy-MM-dd HH:mm:ss")).isValid();
    return false;
}

} // namespace

Parser::Nesting::Nesting(Parser& p) : p_(p)
{
    if (++p_.depth_ > JetSql::kMaxNesting)
        syntaxError(QStringLiteral("anidamiento demasiado profundo"), p_.peek().pos);
}

// Every name after FROM, JOIN, UPDATE, INTO, "(" or "," that is a table of
// the schema, with the alias that follows it. Found once, over all the
// tokens, so that a column of a select item is known before its FROM.
void Parser::findMentions()
{
    mentionsFound_ = true;
    if (!tableDecl_)
        return;
    auto isName = [](const Token& t) { return t.type == Tok::Bracket || (t.type == Tok::Ident && t.kw == Kw::None); };
    auto isOpText = [](const Token& t, char16_t c) {
        return t.type == Tok::Op && t.text.size() == 1 && t.text[0] == c;
    };
    for (int i = 1; i + 1 < toks_.size(); ++i) {
        const Token& t = toks_[i];
        if (!isName(t))
            continue;
        const Token& before = toks_[i - 1];
        if (!(before.kw == Kw::From || before.kw == Kw::Join || before.kw == Kw::Update || before.kw == Kw::Into ||
              isOpText(before, u'(') || isOpText(before, u',')))
            continue;
        const Token& after = toks_[i + 1];
        if (isOpText(after, u'.') || isOpText(after, u'!') || isOpText(after, u'('))
            continue;
        const TableDecl* decl = tableDecl_(t.text);
        if (!decl)
            continue;
        TableMention m;
        m.name = t.text;
        m.decl = decl;
        const int a = after.kw == Kw::As ? i + 2 : i + 1;
        if (a < toks_.size() && isName(toks_[a]))
            m.alias = toks_[a].text;
        mentions_.push_back(m);
    }
}

const ColumnDecl* Parser::columnDecl(QStringView qualifier, QStringView column)
{
    if (!tableDecl_ || column.isEmpty())
        return nullptr;
    if (!mentionsFound_)
        findMentions();
    if (qualifier.isEmpty()) {
        for (const TableMention& m : std::as_const(mentions_))
            if (const ColumnDecl* c = m.decl->column(column))
                return c;
        return nullptr;
    }
    for (const TableMention& m : std::as_const(mentions_))
        if (!m.alias.isEmpty() && m.alias.compare(qualifier, Qt::CaseInsensitive) == 0)
            return m.decl->column(column);
    for (const TableMention& m : std::as_const(mentions_))
        if (m.name.compare(qualifier, Qt::CaseInsensitive) == 0)
            return m.decl->column(column);
    const TableDecl* t = tableDecl_(qualifier);
    return t ? t->column(column) : nullptr;
}

Kind Parser::kindOf(const Expr& e)
{
    if (!e.ofColumn)
        return e.kind;
    if (tableDecl_) {
        const ColumnDecl* c = columnDecl(e.qualifier, e.column);
        if (!c)
            return Kind::Unknown;
        switch (c->type) {
        case ColumnType::Text:
            return Kind::Text;
        case ColumnType::Date:
            return Kind::Date;
        case ColumnType::Any:
            return Kind::Unknown;
        default:
            return Kind::Number;
        }
    }
    if (!e.qualifier.isEmpty() && !e.column.isEmpty() && isDateColumn_ &&
        isDateColumn_(e.qualifier.toString(), e.column.toString()))
        return Kind::Date;
    return Kind::Unknown;
}

// The checks run where the value is computed, in the statement, so that a
// value that does not fit fails the whole statement and nothing is written;
// the schema itself stays plain SQLite.
// A literal that plainly fits goes as it is.
void Parser::fitToColumn(const Expr& e, const ColumnDecl* column)
{
    if (!column)
        return;
    const qsizetype start = e.start;
    const QStringView emitted = QStringView(out_).mid(start);
    if (column->size > 0 && e.stringLiteral && emitted.size() - 2 <= column->size)
        return; // the quotes, and any quote inside doubled, count here
    if (column->hasRange() && e.numberLiteral) {
        bool ok = false;
        const double v = std::nearbyint(emitted.toDouble(&ok));
        if (ok && v >= double(column->min) && v <= double(column->max))
            return;
    }
    const char* check = nullptr;
    char tail[64] = ")";
    switch (column->type) {
    case ColumnType::Single:
        check = "jet_single(";
        break;
    case ColumnType::Double:
        if (!e.numberLiteral)
            check = "jet_number(";
        break;
    case ColumnType::Boolean:
        if (emitted != u"0" && emitted != u"1")
            check = "jet_bool(";
        break;
    case ColumnType::Date:
        if (!isIsoDateLiteral(emitted))
            check = "jet_date(";
        break;
    case ColumnType::Text:
        if (column->size > 0) {
            check = "jet_check_text(";
            std::snprintf(tail, sizeof tail, ", %d)", column->size);
        }
        break;
    case ColumnType::Integer:
        if (column->hasRange()) {
            check = "jet_check_range(";
            std::snprintf(tail, sizeof tail, ", %lld, %lld)", static_cast<long long>(column->min),
                          static_cast<long long>(column->max));
        }
        break;
    case ColumnType::Any:
        break;
    }
    if (!check)
        return;
    out_.insert(start, QLatin1String(check));
    out_ += QLatin1String(tail);
}

} // namespace db::jet
