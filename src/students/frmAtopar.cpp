#include "students/frmAtopar.h"

#include "core/Modulo.h"
#include "students/ConsultasAlumnos.h"
#include "ui/Controls.h"
#include "ui/EntryConventions.h"
#include "ui/FlexGrid.h"

#include <QHBoxLayout>
#include <QLineEdit>
#include <QPushButton>
#include <QVBoxLayout>

using alumnos::kDesGrupo;

namespace {

const QString kAlumnos = QStringLiteral("Alumnos");
const QString kAlumnoTutoria = QStringLiteral("AlumnoTutoria");

// "Apellidos, Nombre" as one text, which is also what the search reads.
const QString kAlumno = QStringLiteral("tblAlumnos.Ape & ', ' & tblAlumnos.Nom");

QString consulta(const QString& estado, const QString& t)
{
    using alumnos::contiene;
    if (estado == kAlumnos)
        return QStringLiteral("SELECT ") + kAlumno + QStringLiteral(" AS Alumno, tblAlumnos.MailAlu, ") + kDesGrupo +
               QStringLiteral(" AS DesGrupo, tblAlumnos.Id AS Codigo") + alumnos::kFromAlumnos +
               QStringLiteral(" WHERE ") + contiene(kAlumno, t) + QStringLiteral(" OR ") +
               contiene(QStringLiteral("tblAlumnos.MailAlu"), t) + QStringLiteral(" OR ") + contiene(kDesGrupo, t) +
               alumnos::kOrdenAlumnos;
    if (estado == kAlumnoTutoria)
        // An inner join: a student without a group is nobody's tutee.
        return QStringLiteral("SELECT ") + kAlumno +
               QStringLiteral(" AS Alumno,  tblAlumnos.Id AS Codigo FROM tblAlumnos INNER JOIN tblGrupos ON "
                              "tblAlumnos.Grupo = tblGrupos.Id WHERE ") +
               contiene(kAlumno, t) + QStringLiteral(" AND tblGrupos.Tit=True") + alumnos::kOrdenAlumnos;
    return QString();
}

} // namespace

frmAtopar::frmAtopar(QWidget* parent)
    : Form(parent), txtBuscar(new QLineEdit(this)), mshDatos(new FlexGrid(this)),
      cmdNuevo(ui::commandButton(this, "cmdNuevo", QStringLiteral("&NUEVO ALUMNO")))
{
    setCaption(QStringLiteral("Buscar Alumno"));
    txtBuscar->setObjectName(QStringLiteral("txtBuscar"));
    mshDatos->setObjectName(QStringLiteral("mshDatos"));
    mshDatos->setMinimumSize(mshDatos->twipsToPixels(11500) + 24, 360);

    auto* top = new QHBoxLayout;
    top->addWidget(txtBuscar, 1);
    top->addWidget(cmdNuevo);
    auto* layout = new QVBoxLayout(this);
    layout->addLayout(top);
    layout->addWidget(mshDatos, 1);
    setSizeGripEnabled(true);

    ui::installSearchField(txtBuscar, [this] { BuscaAlumnos(); });
    onSignal(mshDatos, &FlexGrid::DblClick, &frmAtopar::Elixir);
    onSignal(mshDatos, &FlexGrid::EnterPressed, &frmAtopar::Elixir);
    onSignal(cmdNuevo, &QPushButton::clicked, &frmAtopar::cmdNuevo_Click);
}

void frmAtopar::Form_Activate()
{
    if (consumeTagA())
        return;
    BuscaAlumnos();
    txtBuscar->setFocus();
}

void frmAtopar::BuscaAlumnos()
{
    const QString sql = consulta(estado_, txtBuscar->text());
    if (sql.isEmpty())
        return;
    rs_.Close();
    rs_.Open(sql, gConexion);
    const bool alumnos = estado_ == kAlumnos;
    const QList<int> widths = alumnos ? QList<int>{500, 5000, 3000, 3000, 0} : QList<int>{500, 8000, 0};
    const QStringList titles = alumnos ? QStringList{QString(), QStringLiteral("ALUMNO"),
                                                     QStringLiteral("CORREO ELECTRÓNICO"), QStringLiteral("GRUPO")}
                                       : QStringList{QString(), QStringLiteral("ALUMNO")};
    ui::fillList(*mshDatos, rs_, widths, titles);
    if (rs_.RecordCount() == 0)
        return;
    for (int c = 0; c < mshDatos->Cols(); ++c)
        mshDatos->setFixedAlignment(c, Qt::AlignCenter);
    mshDatos->setColSel(alumnos ? 4 : 2);
}

void frmAtopar::Elixir()
{
    if (!rs_.IsOpen() || rs_.RecordCount() == 0)
        return;
    ui::moveRecordsetToGridRow(*mshDatos, rs_);
    CodigoAtopado = rs_.Value(QStringLiteral("Codigo"));
    Unload();
}

void frmAtopar::cmdNuevo_Click()
{
    // Kept without an action in this version: the pointer shows busy for an
    // instant and nothing opens.
    BusyCursor busy(this);
}

void frmAtopar::done(int result)
{
    if (!CodigoAtopado.isValid())
        gAtopar = QStringLiteral("0");
    rs_.Close();
    Form::done(result);
}
