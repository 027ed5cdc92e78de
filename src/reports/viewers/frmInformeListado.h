#pragma once
// One fixed report of a screen ("NotasAval", "NotasRec", "TutoriaCuadro",
// "TutoriaBoletin") with its title, information line and selection; it opens
// when the form is shown.
//
//     frmInformeListado informe(this);
//     informe.setTipo("NotasAval");
//     informe.setEmpresa(Caption());
//     informe.setTitulo("NOTAS DE Lengua. AVALIACIÓN 1ª Evaluación");
//     informe.setInfo("IN: 1 | SF: 0 | BE: 2 | NT: 0 | SB: 0");
//     informe.setFiltro("{tblAlumnos.Grupo}= 1 AND {tblNotasEval.IdEval} =1 AND {tblNotasEval.IdMat} = 1");
//     ShowModal(&informe);
#include "reports/viewers/ReportViewer.h"

class frmInformeListado : public ReportViewer {
    Q_OBJECT

public:
    explicit frmInformeListado(QWidget* parent = nullptr);

    void setTipo(const QString& key) { tipo_ = key; }
    void setEmpresa(const QString& text) { empresa_ = text; }
    void setTitulo(const QString& title) { titulo_ = title; }
    void setInfo(const QString& info) { info_ = info; }
    void setFiltro(const QString& selection) { filtro_ = selection; }
    QString Tipo() const { return tipo_; }
    QString Empresa() const { return empresa_; }
    QString Titulo() const { return titulo_; }
    QString Info() const { return info_; }
    QString Filtro() const { return filtro_; }

protected:
    void Form_Activate() override;

private:
    QString tipo_;
    QString empresa_;
    QString titulo_;
    QString info_;
    QString filtro_;
};
