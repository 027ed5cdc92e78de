#include "students/frmAtopar.h"

#include "core/Modulo.h"
#include "students/ConsultasAlumnos.h"
#include "ui/Controls.h"
#include "ui/EntryConventions.h"
#include "ui/FlexGrid.h"
#include "ui/GridShape.h"

#include <QHBoxLayout>
#include <QLineEdit>
#include <QPushButton>
#include <QVBoxLayout>

using studentlist::kGroupText;

namespace {

const QString kAlumnos = QStringLiteral("Alumnos");
const QString kAlumnoTutoria = QStringLiteral("AlumnoTutoria");

// "Apellidos, Nombre" as one text, which is also what the search reads.
const QString kAlumno = QStringLiteral("tblAlumnos.Ape & ', ' & tblAlumnos.Nom");

QString consulta(const QString& estado, const QString& t)
{
    using studentlist::contains;
    if (estado == kAlumnos)
        return QStringLiteral("SELECT ") + kAlumno + QStringLiteral(" AS Alumno, tblAlumnos.MailAlu, ") + kGroupText +
               QStringLiteral(" AS DesGrupo, tblAlumnos.Id AS Codigo") + studentlist::kFromStudents +
               QStringLiteral(" WHERE ") + contains(kAlumno, t) + QStringLiteral(" OR ") +
               contains(QStringLiteral("tblAlumnos.MailAlu"), t) + QStringLiteral(" OR ") + contains(kGroupText, t) +
               studentlist::kOrderByName;
    if (estado == kAlumnoTutoria)
        // An inner join: a student without a group is nobody's tutee.
        return QStringLiteral("SELECT ") + kAlumno +
               QStringLiteral(" AS Alumno,  tblAlumnos.Id AS Codigo FROM tblAlumnos INNER JOIN tblGrupos ON "
                              "tblAlumnos.Grupo = tblGrupos.Id WHERE ") +
               contains(kAlumno, t) + QStringLiteral(" AND tblGrupos.Tit=True") + studentlist::kOrderByName;
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
    // Titles centred over cells on the left; the key stays hidden under its
    // field's name.
    constexpr Qt::Alignment centro = Qt::AlignCenter;
    const ui::GridColumns columns = alumnos ? ui::GridColumns{{QStringLiteral(""), 500, {}, centro},
                                                              {QStringLiteral("ALUMNO"), 5000, {}, centro},
                                                              {QStringLiteral("CORREO ELECTRÓNICO"), 3000, {}, centro},
                                                              {QStringLiteral("GRUPO"), 3000, {}, centro},
                                                              {QString(), 0, {}, centro}}
                                            : ui::GridColumns{{QStringLiteral(""), 500, {}, centro},
                                                              {QStringLiteral("ALUMNO"), 8000, {}, centro},
                                                              {QString(), 0, {}, centro}};
    ui::fillList(*mshDatos, rs_, columns);
    if (rs_.RecordCount() > 0)
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
