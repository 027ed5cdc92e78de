// The format of FlexGrid's cells: alignment, colours, fonts and pictures.
#include "ui/FlexGrid.h"

#include "ui/Colors.h"

#include <algorithm>

void FlexGrid::setColAlignment(int col, Qt::Alignment alignment)
{
    checkCell(0, col);
    colAlignment_[col] = alignment;
    // The column's cells written before follow it.
    const bool anyOwn = std::any_of(formats_.cbegin(), formats_.cend(), [](const Format& f) { return f.alignment; });
    std::pair<int, int> memo{-1, -1};
    for (int r = fixedRows_; anyOwn && col >= fixedCols_ && r < Rows(); ++r)
        if (formatOf(r, col).alignment)
            changeFormat(
                r, col, [](Format& f) { f.alignment.reset(); }, &memo);
    announce(fixedRows_, col, Rows() - 1, col);
}

void FlexGrid::setFixedAlignment(int col, Qt::Alignment alignment)
{
    checkCell(0, col);
    fixedAlignment_[col] = alignment;
    for (int r = 0; r < fixedRows_; ++r)
        changeFormat(r, col, [](Format& f) { f.alignment.reset(); });
    announce(0, col, fixedRows_ - 1, col);
}

void FlexGrid::setCellAlignment(int row, int col, Qt::Alignment alignment)
{
    checkCell(row, col);
    changeFormat(row, col, [&](Format& f) { f.alignment = alignment; });
    announce(row, col, row, col);
}

Qt::Alignment FlexGrid::CellAlignment(int row, int col) const
{
    checkCell(row, col);
    if (const auto& own = formatOf(row, col).alignment)
        return *own;
    const auto& alignments = isFixed(row, col) ? fixedAlignment_ : colAlignment_;
    return alignments.value(col, Qt::AlignLeft | Qt::AlignVCenter);
}

QColor FlexGrid::CellBackColor(int row, int col) const
{
    checkCell(row, col);
    if (const QColor& own = formatOf(row, col).back; own.isValid())
        return own;
    return isFixed(row, col) ? ui::buttonFace() : palette().color(QPalette::Base);
}

bool FlexGrid::hasCellBackColor(int row, int col) const
{
    checkCell(row, col);
    return formatOf(row, col).back.isValid();
}

void FlexGrid::setCellBackColor(int row, int col, const QColor& color)
{
    setRangeBackColor(row, col, row, col, color);
}

void FlexGrid::setRangeBackColor(int row1, int col1, int row2, int col2, const QColor& color)
{
    const int r1 = std::min(row1, row2), r2 = std::max(row1, row2);
    const int c1 = std::min(col1, col2), c2 = std::max(col1, col2);
    checkCell(r1, c1);
    checkCell(r2, c2);
    std::pair<int, int> memo{-1, -1};
    for (int r = r1; r <= r2; ++r)
        for (int c = c1; c <= c2; ++c)
            changeFormat(
                r, c, [&](Format& f) { f.back = color; }, &memo);
    announce(r1, c1, r2, c2);
}

QColor FlexGrid::CellForeColor(int row, int col) const
{
    checkCell(row, col);
    if (const QColor& own = formatOf(row, col).fore; own.isValid())
        return own;
    return palette().color(QPalette::Text);
}

void FlexGrid::setCellForeColor(int row, int col, const QColor& color)
{
    checkCell(row, col);
    changeFormat(row, col, [&](Format& f) { f.fore = color; });
    announce(row, col, row, col);
}

bool FlexGrid::CellFontBold(int row, int col) const
{
    checkCell(row, col);
    return formatOf(row, col).bold > 0;
}

void FlexGrid::setCellFontBold(int row, int col, bool bold)
{
    checkCell(row, col);
    changeFormat(row, col, [&](Format& f) { f.bold = bold ? 1 : 0; });
    announce(row, col, row, col);
}

qreal FlexGrid::CellFontSize(int row, int col) const
{
    checkCell(row, col);
    const qreal own = formatOf(row, col).points;
    return own > 0 ? own : font().pointSizeF();
}

void FlexGrid::setCellFontSize(int row, int col, qreal points)
{
    checkCell(row, col);
    changeFormat(row, col, [&](Format& f) { f.points = points; });
    announce(row, col, row, col);
}

void FlexGrid::setCellPicture(int row, int col, const QIcon& picture)
{
    checkCell(row, col);
    int index = -1;
    if (!picture.isNull()) {
        const auto same = std::find_if(pictures_.cbegin(), pictures_.cend(),
                                       [&](const QIcon& p) { return p.cacheKey() == picture.cacheKey(); });
        index = int(same - pictures_.cbegin());
        if (same == pictures_.cend()) {
            pictures_.append(picture);
            index = int(pictures_.size()) - 1;
        }
    }
    changeFormat(row, col, [&](Format& f) { f.picture = index; });
    announce(row, col, row, col);
}
