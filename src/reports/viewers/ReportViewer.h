#pragma once
// What the three report viewers share: the page preview that fills the form,
// the buttons cmdImpresora and cmdPDF, the guarded opening of a report and
// the printing on the printers of imp.ini.
//
// Opening is guarded: a missing file shows the fixed text, any other failure
// its own description, both with the critical icon, and the form stays
// usable with no report. Printing is not: a printer position beyond the list
// ends in the run-time error handler. After printing the report is released:
// the preview still shows it, but a further print needs a new preview.
#include "ui/Form.h"

#include <QHash>
#include <QString>

#include <memory>

class QHBoxLayout;
class QPrintPreviewWidget;
class QPrinter;
class QPushButton;
class QStackedWidget;

namespace reports {
class ReportDocument;
}

class ReportViewer : public Form {
    Q_OBJECT

public:
    explicit ReportViewer(QWidget* parent = nullptr);
    ~ReportViewer() override;

    QPushButton* cmdImpresora;
    QPushButton* cmdPDF;
    QPrintPreviewWidget* preview; // the page preview

    void cmdImpresora_Click();
    void cmdPDF_Click();

    // The report the preview shows, or null.
    const std::shared_ptr<reports::ReportDocument>& shownReport() const { return shown_; }
    // Whether a print would find a report (false after printing).
    bool hasReport() const { return report_ != nullptr; }

protected:
    // Opens the report file at `path`, gives it the values of its parameter
    // fields found in `values`, the year's database when it reads the year,
    // and the selection formula unless empty; then shows it. Failures are
    // shown and leave the viewer without a report. True when shown.
    bool showReport(const QString& path, const QHash<QString, QString>& values, const QString& formula);
    // Drops the report and empties the preview.
    void clearReport();

    virtual QString selectText() const { return QStringLiteral("Seleccione un informe"); }

    void keyPressEvent(QKeyEvent* event) override;

    // The row of the buttons, and the area beside the preview (a list).
    QHBoxLayout* buttonRow;
    QHBoxLayout* mainRow;

private:
    void printOn(int which);
    void paintPreview(QPrinter* printer);

    std::unique_ptr<QPrinter> printer_;
    QStackedWidget* stack_;
    std::shared_ptr<reports::ReportDocument> shown_;
    std::shared_ptr<reports::ReportDocument> report_;
};
