#include "assessment/frmEstatisticas.h"

#include "assessment/Bandas.h"
#include "core/Modulo.h"
#include "reports/viewers/frmInformeListado.h"
#include "ui/Charts.h"
#include "ui/Controls.h"
#include "ui/FlexGrid.h"
#include "ui/GridShape.h"
#include "vb/Vb.h"

#include <QBarCategoryAxis>
#include <QBarSet>
#include <QChart>
#include <QChartView>
#include <QComboBox>
#include <QEvent>
#include <QHBoxLayout>
#include <QHorizontalStackedBarSeries>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>
#include <QValueAxis>

#include <algorithm>

using vb::CLng;

namespace {

enum Col : int { ColNumero, ColIdMat, ColMateria };
constexpr int ColPrimeiraBanda = 3; // IN, then SF, BE, NT and SB
constexpr int ColCount = ColPrimeiraBanda + int(bands::Count);

const QString kFinais = QStringLiteral("Finais");
const QString kAvaliacion = QStringLiteral("Avaliación");
const QString kRecuperacion = QStringLiteral("Recuperación");
const QString kOrdinaria = QStringLiteral("Ordinaria");
const QString kExtraordinaria = QStringLiteral("Extraordinaria");

// Evaluation and final marks count from 0 up: a 0 is IN, and 4.995 falls
// between IN and SF. The other bands count as on every screen.
QString condicion(int banda)
{
    return banda == bands::IN ? QStringLiteral("BETWEEN 0.000 AND 4.99") : bands::between(banda);
}

// The row number, the subject's key (hidden), the subject on half of the
// grid's width and each band's count centred on 6 per cent of it.
const ui::GridColumns& columnas()
{
    static const ui::GridColumns columnas = [] {
        QList<ui::GridColumn> c{
            {QString(), 500}, {QString(), 0, {}, {}, 0, true}, {QStringLiteral("Materia"), -1, {}, {}, 50}};
        for (int b = 0; b < bands::Count; ++b)
            c.append({bands::name(b), -1, Qt::AlignCenter, {}, 6});
        return ui::GridColumns(c);
    }();
    return columnas;
}

} // namespace

frmEstatisticas::frmEstatisticas(QWidget* parent)
    : Form(parent), cmbGrupo(ui::comboBox(this, "cmbGrupo", 24)), cmbNotas(ui::comboBox(this, "cmbNotas", 12)),
      cmbAvaliacion(ui::comboBox(this, "cmbAvaliacion", 16)),
      cmdCalcular(ui::commandButton(this, "cmdCalcular", QStringLiteral("&Calcular"))),
      cmdInforme(ui::commandButton(this, "cmdInforme", QStringLiteral("&Informe"))),
      cmdSalir(ui::commandButton(this, "cmdSalir", QStringLiteral("&Salir"))), mshDatos(new FlexGrid(this)),
      chtBandas(new QChartView(this))
{
    setObjectName(QStringLiteral("frmEstatisticas"));
    setCaption(QStringLiteral("Estatísticas"));
    mshDatos->setObjectName(QStringLiteral("mshDatos"));
    chtBandas->setObjectName(QStringLiteral("chtBandas"));
    // The group is a text that may be typed: it is looked up as it stands.
    cmbGrupo->setEditable(true);
    cmbGrupo->setInsertPolicy(QComboBox::NoInsert);
    cmbNotas->addItems({kFinais, kAvaliacion, kRecuperacion});

    chtBandas->setRenderHint(QPainter::Antialiasing);
    chtBandas->chart()->legend()->setAlignment(Qt::AlignBottom);
    chtBandas->chart()->setMargins(QMargins(4, 4, 4, 4));
    chtBandas->setMinimumWidth(380);
    mshDatos->setMinimumSize(560, 360);

    auto* filtros = new QHBoxLayout;
    filtros->addWidget(ui::label(this, QStringLiteral("Grupo"), cmbGrupo));
    filtros->addWidget(cmbGrupo);
    filtros->addSpacing(8);
    filtros->addWidget(ui::label(this, QStringLiteral("Notas"), cmbNotas));
    filtros->addWidget(cmbNotas);
    filtros->addSpacing(8);
    filtros->addWidget(ui::label(this, QStringLiteral("Avaliación"), cmbAvaliacion));
    filtros->addWidget(cmbAvaliacion);
    filtros->addSpacing(8);
    filtros->addWidget(cmdCalcular);
    filtros->addWidget(cmdInforme);
    filtros->addStretch(1);
    filtros->addWidget(cmdSalir);
    auto* cadros = new QHBoxLayout;
    cadros->addWidget(mshDatos, 3);
    cadros->addWidget(chtBandas, 2);
    auto* layout = new QVBoxLayout(this);
    layout->addLayout(filtros);
    layout->addLayout(cadros, 1);
    setCancelButton(cmdSalir);
    setSizeGripEnabled(true);
    resize(1180, 560);

    using F = frmEstatisticas;
    const auto clicked = &QPushButton::clicked;
    onSignal(cmbNotas, &QComboBox::activated, &F::cmbNotas_Click);
    onSignal(cmdCalcular, clicked, &F::cmdCalcular_Click);
    onSignal(cmdInforme, clicked, &F::cmdInforme_Click);
    connect(cmdSalir, &QPushButton::clicked, this, &Form::Unload);
    mshDatos->installEventFilter(this);
}

