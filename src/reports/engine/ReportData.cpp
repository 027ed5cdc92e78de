#include "reports/engine/ReportData.h"

#include "db/Recordset.h"
#include "reports/engine/ReportErrors.h"
#include "vb/RuntimeError.h"
#include "vb/Values.h"
#include "vb/Vb.h"

#include <QDateTime>
#include <QRegularExpression>
#include <QTime>
#include <QVector>

#include <mstch/mstch.hpp>

namespace reports {

namespace {

constexpr double kPassMark = 5.0;

std::string s(const QString& text)
{
    return text.toStdString();
}

// A text that holds a number: "7.5" as the staging tables write it, or "7,5".
std::optional<double> numberInText(const QString& text)
{
    static const QRegularExpression re(QStringLiteral("^\\s*-?\\d+(?:[.,]\\d+)?\\s*$"));
    if (!re.match(text).hasMatch())
        return std::nullopt;
    bool ok = false;
    const double x = QString(text).replace(u',', u'.').trimmed().toDouble(&ok);
    return ok ? std::optional<double>(x) : std::nullopt;
}

// The value as a number for the numeric formats: a Single keeps its own
// digits; a text with a number counts as that number.
std::optional<QVariant> numeric(const QVariant& v)
{
    if (!v.isValid())
        return std::nullopt;
    if (v.typeId() == QMetaType::Bool)
        return QVariant(v.toBool() ? -1 : 0);
    if (vb::holdsNumber(v))
        return v;
    if (v.typeId() == QMetaType::QString) {
        if (const auto x = numberInText(v.toString()))
            return QVariant(*x);
    }
    return std::nullopt;
}

QString formatDecimals(const QVariant& number, bool fixed)
{
    QString text = vb::Format(number, fixed ? QStringLiteral("0.00") : QStringLiteral("0.##"));
    if (text.endsWith(u','))
        text.chop(1);
    return text;
}

QString formatDate(const QVariant& v)
{
    switch (v.typeId()) {
    case QMetaType::QDate:
        return v.toDate().toString(QStringLiteral("dd/MM/yyyy"));
    case QMetaType::QDateTime: {
        const QDateTime dt = v.toDateTime();
        return dt.time() == QTime(0, 0) ? dt.date().toString(QStringLiteral("dd/MM/yyyy"))
                                        : dt.toString(QStringLiteral("dd/MM/yyyy HH:mm"));
    }
    case QMetaType::QTime:
        return v.toTime().toString(QStringLiteral("HH:mm"));
    default: {
        const QDate d = QDate::fromString(v.toString().left(10), Qt::ISODate);
        return d.isValid() ? d.toString(QStringLiteral("dd/MM/yyyy")) : v.toString();
    }
    }
}

// ---------------------------------------------------------------- data sets

struct DataSet {
    QStringList fields;
    QHash<QString, int> index; // lower-case field name -> column
    QVector<QVector<QVariant>> rows;

    int column(const QString& field) const { return index.value(field.toLower(), -1); }
    QVariant value(int row, const QString& field) const
    {
        const int c = column(field);
        return c < 0 ? QVariant() : rows[row][c];
    }
};

DataSet readSet(const QString& sql, const db::ConnectionPtr& cn)
{
    db::Recordset rs;
    rs.Open(sql, cn);
    DataSet set;
    const int n = rs.FieldCount();
    for (int c = 0; c < n; ++c) {
        set.fields.append(rs.FieldName(c));
        set.index.insert(rs.FieldName(c).toLower(), c);
    }
    set.rows.reserve(rs.RecordCount());
    if (rs.RecordCount() > 0)
        rs.MoveFirst();
    while (!rs.Eof()) {
        QVector<QVariant> row(n);
        for (int c = 0; c < n; ++c)
            row[c] = rs.Value(c);
        set.rows.append(std::move(row));
        rs.MoveNext();
    }
    return set;
}

QString keyText(const QVariant& v)
{
    return v.isValid() ? v.toString() : QString();
}

// Count, failures and mean of the marks of one field over some rows.
struct MarkStats {
    int count = 0;
    int fails = 0;
    double sum = 0;

