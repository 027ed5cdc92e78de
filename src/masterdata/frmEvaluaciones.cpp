#include "masterdata/frmEvaluaciones.h"

#include "masterdata/frmEvaluacionesFicha.h"

frmEvaluaciones::frmEvaluaciones(QWidget* parent) : ListForm(parent)
{
    setCaption(QStringLiteral("Evaluaciones"));
    strSql = QStringLiteral("SELECT tblEvaluaciones.Id, tblEvaluaciones.Des, FORMAT(tblEvaluaciones.Fec,'dd/MM/yyyy') "
                            "AS Fec, tblEvaluaciones.Obs") +
             QStringLiteral(" From tblEvaluaciones") + QStringLiteral(" ORDER BY tblEvaluaciones.Id;");
    setColumns({500, 800, 3000, 1500, 4000}, {QString(), QStringLiteral("Código"), QStringLiteral("Descripción"),
                                              QStringLiteral("Fecha"), QStringLiteral("Observaciones")});
    setFicha<frmEvaluacionesFicha>();
    table = QStringLiteral("tblEvaluaciones");
    newCaption = QStringLiteral("Nueva evaluación");
    deleteQuestion = QStringLiteral("Está seguro de eliminar la evaluación de");
}