void frmEstatisticas::Form_Activate()
{
    // Loaded once: a report closing activates the screen again and leaves it as it was.
    if (loaded_)
        return;
    loaded_ = true;
    columnas().shape(*mshDatos, 1);
    rsGrupos_.Open(QStringLiteral("SELECT tblGrupos.Id, [tblCursos]![Des] & ' ' & [tblNiveles]![Des] & ' - ' & "
                                  "[tblGrupos]![Des] AS Grupo FROM (tblGrupos INNER JOIN tblCursos ON "
                                  "tblGrupos.IdCurso = tblCursos.Id) INNER JOIN tblNiveles ON tblCursos.IdNivel = "
                                  "tblNiveles.Id ORDER BY tblGrupos.Id;"),
                   gConexion);
    cmbGrupo->clear();
    for (; !rsGrupos_.Eof(); rsGrupos_.MoveNext())
        cmbGrupo->addItem(ui::displayText(rsGrupos_.Value(QStringLiteral("Grupo"))));
    cmbGrupo->setCurrentIndex(cmbGrupo->count() > 0 ? 0 : -1);
    rsEvaluaciones_.Open(QStringLiteral("SELECT Id, Des FROM tblEvaluaciones ORDER BY Id;"), gConexion);
    cmbNotas->setCurrentIndex(0);
    cmbNotas_Click();
}

void frmEstatisticas::cmbNotas_Click()
{
    if (cmbNotas->currentText() == kFinais) {
        cmbAvaliacion->clear();
        cmbAvaliacion->addItems({kOrdinaria, kExtraordinaria});
    } else if (rsEvaluaciones_.RecordCount() > 0) {
        cmbAvaliacion->clear();
        for (rsEvaluaciones_.MoveFirst(); !rsEvaluaciones_.Eof(); rsEvaluaciones_.MoveNext())
            cmbAvaliacion->addItem(ui::displayText(rsEvaluaciones_.Value(QStringLiteral("Des"))));
    }
    // With no evaluations the list stays as it was.
    if (cmbAvaliacion->count() > 0)
        cmbAvaliacion->setCurrentIndex(0);
}

void frmEstatisticas::AnchoColumnas()
{
    columnas().applyWidths(*mshDatos);
}

bool frmEstatisticas::eventFilter(QObject* watched, QEvent* event)
{
    if (watched == mshDatos && event->type() == QEvent::Resize)
        AnchoColumnas();
    return Form::eventFilter(watched, event);
}

QString frmEstatisticas::sqlConteo(const QString& notas, const QString& avaliacion, int banda, qint32 grupo,
                                   qint32 eval, qint32 materia)
{
    const QString b = condicion(banda);
    if (avaliacion == kOrdinaria || avaliacion == kExtraordinaria) {
        const QString nota = avaliacion == kOrdinaria ? QStringLiteral("NotaO") : QStringLiteral("NotaE");
        return QStringLiteral("SELECT tblNotasFinal.%1 FROM tblNotasFinal INNER JOIN tblAlumnos ON "
                              "tblNotasFinal.IdAlu = tblAlumnos.Id Where tblAlumnos.Grupo = %2 And "
                              "tblNotasFinal.IdMat = %3 AND tblNotasFinal.%1 %4")
            .arg(nota)
            .arg(grupo)
            .arg(materia)
            .arg(b);
    }
    if (notas == kRecuperacion)
        return QStringLiteral("SELECT tblNotasEval.NotaRec FROM tblNotasEval INNER JOIN tblAlumnos ON "
                              "tblNotasEval.IdAlu = tblAlumnos.Id WHERE tblNotasEval.NotaRec %1 AND "
                              "tblAlumnos.Grupo= %2 AND tblNotasEval.IdEval= %3 AND tblNotasEval.IdMat=%4 AND "
                              "tblNotasEval.Recuperar = True")
            .arg(b)
            .arg(grupo)
            .arg(eval)
            .arg(materia);
    return QStringLiteral("SELECT tblNotasEval.Nota FROM tblNotasEval INNER JOIN tblAlumnos ON tblNotasEval.IdAlu = "
                          "tblAlumnos.Id WHERE tblNotasEval.Nota %1 AND tblAlumnos.Grupo= %2 AND "
                          "tblNotasEval.IdEval= %3 AND tblNotasEval.IdMat=%4")
        .arg(b)
        .arg(grupo)
        .arg(eval)
        .arg(materia);
}

