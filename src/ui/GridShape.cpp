#include "ui/GridShape.h"

#include "db/Recordset.h"
#include "ui/FlexGrid.h"

#include <QFontMetrics>
#include <QHeaderView>

#include <algorithm>

namespace ui {

GridColumns GridColumns::fromLists(const QList<int>& widths, const QStringList& titles)
{
    QList<GridColumn> columns;
    for (int c = 0; c < std::max(widths.size(), titles.size()); ++c)
        columns.append({c < titles.size() ? (titles[c].isNull() ? QStringLiteral("") : titles[c]) : QString(),
                        int(widths.value(c, -1))});
    return GridColumns(columns);
}

void GridColumns::shape(FlexGrid& g, int rows) const
{
    g.Clear();
    g.setCols(count());
    g.setRows(rows + 1);
    g.setFixedRows(1);
    g.setFixedCols(1);
    applyAlignment(g);
    applyWidths(g);
    applyTitles(g);
}

void GridColumns::applyAlignment(FlexGrid& g) const
{
    if (alignAll_)
        for (int c = 0; c < g.Cols(); ++c) {
            g.setColAlignment(c, alignAll_);
            g.setFixedAlignment(c, alignAll_);
        }
    for (int c = 0; c < count() && c < g.Cols(); ++c) {
        const GridColumn& column = columns_[c];
        if (column.align)
            g.setColAlignment(c, column.align);
        if (column.titleAlign || column.align)
            g.setFixedAlignment(c, column.titleAlign ? column.titleAlign : column.align);
    }
}

int GridColumns::titleTwips(const FlexGrid& g, int col) const
{
    if (col < 0 || col >= count())
        return 0;
    const GridColumn& column = columns_[col];
    if (column.title.isEmpty() || column.hidden || (column.twips <= 0 && column.percent <= 0))
        return 0;
    const QString& title = column.title;
    return g.pixelsToTwips(g.horizontalHeader()->fontMetrics().horizontalAdvance(title) + 10);
}

int GridColumns::widthOf(const FlexGrid& g, int col) const
{
    if (col < 0 || col >= count())
        return -1;
    const GridColumn& column = columns_[col];
    if (column.hidden)
        return 0;
    int twips = column.twips;
    if (column.percent > 0)
        twips = g.pixelsToTwips(g.width()) * column.percent / 100;
    if (fitTitles_ && twips > 0)
        twips = std::max(twips, titleTwips(g, col));
    return twips;
}

void GridColumns::applyWidths(FlexGrid& g) const
{
    for (int c = 0; c < count() && c < g.Cols(); ++c)
        if (const int twips = widthOf(g, c); twips >= 0)
            g.setColWidth(c, twips);
}

void GridColumns::applyTitles(FlexGrid& g) const
{
    for (int c = 0; c < count() && c < g.Cols(); ++c)
        if (!columns_[c].title.isNull())
            g.setTextMatrix(0, c, columns_[c].title);
}

void finishGrid(FlexGrid& g, const GridFinish& finish)
{
    if (g.FixedRows() != finish.fixedRows)
        g.setFixedRows(finish.fixedRows);
    if (g.FixedCols() != finish.fixedCols)
        g.setFixedCols(finish.fixedCols);
    if (finish.stripesFrom >= 0)
        stripeRows(g, finish.stripesFrom);
    for (const auto& [col, points] : finish.fontSizes)
        if (col < g.Cols())
            for (int r = g.FixedRows(); r < g.Rows(); ++r)
                g.setCellFontSize(r, col, points);
    if (finish.firstCell && g.Rows() > g.FixedRows() && g.Cols() > 1) {
        g.setRow(1);
        g.setCol(1);
    }
    g.setRedraw(true);
}

void fillList(FlexGrid& grid, db::Recordset& rs, const GridColumns& columns, bool rowNumbers, const GridFinish& finish)
{
    grid.Clear();
    if (rs.RecordCount() == 0) {
        grid.setRows(2);
        return;
    }
    grid.setRedraw(false);
    // The columns and their alignment before the rows, so that each cell is
    // made aligned rather than aligned afterwards.
    grid.setCols(rs.FieldCount() + 1);
    GridColumns(columns).alignAll(Qt::AlignLeft | Qt::AlignVCenter).applyAlignment(grid);
    grid.bindRecordset(rs, 1, rowNumbers);
    columns.applyWidths(grid);
    columns.applyTitles(grid);
    finishGrid(grid, finish);
}

} // namespace ui
