#include "rubrics/RubricaGrid.h"

#include "ui/FlexGrid.h"

#include <QHeaderView>

#include <algorithm>

namespace rubricas {

void formarGrid(FlexGrid& g, int filas, const QList<int>& anchos, const QStringList& titulos, bool lista)
{
    g.setRedraw(false);
    g.Clear();
    g.setCols(int(anchos.size()));
    g.setFixedRows(1);
    g.setFixedCols(1);
    g.setRows(filas + 1);
    const QFontMetrics letra = g.horizontalHeader()->fontMetrics();
    for (int c = 0; c < anchos.size(); ++c) {
        const QString titulo = titulos.value(c);
        const int ancho = titulo.isEmpty() ? 0 : g.pixelsToTwips(letra.horizontalAdvance(titulo) + 10);
        g.setColWidth(c, anchos[c] > 0 ? std::max(anchos[c], ancho) : anchos[c]);
        g.setTextMatrix(0, c, titulo);
        if (lista) {
            g.setColAlignment(c, Qt::AlignLeft | Qt::AlignVCenter);
            g.setFixedAlignment(c, Qt::AlignLeft | Qt::AlignVCenter);
        }
    }
}

void rematarGrid(FlexGrid& g)
{
    if (g.Rows() > 1) {
        ui::stripeRows(g, 1);
        g.setRow(1);
        g.setCol(1);
    }
    g.setRedraw(true);
}

} // namespace rubricas
