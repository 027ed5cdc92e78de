#include "db/Recordset.h"

#include "db/RecordsetInternal.h"
#include "db/SqlFunctions.h"
#include "vb/RuntimeError.h"
#include "vb/Values.h"
#include "vb/Vb.h"

#include <QSet>
#include <sqlite3.h>

#include <algorithm>

// The crosstab of TRANSFORM ... PIVOT: the grouped select gives one row per
// row heading and pivot value; the pivot values become columns here.

namespace db {

using namespace detail;

namespace {

// Heading of a pivot column: the value as text, "<>" for Null.
QString pivotHeading(const QVariant& v)
{
    if (v.isNull())
        return QStringLiteral("<>");
    return vb::holdsNumber(v, true) ? vb::CStr(v) : v.toString();
}

// Headings, and the row headings of a row, that differ only in case are one,
// as the grouping of the statement (the collation jet_nocase) made them: a
// group's text may come spelt differently in each of its cells.
QString sameGroup(const QString& heading)
{
    return heading.toCaseFolded();
}

} // namespace

void Recordset::fetchPivot(const Translation& t)
{
    sqlite3_stmt* stmt = cn_->Prepare(t.sql);
    const int heads = t.pivotRowHeads;
    const int n = sqlite3_column_count(stmt);
    if (n != heads + 2)
        throw RuntimeError(RuntimeError::DatabaseError, QStringLiteral("Consulta de referencias cruzadas no válida."));
    for (int i = 0; i < heads; ++i) {
        names_ << QString::fromUtf8(sqlite3_column_name(stmt, i));
        columns_ << Column{};
    }
    struct Cell {
        int row;
        QVariant pivot;
        QVariant value;
    };
    QVector<Cell> cells;
    QHash<QString, int> rowOf; // row headings -> row
    takeFunctionErrorNumber();
    rows_.reset(heads, 0);
    int rc;
    while ((rc = sqlite3_step(stmt)) == SQLITE_ROW) {
        QVector<QVariant> row;
        QString key;
        for (int i = 0; i < heads; ++i) {
            row << columnValue(stmt, i, ColumnType::Any);
            key += sameGroup(row.last().toString()) + QChar(0x1F) + (row.last().isNull() ? u'n' : u'v');
        }
        auto it = rowOf.constFind(key);
        int r;
        if (it == rowOf.constEnd()) {
            r = rows_.size();
            rowOf.insert(key, r);
            std::move(row.begin(), row.end(), rows_.append());
        } else {
            r = *it;
        }
        cells.push_back({r, columnValue(stmt, heads, ColumnType::Any), columnValue(stmt, heads + 1, ColumnType::Any)});
    }
    if (rc != SQLITE_DONE) {
        sqlite3_reset(stmt);
        rows_.reset(0, 0);
        cn_->Fail();
    }
    sqlite3_reset(stmt);

    // Column headings: the IN list as given, or every value found, ascending.
    QStringList headings = t.pivotIn;
    if (headings.isEmpty()) {
        QVector<QVariant> values;
        QSet<QString> known;
        for (const Cell& c : std::as_const(cells)) {
            const QString h = sameGroup(pivotHeading(c.pivot));
            if (!known.contains(h)) {
                known.insert(h);
                values << c.pivot;
            }
        }
        std::sort(values.begin(), values.end(), [](const QVariant& a, const QVariant& b) {
            if (a.isNull() != b.isNull())
                return a.isNull();
            return compareValues(a, b) < 0;
        });
        for (const QVariant& v : std::as_const(values))
            headings << pivotHeading(v);
    }
    QHash<QString, int> columnOf;
    for (const QString& h : std::as_const(headings)) {
        columnOf.insert(sameGroup(h), names_.size());
        names_ << h;
        columns_ << Column{};
    }
    rows_.widen(names_.size());
    for (const Cell& c : std::as_const(cells)) {
        auto it = columnOf.constFind(sameGroup(pivotHeading(c.pivot)));
        if (it != columnOf.constEnd())
            rows_.values(c.row)[*it] = c.value;
    }
    for (int i = 0; i < names_.size(); ++i)
        index_.insert(names_[i].toLower(), i);
}

} // namespace db
