#include "marks/frmNotaFinal.h"

#include "core/Funciones.h"
#include "core/Modulo.h"
#include "db/Recordset.h"
#include "ui/Controls.h"
#include "ui/EntryConventions.h"
#include "vb/Vb.h"

#include <QLineEdit>
#include <QPushButton>

namespace {

bool esEval(const QString& tipo)
{
    return tipo == QLatin1String("Eval");
}

} // namespace

frmNotaFinal::frmNotaFinal(QWidget* parent)
    : NotaDialog(parent), cmdEliminar(ui::commandButton(this, "cmdEliminar", QStringLiteral("&Eliminar")))
{
    setObjectName(QStringLiteral("frmNotaFinal"));
    addButton(cmdEliminar);
    onSignal(cmdEliminar, &QPushButton::clicked, &frmNotaFinal::cmdEliminar_Click);
}

QString frmNotaFinal::onde() const
{
    // The row of the student and subject; of the evaluation too for "Eval".
    if (esEval(tipo_))
        return QStringLiteral(" WHERE tblNotasEval.IdEval=%1 AND tblNotasEval.IdMat=%2 AND tblNotasEval.IdAlu = %3")
            .arg(idEval_)
            .arg(idMat_)
            .arg(idAlu_);
    return QStringLiteral(" WHERE tblNotasFinal.IdMat=%1 AND tblNotasFinal.IdAlu = %2").arg(idMat_).arg(idAlu_);
}

void frmNotaFinal::Form_Activate()
{
    ui::limitToColumn(txtObs, esEval(tipo_) ? QStringLiteral("tblNotasEval") : QStringLiteral("tblNotasFinal"),
                      QStringLiteral("Obs"));
    txtNota->setFocus();
    if (nota_ == -1)
        return;
    txtNota->setText(vb::CStr(QVariant::fromValue(nota_)));
    db::Recordset rs;
    rs.Open(QStringLiteral("SELECT Obs FROM ") +
                (esEval(tipo_) ? QStringLiteral("tblNotasEval") : QStringLiteral("tblNotasFinal")) + onde(),
            gConexion);
    txtObs->setText(rs.Eof() ? QString() : ui::displayText(rs.Value(QStringLiteral("Obs"))));
}

QString frmNotaFinal::sqlGuardar() const
{
    const QString cierre = QStringLiteral(", '") + obs() + QStringLiteral("')");
    if (nota_ == -1) {
        if (esEval(tipo_))
            return QStringLiteral("INSERT INTO tblNotasEval (Id, IdEval, IdMat, IdAlu, Nota, Obs) VALUES(%1, %2, %3, "
                                  "%4, ")
                       .arg(SiguienteId(QStringLiteral("tblNotasEval"), QStringLiteral("Id")))
                       .arg(idEval_)
                       .arg(idMat_)
                       .arg(idAlu_) +
                   typedMark() + cierre;
        if (tipo_ == QLatin1String("FinalO"))
            return QStringLiteral("INSERT INTO tblNotasFinal (Id, IdMat, IdAlu, NotaO, Obs) VALUES(%1, %2, %3, ")
                       .arg(SiguienteId(QStringLiteral("tblNotasFinal"), QStringLiteral("Id")))
                       .arg(idMat_)
                       .arg(idAlu_) +
                   typedMark() + cierre;
        // No insert for "FinalE": no statement is formed.
        return QString();
    }
    const QString tabla = esEval(tipo_) ? QStringLiteral("tblNotasEval") : QStringLiteral("tblNotasFinal");
    const QString columna = esEval(tipo_)                      ? QStringLiteral("Nota")
                            : tipo_ == QLatin1String("FinalO") ? QStringLiteral("NotaO")
                                                               : QStringLiteral("NotaE");
    return QStringLiteral("UPDATE %1 SET %1.%2 = ").arg(tabla, columna) + notaEnSimple() +
           QStringLiteral(", %1.Obs = '").arg(tabla) + obs() + QStringLiteral("'") + onde();
}

void frmNotaFinal::Guardar()
{
    // Exactly one statement; an empty one for "FinalE" without a mark.
    gConexion->Execute(sqlGuardar());
}

QString frmNotaFinal::sqlEliminar() const
{
    if (esEval(tipo_))
        // No condition on the evaluation.
        return QStringLiteral("DELETE * FROM tblNotasEval WHERE tblNotasEval.IdMat=%1 AND tblNotasEval.IdAlu = %2")
            .arg(idMat_)
            .arg(idAlu_);
    if (tipo_ == QLatin1String("FinalO"))
        return QStringLiteral("DELETE * FROM tblNotasFinal") + onde();
    return QStringLiteral("UPDATE tblNotasFinal SET tblNotasFinal.NotaE = Null") + onde();
}

void frmNotaFinal::cmdEliminar_Click()
{
    gConexion->Execute(sqlEliminar());
    Unload();
}
