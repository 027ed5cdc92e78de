#include "masterdata/frmCursos.h"

#include "masterdata/frmCursosFicha.h"

frmCursos::frmCursos(QWidget* parent) : ListForm(parent)
{
    setCaption(QStringLiteral("Cursos"));
    // A course whose level is gone drops out of the join.
    strSql = QStringLiteral("SELECT tblCursos.Id, tblCursos.Des, tblNiveles.Des AS Nivel, tblCursos.IdNivel") +
             QStringLiteral(" FROM tblCursos INNER JOIN tblNiveles ON tblCursos.IdNivel = tblNiveles.Id") +
             QStringLiteral(" ORDER BY tblCursos.Id;");
    setColumns({500, 1100, 3000, 1500, 0},
               {QString(), QStringLiteral("Código"), QStringLiteral("Descripción"), QStringLiteral("Nivel")});
    setFicha<frmCursosFicha>();
    table = QStringLiteral("tblCursos");
    newCaption = QStringLiteral("Nuevo curso");
    deleteQuestion = QStringLiteral("Está seguro de elimiar el curso");
}
