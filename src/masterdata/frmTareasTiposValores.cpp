#include "masterdata/frmTareasTiposValores.h"

#include "ui/EntryConventions.h"
#include "ui/MsgBox.h"
#include "ui/UiFunciones.h"
#include "vb/Vb.h"

#include <QComboBox>
#include <QLineEdit>

frmTareasTiposValores::frmTareasTiposValores(QWidget* parent)
    : FichaForm(QStringLiteral("tblTareasTiposValor"), parent), cmbAvaliacion(new QComboBox(this)),
      txtValor(new QLineEdit(this))
{
    setCaption(QStringLiteral("Valoración "));
    setIdCaption(QStringLiteral("Identificador"));
    dropDescription();
    cmbAvaliacion->setObjectName(QStringLiteral("cmbAvaliacion"));
    cmbAvaliacion->setMinimumWidth(cmbAvaliacion->fontMetrics().horizontalAdvance(QLatin1Char('x')) * 30);
    txtValor->setObjectName(QStringLiteral("txtValor"));
    txtValor->setMaximumWidth(txtValor->fontMetrics().horizontalAdvance(QStringLiteral("00000000")) + 12);
    addField(QStringLiteral("Avaliación"), cmbAvaliacion);
    addField(QStringLiteral("Valor"), txtValor);
    ui::installDecimalComma(txtValor);
}

QString frmTareasTiposValores::loadStatement() const
{
    return QStringLiteral("SELECT tblTareasTiposValor.*, tblEvaluaciones.Des AS Aval") +
           QStringLiteral(" FROM tblTareasTiposValor INNER JOIN tblEvaluaciones ON tblTareasTiposValor.IdEval = "
                          "tblEvaluaciones.Id") +
           QStringLiteral(" Where tblTareasTiposValor.Id = ") + QString::number(Id());
}

void frmTareasTiposValores::loadLists()
{
    RellenarComboClave(cmbAvaliacion,
                       QStringLiteral("SELECT Id, Des") + QStringLiteral(" FROM tblEvaluaciones") +
                           QStringLiteral(" ORDER BY tblEvaluaciones.Id"),
                       QStringLiteral("Id"), QStringLiteral("Des"));
}

bool frmTareasTiposValores::ComprobaDatos()
{
    if (!vb::IsNumeric(txtValor->text())) {
        Rechazar(QStringLiteral("Ponga un valor correcto"), txtValor);
        txtValor->selectAll();
        return false;
    }
    return true;
}

void frmTareasTiposValores::showFields(db::Recordset& row)
{
    const int shown = cmbAvaliacion->findText(Texto(row.Value(QStringLiteral("Aval"))));
    if (shown >= 0)
        cmbAvaliacion->setCurrentIndex(shown);
    txtValor->setText(Texto(row.Value(QStringLiteral("Valor"))));
}

void frmTareasTiposValores::writeFields(db::Recordset& row)
{
    row.Fields(QStringLiteral("IdEval")) = vb::CLng(cmbAvaliacion->currentData());
    // A weight is a whole number: 12,5 is stored as 12.
    row.Fields(QStringLiteral("Valor")) = vb::CLng(txtValor->text());
    if (Estado() == 0) {
        row.Fields(QStringLiteral("IdTareaTip")) = idTareaTip_;
        row.Fields(QStringLiteral("IdMat")) = idMat_;
        row.Fields(QStringLiteral("IdGrupo")) = idGrupo_;
    }
}
