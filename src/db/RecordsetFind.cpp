#include "db/Recordset.h"

#include "db/RecordsetInternal.h"
#include "db/SqlFunctions.h"
#include "vb/RuntimeError.h"
#include "vb/Values.h"
#include "vb/Vb.h"

#include <QDate>
#include <QDateTime>

// Find: one criterion, "Col = 5", "Col = 'text'", "Col LIKE 'a*'", tested on
// the rows in memory from the current one on.

namespace db {

using namespace detail;

namespace {

// One test of a Find: a column, an operator and a literal.
struct Criterion {
    QString column;
    QString op;
    QVariant literal;
};

Criterion parseCriterion(const QString& text)
{
    Criterion c;
    const QString s = text.trimmed();
    int i = 0;
    if (s.startsWith(u'[')) {
        const int end = s.indexOf(u']');
        if (end < 0)
            badArgument(text);
        c.column = s.mid(1, end - 1);
        i = end + 1;
    } else {
        while (i < s.size() && (s[i].isLetterOrNumber() || s[i] == u'_' || s[i] == u'.'))
            ++i;
        c.column = s.left(i);
        if (c.column.contains(u'.'))
            c.column = c.column.section(u'.', -1);
    }
    while (i < s.size() && s[i].isSpace())
        ++i;
    static const char* ops[] = {"<>", "<=", ">=", "=", "<", ">"};
    for (const char* op : ops) {
        if (QStringView(s).mid(i).startsWith(QLatin1String(op))) {
            c.op = QLatin1String(op);
            break;
        }
    }
    if (c.op.isEmpty() && QStringView(s).mid(i).startsWith(QLatin1String("LIKE"), Qt::CaseInsensitive))
        c.op = QStringLiteral("LIKE");
    if (c.column.isEmpty() || c.op.isEmpty())
        badArgument(text);
    const QString value = s.mid(i + c.op.size()).trimmed();
    if (value.size() >= 2 && (value.startsWith(u'\'') || value.startsWith(u'"')) && value.endsWith(value[0])) {
        const QString inner = value.mid(1, value.size() - 2);
        if (inner.contains(value[0]))
            badArgument(text); // an unescaped quote inside the text
        c.literal = inner;
    } else if (value.size() >= 2 && value.startsWith(u'#') && value.endsWith(u'#')) {
        c.literal = vb::CDate(value.mid(1, value.size() - 2).replace(u'-', u'/'));
    } else if (value.compare(QLatin1String("Null"), Qt::CaseInsensitive) == 0) {
        c.literal = QVariant();
    } else {
        bool ok = false;
        const double d = value.toDouble(&ok);
        if (!ok)
            badArgument(text);
        c.literal = d;
    }
    return c;
}

bool matches(const QVariant& value, const Criterion& c)
{
    if (value.isNull() || !c.literal.isValid())
        return c.op == QLatin1String("=") && value.isNull() && !c.literal.isValid();
    if (c.op == QLatin1String("LIKE")) {
        QString pattern = c.literal.toString();
        pattern.replace(u'*', u'%').replace(u'?', u'_');
        return jetLike(pattern, vb::holdsNumber(value, true) ? vb::CStr(value) : value.toString());
    }
    const int r = compareValues(value, c.literal);
    if (c.op == QLatin1String("="))
        return r == 0;
    if (c.op == QLatin1String("<>"))
        return r != 0;
    if (c.op == QLatin1String("<"))
        return r < 0;
    if (c.op == QLatin1String(">"))
        return r > 0;
    if (c.op == QLatin1String("<="))
        return r <= 0;
    return r >= 0;
}

} // namespace

namespace detail {

int compareValues(const QVariant& a, const QVariant& b)
{
    if (vb::holdsNumber(a, true) && vb::holdsNumber(b, true)) {
        const double x = a.toDouble(), y = b.toDouble();
        return x < y ? -1 : x > y ? 1 : 0;
    }
    if (a.typeId() == QMetaType::QDate && b.typeId() == QMetaType::QDate)
        return a.toDate() < b.toDate() ? -1 : a.toDate() > b.toDate() ? 1 : 0;
    if (a.typeId() == QMetaType::QDateTime || b.typeId() == QMetaType::QDateTime) {
        const QDateTime x = a.toDateTime(), y = b.toDateTime();
        return x < y ? -1 : x > y ? 1 : 0;
    }
    return compareSpanish(vb::holdsNumber(a, true) ? vb::CStr(a) : a.toString(),
                          vb::holdsNumber(b, true) ? vb::CStr(b) : b.toString());
}

} // namespace detail

void Recordset::Find(const QString& criteria)
{
    requireOpen();
    const Criterion c = parseCriterion(criteria);
    const int col = columnIndex(c.column);
    saveIfEdited();
    int start = pos_ < 0 ? 0 : pos_;
    onDeleted_ = false;
    for (int r = start; r < rows_.size(); ++r) {
        if (matches(rows_.values(r)[col], c)) {
            pos_ = r;
            return;
        }
    }
    pos_ = rows_.size();
}

} // namespace db
