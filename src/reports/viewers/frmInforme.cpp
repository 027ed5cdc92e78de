#include "reports/viewers/frmInforme.h"

#include "core/Modulo.h"
#include "reports/engine/Catalogue.h"

#include <QHBoxLayout>
#include <QListWidget>

frmInforme::frmInforme(QWidget* parent) : ReportViewer(parent)
{
    setCaption(QStringLiteral("Informes"));
    lstInforme = new QListWidget(this);
    lstInforme->setObjectName(QStringLiteral("lstInforme"));
    lstInforme->setFixedWidth(170);
    mainRow->insertWidget(0, lstInforme);
    connect(lstInforme, &QListWidget::itemClicked, this, &frmInforme::lstInforme_Click);
}

void frmInforme::Form_Activate()
{
    if (started_)
        return;
    started_ = true;
    lstInforme->clear();
    if (tipo_ == QLatin1String("FichaAlumno")) {
        // No list: the student record opens at once.
        lstInforme->hide();
        openEntry(QString());
        return;
    }
    lstInforme->addItems(reports::catalogue::entries(tipo_));
}

void frmInforme::lstInforme_Click(QListWidgetItem* item)
{
    if (!item || item->text().isEmpty())
        return;
    openEntry(item->text());
}

void frmInforme::openEntry(const QString& entry)
{
    static const char* const bands[] = {"pnotaIN", "pnotaSF", "pnotaBE", "pnotaNT", "pnotaSB"};
    QHash<QString, QString> values;
    values.insert(QStringLiteral("pEmpresa"), mainWindowCaption());
    values.insert(QStringLiteral("pTitulo"),
                  entry == QLatin1String("Notas Finais") ? reports::catalogue::finalMarksTitle() : titulo_);
    for (int i = 0; i < 5; ++i)
        values.insert(QLatin1String(bands[i]), notas_[i]);
    const bool filtered = filtro_ != QLatin1String("Sin Filtro") && reports::catalogue::takesFilter(entry);
    showReport(reports::catalogue::filePath(gRutaBase, tipo_, entry), values, filtered ? filtro_ : QString());
}
