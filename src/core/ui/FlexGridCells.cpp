// The format of FlexGrid's cells: alignment, colours, fonts and pictures.
#include "core/ui/FlexGrid.h"

#include "core/ui/Colors.h"

#include <algorithm>

void FlexGrid::setColAlignment(int col, Qt::Alignment alignment)
{
    checkCell(0, col);
    colAlignment_[col] = alignment;
    writeQuietly(fixedRows_, col, Rows() - 1, col, [&] {
        for (int r = fixedRows_; r < Rows(); ++r)
            if (cell(r, col))
                changeCell(r, col, [&](QTableWidgetItem* item) { item->setTextAlignment(alignment); });
    });
}

void FlexGrid::setFixedAlignment(int col, Qt::Alignment alignment)
{
    checkCell(0, col);
    fixedAlignment_[col] = alignment;
    for (int r = 0; r < fixedRows_; ++r)
        cellForWrite(r, col)->setTextAlignment(alignment);
}

void FlexGrid::setCellAlignment(int row, int col, Qt::Alignment alignment)
{
    cellForWrite(row, col)->setTextAlignment(alignment);
}

Qt::Alignment FlexGrid::CellAlignment(int row, int col) const
{
    const QTableWidgetItem* item = cell(row, col);
    return item ? Qt::Alignment(item->textAlignment()) : Qt::Alignment(Qt::AlignLeft | Qt::AlignVCenter);
}

QColor FlexGrid::CellBackColor(int row, int col) const
{
    const QTableWidgetItem* item = cell(row, col);
    if (item && item->background().style() != Qt::NoBrush)
        return item->background().color();
    return isFixed(row, col) ? ui::buttonFace() : palette().color(QPalette::Base);
}

void FlexGrid::setCellBackColor(int row, int col, const QColor& color)
{
    changeCell(row, col, [&](QTableWidgetItem* item) { item->setBackground(color); });
}

void FlexGrid::setRangeBackColor(int row1, int col1, int row2, int col2, const QColor& color)
{
    writeQuietly(std::min(row1, row2), std::min(col1, col2), std::max(row1, row2), std::max(col1, col2), [&] {
        for (int r = std::min(row1, row2); r <= std::max(row1, row2); ++r)
            for (int c = std::min(col1, col2); c <= std::max(col1, col2); ++c)
                setCellBackColor(r, c, color);
    });
}

QColor FlexGrid::CellForeColor(int row, int col) const
{
    const QTableWidgetItem* item = cell(row, col);
    if (item && item->foreground().style() != Qt::NoBrush)
        return item->foreground().color();
    return palette().color(QPalette::Text);
}

void FlexGrid::setCellForeColor(int row, int col, const QColor& color)
{
    cellForWrite(row, col)->setForeground(color);
}

bool FlexGrid::CellFontBold(int row, int col) const
{
    const QTableWidgetItem* item = cell(row, col);
    return item && item->font().bold();
}

void FlexGrid::setCellFontBold(int row, int col, bool bold)
{
    QTableWidgetItem* item = cellForWrite(row, col);
    QFont f = item->font();
    f.setBold(bold);
    item->setFont(f);
}

qreal FlexGrid::CellFontSize(int row, int col) const
{
    const QTableWidgetItem* item = cell(row, col);
    return (item ? item->font() : font()).pointSizeF();
}

void FlexGrid::setCellFontSize(int row, int col, qreal points)
{
    QTableWidgetItem* item = cellForWrite(row, col);
    QFont f = item->font();
    f.setPointSizeF(points);
    item->setFont(f);
}

void FlexGrid::setCellPicture(int row, int col, const QIcon& picture)
{
    cellForWrite(row, col)->setData(Qt::DecorationRole, picture);
}