    void add(const QVariant& v)
    {
        const auto x = markValue(v);
        if (!x)
            return;
        ++count;
        sum += *x;
        if (markClass(v) == QLatin1String("fail"))
            ++fails;
    }
    void put(mstch::map& node, const QString& prefix) const
    {
        node[s(prefix + QStringLiteral("_count"))] = count;
        node[s(prefix + QStringLiteral("_fails"))] = fails;
        node[s(prefix + QStringLiteral("_passes"))] = count - fails;
        const QVariant mean = count ? QVariant(sum / count) : QVariant();
        node[s(prefix + QStringLiteral("_mean"))] = s(formatField(mean, FieldFormat::Mark));
        node[s(prefix + QStringLiteral("_mean_class"))] = s(markClass(mean));
    }
};

void putPosition(mstch::map& node, int position, int count)
{
    node["_index"] = position + 1;
    node["_first"] = position == 0;
    node["_last"] = position == count - 1;
    node["_stripe"] = std::string(position % 2 ? "stripe" : "");
}

} // namespace

// ---------------------------------------------------------------- formatting

QString formatField(const QVariant& value, FieldFormat format)
{
    if (!value.isValid())
        return QString();
    switch (format) {
    case FieldFormat::Text:
        return value.toString();
    case FieldFormat::Mark:
    case FieldFormat::Number:
    case FieldFormat::Decimal:
    case FieldFormat::Integer: {
        const auto n = numeric(value);
        if (!n)
            return value.toString();
        if (format == FieldFormat::Integer)
            return vb::Format(*n, QStringLiteral("0"));
        return formatDecimals(*n, format != FieldFormat::Number);
    }
    case FieldFormat::Date:
        return formatDate(value);
    case FieldFormat::YesNo: {
        if (value.typeId() == QMetaType::QString && value.toString().isEmpty())
            return QString();
        const auto n = numeric(value);
        const bool yes = n ? n->toDouble() != 0 : !value.toString().isEmpty();
        return yes ? QStringLiteral("Sí") : QStringLiteral("No");
    }
    case FieldFormat::Auto:
        break;
    }
    switch (value.typeId()) {
    case QMetaType::Bool:
        return value.toBool() ? QStringLiteral("Sí") : QStringLiteral("No");
    case QMetaType::Double:
    case QMetaType::Float:
        return formatDecimals(value, false);
    case QMetaType::QDate:
    case QMetaType::QDateTime:
    case QMetaType::QTime:
        return formatDate(value);
    default:
        return value.toString();
    }
}

std::optional<double> markValue(const QVariant& value)
{
    const auto n = numeric(value);
    if (!n || value.typeId() == QMetaType::Bool)
        return std::nullopt;
    return n->toDouble();
}

QString markClass(const QVariant& value)
{
    if (!markValue(value))
        return QString();
    // Judged on the mark as printed, so that a "5,00" is never shown as failed.
    const double shown = formatField(value, FieldFormat::Mark).replace(u',', u'.').toDouble();
    return shown < kPassMark ? QStringLiteral("fail") : QStringLiteral("pass");
}

// ---------------------------------------------------------------- shaping

struct ReportData::Impl {
    const ReportDefinition& def;
    DataSet main;
    QHash<QString, DataSet> sets; // named data sets
    // For each nesting, the child rows by the text of their link value.
    QHash<QString, QHash<QString, QVector<int>>> childIndex;
    mstch::map context;
    int rowCount = 0;

    explicit Impl(const ReportDefinition& d) : def(d) {}

    const DataSet& set(const QString& name) const
    {
        if (name == QLatin1String("rows"))
            return main;
        const auto it = sets.constFind(name);
        Q_ASSERT(it != sets.cend());
        return *it;
    }

    mstch::map fieldsNode(const DataSet& ds, int r) const
    {
        mstch::map node;
        for (int c = 0; c < ds.fields.size(); ++c) {
            const QString& name = ds.fields[c];
            const QVariant& v = ds.rows[r][c];
            const FieldFormat f = def.format(name);
            node[s(name)] = s(formatField(v, f));
            if (f == FieldFormat::Mark)
                node[s(name + QStringLiteral("_class"))] = s(markClass(v));
        }
        return node;
    }

