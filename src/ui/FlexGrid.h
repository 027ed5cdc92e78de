#pragma once
// The grid of the screens, with the vocabulary their code is written in.
// All indices count the fixed cells: row 0 is the title row and column 0 the
// narrow fixed column at the left; data start at row 1, column 1.
//
// How the fixed cells are kept: the first fixed row is the table's horizontal
// header and the first fixed column its vertical header, so both stay in view
// while the body scrolls, with their own texts, colours and fonts. Further
// fixed rows or columns (FixedCols 2 or more) are body cells painted in the
// button face and not selectable; they scroll with the body. With FixedRows 0
// (or FixedCols 0) the header is hidden and row 0 (column 0) is a body row.
//
// The body selects whole rows. One notch of the mouse wheel, or one wheel
// message whatever its size, scrolls exactly one line.
#include <QColor>
#include <QHash>
#include <QIcon>
#include <QTableView>

#include <optional>
#include <unordered_map>
#include <vector>

namespace db {
class Recordset;
}

class FlexGridHeader;
class FlexGridModel;

class FlexGrid : public QTableView {
    Q_OBJECT

public:
    explicit FlexGrid(QWidget* parent = nullptr);
    ~FlexGrid() override;

    // Shape. Rows below FixedRows lower FixedRows with them.
    int Rows() const;
    void setRows(int rows);
    int Cols() const;
    void setCols(int cols);
    int FixedRows() const { return fixedRows_; }
    void setFixedRows(int rows);
    int FixedCols() const { return fixedCols_; }
    void setFixedCols(int cols);

    // Cell text. An index outside the grid raises run-time error 30009/30010.
    QString TextMatrix(int row, int col) const;
    void setTextMatrix(int row, int col, const QString& text);

    // Current cell and the other end of the selection. Setting Row or Col
    // moves the current cell and collapses RowSel/ColSel onto it; a fixed row
    // cannot be current.
    int Row() const;
    void setRow(int row);
    int Col() const;
    void setCol(int col);
    int RowSel() const { return rowSel_; }
    void setRowSel(int row);
    int ColSel() const { return colSel_; }
    void setColSel(int col);
    // First data row in view.
    int TopRow() const;
    void setTopRow(int row);

    // Sizes in twips (1/1440 inch; 15 twips a pixel at 96 dpi). A width of 0
    // hides the column. A width set is read back exactly while it stands.
    int ColWidth(int col) const;
    void setColWidth(int col, int twips);
    int RowHeight(int row) const;
    void setRowHeight(int row, int twips);
    int twipsToPixels(int twips) const;
    int pixelsToTwips(int pixels) const;

    // Alignment of the non-fixed cells of a column (also of cells written
    // later), of its fixed cells, or of one cell. Without one, text goes left
    // and numbers right.
    void setColAlignment(int col, Qt::Alignment alignment);
    void setFixedAlignment(int col, Qt::Alignment alignment);
    void setCellAlignment(int row, int col, Qt::Alignment alignment);
    Qt::Alignment CellAlignment(int row, int col) const;

    QColor CellBackColor(int row, int col) const;
    // Whether the cell was given a back colour, rather than showing the default.
    bool hasCellBackColor(int row, int col) const;
    void setCellBackColor(int row, int col, const QColor& color);
    // The same colour over a block of cells (fill style repeat).
    void setRangeBackColor(int row1, int col1, int row2, int col2, const QColor& color);
    QColor CellForeColor(int row, int col) const;
    void setCellForeColor(int row, int col, const QColor& color);
    bool CellFontBold(int row, int col) const;
    void setCellFontBold(int row, int col, bool bold);
    qreal CellFontSize(int row, int col) const;
    void setCellFontSize(int row, int col, qreal points);
    void setCellPicture(int row, int col, const QIcon& picture);

    // Redraw off while filling; on repaints.
    void setRedraw(bool redraw);
    bool Redraw() const { return redraw_; }
    void Refresh() { viewport()->update(); }

