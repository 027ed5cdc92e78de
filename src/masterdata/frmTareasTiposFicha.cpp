#include "masterdata/frmTareasTiposFicha.h"

#include "ui/EntryConventions.h"
#include "vb/Vb.h"

#include <QLineEdit>

frmTareasTiposFicha::frmTareasTiposFicha(QWidget* parent)
    : FichaForm(QStringLiteral("tblTareasTipos"), parent), txtMin(ui::textField(this, "txtMin", 8)),
      txtMax(ui::textField(this, "txtMax", 8)), txtObs(ui::textField(this, "txtObs"))
{
    addField(QStringLiteral("Valor MÍNIMO en notas"), txtMin);
    addField(QStringLiteral("Valor MÁXIMO en notas"), txtMax);
    addText(QStringLiteral("Observaciones"), txtObs, QStringLiteral("Obs"));
    ui::installDecimalComma(txtMin);
    ui::installDecimalComma(txtMax);
}

bool frmTareasTiposFicha::ComprobaDatos()
{
    if (!FichaForm::ComprobaDatos())
        return false;
    if (!vb::IsNumeric(txtMin->text()))
        return Rechazar(QStringLiteral("Ponga un nº correcto"), txtMin);
    if (!vb::IsNumeric(txtMax->text()))
        return Rechazar(QStringLiteral("Ponga un nº correcto"), txtMax);
    return true;
}

void frmTareasTiposFicha::showFields(db::Recordset& row)
{
    txtMin->setText(Texto(row.Value(QStringLiteral("Min"))));
    txtMax->setText(Texto(row.Value(QStringLiteral("Max"))));
}

void frmTareasTiposFicha::writeFields(db::Recordset& row)
{
    // Whole numbers: 12,5 is stored as 12 (half to even).
    row.Fields(QStringLiteral("Min")) = vb::CInt(txtMin->text());
    row.Fields(QStringLiteral("Max")) = vb::CInt(txtMax->text());
}
