#include "ui/UiFunciones.h"

#include "core/Modulo.h"
#include "db/Recordset.h"
#include "ui/FlexGrid.h"
#include "vb/RuntimeError.h"
#include "vb/Vb.h"

#include <QApplication>
#include <QComboBox>
#include <QKeyEvent>
#include <QWidget>

void RellenarCombo(const QString& tabla, const QString& clave, const QString& texto, QComboBox* combo,
                   const QString& filtro)
{
    QString sql = QStringLiteral("SELECT %1.%2,%1.%3 From %1").arg(tabla, clave, texto);
    if (!filtro.isEmpty())
        sql += QStringLiteral(" WHERE ") + filtro;
    sql += QStringLiteral(" ORDER BY %1.%2").arg(tabla, clave);
    db::Recordset rs;
    rs.Open(sql, gConexion);
    while (!rs.Eof()) {
        combo->addItem(vb::CStr(rs.Value(1)));
        rs.MoveNext();
    }
    rs.Close();
}

void RellenarComboClave(QComboBox* combo, const QString& sql, const QString& clave, const QString& texto)
{
    combo->clear();
    db::Recordset rs;
    rs.Open(sql, gConexion);
    while (!rs.Eof()) {
        combo->addItem(rs.Value(texto).isNull() ? QString() : vb::CStr(rs.Value(texto)), rs.Value(clave));
        rs.MoveNext();
    }
    rs.Close();
    if (combo->count() > 0)
        combo->setCurrentIndex(0);
}

namespace {

enum : int { SortGenericAscending = 1, SortGenericDescending = 2 };

// The last sort, shared by every grid of the program.
int lastSortCol = -1;
int lastSortDirection = 0;

// Runs one statement of a routine that ignores its errors and goes on.
template <typename F>
void resumeNext(F&& statement)
{
    try {
        statement();
    } catch (const RuntimeError&) {
    }
}

int qtKeyOf(int vk)
{
    switch (vk) {
    case 8:
        return Qt::Key_Backspace;
    case 9:
        return Qt::Key_Tab;
    case 13:
        return Qt::Key_Return;
    case 27:
        return Qt::Key_Escape;
    case 32:
        return Qt::Key_Space;
    case 33:
        return Qt::Key_PageUp;
    case 34:
        return Qt::Key_PageDown;
    case 35:
        return Qt::Key_End;
    case 36:
        return Qt::Key_Home;
    case 37:
        return Qt::Key_Left;
    case 38:
        return Qt::Key_Up;
    case 39:
        return Qt::Key_Right;
    case 40:
        return Qt::Key_Down;
    case 46:
        return Qt::Key_Delete;
    default:
        if ((vk >= '0' && vk <= '9') || (vk >= 'A' && vk <= 'Z'))
            return vk; // Qt's codes of digits and letters are the same
        if (vk >= 112 && vk <= 123)
            return Qt::Key_F1 + (vk - 112);
        return Qt::Key_unknown;
    }
}

QString textOf(int vk)
{
    switch (vk) {
    case 8:
        return QStringLiteral("\b");
    case 9:
        return QStringLiteral("\t");
    case 13:
        return QStringLiteral("\r");
    case 27:
        return QString(QChar(27));
    case 32:
        return QStringLiteral(" ");
    default:
        if ((vk >= '0' && vk <= '9') || (vk >= 'A' && vk <= 'Z'))
            return QString(QChar(vk)).toLower();
        return {};
    }
}

} // namespace

void OrdenarGrid(FlexGrid* grid, int col)
{
    int direction = SortGenericAscending;
    resumeNext([&] {
        grid->setRedraw(false);
        grid->Refresh();
    });
    if (col != lastSortCol || lastSortDirection != SortGenericAscending)
        direction = SortGenericAscending;
    else
        direction = SortGenericDescending;
    resumeNext([&] {
        grid->Sort(col, direction == SortGenericAscending);
        grid->showSortIndicator(col, direction == SortGenericAscending);
    });
    lastSortDirection = direction;
    lastSortCol = col;
    resumeNext([&] { grid->setRedraw(true); });
}

float SumarColumnaRubrica(FlexGrid& grid)
{
    constexpr int kPuntos = 8;
    grid.setRedraw(false);
    float suma = 0;
    for (int r = 1; r < grid.Rows(); ++r)
        suma += vb::CSng(grid.TextMatrix(r, kPuntos));
    grid.setRedraw(true);
    return suma;
}

void resetOrdenarGrid()
{
    lastSortCol = -1;
    lastSortDirection = 0;
}

void PulsarTecla(int vk)
{
    QWidget* target = QApplication::focusWidget();
    if (!target)
        return;
    const int key = qtKeyOf(vk);
    const QString text = textOf(vk);
    QCoreApplication::postEvent(target, new QKeyEvent(QEvent::KeyPress, key, Qt::NoModifier, text));
    QCoreApplication::postEvent(target, new QKeyEvent(QEvent::KeyRelease, key, Qt::NoModifier, text));
}
