#include "rubrics/frmGraficoRubrica.h"

#include "core/Modulo.h"
#include "db/Recordset.h"
#include "ui/Colors.h"
#include "ui/Controls.h"
#include "vb/Vb.h"

#include <QBarCategoryAxis>
#include <QBarSeries>
#include <QBarSet>
#include <QChart>
#include <QChartView>
#include <QGraphicsSimpleTextItem>
#include <QVBoxLayout>
#include <QValueAxis>

#include <cmath>

namespace {

QChart* grafico(QChartView* view)
{
    return view->chart();
}

} // namespace

frmGraficoRubrica::frmGraficoRubrica(const RubricTask& tarea, QWidget* parent)
    : Form(parent), mscGrafico(new QChartView(this)), tarea_(tarea)
{
    setObjectName(QStringLiteral("frmGraficoRubrica"));
    setCaption(QStringLiteral("Grafico de Rúbrica"));
    mscGrafico->setObjectName(QStringLiteral("mscGrafico"));
    mscGrafico->setRenderHint(QPainter::Antialiasing);

    // As designed: one series of bars over a value axis from 0 to 10.
    QChart* chart = grafico(mscGrafico);
    chart->legend()->hide();
    auto* series = new QBarSeries(chart);
    series->append(new QBarSet(QString()));
    chart->addSeries(series);
    auto* ejeX = new QBarCategoryAxis(chart);
    auto* ejeY = new QValueAxis(chart);
    ejeY->setRange(0, 10);
    ejeY->setTickCount(11);
    ejeY->setLabelFormat(QStringLiteral("%d"));
    chart->addAxis(ejeX, Qt::AlignBottom);
    chart->addAxis(ejeY, Qt::AlignLeft);
    series->attachAxis(ejeX);
    series->attachAxis(ejeY);
    connect(chart, &QChart::plotAreaChanged, this, [this] { ColocarRotulos(); });

    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(4, 4, 4, 4);
    layout->addWidget(mscGrafico);
    setSizeGripEnabled(true);
    resize(720, 480);
}

void frmGraficoRubrica::Form_Activate()
{
    if (consumeTagA() || cargado_)
        return;
    cargado_ = true;
    Rellenar();
}

void frmGraficoRubrica::Rellenar()
{
    db::Recordset rs;
    rs.Open(QStringLiteral("SELECT tblTareasRubrica.Id, tblTareasRubrica.Num, tblTareasRubrica.Des, "
                           "tblNotas.IdTarea, Avg([tblNotasRubrica]![Valor]/[tblNotasRubrica]![Max]*10) AS Valor10 "
                           "FROM (tblNotas INNER JOIN tblNotasRubrica ON tblNotas.Id = tblNotasRubrica.IdNota) INNER "
                           "JOIN tblTareasRubrica ON tblNotasRubrica.IdActividad = tblTareasRubrica.Id GROUP BY "
                           "tblTareasRubrica.Id, tblTareasRubrica.Num, tblTareasRubrica.Des, tblNotas.IdTarea Having "
                           "tblNotas.IdTarea = %1 ORDER BY "
                           "Avg([tblNotasRubrica]![Valor]/[tblNotasRubrica]![Max]*10) DESC;")
                .arg(tarea_.id),
            gConexion);
    // No values: the chart stays as designed.
    if (rs.RecordCount() == 0)
        return;
    for (; !rs.Eof(); rs.MoveNext()) {
        etiquetas_ << ui::displayText(rs.Value(QStringLiteral("Num")));
        valores_ << vb::Round(vb::CDbl(rs.Value(QStringLiteral("Valor10"))), 2);
    }
    QChart* chart = grafico(mscGrafico);
    auto* series = static_cast<QBarSeries*>(chart->series().constFirst());
    QBarSet* set = series->barSets().constFirst();
    for (double v : valores_)
        set->append(v);
    static_cast<QBarCategoryAxis*>(chart->axes(Qt::Horizontal).constFirst())->append(etiquetas_);

    QFont letra(QStringLiteral("Segoe UI"));
    letra.setPointSize(9);
    const QStringList textos = Rotulos();
    for (const QString& texto : textos) {
        auto* rotulo = new QGraphicsSimpleTextItem(texto, chart);
        rotulo->setFont(letra);
        rotulo->setBrush(Qt::black);
        rotulos_ << rotulo;
    }
    Pintar();
    ColocarRotulos();
}

QStringList frmGraficoRubrica::Rotulos() const
{
    // The share of each bar in the sum of all of them.
    double suma = 0;
    for (double v : valores_)
        suma += v;
    QStringList textos;
    for (double v : valores_)
        textos << (suma > 0 ? QString::number(std::lround(v / suma * 100)) : QStringLiteral("0")) + u'%';
    return textos;
}

void frmGraficoRubrica::Pintar()
{
    QChart* chart = grafico(mscGrafico);
    if (chart->series().isEmpty())
        return;
    auto* series = static_cast<QBarSeries*>(chart->series().constFirst());
    for (QBarSet* set : series->barSets()) {
        set->setBrush(QBrush(ui::colorFromVariant(gColor2), Qt::SolidPattern));
        set->setPen(QPen(Qt::darkGray));
    }
}

void frmGraficoRubrica::ColocarRotulos()
{
    // Each label centred above its bar, outside it.
    QChart* chart = grafico(mscGrafico);
    if (chart->series().isEmpty())
        return;
    QAbstractSeries* series = chart->series().constFirst();
    for (int i = 0; i < rotulos_.size() && i < valores_.size(); ++i) {
        const QPointF arriba = chart->mapToPosition(QPointF(i, valores_[i]), series);
        const QRectF caixa = rotulos_[i]->boundingRect();
        rotulos_[i]->setPos(arriba.x() - caixa.width() / 2, arriba.y() - caixa.height() - 2);
    }
}

void frmGraficoRubrica::resizeEvent(QResizeEvent* event)
{
    Form::resizeEvent(event);
    Pintar();
    ColocarRotulos();
}
