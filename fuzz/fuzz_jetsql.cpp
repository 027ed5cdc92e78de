// The dialect translator on any text: a syntax error (RuntimeError) is a
// normal answer; a crash, a sanitizer report or a hang is not. Each input is
// translated twice: bare, and as a connection does it, with the year's
// schema and the hidden key columns of a writable recordset.
#include "FuzzYear.h"
#include "db/JetSql.h"
#include "db/SqlValue.h"
#include "vb/RuntimeError.h"

namespace {

db::JetSql::Options yearOptions()
{
    static db::ConnectionPtr year = fuzz::openYear(false);
    db::JetSql::Options options;
    options.rowids = true;
    options.tableDecl = [](QStringView table) { return year->tableDecl(table); };
    options.isDateColumn = [](const QString& table, const QString& column) {
        const db::TableDecl* t = year->tableDecl(table);
        const db::ColumnDecl* c = t ? t->column(column) : nullptr;
        return c && c->type == db::ColumnType::Date;
    };
    return options;
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    static const db::JetSql::Options options = yearOptions();
    const QString text = fuzz::utf8(data, size);
    try {
        db::JetSql::translate(text);
    } catch (const RuntimeError&) {
    }
    try {
        db::JetSql::translate(text, options);
    } catch (const RuntimeError&) {
    }
    return 0;
}
