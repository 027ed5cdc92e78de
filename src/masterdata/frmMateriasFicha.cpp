#include "masterdata/frmMateriasFicha.h"

#include <QLineEdit>

frmMateriasFicha::frmMateriasFicha(QWidget* parent)
    : FichaForm(QStringLiteral("tblMaterias"), parent), txtObs(new QLineEdit(this))
{
    txtObs->setObjectName(QStringLiteral("txtObs"));
    addText(QStringLiteral("Observaciones"), txtObs, QStringLiteral("Obs"));
}
