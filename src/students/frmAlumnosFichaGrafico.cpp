// The student sheet's chart tab: the points of one subject in each
// evaluation of the year, as the marks tab shows them.
#include "students/frmAlumnosFicha.h"

#include "core/Modulo.h"
#include "db/Recordset.h"
#include "ui/Charts.h"
#include "ui/Colors.h"
#include "ui/Controls.h"
#include "ui/FlexGrid.h"
#include "vb/Vb.h"

#include <QBarCategoryAxis>
#include <QBarSeries>
#include <QBarSet>
#include <QChart>
#include <QChartView>
#include <QGridLayout>
#include <QLabel>
#include <QListWidget>
#include <QValueAxis>

#include <cmath>

QWidget* frmAlumnosFicha::buildGrafico()
{
    auto* page = control<QWidget>(sstDatos, "tabGrafico");
    lstEval = control<QListWidget>(page, "lstEval");
    lstMat = control<QListWidget>(page, "lstMat");
    lstTipoGrafico = control<QListWidget>(page, "lstTipoGrafico");
    mscGrafico = control<QChartView>(page, "mscGrafico");
    lstTipoGrafico->addItems({QStringLiteral("BARRAS"), QStringLiteral("LÍNEAS")});
    for (QListWidget* list : {lstEval, lstMat, lstTipoGrafico})
        list->setMaximumWidth(220);
    lstTipoGrafico->setMaximumHeight(lstTipoGrafico->sizeHintForRow(0) * 2 + 2 * lstTipoGrafico->frameWidth() + 4);

    // The view's own chart: a chart set in its place would leave this one
    // to nobody.
    QChart* chart = mscGrafico->chart();
    chart->legend()->hide();
    chart->setLocalizeNumbers(true);
    chart->setLocale(QLocale(QLocale::Spanish, QLocale::Spain));
    chart->setBackgroundRoundness(0);
    mscGrafico->setRenderHint(QPainter::Antialiasing);
    mscGrafico->setMinimumSize(420, 300);

    auto* grid = new QGridLayout(page);
    grid->setContentsMargins(10, 10, 10, 10);
    grid->addWidget(mscGrafico, 0, 0, 6, 1);
    grid->addWidget(ui::caption(page, QStringLiteral("EVALUACIONES"), lstEval), 0, 1);
    grid->addWidget(lstEval, 1, 1);
    grid->addWidget(ui::caption(page, QStringLiteral("MATERIAS"), lstMat), 2, 1);
    grid->addWidget(lstMat, 3, 1);
    grid->addWidget(ui::caption(page, QStringLiteral("TIPO DE GRÁFICO"), lstTipoGrafico), 4, 1);
    grid->addWidget(lstTipoGrafico, 5, 1);
    grid->setColumnStretch(0, 1);
    grid->setRowStretch(1, 1);
    grid->setRowStretch(3, 2);

    // A subject chosen by the mouse or the arrow keys draws its chart. The
    // evaluations and the chart types are for reading: choosing one changes
    // nothing.
    onSignal(lstMat, &QListWidget::currentRowChanged, &frmAlumnosFicha::lstMat_Click);
    return page;
}

void frmAlumnosFicha::PonColorGrafico()
{
    QChart* chart = mscGrafico->chart();
    const QColor fondo = ui::colorFromVariant(gColor2);
    chart->setBackgroundBrush(fondo);
    chart->setPlotAreaBackgroundVisible(false);
    for (QAbstractSeries* series : chart->series())
        if (auto* bars = qobject_cast<QBarSeries*>(series))
            for (QBarSet* set : bars->barSets()) {
                // The user's colour with a black edge; it means nothing of its own.
                set->setPen(QPen(Qt::black, 1, Qt::SolidLine));
                set->setBrush(QBrush(ui::colorFromVariant(gColor), Qt::SolidPattern));
                set->setLabelColor(Qt::black);
            }
}

void frmAlumnosFicha::MostraGrafico()
{
    if (lstMat->count() > 0) {
        // Choosing the first entry draws it; when it is chosen already, so
        // does the call.
        if (lstMat->currentRow() == 0)
            lstMat_Click();
        else
            lstMat->setCurrentRow(0);
        return;
    }
    QChart* chart = mscGrafico->chart();
    ui::clearChart(chart);
    chart->setTitle(QString());
}

void frmAlumnosFicha::lstMat_Click()
{
    QListWidgetItem* item = lstMat->currentItem();
    if (!item)
        return;
    QChart* chart = mscGrafico->chart();
    QFont title = chart->titleFont();
    title.setBold(true);
    title.setPointSize(12);
    chart->setTitleFont(title);
    chart->setTitle(vb::UCase(item->text()));
    PonGrafico(vb::CLng(item->data(Qt::UserRole)));
}

void frmAlumnosFicha::PonGrafico(qint32 idMat)
{
    db::Recordset rs;
    rs.Open(QStringLiteral("SELECT Id, Des FROM tblEvaluaciones ORDER BY Id"), gConexion);
    if (rs.Eof())
        return;
    QChart* chart = mscGrafico->chart();
    ui::clearChart(chart);

    // Every evaluation of the year in the catalogue's order, with the points
    // the marks tab shows; one without a row there stands at 0.
    auto* set = new QBarSet(QString());
    QStringList labels;
    float maximo = 10;
    const QString mat = QString::number(idMat);
    for (; !rs.Eof(); rs.MoveNext()) {
        const QString eva = vb::CStr(rs.Value(QStringLiteral("Id")));
        labels << vb::CStr(rs.Value(QStringLiteral("Des")));
        float puntos = 0;
        for (int r = 1; r < mshEval->Rows(); ++r)
            if (mshEval->TextMatrix(r, EvIdEva) == eva && mshEval->TextMatrix(r, EvIdMat) == mat)
                puntos = vb::CSng(mshEval->TextMatrix(r, EvPtos));
        *set << puntos;
        maximo = std::max(maximo, puntos);
    }
    auto* series = new QBarSeries;
    series->append(set);
    series->setLabelsVisible(true);
    series->setLabelsFormat(QStringLiteral("@value"));
    series->setLabelsPosition(QAbstractBarSeries::LabelsOutsideEnd);
    series->setLabelsPrecision(4);
    chart->addSeries(series);

    auto* ejeX = new QBarCategoryAxis;
    ejeX->append(labels);
    chart->addAxis(ejeX, Qt::AlignBottom);
    series->attachAxis(ejeX);
    auto* ejeY = new QValueAxis;
    const int tope = int(std::ceil(maximo));
    ejeY->setRange(0, tope);
    ejeY->setTickCount(tope + 1);
    ejeY->setLabelFormat(QStringLiteral("%.0f"));
    chart->addAxis(ejeY, Qt::AlignLeft);
    series->attachAxis(ejeY);
    PonColorGrafico();
}
