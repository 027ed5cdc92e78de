// The student sheet's walk through the opener's list: previous, next, and a
// student chosen in the search dialog.
#include "students/frmAlumnosFicha.h"

#include "core/Modulo.h"
#include "students/frmAtopar.h"
#include "vb/Vb.h"

#include <QLineEdit>

db::Recordset& frmAlumnosFicha::Lista()
{
    // A sheet opened for a new student has no list to walk.
    if (!rcAlumnos_)
        throw RuntimeError(91, QStringLiteral("Variable de objeto o bloque With no establecido"));
    return *rcAlumnos_;
}

void frmAlumnosFicha::cmdAnterior_Click()
{
    Move(false);
}

void frmAlumnosFicha::cmdSeguinte_Click()
{
    Move(true);
}

void frmAlumnosFicha::Move(bool seguinte)
{
    db::Recordset& rs = Lista();
    seguinte ? rs.MoveNext() : rs.MovePrevious();
    if (seguinte ? rs.Eof() : rs.Bof()) {
        // Already on the last (first) student: back onto it, and the sheet
        // stays as it is.
        seguinte ? rs.MovePrevious() : rs.MoveNext();
        return;
    }
    id_ = vb::CLng(rs.Value(QStringLiteral("Id")));
    AmosaActual(true);
}

void frmAlumnosFicha::cmdBuscar_Click()
{
    BusyCursor busy(this);
    Tag = QStringLiteral("A");
    frmAtopar atopar(this);
    atopar.setEstado(QStringLiteral("Alumnos"));
    ShowModal(&atopar);
    if (!CodigoAtopado.isValid())
        return;
    id_ = vb::CLng(CodigoAtopado);
    CodigoAtopado = QVariant();
    // A student outside the list's filter leaves the list at its end; the
    // sheet loads by key all the same.
    db::Recordset& rs = Lista();
    rs.MoveFirst();
    rs.Find(QStringLiteral("Id = %1").arg(id_));
    // The final marks are not loaded after a search, only after previous
    // and next: that tab stays empty until the next move.
    AmosaActual(false);
}

void frmAlumnosFicha::AmosaActual(bool finales)
{
    estado_ = 1;
    LimpiaGrids();
    LimpiaRecuperacion();
    SoltaRecordsets();
    CargaAlumno();
    apeNomAnterior_ = txtApe->text() + txtNom->text();
    setCaption(vb::UCase(txtApe->text() + u' ' + txtNom->text()));
    CargaNotas();
    if (finales)
        CargaFinales();
    MostraGrafico();
}
