#include "db/Recordset.h"

#include "db/RecordsetInternal.h"
#include "db/SqlFunctions.h"
#include "vb/RuntimeError.h"
#include "vb/Vb.h"

#include <QDate>
#include <QDateTime>
#include <QTime>
#include <sqlite3.h>

// Edits of the rows in memory and their way back to the base tables: a new
// row is an INSERT into the table of the fields given, an edited row an
// UPDATE per table by its row key, a deleted row a DELETE from the first
// table of the statement.

namespace db {

using namespace detail;

namespace {

[[noreturn]] void readOnlyField(const QString& name)
{
    throw RuntimeError(RuntimeError::DatabaseError,
                       QStringLiteral("No se puede actualizar el campo '%1': no pertenece a una tabla.").arg(name));
}

// A text longer than its field, given to the field: the error of the
// provider's multiple-step operation.
constexpr int kMultipleStepError = -2147217887; // 0x80040E21

// A value that the column cannot hold fails the assignment, before anything
// is written: a text longer than the declared size, a whole number outside
// the range of a Byte, Integer or Long column.
void checkFits(const QVariant& v, int size, qint64 min, qint64 max)
{
    if (v.isNull())
        return;
    if (size > 0 && v.typeId() == QMetaType::QString && v.toString().size() > size)
        throw RuntimeError(kMultipleStepError,
                           QStringLiteral("La operación de varios pasos generó errores. Compruebe los valores de "
                                          "estado. (El texto tiene más de %1 caracteres.)")
                               .arg(size));
    if (min != max && (v.typeId() == QMetaType::Int || v.typeId() == QMetaType::LongLong) &&
        (v.toLongLong() < min || v.toLongLong() > max))
        vb::Raise(RuntimeError::Overflow);
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

void stepCommand(Connection& cn, sqlite3_stmt* stmt)
{
    takeFunctionErrorNumber();
    const int rc = sqlite3_step(stmt);
    sqlite3_reset(stmt);
    if (rc != SQLITE_DONE)
        cn.Fail();
}

} // namespace

void Recordset::SetValue(const QString& name, const QVariant& value)
{
    SetValue(columnIndex(name), value);
}

void Recordset::SetValue(int index, const QVariant& value)
{
    requireCurrent();
    if (index < 0 || index >= names_.size())
        badArgument();
    const Column& c = columns_[index];
    if (c.table.isEmpty() || tableIndex(c.table) < 0)
        readOnlyField(names_[index]);
    QVariant v = coerce(value, c.type);
    checkFits(v, c.size, c.min, c.max);
    rows_.values(pos_)[index] = std::move(v);
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
    sqlite3_stmt* stmt = cn_->Prepare(QStringLiteral("DELETE FROM \"%1\" WHERE rowid = ?").arg(tables_[uniqueTable_]));
    sqlite3_bind_int64(stmt, 1, rows_.keys(pos_)[uniqueTable_]);
    stepCommand(*cn_, stmt);
    rows_.removeAt(pos_);
    onDeleted_ = true;
}

} // namespace db
