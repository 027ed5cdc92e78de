#pragma once
// The shared record functions that touch controls: filling a combo from a
// table, sorting a grid by a clicked column, and pressing a key.
#include <QString>

class QComboBox;
class FlexGrid;

// Adds the text column of "SELECT <tabla>.<clave>,<tabla>.<texto> From <tabla>
// [WHERE <filtro>] ORDER BY <tabla>.<clave>" to the box, in that order. The
// box is not cleared first and its item data are left as they are.
void RellenarCombo(const QString& tabla, const QString& clave, const QString& texto, QComboBox* combo,
                   const QString& filtro);

// Clears the box and fills it from a statement: the text field of each row
// shown, in order, with the key field as the entry's item data; the first
// entry is chosen. The chosen key is then vb::CLng(combo->currentData()),
// which raises on an empty box.
void RellenarComboClave(QComboBox* combo, const QString& sql, const QString& clave, const QString& texto);

// Sorts the grid by a column: ascending, unless the same column was sorted
// ascending just before, which sorts it descending. The last column and
// direction are shared by every grid. Failures are ignored.
void OrdenarGrid(FlexGrid* grid, int col);
// Forgets the last sorted column, so that the next sort is ascending.
void resetOrdenarGrid();

// The total of a rubric: the text of column 8 (the points) of every row
// below the titles, each as a Single, added in Single arithmetic. A text
// that does not convert is the conversion's run-time error.
float SumarColumnaRubrica(FlexGrid& grid);

// Posts a press and a release of a virtual key (9 Tab, 13 Enter ...) to the
// focused widget; they are handled when control returns to the event loop.
void PulsarTecla(int vk);