    // Empties every cell, fixed ones included, text and format; the shape and
    // the widths stay.
    void Clear();
    // Adds a row at the end or before `row`; tabs separate the cells from column 0.
    void AddItem(const QString& item, int row = -1);
    void RemoveItem(int row);
    // Sorts the non-fixed rows by the text of one column, moving whole rows
    // (the fixed column with them). Numbers compare as numbers when both
    // texts are numbers, other texts in the Spanish order without case.
    // Rows with equal keys keep their order.
    void Sort(int col, bool ascending);
    // The arrow of a sort by a title click on the title of `col`; a column
    // below the titles' first one hides it, and so does Clear().
    void showSortIndicator(int col, bool ascending);
    // The whole text of the body cell under a point of the viewport when the
    // cell shows it cut short; "" when it fits or there is no cell.
    QString clippedTextAt(const QPoint& viewportPos) const;
    // Merges runs of equal, non-empty adjacent cells of a column into one.
    void mergeEqualCells(int col);

    // The grid as a bound recordset shows it: one row per record under the
    // title row of field names, the fields from column firstCol on; column 0
    // holds the row number when asked. The recordset's position is kept.
    void bindRecordset(db::Recordset& rs, int firstCol = 1, bool rowNumbers = false);

signals:
    void DblClick();
    void EnterPressed();
    // A mouse click released on a title of row 0.
    void titleClicked(int col);
    void RowColChange();
    void keyPressed(int key, Qt::KeyboardModifiers modifiers);

protected:
    bool viewportEvent(QEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;

private:
    friend class FlexGridModel;

    // What a cell carries besides its text. Formats are shared: a cell holds
    // the index of its format in formats_, so colouring a block of cells
    // writes numbers, not colours.
    struct Format {
        std::optional<Qt::Alignment> alignment; // none: the column's, else left
        QColor back;                            // invalid: none of its own
        QColor fore;
        int bold = -1; // -1: the grid's font
        qreal points = 0;
        int picture = -1; // index in pictures_
        bool operator==(const Format&) const = default;
    };
    struct FormatHash {
        size_t operator()(const Format& f) const;
    };
    struct Cell {
        QString text;
        int format = 0; // formats_[0] is the empty format
    };
    using Line = std::vector<Cell>;

    int top() const { return fixedRows_ > 0 ? 1 : 0; }
    int lead() const { return fixedCols_ > 0 ? 1 : 0; }
    bool isFixed(int row, int col) const { return row < fixedRows_ || col < fixedCols_; }
    [[noreturn]] static void raiseInvalidRow();
    [[noreturn]] static void raiseInvalidCol();
    void checkCell(int row, int col) const;
    const Format& formatOf(int row, int col) const { return formats_[lines_[row][col].format]; }
    int internFormat(const Format& format);
    // Gives a cell the format its own changed by `change`; `memo` carries the
    // last format changed and its result across a burst of calls.
    template <typename Change>
    void changeFormat(int row, int col, Change change, std::pair<int, int>* memo = nullptr)
    {
        int& format = lines_[row][col].format;
        if (memo && memo->first == format) {
            format = memo->second;
            return;
        }
        Format changed = formats_[format];
        change(changed);
        const int index = internFormat(changed);
        if (memo)
            *memo = {format, index};
        format = index;
    }
    void setTextQuietly(int row, int col, const QString& text);
    // Tells the view and the headers that a block of cells may have changed.
    void announce(int row1, int col1, int row2, int col2);
    void announceAll();
    // What the view shows of a cell.
    QVariant cellData(int row, int col, int role) const;
    void insertLines(int row, int count);
    void removeLines(int row, int count);
    void applyColWidth(int col);
    double twipsPerPixel(Qt::Orientation o) const;
    void updateHeaders();
    void selectRange();

    FlexGridModel* model_;
    FlexGridHeader* topHeader_;
    FlexGridHeader* leftHeader_;
    std::vector<Line> lines_; // every row of the grid, fixed ones included
    int cols_ = 0;
    std::vector<Format> formats_;
    std::unordered_map<Format, int, FormatHash> formatIndex_;
    QList<QIcon> pictures_;
    int fixedRows_ = 1;
    int fixedCols_ = 1;
    int rowSel_ = 1;
    int colSel_ = 1;
    bool redraw_ = true;
    bool pendingRedraw_ = false; // cells changed while redraw was off
    QHash<int, int> colTwips_;
    QHash<int, Qt::Alignment> colAlignment_;
    QHash<int, Qt::Alignment> fixedAlignment_;
};

namespace ui {

// The striping alone: gColor on even rows, white on odd ones, from firstCol to
// the last column.
void stripeRows(FlexGrid& grid, int firstCol = 1);
// The recordset follows the grid: its position becomes the grid's RowSel.
void moveRecordsetToGridRow(const FlexGrid& grid, db::Recordset& rs);

} // namespace ui
