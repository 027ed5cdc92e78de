#include "masterdata/frmCursosFicha.h"

#include <QComboBox>

frmCursosFicha::frmCursosFicha(QWidget* parent)
    : FichaForm(QStringLiteral("tblCursos"), parent), cmbNivel(new QComboBox(this))
{
    cmbNivel->setObjectName(QStringLiteral("cmbNivel"));
    // With no levels at all a new course cannot be saved: levels come first.
    addCombo(QStringLiteral("Nivel"), cmbNivel,
             QStringLiteral("SELECT [tblNiveles]![Id] AS IdNivel, [tblNiveles]![Des] AS Nivel") +
                 QStringLiteral(" FROM tblNiveles") + QStringLiteral(" ORDER BY tblNiveles.Id;"),
             QStringLiteral("IdNivel"), QStringLiteral("Nivel"));
}