    // Hangs under `node` the child sets whose parent is `parent`, by the
    // link value that row `r` of `ds` holds.
    void addChildren(mstch::map& node, const QString& parent, const DataSet& ds, int r) const
    {
        for (const Nesting& n : def.nestings) {
            if (n.parent != parent)
                continue;
            const QVector<int> rows = childIndex[n.child].value(keyText(ds.value(r, n.parentField)));
            node[s(n.child)] = list(n.child, rows);
        }
    }

    mstch::array list(const QString& name, const QVector<int>& rows) const
    {
        const DataSet& ds = set(name);
        mstch::array items;
        items.reserve(rows.size());
        for (int i = 0; i < rows.size(); ++i) {
            mstch::map node = fieldsNode(ds, rows[i]);
            putPosition(node, i, rows.size());
            addChildren(node, name, ds, rows[i]);
            items.push_back(std::move(node));
        }
        return items;
    }

    void putStats(mstch::map& node, const DataSet& ds, const QVector<int>& rows) const
    {
        for (int c = 0; c < ds.fields.size(); ++c) {
            if (def.format(ds.fields[c]) != FieldFormat::Mark)
                continue;
            MarkStats stats;
            for (const int r : rows)
                stats.add(ds.rows[r][c]);
            stats.put(node, ds.fields[c]);
        }
    }

    void buildIndexes()
    {
        for (const Nesting& n : def.nestings) {
            const DataSet& child = set(n.child);
            QHash<QString, QVector<int>>& index = childIndex[n.child];
            const int c = child.column(n.childField);
            for (int r = 0; r < child.rows.size(); ++r)
                index[keyText(c < 0 ? QVariant() : child.rows[r][c])].append(r);
        }
    }

    void buildGroups(const QVector<int>& all)
    {
        // Consecutive rows with the same values of the group fields.
        QVector<QVector<int>> groups;
        QString previous;
        for (const int r : all) {
            QString key;
            for (const QString& f : def.group)
                key += keyText(main.value(r, f)) + QChar(0x1f);
            if (groups.isEmpty() || key != previous)
                groups.append(QVector<int>());
            groups.last().append(r);
            previous = key;
        }
        mstch::array items;
        for (int g = 0; g < groups.size(); ++g) {
            const QVector<int>& rows = groups[g];
            mstch::map node = fieldsNode(main, rows.first());
            putPosition(node, g, groups.size());
            node["rows"] = list(QStringLiteral("rows"), rows);
            node["count"] = int(rows.size());
            putStats(node, main, rows);
            addChildren(node, QStringLiteral("groups"), main, rows.first());
            items.push_back(std::move(node));
        }
        context["groups"] = std::move(items);
        context["groupCount"] = int(groups.size());
    }

