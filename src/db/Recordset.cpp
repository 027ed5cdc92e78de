#include "db/Recordset.h"

#include "db/SqlFunctions.h"
#include "vb/RuntimeError.h"
#include "vb/Vb.h"

#include <QDate>
#include <QDateTime>
#include <QSet>
#include <QTime>
#include <sqlite3.h>

#include <algorithm>

namespace db {
namespace {

[[noreturn]] void noCurrentRecord()
{
    throw RuntimeError(RuntimeError::NoCurrentRecord,
                       QStringLiteral("BOF o EOF es True, o el registro actual se eliminó. La operación solicitada "
                                      "requiere un registro actual."));
}

[[noreturn]] void badArgument(const QString& detail = QString())
{
    QString msg = QStringLiteral("Los argumentos son de tipo incorrecto, están fuera del intervalo aceptable o están "
                                 "en conflicto unos con otros.");
    if (!detail.isEmpty())
        msg += u' ' + detail;
    throw RuntimeError(RuntimeError::BadArguments, msg);
}

[[noreturn]] void closedRecordset()
{
    throw RuntimeError(RuntimeError::ObjectClosed,
                       QStringLiteral("No se permite realizar la operación si el objeto está cerrado."));
}

[[noreturn]] void readOnlyField(const QString& name)
{
    throw RuntimeError(RuntimeError::DatabaseError,
                       QStringLiteral("No se puede actualizar el campo '%1': no pertenece a una tabla.").arg(name));
}

bool isNumber(const QVariant& v)
{
    switch (v.typeId()) {
    case QMetaType::Int:
    case QMetaType::LongLong:
    case QMetaType::Double:
    case QMetaType::Float:
    case QMetaType::Bool:
    case QMetaType::UInt:
    case QMetaType::ULongLong:
        return true;
    default:
        return false;
    }
}

// A value given to a field becomes what the column holds.
QVariant coerce(const QVariant& v, ColumnType type)
{
    if (!v.isValid() || v.isNull())
        return QVariant();
    switch (type) {
    case ColumnType::Boolean:
        if (v.typeId() == QMetaType::Bool)
            return v;
        return QVariant(vb::CDbl(v) != 0.0);
    case ColumnType::Single:
        return QVariant(vb::CSng(v));
    case ColumnType::Double:
        return QVariant(vb::CDbl(v));
    case ColumnType::Integer:
        if (v.typeId() == QMetaType::LongLong)
            return v;
        return QVariant(vb::CLng(v));
    case ColumnType::Date:
        if (v.typeId() == QMetaType::QDate || v.typeId() == QMetaType::QDateTime || v.typeId() == QMetaType::QTime)
            return v;
        return vb::CDate(v);
    case ColumnType::Text:
        if (v.typeId() == QMetaType::QString)
            return v;
        return vb::CStr(v);
    case ColumnType::Any:
        break;
    }
    return v;
}

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

int compareValues(const QVariant& a, const QVariant& b)
{
    if (isNumber(a) && isNumber(b)) {
        const double x = a.toDouble(), y = b.toDouble();
        return x < y ? -1 : x > y ? 1 : 0;
    }
    if (a.typeId() == QMetaType::QDate && b.typeId() == QMetaType::QDate)
        return a.toDate() < b.toDate() ? -1 : a.toDate() > b.toDate() ? 1 : 0;
    if (a.typeId() == QMetaType::QDateTime || b.typeId() == QMetaType::QDateTime) {
        const QDateTime x = a.toDateTime(), y = b.toDateTime();
        return x < y ? -1 : x > y ? 1 : 0;
    }
    return compareSpanish(isNumber(a) ? vb::CStr(a) : a.toString(), isNumber(b) ? vb::CStr(b) : b.toString());
}

bool matches(const QVariant& value, const Criterion& c)
{
    if (value.isNull() || !c.literal.isValid())
        return c.op == QLatin1String("=") && value.isNull() && !c.literal.isValid();
    if (c.op == QLatin1String("LIKE")) {
        QString pattern = c.literal.toString();
        pattern.replace(u'*', u'%').replace(u'?', u'_');
        return jetLike(pattern, isNumber(value) ? vb::CStr(value) : value.toString());
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

// Source given as a bare table name rather than a statement.
bool isTableName(const QString& source)
{
    const QString s = source.trimmed();
    if (s.isEmpty())
        return false;
    if (s.startsWith(u'[') && s.endsWith(u']'))
        return true;
    for (QChar c : s)
        if (!(c.isLetterOrNumber() || c == u'_'))
            return false;
    return true;
}

// Heading of a pivot column: the value as text, "<>" for Null.
QString pivotHeading(const QVariant& v)
{
    if (v.isNull())
        return QStringLiteral("<>");
    return isNumber(v) ? vb::CStr(v) : v.toString();
}

} // namespace

// ------------------------------------------------------------ Field

QVariant Field::Value() const { return rs_->Value(index_); }
void Field::setValue(const QVariant& v) { rs_->SetValue(index_, v); }
QString Field::Name() const { return rs_->FieldName(index_); }

// ------------------------------------------------------------ Recordset

void Recordset::requireOpen() const
{
    if (!open_)
        closedRecordset();
}

void Recordset::Rows::reset(int width, int keyWidth)
{
    width_ = width;
    keyWidth_ = keyWidth;
    count_ = 0;
    values_.clear();
    keys_.clear();
}

QVariant* Recordset::Rows::append()
{
    values_.resize(values_.size() + size_t(width_));
    keys_.resize(keys_.size() + size_t(keyWidth_), 0);
    ++count_;
    return values(count_ - 1);
}

void Recordset::Rows::removeAt(int row)
{
    const auto v = values_.begin() + ptrdiff_t(row) * width_;
    values_.erase(v, v + width_);
    const auto k = keys_.begin() + ptrdiff_t(row) * keyWidth_;
    keys_.erase(k, k + keyWidth_);
    --count_;
}

void Recordset::Rows::widen(int width)
{
    if (width <= width_)
        return;
    std::vector<QVariant> wider(size_t(count_) * size_t(width));
    for (int r = 0; r < count_; ++r)
        std::move(values(r), values(r) + width_, wider.begin() + ptrdiff_t(r) * width);
    values_ = std::move(wider);
    width_ = width;
}

void Recordset::requireCurrent() const
{
    requireOpen();
    if (onDeleted_ || pos_ < 0 || pos_ >= rows_.size())
        noCurrentRecord();
}

void Recordset::Open(const QString& source, const ConnectionPtr& connection)
{
    if (!connection || !connection->IsOpen())
        throw RuntimeError(RuntimeError::ObjectClosed,
                           QStringLiteral("No se permite realizar la operación si el objeto está cerrado."));
    Close();
    const QString statement = isTableName(source)
                                  ? QStringLiteral("SELECT * FROM [%1]").arg(source.trimmed().remove(u'[').remove(u']'))
                                  : source;
    const Translation& t = connection->Translate(statement, true);
    if (t.kind == Translation::Kind::Command)
        throw RuntimeError(RuntimeError::DatabaseError,
                           QStringLiteral("La instrucción no devuelve filas: %1").arg(source));
    cn_ = connection;
    source_ = source;
    if (t.kind == Translation::Kind::Pivot)
        fetchPivot(t);
    else
        fetch(t);
    uniqueTable_ = t.baseTables.isEmpty() ? -1 : tableIndex(t.baseTables.first());
    open_ = true;
    pos_ = 0;
    onDeleted_ = false;
    editing_ = EditMode::None;
    dirty_.fill(false, names_.size());
}

void Recordset::Close()
{
    open_ = false;
    cn_.reset();
    names_.clear();
    index_.clear();
    columns_.clear();
    tables_.clear();
    uniqueTable_ = -1;
    rows_.reset(0, 0);
    dirty_.clear();
    pos_ = 0;
    onDeleted_ = false;
    editing_ = EditMode::None;
}

void Recordset::fetch(const Translation& t)
{
    sqlite3_stmt* stmt = cn_->Prepare(t.sql);
    const int n = sqlite3_column_count(stmt);
    const QString prefix = QLatin1String(JetSql::kRowidPrefix);
    QVector<int> visible;      // statement column of each field
    QVector<int> keyColumns;   // statement column of each base table's rowid
    for (int i = 0; i < n; ++i) {
        const QString name = QString::fromUtf8(sqlite3_column_name(stmt, i));
        if (t.rowidColumns && name.startsWith(prefix)) {
            tables_ << name.mid(prefix.size());
            keyColumns << i;
            continue;
        }
        Column c;
        if (const char* table = sqlite3_column_table_name(stmt, i))
            c.table = QString::fromUtf8(table);
        if (const char* origin = sqlite3_column_origin_name(stmt, i))
            c.origin = QString::fromUtf8(origin);
        c.type = columnTypeFromDecl(sqlite3_column_decltype(stmt, i));
        columns_ << c;
        names_ << name;
        visible << i;
    }
    // Two fields of the same name are told apart as "table.column".
    QHash<QString, int> seen;
    for (const QString& name : std::as_const(names_))
        ++seen[name.toLower()];
    for (int i = 0; i < names_.size(); ++i) {
        if (seen.value(names_[i].toLower()) > 1 && !columns_[i].table.isEmpty())
            names_[i] = columns_[i].table + u'.' + names_[i];
        index_.insert(names_[i].toLower(), i);
    }
    takeFunctionErrorNumber();
    std::vector<TextCache> texts(visible.size());
    rows_.reset(int(visible.size()), int(keyColumns.size()));
    int rc;
    while ((rc = sqlite3_step(stmt)) == SQLITE_ROW) {
        QVariant* values = rows_.append();
        for (int i = 0; i < visible.size(); ++i)
            values[i] = columnValue(stmt, visible[i], columns_[i].type, &texts[i]);
        qint64* keys = rows_.keys(rows_.size() - 1);
        for (int k = 0; k < keyColumns.size(); ++k)
            keys[k] = sqlite3_column_int64(stmt, keyColumns[k]);
    }
    if (rc != SQLITE_DONE) {
        sqlite3_reset(stmt);
        rows_.reset(0, 0);
        cn_->Fail();
    }
    sqlite3_reset(stmt);
}

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
            key += row.last().toString() + QChar(0x1F) + (row.last().isNull() ? u'n' : u'v');
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
            const QString h = pivotHeading(c.pivot);
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
        columnOf.insert(h, names_.size());
        names_ << h;
        columns_ << Column{};
    }
    rows_.widen(names_.size());
    for (const Cell& c : std::as_const(cells)) {
        auto it = columnOf.constFind(pivotHeading(c.pivot));
        if (it != columnOf.constEnd())
            rows_.values(c.row)[*it] = c.value;
    }
    for (int i = 0; i < names_.size(); ++i)
        index_.insert(names_[i].toLower(), i);
}

int Recordset::RecordCount() const
{
    requireOpen();
    return rows_.size();
}

int Recordset::AbsolutePosition() const
{
    requireOpen();
    if (rows_.isEmpty())
        return PosUnknown;
    if (pos_ < 0)
        return PosBOF;
    if (pos_ >= rows_.size())
        return PosEOF;
    return pos_ + 1;
}

void Recordset::SetAbsolutePosition(int position)
{
    requireOpen();
    if (position < 1 || position > rows_.size())
        badArgument(QStringLiteral("(AbsolutePosition = %1)").arg(position));
    saveIfEdited();
    pos_ = position - 1;
    onDeleted_ = false;
}

bool Recordset::Bof() const
{
    requireOpen();
    return rows_.isEmpty() || (pos_ < 0 && !onDeleted_);
}

bool Recordset::Eof() const
{
    requireOpen();
    return rows_.isEmpty() || (pos_ >= rows_.size() && !onDeleted_);
}

void Recordset::MoveFirst()
{
    requireOpen();
    saveIfEdited();
    if (rows_.isEmpty())
        noCurrentRecord();
    pos_ = 0;
    onDeleted_ = false;
}

void Recordset::MoveLast()
{
    requireOpen();
    saveIfEdited();
    if (rows_.isEmpty())
        noCurrentRecord();
    pos_ = rows_.size() - 1;
    onDeleted_ = false;
}

void Recordset::MoveNext()
{
    requireOpen();
    saveIfEdited();
    if (onDeleted_) { // the row after the deleted one already stands at pos_
        onDeleted_ = false;
        return;
    }
    if (pos_ >= rows_.size())
        noCurrentRecord();
    ++pos_;
}

void Recordset::MovePrevious()
{
    requireOpen();
    saveIfEdited();
    if (onDeleted_) {
        onDeleted_ = false;
        pos_ = qMax(pos_ - 1, -1);
        return;
    }
    if (pos_ < 0)
        noCurrentRecord();
    --pos_;
}

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

QString Recordset::FieldName(int index) const
{
    requireOpen();
    if (index < 0 || index >= names_.size())
        badArgument();
    return names_[index];
}

int Recordset::FieldIndex(const QString& name) const { return index_.value(name.toLower(), -1); }

int Recordset::columnIndex(const QString& name) const
{
    requireOpen();
    const int i = FieldIndex(name);
    if (i < 0)
        throw RuntimeError(RuntimeError::ItemNotFound,
                           QStringLiteral("No se encontró el elemento '%1' en la colección correspondiente al "
                                          "nombre o al ordinal solicitado.")
                               .arg(name));
    return i;
}

Field Recordset::Fields(const QString& name) { return Field(this, columnIndex(name)); }

Field Recordset::Fields(int index)
{
    requireOpen();
    if (index < 0 || index >= names_.size())
        badArgument();
    return Field(this, index);
}

QVariant Recordset::Value(const QString& name) const { return Value(columnIndex(name)); }

QVariant Recordset::Value(int index) const
{
    requireCurrent();
    if (index < 0 || index >= names_.size())
        badArgument();
    return rows_.values(pos_)[index];
}

const QVariant& Recordset::ValueAt(int position, int index) const
{
    requireOpen();
    if (position < 1 || position > rows_.size() || index < 0 || index >= names_.size())
        badArgument();
    return rows_.values(position - 1)[index];
}

void Recordset::SetValue(const QString& name, const QVariant& value) { SetValue(columnIndex(name), value); }

void Recordset::SetValue(int index, const QVariant& value)
{
    requireCurrent();
    if (index < 0 || index >= names_.size())
        badArgument();
    const Column& c = columns_[index];
    if (c.table.isEmpty() || tableIndex(c.table) < 0)
        readOnlyField(names_[index]);
    rows_.values(pos_)[index] = coerce(value, c.type);
    dirty_[index] = true;
    if (editing_ == EditMode::None)
        editing_ = EditMode::Edit;
}

int Recordset::tableIndex(const QString& table) const
{
    for (int i = 0; i < tables_.size(); ++i)
        if (tables_[i].compare(table, Qt::CaseInsensitive) == 0)
            return i;
    return -1;
}

void Recordset::AddNew()
{
    requireOpen();
    saveIfEdited();
    if (tables_.isEmpty())
        throw RuntimeError(RuntimeError::DatabaseError,
                           QStringLiteral("No se pueden agregar filas a este conjunto de registros."));
    rows_.append();
    pos_ = rows_.size() - 1;
    onDeleted_ = false;
    editing_ = EditMode::Add;
    dirty_.fill(false, names_.size());
}

void Recordset::Update()
{
    requireOpen();
    if (editing_ == EditMode::None)
        return;
    requireCurrent();
    if (editing_ == EditMode::Add)
        writeInsert();
    else
        writeUpdate();
    editing_ = EditMode::None;
    dirty_.fill(false, names_.size());
}

void Recordset::CancelUpdate()
{
    requireOpen();
    if (editing_ == EditMode::Add) {
        rows_.removeAt(rows_.size() - 1);
        pos_ = rows_.size();
    } else if (editing_ == EditMode::Edit) {
        for (int t = 0; t < tables_.size(); ++t)
            if (rows_.keys(pos_)[t])
                refetchRow(pos_, t);
    }
    editing_ = EditMode::None;
    dirty_.fill(false, names_.size());
}

void Recordset::saveIfEdited()
{
    if (editing_ != EditMode::None && !onDeleted_ && pos_ >= 0 && pos_ < rows_.size())
        Update();
}

namespace {

void stepCommand(Connection& cn, sqlite3_stmt* stmt)
{
    takeFunctionErrorNumber();
    const int rc = sqlite3_step(stmt);
    sqlite3_reset(stmt);
    if (rc != SQLITE_DONE)
        cn.Fail();
}

} // namespace

void Recordset::writeInsert()
{
    const QVariant* values = rows_.values(pos_);
    // The new row belongs to the table of the fields that were given.
    int table = -1;
    for (int i = 0; i < names_.size(); ++i) {
        if (!dirty_[i])
            continue;
        const int t = tableIndex(columns_[i].table);
        if (table >= 0 && t != table)
            throw RuntimeError(RuntimeError::DatabaseError,
                               QStringLiteral("Una fila nueva sólo puede escribirse en una tabla."));
        table = t;
    }
    if (table < 0)
        table = 0;
    QStringList cols, marks;
    QVector<int> fields;
    for (int i = 0; i < names_.size(); ++i) {
        if (!dirty_[i])
            continue;
        cols << u'"' + columns_[i].origin + u'"';
        marks << QStringLiteral("?");
        fields << i;
    }
    const QString sql = cols.isEmpty() ? QStringLiteral("INSERT INTO \"%1\" DEFAULT VALUES").arg(tables_[table])
                                       : QStringLiteral("INSERT INTO \"%1\" (%2) VALUES (%3)")
                                             .arg(tables_[table], cols.join(u','), marks.join(u','));
    sqlite3_stmt* stmt = cn_->Prepare(sql);
    for (int k = 0; k < fields.size(); ++k)
        bindValue(stmt, k + 1, values[fields[k]]);
    stepCommand(*cn_, stmt);
    rows_.keys(pos_)[table] = sqlite3_last_insert_rowid(cn_->Handle());
    refetchRow(pos_, table); // defaults of the columns not given
}

void Recordset::writeUpdate()
{
    const QVariant* values = rows_.values(pos_);
    const qint64* keys = rows_.keys(pos_);
    const bool several = [&] {
        int first = -1;
        for (int i = 0; i < names_.size(); ++i) {
            if (!dirty_[i])
                continue;
            const int t = tableIndex(columns_[i].table);
            if (first >= 0 && t != first)
                return true;
            first = t;
        }
        return false;
    }();
    if (several)
        cn_->ExecuteNative(QStringLiteral("SAVEPOINT recordset_update"));
    try {
        for (int t = 0; t < tables_.size(); ++t) {
            QStringList sets;
            QVector<int> fields;
            for (int i = 0; i < names_.size(); ++i) {
                if (dirty_[i] && tableIndex(columns_[i].table) == t) {
                    sets << u'"' + columns_[i].origin + QStringLiteral("\" = ?");
                    fields << i;
                }
            }
            if (fields.isEmpty())
                continue;
            if (!keys[t])
                noCurrentRecord();
            sqlite3_stmt* stmt =
                cn_->Prepare(QStringLiteral("UPDATE \"%1\" SET %2 WHERE rowid = ?").arg(tables_[t], sets.join(u',')));
            for (int k = 0; k < fields.size(); ++k)
                bindValue(stmt, k + 1, values[fields[k]]);
            sqlite3_bind_int64(stmt, fields.size() + 1, keys[t]);
            stepCommand(*cn_, stmt);
        }
    } catch (...) {
        if (several)
            cn_->ExecuteNative(QStringLiteral("ROLLBACK TO recordset_update; RELEASE recordset_update"));
        throw;
    }
    if (several)
        cn_->ExecuteNative(QStringLiteral("RELEASE recordset_update"));
}

void Recordset::refetchRow(int row, int table)
{
    QStringList cols;
    QVector<int> fields;
    for (int i = 0; i < names_.size(); ++i) {
        if (tableIndex(columns_[i].table) == table) {
            cols << u'"' + columns_[i].origin + u'"';
            fields << i;
        }
    }
    if (fields.isEmpty())
        return;
    sqlite3_stmt* stmt =
        cn_->Prepare(QStringLiteral("SELECT %1 FROM \"%2\" WHERE rowid = ?").arg(cols.join(u','), tables_[table]));
    sqlite3_bind_int64(stmt, 1, rows_.keys(row)[table]);
    if (sqlite3_step(stmt) == SQLITE_ROW)
        for (int k = 0; k < fields.size(); ++k)
            rows_.values(row)[fields[k]] = columnValue(stmt, k, columns_[fields[k]].type);
    sqlite3_reset(stmt);
}

void Recordset::Delete()
{
    requireCurrent();
    if (editing_ == EditMode::Add) {
        CancelUpdate();
        return;
    }
    editing_ = EditMode::None;
    dirty_.fill(false, names_.size());
    // Only the first table of the statement loses the row; a join never
    // deletes from the tables it looks up.
    if (uniqueTable_ < 0 || !rows_.keys(pos_)[uniqueTable_])
        throw RuntimeError(RuntimeError::DatabaseError,
                           QStringLiteral("No se pueden eliminar filas de este conjunto de registros."));
    sqlite3_stmt* stmt =
        cn_->Prepare(QStringLiteral("DELETE FROM \"%1\" WHERE rowid = ?").arg(tables_[uniqueTable_]));
    sqlite3_bind_int64(stmt, 1, rows_.keys(pos_)[uniqueTable_]);
    stepCommand(*cn_, stmt);
    rows_.removeAt(pos_);
    onDeleted_ = true;
}

} // namespace db
