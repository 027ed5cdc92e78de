#pragma once
// The chart of a rubric: for each activity of the task of the rubric screen
// that opens it, the mean of its stored values on a scale of 0 to 10, one
// bar each, best first; activities with an equal mean keep the order the
// database gives them. Only stored values count (a student not marked does
// not pull a mean down), each scaled by the Max stored with it, not by the
// activity's present one; an activity with no value does not appear.
//
// Each bar is labelled above it, in Segoe UI 9 black, with its share of the
// sum of all the bars as a percentage, and the bars are painted in the
// second colour of the settings (gColor2). With no value at all the chart
// shows its empty axes.
#include "rubrics/RubricTask.h"
#include "ui/Form.h"

#include <QList>
#include <QStringList>

class QChartView;
class QGraphicsSimpleTextItem;

class frmGraficoRubrica : public Form {
    Q_OBJECT

public:
    frmGraficoRubrica(const RubricTask& tarea, QWidget* parent = nullptr);

    QChartView* mscGrafico;

    // What the chart shows, bar by bar: the label under it (the activity's
    // Num), its value (the mean rounded to 2 decimals) and the text above it.
    QStringList Etiquetas() const { return etiquetas_; }
    QList<double> Valores() const { return valores_; }
    QStringList Rotulos() const;

protected:
    void Form_Activate() override;
    void resizeEvent(QResizeEvent* event) override;

private:
    void Rellenar();
    void Pintar();
    void ColocarRotulos();

    RubricTask tarea_;
    bool cargado_ = false;
    QStringList etiquetas_;
    QList<double> valores_;
    QList<QGraphicsSimpleTextItem*> rotulos_;
};
