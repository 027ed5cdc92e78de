#include "masterdata/frmMaterias.h"

#include "masterdata/frmMateriasFicha.h"

frmMaterias::frmMaterias(QWidget* parent) : ListForm(parent)
{
    setCaption(QStringLiteral("Materias"));
    strSql = QStringLiteral("SELECT tblMaterias.Des, tblMaterias.Id") + QStringLiteral(" FROM tblMaterias") +
             QStringLiteral(" ORDER BY Des;");
    setColumns({500, 5000, 0}, {QString(), QStringLiteral("Descripción")});
    setFicha<frmMateriasFicha>();
    table = QStringLiteral("tblMaterias");
    newCaption = QStringLiteral("Nueva materia");
    deleteQuestion = QStringLiteral("Está seguro de elimiar la materia");
}
