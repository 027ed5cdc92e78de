#pragma once
// Reading the grids and combos of the screens back in tests.
#include "ui/FlexGrid.h"

#include <QComboBox>
#include <QList>
#include <QStringList>

namespace gridtext {

// The texts of one grid row, from column 0.
inline QStringList row(const FlexGrid& grid, int r)
{
    QStringList texts;
    for (int c = 0; c < grid.Cols(); ++c)
        texts << grid.TextMatrix(r, c);
    return texts;
}

// The texts of one column below the title row.
inline QStringList column(const FlexGrid& grid, int c)
{
    QStringList texts;
    for (int r = 1; r < grid.Rows(); ++r)
        texts << grid.TextMatrix(r, c);
    return texts;
}

// The width of each column in twips, from column 0.
inline QList<int> widths(const FlexGrid& grid)
{
    QList<int> list;
    for (int c = 0; c < grid.Cols(); ++c)
        list << grid.ColWidth(c);
    return list;
}

// The first body row whose column holds the text; -1 when none does.
inline int rowWith(const FlexGrid& grid, int col, const QString& text)
{
    for (int r = 1; r < grid.Rows(); ++r)
        if (grid.TextMatrix(r, col) == text)
            return r;
    return -1;
}

inline QStringList items(const QComboBox& box)
{
    QStringList texts;
    for (int i = 0; i < box.count(); ++i)
        texts << box.itemText(i);
    return texts;
}

inline void choose(QComboBox* box, const QString& text)
{
    box->setCurrentIndex(box->findText(text));
}

} // namespace gridtext
