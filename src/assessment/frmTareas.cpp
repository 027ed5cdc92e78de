#include "assessment/frmTareas.h"

#include "assessment/frmEvaluar.h"
#include "assessment/frmTareasFicha.h"
#include "core/Modulo.h"
#include "rubrics/frmTareasRubrica.h"
#include "ui/Controls.h"
#include "ui/EntryConventions.h"
#include "ui/FlexGrid.h"
#include "ui/MsgBox.h"
#include "vb/Vb.h"

#include <QCheckBox>
#include <QComboBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QVBoxLayout>

using vb::CLng;

namespace {

const QString kTodos = QStringLiteral("TODOS");
const QString kTodas = QStringLiteral("TODAS");

const QString kBase = QStringLiteral(
    "SELECT tblTareasTipos.Des AS TipoTarea, tblEvaluaciones.Des AS Evaluacion, [tblCursos]![Des] & ' ' & "
    "[tblNiveles]![Des] & ' ' & [tblGrupos]![Des] AS Grupo, tblMaterias.Des AS Materia, tblTareas.Des, "
    "FORMAT(tblTareas.FecIni,'dd/MM/yyyy') AS FecIni, FORMAT(tblTareas.FecFin,'dd/MM/yyyy') AS FecFin, "
    "IIF(tblTareas.Nota = True, 'SÍ','NO') AS Nota, IIF(tblTareas.Fin= True, 'SÍ','NO') AS Fin, tblTareas.Id, "
    "tblTareas.IdTip, tblTareas.IdEva, tblTareas.IdGru, tblTareasTipos.Max FROM (((((tblTareas INNER JOIN "
    "tblTareasTipos ON tblTareas.IdTip = tblTareasTipos.Id) INNER JOIN tblEvaluaciones ON tblTareas.IdEva = "
    "tblEvaluaciones.Id) INNER JOIN tblMaterias ON tblTareas.IdMat = tblMaterias.Id) INNER JOIN tblGrupos ON "
    "tblTareas.IdGru = tblGrupos.Id) INNER JOIN tblCursos ON tblGrupos.IdCurso = tblCursos.Id) INNER JOIN "
    "tblNiveles ON tblCursos.IdNivel = tblNiveles.Id");

// The text search over type, evaluation, group and description.
const char* const kTexto =
    "tblTareasTipos.Des LIKE '%{texto}%' OR tblEvaluaciones.Des LIKE '%{texto}%' OR [tblCursos]![Des] & ' ' & "
    "[tblNiveles]![Des] & ' ' & [tblGrupos]![Des] LIKE '%{texto}%' OR tblTareas.Des LIKE '%{texto}%'";

// The clause of each combination, by pendientes, group, subject and text
// (8, 4, 2, 1). The twelfth, pendientes with a subject and a text, binds the
// subject to the first alternative of the search alone: a task of another
// subject that matches by evaluation, group or description still shows.
const char* const kClausulas[16] = {
    "",
    " WHERE {T}",
    " WHERE tblMaterias.Des = '{materia}'",
    " WHERE tblMaterias.Des = '{materia}' AND ({T})",
    " WHERE tblTareas.IdGru = {id}",
    " WHERE tblTareas.IdGru = {id} AND ({T})",
    " WHERE tblTareas.IdGru = {id} AND tblMaterias.Des = '{materia}'",
    " WHERE tblTareas.IdGru = {id} AND tblMaterias.Des = '{materia}' AND ({T})",
    " WHERE tblTareas.Fin = False",
    " WHERE ({T}) AND tblTareas.Fin = False",
    " WHERE tblTareas.Fin = False AND tblMaterias.Des = '{materia}'",
    " WHERE (tblTareasTipos.Des LIKE '%{texto}%' AND tblMaterias.Des = '{materia}' OR tblEvaluaciones.Des LIKE "
    "'%{texto}%' OR [tblCursos]![Des] & ' ' & [tblNiveles]![Des] & ' ' & [tblGrupos]![Des] LIKE '%{texto}%' OR "
    "tblTareas.Des LIKE '%{texto}%') AND tblTareas.Fin = False",
    " WHERE tblTareas.Fin = False AND tblTareas.IdGru = {id}",
    " WHERE (tblTareas.IdGru = {id} AND ({T})) AND tblTareas.Fin = False",
    " WHERE tblTareas.Fin = False AND tblTareas.IdGru = {id} AND tblMaterias.Des = '{materia}'",
    " WHERE (tblTareas.IdGru = {id} AND tblMaterias.Des = '{materia}' AND ({T})) AND tblTareas.Fin = False",
};

// The placeholders filled in one pass, so that a typed text is never read
// as one of them.
QString expandir(const QString& plantilla, const QHash<QString, QString>& valores)
{
    QString out;
    int i = 0;
    while (i < plantilla.size()) {
        const int open = plantilla.indexOf(u'{', i);
        const int close = open < 0 ? -1 : plantilla.indexOf(u'}', open);
        if (close < 0) {
            out += plantilla.mid(i);
            break;
        }
        out += plantilla.mid(i, open - i);
        const QString name = plantilla.mid(open + 1, close - open - 1);
        out += valores.contains(name) ? valores.value(name) : plantilla.mid(open, close - open + 1);
        i = close + 1;
    }
    return out;
}

// The first entry, then the text field of each row in order.
void fillFilter(QComboBox* box, const QString& primera, db::Recordset& rs, const QString& texto)
{
    box->clear();
    box->addItem(primera);
    for (rs.MoveFirst(); !rs.Eof(); rs.MoveNext())
        box->addItem(ui::displayText(rs.Value(texto)));
    box->setCurrentIndex(0);
}

} // namespace

