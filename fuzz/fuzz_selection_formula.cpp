// Report selection formulas, as a screen would pass one: translated to a
// condition of the dialect, which then goes, as the report engine puts it,
// into the WHERE of the report's query and through the dialect translator.
// A RuntimeError (a formula or a statement that cannot be read) is a normal
// answer.
#include "db/JetSql.h"
#include "reports/engine/SelectionFormula.h"
#include "vb/RuntimeError.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    const QString formula = QString::fromUtf8(reinterpret_cast<const char*>(data), qsizetype(size));
    // Which fields hold text decides how a + between two fields reads: let
    // the names decide, so both readings are reached.
    const auto isText = [](const QString& table, const QString& column) { return (qHash(table) ^ qHash(column)) & 1; };
    for (const reports::TextColumnTest& test : {reports::TextColumnTest{}, reports::TextColumnTest{isText}}) {
        QString condition;
        try {
            condition = reports::translateSelectionFormula(formula, test);
        } catch (const RuntimeError&) {
            continue;
        }
        try {
            db::JetSql::translate(QStringLiteral("SELECT tblAlumnos.Id FROM tblAlumnos WHERE (") + condition.trimmed() +
                                  u')');
        } catch (const RuntimeError&) {
        }
    }
    return 0;
}