    void buildPivot()
    {
        const Pivot& p = def.pivot;
        // Columns: the headings set in its order, or the values met in the data.
        QStringList columnKeys;
        QVector<mstch::map> headingNodes;
        if (!p.headings.isEmpty()) {
            const DataSet& h = set(p.headings);
            for (int r = 0; r < h.rows.size(); ++r) {
                columnKeys.append(keyText(h.value(r, p.columns)));
                headingNodes.append(fieldsNode(h, r));
            }
        } else {
            for (int r = 0; r < main.rows.size(); ++r) {
                const QString k = keyText(main.value(r, p.columns));
                if (!columnKeys.contains(k)) {
                    columnKeys.append(k);
                    headingNodes.append(fieldsNode(main, r));
                }
            }
        }
        QStringList rowKeys;
        QHash<QString, int> firstRow;
        QHash<QString, QVariant> cells; // row key, column key -> value
        for (int r = 0; r < main.rows.size(); ++r) {
            const QString rk = keyText(main.value(r, p.rows));
            if (!firstRow.contains(rk)) {
                firstRow.insert(rk, r);
                rowKeys.append(rk);
            }
            const QString ck = rk + QChar(0x1f) + keyText(main.value(r, p.columns));
            if (!cells.contains(ck)) // the first value of a cell, as a cross table keeps it
                cells.insert(ck, main.value(r, p.value));
        }
        const FieldFormat valueFormat = def.format(p.value);
        QVector<MarkStats> columnStats(columnKeys.size());
        mstch::array rows;
        for (int i = 0; i < rowKeys.size(); ++i) {
            mstch::map node = fieldsNode(main, firstRow[rowKeys[i]]);
            putPosition(node, i, rowKeys.size());
            MarkStats rowStats;
            mstch::array cellNodes;
            for (int c = 0; c < columnKeys.size(); ++c) {
                const QVariant v = cells.value(rowKeys[i] + QChar(0x1f) + columnKeys[c]);
                rowStats.add(v);
                columnStats[c].add(v);
                mstch::map cell;
                cell["text"] = s(formatField(v, valueFormat));
                cell["class"] = s(markClass(v));
                cell["empty"] = !v.isValid();
                cellNodes.push_back(std::move(cell));
            }
            node["cells"] = std::move(cellNodes);
            rowStats.put(node, QString());
            addChildren(node, QStringLiteral("rows"), main, firstRow[rowKeys[i]]);
            rows.push_back(std::move(node));
        }
        mstch::array headings;
        for (int c = 0; c < columnKeys.size(); ++c) {
            mstch::map node = headingNodes[c];
            putPosition(node, c, columnKeys.size());
            columnStats[c].put(node, QString());
            headings.push_back(std::move(node));
        }
        rowCount = rowKeys.size();
        context["rows"] = std::move(rows);
        context["headings"] = std::move(headings);
        context["columns"] = int(columnKeys.size());
        if (!rowKeys.isEmpty())
            context["first"] = fieldsNode(main, firstRow[rowKeys.first()]);
    }

    void build()
    {
        buildIndexes();
        QVector<int> all(main.rows.size());
        for (int r = 0; r < all.size(); ++r)
            all[r] = r;
        rowCount = all.size();
        if (def.pivot.isSet()) {
            buildPivot();
        } else {
            context["rows"] = list(QStringLiteral("rows"), all);
            if (!all.isEmpty())
                context["first"] = fieldsNode(main, 0);
            if (!def.group.isEmpty())
                buildGroups(all);
        }
        putStats(context, main, all);
        for (const NamedQuery& q : def.queries) {
            const DataSet& ds = set(q.name);
            QVector<int> rows(ds.rows.size());
            for (int r = 0; r < rows.size(); ++r)
                rows[r] = r;
            context[s(q.name)] = list(q.name, rows);
        }
        context["count"] = rowCount;
        context["empty"] = rowCount == 0;
        if (!context.count("first"))
            context["first"] = false;
    }
};

ReportData::ReportData(const ReportDefinition& def, const db::ConnectionPtr& cn, const QString& selection,
                       const QHash<QString, QString>& parameters, const QString& title, const QDate& printed)
    : d(std::make_unique<Impl>(def))
{
    d->main = readSet(def.statement(selection), cn);
    for (const NamedQuery& q : def.queries)
        d->sets.insert(q.name, readSet(q.sql, cn));
    for (const QString& name : def.parameters)
        d->context[s(name)] = s(parameters.value(name));
    d->context["titulo"] = s(title);
    d->context["fecha"] = s(printed.toString(QStringLiteral("dd/MM/yyyy")));
    d->build();
}

ReportData::~ReportData() = default;

int ReportData::rowCount() const
{
    return d->rowCount;
}

QString ReportData::render(const QString& mustache) const
{
    try {
        return QString::fromStdString(mstch::render(s(mustache), d->context));
    } catch (const std::exception& e) {
        throw RuntimeError(InvalidFile, QStringLiteral("La plantilla del reporte %1.rpt no es válida: %2")
                                            .arg(d->def.name, QString::fromUtf8(e.what())));
    }
}

} // namespace reports