frmTareas::frmTareas(QWidget* parent)
    : ListForm(parent), cmbGrupo(ui::comboBox(this, "cmbGrupo", 16)), cmbMateria(ui::comboBox(this, "cmbMateria", 16)),
      txtFiltro(new QLineEdit(this)), chpPendientes(new QCheckBox(QStringLiteral("Pendientes"), this)),
      cmdFiltrar(ui::commandButton(this, "cmdFiltrar", QStringLiteral("&Filtrar"))),
      cmdEvaluacion(ui::commandButton(this, "cmdEvaluacion", QStringLiteral("E&valuación"))),
      cmdRubrica(ui::commandButton(this, "cmdRubrica", QStringLiteral("&Rúbrica"))),
      cmdInformes(ui::commandButton(this, "cmdInformes", QStringLiteral("&Informes"))), lblInfo(new QLabel(this))
{
    setObjectName(QStringLiteral("frmTareas"));
    setCaption(QStringLiteral("Programar Tareas"));
    txtFiltro->setObjectName(QStringLiteral("txtFiltro"));
    chpPendientes->setObjectName(QStringLiteral("chpPendientes"));
    lblInfo->setObjectName(QStringLiteral("lblInfo"));

    rowNumbers = true;
    // Columns 10 to 14 (Id, IdTip, IdEva, IdGru, Max) are hidden, so "MAX"
    // stands over a hidden column; the two "FIN" are the end date and the
    // finished flag.
    setColumns({500, 1200, 1400, 1900, 2400, 3900, 1250, 1250, 700, 700, 0, 0, 0, 0, 0},
               {QString(), QStringLiteral("TIPO"), QStringLiteral("EVAL."), QStringLiteral("GRUPO"),
                QStringLiteral("MATERIA"), QStringLiteral("TAREA"), QStringLiteral("INICIO"), QStringLiteral("FIN"),
                QStringLiteral("NOTA"), QStringLiteral("FIN"), QStringLiteral("MAX")});
    table = QStringLiteral("tblTareas");
    newCaption = QStringLiteral("Nueva Tarea");
    deleteQuestion = QStringLiteral("Está seguro de elimiar la tarea");
    setFicha<frmTareasFicha>();

    auto* filtros = new QHBoxLayout;
    filtros->addWidget(ui::label(this, QStringLiteral("Grupo"), cmbGrupo));
    filtros->addWidget(cmbGrupo);
    filtros->addSpacing(8);
    filtros->addWidget(ui::label(this, QStringLiteral("Materia"), cmbMateria));
    filtros->addWidget(cmbMateria);
    filtros->addSpacing(8);
    filtros->addWidget(ui::label(this, QStringLiteral("Filtro"), txtFiltro));
    filtros->addWidget(txtFiltro, 1);
    filtros->addWidget(chpPendientes);
    filtros->addWidget(cmdFiltrar);
    gridColumn->insertLayout(0, filtros);
    gridColumn->addWidget(lblInfo);
    for (QPushButton* b : {cmdEvaluacion, cmdRubrica, cmdInformes})
        addButton(b);
    resize(1180, 620);

    using F = frmTareas;
    const auto clicked = &QPushButton::clicked;
    onSignal(cmdFiltrar, clicked, &F::cmdFiltrar_Click);
    onSignal(cmbGrupo, &QComboBox::activated, &F::cmdFiltrar_Click);
    onSignal(cmbMateria, &QComboBox::activated, &F::cmdFiltrar_Click);
    onSignal(cmdEvaluacion, clicked, &F::cmdEvaluacion_Click);
    onSignal(cmdRubrica, clicked, &F::cmdRubrica_Click);
    // cmdInformes has no action.
    ui::installSearchField(txtFiltro, [this] { cmdFiltrar_Click(); });
}

void frmTareas::Form_Activate()
{
    if (consumeTagA())
        return;
    RellenarCombos();
    Rellenar();
    txtFiltro->setFocus();
}

