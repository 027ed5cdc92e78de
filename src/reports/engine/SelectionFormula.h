#pragma once
// Record selection formulas, as the screens write them, turned into a
// condition of the statements' dialect:
//
//     {tblAlumnos.Ape} LIKE '*gar*' OR {tblCursos.Des} + ' ' + {tblGrupos.Des} LIKE '*b*'
//  -> tblAlumnos.Ape LIKE '%gar%' OR tblCursos.Des & ' ' & tblGrupos.Des LIKE '%b%'
//
// Field references lose their braces, LIKE patterns take % and _ for * and ?,
// a + that joins texts becomes &, and the rest (AND, OR, NOT, comparisons,
// numbers, True and False) stays: the dialect layer knows it.
#include <QString>

#include <functional>

namespace reports {

// Whether table.column holds text; decides the + between two fields.
using TextColumnTest = std::function<bool(const QString& table, const QString& column)>;

// Throws RuntimeError (FormulaError) when the formula cannot be read: an
// unclosed text or field reference.
QString translateSelectionFormula(const QString& formula, const TextColumnTest& isText = {});

} // namespace reports