void frmEstatisticas::cmdCalcular_Click()
{
    // A text that is not found keeps the key of the last computation.
    auto buscar = [](db::Recordset& rs, const QString& criterio, qint32& clave) {
        if (rs.RecordCount() == 0)
            return;
        rs.MoveFirst();
        rs.Find(criterio);
        if (!rs.Eof())
            clave = CLng(rs.Value(QStringLiteral("Id")));
    };
    const QString notas = cmbNotas->currentText();
    const QString avaliacion = cmbAvaliacion->currentText();
    buscar(rsGrupos_, QStringLiteral("Grupo = '%1'").arg(cmbGrupo->currentText()), idGrupo_);
    if (notas == kRecuperacion || notas == kAvaliacion)
        buscar(rsEvaluaciones_, QStringLiteral("Des = '%1'").arg(avaliacion), idEval_);

    FlexGrid& g = *mshDatos;
    g.setRedraw(false);
    g.Clear();
    rsMaterias_.Close();
    if (notas == kFinais)
        rsMaterias_.Open(QStringLiteral("SELECT tblNotasFinal.IdMat, tblMaterias.Des FROM (tblNotasFinal INNER JOIN "
                                        "tblAlumnos ON tblNotasFinal.IdAlu = tblAlumnos.Id) INNER JOIN tblMaterias ON "
                                        "tblNotasFinal.IdMat = tblMaterias.Id Where tblAlumnos.Grupo = %1 GROUP BY "
                                        "tblNotasFinal.IdMat, tblMaterias.Des;")
                             .arg(idGrupo_),
                         gConexion);
    else
        rsMaterias_.Open(QStringLiteral("SELECT tblNotasEval.IdMat, tblMaterias.Des FROM (tblNotasEval INNER JOIN "
                                        "tblAlumnos ON tblNotasEval.IdAlu = tblAlumnos.Id) INNER JOIN tblMaterias ON "
                                        "tblNotasEval.IdMat = tblMaterias.Id Where tblNotasEval.IdEval =%1 And "
                                        "tblAlumnos.Grupo = %2 GROUP BY tblNotasEval.IdMat, tblMaterias.Des;")
                             .arg(idEval_)
                             .arg(idGrupo_),
                         gConexion);
    const int materias = rsMaterias_.RecordCount();
    if (materias == 0) {
        // Empty: no titles and no rows of an earlier table.
        g.setRows(g.FixedRows() + 1);
    } else {
        columnas().shape(g, materias);
        int r = 1;
        for (rsMaterias_.MoveFirst(); !rsMaterias_.Eof(); rsMaterias_.MoveNext(), ++r) {
            g.setTextMatrix(r, ColNumero, QString::number(r));
            g.setTextMatrix(r, ColIdMat, vb::CStr(rsMaterias_.Value(QStringLiteral("IdMat"))));
            g.setTextMatrix(r, ColMateria, ui::displayText(rsMaterias_.Value(QStringLiteral("Des"))));
        }
        for (r = 1; r < g.Rows(); ++r) {
            const qint32 materia = CLng(g.TextMatrix(r, ColIdMat));
            for (int b = 0; b < bands::Count; ++b) {
                db::Recordset conteo;
                conteo.Open(sqlConteo(notas, avaliacion, b, idGrupo_, idEval_, materia), gConexion);
                g.setTextMatrix(r, ColPrimeiraBanda + b, QString::number(conteo.RecordCount()));
            }
        }
    }
    // The blank row of an empty table is not striped.
    ui::finishGrid(g, {.stripesFrom = materias == 0 ? -1 : 1, .firstCell = false});
    DebuxarGrafico();
}

