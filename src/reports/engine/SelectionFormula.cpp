#include "reports/engine/SelectionFormula.h"

#include "reports/engine/ReportErrors.h"
#include "vb/RuntimeError.h"

#include <QList>

namespace reports {

namespace {

enum class Tok { Field, Text, Word, Number, Op, Open, Close, Comma, Other };

struct Token {
    Tok kind;
    QString text; // a field: "tbl.col"; a text: its value without quotes
};

[[noreturn]] void formulaError(const QString& formula, const QString& why)
{
    throw RuntimeError(FormulaError, QStringLiteral("Error en la fórmula de selección (%1): %2").arg(why, formula));
}

QList<Token> tokenize(const QString& f)
{
    QList<Token> tokens;
    int i = 0;
    const int n = f.size();
    while (i < n) {
        const QChar c = f[i];
        if (c.isSpace()) {
            ++i;
        } else if (c == u'{') {
            const int end = f.indexOf(u'}', i + 1);
            if (end < 0)
                formulaError(f, QStringLiteral("falta '}'"));
            tokens.append({Tok::Field, f.mid(i + 1, end - i - 1).trimmed()});
            i = end + 1;
        } else if (c == u'\'' || c == u'"') {
            // Either quote opens a text; the same quote doubled stands for itself.
            QString value;
            int j = i + 1;
            for (;;) {
                if (j >= n)
                    formulaError(f, QStringLiteral("texto sin cerrar"));
                if (f[j] == c) {
                    if (j + 1 < n && f[j + 1] == c) {
                        value += c;
                        j += 2;
                        continue;
                    }
                    break;
                }
                value += f[j++];
            }
            tokens.append({Tok::Text, value});
            i = j + 1;
        } else if (c.isDigit() || (c == u'.' && i + 1 < n && f[i + 1].isDigit())) {
            int j = i;
            while (j < n && (f[j].isDigit() || f[j] == u'.'))
                ++j;
            tokens.append({Tok::Number, f.mid(i, j - i)});
            i = j;
        } else if (c.isLetter() || c == u'_') {
            int j = i;
            while (j < n && (f[j].isLetterOrNumber() || f[j] == u'_'))
                ++j;
            tokens.append({Tok::Word, f.mid(i, j - i)});
            i = j;
        } else if (c == u'(') {
            tokens.append({Tok::Open, QStringLiteral("(")});
            ++i;
        } else if (c == u')') {
            tokens.append({Tok::Close, QStringLiteral(")")});
            ++i;
        } else if (c == u',') {
            tokens.append({Tok::Comma, QStringLiteral(",")});
            ++i;
        } else if (c == u'<' || c == u'>') {
            QString op(c);
            if (i + 1 < n && (f[i + 1] == u'=' || (c == u'<' && f[i + 1] == u'>')))
                op += f[++i];
            tokens.append({Tok::Op, op});
            ++i;
        } else if (QStringLiteral("=+-*/&^").contains(c)) {
            tokens.append({Tok::Op, QString(c)});
            ++i;
        } else {
            tokens.append({Tok::Other, QString(c)});
            ++i;
        }
    }
    return tokens;
}

QString quoted(const QString& value)
{
    QString out = QStringLiteral("'");
    for (const QChar c : value) {
        if (c == u'\'')
            out += u'\'';
        out += c;
    }
    return out + u'\'';
}

// The formula's wildcards in the dialect's LIKE: * any run, ? one character.
QString likePattern(const QString& pattern)
{
    QString out;
    out.reserve(pattern.size());
    for (const QChar c : pattern) {
        if (c == u'*')
            out += u'%';
        else if (c == u'?')
            out += u'_';
        else
            out += c;
    }
    return out;
}

bool isTextOperand(const Token* t, const TextColumnTest& isText)
{
    if (!t)
        return false;
    if (t->kind == Tok::Text)
        return true;
    if (t->kind == Tok::Field && isText) {
        const int dot = t->text.indexOf(u'.');
        if (dot > 0)
            return isText(t->text.left(dot), t->text.mid(dot + 1));
    }
    return false;
}

} // namespace

QString translateSelectionFormula(const QString& formula, const TextColumnTest& isText)
{
    const QList<Token> tokens = tokenize(formula);
    QString out;
    bool afterLike = false;
    for (int i = 0; i < tokens.size(); ++i) {
        const Token& t = tokens[i];
        QString piece;
        switch (t.kind) {
        case Tok::Field:
            if (t.text.isEmpty())
                formulaError(formula, QStringLiteral("campo vacío"));
            piece = t.text;
            break;
        case Tok::Text:
            piece = quoted(afterLike ? likePattern(t.text) : t.text);
            break;
        case Tok::Op:
            piece = t.text;
            if (t.text == QLatin1String("+")) {
                const Token* before = i > 0 ? &tokens[i - 1] : nullptr;
                const Token* after = i + 1 < tokens.size() ? &tokens[i + 1] : nullptr;
                if (isTextOperand(before, isText) || isTextOperand(after, isText))
                    piece = QStringLiteral("&");
            }
            break;
        default:
            piece = t.text;
            break;
        }
        afterLike = t.kind == Tok::Word && t.text.compare(QLatin1String("LIKE"), Qt::CaseInsensitive) == 0;
        if (!out.isEmpty() && t.kind != Tok::Close && t.kind != Tok::Comma && !out.endsWith(u'('))
            out += u' ';
        out += piece;
    }
    return out;
}

} // namespace reports
