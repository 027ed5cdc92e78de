#pragma once
// Reading the grids and combos of the screens back in tests.
#include "ui/FlexGrid.h"

#include <QComboBox>
#include <QList>
#include <QStringList>
#include <QTest>
#include <QVariant>

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

// The texts of a combo's entries, in order.
inline QStringList items(const QComboBox& box)
{
    QStringList texts;
    for (int i = 0; i < box.count(); ++i)
        texts << box.itemText(i);
    return texts;
}

// Each entry as "<text>=<item data>", in order.
inline QStringList itemsWithData(const QComboBox& box)
{
    QStringList texts;
    for (int i = 0; i < box.count(); ++i)
        texts << box.itemText(i) + u'=' + box.itemData(i).toString();
    return texts;
}

// The entry of that text made current, as a program sets it (no signal of
// the user's choice).
inline void choose(QComboBox* box, const QString& text)
{
    box->setCurrentIndex(box->findText(text));
}

// The entry whose item data is that key made current.
inline void chooseData(QComboBox* box, const QVariant& key)
{
    box->setCurrentIndex(box->findData(key));
}

// A choice made by the user: the entry of that text selected, then its
// click (activated). A text the box does not hold fails the test.
inline void pick(QComboBox* box, const QString& text)
{
    const int index = box->findText(text);
    QVERIFY2(index >= 0, qPrintable(text));
    box->setCurrentIndex(index);
    emit box->activated(index);
}

} // namespace gridtext
