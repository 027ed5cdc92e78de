#include "masterdata/frmGruposFicha.h"

#include <QCheckBox>
#include <QComboBox>

frmGruposFicha::frmGruposFicha(QWidget* parent)
    : FichaForm(QStringLiteral("tblGrupos"), parent), cmbCurso(new QComboBox(this)),
      chkTit(new QCheckBox(QStringLiteral("TUTORÍA"), this))
{
    cmbCurso->setObjectName(QStringLiteral("cmbCurso"));
    chkTit->setObjectName(QStringLiteral("chkTit"));
    // With no courses at all a new group cannot be saved: courses come first.
    addCombo(
        QStringLiteral("Curso"), cmbCurso,
        QStringLiteral("SELECT [tblCursos]![Id] AS IdCurso, [tblCursos]![Des] & ' ' & [tblNiveles]![Des] AS Curso") +
            QStringLiteral(" FROM tblCursos INNER JOIN tblNiveles ON tblCursos.IdNivel = tblNiveles.Id") +
            QStringLiteral(" ORDER BY tblCursos.Id;"),
        QStringLiteral("IdCurso"), QStringLiteral("Curso"));
    addCheck(chkTit, QStringLiteral("Tit"));
}