void frmEstatisticas::DebuxarGrafico()
{
    // Drawn from the table as it stands after a computation.
    QChart* chart = chtBandas->chart();
    ui::clearChart(chart);
    const FlexGrid& g = *mshDatos;
    // The rows of subjects from the last up: the category axis draws its
    // first entry at the bottom, so that the chart reads down as the table.
    QList<int> filas;
    QStringList materias;
    for (int r = g.Rows() - 1; r >= 1; --r)
        if (!g.TextMatrix(r, ColIdMat).isEmpty()) {
            filas << r;
            materias << g.TextMatrix(r, ColMateria);
        }
    if (filas.isEmpty()) {
        chart->setTitle(QString());
        return;
    }
    chart->setTitle(cmbGrupo->currentText() + QStringLiteral(" · ") + cmbNotas->currentText() + QStringLiteral(" · ") +
                    cmbAvaliacion->currentText());
    auto* series = new QHorizontalStackedBarSeries;
    QList<int> totais(filas.size(), 0);
    for (int b = 0; b < bands::Count; ++b) {
        auto* set = new QBarSet(bands::name(b));
        set->setColor(bands::colour(b));
        set->setBorderColor(bands::colour(b).darker(130));
        for (int i = 0; i < filas.size(); ++i) {
            const int n = g.TextMatrix(filas[i], ColPrimeiraBanda + b).toInt();
            set->append(n);
            totais[i] += n;
        }
        series->append(set);
    }
    const int maximo = *std::max_element(totais.cbegin(), totais.cend());
    chart->addSeries(series);

    auto* eixoMaterias = new QBarCategoryAxis;
    eixoMaterias->append(materias);
    chart->addAxis(eixoMaterias, Qt::AlignLeft);
    series->attachAxis(eixoMaterias);
    // Whole students on the count axis.
    auto* eixoConta = new QValueAxis;
    const int paso = maximo <= 10 ? 1 : maximo <= 20 ? 2 : 5;
    eixoConta->setRange(0, (maximo / paso + 1) * paso); // a step of room after the longest bar
    eixoConta->setTickType(QValueAxis::TicksDynamic);
    eixoConta->setTickAnchor(0);
    eixoConta->setTickInterval(paso);
    eixoConta->setLabelFormat(QStringLiteral("%d"));
    chart->addAxis(eixoConta, Qt::AlignBottom);
    series->attachAxis(eixoConta);
}

void frmEstatisticas::cmdInforme_Click()
{
    const FlexGrid& g = *mshDatos;
    const int r = g.Row();
    // Nothing to print before a computation or after an empty one.
    if (!vb::IsNumeric(g.TextMatrix(r, ColIdMat)))
        return;
    const bool recuperacion = cmbNotas->currentText() == kRecuperacion;
    const QString materia = g.TextMatrix(r, ColMateria);
    const QString avaliacion = QStringLiteral(". AVALIACIÓN ") + cmbAvaliacion->currentText();
    // "Finais" prints as an evaluation, with the evaluation of the last computation.
    QString filtro =
        QStringLiteral("{tblAlumnos.Grupo}= %1 AND {tblNotasEval.IdEval} =%2 AND {tblNotasEval.IdMat} = %3")
            .arg(idGrupo_)
            .arg(idEval_)
            .arg(g.TextMatrix(r, ColIdMat));
    if (recuperacion)
        filtro += QStringLiteral(" AND {tblNotasEval.Recuperar} = True");
    frmInformeListado informe(this);
    informe.setTipo(recuperacion ? QStringLiteral("NotasRec") : QStringLiteral("NotasAval"));
    informe.setEmpresa(mainWindowCaption());
    informe.setTitulo(recuperacion ? QStringLiteral("NOTAS DE RECUPERACIÓN. ") + cmbGrupo->currentText() +
                                         QStringLiteral("\r\n") + materia + avaliacion
                                   : QStringLiteral("NOTAS DE ") + materia + avaliacion);
    auto conta = [&](int banda) { return g.TextMatrix(r, ColPrimeiraBanda + banda); };
    informe.setInfo(QStringLiteral("IN: %1 | SF: %2 | BE: %3 | NT: %4 | SB: %5")
                        .arg(conta(bands::IN), conta(bands::SF), conta(bands::BE), conta(bands::NT), conta(bands::SB)));
    informe.setFiltro(filtro);
    ShowModal(&informe);
}

void frmEstatisticas::done(int result)
{
    rsGrupos_.Close();
    rsEvaluaciones_.Close();
    rsMaterias_.Close();
    Form::done(result);
}
