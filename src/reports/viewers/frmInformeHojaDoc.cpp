#include "reports/viewers/frmInformeHojaDoc.h"

frmInformeHojaDoc::frmInformeHojaDoc(QWidget* parent) : ReportViewer(parent)
{
    setCaption(QStringLiteral("Ficha del alumno"));
}

void frmInformeHojaDoc::Form_Activate()
{
    showReport(QStringLiteral("Impresion/") + tipo_ + QStringLiteral(".rpt"), {}, QString());
}
