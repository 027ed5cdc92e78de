#pragma once
// What the student screen tests share: the seeded year as the session's with
// the screen harness (ScreenYear), the texts of a grid row, a double click on
// a grid cell, and whether an action brings up a modal window.
#include "core/Modulo.h"
#include "support/ModalForm.h"
#include "support/ScreenHarness.h"
#include "support/YearQueries.h"
#include "ui/FlexGrid.h"

#include <QtTest>

#include <functional>
#include <memory>

namespace alumnos_test {

const QColor kStripe(192, 192, 192); // gColor " 12632256 "

using Year = ScreenYear;

// The cells of a grid row from column `from` to `to` (the last when -1),
// joined by " | ".
inline QString cells(const FlexGrid& grid, int row, int from = 0, int to = -1)
{
    QStringList texts;
    for (int c = from; c <= (to < 0 ? grid.Cols() - 1 : to); ++c)
        texts.append(grid.TextMatrix(row, c));
    return texts.join(QStringLiteral(" | "));
}

// A double click on a body cell, by the grid's own row and column numbers:
// press and release, then the double click and its release, as a mouse sends them.
inline void doubleClickCell(FlexGrid* grid, int row, int col)
{
    const QModelIndex index = grid->model()->index(row - 1, col - 1);
    grid->scrollTo(index);
    const QPoint centre = grid->visualRect(index).center();
    QTest::mouseClick(grid->viewport(), Qt::LeftButton, {}, centre);
    QTest::mouseDClick(grid->viewport(), Qt::LeftButton, {}, centre);
    QTest::mouseRelease(grid->viewport(), Qt::LeftButton, {}, centre);
}

inline void pressEnter(QWidget* widget)
{
    QTest::keyClick(widget, Qt::Key_Return);
}

// Runs action and tells whether a modal window came up meanwhile (closing it).
inline bool opensAModal(const std::function<void()>& action)
{
    bool opened = false;
    ModalDriver::whenModal(
        [&](QWidget* w) {
            opened = true;
            w->close();
        },
        300);
    action();
    QTest::qWait(400);
    ModalDriver::takeTimedOut();
    return opened;
}

// A student row written straight into the year.
inline void addStudent(int id, const QString& ape, const QString& nom, int grupo = 1)
{
    gConexion->Execute(QStringLiteral("INSERT INTO tblAlumnos (Id, Ape, Nom, Grupo, AV) VALUES (%1, '%2', '%3', %4, 0)")
                           .arg(id)
                           .arg(ape, nom)
                           .arg(grupo));
}

} // namespace alumnos_test
