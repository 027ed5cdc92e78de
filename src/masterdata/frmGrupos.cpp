#include "masterdata/frmGrupos.h"

#include "masterdata/frmGruposFicha.h"

frmGrupos::frmGrupos(QWidget* parent) : ListForm(parent)
{
    setCaption(QStringLiteral("Grupos"));
    strSql = QStringLiteral("SELECT tblGrupos.Id, tblGrupos.Des, [tblCursos]![Des] & ' ' & [tblNiveles]![Des] AS "
                            "Curso, tblGrupos.IdCurso, IIF(tblGrupos.Tit=True, 'SI','NO') AS Tit") +
             QStringLiteral(" FROM tblGrupos INNER JOIN (tblCursos INNER JOIN tblNiveles ON tblCursos.IdNivel = "
                            "tblNiveles.Id) ON tblGrupos.IdCurso = tblCursos.Id") +
             QStringLiteral(" ORDER BY tblGrupos.Id;");
    setColumns({500, 1100, 3000, 1500, 0, 600}, {QString(), QStringLiteral("Código"), QStringLiteral("Descripción"),
                                                 QStringLiteral("Curso"), QString(), QStringLiteral("Tutoría")});
    setFicha<frmGruposFicha>();
    table = QStringLiteral("tblGrupos");
    newCaption = QStringLiteral("Nuevo grupo");
    // The students of a deleted group stay, with a group that is gone.
    deleteQuestion = QStringLiteral("Está seguro de elimiar el grupo");
}
