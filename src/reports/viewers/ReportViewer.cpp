#include "reports/viewers/ReportViewer.h"
#include "vb/Clock.h"

#include "core/Modulo.h"
#include "reports/engine/Report.h"
#include "reports/engine/ReportSeams.h"
#include "reports/viewers/PrinterOutput.h"
#include "ui/MsgBox.h"
#include "ui/Printers.h"
#include "ui/RuntimeErrorBox.h"
#include "vb/Vb.h"

#include <QDir>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QPrintPreviewWidget>
#include <QPrinter>
#include <QPushButton>
#include <QStackedWidget>
#include <QVBoxLayout>

namespace {

// The runtime's number for a position outside a collection.
constexpr int kSubscriptOutOfRange = 9;

} // namespace

ReportViewer::ReportViewer(QWidget* parent) : Form(parent)
{
    setWindowFlags(windowFlags() | Qt::WindowMaximizeButtonHint | Qt::WindowMinimizeButtonHint);
    resize(980, 720);

    cmdImpresora = new QPushButton(QStringLiteral("&Imprimir"), this);
    cmdImpresora->setObjectName(QStringLiteral("cmdImpresora"));
    cmdPDF = new QPushButton(QStringLiteral("P&DF"), this);
    cmdPDF->setObjectName(QStringLiteral("cmdPDF"));
    for (QPushButton* b : {cmdImpresora, cmdPDF})
        b->setAutoDefault(false);

    printer_ = std::make_unique<QPrinter>(QPrinter::HighResolution);
    preview = new QPrintPreviewWidget(printer_.get(), this);
    preview->setObjectName(QStringLiteral("preview"));
    auto* blank = new QLabel(this);
    blank->setAutoFillBackground(true);
    blank->setBackgroundRole(QPalette::Dark);
    stack_ = new QStackedWidget(this);
    stack_->addWidget(blank);
    stack_->addWidget(preview);

    buttonRow = new QHBoxLayout;
    buttonRow->addWidget(cmdImpresora);
    buttonRow->addWidget(cmdPDF);
    buttonRow->addStretch(1);
    mainRow = new QHBoxLayout;
    mainRow->addWidget(stack_, 1);
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(6, 6, 6, 6);
    layout->addLayout(buttonRow);
    layout->addLayout(mainRow, 1);

    connect(preview, &QPrintPreviewWidget::paintRequested, this, &ReportViewer::paintPreview);
    connect(cmdImpresora, &QPushButton::clicked, this, [this] { ui::guardRuntime([this] { cmdImpresora_Click(); }); });
    connect(cmdPDF, &QPushButton::clicked, this, [this] { ui::guardRuntime([this] { cmdPDF_Click(); }); });
}

ReportViewer::~ReportViewer() = default;

void ReportViewer::keyPressEvent(QKeyEvent* event)
{
    // The viewers have no button to close them: Escape does, as in any
    // desktop viewer.
    if (event->key() == Qt::Key_Escape && event->modifiers() == Qt::NoModifier) {
        event->accept();
        close();
        return;
    }
    Form::keyPressEvent(event);
}

void ReportViewer::cmdImpresora_Click()
{
    printOn(0);
}

void ReportViewer::cmdPDF_Click()
{
    printOn(1);
}

bool ReportViewer::showReport(const QString& path, const QHash<QString, QString>& values, const QString& formula)
{
    std::shared_ptr<reports::ReportDocument> document;
    QString failure;
    {
        BusyCursor busy(this);
        try {
            auto report = reports::Report::open(path);
            for (const QString& name : report->parameterNames()) {
                if (values.contains(name))
                    report->setParameter(name, values.value(name));
            }
            // Every time: after a year switch the same report reads the other year.
            if (report->readsYear())
                report->setLocation(gRutaBD);
            report->setSelectionFormula(formula);
            document = report->render();
        } catch (const RuntimeError& e) {
            failure = e.Number() == reports::FileNotFound ? reports::missingFileText() : e.Description();
        }
    }
    if (!document) {
        clearReport();
        MsgBox(failure, vbCritical);
        return false;
    }
    shown_ = document;
    report_ = document;
    printer_->setPageLayout(document->pageLayout());
    stack_->setCurrentWidget(preview);
    preview->updatePreview();
    preview->fitToWidth();
    return true;
}

void ReportViewer::clearReport()
{
    shown_.reset();
    report_.reset();
    stack_->setCurrentIndex(0);
}

void ReportViewer::paintPreview(QPrinter* printer)
{
    if (shown_)
        ui::guardRuntime([&] { shown_->paint(printer); });
}

void ReportViewer::printOn(int which)
{
    if (!report_) {
        MsgBox(selectText(), vbInformation);
        return;
    }
    BusyCursor busy(this);
    int line = which;
    const QVariant stored = LeerImpresora(line);
    const int n = stored.isValid() && !stored.toString().trimmed().isEmpty() ? vb::CInt(stored) : 0;
    const QStringList printers = Printers::available();
    if (n < 0 || n >= printers.size())
        throw RuntimeError(kSubscriptOutOfRange, QStringLiteral("El subíndice está fuera del intervalo"));
    if (n == printers.size() - 1) {
        // The last entry is the PDF file under the base folder, opened at once.
        const QString folder = gRutaBase + QStringLiteral("/PDF");
        QDir().mkpath(folder);
        const QString file = folder + u'/' + report_->name() + u'-' +
                             vb::Clock::now().toString(QStringLiteral("yyyyMMdd-HHmmss")) + QStringLiteral(".pdf");
        report_->writePdf(file);
        if (!reports::Desktop::openFile(file))
            MsgBox(QStringLiteral("No hay ningún programa para abrir archivos PDF.\nEl informe se ha guardado en:\n") +
                       QDir::toNativeSeparators(file),
                   vbInformation);
    } else {
        reports::PrinterOutput::print(printers.at(n), *report_);
    }
    report_.reset();
}