void frmTareas::RellenarCombos()
{
    // The groups stay open: the chosen text gives back its key.
    rsGrupos_.Close();
    rsGrupos_.Open(QStringLiteral("SELECT [tblGrupos]![Id] AS IdGrupo, [tblCursos]![Des] & ' ' & [tblNiveles]![Des] & "
                                  "' ' & [tblGrupos]![Des] AS Grupo, tblGrupos.Id FROM (tblGrupos LEFT JOIN tblCursos "
                                  "ON tblGrupos.IdCurso = tblCursos.Id) LEFT JOIN tblNiveles ON tblCursos.IdNivel = "
                                  "tblNiveles.Id ORDER BY tblGrupos.Id;"),
                   gConexion);
    fillFilter(cmbGrupo, kTodos, rsGrupos_, QStringLiteral("Grupo"));
    db::Recordset materias;
    materias.Open(QStringLiteral("SELECT tblMaterias.Id AS IdMat, tblMaterias.Des AS DesMat FROM tblMaterias;"),
                  gConexion);
    fillFilter(cmbMateria, kTodas, materias, QStringLiteral("DesMat"));
}

qint32 frmTareas::IdGrupoElegido()
{
    // A text that is not found leaves the key at 0.
    if (rsGrupos_.RecordCount() == 0)
        return 0;
    rsGrupos_.MoveFirst();
    rsGrupos_.Find(QStringLiteral("Grupo = '%1'").arg(cmbGrupo->currentText()));
    return rsGrupos_.Eof() ? 0 : CLng(rsGrupos_.Value(QStringLiteral("IdGrupo")));
}

QString frmTareas::sqlFiltro(bool pendientes, bool grupo, bool materia, bool texto, qint32 idGrupo,
                             const QString& desMateria, const QString& filtro)
{
    const int n = (pendientes ? 8 : 0) + (grupo ? 4 : 0) + (materia ? 2 : 0) + (texto ? 1 : 0);
    const QString t = expandir(QLatin1String(kTexto), {{QStringLiteral("texto"), filtro}});
    const QString clausula =
        expandir(QString::fromUtf8(kClausulas[n]), {{QStringLiteral("T"), t},
                                                    {QStringLiteral("id"), QString::number(idGrupo)},
                                                    {QStringLiteral("materia"), desMateria},
                                                    {QStringLiteral("texto"), filtro}});
    return kBase + clausula + QStringLiteral(" ORDER BY tblTareas.FecIni DESC;");
}

void frmTareas::Rellenar()
{
    const bool grupo = cmbGrupo->currentText() != kTodos;
    strSql =
        sqlFiltro(chpPendientes->isChecked(), grupo, cmbMateria->currentText() != kTodas, !txtFiltro->text().isEmpty(),
                  grupo ? IdGrupoElegido() : 0, cmbMateria->currentText(), txtFiltro->text());
    ListForm::Rellenar();
    lblInfo->setText(QStringLiteral("Se han encontrado %1 tareas").arg(rs.RecordCount()));
    if (rs.RecordCount() > 0)
        for (int c : {8, 9}) {
            mshDatos->setColAlignment(c, Qt::AlignCenter);
            mshDatos->setFixedAlignment(c, Qt::AlignCenter);
        }
}

QString frmTareas::Cabecera() const
{
    return QStringLiteral(" ") + ui::displayText(rs.Value(QStringLiteral("TipoTarea"))) +
           QStringLiteral(" | Evaluación: ") + ui::displayText(rs.Value(QStringLiteral("Evaluacion"))) +
           QStringLiteral(" | Materia: ") + ui::displayText(rs.Value(QStringLiteral("Materia"))) +
           QStringLiteral(" | Grupo: ") + ui::displayText(rs.Value(QStringLiteral("Grupo")));
}

void frmTareas::cmdEvaluacion_Click()
{
    sobreFila([this](qint32 id) {
        frmEvaluar evaluar(this);
        evaluar.setIdTarea(id);
        evaluar.setIdGrupo(CLng(rs.Value(QStringLiteral("IdGru"))));
        evaluar.setValorMaximo(vb::CInt(rs.Value(QStringLiteral("Max"))));
        evaluar.lblCabecera->setText(Cabecera());
        ShowModal(&evaluar);
    });
}

void frmTareas::cmdRubrica_Click()
{
    sobreFila([this](qint32 id) {
        frmTareasRubrica rubrica(this);
        rubrica.setIdTarea(id);
        // The templates find the type of the task by this text in any year.
        rubrica.setTipoTarea(ui::displayText(rs.Value(QStringLiteral("TipoTarea"))));
        rubrica.lblCabecera->setText(Cabecera());
        ShowModal(&rubrica);
    });
}

void frmTareas::BorrarActual()
{
    // The rubric rows of the task and the rubric values of its marks stay;
    // nothing recomputes the evaluation marks, hence the warning.
    MsgBox(QStringLiteral("¡IMPORTANTE!\r\nREVISE LAS NOTAS DE EVALUACIÓN\r\npues los cálculos sufrirán cambios"),
           vbInformation);
    const QString id = QString::number(CLng(rs.Value(QStringLiteral("Id"))));
    gConexion->Execute(QStringLiteral("DELETE * FROM tblNotas WHERE IdTarea = ") + id);
    gConexion->Execute(QStringLiteral("DELETE * FROM tblTareas WHERE Id= ") + id);
}

void frmTareas::done(int result)
{
    rsGrupos_.Close();
    ListForm::done(result);
}
