#include "reports/viewers/frmInformeListado.h"

#include "core/Modulo.h"
#include "reports/engine/Catalogue.h"

frmInformeListado::frmInformeListado(QWidget* parent) : ReportViewer(parent)
{
    setCaption(QStringLiteral("Informe"));
}

void frmInformeListado::Form_Activate()
{
    QHash<QString, QString> values;
    values.insert(QStringLiteral("pEmpresa"), empresa_);
    values.insert(QStringLiteral("pTitulo"), titulo_);
    values.insert(QStringLiteral("pInfo"), info_);
    showReport(reports::catalogue::filePath(gRutaBase, tipo_), values, filtro_);
}
