#pragma once
// The report list of one screen: "Alumnos" offers "Global", "Por Grupos",
// "Ficha" and "Notas Finais"; "NotasTarea" offers "Notas Alumno". A click on
// an entry opens it. The filter of the list screen applies to every entry
// but "Notas Finais", unless it is "Sin Filtro".
//
//     frmInforme informe(this);
//     informe.setTipo("Alumnos");
//     informe.setFiltro("Sin Filtro");
//     ShowModal(&informe);
#include "reports/viewers/ReportViewer.h"

class QListWidget;
class QListWidgetItem;

class frmInforme : public ReportViewer {
    Q_OBJECT

public:
    explicit frmInforme(QWidget* parent = nullptr);

    void setTipo(const QString& key) { tipo_ = key; }
    void setTitulo(const QString& title) { titulo_ = title; }
    void setFiltro(const QString& filter) { filtro_ = filter; }
    void setNotaIN(const QString& v) { notas_[0] = v; }
    void setNotaSF(const QString& v) { notas_[1] = v; }
    void setNotaBE(const QString& v) { notas_[2] = v; }
    void setNotaNT(const QString& v) { notas_[3] = v; }
    void setNotaSB(const QString& v) { notas_[4] = v; }

    QListWidget* lstInforme;

    // Opens one entry of the list, as a click on it does.
    void lstInforme_Click(QListWidgetItem* item);

protected:
    void Form_Activate() override;
    QString selectText() const override { return QStringLiteral("Selecciones un informe"); }

private:
    void openEntry(const QString& entry);

    QString tipo_;
    QString titulo_;
    QString filtro_;
    QString notas_[5];
    bool started_ = false;
};
