#include "db/JetSqlLexer.h"

#include "vb/RuntimeError.h"

#include <QStringList>

#include <string_view>

namespace db::jet {
namespace {

// ---------------------------------------------------------------- keywords

struct KeywordName {
    std::string_view text;
    Kw kw;
};

constexpr KeywordName kKeywords[] = {
    {"SELECT", Kw::Select},
    {"FROM", Kw::From},
    {"WHERE", Kw::Where},
    {"GROUP", Kw::Group},
    {"BY", Kw::By},
    {"HAVING", Kw::Having},
    {"ORDER", Kw::Order},
    {"ASC", Kw::Asc},
    {"DESC", Kw::Desc},
    {"AS", Kw::As},
    {"INNER", Kw::Inner},
    {"LEFT", Kw::Left},
    {"RIGHT", Kw::Right},
    {"OUTER", Kw::Outer},
    {"JOIN", Kw::Join},
    {"ON", Kw::On},
    {"AND", Kw::And},
    {"OR", Kw::Or},
    {"NOT", Kw::Not},
    {"LIKE", Kw::Like},
    {"BETWEEN", Kw::Between},
    {"IS", Kw::Is},
    {"IN", Kw::In},
    {"UNION", Kw::Union},
    {"PIVOT", Kw::Pivot},
    {"TRANSFORM", Kw::Transform},
    {"SET", Kw::Set},
    {"VALUES", Kw::Values},
    {"INTO", Kw::Into},
    {"MOD", Kw::Mod},
    {"XOR", Kw::Xor},
    {"DISTINCT", Kw::Distinct},
    {"DISTINCTROW", Kw::DistinctRow},
    {"TOP", Kw::Top},
    {"ALL", Kw::All},
    {"INSERT", Kw::Insert},
    {"UPDATE", Kw::Update},
    {"DELETE", Kw::Delete},
    {"TRUE", Kw::True},
    {"FALSE", Kw::False},
    {"YES", Kw::Yes},
    {"NO", Kw::No},
    {"NULL", Kw::Null},
};

bool isAsciiLetter(char16_t c)
{
    return (c >= u'a' && c <= u'z') || (c >= u'A' && c <= u'Z') || c == u'_';
}
bool isIdentStart(QChar c)
{
    return c.unicode() < 0x80 ? isAsciiLetter(c.unicode()) : c.isLetter();
}
bool isIdentPart(QChar c)
{
    const char16_t u = c.unicode();
    return u < 0x80 ? isAsciiLetter(u) || (u >= u'0' && u <= u'9') : c.isLetterOrNumber();
}

} // namespace

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

[[noreturn]] void syntaxError(const QString& what, int pos)
{
    throw RuntimeError(
        RuntimeError::DatabaseError,
        QStringLiteral("Error de sintaxis en la instrucción SQL (%1, posición %2).").arg(what).arg(pos + 1));
}

void tokenize(QStringView s, Tokens& out)
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

} // namespace db::jet
