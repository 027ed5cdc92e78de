#pragma once
// The grids of the rubric screens, which fill their cells one by one from
// their own statements: first the shape and the titles, then the cells,
// then the stripes and the first row.
#include <QList>
#include <QStringList>

class FlexGrid;

namespace rubricas {

// Redraw off; the grid cleared to `filas` rows under one fixed row, with one
// fixed column; the widths (twips; a visible column is never narrower than
// its title) and the titles. The cells and titles of a list are aligned
// left; otherwise text goes left and numbers right.
void formarGrid(FlexGrid& g, int filas, const QList<int>& anchos, const QStringList& titulos, bool lista = true);
// The stripes from column 1 and row 1, column 1 current when there are
// rows; redraw on.
void rematarGrid(FlexGrid& g);

} // namespace rubricas
