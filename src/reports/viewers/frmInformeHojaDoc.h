#pragma once
// The printed student record: the report "Impresion/FichaAlumno.rpt",
// relative to the current directory, over the staging database that the
// student sheet has just filled. No parameters, location or selection.
//
//     frmInformeHojaDoc hoja(this);
//     hoja.setTipo("FichaAlumno");
//     ShowModal(&hoja);
#include "reports/viewers/ReportViewer.h"

class frmInformeHojaDoc : public ReportViewer {
    Q_OBJECT

public:
    explicit frmInformeHojaDoc(QWidget* parent = nullptr);

    void setTipo(const QString& key) { tipo_ = key; }

protected:
    void Form_Activate() override;

private:
    QString tipo_ = QStringLiteral("FichaAlumno");
};
