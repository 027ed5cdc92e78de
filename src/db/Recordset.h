#pragma once
// A client-side cursor: every row of a statement is fetched into memory at
// Open, so RecordCount and AbsolutePosition are always known. Positions are
// 1-based. Edits (AddNew, field writes, Update, Delete) go back to the base
// table of each column by its row key; moving off an edited row saves it.
#include "db/Connection.h"
#include "db/SqlValue.h"

#include <QHash>
#include <QString>
#include <QStringList>
#include <QVariant>
#include <QVector>

#include <vector>

namespace db {

class Recordset;

// One column of the current row, as rs.Fields("Nom").
class Field {
public:
    Field(Recordset* rs, int index) : rs_(rs), index_(index) {}
    QVariant Value() const;
    void setValue(const QVariant& v);
    Field& operator=(const QVariant& v)
    {
        setValue(v);
        return *this;
    }
    operator QVariant() const { return Value(); }
    bool IsNull() const { return Value().isNull(); }
    QString Name() const;

private:
    Recordset* rs_;
    int index_;
};

class Recordset {
public:
    // AbsolutePosition values when there is no current row.
    enum : int { PosUnknown = -1, PosBOF = -2, PosEOF = -3 };

    Recordset() = default;
    Recordset(const Recordset&) = delete;
    Recordset& operator=(const Recordset&) = delete;
    Recordset(Recordset&&) = default;
    Recordset& operator=(Recordset&&) = default;

    // A statement of the dialect, or the name of a table.
    void Open(const QString& source, const ConnectionPtr& connection);
    void Close();
    bool IsOpen() const { return open_; }
    const QString& Source() const { return source_; }

    int RecordCount() const;
    int AbsolutePosition() const;
    void SetAbsolutePosition(int position);
    bool Bof() const;
    bool Eof() const;

    void MoveFirst();
    void MoveLast();
    void MoveNext();
    void MovePrevious();

    // "Col = 5", "Col = 'text'", "Col <> 3", "Col LIKE 'a*'": from the current
    // row forward; no match leaves the recordset at EOF.
    void Find(const QString& criteria);

    int FieldCount() const { return names_.size(); }
    QString FieldName(int index) const;
    int FieldIndex(const QString& name) const; // -1 when missing
    Field Fields(const QString& name);
    Field Fields(int index);
    QVariant Value(const QString& name) const;
    QVariant Value(int index) const;
    // A field of any row (1-based) read where it lies, without moving: for
    // filling a grid from the whole recordset.
    const QVariant& ValueAt(int position, int index) const;
    void SetValue(const QString& name, const QVariant& value);
    void SetValue(int index, const QVariant& value);

    void AddNew();
    void Update();
    void CancelUpdate();
    void Delete();
    bool EditPending() const { return editing_ != EditMode::None; }

private:
    enum class EditMode { None, Edit, Add };

    struct Column {
        QString table;  // base table, empty for a computed column
        QString origin; // column name in that table
        ColumnType type = ColumnType::Any;
        int size = 0;   // declared: the longest text, 0 for any
        qint64 min = 0; // declared: the range of a whole number, none when min == max
        qint64 max = 0;
    };
    // The rows as one run of values and one of keys, row after row: no
    // allocation per row.
    class Rows {
    public:
        void reset(int width, int keyWidth);
        int size() const { return count_; }
        bool isEmpty() const { return count_ == 0; }
        QVariant* values(int row) { return values_.data() + size_t(row) * size_t(width_); }
        const QVariant* values(int row) const { return values_.data() + size_t(row) * size_t(width_); }
        // rowid per base table in tables_ (0: none)
        qint64* keys(int row) { return keys_.data() + size_t(row) * size_t(keyWidth_); }
        // A row of Nulls and no keys at the end; its values.
        QVariant* append();
        void removeAt(int row);
        // More fields to every row, Null.
        void widen(int width);

    private:
        int width_ = 0;
        int keyWidth_ = 0;
        int count_ = 0;
        std::vector<QVariant> values_;
        std::vector<qint64> keys_;
    };

    void requireOpen() const;
    void requireCurrent() const;
    int columnIndex(const QString& name) const;
    void fetch(const Translation& t);
    void fetchPivot(const Translation& t);
    void saveIfEdited();
    void writeInsert();
    void writeUpdate();
    void refetchRow(int row, int tableIndex);
    int tableIndex(const QString& table) const;

    ConnectionPtr cn_;
    QString source_;
    bool open_ = false;
    QStringList names_;
    QHash<QString, int> index_; // lower-case name -> column
    QVector<Column> columns_;
    QStringList tables_;   // writable base tables, in FROM order
    int uniqueTable_ = -1; // the first table of the FROM: the one Delete removes rows from
    Rows rows_;
    int pos_ = 0; // 0-based current row; -1 BOF; rows_.size() EOF
    bool onDeleted_ = false;
    EditMode editing_ = EditMode::None;
    QVector<bool> dirty_;

    friend class Field;
};

} // namespace db
