#include "masterdata/frmNiveles.h"

#include "masterdata/frmNivelesFicha.h"

frmNiveles::frmNiveles(QWidget* parent) : ListForm(parent)
{
    setCaption(QStringLiteral("Niveles"));
    strSql = QStringLiteral("SELECT Id, Des FROM tblNiveles ORDER BY Id");
    setColumns({500, 1100, 4000}, {QString(), QStringLiteral("Código"), QStringLiteral("Descripción")});
    setFicha<frmNivelesFicha>();
    table = QStringLiteral("tblNiveles");
    newCaption = QStringLiteral("Nuevo nivel");
    deleteQuestion = QStringLiteral("Está seguro de elimiar el nivel");
}

void frmNiveles::BorrarActual()
{
    // Levels go through the list's own recordset; the courses of the level
    // stay and drop out of the course list.
    rs.Delete();
}
