#pragma once
// How the screens shape their grids: a description of the columns, then
// the cells, then one finishing step.
//
//     const ui::GridColumns columnas{
//         {QString(), 500},
//         {QString(), 0, {}, {}, 0, true},                  // the key, hidden
//         {QStringLiteral("Materia"), 2500, kLeft},
//         {QStringLiteral("Nota"), 900, Qt::AlignCenter},
//     };
//     g.setRedraw(false);
//     columnas.shape(g, rs.RecordCount());     // cleared, titled, n rows below the titles
//     ... g.setTextMatrix(r, c, ...) for each row ...
//     ui::finishGrid(g);                       // stripes, row 1 column 1, redraw on
//
// A list over a recordset does all three in ui::fillList.
#include <QList>
#include <QString>
#include <QStringList>

#include <initializer_list>
#include <utility>

class FlexGrid;
namespace db {
class Recordset;
}

namespace ui {

// One column of a grid.
struct GridColumn {
    QString title;                 // in row 0; a null one leaves row 0 as it is
    int twips = -1;                // width in twips; -1 leaves the grid's width as it is
    Qt::Alignment align = {};      // of the cells; none: text left, numbers right
    Qt::Alignment titleAlign = {}; // of the fixed cells; none: as the cells
    int percent = 0;               // when given, the width is this share of the grid's width
    bool hidden = false;           // no width at all, whatever else is given
};

// The columns of a grid, from column 0 (the narrow fixed column).
class GridColumns {
public:
    GridColumns() = default;
    GridColumns(std::initializer_list<GridColumn> columns) : columns_(columns) {}
    explicit GridColumns(QList<GridColumn> columns) : columns_(std::move(columns)) {}

    // Every column of the grid, described or not, aligned so (cells and
    // titles) before the described alignments apply.
    GridColumns& alignAll(Qt::Alignment alignment)
    {
        alignAll_ = alignment;
        return *this;
    }
    // A visible column is never narrower than its title in the titles' font.
    GridColumns& fitTitles(bool fit = true)
    {
        fitTitles_ = fit;
        return *this;
    }

    // Widths in twips and titles, both from column 0: a column beyond the
    // titles keeps the title it has (a list's field name), one beyond the
    // widths its width.
    static GridColumns fromLists(const QList<int>& widths, const QStringList& titles);

    int count() const { return int(columns_.size()); }
    const GridColumn& operator[](int col) const { return columns_[col]; }

    // Clears the grid and gives it these columns under one fixed row and
    // one fixed column, with `rows` empty rows below the titles: the count,
    // alignments, widths and titles.
    void shape(FlexGrid& g, int rows) const;
    // The alignment of cells and titles alone.
    void applyAlignment(FlexGrid& g) const;
    // The widths alone, each share taken of the grid's width as it is now:
    // what a resize calls.
    void applyWidths(FlexGrid& g) const;
    // The titles of row 0 alone (a null title writes nothing).
    void applyTitles(FlexGrid& g) const;
    // The width a column is given, in twips; -1 when the description leaves it.
    int widthOf(const FlexGrid& g, int col) const;
    // The width of a visible column's title in the titles' font; 0 for a
    // hidden column or one without a title.
    int titleTwips(const FlexGrid& g, int col) const;

private:
    QList<GridColumn> columns_;
    Qt::Alignment alignAll_ = {};
    bool fitTitles_ = false;
};

// The end of a fill, once the cells are written.
struct GridFinish {
    int fixedRows = 1;
    int fixedCols = 1;
    int stripesFrom = 1;                    // the first striped column; -1 none
    QList<std::pair<int, qreal>> fontSizes; // points of the body cells of a column
    bool firstCell = true;                  // row 1, column 1 current when there are rows
};

// Fixed rows and columns, stripes, font sizes, the first cell, redraw on.
void finishGrid(FlexGrid& g, const GridFinish& finish = {});

// The fill of a list screen: clear; with no records two rows and nothing
// else; otherwise bind the recordset from column 1 (column 0 the row number
// when asked), every column aligned left unless described otherwise, the
// widths and titles of the description, then the finishing step. Redraw is
// off meanwhile.
void fillList(FlexGrid& grid, db::Recordset& rs, const GridColumns& columns, bool rowNumbers = false,
              const GridFinish& finish = {});

} // namespace ui
