// The row operations of FlexGrid (adding, removing, sorting, merging, binding)
// and the list fill that the list screens share.
#include "core/ui/FlexGrid.h"

#include "core/Modulo.h"
#include "core/db/Recordset.h"
#include "core/ui/Colors.h"
#include "core/vb/Vb.h"

#include <QCollator>

#include <algorithm>

namespace {

QString cellText(const QVariant& value)
{
    return vb::IsNull(value) ? QString() : vb::CStr(value);
}

} // namespace

void FlexGrid::AddItem(const QString& item, int row)
{
    if (row < 0)
        row = Rows();
    if (row < top() || row > Rows())
        raiseInvalidRow();
    insertRow(row - top());
    ensureHeaderItems();
    const QStringList cells = item.split(u'\t');
    for (int c = 0; c < cells.size() && c < Cols(); ++c)
        setTextMatrix(row, c, cells[c]);
    restyleFixedCells();
}

void FlexGrid::RemoveItem(int row)
{
    checkCell(row, 0);
    if (row >= top())
        removeRow(row - top());
}

void FlexGrid::Sort(int col, bool ascending)
{
    checkCell(0, col);
    const int first = fixedRows_ - top(); // first body row that moves
    const int count = rowCount() - first;
    if (count < 2)
        return;
    struct Line {
        QString key;
        QTableWidgetItem* header;
        QVector<QTableWidgetItem*> cells;
    };
    QVector<Line> lines(count);
    for (int i = 0; i < count; ++i) {
        const int r = first + i;
        lines[i].key = TextMatrix(r + top(), col);
        lines[i].header = lead() ? takeVerticalHeaderItem(r) : nullptr;
        for (int c = 0; c < columnCount(); ++c)
            lines[i].cells.append(takeItem(r, c));
    }
    static const QCollator collator = [] {
        QCollator c(QLocale(QLocale::Spanish, QLocale::Spain));
        c.setCaseSensitivity(Qt::CaseInsensitive);
        return c;
    }();
    auto less = [](const QString& a, const QString& b) {
        if (vb::IsNumeric(a) && vb::IsNumeric(b))
            return vb::CDbl(a) < vb::CDbl(b);
        return collator.compare(a, b) < 0;
    };
    std::stable_sort(lines.begin(), lines.end(),
                     [&](const Line& a, const Line& b) { return ascending ? less(a.key, b.key) : less(b.key, a.key); });
    for (int i = 0; i < count; ++i) {
        const int r = first + i;
        if (lead())
            setVerticalHeaderItem(r, lines[i].header ? lines[i].header : new QTableWidgetItem);
        for (int c = 0; c < columnCount(); ++c)
            setItem(r, c, lines[i].cells[c]);
    }
}

void FlexGrid::mergeEqualCells(int col)
{
    checkCell(0, col);
    if (col < lead())
        return;
    const int c = col - lead();
    int r = fixedRows_;
    while (r < Rows()) {
        const QString text = TextMatrix(r, col);
        int end = r + 1;
        while (!text.isEmpty() && end < Rows() && TextMatrix(end, col) == text)
            ++end;
        if (rowSpan(r - top(), c) != end - r)
            setSpan(r - top(), c, end - r, 1);
        r = end;
    }
}

void FlexGrid::bindRecordset(db::Recordset& rs, int firstCol, bool rowNumbers)
{
    const int records = rs.RecordCount();
    const int fields = rs.FieldCount();
    const int saved = rs.AbsolutePosition();
    const bool wasRedraw = redraw_;
    setRedraw(false);
    setCols(fields + firstCol);
    setRows(records + 1);
    if (fixedRows_ == 0)
        setFixedRows(1);
    for (int f = 0; f < fields; ++f)
        setTextMatrix(0, firstCol + f, rs.FieldName(f));
    if (records > 0) {
        rs.MoveFirst();
        writeQuietly(1, rowNumbers ? 0 : firstCol, records, fields + firstCol - 1, [&] {
            for (int r = 1; r <= records; ++r, rs.MoveNext()) {
                if (rowNumbers)
                    setTextMatrix(r, 0, QString::number(r));
                for (int f = 0; f < fields; ++f)
                    setTextMatrix(r, firstCol + f, cellText(rs.Value(f)));
            }
        });
        if (saved >= 1)
            rs.SetAbsolutePosition(saved);
        else
            rs.MoveFirst();
    }
    setRedraw(wasRedraw);
}

namespace ui {

void fillList(FlexGrid& grid, db::Recordset& rs, const QList<int>& widths, const QStringList& titles, bool rowNumbers)
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
    for (int c = 0; c < grid.Cols(); ++c) {
        grid.setColAlignment(c, Qt::AlignLeft | Qt::AlignVCenter);
        grid.setFixedAlignment(c, Qt::AlignLeft | Qt::AlignVCenter);
    }
    grid.bindRecordset(rs, 1, rowNumbers);
    for (int c = 0; c < widths.size() && c < grid.Cols(); ++c)
        grid.setColWidth(c, widths[c]);
    for (int c = 0; c < titles.size() && c < grid.Cols(); ++c)
        grid.setTextMatrix(0, c, titles[c]);
    stripeRows(grid, 1);
    grid.setRow(1);
    grid.setCol(1);
    grid.setRedraw(true);
}

void stripeRows(FlexGrid& grid, int firstCol)
{
    const QColor even = colorFromVariant(gColor);
    const QColor odd = white();
    if (firstCol >= grid.Cols())
        return;
    for (int r = grid.FixedRows(); r < grid.Rows(); ++r)
        grid.setRangeBackColor(r, firstCol, r, grid.Cols() - 1, r % 2 == 0 ? even : odd);
}

void moveRecordsetToGridRow(const FlexGrid& grid, db::Recordset& rs)
{
    rs.SetAbsolutePosition(grid.RowSel());
}

} // namespace ui
