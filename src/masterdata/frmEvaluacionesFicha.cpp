#include "masterdata/frmEvaluacionesFicha.h"

#include "ui/EntryConventions.h"
#include "ui/MaskEdit.h"
#include "vb/Vb.h"

#include <QLineEdit>

frmEvaluacionesFicha::frmEvaluacionesFicha(QWidget* parent)
    : FichaForm(QStringLiteral("tblEvaluaciones"), parent), mskFec(new MaskEdit(this)), txtObs(new QLineEdit(this))
{
    descriptionMessage = QStringLiteral("Ponga una descripción de evaluación");
    mskFec->setObjectName(QStringLiteral("mskFec"));
    mskFec->setMaximumWidth(mskFec->fontMetrics().horizontalAdvance(QStringLiteral("00/00/00000")) + 16);
    txtObs->setObjectName(QStringLiteral("txtObs"));
    addField(QStringLiteral("Fecha"), mskFec);
    ui::installDateConventions(mskFec);
    addText(QStringLiteral("Observaciones"), txtObs, QStringLiteral("Obs"));
}

QString frmEvaluacionesFicha::dateText() const
{
    // The box still holds its mask while it has the focus: an untouched
    // mask is an empty date.
    const QString text = mskFec->Text();
    return text == QStringLiteral("__/__/____") ? QString() : text;
}

void frmEvaluacionesFicha::showFields(db::Recordset& row)
{
    const QVariant fec = row.Value(QStringLiteral("Fec"));
    mskFec->setText(vb::IsNull(fec) ? QString() : vb::Format(fec, QStringLiteral("dd/MM/yyyy")));
}

bool frmEvaluacionesFicha::ComprobaDatos()
{
    if (!FichaForm::ComprobaDatos())
        return false;
    const QString fec = dateText();
    if (!fec.isEmpty() && !vb::IsDate(fec))
        return Rechazar(QStringLiteral("Ponga una fecha correcta"), mskFec);
    return true;
}

void frmEvaluacionesFicha::writeFields(db::Recordset& row)
{
    const QString fec = dateText();
    row.Fields(QStringLiteral("Fec")) = vb::IsDate(fec) ? vb::CDate(fec) : QVariant();
}
