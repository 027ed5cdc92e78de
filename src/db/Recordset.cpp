#include "db/Recordset.h"

#include "db/RecordsetInternal.h"
#include "db/SqlFunctions.h"
#include "vb/RuntimeError.h"

#include <sqlite3.h>

namespace db {

namespace detail {

[[noreturn]] void noCurrentRecord()
{
    throw RuntimeError(RuntimeError::NoCurrentRecord,
                       QStringLiteral("BOF o EOF es True, o el registro actual se eliminó. La operación solicitada "
                                      "requiere un registro actual."));
}

[[noreturn]] void badArgument(const QString& detail)
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

} // namespace detail

using namespace detail;

namespace {

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

} // namespace

// ------------------------------------------------------------ Field

QVariant Field::Value() const
{
    return rs_->Value(index_);
}
void Field::setValue(const QVariant& v)
{
    rs_->SetValue(index_, v);
}
QString Field::Name() const
{
    return rs_->FieldName(index_);
}

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
    QVector<int> visible;    // statement column of each field
    QVector<int> keyColumns; // statement column of each base table's rowid
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
        const ColumnDecl decl = columnDeclFrom(sqlite3_column_decltype(stmt, i));
        c.type = decl.type;
        c.size = decl.size;
        c.min = decl.min;
        c.max = decl.max;
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

QString Recordset::FieldName(int index) const
{
    requireOpen();
    if (index < 0 || index >= names_.size())
        badArgument();
    return names_[index];
}

int Recordset::FieldIndex(const QString& name) const
{
    return index_.value(name.toLower(), -1);
}

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

Field Recordset::Fields(const QString& name)
{
    return Field(this, columnIndex(name));
}

Field Recordset::Fields(int index)
{
    requireOpen();
    if (index < 0 || index >= names_.size())
        badArgument();
    return Field(this, index);
}

QVariant Recordset::Value(const QString& name) const
{
    return Value(columnIndex(name));
}

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

} // namespace db
